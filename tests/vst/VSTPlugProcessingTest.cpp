// Blocks, the outputs that they refresh, and the MIDI that comes and goes with them.

#include "vst/VSTTestKit.h"

#include <limits>

namespace VorinExt::VSTPlugin::Testing {
namespace {

/// How often a word stands in a text.
int CountOf(const std::string& text, const std::string& word) {
    int count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        ++count;
    }
    return count;
}

class VSTPlugProcessingTest : public CPlugTest {
protected:
    /// What the filter was asked to do with a block of this value, without updates.
    std::string CallsOf(VstInt32 frames, float value) {
        filter.Take();
        Run(frames, value);
        std::string calls = filter.Take();
        for (std::size_t at = calls.find("update;"); at != std::string::npos;
             at = calls.find("update;")) {
            calls.erase(at, 7);
        }
        return calls;
    }
};

TEST_F(VSTPlugProcessingTest, AFilterWithOutputsIsHeard) {
    filter.gain = 3.0;
    Make();
    Start();
    EXPECT_EQ(Run(64), (std::vector<float>{1.5F, 1.5F}));
}

TEST_F(VSTPlugProcessingTest, AFilterWithoutOutputsPassesAudioThrough) {
    filter.channels = DSP::CProcessInfo(2, 0);
    Make();
    Start();
    std::vector<float> left{1, 2, 3};
    std::vector<float> right{4, 5, 6};
    std::vector<float> outLeft(3);
    std::vector<float> outRight(3);
    float* inputs[] = {left.data(), right.data()};
    float* outputs[] = {outLeft.data(), outRight.data()};
    plug->processReplacing(inputs, outputs, 3);
    EXPECT_EQ(outLeft, left);
    EXPECT_EQ(outRight, right);
    float* crossed[] = {right.data(), left.data()};
    plug->processReplacing(inputs, crossed, 3);
    EXPECT_EQ(left, (std::vector<float>{4, 5, 6}));
    EXPECT_EQ(right, (std::vector<float>{1, 2, 3}));
}

TEST_F(VSTPlugProcessingTest, AFilterWithoutChannelsRuns) {
    filter.channels = DSP::CProcessInfo(0, 0);
    Make();
    Start();
    EXPECT_EQ(CallsOf(64, 0.0F), "process 64;"); // nothing that could be silent
    plug->process(nullptr, nullptr, 64);
}

TEST_F(VSTPlugProcessingTest, SamplesUpToTheLimitAreSilence) {
    Make();
    Start();
    EXPECT_EQ(CallsOf(64, 0.0F), "silence 64;");
    EXPECT_EQ(CallsOf(64, -0.0F), "silence 64;");
    EXPECT_EQ(CallsOf(64, 9.9999e-11F), "silence 64;");
    EXPECT_EQ(CallsOf(64, -9.9999e-11F), "silence 64;");
    EXPECT_EQ(CallsOf(64, 1e-10F), "process 64;"); // the float lies above the limit
    EXPECT_EQ(CallsOf(64, -1.0F), "process 64;");
    EXPECT_EQ(CallsOf(64, std::numeric_limits<float>::denorm_min()), "silence 64;");
    EXPECT_EQ(CallsOf(64, std::numeric_limits<float>::quiet_NaN()), "process 64;");
    EXPECT_EQ(CallsOf(64, std::numeric_limits<float>::infinity()), "process 64;");
}

TEST_F(VSTPlugProcessingTest, OneLoudSampleInOneChannelIsSound) {
    Make();
    Start();
    std::vector<float> quiet(8);
    std::vector<float> loud(8);
    loud[7] = 1e-9F;
    std::vector<float> out(8);
    float* inputs[] = {quiet.data(), loud.data()};
    float* outputs[] = {out.data(), out.data()};
    filter.Take();
    plug->processReplacing(inputs, outputs, 8);
    EXPECT_EQ(CountOf(filter.Take(), "process 8;"), 1);
}

TEST_F(VSTPlugProcessingTest, ABlockWithoutFramesIsSilent) {
    Make();
    Start();
    EXPECT_EQ(CallsOf(0, 1.0F), "silence 0;");
}

TEST_F(VSTPlugProcessingTest, TheFilterNeverGetsMoreThanWasAnnounced) {
    Make();
    Start(48000.0F, 100);
    EXPECT_EQ(CallsOf(250, 1.0F), "process 100;process 100;process 50;");
    EXPECT_EQ(CallsOf(100, 1.0F), "process 100;");
    Start(48000.0F, 1 << 30); // announced, but never given
    const std::string calls = CallsOf(10000, 1.0F);
    EXPECT_EQ(CountOf(calls, "process"), 2) << calls;
}

TEST_F(VSTPlugProcessingTest, PiecesOfABlockStandWhereTheyBelong) {
    filter.gain = 2.0;
    Make();
    Start(48000.0F, 7);
    std::vector<float> in(50);
    std::vector<float> expected(50);
    for (std::size_t i = 0; i < in.size(); ++i) {
        in[i] = static_cast<float>(i + 1);
        expected[i] = 2.0F * in[i];
    }
    std::vector<float> left(50);
    std::vector<float> right(50);
    float* inputs[] = {in.data(), in.data()};
    float* outputs[] = {left.data(), right.data()};
    plug->processReplacing(inputs, outputs, 50);
    EXPECT_EQ(left, expected);
    EXPECT_EQ(right, expected);
    left.assign(50, 1.0F);
    plug->process(inputs, outputs, 50);
    for (std::size_t i = 0; i < in.size(); ++i) {
        EXPECT_EQ(left[i], expected[i] + 1.0F);
        EXPECT_EQ(right[i], 2.0F * expected[i]);
    }
}

TEST_F(VSTPlugProcessingTest, OutputsAreRefreshedAtTheirRate) {
    filter.outputs = {MakeParam("Level", "", 0.0, 4.0)};
    Make();
    Start(48000.0F, 480);
    filter.outputValues[0] = 2.0;
    Run(480);
    EXPECT_EQ(plug->getParameter(1), 0.5F); // at once after the start
    filter.outputValues[0] = 4.0;
    Run(480);
    EXPECT_EQ(plug->getParameter(1), 0.5F);
    Run(480); // 50 times a second
    EXPECT_EQ(plug->getParameter(1), 1.0F);
    EXPECT_EQ(host.Take(), "");
}

TEST_F(VSTPlugProcessingTest, TheRateOfTheOutputsIsThatOfTheGlobalSettings) {
    filter.outputs = {MakeParam("Level", "", 0.0, 4.0)};
    {
        Plugin::CAudioPluginInternals first({.filter = MakeFilter(filter), .gui = nullptr},
                                            settings);
        ASSERT_TRUE(settings.GetSettings().SetOutputRefreshRate(100.0));
    }
    Make();
    Start(48000.0F, 480);
    Run(480);
    for (int i = 1; i < 4; ++i) {
        filter.outputValues[0] = i;
        Run(480);
        EXPECT_EQ(plug->getParameter(1), static_cast<float>(i) / 4.0F);
    }
}

TEST_F(VSTPlugProcessingTest, AnIdlePlugShowsItsOutputsAtOnce) {
    filter.inputs = {MakeParam("Drive")};
    filter.outputs = {MakeParam("Level", "", 0.0, 4.0)};
    Make();
    filter.outputValues[0] = 3.0;
    plug->setParameter(1, 1.0F);
    EXPECT_EQ(plug->getParameter(2), 0.75F);
}

std::string OutputSettings(const std::string& first, const std::string& second) {
    return "<Preset version=\"3\" MIDIInputDefault=\"1\" MIDIOutputDefault=\"0\">"
           "<MIDIOutputSettings settingCount=\"2\"><setting0 " +
           first + "/><setting1 " + second + "/></MIDIOutputSettings></Preset>";
}

constexpr char kSilent[] = "channel=\"1\" version=\"3\" number=\"1\" midiEnabled=\"0\" "
                           "automationEnabled=\"0\" curve=\"Linear\" min=\"0\" max=\"4\" "
                           "type=\"CC\"";
constexpr char kAutomated[] = "channel=\"1\" version=\"3\" number=\"1\" midiEnabled=\"0\" "
                              "automationEnabled=\"1\" curve=\"Linear\" min=\"0\" max=\"4\" "
                              "type=\"CC\"";
constexpr char kSending[] = "channel=\"5\" version=\"3\" number=\"7\" midiEnabled=\"1\" "
                            "automationEnabled=\"0\" curve=\"Linear\" min=\"0\" max=\"4\" "
                            "type=\"CC\"";

class VSTPlugOutputsTest : public VSTPlugProcessingTest {
protected:
    void SetUp() override {
        filter.outputs = {MakeParam("One", "", 0.0, 4.0), MakeParam("Two", "", 0.0, 4.0)};
        Make();
    }

