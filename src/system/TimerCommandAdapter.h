#pragma once

#include "core/Command.h"
#include "core/Ownership.h"
#include "core/RefreshTime.h"
#include "system/TimerProvider.h"

#include <atomic>

namespace Vorin::System {

/// Turns any number of `Execute` calls into at most one execution of a command per period: a
/// hundred changes make one repaint.
///
/// The command runs where the provider runs its timers; everything but `Execute` belongs to the
/// owner. The timer is registered at once: a derived class that overrides `OnTimer` needs a
/// provider that runs on the constructing thread. The provider is not owned and must outlive this
/// object.
class CTimerCommandAdapter : public virtual Core::ICommand, public virtual Core::IRefreshTime {
public:
    CTimerCommandAdapter(ITimerProvider* timerProvider, Core::ICommand* adaptedCommand,
                         Core::EOwnership ownership);
    CTimerCommandAdapter(const CTimerCommandAdapter&) = delete;
    CTimerCommandAdapter& operator=(const CTimerCommandAdapter&) = delete;

    /// Notes that an execution is due: one store. [audio] [any]
    void Execute() override;

    /// Removes the timer, then releases the command.
    ~CTimerCommandAdapter() override;

    /// Starts a new period of this length. The command itself may call it.
    void SetRefreshTime(int milliseconds) override;
    int GetRefreshTime() const override { return refreshTime; }

    /// For the timer. Nothing of this object is used once the command has been executed.
    virtual void OnTimer();

    /// While off, what is pending waits. [any]
    void SetEnabled(bool enable) { enabled = enable; }
    bool IsEnabled() const { return enabled; }

private:
    using CTimerCommand = Core::TCommand<CTimerCommandAdapter>;

    std::atomic<bool> pending{false};
    std::atomic<bool> enabled{true};
    ITimerProvider* provider;
    Core::TOwnership<Core::ICommand> command;
    Core::ICommand* timerCommand; // deleted by the provider's RemoveTimer
    int refreshTime = 50;         // milliseconds
};

} // namespace Vorin::System
