#include "system/RealtimeEventProvider.h"

namespace Vorin::System {

void CRealtimeEventProvider::Notify() {
    isKept.store(true, std::memory_order_release);
    NotifyIfKept();
}

void CRealtimeEventProvider::NotifyIfKept() {
    // Twice: a notification that finds the lock taken by this walk is this walk's to deliver. Not
    // for ever: one that comes from another thread after that stays kept.
    for (int walk = 0; walk < 2; ++walk) {
        if (!isKept.load(std::memory_order_acquire) || !lock.TryLock()) {
            return;
        }
        if (isKept.exchange(false, std::memory_order_acq_rel)) {
            CEventProvider::Notify();
        }
        lock.Unlock();
    }
}

} // namespace Vorin::System
