#pragma once

#include "system/CriticalSection.h"
#include "system/LockedEventProvider.h"

namespace Vorin::System {

/// An event provider that any thread may connect to, disconnect from and notify. [any]
///
/// Each of the five operations holds the provider's lock, so the commands run under it, on the
/// thread that notifies. What follows from that:
/// - Once `Disconnect` returns the command is not running and will not run, unless it was
///   disconnected by itself.
/// - A listener must not wait for a thread that may be notifying, or connecting, here.
/// - A listener may connect, disconnect and notify on the same provider: the lock is recursive.
///
/// `SetEnabled` is not locked: it belongs to whoever owns the provider, before it is shared.
class CMTEventProvider : public TLockedEventProvider<CCriticalSection> {
public:
    void Notify() override;
};

} // namespace Vorin::System
