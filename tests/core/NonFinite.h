#pragma once

#include <limits>

namespace Vorin {

/// The doubles that no index, position or text may be made of.
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace Vorin
