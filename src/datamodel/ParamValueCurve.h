#pragma once

#include "math/Function.h"

#include <memory>

namespace Vorin::DataModel::Objects {

/// The response curves of controls and of MIDI mapping, on values from 0 to 1. The entry at 12 - i
/// has the functions of the entry at i with forward and inverse swapped.
enum EParamValueCurve : int {
    kParamValueCurveLog3 = 0,
    kParamValueCurveLog2 = 1,
    kParamValueCurveLog1 = 2,
    kParamValueCurveLog0 = 3, ///< deliberately a straight line
    kParamValueCurveSquareRoot = 4,
    kParamValueCurveLog = 5,
    kParamValueCurveLinear = 6,
    kParamValueCurveExp = 7,
    kParamValueCurveSquare = 8,
    kParamValueCurveExp0 = 9, ///< deliberately a straight line
    kParamValueCurveExp1 = 10,
    kParamValueCurveExp2 = 11,
    kParamValueCurveExp3 = 12
};

inline constexpr int kParamValueCurvesCount = 13;

/// The name of a curve in settings, and the one that users see. Static text; null outside the
/// table.
const char* GetParamValueCurveName(EParamValueCurve curve);
const char* GetParamValueCurveDisplayName(EParamValueCurve curve);

/// The curve of a name in settings; false, with `curve` left alone, when there is none.
bool FindParamValueCurve(const char* name, EParamValueCurve& curve);

/// A response function and the one that undoes it.
struct CParamValueCurveFunctions {
    std::unique_ptr<Math::IFunction> forward;
    std::unique_ptr<Math::IFunction> inverse;
};

/// New function objects of a curve, never null; outside the table both are the identity.
CParamValueCurveFunctions CreateParamValueCurveFunctions(EParamValueCurve curve);

} // namespace Vorin::DataModel::Objects
