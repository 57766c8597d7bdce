#pragma once

#include "core/Command.h"
#include "core/CommandList.h"

namespace Vorin::Core {

/// Where listeners connect the commands that a change shall run.
///
/// The provider keeps the addresses and owns nothing: a listener disconnects its command before
/// it dies. Null must not be connected. A command connected twice runs twice.
class IEventProvider {
public:
    virtual void Connect(ICommand* command) = 0;
    virtual void Connect(ICommand& command) = 0;

    /// Removes the first entry of `command`; when `destroy` is set, deletes the command, connected
    /// or not, and sets the caller's pointer to null. Null does nothing.
    virtual void Disconnect(ICommand*& command, bool destroy) = 0;

    /// Removes every entry of `command`.
    virtual void Disconnect(ICommand& command) = 0;

    virtual ~IEventProvider() = default;
};

/// Tells listeners that something happened.
class INotify {
public:
    virtual void Notify() = 0;
    virtual ~INotify() = default;
};

/// A list of commands, run in the order of their connection by `Notify`.
///
/// One thread. `Notify` neither allocates nor locks.
///
/// What holds while listeners run:
/// - A command is never re-entered. When a listener changes the value it listens to, the nested
///   `Notify` skips every command that is running, so a cycle of values ends by itself.
/// - A nested `Notify` takes over the walk: it starts at the head, and when it is through, the
///   outer walk ends too. Listeners behind the one that nested run once and see the newest value;
///   those before it run a second time.
/// - A listener that connects a command: it is run in this walk unless the running listener is the
///   last one.
///
/// What a listener may do from inside its `Execute`: connect and disconnect any command of this
/// provider in either form, its own included, destroy a command in the first form, notify, and
/// suspend. A command that was disconnected is not run any more, not even by the walk in progress.
/// It must not destroy the provider, and a command that is connected twice must lose both entries
/// before it dies (the first form of `Disconnect` removes one).
///
/// A copy starts without listeners, and assignment leaves those of the target as they are: the
/// listeners belong to the object that they were connected to. So classes that hold a provider
/// stay copyable.
class CEventProvider : public virtual IEventProvider, public virtual INotify {
public:
    using CItem = TCommandList<ICommand>::CItem;

    CEventProvider() = default;
    CEventProvider(const CEventProvider& other);
    CEventProvider& operator=(const CEventProvider& other);

    void Connect(ICommand* command) override;
    void Connect(ICommand& command) override;
    void Disconnect(ICommand*& command, bool destroy) override;
    void Disconnect(ICommand& command) override;
    ~CEventProvider() override;

    void Notify() override;

    /// While disabled, `Notify` only counts. Turning true forgets the count and replays nothing:
    /// the caller decides whether a catch-up `Notify` is due.
    void SetEnabled(bool enable);
    bool IsEnabled() const { return enabled; }

    /// The notifications swallowed since the provider was disabled.
    int GetPendingCount() const { return pendingCount; }

private:
    void TakeOut(CItem* item);
    inline void WalkOutermost(); // in the source file, for `Notify` alone
    void WalkNested();

    TCommandList<ICommand> commands;
    CItem* cursor = nullptr; // what the walk in progress visits next; shared by nested walks
    int pendingCount = 0;
    bool enabled = true;
    // Whose command the innermost walk executes; null when there is none. Kept apart from the
    // cursor: side by side, compilers store the two as one vector, which costs more than it saves.
    CItem* current = nullptr;
};

} // namespace Vorin::Core
