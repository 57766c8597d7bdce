#pragma once

#include "Outcome.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace Workbench {

/// The words of a command line behind the command, taken one after the other: options that begin
/// with
/// "-", and the rest.
class CArguments {
public:
    explicit CArguments(std::vector<std::string> argumentWords) : words(std::move(argumentWords)) {}

    /// Steps to the next word. False at the end.
    bool Next();

    /// The word at hand.
    const std::string& Get() const { return words[current]; }
    bool IsOption() const { return Get().size() > 1 && Get().front() == '-'; }

    /// The value of the option at hand, which is the next word; takes that too.
    COutcome TakeText(std::string& value);

    /// The same as a number within [least, most]. The whole word must be a number.
    COutcome TakeNumber(double& value, double least, double most);
    COutcome TakeInteger(int& value, int least, int most);

    /// The same as one of some words; `index` is its place among them.
    COutcome TakeChoice(int& index, const std::vector<std::string_view>& choices);

private:
    COutcome OutOfRange(const std::string& text, double least, double most) const;

    std::vector<std::string> words;
    std::size_t next = 0;
    std::size_t current = 0;
    std::string option; // the one whose value is being taken
};

} // namespace Workbench
