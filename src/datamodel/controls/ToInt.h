#pragma once

#include <limits>

namespace Vorin::DataModel::Controls {

/// Towards zero. What no int can hold is the nearest one that can, and NaN is 0: counts and steps
/// come from ranges and zooms that anybody may have written. [any]
inline int ToInt(double value) {
    // Both limits are exact as doubles, and NaN fails both tests.
    if (value >= static_cast<double>(std::numeric_limits<int>::max())) {
        return std::numeric_limits<int>::max();
    }
    if (value > static_cast<double>(std::numeric_limits<int>::min())) {
        return static_cast<int>(value);
    }
    return value < 0.0 ? std::numeric_limits<int>::min() : 0;
}

} // namespace Vorin::DataModel::Controls
