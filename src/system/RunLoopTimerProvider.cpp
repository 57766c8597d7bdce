#include "system/RunLoopTimerProvider.h"

#include "system/RunLoopCore.h"

namespace Vorin::System {

CRunLoopTimerProvider::CRunLoopTimerProvider(CRunLoop& loop) : core(loop.core) {}

CRunLoopTimerProvider::~CRunLoopTimerProvider() { core->RemoveTimers(this); }

void CRunLoopTimerProvider::AddTimer(int periodMilliseconds, Core::ICommand* command) {
    core->AddTimer(this, periodMilliseconds, command);
}

void CRunLoopTimerProvider::RemoveTimer(Core::ICommand* command, bool destroy) {
    core->RemoveTimer(this, command);
    if (destroy) {
        delete command;
    }
}

} // namespace Vorin::System
