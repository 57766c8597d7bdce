#pragma once

#include "system/Clock.h"
#include "system/ConditionFlag.h"

namespace Vorin::System {

/// What a loop sleeps on: a signal sent while the loop is busy is kept for its next `Wait`. [any]
///
/// Signals do not add up: any number of them before a `Wait` end that one wait.
class CWaitableEvent {
public:
    explicit CWaitableEvent(bool initial = false) : signalled(initial) {}

    void Signal() { signalled.Raise(); }

    /// Waits for a signal and consumes it; at most `timeoutMilliseconds`, without limit when
    /// negative. False only when the wait failed: true also when the time ran out.
    bool Wait(int timeoutMilliseconds) {
        return WaitNanoseconds(timeoutMilliseconds * nanosecondsPerMillisecond);
    }

    /// The same, with a finer limit.
    bool WaitNanoseconds(std::int64_t timeout) { return signalled.Wait(timeout, true); }

private:
    CConditionFlag signalled;
};

} // namespace Vorin::System
