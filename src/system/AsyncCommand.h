#pragma once

#include "core/Command.h"
#include "system/ThreadInvoker.h"

namespace Vorin::System {

/// A command that makes its call on another thread: `Execute` leaves it to an invoker and returns.
/// [any]
///
/// Neither the invoker nor the object is owned. The command must outlive every call that is still
/// under way, since the invoker holds its address. A call that the invoker refuses is lost, as one
/// for a thread that is gone has to be.
template <class C>
class TAsyncCommand final : public Core::ICommand {
public:
    TAsyncCommand(IThreadInvoker* threadInvoker, C* object, void (C::*function)())
        : invoker(threadInvoker), command(object, function) {}
    TAsyncCommand(const TAsyncCommand&) = delete;
    TAsyncCommand& operator=(const TAsyncCommand&) = delete;

    void Execute() override { invoker->InvokeAsync(&command, Core::kDontOwn); }

private:
    IThreadInvoker* invoker;
    Core::TCommand<C> command;
};

} // namespace Vorin::System
