#pragma once

#include "system/Clock.h"
#include "system/CriticalSection.h"
#include "system/Message.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <pthread.h>
#include <utility>
#include <vector>

namespace Vorin::System {

/// What a run loop shares with its invokers and timer providers, so that each of them may die
/// first. Not for use on its own.
///
/// Invocations: [any]. Pumping and timers: the loop's thread. One lock guards the queue and the
/// timers; nothing is called under it.
class CRunLoopCore {
public:
    explicit CRunLoopCore(IClock& loopClock) : clock(&loopClock) { AttachToCurrentThread(); }
    CRunLoopCore(const CRunLoopCore&) = delete;
    CRunLoopCore& operator=(const CRunLoopCore&) = delete;

    void AttachToCurrentThread() { thread = pthread_self(); }
    bool IsCurrent() const { return pthread_equal(thread, pthread_self()) != 0; }

    bool InvokeSync(const void* invoker, Core::ICommand* command, Core::EOwnership ownership);
    bool InvokeAsync(const void* invoker, Core::ICommand* command, Core::EOwnership ownership);

    /// Destroys what the invoker has in the queue.
    void CancelInvocations(const void* invoker);

    void AddTimer(const void* provider, int periodMilliseconds, Core::ICommand* command);
    void RemoveTimer(const void* provider, const Core::ICommand* command);
    void RemoveTimers(const void* provider);

    bool Pump();
    void PumpNested();

    /// The loop is gone: destroys the queue and the timers, and takes no more of either.
    void Close();

private:
    struct CInvocation {
        const void* invoker;
        std::unique_ptr<CMessage> message;
    };
    struct CTimer {
        Core::ICommand* command;
        std::int64_t order;    // counts the timers ever added
        std::int64_t period;   // nanoseconds
        std::int64_t nextTime; // nanoseconds
        std::int64_t lastPump; // the newest pump that ran it
        bool running;          // the command is on the stack
        bool removed;
    };
    using CTimerPtr = std::shared_ptr<CTimer>; // an execution in progress keeps its timer
    using CTimerKey = std::pair<const void*, const Core::ICommand*>; // provider and command

    bool Post(const void* invoker, std::unique_ptr<CMessage> message);
    bool RunInvocation();
    bool RunInvocations();
    bool RunDueTimers(std::int64_t pump);
    std::vector<CTimerPtr> GetDueTimers(std::int64_t pump);
    bool TakeTimer(CTimer& timer, std::int64_t pump);

    std::atomic<pthread_t> thread;
    std::atomic<int> depth{0}; // pumps and drains on the stack
    CCriticalSection lock;
    IClock* clock; // under the lock, as is the rest; null once closed
    std::deque<CInvocation> queue;
    std::map<CTimerKey, CTimerPtr> timers;
    std::int64_t timersAdded = 0;
    std::int64_t pumps = 0;
};

} // namespace Vorin::System
