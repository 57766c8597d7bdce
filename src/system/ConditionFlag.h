#pragma once

#include <cstdint>
#include <pthread.h>

namespace Vorin::System {

/// A flag that threads wait for: what both kinds of event are made of. [any]
///
/// Deadlines are taken from the monotonic clock, so setting the wall clock neither shortens nor
/// stretches a wait. A wait is a cancellation point, and lets go of the mutex when cancelled there.
class CConditionFlag {
public:
    explicit CConditionFlag(bool initial);
    CConditionFlag(const CConditionFlag&) = delete;
    CConditionFlag& operator=(const CConditionFlag&) = delete;
    ~CConditionFlag();

    /// Sets the flag and wakes every waiter. When it returns to the setter, or a waiter goes on,
    /// nothing of this object is in use any more: the waiter may destroy it.
    void Raise();
    void Clear();
    bool IsRaised() const;

    /// Waits until the flag is set, at most `nanoseconds`, without limit when negative. Clears the
    /// flag when it saw it set and `consume` is set. False only when the wait failed: true also
    /// when the time ran out.
    bool Wait(std::int64_t nanoseconds, bool consume);

private:
    bool WaitForFlag(std::int64_t nanoseconds);

    mutable pthread_mutex_t mutex;
    pthread_cond_t condition;
    bool raised; // under the mutex
};

} // namespace Vorin::System
