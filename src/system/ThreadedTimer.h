#pragma once

#include "core/Enable.h"
#include "system/Clock.h"
#include "system/CriticalSection.h"
#include "system/MTEventProvider.h"
#include "system/MessageLoop.h"
#include "system/TimerWithThreadSynchronization.h"

namespace Vorin::System {

/// Timers that tick on a thread of their own and run their commands on the thread of an invoker.
/// [any]
///
/// The thread exists only while this is enabled; timers added meanwhile stay registered. For
/// removal see `CTimerWithThreadSynchronization`. The invoker is not owned. A lock of the object's
/// own is held while the thread is started and stopped, not while listeners are notified.
class CThreadedTimer : public virtual ITimerProvider, public virtual Core::IEnable {
public:
    CThreadedTimer(IThreadInvoker* invoker, bool enable, IClock& clock = GetMonotonicClock());
    CThreadedTimer(const CThreadedTimer&) = delete;
    CThreadedTimer& operator=(const CThreadedTimer&) = delete;

    /// Stops the thread, then removes the timers. Calls still with the invoker do nothing.
    ~CThreadedTimer() override;

    void AddTimer(int periodMilliseconds, Core::ICommand* command) override;
    void RemoveTimer(Core::ICommand* command, bool destroy) override;

    bool IsEnabled() const override;
    Core::IEventProvider& GetEnableEvents() override { return enableEvents; }

    /// When it returns from switching off, no thread of this object runs.
    void SetEnabled(bool enable) override;

private:
    bool StoreEnabled(bool enable);

    mutable CCriticalSection lock;
    bool enabled; // under the lock
    CMTEventProvider enableEvents;
    CMessageLoop loop;
    CTimerWithThreadSynchronization timers; // dies before the loop
};

} // namespace Vorin::System
