#pragma once

#include "core/Lock.h"

#include <pthread.h>

namespace Vorin::System {

/// A recursive lock that hands its holder the priority of whoever waits for it. [any]
///
/// Being recursive, it may be taken again by what is notified under it. The audio thread uses
/// TryLock alone.
class CCriticalSection : public Core::ILock {
public:
    CCriticalSection();
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;

    void Lock() override;
    void Unlock() override;
    ~CCriticalSection() override;

    /// True when the lock was free, or held by this thread already; then Unlock is due. Never
    /// waits.
    [[nodiscard]] bool TryLock();

private:
    pthread_mutex_t mutex;
};

} // namespace Vorin::System
