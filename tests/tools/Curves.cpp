#include "Curves.h"

#include "Json.h"

#include <charconv>
#include <limits>
#include <stdexcept>

namespace WorkbenchTests {

namespace {

void Require(bool holds, const std::string& what) {
    if (!holds) {
        throw std::runtime_error("curves: " + what);
    }
}

void RequireNames(const CJson& object, const std::vector<std::string>& names) {
    Require(object.kind == CJson::kObject, "no object");
    Require(object.GetNames() == names, "other members than expected");
}

double ToNumber(const CJson& value) {
    if (value.kind == CJson::kNull) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    Require(value.kind == CJson::kNumber, "no number");
    return value.number;
}

double ToWholeNumber(const CJson& value) {
    Require(value.kind == CJson::kNumber, "no number");
    Require(value.text.find_first_not_of("0123456789") == std::string::npos,
            value.text + " is not written as a whole number");
    return value.number;
}

std::string ToText(const CJson& value) {
    Require(value.kind == CJson::kText, "no text");
    return value.text;
}

double ToNumber(const std::string& text) {
    double number = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    Require(result.ec == std::errc() && result.ptr == text.data() + text.size(),
            "\"" + text + "\" is not a number");
    return number;
}

} // namespace

CReadDocument ReadJsonCurves(const std::string& text) {
    Require(!text.empty() && text.back() == '\n', "no end of line");
    const CJson document = ParseJson(text);
    RequireNames(document, {"sample_rate", "frames", "curves"});
    CReadDocument result;
    result.rate = ToWholeNumber(document.At("sample_rate"));
    result.frames = ToWholeNumber(document.At("frames"));
    Require(document.At("curves").kind == CJson::kArray, "curves are no array");
    for (const CJson& item : document.At("curves").items) {
        RequireNames(item, {"name", "unit_x", "points"});
        CReadCurve curve{ToText(item.At("name")), ToText(item.At("unit_x")), {}, {}};
        Require(item.At("points").kind == CJson::kArray, "points are no array");
        for (const CJson& point : item.At("points").items) {
            Require(point.kind == CJson::kArray && point.items.size() == 2, "no point");
            curve.x.push_back(ToNumber(point.items[0]));
            curve.y.push_back(ToNumber(point.items[1]));
        }
        result.curves.push_back(std::move(curve));
    }
    return result;
}

std::vector<CReadCurve> ReadCsvCurves(const std::string& text) {
    std::vector<CReadCurve> curves;
    std::size_t start = 0;
    for (int line = 0; start < text.size(); ++line) {
        const std::size_t end = text.find('\n', start);
        Require(end != std::string::npos, "the last line has no end");
        const std::string row = text.substr(start, end - start);
        start = end + 1;
        if (line == 0) {
            Require(row == "curve,x,y", "another head: " + row);
            continue;
        }
        const std::size_t first = row.find(',');
        const std::size_t second = row.find(',', first + 1);
        Require(first != std::string::npos && second != std::string::npos, "too few columns");
        const std::string name = row.substr(0, first);
        if (curves.empty() || curves.back().name != name) {
            curves.push_back({name, "", {}, {}});
        }
        curves.back().x.push_back(ToNumber(row.substr(first + 1, second - first - 1)));
        curves.back().y.push_back(ToNumber(row.substr(second + 1)));
    }
    return curves;
}

} // namespace WorkbenchTests
