#pragma once

#include "core/Command.h"
#include "core/EventProvider.h"

namespace Vorin {

/// Counts the events of a provider for as long as it lives; the provider has to live longer.
class CEventCounter {
public:
    explicit CEventCounter(Core::IEventProvider& source) : provider(source) {
        provider.Connect(command);
    }
    ~CEventCounter() { provider.Disconnect(command); }

    CEventCounter(const CEventCounter&) = delete;
    CEventCounter& operator=(const CEventCounter&) = delete;

    /// The events since the last call.
    int Take() {
        const int taken = count;
        count = 0;
        return taken;
    }

private:
    void OnEvent() { ++count; }

    Core::IEventProvider& provider;
    Core::TCommand<CEventCounter> command{this, &CEventCounter::OnEvent};
    int count = 0;
};

} // namespace Vorin
