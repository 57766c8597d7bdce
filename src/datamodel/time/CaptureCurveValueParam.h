#pragma once

#include "datamodel/time/SampledParam.h"

namespace Vorin::DataModel::Objects {

/// A parameter that is a curve read at the value of another parameter.
///
/// Its info is that of the curve's y axis. The rules of CSampledParam hold for the two ends.
class CCaptureCurveValueParam : public CSampledParam {
public:
    ~CCaptureCurveValueParam() override = default;

    /// Both ends become null.
    void Disconnect() override {
        SetCurve(nullptr);
        SetXParam(nullptr);
    }

    /// Null lets go of the curve; the info stays.
    void SetCurve(IConstCaptureCurve* newCurve) {
        curve.Set(newCurve);
        // What was set may have gone by now: a listener of its gesture may disconnect.
        FollowInfo(curve.Get() ? &curve.Get()->GetInfo().GetYInfo() : nullptr);
    }

    void SetXParam(IConstCaptureParam* newXParam) { xParam.Set(newXParam); }

private:
    bool Sample(double& result) const override {
        const IConstCaptureCurve* function = curve.Get();
        const IConstCaptureParam* x = xParam.Get();
        if (!function || !x) {
            return false;
        }
        result = function->GetValue().Evaluate(x->GetValue());
        return true;
    }

    TEnd<IConstCaptureCurve> curve{*this};
    TEnd<IConstCaptureParam> xParam{*this};
};

} // namespace Vorin::DataModel::Objects
