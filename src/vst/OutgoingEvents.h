#pragma once

#include "audio/midi/MIDIEvent.h"
#include "vst/interface/Abi.h"

#include <array>
#include <cstddef>
#include <vector>

namespace VorinExt::VSTPlugin {

/// The MIDI events that go to the host with a block, in the record that it takes them in. Nothing
/// is allocated after construction. [audio]
class COutgoingEvents {
public:
    static constexpr int kMostEvents = 1024;

    /// Room for that many events, `kMostEvents` at most.
    explicit COutgoingEvents(int count);
    COutgoingEvents(const COutgoingEvents&) = delete;
    COutgoingEvents& operator=(const COutgoingEvents&) = delete;

    void Clear() { block.numEvents = 0; }
    /// One that there is no room for is left out.
    void Add(const Vorin::Audio::MIDI::IConstMIDIEvent& event);

    int GetCount() const { return block.numEvents; }
    VstEvents* Get() { return reinterpret_cast<VstEvents*>(&block); }

private:
    /// VstEvents, which names two of its pointers only.
    struct CBlock {
        VstInt32 numEvents = 0;
        VstIntPtr reserved = 0;
        std::array<VstEvent*, kMostEvents> events{};
    };
    static_assert(offsetof(CBlock, events) == offsetof(VstEvents, events));

    CBlock block;
    std::vector<VstMidiEvent> outMidiEvents;
};

} // namespace VorinExt::VSTPlugin
