#include "audio/midi/MIDIEvent.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <vector>

namespace Vorin::Audio::MIDI {
namespace {

void Fill(CMIDIEvent& event, const std::vector<unsigned char>& bytes) {
    event.CopyFrom(bytes.data(), static_cast<int>(bytes.size()));
}

std::vector<int> BytesOf(const CMIDIEvent& event) {
    const auto* bytes = static_cast<const unsigned char*>(event.GetData());
    return {bytes, bytes + event.GetSize()};
}

/// The type by its high half, written down as a table of all sixteen.
constexpr int kTypes[16] = {4, 4, 4, 4, 4, 4, 4, 4, 0, 1, 4, 2, 3, 4, 4, 4};

TEST(MIDIEvent, StartsWithThreeZeroBytesAtFrameZero) {
    const CMIDIEvent event;
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(event.GetDeltaFrames(), 0);
    EXPECT_EQ(event.GetType(), kMIDIOther);
}

TEST(MIDIEvent, DecodesEveryStatusByte) {
    for (int status = 0; status < 256; ++status) {
        CMIDIEvent event;
        Fill(event, {static_cast<unsigned char>(status), 1, 2});
        EXPECT_EQ(event.GetType(), kTypes[status / 16]) << status;
        EXPECT_EQ(event.GetChannel(), status % 16) << status;
    }
}

TEST(MIDIEvent, DecodesEveryDataByteWithoutItsHighestBit) {
    for (int byte = 0; byte < 256; ++byte) {
        CMIDIEvent event;
        const auto data = static_cast<unsigned char>(byte);
        Fill(event, {0xB0, data, static_cast<unsigned char>(255 - byte)});
        EXPECT_EQ(event.GetData1(), byte % 128) << byte;
        EXPECT_EQ(event.GetData2(), (255 - byte) % 128) << byte;
    }
}

TEST(MIDIEvent, SaysMinusOneForWhatTheBytesAreTooFewFor) {
    CMIDIEvent event;
    Fill(event, {});
    EXPECT_EQ(event.GetType(), kMIDIOther);
    EXPECT_EQ(event.GetChannel(), -1);
    EXPECT_EQ(event.GetData1(), -1);
    EXPECT_EQ(event.GetData2(), -1);
    Fill(event, {0xB5});
    EXPECT_EQ(event.GetType(), kMIDIController);
    EXPECT_EQ(event.GetChannel(), 5);
    EXPECT_EQ(event.GetData1(), -1);
    EXPECT_EQ(event.GetData2(), -1);
    Fill(event, {0xC5, 0x87});
    EXPECT_EQ(event.GetType(), kMIDIProgramChange);
    EXPECT_EQ(event.GetData1(), 7);
    EXPECT_EQ(event.GetData2(), -1);
}

TEST(MIDIEvent, SettersWriteWhatTheGettersRead) {
    const EMIDIEventType types[] = {kMIDINoteOff, kMIDINoteOn, kMIDIController, kMIDIProgramChange};
    const int statuses[] = {0x80, 0x90, 0xB0, 0xC0};
    for (int i = 0; i < 4; ++i) {
        for (int channel = 0; channel < 16; ++channel) {
            CMIDIEvent event;
            event.SetChannel(channel);
            event.SetType(types[i]);
            event.SetData1(100);
            event.SetData2(27);
            event.SetDeltaFrames(-9);
            EXPECT_EQ(BytesOf(event), (std::vector<int>{statuses[i] + channel, 100, 27}));
            EXPECT_EQ(event.GetType(), types[i]);
            EXPECT_EQ(event.GetChannel(), channel);
            EXPECT_EQ(event.GetData1(), 100);
            EXPECT_EQ(event.GetData2(), 27);
            EXPECT_EQ(event.GetDeltaFrames(), -9);
        }
    }
}

TEST(MIDIEvent, ATypeWithoutAStatusLeavesTheByteAlone) {
    CMIDIEvent event;
    Fill(event, {0x93, 0, 0});
    event.SetType(kMIDIOther);
    event.SetType(static_cast<EMIDIEventType>(-1));
    event.SetType(static_cast<EMIDIEventType>(5));
    EXPECT_EQ(BytesOf(event)[0], 0x93);
}

TEST(MIDIEvent, SettersKeepTheBitsThatHaveRoom) {
    CMIDIEvent event;
    event.SetType(kMIDINoteOn);
    event.SetChannel(16 + 3);
    event.SetData1(128 + 5);
    event.SetData2(-1);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0x93, 5, 127}));
    event.SetChannel(INT_MIN);
    event.SetData1(INT_MAX);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0x90, 127, 127}));
}

TEST(MIDIEvent, SettersDoNothingToBytesThatAreNotThere) {
    CMIDIEvent event;
    Fill(event, {0x90});
    event.SetData1(1);
    event.SetData2(2);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0x90}));
    event.SetSize(0);
    event.SetType(kMIDIController);
    event.SetChannel(3);
    EXPECT_EQ(event.GetSize(), 0);
}

TEST(MIDIEvent, StaysInItsBlockForAllMessages) {
    CMIDIEvent event;
    const void* block = event.GetData();
    Fill(event, {0xC0, 1});
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xC0, 1}));
    Fill(event, {});
    EXPECT_EQ(event.GetSize(), 0);
    Fill(event, {0xB0, 2, 3});
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xB0, 2, 3}));
    event.SetSize(1);
    event.SetSize(3);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xB0, 0, 0}));
    EXPECT_EQ(event.GetData(), block);
}

TEST(MIDIEvent, TakesNoMoreThanThreeBytes) {
    CMIDIEvent event;
    Fill(event, {0xF0, 1, 2, 3, 4});
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xF0, 1, 2}));
    event.SetSize(INT_MAX);
    EXPECT_EQ(event.GetSize(), 3);
    event.SetSize(INT_MIN);
    EXPECT_EQ(event.GetSize(), 0);
    event.CopyFrom("\xB1\x02\x03", -1);
    EXPECT_EQ(event.GetSize(), 0);
    event.CopyFrom(nullptr, 3);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0, 0, 0}));
}

TEST(MIDIEvent, ReadsAForeignBlockAndWritesIntoIt) {
    unsigned char block[5] = {0xB2, 7, 8, 9, 10};
    CMIDIEvent event;
    event.SetBuffer(block, 5, Core::kDontOwn);
    EXPECT_EQ(event.GetType(), kMIDIController);
    EXPECT_EQ(event.GetChannel(), 2);
    EXPECT_EQ(event.GetData2(), 8);
    event.SetData2(90);
    EXPECT_EQ(block[2], 90);
    event.SetSize(2); // moves into a block of its own
    event.SetData1(1);
    EXPECT_EQ(block[1], 7);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xB2, 1}));
    event.SetSize(3);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xB2, 1, 0}));
}

TEST(MIDIEvent, ASizeWithoutABlockHasNoData) {
    CMIDIEvent event;
    event.SetBuffer(nullptr, 3, Core::kDontOwn);
    EXPECT_EQ(event.GetType(), kMIDIOther);
    EXPECT_EQ(event.GetChannel(), -1);
    EXPECT_EQ(event.GetData1(), -1);
    event.SetType(kMIDIController);
    event.SetData2(1);
    event.SetSize(2);
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0, 0}));
    event.SetBuffer(nullptr, 3, Core::kDontOwn);
    Fill(event, {0xB0, 1, 2});
    EXPECT_EQ(BytesOf(event), (std::vector<int>{0xB0, 1, 2}));
}

} // namespace
} // namespace Vorin::Audio::MIDI
