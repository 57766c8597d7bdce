#pragma once

#include "datamodel/ObjectInfo.h"

namespace Vorin::DataModel::Objects {

/// What an action is called.
class IConstActionInfo : public virtual IConstObjectInfo {};

class IActionInfo : public virtual IConstActionInfo, public virtual IObjectInfo {};

class CActionInfo : public CObjectInfo, public virtual IActionInfo {
public:
    using CObjectInfo::CObjectInfo;
};

} // namespace Vorin::DataModel::Objects
