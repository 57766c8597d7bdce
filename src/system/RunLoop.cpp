#include "system/RunLoop.h"

#include "system/RunLoopCore.h"

namespace Vorin::System {

CRunLoop::CRunLoop(IClock& clock) : core(std::make_shared<CRunLoopCore>(clock)) {}

CRunLoop::~CRunLoop() { core->Close(); }

// A command may destroy the loop; its core stays until the pump has ended.
bool CRunLoop::Pump() {
    const std::shared_ptr<CRunLoopCore> alive = core;
    return alive->Pump();
}

void CRunLoop::PumpNested() {
    const std::shared_ptr<CRunLoopCore> alive = core;
    alive->PumpNested();
}

void CRunLoop::AttachToCurrentThread() { core->AttachToCurrentThread(); }

} // namespace Vorin::System
