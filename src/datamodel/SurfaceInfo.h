#pragma once

#include "datamodel/AxesInfo.h"
#include "math/Constant.h"
#include "math/Function.h"

namespace Vorin::DataModel::Objects {

/// What a surface z = f(x, y) is: its name, its axes and its default.
class IConstSurfaceInfo : public virtual IConstObjectInfo {
public:
    /// The names of the axes.
    virtual const char* GetXName() const = 0;
    virtual const char* GetYName() const = 0;
    virtual const char* GetZName() const = 0;

    virtual const IConstParamInfo& GetXInfo() const = 0;
    virtual const IConstParamInfo& GetYInfo() const = 0;
    virtual const IConstParamInfo& GetZInfo() const = 0;

    /// Lives until another default is set.
    virtual const Math::IBinaryFunction& GetDefaultValue() const = 0;
};

class CSurfaceInfo
    : public TAxesInfo<IConstSurfaceInfo, Math::IBinaryFunction, Math::CConstantBinaryFunction, 3> {
public:
    CSurfaceInfo() = default;

    /// Copies the axis infos.
    CSurfaceInfo(const char* nameText, const char* commentText, const IConstParamInfo& x,
                 const IConstParamInfo& y, const IConstParamInfo& z)
        : TAxesInfo(nameText, commentText, x, y, z) {}

    const char* GetXName() const override { return GetXInfo().GetName(); }
    const char* GetYName() const override { return GetYInfo().GetName(); }
    const char* GetZName() const override { return GetZInfo().GetName(); }

    const CParamInfo& GetXInfo() const override { return Axis<0>(); }
    const CParamInfo& GetYInfo() const override { return Axis<1>(); }
    const CParamInfo& GetZInfo() const override { return Axis<2>(); }
    CParamInfo& GetXInfo() { return Axis<0>(); }
    CParamInfo& GetYInfo() { return Axis<1>(); }
    CParamInfo& GetZInfo() { return Axis<2>(); }
};

} // namespace Vorin::DataModel::Objects
