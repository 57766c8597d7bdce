#pragma once

#include "core/Command.h"
#include "core/EventProvider.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Vorin::DataModel::Controls {

/// Writes down the events of some providers in the order in which they come. The providers have to
/// live longer.
class CEventLog {
public:
    CEventLog() = default;
    CEventLog(const CEventLog&) = delete;
    CEventLog& operator=(const CEventLog&) = delete;

    void Listen(Core::IEventProvider& provider, const char* name) {
        listeners.push_back(std::make_unique<CListener>(provider, name, text));
    }

    /// The names since the last call, a blank between two.
    std::string Take() { return std::exchange(text, {}); }

private:
    class CListener {
    public:
        CListener(Core::IEventProvider& source, const char* eventName, std::string& log)
            : provider(source), name(eventName), text(log) {
            provider.Connect(command);
        }
        ~CListener() { provider.Disconnect(command); }

        CListener(const CListener&) = delete;
        CListener& operator=(const CListener&) = delete;

    private:
        void OnEvent() {
            if (!text.empty()) {
                text += ' ';
            }
            text += name;
        }

        Core::IEventProvider& provider;
        const char* name;
        std::string& text;
        Core::TCommand<CListener> command{this, &CListener::OnEvent};
    };

    std::string text;
    std::vector<std::unique_ptr<CListener>> listeners;
};

/// Calls a function at each event of a provider, which has to live longer.
class CEventHook {
public:
    CEventHook(Core::IEventProvider& source, std::function<void()> hook)
        : provider(source), function(std::move(hook)) {
        provider.Connect(command);
    }
    ~CEventHook() { provider.Disconnect(command); }

    CEventHook(const CEventHook&) = delete;
    CEventHook& operator=(const CEventHook&) = delete;

private:
    void OnEvent() { function(); }

    Core::IEventProvider& provider;
    std::function<void()> function;
    Core::TCommand<CEventHook> command{this, &CEventHook::OnEvent};
};

} // namespace Vorin::DataModel::Controls
