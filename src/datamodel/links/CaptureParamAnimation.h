#pragma once

#include "core/Connect.h"
#include "core/RefreshTime.h"
#include "core/Reverse.h"
#include "datamodel/links/CaptureObjectTimeLink.h"
#include "datamodel/links/LinkSwitch.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"
#include "system/StopWatch.h"
#include "system/TimerProvider.h"

namespace Vorin::DataModel::Objects {

/// What an animation does when it has run through its range.
enum EAnimationEnd : int {
    kAnimationWrap = 0, ///< begins again
    kAnimationStop = 1  ///< stays at the end; enabling it anew begins again
};

/// The end of a word, "wrap" or "stop"; false, with `end` left alone, for null and any other word.
bool FindAnimationEnd(const char* word, EAnimationEnd& end);

/// Moves a parameter through its range over time, and is a parameter with the same value itself.
///
/// Connected to a parameter, it takes over the info and the value of that one, writes what it moves
/// to, and follows when somebody else writes. It runs while it is enabled, not paused, and
/// connected: from the minimum to the maximum, or back when it is reversed, in a straight line at
/// the ticks of a timer. Enabling begins at the start of the range; a pause, and turning around,
/// keep the place; turning around at the end runs back. While it runs `SetValue` does nothing.
/// Holding it holds the parameter. One thread; the parameter is not owned, and `Disconnect` comes
/// before its death.
class CCaptureParamAnimation : public TCaptureState<>,
                               public virtual TICaptureObjectWrapper<double, IConstParamInfo>,
                               public virtual Core::TIConnect<ICaptureParam>,
                               public virtual Core::IEnable,
                               public virtual IDisconnectAndPause,
                               public virtual Core::IRefreshTime,
                               public virtual Core::IReverse {
public:
    /// Neither is null or owned; both outlive the animation.
    explicit CCaptureParamAnimation(System::ITimerProvider* timerProvider,
                                    const System::IClock& clock = System::GetMonotonicClock())
        : timer(timerProvider), stopWatch(clock) {}
    ~CCaptureParamAnimation() override { CCaptureParamAnimation::Disconnect(); }

    /// Lets go of the parameter that was there.
    void Connect(ICaptureParam& object) override;

    /// Keeps value and info, and releases what is held.
    void Disconnect() override;

    double GetValue() const override { return value; }

    /// A copy of the parameter's info, kept up to date; without one a real with the range 0 to 0.
    const IConstParamInfo& GetInfo() const override { return info; }

    /// Nothing while it runs, for the value that it has, and for NaN. Otherwise clamps, stores,
    /// writes the parameter and notifies, also when the clamp gave what was there.
    void SetValue(double newValue) override;

    void Capture() override;
    void Release() override;

    bool IsEnabled() const override { return enabled; }
    Core::IEventProvider& GetEnableEvents() override { return enableEvents; }
    void SetEnabled(bool enable) override;

    bool IsPaused() const { return paused; }
    void SetPaused(bool pause) override;

    bool IsReversed() const override { return reversed; }
    Core::IEventProvider& GetReverseEvents() override { return reverseEvents; }
    void SetReversed(bool reverse) override;

    /// Turns around.
    void Reverse() { SetReversed(!reversed); }

    double GetDuration() const { return durationMs; }

    /// Of one run through the range, in milliseconds. 0 or less, or NaN: the first tick stops at
    /// the end. Keeps the place.
    void SetDuration(double milliseconds);

    EAnimationEnd GetEnd() const { return end; }
    void SetEnd(EAnimationEnd newEnd) { end = newEnd; }

    int GetRefreshTime() const override { return refreshTime; }
    void SetRefreshTime(int milliseconds) override;

    /// Whether the timer is on.
    bool IsRunning() const { return running; }

private:
    double GetCoveredNow() const;
    void Start();
    void Stop();
    void Store(double newValue);
    void OnTimer();
    void OnTargetChanged();
    void OnTargetInfoChanged();

    using CAnimation = CCaptureParamAnimation;
    ICaptureParam* target = nullptr;
    CParamInfo info;
    double value = 0.0;
    bool updating = false; // the target is being written
    bool enabled = false;
    bool paused = false;
    bool reversed = false;
    bool running = false;
    Core::CEventProvider enableEvents;
    Core::CEventProvider reverseEvents;
    System::ITimerProvider* timer;
    System::CStopWatch stopWatch;
    double covered = 0.0; // of the way, in runs, when the stopwatch was started
    double durationMs = 5000.0;
    EAnimationEnd end = kAnimationWrap;
    int refreshTime = kDefaultLinkRefreshTime;
    Core::TCommand<CAnimation> timerCommand{this, &CAnimation::OnTimer};
    Core::TCommand<CAnimation> targetChanged{this, &CAnimation::OnTargetChanged};
    Core::TCommand<CAnimation> targetInfoChanged{this, &CAnimation::OnTargetInfoChanged};
};

} // namespace Vorin::DataModel::Objects
