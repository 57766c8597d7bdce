#pragma once

#include "core/Command.h"

namespace Vorin::System {

/// Runs commands at a period, each until it is removed.
///
/// A timer that is late runs once: ticks that were missed are not made up for.
class ITimerProvider {
public:
    /// Registers the command, which is not owned. For a command that is registered already this
    /// changes the period, which starts anew. Null does nothing.
    virtual void AddTimer(int periodMilliseconds, Core::ICommand* command) = 0;

    /// Removes the timer; then deletes the command when `destroy` is set, registered or not. Null
    /// does nothing. May be called by the command itself, which `destroy` then deletes under its
    /// own feet: the call must be the last thing the command does with itself.
    virtual void RemoveTimer(Core::ICommand* command, bool destroy) = 0;

    virtual ~ITimerProvider() = default;
};

} // namespace Vorin::System