    void Use(const std::string& first, const std::string& second) {
        ASSERT_EQ(SetChunk(OutputSettings(first, second)), 1);
        Start(48000.0F, 960); // a refresh per block
        Run(960);
        host.Take();
    }
};

TEST_F(VSTPlugOutputsTest, AnAutomatedOutputIsHeldWhileBlocksRun) {
    ASSERT_EQ(SetChunk(OutputSettings(kSilent, kAutomated)), 1);
    Start(48000.0F, 960);
    host.Take();
    filter.outputValues = {1.0, 2.0};
    Run(960);
    EXPECT_EQ(host.Take(), "begin 2;automate 2 0.5;");
    filter.outputValues = {2.0, 3.0};
    Run(960);
    EXPECT_EQ(host.Take(), "automate 2 0.75;");
    EXPECT_EQ(plug->getParameter(1), 0.5F); // the other one, of which nobody is told
    plug->suspend();
    const std::string calls = host.Take();
    EXPECT_EQ(CountOf(calls, "end 2;"), 1) << calls;
    EXPECT_EQ(CountOf(calls, "end"), 1) << calls;
    plug->suspend();
    EXPECT_EQ(CountOf(host.Take(), "end"), 0);
}

TEST_F(VSTPlugOutputsTest, AnOutputSendsItsController) {
    Use(kSilent, kSending);
    filter.outputValues = {1.0, 4.0};
    Run(960);
    EXPECT_EQ(host.Take(), "midi b4 07 7f;");
    ASSERT_EQ(host.lastEvents.size(), 1U);
    EXPECT_EQ(host.lastEvents[0].type, kVstMidiType);
    EXPECT_EQ(host.lastEvents[0].byteSize, 32);
    EXPECT_EQ(host.lastEvents[0].deltaFrames, 0);
    EXPECT_EQ(host.lastEvents[0].flags, 0);
}

TEST_F(VSTPlugOutputsTest, AControllerThatDoesNotMoveIsSilent) {
    Use(kSilent, kSending);
    filter.outputValues = {0.0, 2.0};
    Run(960);
    EXPECT_EQ(host.Take(), "midi b4 07 40;"); // 63.5, rounded up
    filter.outputValues = {1.0, 2.01};
    Run(960);
    EXPECT_EQ(host.Take(), ""); // below one step
    filter.outputValues = {1.0, 2.04};
    Run(960);
    EXPECT_EQ(host.Take(), "midi b4 07 41;");
}

TEST_F(VSTPlugOutputsTest, TwoOutputsOnOneControllerBothSend) {
    Use(kSending, kSending);
    filter.outputValues = {4.0, 2.0};
    Run(960);
    EXPECT_EQ(host.Take(), "midi b4 07 7f;midi b4 07 40;");
}

TEST_F(VSTPlugOutputsTest, AllControllersAreSentAnewAfterResumeAndAfterAState) {
    Use(kSending, kSilent);
    filter.outputValues = {4.0, 0.0};
    Run(960);
    EXPECT_EQ(host.Take(), "midi b4 07 7f;");
    Run(960);
    EXPECT_EQ(host.Take(), "");
    plug->suspend();
    plug->resume();
    Run(960);
    EXPECT_EQ(host.Take(), "midi b4 07 7f;");
    ASSERT_EQ(SetChunk(GetChunk()), 1);
    Run(960);
    EXPECT_EQ(host.Take(), "midi b4 07 7f;");
}

/// A list of events as a host makes it, of two at most.
class VSTPlugEventsTest : public VSTPlugProcessingTest {
protected:
    void SetUp() override {
        filter.inputs = {MakeParam("Drive", "", 0.0, 254.0)};
        Make();
        ASSERT_EQ(SetChunk("<Preset MIDIInputDefault=\"0\"><MIDIInputSettings settingCount=\"2\">"
                           "<setting0 channel=\"0\" version=\"3\" number=\"1\" midiEnabled=\"0\" "
                           "automationEnabled=\"1\" curve=\"Linear\" min=\"0\" max=\"1\" "
                           "type=\"CC\"/>"
                           "<setting1 channel=\"0\" version=\"3\" number=\"9\" midiEnabled=\"1\" "
                           "automationEnabled=\"1\" curve=\"Linear\" min=\"0\" max=\"254\" "
                           "type=\"CC\"/></MIDIInputSettings></Preset>"),
                  1);
        host.Take();
    }

