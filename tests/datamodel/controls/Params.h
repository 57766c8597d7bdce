#pragma once

#include "datamodel/ParamInfo.h"
#include "datamodel/objects/CaptureParam.h"

#include <limits>

namespace Vorin::DataModel::Controls {

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

inline Objects::CParamInfo MakeInfo(Objects::EParamType type, double min, double max,
                                    double initial) {
    return {type, "Cutoff", "Hz", "", nullptr, nullptr, min, max, initial};
}

inline Objects::CParamInfo MakeInfo(Objects::EParamType type, double min, double max) {
    return MakeInfo(type, min, max, min);
}

} // namespace Vorin::DataModel::Controls
