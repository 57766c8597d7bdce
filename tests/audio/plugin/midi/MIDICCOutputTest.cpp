#include "audio/plugin/midi/MIDICCOutput.h"

#include "audio/plugin/midi/MIDITestKit.h"

#include <gtest/gtest.h>

#include <climits>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;
using CBytes = std::vector<int>;

class MIDICCOutput : public ::testing::Test {
protected:
    MIDICCOutput() {
        for (int index = 0; index < 2; ++index) {
            settings.Get(index).SetMIDIEnabled(true);
            settings.Get(index).SetNumber(20);
        }
    }

    /// The bytes that are sent, none for nothing.
    CBytes Send(int index, double value) {
        SetBytes(event, {0xFF, 0x7F, 0x7F});
        event.SetDeltaFrames(99);
        const bool sends = output.Make(index, value, event);
        EXPECT_EQ(event.GetDeltaFrames(), sends ? 0 : 99);
        if (!sends) {
            EXPECT_EQ(BytesOf(event), (CBytes{0xFF, 0x7F, 0x7F}));
        }
        return sends ? BytesOf(event) : CBytes();
    }

    CInfos infos = MakeInfos(2);
    COutputMIDICCSettings settings{infos};
    CMIDICCOutput output{infos, settings};
    MIDI::CMIDIEvent event;
};

TEST_F(MIDICCOutput, SendsItsControllerOnItsChannel) {
    for (int channel = 1; channel <= 16; ++channel) {
        settings.Get(0).SetChannel(channel);
        settings.Get(0).SetNumber(channel + 100);
        output.Reset();
        EXPECT_EQ(Send(0, 50.0), (CBytes{0xB0 + channel - 1, channel + 100, 64}));
    }
}

TEST_F(MIDICCOutput, ASettingForAnyChannelSendsOnTheFirst) {
    settings.Get(0).SetChannel(0);
    EXPECT_EQ(Send(0, 0.0), (CBytes{0xB0, 20, 0}));
}

TEST_F(MIDICCOutput, SendsNothingWhileNotEnabled) {
    settings.Get(0).SetMIDIEnabled(false);
    EXPECT_EQ(Send(0, 50.0), CBytes());
    settings.Get(0).SetMIDIEnabled(true);
    EXPECT_EQ(Send(0, 50.0), (CBytes{0xB0, 20, 64}));
}

TEST_F(MIDICCOutput, RoundsToTheNearestStepWithinTheRange) {
    EXPECT_EQ(Send(0, 0.3), (CBytes{0xB0, 20, 0}));
    EXPECT_EQ(Send(0, 0.4), (CBytes{0xB0, 20, 1})); // 0.508 of a step
    EXPECT_EQ(Send(0, 99.7), (CBytes{0xB0, 20, 127}));
    EXPECT_EQ(Send(0, -5.0), (CBytes{0xB0, 20, 0}));
    EXPECT_EQ(Send(0, 1e300), (CBytes{0xB0, 20, 127}));
    EXPECT_EQ(Send(0, kNaN), (CBytes{0xB0, 20, 0}));
    EXPECT_EQ(Send(0, kInfinity), (CBytes{0xB0, 20, 127}));
}

TEST_F(MIDICCOutput, EveryCurveSendsNoMoreThan127AndReachesIt) {
    for (int curve = -1; curve <= DataModel::Objects::kParamValueCurvesCount; ++curve) {
        settings.Get(0).SetCurve(static_cast<DataModel::Objects::EParamValueCurve>(curve));
        output.Reset();
        EXPECT_EQ(Send(0, 100.0), (CBytes{0xB0, 20, 127})) << curve;
        EXPECT_EQ(Send(0, 0.0), (CBytes{0xB0, 20, 0})) << curve;
    }
}

TEST_F(MIDICCOutput, StaysSilentWhileTheControllerDoesNotChange) {
    EXPECT_EQ(Send(0, 50.0), (CBytes{0xB0, 20, 64}));
    EXPECT_EQ(Send(0, 50.0), CBytes());
    EXPECT_EQ(Send(0, 50.3), CBytes()); // 63.88: below one step
    EXPECT_EQ(Send(0, 50.9), (CBytes{0xB0, 20, 65}));
    EXPECT_EQ(Send(0, 50.0), (CBytes{0xB0, 20, 64}));
}

TEST_F(MIDICCOutput, TwoOutputsOnOneControllerBothSend) {
    EXPECT_EQ(Send(0, 50.0), (CBytes{0xB0, 20, 64}));
    EXPECT_EQ(Send(1, 50.0), (CBytes{0xB0, 20, 64}));
    EXPECT_EQ(Send(0, 50.0), CBytes());
    EXPECT_EQ(Send(1, 100.0), (CBytes{0xB0, 20, 127}));
}

TEST_F(MIDICCOutput, AfterAResetTheNextValueIsSentInAnyCase) {
    EXPECT_EQ(Send(0, 0.0), (CBytes{0xB0, 20, 0})); // the first of all, though it is 0
    EXPECT_EQ(Send(0, 0.0), CBytes());
    output.Reset();
    EXPECT_EQ(Send(0, 0.0), (CBytes{0xB0, 20, 0}));
    EXPECT_EQ(Send(1, 0.0), (CBytes{0xB0, 20, 0}));
}

TEST_F(MIDICCOutput, AnIndexThatDoesNotExistSendsNothing) {
    for (const int index : {-1, 2, INT_MIN, INT_MAX}) {
        EXPECT_EQ(Send(index, 50.0), CBytes()) << index;
    }
}

TEST_F(MIDICCOutput, AnEventThatIsTooShortIsNotFilledAndNothingCountsAsSent) {
    event.SetSize(2);
    EXPECT_FALSE(output.Make(0, 50.0, event));
    EXPECT_EQ(Send(0, 50.0), (CBytes{0xB0, 20, 64}));
}

} // namespace
} // namespace Vorin::Audio::Plugin
