#include "system/PollingLock.h"

#include <ctime>

namespace Vorin::System {

namespace {

constexpr timespec kPollInterval{0, 50'000};

} // namespace

bool CPollingLock::TryLock() {
    const pthread_t self = pthread_self();
    // No other thread ever stores our own identifier, so a stale value does no harm.
    if (owner.load(std::memory_order_relaxed) != self) {
        pthread_t nobody = kNobody;
        if (!owner.compare_exchange_strong(nobody, self, std::memory_order_acquire,
                                           std::memory_order_relaxed)) {
            return false;
        }
    }
    ++depth;
    return true;
}

void CPollingLock::Lock() {
    while (!TryLock()) {
        nanosleep(&kPollInterval, nullptr);
    }
}

void CPollingLock::Unlock() {
    if (--depth == 0) {
        owner.store(kNobody, std::memory_order_release);
    }
}

} // namespace Vorin::System
