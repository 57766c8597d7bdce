// Calls that no host should make, and that some make all the same.

#include "host/State.h"

#include <cmath>
#include <limits>

namespace TestHost {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr VstInt32 kLeast = std::numeric_limits<VstInt32>::min();
constexpr VstInt32 kMost = std::numeric_limits<VstInt32>::max();

class HostileInputTest : public CHostTest {
protected:
    void TearDown() override { ExpectUsable(); }

    /// It still runs, and gives its audio on.
    void ExpectUsable() {
        plugin.Start();
        std::vector<float> in(64, 0.5F);
        std::vector<float> out(64, 0.0F);
        float* inputs[] = {in.data(), in.data()};
        float* outputs[] = {out.data(), out.data()};
        plugin.Process(inputs, outputs, 64);
        EXPECT_EQ(out, in);
        EXPECT_FALSE(plugin.GetChunk().empty());
    }
};

TEST_F(HostileInputTest, NullPointersAreAnsweredWithNothing) {
    for (VstInt32 opcode = 2; opcode < 100; ++opcode) {
        plugin.Ask(opcode);
        plugin.Ask(opcode, 0, 1);
    }
    EXPECT_EQ(plugin.Ask(effGetChunk), 0);
    EXPECT_EQ(plugin.Ask(effSetChunk, 0, 100), 0);
    EXPECT_EQ(plugin.Ask(effProcessEvents), 0);
    EXPECT_EQ(plugin.Ask(effCanDo), 0);
    EXPECT_EQ(plugin.Ask(effSetSpeakerArrangement), 0);
    VstSpeakerArrangement stereo{};
    stereo.numChannels = 2;
    EXPECT_EQ(plugin.Ask(effSetSpeakerArrangement, 0, 0, &stereo), 0);
    EXPECT_EQ(
        plugin.Ask(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&stereo), nullptr), 0);
}

TEST_F(HostileInputTest, NullBuffersAreSilence) {
    plugin.Start();
    std::vector<float> samples(64, 0.5F);
    std::vector<float> out(64, 7.0F);
    float* none[] = {nullptr, nullptr};
    float* half[] = {nullptr, samples.data()};
    float* outputs[] = {out.data(), nullptr};
    plugin.Process(nullptr, nullptr, 64);
    plugin.Process(none, none, 64);
    plugin.Process(half, none, 64);
    plugin.Process(nullptr, outputs, 64);
    EXPECT_EQ(out, std::vector<float>(64, 0.0F));
    out.assign(64, 7.0F);
    plugin.Process(half, outputs, 64);
    EXPECT_EQ(out, std::vector<float>(64, 0.0F));
    plugin.Get()->process(plugin.Get(), nullptr, nullptr, 64);
    plugin.Get()->process(plugin.Get(), half, outputs, 64);
}

TEST_F(HostileInputTest, OpcodesOutsideTheInterfaceDoNothing) {
    const std::string before = plugin.GetChunk();
    char bytes[512] = {};
    for (const VstInt32 opcode : {-1, 80, 99, 1000, 0xdead, kLeast, kMost}) {
        EXPECT_EQ(plugin.Ask(opcode, -1, -1, bytes, kNaN), 0) << opcode;
    }
    EXPECT_EQ(plugin.GetChunk(), before);
}

TEST_F(HostileInputTest, IndicesOutOfRangeDoNothing) {
    const std::string before = plugin.GetChunk();
    for (const VstInt32 index : {-1, VstInt32{kParamsCount}, 1000, kLeast, kMost}) {
        plugin.Set(index, 1.0F);
        EXPECT_EQ(plugin.GetParam(index), 0.0F);
        EXPECT_EQ(plugin.Ask(effCanBeAutomated, index), 0);
        VstPinProperties pin{};
        EXPECT_EQ(plugin.Ask(effGetInputProperties, index, 0, &pin), 0);
        EXPECT_EQ(pin.flags, 0);
        EXPECT_EQ(plugin.Ask(effGetOutputProperties, index, 0, &pin), 0);
        plugin.Ask(effConnectInput, index, 1);
        plugin.Ask(effConnectOutput, index, 1);
        char text[256] = "";
        EXPECT_EQ(plugin.Ask(effGetProgramNameIndexed, index, -1, text), 0);
        plugin.Ask(effSetProgram, 0, index);
        plugin.Ask(effString2Parameter, index, 0, text);
    }
    EXPECT_EQ(plugin.Ask(effGetProgram), 0);
    EXPECT_EQ(plugin.GetChunk(), before);
}

