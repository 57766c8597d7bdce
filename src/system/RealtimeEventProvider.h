#pragma once

#include "system/LockedEventProvider.h"
#include "system/PollingLock.h"

#include <atomic>

namespace Vorin::System {

/// An event provider that the audio thread may notify: it never waits. [any]
///
/// The commands run under the provider's lock, on the thread that notifies, and must themselves be
/// fit for the audio thread: set a flag, store a number. When another thread is inside the provider
/// just now, the notification is kept; the next one delivers it, or `NotifyIfKept`, which whoever
/// owns the provider calls from time to time. Several kept ones are delivered as one.
///
/// Once `Disconnect` returns, the command is not running and will not run, unless it was
/// disconnected by itself. Connecting and disconnecting may wait, and are not for the audio thread.
class CRealtimeEventProvider : public TLockedEventProvider<CPollingLock> {
public:
    /// [any, audio]
    void Notify() override;
    /// [any, audio]
    void NotifyIfKept();

private:
    std::atomic<bool> isKept{false};
};

} // namespace Vorin::System
