#include "audio/plugin/midi/MIDICCInput.h"

#include "audio/plugin/midi/MIDICCMapping.h"

namespace Vorin::Audio::Plugin {

namespace {

constexpr double kStep = 0.007874015748031496; // 1/127; 127 of them are 1 exactly

bool IsMatch(const IMIDICCSetting& setting, const CMIDICCValues& message) {
    const int channel = setting.GetChannel();
    return setting.IsMIDIEnabled() && setting.GetType() == kMIDICCTypeCC &&
           (channel == 0 || channel == message.channel) && setting.GetNumber() == message.number;
}

} // namespace

bool ReadMIDIController(const MIDI::IConstMIDIEvent& event, CMIDICCValues& message) {
    const CMIDICCValues read{event.GetChannel() + 1, event.GetData1(), event.GetData2()};
    if (event.GetType() != MIDI::kMIDIController || read.number < 0 || read.value < 0) {
        return false;
    }
    message = read;
    return true;
}

bool ApplyMIDI(const MIDI::IConstMIDIEvent& event, const CInputMIDICCSettings& settings,
               CMIDICCValues& message, IMIDIValueReceiver& receiver) {
    if (!ReadMIDIController(event, message)) {
        return false;
    }
    const int count = settings.GetCount();
    for (int index = 0; index < count; ++index) {
        const CInputMIDICCSetting& setting = settings.Get(index);
        if (IsMatch(setting, message)) {
            receiver.SetFromMIDI(index, ToValue(setting.GetInfo(), setting, message.value * kStep));
        }
    }
    return true;
}

} // namespace Vorin::Audio::Plugin
