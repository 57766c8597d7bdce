#include "Arguments.h"

#include "Numbers.h"

#include <cmath>

namespace Workbench {

bool CArguments::Next() {
    if (next >= words.size()) {
        return false;
    }
    current = next++;
    return true;
}

COutcome CArguments::TakeText(std::string& value) {
    option = Get();
    if (!Next()) {
        return COutcome::WrongUsage(option + ": a value has to follow");
    }
    value = Get();
    return {};
}

COutcome CArguments::TakeNumber(double& value, double least, double most) {
    std::string text;
    if (COutcome outcome = TakeText(text); !outcome) {
        return outcome;
    }
    double parsed = 0.0;
    if (!ParseNumber(text, parsed)) {
        return COutcome::WrongUsage(option + ": \"" + text + "\" is not a number");
    }
    if (parsed < least || parsed > most) {
        return OutOfRange(text, least, most);
    }
    value = parsed;
    return {};
}

COutcome CArguments::TakeInteger(int& value, int least, int most) {
    double parsed = 0.0;
    if (COutcome outcome = TakeNumber(parsed, least, most); !outcome) {
        return outcome;
    }
    if (parsed != std::floor(parsed)) {
        return COutcome::WrongUsage(option + ": \"" + Get() + "\" is not a whole number");
    }
    value = static_cast<int>(parsed);
    return {};
}

COutcome CArguments::TakeChoice(int& index, const std::vector<std::string_view>& choices) {
    std::string text;
    if (COutcome outcome = TakeText(text); !outcome) {
        return outcome;
    }
    std::string all;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (choices[i] == text) {
            index = static_cast<int>(i);
            return {};
        }
        all += (i == 0 ? "" : ", ") + std::string(choices[i]);
    }
    return COutcome::WrongUsage(option + ": \"" + text + "\" is none of " + all);
}

COutcome CArguments::OutOfRange(const std::string& text, double least, double most) const {
    std::string message = option + ": " + text + " is out of range, which is ";
    AppendNumber(message, least);
    message += " to ";
    AppendNumber(message, most);
    return COutcome::WrongUsage(message);
}

} // namespace Workbench
