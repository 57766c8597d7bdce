#pragma once

#include "host/Host.h"

#include <cstdio>
#include <functional>

namespace TestHost {

/// A controller that drives one parameter.
struct CControl {
    VstInt32 param;
    int channel; ///< 1 to 16, 0: any
    int number;
    const char* curve = "Linear";
};

constexpr double kParamMin[kParamsCount] = {0, 0, 0, 0, 0, -1, 0};
constexpr double kParamMax[kParamsCount] = {1, 1, 2, 1, 300, 1, 1};

inline std::string NumberText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

using CValues = std::array<double, kParamsCount>;

/// The parameters of a state, as its document has them.
inline std::string ParamsText(const CValues& values) {
    std::string text = "<inputParams count=\"7\"";
    for (std::size_t i = 0; i < values.size(); ++i) {
        text += " p" + std::to_string(i) + "=\"" + NumberText(values[i]) + "\"";
    }
    return text + "/>";
}

inline std::string Document(const std::string& attributes, const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?><Preset version=\"3\" " + attributes + ">" +
           content + "</Preset>";
}

inline std::string State(const CValues& values, const std::string& name = "Test") {
    return Document("progName=\"" + name + "\" MIDIInputDefault=\"1\" MIDIOutputDefault=\"1\"",
                    ParamsText(values) + "<model/>");
}

/// A state in which controllers drive parameters over their whole range.
inline std::string ControlledState(const CValues& values, const std::vector<CControl>& controls) {
    std::string settings = "<MIDIInputSettings settingCount=\"7\">";
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        CControl used{i, 0, 0};
        bool isEnabled = false;
        for (const CControl& control : controls) {
            if (control.param == i) {
                used = control;
                isEnabled = true;
            }
        }
        const std::string name = "<setting" + std::to_string(i);
        settings +=
            name + " channel=\"" + std::to_string(used.channel) + "\" version=\"3\" number=\"" +
            std::to_string(used.number) + "\" midiEnabled=\"" + (isEnabled ? "1" : "0") +
            "\" automationEnabled=\"1\" curve=\"" + used.curve + "\" min=\"" +
            NumberText(kParamMin[i]) + "\" max=\"" + NumberText(kParamMax[i]) + "\" type=\"CC\"/>";
    }
    settings += "</MIDIInputSettings>";
    return Document("progName=\"Test\" MIDIInputDefault=\"0\" MIDIOutputDefault=\"1\"",
                    settings + ParamsText(values) + "<model/>");
}

/// Values that the types of the parameters can have.
inline CValues RandomValues(std::mt19937& random) {
    const auto fraction = [&random] { return static_cast<double>(random()) / 4294967295.0; };
    CValues values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = kParamMin[i] + fraction() * (kParamMax[i] - kParamMin[i]);
    }
    return values;
}

} // namespace TestHost