TEST_F(HostileInputTest, BlocksOfNoAndNegativeFramesTouchNoSample) {
    plugin.Start();
    float in = 0.5F;
    float out = 7.0F;
    float* inputs[] = {&in, &in};
    float* outputs[] = {&out, &out};
    for (const VstInt32 frames : {0, -1, -512, kLeast}) {
        plugin.Process(inputs, outputs, frames);
        plugin.Get()->process(plugin.Get(), inputs, outputs, frames);
        plugin.Get()->processDoubleReplacing(plugin.Get(), nullptr, nullptr, frames);
        plugin.Process(nullptr, nullptr, frames);
    }
    EXPECT_EQ(in, 0.5F);
    EXPECT_EQ(out, 7.0F);
}

TEST_F(HostileInputTest, RatesThatAreNoneAreNotTaken) {
    for (const float hz : {0.0F, -1.0F, -48000.0F, kNaN, kInfinity, -kInfinity}) {
        plugin.Start(48000.0F);
        plugin.Start(hz);
        EXPECT_EQ(plugin.Ask(effGetTailSize), 48000) << hz; // of the last rate
        plugin.Run(512);
    }
    for (const float hz : {1e-38F, 1e-45F, 0.001F, 1.0F, 3.5F, 3e6F, 1e7F, 3e38F}) {
        plugin.Start(hz);
        plugin.Run(512);
        plugin.Run(1);
    }
}

TEST_F(HostileInputTest, BlockSizesThatAreNoneAreNotTaken) {
    for (const VstIntPtr frames :
         {VstIntPtr{0}, VstIntPtr{-1}, VstIntPtr{-512}, VstIntPtr{kLeast},
          std::numeric_limits<VstIntPtr>::min(), std::numeric_limits<VstIntPtr>::max(),
          VstIntPtr{kMost} + 1, VstIntPtr{kMost}, VstIntPtr{1}}) {
        plugin.Ask(effSetBlockSize, 0, frames);
        plugin.Ask(effSetBlockSizeAndSampleRate, 0, frames, nullptr, 44100.0F);
        plugin.Ask(effMainsChanged, 0, 1);
        plugin.Run(512);
        plugin.Run(10000);
        plugin.Ask(effMainsChanged, 0, 0);
    }
}

TEST_F(HostileInputTest, ParameterValuesThatAreNoneAreNotTaken) {
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        plugin.Set(i, 0.0F);
        for (const float value : {kNaN, -kNaN, kInfinity, -kInfinity}) {
            plugin.Set(i, value);
            EXPECT_EQ(plugin.GetParam(i), 0.0F) << i;
        }
    }
}

TEST_F(HostileInputTest, ParameterValuesOutOfRangeAreItsEnds) {
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        for (const float value : {1.5F, 1e30F, std::numeric_limits<float>::max()}) {
            plugin.Set(i, 0.0F);
            plugin.Set(i, value);
            EXPECT_EQ(plugin.GetParam(i), 1.0F) << i;
            plugin.Set(i, -value);
            EXPECT_EQ(plugin.GetParam(i), 0.0F) << i;
        }
        plugin.Set(i, std::numeric_limits<float>::denorm_min());
        EXPECT_GE(plugin.GetParam(i), 0.0F);
        EXPECT_LT(plugin.GetParam(i), 1e-6F);
    }
}

TEST_F(HostileInputTest, ABypassOfExactlyHalfIsNone) {
    plugin.Set(kBypass, 0.5F);
    EXPECT_EQ(plugin.Text(effGetParamDisplay, kBypass, 24), "Off");
    plugin.Set(kBypass, std::nextafter(0.5F, 1.0F));
    EXPECT_EQ(plugin.Text(effGetParamDisplay, kBypass, 24), "On");
}

