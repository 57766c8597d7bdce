#pragma once

#include "datamodel/objects/CaptureClone.h"

namespace Vorin::DataModel::Objects {

/// A curve to read.
class CConstCaptureCurve : public TConstCaptureClone<Math::IFunction, IConstCurveInfo, CCurveInfo> {
public:
    using TConstCaptureClone::TConstCaptureClone;
};

/// A curve to read and write.
class CCaptureCurve : public TCaptureClone<CConstCaptureCurve> {
public:
    using TCaptureClone::TCaptureClone;
};

} // namespace Vorin::DataModel::Objects
