#include "system/ThreadInvokerSerializer.h"

#include <utility>

namespace Vorin::System {

using Core::CAutoLock;

CThreadInvokerSerializer::CThreadInvokerSerializer(ITimerProvider* timerProvider,
                                                   IThreadInvoker* threadInvoker,
                                                   int refreshMilliseconds)
    : timer(timerProvider), invoker(threadInvoker), refreshTime(refreshMilliseconds) {}

CThreadInvokerSerializer::~CThreadInvokerSerializer() {
    SetActive(false);
    Clear();
}

bool CThreadInvokerSerializer::InvokeSync(Core::ICommand* command, Core::EOwnership ownership) {
    return invoker->InvokeSync(command, ownership);
}

bool CThreadInvokerSerializer::InvokeAsync(Core::ICommand* command, Core::EOwnership ownership) {
    if (!command) {
        return false;
    }
    auto message = std::make_unique<CMessage>(command, ownership, nullptr);
    const CAutoLock held(queueLock);
    queue.push_back(std::move(message));
    return true;
}

void CThreadInvokerSerializer::Execute() {
    const CAutoLock held(drainLock);
    while (active) {
        const std::unique_ptr<CMessage> message = TakeMessage();
        if (!message) {
            return;
        }
        message->Execute();
    }
}

std::unique_ptr<CMessage> CThreadInvokerSerializer::TakeMessage() {
    const CAutoLock held(queueLock);
    if (queue.empty()) {
        return nullptr;
    }
    std::unique_ptr<CMessage> message = std::move(queue.front());
    queue.pop_front();
    return message;
}

void CThreadInvokerSerializer::SetActive(bool activate) {
    if (activate == active) {
        return;
    }
    active = activate;
    if (activate) {
        timer->AddTimer(refreshTime, this);
    } else {
        timer->RemoveTimer(this, false);
    }
}

void CThreadInvokerSerializer::SetRefreshTime(int milliseconds) {
    if (milliseconds == refreshTime) {
        return;
    }
    refreshTime = milliseconds;
    if (active) {
        timer->RemoveTimer(this, false);
        timer->AddTimer(refreshTime, this);
    }
}

// One by one: the destructor of a command may invoke another one here.
void CThreadInvokerSerializer::Clear() {
    const CAutoLock drain(drainLock);
    const CAutoLock held(queueLock);
    while (TakeMessage()) {
    }
}

} // namespace Vorin::System
