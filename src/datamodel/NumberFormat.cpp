#include "datamodel/NumberFormat.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace Vorin::DataModel::Objects {

namespace {

constexpr char kDefaultFormat[] = "%.2f";

// The longest text of an accepted conversion is that of "%+#.99f" for the largest double: a sign,
// 309 digits, a decimal point of a few bytes and 99 decimals.
constexpr std::size_t kLongestNumber = 512;

bool IsOneOf(char character, const char* characters) {
    return character != 0 && std::strchr(characters, character) != nullptr;
}

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

/// Moves behind at most two digits.
const char* SkipDigits(const char* text) {
    for (int i = 0; i < 2 && IsDigit(*text); ++i) {
        ++text;
    }
    return text;
}

/// Moves from behind the '%' to behind the conversion; null when it is not an accepted one.
const char* SkipConversion(const char* text) {
    while (IsOneOf(*text, "-+ #0")) {
        ++text;
    }
    text = SkipDigits(text);
    if (*text == '.') {
        text = SkipDigits(text + 1);
    }
    return IsOneOf(*text, "eEfFgGaA") ? text + 1 : nullptr;
}

} // namespace

CNumberFormat::CNumberFormat() { Set(kDefaultFormat); }

bool CNumberFormat::Set(const char* text) {
    if (!text) {
        return false;
    }
    Containers::CCharString literals[2]; // before and behind the conversion
    Containers::CCharString found;
    const char* position = text;
    while (*position) {
        Containers::CCharString& literal = literals[found.IsEmpty() ? 0 : 1];
        const char* percent = std::strchr(position, '%');
        if (!percent) {
            literal.Append(position);
            break;
        }
        literal.Append(position, static_cast<int>(percent - position));
        if (percent[1] == '%') {
            literal.Append('%');
            position = percent + 2;
            continue;
        }
        position = SkipConversion(percent + 1);
        if (!position || !found.IsEmpty()) {
            return false;
        }
        found.Append(percent, static_cast<int>(position - percent));
    }
    if (found.IsEmpty()) {
        return false;
    }
    format = text;
    before = literals[0];
    conversion = found;
    after = literals[1];
    return true;
}

void CNumberFormat::Write(double value, Containers::CCharString& out) const {
    char number[kLongestNumber];
    const double shown = std::isnan(value) ? std::fabs(value) : value; // its sign is the machine's
    const int length = std::snprintf(number, sizeof number, conversion.Get(), shown);
    out.Append(before.Get());
    out.Append(number, std::clamp(length, 0, static_cast<int>(sizeof number) - 1));
    out.Append(after.Get());
}

} // namespace Vorin::DataModel::Objects
