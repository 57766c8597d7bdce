#pragma once

#include "datamodel/time/CaptureOverTime.h"
#include "math/SweptCurvesFunction.h"

namespace Vorin::DataModel::Objects {

/// The history of a curve as a surface: x and z are the axes of the curve; y is the time in
/// seconds, from minus the duration to 0, which is the newest curve.
///
/// Everything else is told at TCaptureOverTime. Each tick clones the curve. Holds 16,384 curves at
/// most, which is more than five minutes at 50 curves a second.
class CCaptureSurfaceFromCurveOverTime
    : public TCaptureOverTime<Math::IBinaryFunction, IConstSurfaceInfo, CSurfaceInfo,
                              Math::CSweptCurvesFunction, IConstCaptureCurve> {
public:
    explicit CCaptureSurfaceFromCurveOverTime(
        System::ITimerProvider* timerProvider,
        const System::IClock& clock = System::GetMonotonicClock())
        : TCaptureOverTime(timerProvider, clock, 1 << 14) {
        ApplyDuration(defaultDuration, info.GetYInfo());
    }

    /// In milliseconds. Forgets the history, then notifies.
    void SetDuration(int milliseconds) {
        ApplyDuration(milliseconds, info.GetYInfo());
        NotifyValueChanged();
    }

private:
    void AddPoint(double time, const IConstCaptureCurve& sampled) override {
        swept.AddPoint(time, sampled.GetValue().Clone(), Core::kOwn);
    }

    void FollowInfo(const IConstCaptureCurve& followed) override {
        swept.SetDefaultValue(followed.GetInfo().GetDefaultValue().Clone(), Core::kOwn);
        info.GetXInfo().CopyFrom(followed.GetInfo().GetXInfo());
        info.GetZInfo().CopyFrom(followed.GetInfo().GetYInfo());
    }

    void ClearDefault() override { swept.SetDefaultValue(nullptr, Core::kOwn); }
};

} // namespace Vorin::DataModel::Objects
