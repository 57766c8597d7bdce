#include "CurveText.h"

#include "Numbers.h"

#include <cmath>

namespace Workbench {

namespace {

void AppendJsonNumber(std::string& text, double value) {
    if (std::isnan(value)) {
        text += "null";
    } else if (std::isinf(value)) {
        text += value < 0 ? "-1e999" : "1e999";
    } else {
        AppendNumber(text, value);
    }
}

void AppendJsonText(std::string& text, const std::string& value) {
    text += '"';
    for (const char c : value) {
        if (c == '"' || c == '\\') {
            text += '\\';
        }
        text += c;
    }
    text += '"';
}

} // namespace

std::string WriteCsv(const std::vector<CCurve>& curves) {
    std::string text = "curve,x,y\n";
    for (const CCurve& curve : curves) {
        for (const CPoint& point : curve.points) {
            text += curve.name;
            text += ',';
            AppendNumber(text, point.x);
            text += ',';
            AppendNumber(text, point.y);
            text += '\n';
        }
    }
    return text;
}

std::string WriteJson(const std::vector<CCurve>& curves, double sampleRate, std::int64_t frames) {
    // Both are whole numbers, and written so: 100000, not 1e+05.
    std::string text = "{\"sample_rate\":" + std::to_string(std::llround(sampleRate)) +
                       ",\"frames\":" + std::to_string(frames) + ",\"curves\":[";
    bool firstCurve = true;
    for (const CCurve& curve : curves) {
        text += firstCurve ? "{\"name\":" : ",{\"name\":";
        firstCurve = false;
        AppendJsonText(text, curve.name);
        text += ",\"unit_x\":";
        AppendJsonText(text, curve.unitX);
        text += ",\"points\":[";
        bool firstPoint = true;
        for (const CPoint& point : curve.points) {
            text += firstPoint ? "[" : ",[";
            firstPoint = false;
            AppendJsonNumber(text, point.x);
            text += ',';
            AppendJsonNumber(text, point.y);
            text += ']';
        }
        text += "]}";
    }
    return text + "]}\n";
}

} // namespace Workbench
