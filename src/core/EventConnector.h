#pragma once

#include "core/Disconnect.h"
#include "core/EventProvider.h"

namespace Vorin::Core {

/// Keeps a command connected for as long as this object lives. Provider and command outlive it.
class CCallbackHelper {
public:
    CCallbackHelper(IEventProvider& source, ICommand& listener)
        : provider(&source), command(&listener) {
        provider->Connect(*command);
    }
    ~CCallbackHelper() { provider->Disconnect(*command); }

    CCallbackHelper(const CCallbackHelper&) = delete;
    CCallbackHelper& operator=(const CCallbackHelper&) = delete;

private:
    IEventProvider* provider;
    ICommand* command;
};

/// Connects a command and gives away the means to disconnect it, with nothing known of either.
///
/// The owner calls `Disconnect` while provider and command live. The destructor does not: by then
/// either may be gone.
class CEventConnector : public virtual IDisconnect {
public:
    CEventConnector(IEventProvider& source, ICommand& listener)
        : provider(&source), command(&listener) {
        provider->Connect(*command);
    }

    CEventConnector(const CEventConnector&) = delete;
    CEventConnector& operator=(const CEventConnector&) = delete;

    void Disconnect() override { provider->Disconnect(*command); }

private:
    IEventProvider* provider;
    ICommand* command;
};

} // namespace Vorin::Core
