#pragma once

#include "core/Command.h"
#include "core/Disconnect.h"
#include "datamodel/objects/CaptureProxy.h"
#include "datamodel/objects/CaptureState.h"
#include "datamodel/objects/ParamRange.h"
#include "datamodel/objects/ValueHolder.h"
#include "system/CriticalSection.h"
#include "system/TimerProvider.h"

#include <atomic>
#include <type_traits>

namespace Vorin::DataModel::Objects {

/// The side of a proxy that its own thread sees, common to all of them: a copy of the target's
/// value and gesture, brought up to date at each tick of a timer.
///
/// Everything here belongs to the proxy's thread, on which it is made and on which the timer
/// provider runs its commands. The provider is not owned and outlives the proxy. `GetValue` takes
/// no lock; it is valid until the next update or `SetValue`.
template <class T, class I>
class TCaptureProxyFace : public TCaptureState<>,
                          public virtual TIConstCaptureObjectTimerProxy<TIConstCaptureObject<T, I>>,
                          public virtual Core::IDisconnect {
public:
    static constexpr int kDefaultRefreshTime = 50; // milliseconds

    ~TCaptureProxyFace() override { timer->RemoveTimer(timerCommand, true); }

    T GetValue() const override {
        if constexpr (std::is_reference_v<T>) {
            return cache.Get(this->GetInfo());
        } else {
            return cache.Get();
        }
    }

    /// While paused the timer does nothing: value and gesture stand still, and what is new is shown
    /// once the pause is over. `UpdateValue` and writing work all the same.
    void SetPaused(bool pause) { refreshEnabled = !pause; }
    bool IsPaused() const { return !refreshEnabled; }

    /// When it returns no update is in progress, unless it was called by a listener of one. [any]
    void SetUpdateEnabled(bool enable) override {
        const Core::CAutoLock held(updateLock);
        updateEnabled = enable;
    }

    /// Listeners run under the lock that SetUpdateEnabled takes.
    void UpdateValue() override {
        const Core::CAutoLock held(updateLock);
        if (updateEnabled && TakeValue()) {
            NotifyValueChanged();
        }
    }

    /// Starts a new period. A listener may call it.
    void SetRefreshTime(int milliseconds) override {
        timer->RemoveTimer(timerCommand, true);
        timerCommand = new CTimerCommand(this, &TCaptureProxyFace::OnTimer);
        timer->AddTimer(milliseconds, timerCommand);
        refreshTime = milliseconds;
    }
    int GetRefreshTime() const override { return refreshTime; }

    /// A gesture encloses the changes that it brought: begin, then value; value, then end. One that
    /// began and ended between two ticks is not shown.
    void OnTimer() override {
        if (!refreshEnabled) {
            return;
        }
        const bool held = sourceCaptured;
        if (this->ExchangeCaptured(held) == held) {
            UpdateValue();
            return;
        }
        if (held) {
            NotifyCaptured(true);
        }
        UpdateValue();
        if (!IsCaptured()) {
            NotifyCaptured(false);
        }
    }

protected:
    /// `timerProvider` runs its commands on this thread.
    TCaptureProxyFace(System::ITimerProvider* timerProvider, int refreshMilliseconds)
        : timer(timerProvider), timerCommand(new CTimerCommand(this, &TCaptureProxyFace::OnTimer)),
          refreshTime(refreshMilliseconds) {
        timer->AddTimer(refreshTime, timerCommand);
    }

    /// Brings the cache up to date; false when there was nothing new.
    virtual bool TakeValue() = 0;

    TValueHolder<T>& Cache() { return cache; }

    /// Stores a value that is being written, clamped to the info; says whether it is a change.
    bool StoreOwn(T value) {
        if constexpr (std::is_same_v<T, double>) {
            value = ClampToRange(value, this->GetInfo());
        }
        const bool differs = cache.Differs(value);
        if (differs) {
            cache.Set(value);
        }
        return differs;
    }

    // For the target's gesture events, on whatever thread they run.
    void OnSourceCaptured() { sourceCaptured = true; }
    void OnSourceReleased() { sourceCaptured = false; }

    /// For a target whose listeners may run at any time: called once when they are connected.
    void StartCaptured(const Core::IConstCapture& target) {
        sourceCaptured = target.IsCaptured();
        // A gesture that ended meanwhile, before we listened, must not be held for ever.
        if (!target.IsCaptured()) {
            sourceCaptured = false;
        }
        this->ExchangeCaptured(sourceCaptured);
    }

private:
    using CTimerCommand = Core::TCommand<TCaptureProxyFace>;

    std::atomic<bool> sourceCaptured{false}; // what the target said last
    TValueHolder<T> cache;
    System::ITimerProvider* timer;
    Core::ICommand* timerCommand; // deleted by the provider's RemoveTimer
    int refreshTime;
    System::CCriticalSection updateLock;
    bool updateEnabled = true; // under updateLock
    bool refreshEnabled = true;
};

} // namespace Vorin::DataModel::Objects
