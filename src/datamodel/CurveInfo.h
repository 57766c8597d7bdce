#pragma once

#include "datamodel/AxesInfo.h"
#include "math/Constant.h"
#include "math/Function.h"

namespace Vorin::DataModel::Objects {

/// What a curve y = f(x) is: its name, its axes and its default.
class IConstCurveInfo : public virtual IConstObjectInfo {
public:
    /// The names of the axes.
    virtual const char* GetXName() const = 0;
    virtual const char* GetYName() const = 0;

    virtual const IConstParamInfo& GetXInfo() const = 0;
    virtual const IConstParamInfo& GetYInfo() const = 0;

    /// Lives until another default is set.
    virtual const Math::IFunction& GetDefaultValue() const = 0;
};

class CCurveInfo : public TAxesInfo<IConstCurveInfo, Math::IFunction, Math::CConstantFunction, 2> {
public:
    CCurveInfo() = default;

    /// Copies the axis infos.
    CCurveInfo(const char* nameText, const char* commentText, const IConstParamInfo& x,
               const IConstParamInfo& y)
        : TAxesInfo(nameText, commentText, x, y) {}

    const char* GetXName() const override { return GetXInfo().GetName(); }
    const char* GetYName() const override { return GetYInfo().GetName(); }

    const CParamInfo& GetXInfo() const override { return Axis<0>(); }
    const CParamInfo& GetYInfo() const override { return Axis<1>(); }
    CParamInfo& GetXInfo() { return Axis<0>(); }
    CParamInfo& GetYInfo() { return Axis<1>(); }
};

} // namespace Vorin::DataModel::Objects
