// That controllers drive parameters, as a state says which.

#include "host/State.h"

namespace TestHost {
namespace {

class MIDITest : public CHostTest {
protected:
    void Send(int status, int data1, int data2) {
        CEvents events(1);
        events.Add(status, data1, data2);
        EXPECT_EQ(plugin.Ask(effProcessEvents, 0, 0, events.Get()), 1);
    }
};

TEST_F(MIDITest, DrivesNothingInAFreshInstance) {
    plugin.Start();
    const std::string before = plugin.GetChunk();
    for (int number = 0; number < 128; ++number) {
        Send(0xb0, number, 100);
    }
    plugin.Run(512);
    EXPECT_EQ(plugin.GetChunk(), before);
}

TEST_F(MIDITest, ItsEndsAreTheEndsOfTheParameter) {
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, {{i, 0, 20}})), 1);
        Send(0xb0, 20, 127);
        EXPECT_EQ(plugin.GetParam(i), 1.0F) << i;
        Send(0xb0, 20, 0);
        EXPECT_EQ(plugin.GetParam(i), 0.0F) << i;
    }
}

TEST_F(MIDITest, BetweenThemItGoesByItsSteps) {
    ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, {{kDelay, 0, 20}})), 1);
    for (int value = 0; value < 128; ++value) {
        Send(0xb0, 20, value);
        ASSERT_NEAR(plugin.GetParam(kDelay), static_cast<float>(value) / 127.0F, 1e-6F);
    }
}

TEST_F(MIDITest, OneControllerDrivesSeveralParameters) {
    ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, {{kBypass, 0, 7}, {kDelay, 0, 7}})), 1);
    Send(0xb0, 7, 127);
    EXPECT_EQ(plugin.GetParam(kBypass), 1.0F);
    EXPECT_EQ(plugin.GetParam(kDelay), 1.0F);
    EXPECT_EQ(plugin.GetParam(kSync), 0.0F);
}

TEST_F(MIDITest, ChannelSixteenIsTheNibbleFifteenAndZeroIsAnyChannel) {
    ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, {{kDelay, 16, 7}, {kSync, 0, 7}})), 1);
    for (int nibble = 0; nibble < 15; ++nibble) {
        Send(0xb0 + nibble, 7, 127);
        EXPECT_EQ(plugin.GetParam(kDelay), 0.0F);
        EXPECT_EQ(plugin.GetParam(kSync), 1.0F);
        Send(0xb0 + nibble, 7, 0);
    }
    Send(0xbf, 7, 127);
    EXPECT_EQ(plugin.GetParam(kDelay), 1.0F);
    EXPECT_EQ(plugin.GetParam(kSync), 1.0F);
}

TEST_F(MIDITest, NotesAndOtherEventsDriveNothing) {
    ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, {{kDelay, 0, 64}})), 1);
    for (const int status : {0x80, 0x90, 0xa0, 0xc0, 0xd0, 0xe0, 0xf0, 0xf8, 0x00, 0x3f}) {
        Send(status, 64, 127);
    }
    CEvents events(2);
    events.Add(0xb0, 64, 127).type = kVstSysExType;
    events.Add(0xb0, 64, 127).type = kVstParameterType;
    EXPECT_EQ(plugin.Ask(effProcessEvents, 0, 0, events.Get()), 1);
    EXPECT_EQ(plugin.GetParam(kDelay), 0.0F);
}

TEST_F(MIDITest, TheLastEventOfABlockCounts) {
    ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, {{kDelay, 0, 64}})), 1);
    CEvents events(3);
    events.Add(0xb0, 64, 127, 0);
    events.Add(0xb0, 64, 10, 100);
    events.Add(0xb0, 64, 0, 50);
    EXPECT_EQ(plugin.Ask(effProcessEvents, 0, 0, events.Get()), 1);
    EXPECT_EQ(plugin.GetParam(kDelay), 0.0F);
}

TEST_F(MIDITest, TheHostIsToldOfAGesture) {
    ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, {{kDelay, 0, 64}})), 1);
    EXPECT_EQ(host.GetCount(audioMasterAutomate), 0);
    Send(0xb0, 64, 100);
    EXPECT_EQ(host.GetCount(audioMasterBeginEdit), 1);
    EXPECT_EQ(host.GetCount(audioMasterAutomate), 1);
    EXPECT_EQ(host.GetCount(audioMasterEndEdit), 1);
}

TEST_F(MIDITest, TheHostIsNotToldOfWhatItSetItself) {
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        plugin.Set(i, 0.75F);
    }
    ASSERT_EQ(plugin.SetChunk(State(CValues{})), 1);
    plugin.Start();
    plugin.Run(512);
    EXPECT_EQ(host.GetCount(audioMasterAutomate), 0);
    EXPECT_EQ(host.GetCount(audioMasterBeginEdit), 0);
}

} // namespace
} // namespace TestHost
