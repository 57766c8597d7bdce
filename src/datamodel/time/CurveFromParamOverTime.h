#pragma once

#include "datamodel/time/CaptureOverTime.h"
#include "math/SweptValues.h"

namespace Vorin::DataModel::Objects {

/// The history of a parameter as a curve: x is the time in seconds, from minus the duration to 0,
/// which is the newest sample; y is the parameter.
///
/// Everything else is told at TCaptureOverTime. Holds 1,048,576 points (16 MB) at most.
class CCurveFromParamOverTime
    : public TCaptureOverTime<Math::IFunction, IConstCurveInfo, CCurveInfo, Math::CSweptValues,
                              IConstCaptureParam> {
public:
    explicit CCurveFromParamOverTime(System::ITimerProvider* timerProvider,
                                     const System::IClock& clock = System::GetMonotonicClock())
        : TCaptureOverTime(timerProvider, clock, 1 << 20) {
        SetDuration(defaultDuration);
    }

    /// In milliseconds. Forgets the history; does not notify.
    void SetDuration(int milliseconds) { ApplyDuration(milliseconds, info.GetXInfo()); }

private:
    void AddPoint(double time, const IConstCaptureParam& sampled) override {
        swept.AddPoint(time, sampled.GetValue());
    }

    void FollowInfo(const IConstCaptureParam& followed) override {
        swept.SetDefaultValue(followed.GetInfo().GetDefault());
        info.GetYInfo().CopyFrom(followed.GetInfo());
    }

    void ClearDefault() override { swept.SetDefaultValue(0.0); }
};

} // namespace Vorin::DataModel::Objects
