#include "audio/plugin/midi/MIDILearner.h"

namespace Vorin::Audio::Plugin {

CMIDILearner::CMIDILearner(IConstMIDICCMessage& source) : message(source) {
    message.GetChangedEvent().Connect(messageChangedCommand);
}

CMIDILearner::~CMIDILearner() { message.GetChangedEvent().Disconnect(messageChangedCommand); }

void CMIDILearner::SetEnabled(bool enable) {
    if (enable == IsEnabled()) {
        return;
    }
    {
        const Core::CAutoLock held(lock);
        enabled.store(enable, std::memory_order_relaxed);
    }
    enableChanged.Notify();
}

void CMIDILearner::SetTarget(IMIDICCSetting* newTarget) {
    const Core::CAutoLock held(lock);
    target = newTarget;
}

void CMIDILearner::OnMessageChanged() {
    if (!IsEnabled() || !lock.TryLock()) {
        return;
    }
    if (IsEnabled() && target) {
        target->SetChannel(message.GetChannel());
        target->SetNumber(message.GetNumber());
    }
    lock.Unlock();
}

} // namespace Vorin::Audio::Plugin
