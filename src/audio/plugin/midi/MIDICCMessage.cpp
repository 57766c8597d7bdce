#include "audio/plugin/midi/MIDICCMessage.h"

namespace Vorin::Audio::Plugin {

void CMIDICCMessage::Set(const CMIDICCValues& event, bool force) {
    if (force || event != CMIDICCValues{GetChannel(), GetNumber(), GetValue()}) {
        channel.store(event.channel, std::memory_order_relaxed);
        number.store(event.number, std::memory_order_relaxed);
        value.store(event.value, std::memory_order_relaxed);
        changed.Notify();
    }
    received.Notify();
}

void CMIDICCMessage::SetValue(int newValue) { Set({GetChannel(), GetNumber(), newValue}, false); }

void CMIDICCMessage::NotifyIfKept() {
    changed.NotifyIfKept();
    received.NotifyIfKept();
}

} // namespace Vorin::Audio::Plugin
