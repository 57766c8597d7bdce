#pragma once

#include "core/Command.h"
#include "core/RefreshTime.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"
#include "system/StopWatch.h"
#include "system/TimerProvider.h"

#include <algorithm>

namespace Vorin::DataModel::Objects {

/// What a curve over time and a surface over time have in common: they sample a source at a period
/// and give what they keep as a function whose time axis ends now, at 0.
///
/// F is the interface of the function, I and Info its info, Swept the history, Source what is
/// sampled. Derived classes tell how a sample is taken and which axes follow the source.
///
/// One thread: the one on which the provider runs its timers. Provider, clock and source are not
/// owned; the source has to live until `Disconnect`, `Connect` to another one, or the destructor.
/// Nobody can hold this object, so it is never captured, also while its source is.
///
/// Time is measured from construction and runs on through a pause, which therefore shows as a gap.
/// A new object is enabled and ticks already. It remembers 5 s, sampled every 50 ms.
template <class F, class I, class Info, class Swept, class Source>
class TCaptureOverTime : public TCaptureState<>,
                         public virtual TIConstCaptureObjectWrapper<const F&, I>,
                         public virtual Core::IRefreshTime {
public:
    /// Lets go of the source; what is remembered stays. Where nothing is remembered, 0 is read.
    void Disconnect() override {
        StopListening();
        source = nullptr;
        ClearDefault();
    }

    ~TCaptureOverTime() override {
        StopListening();
        timer->RemoveTimer(timerCommand, true);
    }

    /// The history itself, which changes with every tick. Lives as long as this object.
    const F& GetValue() const override { return swept; }

    const I& GetInfo() const override { return info; }
    Info& GetInfo() { return info; }

    /// The period between samples, in milliseconds; below 1 it counts as 1. Forgets the history,
    /// which is as long as the duration needs.
    void SetRefreshTime(int milliseconds) override {
        period = std::max(milliseconds, 1);
        timer->RemoveTimer(timerCommand, true);
        timerCommand = NewTimerCommand();
        timer->AddTimer(milliseconds, timerCommand);
        UpdateCapacity();
    }
    int GetRefreshTime() const override { return static_cast<int>(period); }

    /// Takes samples from now on. The default of the source is read where nothing is remembered,
    /// and the other axes are those of the source, also when its info changes later. Silent but
    /// for the info.
    void Connect(Source& newSource) {
        Disconnect();
        source = &newSource;
        sourceInfoEvents = &newSource.GetInfo().GetInfoChangedEvents();
        sourceInfoEvents->Connect(sourceInfoChanged);
        OnSourceInfoChanged();
    }

    /// Running, or paused: a tick does nothing then.
    void SetEnabled(bool enable) { frozen = !enable; }
    bool IsEnabled() const { return !frozen; }

protected:
    static constexpr int defaultDuration = 5000; // milliseconds

    /// A history never holds more than `pointsLimit` points, whatever duration and period ask for:
    /// it is shorter than the duration then.
    TCaptureOverTime(System::ITimerProvider* timerProvider, const System::IClock& clock,
                     int pointsLimit)
        : timer(timerProvider), maxPoints(pointsLimit), stopWatch(clock) {
        stopWatch.Start();
        timerCommand = NewTimerCommand();
        timer->AddTimer(GetRefreshTime(), timerCommand);
    }

    /// Makes `timeAxis` run from minus the duration to 0. Forgets the history. A negative duration
    /// counts as 0.
    void ApplyDuration(int milliseconds, CParamInfo& timeAxis) {
        const double length = 0.001 * std::max(milliseconds, 0);
        duration = static_cast<float>(length);
        swept.SetDuration(duration);
        UpdateCapacity();
        // Not the negated length, which would be -0 and read so.
        timeAxis.CopyFrom(
            CParamInfo(kParamReal, "time", "s", "", nullptr, nullptr, 0.0 - length, 0.0, 0.0));
    }

    Swept swept;
    Info info;

private:
    /// Adds a point at `time`, in seconds, to `swept`.
    virtual void AddPoint(double time, const Source& sampled) = 0;

    /// Takes over the default and the axes of the source.
    virtual void FollowInfo(const Source& followed) = 0;

    /// Makes the default of `swept` 0.
    virtual void ClearDefault() = 0;

    Core::ICommand* NewTimerCommand() {
        return new Core::TCommand<TCaptureOverTime>(this, &TCaptureOverTime::OnTimer);
    }

    void OnTimer() {
        if (frozen || !source) {
            return;
        }
        // Points of the same time are refused by the history. In single precision, which the time
        // is kept in, that begins to happen when an object is hours old.
        AddPoint(static_cast<float>(stopWatch.GetMilliseconds() * 0.001), *source);
        NotifyValueChanged();
    }

    void OnSourceInfoChanged() { FollowInfo(*source); }

    void StopListening() {
        if (sourceInfoEvents) {
            sourceInfoEvents->Disconnect(sourceInfoChanged);
            sourceInfoEvents = nullptr;
        }
    }

    /// As many points as ticks fit into the duration.
    void UpdateCapacity() {
        const double ticks = static_cast<double>(duration * 1000.0F) / period;
        swept.SetCapacity(ticks < maxPoints ? std::max(static_cast<int>(ticks), 1) : maxPoints);
    }

    Source* source = nullptr;
    System::ITimerProvider* timer;
    Core::ICommand* timerCommand = nullptr; // deleted by the provider's RemoveTimer
    Core::IEventProvider* sourceInfoEvents = nullptr;
    Core::TCommand<TCaptureOverTime> sourceInfoChanged{this,
                                                       &TCaptureOverTime::OnSourceInfoChanged};
    int maxPoints;
    float duration = 0.0F; // seconds
    double period = 50.0;  // milliseconds
    bool frozen = false;
    System::CStopWatch stopWatch;
};

} // namespace Vorin::DataModel::Objects
