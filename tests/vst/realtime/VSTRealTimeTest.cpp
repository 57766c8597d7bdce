// That the plug-in behind the host's interface neither allocates nor waits on the audio thread,
// while other threads do with it what hosts do.

#include "audio/dsp/ForwardingFilter.h"
#include "audio/plugin/realtime/RealTimeGuard.h"
#include "containers/DynamicCollection.h"
#include "files/TemporaryFolder.h"
#include "filters/OndaraFilter.h"
#include "vst/Product.h"
#include "vst/VSTPlug.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace VorinExt::VSTPlugin {
namespace {

namespace DSP = Vorin::Audio::DSP;

constexpr std::size_t kLargestBlock = 1024;

/// 50,000 blocks unless ONDARA_BLOCKS asks for more.
int GetBlocksCount() {
    const char* text = std::getenv("ONDARA_BLOCKS");
    const int blocks = text ? std::atoi(text) : 0;
    return blocks > 0 ? blocks : 50'000;
}

std::atomic<int> eventsSent{0}; // to the host

VstIntPtr AnswerHost(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void* ptr, float) {
    if (opcode == audioMasterProcessEvents) {
        eventsSent += static_cast<const VstEvents*>(ptr)->numEvents;
    }
    return opcode == audioMasterVersion ? kVstVersion : 0;
}

/// The product's filter with two outputs that move at each update, so that controllers go out.
class CMeteringFilter : public DSP::CForwardingFilter {
public:
    CMeteringFilter() {
        using namespace Vorin::DataModel::Objects;
        for (const char* name : {"Automated", "Silent"}) {
            infos.Add(CParamInfo(kParamReal, name, "", "", nullptr, nullptr, 0.0, 1.0, 0.0));
        }
    }

    DSP::IFilter* Clone() const override { return new CMeteringFilter; }
    void Init(const DSP::CFilterConfig& config, double hz) override { filter->Init(config, hz); }
    void SetInputParams(const DSP::IConstFilterPropertiesVariations& given) override {
        filter->SetInputParams(given);
    }
    void Process(const DSP::CProcessRecord& record) override { filter->Process(record); }
    bool ProcessSilence(const DSP::CProcessRecord& record) override {
        return filter->ProcessSilence(record);
    }
    void UpdateOutputs() override {
        filter->UpdateOutputs();
        const double level = values.GetValue(0) > 0.9 ? 0.0 : values.GetValue(0) + 0.03;
        values.SetValue(0, level);
        values.SetValue(1, 1.0 - level);
    }

    const DSP::IConstParamInfos& GetOutputParamInfos() const override { return infos; }
    const DSP::IConstParamsValues& GetOutputParamValues() const override { return values; }
    const DSP::IConstParamInfos& GetPrivateOutputParamInfos() const override {
        return filter->GetPrivateOutputParamInfos();
    }
    const DSP::IConstStringInfos& GetOutputStringInfos() const override {
        return filter->GetOutputStringInfos();
    }
    const DSP::IConstCurveInfos& GetOutputCurveInfos() const override {
        return filter->GetOutputCurveInfos();
    }
    const DSP::IConstSurfaceInfos& GetOutputSurfaceInfos() const override {
        return filter->GetOutputSurfaceInfos();
    }
    const DSP::IConstPropertyInfos& GetOutputPropertyInfos() const override {
        return filter->GetOutputPropertyInfos();
    }

private:
    const DSP::IFilter& Target() const override { return *filter; }
    DSP::IFilter& Target() override { return *filter; }

    const std::unique_ptr<DSP::IFilter> filter = PluginsFilters::CreateOndaraFilter();
    Vorin::CoreUtilities::TDynamicCollection<Vorin::DataModel::Objects::CParamInfo,
                                             Vorin::DataModel::Objects::IConstParamInfo>
        infos;
    DSP::CParamsValues values{2};
};

/// A state in which each parameter has its own controller, of the same number as itself.
std::string MakeState(double delay, const std::string& outputs = "MIDIOutputDefault=\"1\">") {
    std::string text = "<Preset version=\"3\" progName=\"Test\" MIDIInputDefault=\"0\" " + outputs +
                       "<MIDIInputSettings settingCount=\"7\">";
    constexpr const char* maxima[] = {"1", "1", "2", "1", "300", "1", "1"};
    for (std::size_t i = 0; i < 7; ++i) {
        text += "<setting" + std::to_string(i) + " channel=\"0\" version=\"3\" number=\"" +
                std::to_string(i) +
                "\" midiEnabled=\"1\" automationEnabled=\"1\" curve=\"Exp1\" min=\"0\" max=\"" +
                maxima[i] + "\" type=\"CC\"/>";
    }
    return text + "</MIDIInputSettings><inputParams count=\"7\" p4=\"" + std::to_string(delay) +
           "\" p6=\"1\"/></Preset>";
}

/// The audio thread of a host: all that it calls, it calls under the guard.
class CAudioThread {
public:
    explicit CAudioThread(CVSTPlug& hostedPlug) : plug(hostedPlug) {
        for (float& sample : noise) {
            sample = static_cast<float>(random() % 2001) / 1000.0F - 1.0F;
        }
        for (std::size_t i = 0; i < events.size(); ++i) {
            list.events[i] = reinterpret_cast<VstEvent*>(&events[i]);
        }
    }

