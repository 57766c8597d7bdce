#include "serialization/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace Vorin::Serialization {

namespace {

constexpr int kFloatPrecision = 11;
constexpr int kDoublePrecision = 20;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The locale has a say in tolower.
char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

const char* SkipWhiteSpace(const char* text) {
    while (IsWhiteSpace(*text)) {
        ++text;
    }
    return text;
}

const char* SkipDigits(const char* text) {
    while (IsDigit(*text)) {
        ++text;
    }
    return text;
}

/// Past the word when `text` is it, in any case, up to white space or the end; else null.
bool IsWord(const char* text, const char* word) {
    for (; *word; ++word, ++text) {
        if (LowerCase(*text) != *word) {
            return false;
        }
    }
    return *text == '\0' || IsWhiteSpace(*text);
}

/// The parts of a decimal number without its sign.
struct CDecimal {
    const char* begin;
    const char* end;          // equal to begin when this is no number
    std::int64_t leadingRank; // power of ten of the first digit that is not 0, about
};

/// The exponent behind an "e"; far outside what matters it only keeps its sign.
std::int64_t ReadExponent(const char* text) {
    const bool isNegative = *text == '-';
    text += *text == '-' || *text == '+';
    std::int64_t exponent = 0;
    for (; IsDigit(*text); ++text) {
        exponent = std::min<std::int64_t>(exponent * 10 + (*text - '0'), 1'000'000'000);
    }
    return isNegative ? -exponent : exponent;
}

CDecimal ScanDecimal(const char* text) {
    CDecimal decimal{text, text, 0};
    const char* whole = text;
    const char* point = SkipDigits(text);
    const char* end = *point == '.' ? SkipDigits(point + 1) : point;
    const bool hasDigits = point > whole || end > point + 1;
    if (!hasDigits) {
        return decimal;
    }
    const char* first = whole;
    while (first < end && (*first == '0' || *first == '.')) {
        ++first;
    }
    decimal.leadingRank = point - first;
    if (*end == 'e' || *end == 'E') {
        const char* digits = end + 1;
        digits += *digits == '-' || *digits == '+';
        if (!IsDigit(*digits)) {
            return decimal; // a stream takes the "e" in and then has no number
        }
        decimal.leadingRank += ReadExponent(end + 1);
        end = SkipDigits(digits);
    }
    decimal.end = end;
    return decimal;
}

template <class T>
T ReadFloating(const char* text) {
    if (!text) {
        return T(0);
    }
    text = SkipWhiteSpace(text);
    const T sign = *text == '-' ? T(-1) : T(1);
    text += *text == '-' || *text == '+';
    if (IsWord(text, "nan")) {
        return std::copysign(std::numeric_limits<T>::quiet_NaN(), sign);
    }
    if (IsWord(text, "inf") || IsWord(text, "infinity")) {
        return std::copysign(std::numeric_limits<T>::infinity(), sign);
    }
    const CDecimal decimal = ScanDecimal(text);
    if (decimal.begin == decimal.end) {
        return T(0);
    }
    T value = T(0);
    const std::from_chars_result result = std::from_chars(decimal.begin, decimal.end, value);
    // Out of range is said alike of what is too large and of what is too small.
    if (result.ec == std::errc::result_out_of_range) {
        value = decimal.leadingRank > 0 ? std::numeric_limits<T>::max() : T(0);
    }
    return std::copysign(std::min(value, std::numeric_limits<T>::max()), sign);
}

template <class T>
CNumberText WriteFloating(T value, int precision) {
    CNumberText result;
    char* end = result.text + sizeof(result.text) - 1;
    *std::to_chars(result.text, end, value, std::chars_format::general, precision).ptr = '\0';
    return result;
}

} // namespace

CNumberText NumberText::Write(bool value) { return Write(value ? 1 : 0); }

CNumberText NumberText::Write(int value) {
    CNumberText result;
    *std::to_chars(result.text, result.text + sizeof(result.text) - 1, value).ptr = '\0';
    return result;
}

CNumberText NumberText::Write(float value) { return WriteFloating(value, kFloatPrecision); }

CNumberText NumberText::Write(double value) { return WriteFloating(value, kDoublePrecision); }

bool NumberText::ReadBool(const char* text) { return ReadInt(text) != 0; }

int NumberText::ReadInt(const char* text) {
    if (!text) {
        return 0;
    }
    text = SkipWhiteSpace(text);
    const bool isNegative = *text == '-';
    const char* digits = text + (*text == '-' || *text == '+');
    const char* begin = isNegative ? text : digits;
    int value = 0;
    if (std::from_chars(begin, SkipDigits(digits), value).ec == std::errc::result_out_of_range) {
        return isNegative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return value;
}

float NumberText::ReadFloat(const char* text) { return ReadFloating<float>(text); }

double NumberText::ReadDouble(const char* text) { return ReadFloating<double>(text); }

} // namespace Vorin::Serialization
