#pragma once

#include "core/Command.h"
#include "core/CommandList.h"

#include <cassert>

namespace Vorin::Core {

/// Where listeners connect commands that take the event's argument. As `IEventProvider`.
template <class A>
class TIArgEventProvider {
public:
    virtual void Connect(TIArgCommand<A>* command) = 0;
    virtual void Connect(TIArgCommand<A>& command) = 0;
    virtual void Disconnect(TIArgCommand<A>*& command, bool destroy) = 0;
    virtual void Disconnect(TIArgCommand<A>& command) = 0;
    virtual ~TIArgEventProvider() = default;
};

/// Tells listeners that something happened, and what.
template <class A>
class TIArgNotify {
public:
    virtual void Notify(A argument) = 0;
    virtual ~TIArgNotify() = default;
};

/// A list of argument commands, run in the order of their connection by `Notify`.
///
/// One thread. `Notify` neither allocates nor locks. A command is never re-entered. Unlike in
/// `CEventProvider`, nested notifications are walks of their own: each carries its own argument,
/// so the outer walk goes on with the outer argument after the nested one ended.
///
/// A listener may connect and disconnect other commands. A command should not be disconnected
/// while it runs: nothing breaks, but the walk then goes on with what followed it at that moment.
/// Both forms of `Disconnect` remove every entry; a copy starts without listeners.
template <class A>
class TArgEventProvider : public virtual TIArgEventProvider<A>, public virtual TIArgNotify<A> {
public:
    using Command = TIArgCommand<A>;
    using CItem = typename TCommandList<Command>::CItem;

    TArgEventProvider() = default;
    TArgEventProvider(const TArgEventProvider&) : TIArgEventProvider<A>(), TIArgNotify<A>() {}
    TArgEventProvider& operator=(const TArgEventProvider&) { return *this; }
    ~TArgEventProvider() override {
        assert(walks == 0 && "a listener must not destroy the provider that runs it");
    }

    void Connect(Command* command) override {
        assert(command);
        commands.Append(command);
    }
    void Connect(Command& command) override { commands.Append(&command); }

    void Disconnect(Command*& command, bool destroy) override {
        if (!command) {
            return;
        }
        Disconnect(*command);
        if (destroy) {
            Command* doomed = command;
            command = nullptr;
            delete doomed;
        }
    }
    void Disconnect(Command& command) override {
        while (CItem* const item = commands.Find(&command)) {
            if (walks > 0) {
                commands.Retire(item, nullptr);
            } else {
                commands.Free(item);
            }
        }
    }

    void Notify(A argument) override {
        ++walks;
        // The next node is read after the call: what the listener connected is run too.
        for (CItem* node = commands.GetHead(); node; node = node->next) {
            if (!node->running && node->command) {
                node->running = true;
                node->command->Execute(argument);
                node->running = false;
            }
        }
        if (--walks == 0) {
            commands.FreeRetired();
        }
    }

private:
    TCommandList<Command> commands;
    int walks = 0; // in progress, nested ones counted
};

} // namespace Vorin::Core
