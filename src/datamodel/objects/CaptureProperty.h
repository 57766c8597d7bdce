#pragma once

#include "datamodel/objects/CaptureClone.h"

namespace Vorin::DataModel::Objects {

/// A custom property to read.
class CConstCaptureProperty
    : public TConstCaptureClone<IDynamicPropertyValue, IConstCustomPropertyInfo,
                                CCustomPropertyInfo> {
public:
    using TConstCaptureClone::TConstCaptureClone;
};

/// A custom property to read and write.
class CCaptureProperty : public TCaptureClone<CConstCaptureProperty> {
public:
    using TCaptureClone::TCaptureClone;
};

} // namespace Vorin::DataModel::Objects