    void Run(int blocks) {
        for (int block = 0; block < blocks && !testing::Test::HasFailure(); ++block) {
            RunBlock(static_cast<VstInt32>(random() % kLargestBlock));
        }
    }

    void RunBlock(VstInt32 frames) {
        MakeEvents();
        if (random() % 400 == 0) {
            silentBlocks = 150;
        }
        float* const source = silentBlocks > 0 ? silence.data() : noise.data();
        silentBlocks -= silentBlocks > 0 ? 1 : 0;
        float* inputs[] = {source, source + kLargestBlock};
        float* crossed[] = {source + kLargestBlock, source};
        float* outputs[] = {output.data(), output.data() + kLargestBlock};
        const std::size_t layout = random() % 3;
        float** const target = layout == 0 ? outputs : layout == 1 ? inputs : crossed;
        const bool isAutomated = automates && random() % 4 == 0;
        const auto param = static_cast<VstInt32>(random() % 7);
        const float value = static_cast<float>(random() % 101) / 100.0F;
        {
            const RealTime::CGuard guard;
            plug.processEvents(&list);
            if (isAutomated) {
                plug.setParameter(param, value);
            }
            plug.processReplacing(inputs, target, frames);
        }
        ASSERT_EQ(RealTime::GetViolationsCount(), 0)
            << RealTime::GetFirstViolation() << " in a block of " << frames;
    }

    bool automates = true;

private:
    void MakeEvents() {
        list.numEvents = static_cast<VstInt32>(random() % 3);
        for (VstMidiEvent& event : events) {
            event = {};
            event.type = random() % 5 == 0 ? kVstSysExType : kVstMidiType;
            event.byteSize = sizeof event;
            event.midiData[0] = static_cast<char>(random() % 4 == 0 ? random() % 256 : 0xb0);
            event.midiData[1] = static_cast<char>(random() % 8);
            event.midiData[2] = static_cast<char>(random() % 128);
        }
    }

    CVSTPlug& plug;
    std::mt19937 random{5};
    int silentBlocks = 0;
    std::vector<float> noise = std::vector<float>(2 * kLargestBlock);
    std::vector<float> silence = std::vector<float>(2 * kLargestBlock);
    std::vector<float> output = std::vector<float>(2 * kLargestBlock);
    std::array<VstMidiEvent, 2> events{};
    VstEvents list{};
};

class VSTRealTimeTest : public testing::Test {
protected:
    VSTRealTimeTest() {
        setenv("XDG_DATA_HOME", folder.GetPath().c_str(), 1);
        plug = std::make_unique<CVSTPlug>(&AnswerHost, CreateProductConfig(), GetStaticSettings());
    }
    void SetUp() override { RealTime::Forget(); }
    void TearDown() override { RealTime::Forget(); }

    void Start(float hz) {
        plug->suspend();
        plug->setSampleRate(hz);
        plug->setBlockSize(static_cast<VstInt32>(kLargestBlock));
        plug->resume();
    }
    bool Load(std::string state) {
        return plug->setChunk(state.data(), static_cast<VstInt32>(state.size()), false) == 1;
    }

