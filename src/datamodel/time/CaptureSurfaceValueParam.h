#pragma once

#include "datamodel/time/SampledParam.h"

namespace Vorin::DataModel::Objects {

/// A parameter that is a surface read at the values of two other parameters.
///
/// Its info is that of the surface's z axis. The rules of CSampledParam hold for the three ends.
class CCaptureSurfaceValueParam : public CSampledParam {
public:
    ~CCaptureSurfaceValueParam() override = default;

    /// All ends become null.
    void Disconnect() override {
        SetSurface(nullptr);
        SetXParam(nullptr);
        SetYParam(nullptr);
    }

    /// Null lets go of the surface; the info stays.
    void SetSurface(IConstCaptureSurface* newSurface) {
        surface.Set(newSurface);
        // What was set may have gone by now: a listener of its gesture may disconnect.
        FollowInfo(surface.Get() ? &surface.Get()->GetInfo().GetZInfo() : nullptr);
    }

    void SetXParam(IConstCaptureParam* newXParam) { xParam.Set(newXParam); }
    void SetYParam(IConstCaptureParam* newYParam) { yParam.Set(newYParam); }

private:
    bool Sample(double& result) const override {
        const IConstCaptureSurface* function = surface.Get();
        const IConstCaptureParam* x = xParam.Get();
        const IConstCaptureParam* y = yParam.Get();
        if (!function || !x || !y) {
            return false;
        }
        result = function->GetValue().Evaluate(x->GetValue(), y->GetValue());
        return true;
    }

    TEnd<IConstCaptureSurface> surface{*this};
    TEnd<IConstCaptureParam> xParam{*this};
    TEnd<IConstCaptureParam> yParam{*this};
};

} // namespace Vorin::DataModel::Objects
