#include "audio/plugin/midi/ConstMIDICCMessageTimerProxy.h"

namespace Vorin::Audio::Plugin {

CConstMIDICCMessageTimerProxy::CConstMIDICCMessageTimerProxy(IConstMIDICCMessage& message,
                                                             System::ITimerProvider& provider,
                                                             int periodMilliseconds)
    : source(message), timers(provider) {
    source.GetReceivedEvent().Connect(receivedCommand);
    // Behind the connection: a message that comes in between is read now or at the first tick.
    values = ReadSource();
    timers.AddTimer(periodMilliseconds, &timerCommand);
}

CConstMIDICCMessageTimerProxy::~CConstMIDICCMessageTimerProxy() {
    timers.RemoveTimer(&timerCommand, false);
    source.GetReceivedEvent().Disconnect(receivedCommand);
}

void CConstMIDICCMessageTimerProxy::OnTimer() {
    if (!isDue.exchange(false, std::memory_order_acquire)) {
        return;
    }
    const CMIDICCValues read = ReadSource();
    if (read != values) {
        values = read;
        changed.Notify();
    }
    received.Notify();
}

CMIDICCValues CConstMIDICCMessageTimerProxy::ReadSource() const {
    return {source.GetChannel(), source.GetNumber(), source.GetValue()};
}

} // namespace Vorin::Audio::Plugin
