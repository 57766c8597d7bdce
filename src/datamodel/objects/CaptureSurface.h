#pragma once

#include "datamodel/objects/CaptureClone.h"

namespace Vorin::DataModel::Objects {

/// A surface to read.
class CConstCaptureSurface
    : public TConstCaptureClone<Math::IBinaryFunction, IConstSurfaceInfo, CSurfaceInfo> {
public:
    using TConstCaptureClone::TConstCaptureClone;
};

/// A surface to read and write.
class CCaptureSurface : public TCaptureClone<CConstCaptureSurface> {
public:
    using TCaptureClone::TCaptureClone;
};

} // namespace Vorin::DataModel::Objects
