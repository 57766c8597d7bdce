#pragma once

#include "core/RefreshTime.h"
#include "datamodel/links/BaseCaptureObjectLink.h"
#include "system/StopWatch.h"
#include "system/TimerProvider.h"

namespace Vorin::DataModel {

/// The period of what runs over time, as long as it was given none.
inline constexpr int kDefaultLinkRefreshTime = 50; // milliseconds

/// The target goes to the source's value over a time: each change of the source starts a run, which
/// a timer carries on.
///
/// The target is held during a run, by the run or by whoever holds the source. Exactly one of the
/// two flags stands for that, so the target sees one gesture however the two overlap; a source that
/// is released early leaves the gesture to the run. A change during a run starts it anew from where
/// the target is; if the target has not moved since the last start, the time goes on, so that a
/// source that changes with each tick cannot stop it. What the run itself brings about at the
/// source starts nothing. A pause ends the run.
template <class S, class T>
class TCaptureObjectTimeLink : public TBaseCaptureObjectLink<S, T>,
                               public virtual Core::IRefreshTime {
public:
    /// Neither is null or owned; both outlive the link.
    explicit TCaptureObjectTimeLink(System::ITimerProvider* timerProvider,
                                    const System::IClock& clock = System::GetMonotonicClock())
        : timer(timerProvider), stopWatch(clock) {}

    /// Derived classes switch off in their own destructors too, if they override what that calls.
    ~TCaptureObjectTimeLink() override { this->Switch(false); }

    void SetPaused(bool pause) override {
        TBaseCaptureObjectLink<S, T>::SetPaused(pause);
        if (this->IsPaused()) {
            EndRun();
        }
    }

    /// Whether the target is on its way.
    bool IsRunning() const { return running; }

    double GetDuration() const { return durationMs; }

    /// In milliseconds, from the next tick on. 0 or less, or NaN: a run ends with its first tick.
    void SetDuration(double milliseconds) { durationMs = milliseconds; }

    int GetRefreshTime() const override { return refreshTime; }
    void SetRefreshTime(int milliseconds) override {
        if (milliseconds == refreshTime) {
            return;
        }
        refreshTime = milliseconds;
        if (running) {
            timer->RemoveTimer(&timerCommand, false);
            timer->AddTimer(refreshTime, &timerCommand);
        }
    }

protected:
    /// Takes both ends' values; false when there is no way to go.
    virtual bool Prepare() = 0;

    /// Moves the target to `t` of the way, from 0 to 1. True when it has arrived.
    virtual bool Advance(double t) = 0;

    void OnSourceChanged() override {
        if (!this->target || this->updating) {
            return;
        }
        if (!Prepare()) {
            EndRun();
            return;
        }
        if (!running || retrigger) {
            stopWatch.Start();
            retrigger = false;
        }
        if (!running) {
            StartRun();
        }
    }

    // A source that is held because the run holds the target, by a link back, takes nothing over:
    // each would wait for the other.
    void OnCapture() override {
        if (resting) {
            TBaseCaptureObjectLink<S, T>::OnCapture();
        } else if (this->IsActive() && !CCaptureForward::LeadsFrom(*this->target, *this->source)) {
            this->sourceCaptureForwarded.Open(*this->source, *this->target);
            resting = true;
        }
    }

    void OnRelease() override {
        if (running && this->sourceCaptureForwarded.Close()) {
            resting = false;
        } else {
            TBaseCaptureObjectLink<S, T>::OnRelease();
        }
    }

    void OnDisconnectSource() override {
        EndRun();
        TBaseCaptureObjectLink<S, T>::OnDisconnectSource();
    }

private:
    void StartRun() {
        running = true;
        timer->AddTimer(refreshTime, &timerCommand);
        if (!this->sourceCaptureForwarded.IsOpen()) {
            resting = false;
            this->target->Capture();
        }
    }

    void EndRun() {
        if (!running) {
            return;
        }
        running = false;
        timer->RemoveTimer(&timerCommand, false);
        stopWatch.Stop();
        if (!resting) {
            resting = true;
            this->target->Release();
        }
    }

    // Written so that NaN is an end too.
    double GetProgress() const {
        const double t = durationMs > 0.0 ? stopWatch.GetMilliseconds() / durationMs : 1.0;
        return t < 1.0 ? t : 1.0;
    }

    void OnTimer() {
        const double t = GetProgress();
        retrigger = retrigger || t > 0.0;
        // A write that switched the link off has ended the run.
        if (Advance(t) && running) {
            EndRun();
        }
    }

    using CLink = TCaptureObjectTimeLink;
    System::ITimerProvider* timer;
    System::CStopWatch stopWatch;
    bool running = false;   // the timer is on
    bool resting = true;    // the run holds no gesture of its own at the target
    bool retrigger = false; // the target has moved since the stopwatch was started
    double durationMs = 1000.0;
    int refreshTime = kDefaultLinkRefreshTime;
    Core::TCommand<CLink> timerCommand{this, &CLink::OnTimer};
};

} // namespace Vorin::DataModel
