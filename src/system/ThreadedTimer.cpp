#include "system/ThreadedTimer.h"

namespace Vorin::System {

using Core::CAutoLock;

CThreadedTimer::CThreadedTimer(IThreadInvoker* invoker, bool enable, IClock& clock)
    : enabled(enable), loop(clock), timers(&loop, invoker) {
    if (enabled) {
        loop.Start();
    }
}

CThreadedTimer::~CThreadedTimer() { loop.Stop(); }

void CThreadedTimer::AddTimer(int periodMilliseconds, Core::ICommand* command) {
    timers.AddTimer(periodMilliseconds, command);
}

void CThreadedTimer::RemoveTimer(Core::ICommand* command, bool destroy) {
    timers.RemoveTimer(command, destroy);
}

bool CThreadedTimer::IsEnabled() const {
    const CAutoLock held(lock);
    return enabled;
}

void CThreadedTimer::SetEnabled(bool enable) {
    if (StoreEnabled(enable)) {
        enableEvents.Notify();
    }
}

bool CThreadedTimer::StoreEnabled(bool enable) {
    const CAutoLock held(lock);
    if (enable == enabled) {
        return false;
    }
    enabled = enable;
    if (!enabled) {
        loop.Stop();
    } else if (!loop.IsRunning()) {
        loop.Start();
    }
    return true;
}

} // namespace Vorin::System
