#pragma once

#include "core/EventProvider.h"
#include "system/CriticalSection.h"

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
class CMTEventProvider : public Core::CEventProvider {
public:
    void Connect(Core::ICommand* command) override;
    void Connect(Core::ICommand& command) override;
    void Disconnect(Core::ICommand*& command, bool destroy) override;
    void Disconnect(Core::ICommand& command) override;
    void Notify() override;

private:
    CCriticalSection lock;
};

} // namespace Vorin::System
