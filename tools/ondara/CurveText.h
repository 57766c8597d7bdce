#pragma once

#include "ScopeRun.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Workbench {

/// Columns curve,x,y, a row per point, with a head. Numbers read back exactly.
std::string WriteCsv(const std::vector<CCurve>& curves);

/// One line of JSON. Numbers read back exactly; what is no number is null, and an infinite one is
/// written as 1e999, which readers take for infinity.
std::string WriteJson(const std::vector<CCurve>& curves, double sampleRate, std::int64_t frames);

} // namespace Workbench
