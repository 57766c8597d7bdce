#pragma once

#include "core/RefreshTime.h"
#include "system/CriticalSection.h"
#include "system/Message.h"
#include "system/ThreadInvoker.h"
#include "system/TimerProvider.h"

#include <atomic>
#include <deque>
#include <memory>

namespace Vorin::System {

/// Holds asynchronous invocations back until a timer ticks, then runs them where the timer runs.
///
/// Both forms of invocation: [any]. `SetActive`, `SetRefreshTime` and the destructor belong to the
/// owner's thread. Starts inactive: invocations wait until it is active and a tick has come.
/// Neither the timer provider nor the invoker is owned.
///
/// Lock order: the drain lock before the queue's lock. Commands run under the drain lock alone, so
/// they may invoke further ones, which run in the same tick: a command that always invokes itself
/// again keeps the tick from ending.
class CThreadInvokerSerializer : public virtual IThreadInvoker,
                                 public virtual Core::ICommand,
                                 public virtual Core::IRefreshTime {
public:
    CThreadInvokerSerializer(ITimerProvider* timerProvider, IThreadInvoker* threadInvoker,
                             int refreshMilliseconds);
    CThreadInvokerSerializer(const CThreadInvokerSerializer&) = delete;
    CThreadInvokerSerializer& operator=(const CThreadInvokerSerializer&) = delete;
    ~CThreadInvokerSerializer() override;

    /// Not held back: left to the invoker. [any]
    bool InvokeSync(Core::ICommand* command, Core::EOwnership ownership) override;
    bool InvokeAsync(Core::ICommand* command, Core::EOwnership ownership) override;

    /// The tick: runs what is queued, as long as this is active. For the timer.
    void Execute() override;

    void SetRefreshTime(int milliseconds) override;
    int GetRefreshTime() const override { return refreshTime; }

    /// Switching off keeps what is queued. A command may do it: the rest of the queue waits.
    void SetActive(bool activate);
    bool IsActive() const { return active; }

    /// Deletes what is queued, under both locks: waits for the command that is running. [any]
    void Clear();

private:
    std::unique_ptr<CMessage> TakeMessage();

    CCriticalSection queueLock;
    std::deque<std::unique_ptr<CMessage>> queue; // under queueLock
    ITimerProvider* timer;
    IThreadInvoker* invoker;
    CCriticalSection drainLock; // held while draining
    int refreshTime;            // milliseconds
    std::atomic<bool> active{false};
};

} // namespace Vorin::System