TEST_F(HostileInputTest, ArrangementsOfOtherShapesAreRefusedAndChangeNothing) {
    plugin.Start();
    std::mt19937 random(17);
    const VstInt32 counts[] = {0, 1, 2, 3, 8, 64, 1000000, -1, -2, kLeast, kMost};
    for (const VstInt32 inputs : counts) {
        for (const VstInt32 outputs : counts) {
            VstSpeakerArrangement in{};
            in.type = static_cast<VstInt32>(random());
            in.numChannels = inputs;
            VstSpeakerArrangement out{};
            out.type = static_cast<VstInt32>(random());
            out.numChannels = outputs;
            const bool isFit = inputs == 2 && (outputs == 2 || outputs == 0);
            EXPECT_EQ(
                plugin.Ask(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&in), &out),
                isFit ? 1 : 0)
                << inputs << " to " << outputs;
            EXPECT_EQ(plugin.Get()->numInputs, 2);
            EXPECT_EQ(plugin.Get()->numOutputs, 2);
            plugin.Run(32);
        }
    }
}

TEST_F(HostileInputTest, ARefusedArrangementLeavesThePinsAsTheyWere) {
    VstSpeakerArrangement mono{};
    mono.type = kSpeakerArrMono;
    mono.numChannels = 1;
    EXPECT_EQ(plugin.Ask(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&mono), &mono),
              0);
    VstPinProperties pin{};
    EXPECT_EQ(plugin.Ask(effGetInputProperties, 0, 0, &pin), 0);
    EXPECT_EQ(pin.flags, kVstPinIsActive);
}

TEST_F(HostileInputTest, EventsOfAnyBytesTypesAndTimesAreTaken) {
    std::vector<CControl> controls;
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        controls.push_back({i, i % 3, static_cast<int>(i)});
    }
    ASSERT_EQ(plugin.SetChunk(ControlledState(CValues{}, controls)), 1);
    plugin.Start();
    std::mt19937 random(19);
    CEvents events(16);
    for (int round = 0; round < 4000; ++round) {
        events.Clear();
        for (int i = 0; i < 16; ++i) {
            VstMidiEvent& event =
                events.Add(static_cast<int>(random() % 256), static_cast<int>(random() % 256),
                           static_cast<int>(random() % 256), static_cast<VstInt32>(random()));
            if (random() % 4 == 0) {
                event.type = static_cast<VstInt32>(random() % 9) - 1;
                event.byteSize = static_cast<VstInt32>(random());
                event.flags = static_cast<VstInt32>(random());
            }
        }
        EXPECT_EQ(plugin.Ask(effProcessEvents, 0, 0, events.Get()), 1);
        plugin.Run(static_cast<VstInt32>(random() % 64));
        for (VstInt32 i = 0; i < kParamsCount; ++i) {
            ASSERT_TRUE(plugin.GetParam(i) >= 0.0F && plugin.GetParam(i) <= 1.0F);
        }
    }
}

TEST_F(HostileInputTest, EventListsWithHolesAndNegativeCountsAreTaken) {
    plugin.Start();
    CEvents events(4);
    events.Put(nullptr);
    events.Add(0xb0, 1, 2);
    events.Put(nullptr);
    EXPECT_EQ(plugin.Ask(effProcessEvents, 0, 0, events.Get()), 1);
    for (const VstInt32 count : {0, -1, kLeast}) {
        events.Get()->numEvents = count;
        EXPECT_EQ(plugin.Ask(effProcessEvents, 0, 0, events.Get()), 1);
    }
}

TEST_F(HostileInputTest, CallsInAnyOrderAreTaken) {
    std::mt19937 random(23);
    for (int i = 0; i < 60; ++i) {
        plugin.Ask(effMainsChanged, 0, static_cast<VstIntPtr>(random() % 2));
        plugin.Ask(static_cast<VstInt32>(random() % 2 == 0 ? effStartProcess : effStopProcess));
        plugin.Ask(effOpen);
        plugin.Run(static_cast<VstInt32>(random() % 700));
        plugin.Ask(effSetBypass, 0, static_cast<VstIntPtr>(random() % 2));
    }
}

} // namespace
} // namespace TestHost
