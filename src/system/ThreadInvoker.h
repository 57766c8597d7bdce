#pragma once

#include "core/Command.h"
#include "core/Ownership.h"

namespace Vorin::System {

/// Runs commands on a certain thread. [any]
///
/// A command handed over with `kOwn` is deleted by the invoker, whether it ran or not. A result of
/// false says that it did not run and will not. Null is not invoked: false.
class IThreadInvoker {
public:
    /// Runs the command on the thread and returns after it ran.
    virtual bool InvokeSync(Core::ICommand* command, Core::EOwnership ownership) = 0;

    /// Leaves the command to the thread and returns at once. A command that is not owned must live
    /// until it ran, or until the invoker is gone.
    virtual bool InvokeAsync(Core::ICommand* command, Core::EOwnership ownership) = 0;

    virtual ~IThreadInvoker() = default;
};

} // namespace Vorin::System
