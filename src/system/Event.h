#pragma once

#include "system/Clock.h"
#include "system/ConditionFlag.h"

namespace Vorin::System {

/// A gate that threads wait at: once set it lets everybody pass until it is reset. [any]
///
/// A thread that waited may destroy the event as soon as its `Wait` came back because of `Set`.
class CEvent {
public:
    explicit CEvent(bool initial) : signalled(initial) {}

    void Set() { signalled.Raise(); }
    void Reset() { signalled.Clear(); }

    /// Waits until the event is set; at most `timeoutMilliseconds`, without limit when negative.
    /// False only when the wait failed: true also when the time ran out. Who has to know asks
    /// `IsSet`, or a condition of their own.
    bool Wait(int timeoutMilliseconds) {
        return signalled.Wait(timeoutMilliseconds * nanosecondsPerMillisecond, false);
    }

    bool IsSet() const { return signalled.IsRaised(); }

private:
    CConditionFlag signalled;
};

} // namespace Vorin::System