    TestFiles::CTemporaryFolder folder;
    std::unique_ptr<CVSTPlug> plug;
};

TEST_F(VSTRealTimeTest, BlocksWithAutomationAndMIDIAtMixedRatesNeitherAllocateNorWait) {
    ASSERT_TRUE(Load(MakeState(10.0)));
    CAudioThread audio(*plug);
    for (const float hz : {44100.0F, 8000.0F, 192000.0F, 48000.0F}) {
        Start(hz);
        audio.Run(GetBlocksCount() / 8);
    }
}

TEST_F(VSTRealTimeTest, NeitherDoTheyWhileStatesAreLoadedAndSavedOnAnotherThread) {
    Start(48000.0F);
    std::atomic<bool> isOver{false};
    std::atomic<int> loads{0};
    std::thread other([&] {
        for (int round = 0; !isOver; ++round) {
            ASSERT_TRUE(Load(MakeState(round % 300)));
            ASSERT_FALSE(Load("<Preset><inputParams count=\"-1\"/></Preset>"));
            void* data = nullptr;
            ASSERT_GT(plug->getChunk(&data, false), 1);
            ++loads;
        }
    });
    CAudioThread audio(*plug);
    audio.Run(GetBlocksCount() / 2);
    isOver = true;
    other.join();
    EXPECT_GT(loads, 10);
}

TEST_F(VSTRealTimeTest, NeitherDoTheyWhileControllersGoOut) {
    constexpr char kOutputs[] =
        "MIDIOutputDefault=\"0\"><MIDIOutputSettings settingCount=\"2\">"
        "<setting0 channel=\"1\" version=\"3\" number=\"20\" midiEnabled=\"1\" "
        "automationEnabled=\"1\" curve=\"Linear\" min=\"0\" max=\"1\" type=\"CC\"/>"
        "<setting1 channel=\"16\" version=\"3\" number=\"21\" midiEnabled=\"1\" "
        "automationEnabled=\"0\" curve=\"Exp2\" min=\"0\" max=\"1\" type=\"CC\"/>"
        "</MIDIOutputSettings>";
    auto config = CreateProductConfig();
    config.filter = std::make_unique<CMeteringFilter>();
    config.filter->Init({.applyDefaults = true, .mode = 2}, 44100.0);
    plug = std::make_unique<CVSTPlug>(&AnswerHost, std::move(config), GetStaticSettings());
    ASSERT_TRUE(Load(MakeState(5.0, kOutputs)));
    Start(48000.0F);
    eventsSent = 0;
    CAudioThread audio(*plug);
    audio.Run(GetBlocksCount() / 4);
    EXPECT_GT(eventsSent, GetBlocksCount() / 40);
}

TEST_F(VSTRealTimeTest, NeitherDoTheyWhileTheHostSetsThePlugInUpAnew) {
    Start(48000.0F);
    std::atomic<bool> isOver{false};
    std::thread other([&] {
        VstSpeakerArrangement stereo{};
        stereo.type = kSpeakerArrStereo;
        stereo.numChannels = 2;
        for (int round = 0; !isOver; ++round) {
            plug->setSampleRate(round % 2 == 0 ? 44100.0F : 96000.0F);
            plug->setBlockSize(64 + round % 1000);
            plug->resume();
            plug->setSpeakerArrangement(&stereo, &stereo);
            plug->suspend();
        }
    });
    CAudioThread audio(*plug);
    audio.automates = false; // a host that suspends does not automate just then
    audio.Run(GetBlocksCount() / 4);
    isOver = true;
    other.join();
}

TEST_F(VSTRealTimeTest, TheAccumulatingCallNeitherAllocatesNorWaits) {
    Start(48000.0F);
    std::vector<float> in(kLargestBlock, 0.5F);
    std::vector<float> out(kLargestBlock);
    float* inputs[] = {in.data(), in.data()};
    float* outputs[] = {out.data(), out.data()};
    for (VstInt32 frames : {1, 64, 1024, 700}) {
        const RealTime::CGuard guard;
        plug->process(inputs, outputs, frames);
    }
    EXPECT_EQ(RealTime::GetViolationsCount(), 0) << RealTime::GetFirstViolation();
}

// The guard sees what it is to see: what is not for the audio thread, called on it.
TEST_F(VSTRealTimeTest, SeesAStateThatIsSavedOnTheAudioThread) {
    void* data = nullptr;
    {
        const RealTime::CGuard guard;
        plug->getChunk(&data, false);
    }
    EXPECT_GT(RealTime::GetViolationsCount(), 0);
}

TEST_F(VSTRealTimeTest, SeesThatResumeAllocates) {
    {
        const RealTime::CGuard guard;
        Start(96000.0F);
    }
    EXPECT_GT(RealTime::GetViolationsCount(), 0);
}

TEST_F(VSTRealTimeTest, AnInstanceLeavesNoMemoryBehind) {
    const auto use = [] {
        CVSTPlug other(&AnswerHost, CreateProductConfig(), GetStaticSettings());
        other.resume();
        void* data = nullptr;
        EXPECT_GT(other.getChunk(&data, false), 1);
    };
    use(); // what all instances share
    const std::int64_t before = RealTime::GetLiveBytes();
    for (int i = 0; i < 10; ++i) {
        use();
    }
    EXPECT_EQ(RealTime::GetLiveBytes(), before);
}

} // namespace
} // namespace VorinExt::VSTPlugin
