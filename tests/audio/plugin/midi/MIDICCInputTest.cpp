#include "audio/plugin/midi/MIDICCInput.h"

#include "audio/plugin/midi/MIDITestKit.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;
using CValues = std::vector<CReceiver::CValue>;

class MIDICCInput : public ::testing::Test {
protected:
    bool Apply(const std::vector<unsigned char>& bytes) {
        SetBytes(event, bytes);
        return ApplyMIDI(event, settings, message, receiver);
    }

    void Enable(int index, int channel, int number) {
        settings.Get(index).SetMIDIEnabled(true);
        settings.Get(index).SetChannel(channel);
        settings.Get(index).SetNumber(number);
    }

    CInfos infos = MakeInfos(3);
    CInputMIDICCSettings settings{infos};
    MIDI::CMIDIEvent event;
    CMIDICCValues message;
    CReceiver receiver;
};

TEST_F(MIDICCInput, OnlyControllersAreTaken) {
    for (int status = 0; status < 256; ++status) {
        Enable(0, 0, 7);
        const bool isController = status / 16 == 0xB;
        const CMIDICCValues before = message;
        EXPECT_EQ(Apply({static_cast<unsigned char>(status), 7, 127}), isController) << status;
        EXPECT_EQ(receiver.Take(), isController ? CValues({{0, 100.0}}) : CValues());
        EXPECT_EQ(message, isController ? (CMIDICCValues{status % 16 + 1, 7, 127}) : before);
    }
}

TEST_F(MIDICCInput, AControllerWithoutASettingCountsAsReceived) {
    EXPECT_TRUE(Apply({0xB2, 7, 64}));
    EXPECT_EQ(receiver.Take(), CValues());
    EXPECT_EQ(message, (CMIDICCValues{3, 7, 64}));
}

TEST_F(MIDICCInput, AControllerThatLacksAByteIsIgnored) {
    Enable(0, 0, 0);
    EXPECT_FALSE(Apply({}));
    EXPECT_FALSE(Apply({0xB0}));
    EXPECT_FALSE(Apply({0xB0, 0}));
    EXPECT_EQ(message, CMIDICCValues());
    EXPECT_EQ(receiver.Take(), CValues());
    EXPECT_TRUE(Apply({0xB0, 0, 0}));
    EXPECT_EQ(receiver.Take(), CValues({{0, 0.0}}));
}

TEST_F(MIDICCInput, ChannelZeroMatchesEveryChannelAnd16MatchesStatusNibble15) {
    Enable(0, 0, 7);
    Enable(1, 16, 7);
    for (int nibble = 0; nibble < 16; ++nibble) {
        EXPECT_TRUE(Apply({static_cast<unsigned char>(0xB0 + nibble), 7, 0}));
        EXPECT_EQ(receiver.Take(),
                  nibble == 15 ? CValues({{0, 0.0}, {1, 0.0}}) : CValues({{0, 0.0}}))
            << nibble;
    }
}

TEST_F(MIDICCInput, MatchesItsControllerAlone) {
    Enable(0, 1, 127);
    Enable(1, 2, 0);
    for (int number = 0; number < 128; ++number) {
        EXPECT_TRUE(Apply({0xB0, static_cast<unsigned char>(number), 127}));
        EXPECT_EQ(receiver.Take(), number == 127 ? CValues({{0, 100.0}}) : CValues()) << number;
    }
}

TEST_F(MIDICCInput, OnlyEnabledSettingsOfTypeCCAreDriven) {
    Enable(0, 0, 7);
    for (const int type : {1, 2, 3, -1}) {
        settings.Get(0).SetType(static_cast<EMIDICCType>(type));
        EXPECT_TRUE(Apply({0xB0, 7, 127}));
        EXPECT_EQ(receiver.Take(), CValues()) << type;
    }
    settings.Get(0).SetType(kMIDICCTypeCC);
    settings.Get(0).SetMIDIEnabled(false);
    EXPECT_TRUE(Apply({0xB0, 7, 127}));
    EXPECT_EQ(receiver.Take(), CValues());
}

TEST_F(MIDICCInput, OneControllerDrivesAnyNumberOfParametersInOrder) {
    for (int index = 0; index < 3; ++index) {
        Enable(index, index, 7);
    }
    settings.Get(1).SetMin(60.0);
    settings.Get(1).SetMax(-60.0);
    EXPECT_TRUE(Apply({0xB0, 7, 127}));
    EXPECT_EQ(receiver.Take(), CValues({{0, 100.0}, {1, -60.0}}));
    EXPECT_TRUE(Apply({0xB1, 7, 0}));
    EXPECT_EQ(receiver.Take(), CValues({{0, 0.0}, {2, 0.0}}));
}

TEST_F(MIDICCInput, EveryValueStandsForItsShareOfTheRange) {
    Enable(0, 0, 7);
    for (int value = 0; value < 128; ++value) {
        EXPECT_TRUE(Apply({0xB0, 7, static_cast<unsigned char>(value)}));
        const CValues values = receiver.Take();
        ASSERT_EQ(values.size(), 1u);
        EXPECT_NEAR(values[0].second, value * 100.0 / 127.0, 1e-12) << value;
    }
}

TEST_F(MIDICCInput, WithoutSettingsAControllerIsReceivedAllTheSame) {
    const CInfos none;
    const CInputMIDICCSettings empty(none);
    SetBytes(event, {0xB0, 1, 2});
    EXPECT_TRUE(ApplyMIDI(event, empty, message, receiver));
    EXPECT_EQ(message, (CMIDICCValues{1, 1, 2}));
}

TEST_F(MIDICCInput, MatchesWhileAnotherThreadChangesTheSettings) {
    Enable(0, 0, 7);
    settings.Get(0).SetMin(10.0);
    settings.Get(0).SetMax(20.0);
    std::atomic<bool> isStopping{false};
    std::thread writer([&] {
        for (int i = 0; !isStopping; ++i) {
            IMIDICCSetting& setting = settings.Get(0);
            setting.SetMin(i % 2 ? 10.0 : 30.0);
            setting.SetMax(i % 3 ? 20.0 : 40.0);
            setting.SetCurve(static_cast<DataModel::Objects::EParamValueCurve>(i % 15 - 1));
            setting.SetChannel(i % 17);
            setting.SetType(static_cast<EMIDICCType>(i % 3));
            setting.SetMIDIEnabled(i % 5 != 0);
        }
    });
    int values = 0;
    for (int i = 0; i < 20'000 || values < 100; ++i) {
        EXPECT_TRUE(Apply({0xB0, 7, static_cast<unsigned char>(i % 128)}));
        for (const auto& [index, value] : receiver.Take()) {
            ++values;
            EXPECT_EQ(index, 0);
            EXPECT_TRUE(value >= 10.0 - 1e-9 && value <= 40.0 + 1e-9) << value;
        }
        if (i > 20'000) {
            std::this_thread::yield(); // it is the writer that has to go on
        }
    }
    isStopping = true;
    writer.join();
}

} // namespace
} // namespace Vorin::Audio::Plugin
