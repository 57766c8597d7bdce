#pragma once

#include "core/EventProvider.h"
#include "core/Lock.h"

namespace Vorin::System {

/// An event provider whose listeners come and go under a lock `L`, which is recursive. How it is
/// notified under it is up to the derived class, which may so be notified by any thread.
///
/// Once `Disconnect` returns, the command is not running and will not run, unless it was
/// disconnected by itself. A listener may connect, disconnect and notify on the same provider.
template <class L>
class TLockedEventProvider : public Core::CEventProvider {
public:
    void Connect(Core::ICommand* command) override {
        const Core::CAutoLock held(lock);
        CEventProvider::Connect(command);
    }
    void Connect(Core::ICommand& command) override {
        const Core::CAutoLock held(lock);
        CEventProvider::Connect(command);
    }
    void Disconnect(Core::ICommand*& command, bool destroy) override {
        const Core::CAutoLock held(lock);
        CEventProvider::Disconnect(command, destroy);
    }
    void Disconnect(Core::ICommand& command) override {
        const Core::CAutoLock held(lock);
        CEventProvider::Disconnect(command);
    }

protected:
    L lock;
};

} // namespace Vorin::System
