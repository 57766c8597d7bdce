#include "system/TimerCommandAdapter.h"

namespace Vorin::System {

CTimerCommandAdapter::CTimerCommandAdapter(ITimerProvider* timerProvider,
                                           Core::ICommand* adaptedCommand,
                                           Core::EOwnership ownership)
    : provider(timerProvider), command(adaptedCommand, ownership),
      timerCommand(new CTimerCommand(this, &CTimerCommandAdapter::OnTimer)) {
    provider->AddTimer(refreshTime, timerCommand);
}

CTimerCommandAdapter::~CTimerCommandAdapter() { provider->RemoveTimer(timerCommand, true); }

// Released here and acquired in OnTimer: what was changed before the call is seen by the command.
void CTimerCommandAdapter::Execute() { pending.store(true, std::memory_order_release); }

void CTimerCommandAdapter::OnTimer() {
    if (enabled && pending.exchange(false, std::memory_order_acquire) && command.Get()) {
        command.Get()->Execute();
    }
}

void CTimerCommandAdapter::SetRefreshTime(int milliseconds) {
    provider->RemoveTimer(timerCommand, true);
    timerCommand = new CTimerCommand(this, &CTimerCommandAdapter::OnTimer);
    provider->AddTimer(milliseconds, timerCommand);
    refreshTime = milliseconds;
}

} // namespace Vorin::System
