#include "vst/OutgoingEvents.h"

#include <algorithm>
#include <cstring>

namespace VorinExt::VSTPlugin {

COutgoingEvents::COutgoingEvents(int count)
    : outMidiEvents(static_cast<std::size_t>(std::clamp(count, 0, kMostEvents))) {}

void COutgoingEvents::Add(const Vorin::Audio::MIDI::IConstMIDIEvent& event) {
    const std::size_t index = static_cast<std::size_t>(block.numEvents);
    if (index >= outMidiEvents.size()) {
        return;
    }
    VstMidiEvent& out = outMidiEvents[index];
    out = {};
    out.type = kVstMidiType;
    out.byteSize = sizeof(VstMidiEvent);
    out.deltaFrames = event.GetDeltaFrames();
    const int size = std::min(event.GetSize(), 3);
    std::memcpy(out.midiData, event.GetData(), static_cast<std::size_t>(size));
    block.events[index] = reinterpret_cast<VstEvent*>(&out);
    ++block.numEvents;
}

} // namespace VorinExt::VSTPlugin
