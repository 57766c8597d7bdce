#include "system/RunLoopCore.h"

#include <algorithm>
#include <tuple>
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
    CTimerPtr& timer = timers[{provider, command}];
    if (timer) {
        timer->period = period;
        timer->nextTime = nextTime;
    } else {
        // A pump does not run what was added while it lasts.
        timer = std::make_shared<CTimer>(
            CTimer{command, ++timersAdded, period, nextTime, pumps, false, false});
    }
}

void CRunLoopCore::RemoveTimer(const void* provider, const ICommand* command) {
    const CAutoLock held(lock);
    const auto found = timers.find({provider, command});
    if (found != timers.end()) {
        found->second->removed = true;
        timers.erase(found);
    }
}

void CRunLoopCore::RemoveTimers(const void* provider) {
    const CAutoLock held(lock);
    auto next = timers.lower_bound({provider, nullptr});
    while (next != timers.end() && next->first.first == provider) {
        next->second->removed = true;
        next = timers.erase(next);
    }
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
    for (const CTimerPtr& timer : GetDueTimers(pump)) {
        if (TakeTimer(*timer, pump)) {
            timer->command->Execute(); // may remove the timer, and delete the command
            const CAutoLock held(lock);
            timer->running = false;
            ranAny = true;
        }
    }
    return ranAny;
}

// The one that has been due for longest comes first.
std::vector<CRunLoopCore::CTimerPtr> CRunLoopCore::GetDueTimers(std::int64_t pump) {
    const CAutoLock held(lock);
    std::vector<CTimerPtr> due;
    if (!clock) {
        return due;
    }
    const std::int64_t now = clock->GetNanoseconds();
    for (const auto& [key, timer] : timers) {
        if (timer->nextTime <= now && timer->lastPump < pump && !timer->running) {
            due.push_back(timer);
        }
    }
    std::sort(due.begin(), due.end(), [](const CTimerPtr& a, const CTimerPtr& b) {
        return std::tie(a->nextTime, a->order) < std::tie(b->nextTime, b->order);
    });
    return due;
}

// False when it is not due any more: those before it have removed it, set it anew or run it. Its
// times stay on their grid, so that a loop that is pumped now and then keeps the rate; times that
// have passed altogether are left out.
bool CRunLoopCore::TakeTimer(CTimer& timer, std::int64_t pump) {
    const CAutoLock held(lock);
    if (!clock || timer.removed || timer.running || timer.lastPump >= pump) {
        return false;
    }
    const std::int64_t late = clock->GetNanoseconds() - timer.nextTime;
    if (late < 0) {
        return false;
    }
    timer.nextTime += (late / timer.period + 1) * timer.period;
    timer.lastPump = pump;
    timer.running = true;
    return true;
}

void CRunLoopCore::Close() {
    std::deque<CInvocation> dropped; // destroyed after the lock
    const CAutoLock held(lock);
    clock = nullptr;
    dropped.swap(queue);
    timers.clear();
}

} // namespace Vorin::System
