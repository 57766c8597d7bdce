#include "vst/OutgoingEvents.h"

#include <gtest/gtest.h>

#include <cstring>

namespace VorinExt::VSTPlugin {
namespace {

using Vorin::Audio::MIDI::CMIDIEvent;

void AddController(COutgoingEvents& events, int number, int value, int delta = 0) {
    CMIDIEvent event;
    event.SetType(Vorin::Audio::MIDI::kMIDIController);
    event.SetChannel(4);
    event.SetData1(number);
    event.SetData2(value);
    event.SetDeltaFrames(delta);
    events.Add(event);
}

/// The list is longer than the two that its type names.
const VstMidiEvent& EventOf(const VstEvents& list, int index) {
    const VstMidiEvent* event = nullptr;
    std::memcpy(&event,
                reinterpret_cast<const char*>(&list) + offsetof(VstEvents, events) +
                    static_cast<std::size_t>(index) * sizeof event,
                sizeof event);
    return *event;
}

TEST(OutgoingEventsTest, StartsWithoutAny) {
    COutgoingEvents events(3);
    EXPECT_EQ(events.GetCount(), 0);
    EXPECT_EQ(events.Get()->numEvents, 0);
    EXPECT_EQ(events.Get()->reserved, 0);
    EXPECT_EQ(events.Get()->events[0], nullptr);
}

TEST(OutgoingEventsTest, AnEventIsZeroButForWhatItSays) {
    COutgoingEvents events(3);
    AddController(events, 1, 2, 0);
    events.Clear();
    AddController(events, 7, 100, 33);
    ASSERT_EQ(events.Get()->numEvents, 1);
    VstMidiEvent expected;
    std::memset(&expected, 0, sizeof expected);
    expected.type = kVstMidiType;
    expected.byteSize = 32;
    expected.deltaFrames = 33;
    expected.midiData[0] = static_cast<char>(0xb4);
    expected.midiData[1] = 7;
    expected.midiData[2] = 100;
    EXPECT_EQ(std::memcmp(&EventOf(*events.Get(), 0), &expected, sizeof expected), 0);
}

TEST(OutgoingEventsTest, KeepsTheirOrder) {
    COutgoingEvents events(3);
    for (int i = 0; i < 3; ++i) {
        AddController(events, i, 10 + i);
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(EventOf(*events.Get(), i).midiData[1], i);
    }
}

TEST(OutgoingEventsTest, LeavesOutThoseThatThereIsNoRoomFor) {
    COutgoingEvents events(2);
    for (int i = 0; i < 5; ++i) {
        AddController(events, i, 0);
    }
    EXPECT_EQ(events.GetCount(), 2);
    EXPECT_EQ(EventOf(*events.Get(), 1).midiData[1], 1);
}

TEST(OutgoingEventsTest, HasRoomFor1024AtMostAndForNoneAtLeast) {
    COutgoingEvents many(5000);
    for (int i = 0; i < 2000; ++i) {
        AddController(many, i % 128, 0);
    }
    EXPECT_EQ(many.GetCount(), 1024);
    EXPECT_EQ(EventOf(*many.Get(), 1023).midiData[1], 1023 % 128);
    COutgoingEvents none(-1);
    AddController(none, 1, 1);
    EXPECT_EQ(none.GetCount(), 0);
}

} // namespace
} // namespace VorinExt::VSTPlugin
