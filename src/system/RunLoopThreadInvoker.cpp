#include "system/RunLoopThreadInvoker.h"

#include "system/RunLoopCore.h"

namespace Vorin::System {

CRunLoopThreadInvoker::CRunLoopThreadInvoker(CRunLoop& loop) : core(loop.core) {}

CRunLoopThreadInvoker::~CRunLoopThreadInvoker() { core->CancelInvocations(this); }

// A command that runs in the meantime may destroy this invoker, and its loop.
bool CRunLoopThreadInvoker::InvokeSync(Core::ICommand* command, Core::EOwnership ownership) {
    const std::shared_ptr<CRunLoopCore> alive = core;
    return alive->InvokeSync(this, command, ownership);
}

bool CRunLoopThreadInvoker::InvokeAsync(Core::ICommand* command, Core::EOwnership ownership) {
    return core->InvokeAsync(this, command, ownership);
}

} // namespace Vorin::System
