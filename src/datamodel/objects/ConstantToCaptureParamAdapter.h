#pragma once

#include "core/Ownership.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"
#include "math/Function.h"

namespace Vorin::DataModel::Objects {

/// A constant as a parameter to read. One thread.
///
/// The value is what the constant evaluates to, outside of the range too; without a constant 0. It
/// is evaluated at each `GetValue`: a derived class that changes the constant notifies.
class CConstantToCaptureParamAdapter : public TCaptureState<>, public virtual IConstCaptureParam {
public:
    /// Copies the info. With `kOwn` takes the constant, which may be null, over; with `kDontOwn`
    /// it outlives this object.
    CConstantToCaptureParamAdapter(const IConstParamInfo& source, const Math::IConstant* initial,
                                   Core::EOwnership ownership)
        : constant(initial, ownership) {
        info.CopyFrom(source);
    }

    double GetValue() const override {
        const Math::IConstant* held = constant.Get();
        return held ? held->Evaluate() : 0.0;
    }

    const IConstParamInfo& GetInfo() const override { return info; }

    /// To change the info.
    CParamInfo& GetInfo() { return info; }

private:
    CParamInfo info;
    Core::TOwnership<const Math::IConstant> constant;
};

} // namespace Vorin::DataModel::Objects
