#include "SkinEngine/Model/InfoAttributes.h"

#include "datamodel/EnumToText.h"
#include "datamodel/ParamValueCurve.h"
#include "datamodel/objects/CaptureString.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace Vorin::AppEngine {

namespace {

constexpr const char* kDefaultValueFormat = "%.1f";

/// Names of attributes with a prefix.
class CPrefixedNames {
public:
    explicit CPrefixedNames(const char* namesPrefix) : prefix(namesPrefix) {}
    std::string operator()(const char* name) const { return std::string(prefix) + name; }

private:
    const char* prefix;
};

void ReadInfoType(const std::string& word, Objects::CParamInfo& info) {
    if (word == "boolean") {
        info.SetType(Objects::kParamBoolean);
        info.SetMin(0.0);
        info.SetMax(1.0);
    } else if (word == "integer" || word == "enumeration") {
        info.SetType(Objects::kParamInteger);
    } else {
        info.SetType(Objects::kParamReal);
    }
}

/// The labels as a text of the model: what a menu of them is made from.
void AddEnumValues(CModelElement& element, const char* list, const std::string& attribute) {
    const std::string id = element.GetSubId(attribute.c_str());
    if (id.empty() || element.GetUsage().GetStringCount(id.c_str()) == 0) {
        return;
    }
    auto text = std::make_unique<Objects::CConstCaptureString>(
        Objects::CStringInfo("Enum Values", "", false, list));
    if (!element.GetModel().AddObject<Objects::IConstCaptureString>(id.c_str(), text.release(),
                                                                    Core::kOwn)) {
        element.SetFailed();
    }
}

void ReadEnumValues(CModelElement& element, Objects::CParamInfo& info, const char* list,
                    bool hasMax, const std::string& attribute) {
    const auto steps = static_cast<double>(std::count(list, list + std::strlen(list), ';'));
    if (hasMax && info.GetMax() - info.GetMin() != steps) {
        element.Warn("the number of values in the enumeration list is different from specified "
                     "min/max range");
    }
    info.SetMax(info.GetMin() + steps);
    const double first = std::clamp(info.GetMin(), -2147483648.0, 2147483647.0);
    info.SetValueToText(new Objects::CEnumToText(list, static_cast<int>(first)), Core::kOwn);
    AddEnumValues(element, list, attribute);
}

/// A text that stands for itself in a pattern.
std::string EscapePattern(const std::string& text) {
    std::string escaped;
    for (const char character : text) {
        escaped += character;
        if (character == '{') {
            escaped += character;
        }
    }
    return escaped;
}

} // namespace

void ReadInfoAttributes(CModelElement& element, Objects::CParamInfo& info, const char* prefix) {
    const CPrefixedNames named(prefix);
    const std::string type = element.GetText(named("type").c_str());
    ReadInfoType(type, info);
    double value = 0.0;
    const bool hasMax = element.GetDouble(named("max").c_str(), value);
    info.SetMax(hasMax ? value : info.GetMax());
    if (element.GetDouble(named("min").c_str(), value)) {
        info.SetMin(value);
    }
    if (element.GetDouble(named("default").c_str(), value)) {
        info.SetDefault(value);
    }
    info.SetUnit(element.GetText(named("unit").c_str()));
    info.SetName(element.GetText(named("name").c_str()));
    info.SetComment(element.GetText(named("comment").c_str()));

    const std::string enumValues = named("enum_values");
    if (type == "enumeration" && element.Has(enumValues.c_str())) {
        ReadEnumValues(element, info, element.Get(enumValues.c_str()), hasMax, enumValues);
        return;
    }
    auto valueToText = std::make_unique<Objects::CParamValueToText>(kDefaultValueFormat);
    ReadValueTextAttributes(element, *valueToText, EscapePattern(info.GetUnit()), prefix);
    info.SetValueToText(valueToText.release(), Core::kOwn);
}

void ReadCurveInfoAttributes(CModelElement& element, Objects::CCurveInfo& info) {
    info.SetName(element.GetText("name"));
    info.SetComment(element.GetText("comment"));
    ReadInfoAttributes(element, info.GetXInfo(), "x_");
    ReadInfoAttributes(element, info.GetYInfo(), "y_");
}

void ReadSurfaceInfoAttributes(CModelElement& element, Objects::CSurfaceInfo& info) {
    info.SetName(element.GetText("name"));
    info.SetComment(element.GetText("comment"));
    ReadInfoAttributes(element, info.GetXInfo(), "x_");
    ReadInfoAttributes(element, info.GetYInfo(), "y_");
    ReadInfoAttributes(element, info.GetZInfo(), "z_");
}

void ReadValueTextAttributes(CModelElement& element, Objects::CParamValueToText& valueToText,
                             const std::string& unit, const char* prefix) {
    const CPrefixedNames named(prefix);
    if (const char* format = element.Get(named("value_format").c_str())) {
        const bool isKnown = std::strspn(format, ".#+- 0123456789") == std::strlen(format);
        if (!isKnown || !valueToText.SetFormat((std::string("%") + format + "f").c_str())) {
            element.Warn(std::string(element.GetName()) + ", '" + format +
                         "' : Invalid value format. Using default.");
            valueToText.SetFormat(kDefaultValueFormat);
        }
    }
    if (const char* content = element.Get(named("content").c_str())) {
        valueToText.SetPattern(content);
    }
    if (element.IsTrue(named("value_suffix").c_str()) && !unit.empty()) {
        valueToText.SetPattern((std::string(valueToText.GetPattern()) + " " + unit).c_str());
    }
    valueToText.SetDropTrailingZeros(element.IsTrue(named("drop_trailing_zeros").c_str()));
    int digits = Objects::CParamValueToText::kAllDigits;
    element.GetInteger(named("significant_digits").c_str(), digits);
    valueToText.SetSignificantDigits(digits);
}

Objects::EParamValueCurve GetResponseCurve(const CModelElement& element) {
    struct CCurveWord {
        std::string_view word;
        Objects::EParamValueCurve curve;
    };
    static constexpr CCurveWord kWords[] = {
        {"exp", Objects::kParamValueCurveExp},
        {"log", Objects::kParamValueCurveLog},
        {"exp1", Objects::kParamValueCurveExp1},
        {"log1", Objects::kParamValueCurveLog1},
        {"exp2", Objects::kParamValueCurveExp2},
        {"log2", Objects::kParamValueCurveLog2},
        {"exp3", Objects::kParamValueCurveExp3},
        {"log3", Objects::kParamValueCurveLog3},
        {"square", Objects::kParamValueCurveSquare},
        {"square_root", Objects::kParamValueCurveSquareRoot},
    };
    const std::string_view word = element.GetText("response_curve");
    for (const CCurveWord& entry : kWords) {
        if (entry.word == word) {
            return entry.curve;
        }
    }
    return Objects::kParamValueCurveLinear;
}

} // namespace Vorin::AppEngine
