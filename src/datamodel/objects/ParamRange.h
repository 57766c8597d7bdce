#pragma once

#include "datamodel/ParamInfo.h"

namespace Vorin::DataModel::Objects {

/// Whether a parameter that has `value` would change by `newValue`. Deliberately not `!=`: NaN is
/// no change, so it never replaces a number.
inline bool IsChange(double newValue, double value) { return newValue < value || newValue > value; }

/// The value within the range of the info. The order of the tests decides the odd cases: NaN
/// becomes the maximum, in an inverted range everything does, a minimum of NaN binds nothing, and a
/// maximum of NaN gives NaN, which IsChange keeps away from any parameter.
inline double ClampToRange(double value, const IConstParamInfo& info) {
    const double min = info.GetMin();
    const double max = info.GetMax();
    if (min > value) {
        value = min;
    }
    return max >= value ? value : max;
}

} // namespace Vorin::DataModel::Objects
