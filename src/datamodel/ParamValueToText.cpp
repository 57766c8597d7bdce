#include "datamodel/ParamValueToText.h"

#include "datamodel/ValueParsing.h"

#include <cmath>
#include <cstring>

namespace Vorin::DataModel::Objects {

namespace {

double RoundMagnitude(double value, int digits) {
    const double integerDigits = std::trunc(std::log10(value) + 1.0);
    const double factor = std::pow(10.0, static_cast<double>(digits) - integerDigits);
    const double rounded = std::floor(value * factor + 0.5) / factor;
    // With so many digits that the factor overflows there is nothing to round off.
    return std::isfinite(rounded) ? rounded : value;
}

double RoundToDigits(double value, int digits) {
    if (digits < 1) {
        return value;
    }
    if (value > 0.0) {
        return RoundMagnitude(value, digits);
    }
    return value < 0.0 ? -RoundMagnitude(-value, digits) : value;
}

struct CUnitPrefix {
    const char* text;
    double factor;
};

/// The prefix of a value and what to multiply the value by.
CUnitPrefix FindUnitPrefix(double value) {
    // Three powers of ten each, from -3 to 4. The group of -3 is called "p" in this design.
    static const char* const kPrefixes[] = {"p", "\xC2\xB5", "m", "", "k", "M", "G", "T"};
    constexpr int kUnscaled = 3;

    if (!(value > 0.0) || std::isinf(value)) {
        return {"", 1.0};
    }
    // The exponent is rounded down and the division toward zero: 0.002 has exponent -3 and is in
    // "m", while 0.9 and 0.02, with exponents -1 and -2, have not passed a whole group.
    const int group = static_cast<int>(std::floor(std::log10(value))) / 3;
    const int index = group + kUnscaled;
    if (index < 0 || index >= static_cast<int>(sizeof kPrefixes / sizeof *kPrefixes)) {
        return {"", 1.0};
    }
    const float factor = std::pow(10.0F, static_cast<float>(-3 * group));
    return {kPrefixes[index], static_cast<double>(factor)};
}

/// The length of `text` without the zeros at its end and one decimal point in front of them.
int GetLengthWithoutZeros(const Containers::CCharString& text) {
    const char* characters = text.Get();
    int length = text.GetLength();
    while (length > 0 && characters[length - 1] == '0') {
        --length;
    }
    if (length > 0 && (characters[length - 1] == '.' || characters[length - 1] == ',')) {
        --length;
    }
    return length;
}

} // namespace

CParamValueToText::CParamValueToText(const char* formatText, bool withUnitPrefix,
                                     const char* patternText)
    : pattern(patternText), useUnitPrefix(withUnitPrefix) {
    format.Set(formatText); // a refused text leaves the default of a new format
}

void CParamValueToText::ValueToText(double value, Containers::CCharString& out) const {
    out.Clear();
    const char* written = pattern.Get(); // what lies before it is in `out`
    const char* open = std::strchr(written, '{');
    const char* close = written; // where the last '}' was found; null once there is none left
    while (open) {
        const char* next = open + 1;
        if (*next == '{') {
            out.Append(written, static_cast<int>(next - written));
            written = ++next;
        } else if (close && (close = std::strchr(next, '}'))) {
            next = close + 1;
            out.Append(written, static_cast<int>(open - written));
            const int length = static_cast<int>(next - open);
            if (!WriteToken({open, static_cast<std::size_t>(length)}, value, out)) {
                out.Append(open, length);
            }
            written = next;
        }
        open = std::strchr(next, '{');
    }
    out.Append(written);
}

bool CParamValueToText::TextToValue(const char* text, double& value) const {
    return ParseReal(text, value);
}

bool CParamValueToText::WriteToken(std::string_view token, double value,
                                   Containers::CCharString& out) const {
    if (token != "{value}") {
        return false;
    }
    WriteNumber(value, out);
    return true;
}

void CParamValueToText::WriteNumber(double value, Containers::CCharString& out) const {
    value = RoundToDigits(value, significantDigits);
    CUnitPrefix prefix = {"", 1.0};
    if (useUnitPrefix) {
        prefix = FindUnitPrefix(value);
        value *= prefix.factor;
    }
    Containers::CCharString number;
    format.Write(value, number);
    const int length = dropTrailingZeros ? GetLengthWithoutZeros(number) : number.GetLength();
    out.Append(number.Get(), length);
    if (prefixSpace) {
        out.Append(' ');
    }
    out.Append(prefix.text);
}

void CParamValueToText::SetPattern(const char* text) {
    const Containers::CCharString newPattern(text);
    if (!(pattern == newPattern)) {
        pattern = newPattern;
        changed.Notify();
    }
}

bool CParamValueToText::SetFormat(const char* text) {
    const Containers::CCharString previous(format.Get());
    if (!format.Set(text)) {
        return false;
    }
    if (!(previous == format.Get())) {
        changed.Notify();
    }
    return true;
}

void CParamValueToText::SetUseUnitPrefix(bool use) { Store(useUnitPrefix, use); }

void CParamValueToText::SetSignificantDigits(int digits) { Store(significantDigits, digits); }

void CParamValueToText::SetDropTrailingZeros(bool drop) { Store(dropTrailingZeros, drop); }

void CParamValueToText::SetPrefixSpace(bool space) { Store(prefixSpace, space); }

} // namespace Vorin::DataModel::Objects
