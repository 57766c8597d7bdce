#include "system/RunLoopCore.h"

#include <algorithm>
#include <utility>

namespace Vorin::System {

using Core::CAutoLock;
using Core::ICommand;

namespace {

// A command that always invokes itself again must not keep a pump from ending.
constexpr int maxPassesPerPump = 64;

class CDepth {
public:
    explicit CDepth(std::atomic<int>& counted) : depth(counted) { ++depth; }
    ~CDepth() { --depth; }
    CDepth(const CDepth&) = delete;
    CDepth& operator=(const CDepth&) = delete;

private:
    std::atomic<int>& depth;
};

} // namespace

bool CRunLoopCore::InvokeAsync(const void* invoker, ICommand* command, Core::EOwnership ownership) {
    return command && Post(invoker, std::make_unique<CMessage>(command, ownership, nullptr));
}

bool CRunLoopCore::InvokeSync(const void* invoker, ICommand* command, Core::EOwnership ownership) {
    if (!command) {
        return false;
    }
    CMessageReceipt receipt;
    if (!Post(invoker, std::make_unique<CMessage>(command, ownership, &receipt))) {
        return false;
    }
    if (IsCurrent()) {
        const CDepth draining(depth);
        while (!receipt.done.IsSet() && RunInvocation()) {
        }
    }
    // On the loop's own thread it is done by now, unless another thread has taken the loop over.
    return receipt.done.Wait(-1) && receipt.executed;
}

// A refused message dies with the argument, after the lock.
bool CRunLoopCore::Post(const void* invoker, std::unique_ptr<CMessage> message) {
    const CAutoLock held(lock);
    if (!clock) {
        return false;
    }
    queue.push_back({invoker, std::move(message)});
    return true;
}

void CRunLoopCore::CancelInvocations(const void* invoker) {
    std::vector<CInvocation> cancelled; // destroyed after the lock
    const CAutoLock held(lock);
    for (CInvocation& invocation : queue) {
        if (invocation.invoker == invoker) {
            cancelled.push_back(std::move(invocation));
        }
    }
    std::erase_if(queue, [](const CInvocation& invocation) { return !invocation.message; });
}

void CRunLoopCore::AddTimer(const void* provider, int periodMilliseconds, ICommand* command) {
    const std::int64_t period = std::max(periodMilliseconds, 1) * nanosecondsPerMillisecond;
    const CAutoLock held(lock);
    if (!clock || !command) {
        return;
    }
    const std::int64_t nextTime = clock->GetNanoseconds() + period;
    for (const CTimerPtr& timer : timers) {
        if (timer->provider == provider && timer->command == command) {
            timer->period = period;
            timer->nextTime = nextTime;
            return;
        }
    }
    // A pump does not run what was added while it lasts.
    timers.push_back(
        std::make_shared<CTimer>(CTimer{provider, command, period, nextTime, pumps, false}));
}

void CRunLoopCore::RemoveTimer(const void* provider, const ICommand* command) {
    const CAutoLock held(lock);
    std::erase_if(timers, [provider, command](const CTimerPtr& timer) {
        return timer->provider == provider && timer->command == command;
    });
}

void CRunLoopCore::RemoveTimers(const void* provider) {
    const CAutoLock held(lock);
    std::erase_if(timers,
                  [provider](const CTimerPtr& timer) { return timer->provider == provider; });
}

bool CRunLoopCore::Pump() {
    if (depth > 0) {
        return false;
    }
    PumpNested();
    return true;
}

void CRunLoopCore::PumpNested() {
    const CDepth pumping(depth);
    AttachToCurrentThread();
    std::int64_t pump = 0;
    {
        const CAutoLock held(lock);
        pump = ++pumps;
    }
    bool ranAny = true;
    for (int pass = 0; ranAny && pass < maxPassesPerPump; ++pass) {
        ranAny = RunInvocations();
        ranAny = RunDueTimers(pump) || ranAny;
    }
}

// What is in the queue now; what is added meanwhile is for the next pass.
bool CRunLoopCore::RunInvocations() {
    std::size_t count = 0;
    {
        const CAutoLock held(lock);
        count = queue.size();
    }
    bool ranAny = false;
    while (count-- > 0 && RunInvocation()) {
        ranAny = true;
    }
    return ranAny;
}

bool CRunLoopCore::RunInvocation() {
    std::unique_ptr<CMessage> message;
    {
        const CAutoLock held(lock);
        if (queue.empty()) {
            return false;
        }
        message = std::move(queue.front().message);
        queue.pop_front();
    }
    message->Execute();
    return true;
}

bool CRunLoopCore::RunDueTimers(std::int64_t pump) {
    bool ranAny = false;
    while (const CTimerPtr timer = TakeDueTimer(pump)) {
        timer->command->Execute(); // may remove the timer, and delete the command
        const CAutoLock held(lock);
        timer->running = false;
        ranAny = true;
    }
    return ranAny;
}

// The one that has been due for longest. Its times stay on their grid, so that a loop that is
// pumped now and then keeps the rate; times that have passed altogether are left out.
CRunLoopCore::CTimerPtr CRunLoopCore::TakeDueTimer(std::int64_t pump) {
    const CAutoLock held(lock);
    CTimerPtr first;
    if (!clock) {
        return first;
    }
    const std::int64_t now = clock->GetNanoseconds();
    for (const CTimerPtr& timer : timers) {
        const bool due = timer->nextTime <= now && timer->lastPump < pump && !timer->running;
        if (due && (!first || timer->nextTime < first->nextTime)) {
            first = timer;
        }
    }
    if (first) {
        first->nextTime += ((now - first->nextTime) / first->period + 1) * first->period;
        first->lastPump = pump;
        first->running = true;
    }
    return first;
}

void CRunLoopCore::Close() {
    std::deque<CInvocation> dropped; // destroyed after the lock
    const CAutoLock held(lock);
    clock = nullptr;
    dropped.swap(queue);
    timers.clear();
}

} // namespace Vorin::System