    void Send(VstMidiEvent first) {
        VstEvents list{};
        list.numEvents = 1;
        list.events[0] = reinterpret_cast<VstEvent*>(&first);
        EXPECT_EQ(plug->processEvents(&list), 1);
    }

    static VstMidiEvent Controller(int number, int value) {
        VstMidiEvent event{};
        event.type = kVstMidiType;
        event.byteSize = sizeof event;
        event.midiData[0] = static_cast<char>(0xb0);
        event.midiData[1] = static_cast<char>(number);
        event.midiData[2] = static_cast<char>(value);
        return event;
    }
};

TEST_F(VSTPlugEventsTest, AControllerDrivesAParameterAsAGesture) {
    Send(Controller(9, 127));
    EXPECT_EQ(host.Take(), "begin 1;automate 1 1;end 1;");
    Send(Controller(9, 0));
    EXPECT_EQ(host.Take(), "begin 1;automate 1 0;end 1;");
    Send(Controller(8, 99));
    EXPECT_EQ(host.Take(), "");
}

TEST_F(VSTPlugEventsTest, WhatAControllerSetsReachesTheFilterWithTheBlock) {
    Start();
    Run(64);
    Send(Controller(9, 64));
    EXPECT_EQ(filter.inputValues[0], 0.0);
    Run(64);
    EXPECT_DOUBLE_EQ(filter.inputValues[0], 128.0);
}

TEST_F(VSTPlugEventsTest, EventsOfOtherTypesAreSkipped) {
    for (const VstInt32 type :
         {kVstAudioType, kVstVideoType, kVstParameterType, kVstTriggerType, kVstSysExType}) {
        VstMidiEvent event = Controller(9, 127);
        event.type = type;
        Send(event);
    }
    EXPECT_EQ(host.Take(), "");
}

TEST_F(VSTPlugEventsTest, AListWithoutEventsIsTaken) {
    VstEvents list{};
    EXPECT_EQ(plug->processEvents(&list), 1);
    list.numEvents = 1; // but there is none
    EXPECT_EQ(plug->processEvents(&list), 1);
    EXPECT_EQ(host.Take(), "");
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
