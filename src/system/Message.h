#pragma once

#include "core/Command.h"
#include "core/Ownership.h"
#include "system/Event.h"

namespace Vorin::System {

/// Where the caller of a synchronous invocation waits. Lives on the caller's stack.
struct CMessageReceipt {
    CEvent done{false};
    bool executed = false; // written before `done` is set, read after it
};

/// A command on its way to the thread that shall run it.
///
/// The queue that holds it decides about threads; the message itself has no lock. Whatever becomes
/// of a message, its end lets the waiting caller go on, and does so last: when the caller goes on,
/// an owned command has been deleted.
class CMessage {
public:
    CMessage(Core::ICommand* messageCommand, Core::EOwnership ownership, CMessageReceipt* waiting)
        : command(messageCommand, ownership), receipt(waiting) {}
    CMessage(const CMessage&) = delete;
    CMessage& operator=(const CMessage&) = delete;

    ~CMessage() {
        command.Set(nullptr, Core::kOwn);
        if (receipt) {
            receipt->done.Set();
        }
    }

    void Execute() {
        command.Get()->Execute();
        if (receipt) {
            receipt->executed = true;
        }
    }

private:
    Core::TOwnership<Core::ICommand> command;
    CMessageReceipt* receipt; // null for an asynchronous message
};

} // namespace Vorin::System
