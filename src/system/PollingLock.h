#pragma once

#include "core/Lock.h"

#include <atomic>

#include <pthread.h>

namespace Vorin::System {

/// A recursive lock between the audio thread, which only ever tries, and others, which may wait.
/// [any]
///
/// Taking and giving back are a few atomic operations; whoever waits looks again every so often by
/// itself. So the audio thread never makes a system call for it, not even to wake a waiter, as it
/// would with CCriticalSection. The price is paid by those who wait: they are not served in order.
class CPollingLock : public Core::ILock {
public:
    CPollingLock() = default;
    CPollingLock(const CPollingLock&) = delete;
    CPollingLock& operator=(const CPollingLock&) = delete;

    /// Waits until the lock is free. Not for the audio thread.
    void Lock() override;
    void Unlock() override;

    /// True when the lock was free, or held by this thread already; then Unlock is due. Never
    /// waits. [any]
    [[nodiscard]] bool TryLock();

private:
    static constexpr pthread_t kNobody = 0; // no thread of this platform has it

    std::atomic<pthread_t> owner{kNobody};
    int depth = 0; // the owner's
};

} // namespace Vorin::System
