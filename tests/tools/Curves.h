#pragma once

#include <string>
#include <vector>

namespace WorkbenchTests {

/// A curve as a script reads it from a file.
struct CReadCurve {
    std::string name;
    std::string unitX; ///< empty from a CSV, which has none
    std::vector<double> x;
    std::vector<double> y;
};

struct CReadDocument {
    double rate = 0.0;
    double frames = 0.0;
    std::vector<CReadCurve> curves;
};

/// Both throw a std::runtime_error on the least deviation from the format.
CReadDocument ReadJsonCurves(const std::string& text);
std::vector<CReadCurve> ReadCsvCurves(const std::string& text);

} // namespace WorkbenchTests
