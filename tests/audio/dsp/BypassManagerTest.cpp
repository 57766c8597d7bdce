#include "audio/dsp/BypassManager.h"

#include "audio/dsp/BaseCoreDSPFilter.h"
#include "audio/dsp/FilterTestKit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace Vorin::Audio::DSP {
namespace {

using Samples = std::vector<float>;

/// Delays its input by its latency and multiplies it. It writes down which call it got.
class CLateFilter : public CBaseCoreDSPFilter {
public:
    CLateFilter(int inputs, int outputs) : info(inputs, outputs) {}

    IFilter* Clone() const override { return new CLateFilter(*this); }
    const IConstFilterProductInfo& GetProductInfo() const override {
        static const CFilterProductInfo product("", "Late", "", "", "", 0, "");
        return product;
    }
    const IProcessInfo& GetIOConfigurations() const override { return info; }
    int GetLatency() const override { return latency; }
    int GetTailSamples() const override { return tail; }

    void Process(const CProcessRecord& record) override {
        Note("process", record);
        CBaseCoreDSPFilter::Process(record);
    }
    bool ProcessSilence(const CProcessRecord& record) override {
        Note("silence", record);
        return CBaseCoreDSPFilter::ProcessSilence(record);
    }

    std::string TakeCalls() {
        std::string taken;
        taken.swap(calls);
        return taken;
    }

    int latency = 0;
    int tail = 0;
    float gain = 0.25F;
    bool notesInput = false; ///< whether the calls tell the first sample of the first channel

protected:
    void OnSilence(int) override { history.clear(); }
    void OnProcess(IAudioStreams& inputs, IAudioStreams& outputs, int frames,
                   const IConstInputRamp*) override {
        const int inputsCount = info.GetInputInfos().GetCount();
        history.resize(static_cast<std::size_t>(inputsCount));
        for (int channel = 0; channel < inputsCount; ++channel) {
            Run(channel, inputs, outputs, frames);
        }
    }

private:
    void Note(const char* what, const CProcessRecord& record) {
        calls += what;
        if (notesInput) {
            calls += std::to_string(record.inputs->Get(0).GetConstData()[0]);
        }
        calls += ";";
    }

    void Run(int channel, IAudioStreams& inputs, IAudioStreams& outputs, int frames) {
        Samples& line = history[static_cast<std::size_t>(channel)];
        line.resize(static_cast<std::size_t>(latency));
        const IAudioStream* input = StreamAt(&inputs, channel);
        IAudioStream* output = StreamAt(&outputs, channel);
        for (int i = 0; i < frames; ++i) {
            line.push_back(input ? input->GetConstData()[i * input->GetStride()] : 0.0F);
            if (output && output->GetData()) {
                output->GetData()[i * output->GetStride()] = line.front() * gain;
            }
            line.erase(line.begin());
        }
    }

    CProcessInfo info;
    std::vector<Samples> history;
    std::string calls;
};

class BypassManagerTest : public ::testing::Test {
protected:
    static constexpr int kBlock = 16;

    /// At 1000 Hz a fade of 10 ms takes 10 frames, unless the latency makes it longer.
    void Init(int latency, double rampMilliseconds = 10.0) {
        late.latency = latency;
        filter.Init({}, 1000.0);
        manager.Init(filter, 1, 1, kBlock, 1000.0);
        manager.SetRampTime(rampMilliseconds);
    }

    Samples Run(const Samples& input) {
        CTestChannels inputs{input};
        CTestChannels outputs(1, static_cast<int>(input.size()), 99.0F);
        manager.Process(MakeRecord(inputs, outputs, static_cast<int>(input.size())));
        return outputs.Samples(0);
    }

    Samples RunSilence(int frames) {
        CTestChannels inputs(1, frames);
        CTestChannels outputs(1, frames, 99.0F);
        sounds = manager.ProcessSilence(MakeRecord(inputs, outputs, frames));
        return outputs.Samples(0);
    }

    Samples Ones(int frames) { return Run(Samples(static_cast<std::size_t>(frames), 1.0F)); }

    /// Bypasses and runs until nothing fades any more.
    void SettleBypassed() {
        manager.SetBypass(true);
        for (int i = 0; i < 10; ++i) {
            Ones(kBlock);
        }
        late.TakeCalls();
    }

    static void ExpectNear(const Samples& values, const Samples& expected) {
        ASSERT_EQ(values.size(), expected.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_NEAR(values[i], expected[i], 1e-5) << "frame " << i;
        }
    }

    CLateFilter late{1, 1};
    IFilter& filter = late;
    CFilterBypassManager manager;
    bool sounds = false;
};

TEST_F(BypassManagerTest, PassesTheFilterThroughWhileActive) {
    Init(0);
    EXPECT_FALSE(manager.IsBypassed());
    EXPECT_EQ(Run({4, 8, 12}), (Samples{1, 2, 3}));
    EXPECT_EQ(late.TakeCalls(), "process;");
    RunSilence(3);
    EXPECT_EQ(late.TakeCalls(), "silence;");
}

TEST_F(BypassManagerTest, SwitchesAtOnceWithoutLatency) {
    Init(0);
    manager.SetBypass(true);
    EXPECT_TRUE(manager.IsBypassed());
    EXPECT_EQ(Run({4, 8, 12}), (Samples{4, 8, 12}));
    manager.SetBypass(false);
    EXPECT_FALSE(manager.IsBypassed());
    EXPECT_EQ(Run({4, 8, 12}), (Samples{1, 2, 3}));
}

TEST_F(BypassManagerTest, RunsABypassedFilterInSilence) {
    Init(0);
    late.tail = 5;
    manager.SetBypass(true);
    EXPECT_EQ(Run({1, 2, 3}), (Samples{1, 2, 3}));
    EXPECT_EQ(late.TakeCalls(), "silence;");
    RunSilence(3);
    EXPECT_TRUE(sounds); // the tail of the filter, which nobody hears
    EXPECT_EQ(late.TakeCalls(), "silence;");
    RunSilence(3);
    EXPECT_FALSE(sounds);
}

TEST_F(BypassManagerTest, FadesTheOutputToDryAndThenTheInputOut) {
    Init(5);
    late.notesInput = true;
    Ones(kBlock);
    manager.SetBypass(true);
    late.TakeCalls();
    // The output goes from 0.25 to 1 over the ten frames of the ramp.
    ExpectNear(Ones(5), {0.25F, 0.325F, 0.4F, 0.475F, 0.55F});
    ExpectNear(Ones(6), {0.625F, 0.7F, 0.775F, 0.85F, 0.925F, 1.0F});
    EXPECT_EQ(late.TakeCalls(), "process1.000000;process1.000000;");
    // The output is dry; the filter's input goes down by a tenth in each frame.
    EXPECT_EQ(Ones(5), Samples(5, 1.0F));
    EXPECT_EQ(Ones(6), Samples(6, 1.0F));
    EXPECT_EQ(late.TakeCalls(), "process1.000000;process0.500000;");
    EXPECT_EQ(Ones(4), Samples(4, 1.0F));
    EXPECT_EQ(late.TakeCalls(), "silence1.000000;");
}

TEST_F(BypassManagerTest, FadesTheInputInAndThenTheOutputBack) {
    Init(5);
    SettleBypassed();
    late.notesInput = true;
    manager.SetBypass(false);
    EXPECT_EQ(Ones(5), Samples(5, 1.0F));
    EXPECT_EQ(Ones(6), Samples(6, 1.0F));
    EXPECT_EQ(late.TakeCalls(), "process0.000000;process0.500000;");
    // What the filter holds is still the end of the input's fade: 0.6 to 1, times its gain.
    ExpectNear(Ones(5), {1.0F, 0.9F + 0.1F * 0.175F, 0.8F + 0.2F * 0.2F, 0.7F + 0.3F * 0.225F,
                         0.6F + 0.4F * 0.25F});
    ExpectNear(Ones(6), {0.625F, 0.55F, 0.475F, 0.4F, 0.325F, 0.25F});
    EXPECT_EQ(Ones(4), Samples(4, 0.25F));
    EXPECT_EQ(late.TakeCalls(), "process1.000000;process1.000000;process1.000000;");
}

TEST_F(BypassManagerTest, FadesOverTheLatencyWhenThatIsLongerThanTheRamp) {
    Init(40);
    Ones(80);
    manager.SetBypass(true);
    const Samples output = Ones(41);
    for (std::size_t i = 0; i <= 40; ++i) {
        EXPECT_NEAR(output[i], 0.25F + 0.75F * static_cast<float>(i) / 40.0F, 1e-5);
    }
}

TEST_F(BypassManagerTest, FadesForAsLongAsTheRampSays) {
    Init(1, 20.0);
    Ones(4);
    manager.SetBypass(true);
    const Samples output = Ones(21);
    EXPECT_NEAR(output[19], 0.25F + 0.75F * 19.0F / 20.0F, 1e-5);
    EXPECT_NEAR(output[20], 1.0F, 1e-5);
}

TEST_F(BypassManagerTest, SwitchesAtOnceWithoutARampTimeOrARate) {
    for (const double milliseconds : {0.0, -1.0}) {
        Init(5, milliseconds);
        manager.SetBypass(true);
        EXPECT_EQ(Run({1, 2, 3, 4, 5, 6, 7}), (Samples{0, 0, 0, 0, 0, 1, 2}));
        manager.SetBypass(false);
    }
    manager.Init(filter, 1, 1, kBlock, 0.0);
    manager.SetRampTime(10.0);
    manager.SetBypass(true);
    EXPECT_EQ(Run({1, 2, 3, 4, 5, 6, 7}), (Samples{0, 0, 0, 0, 0, 1, 2}));
}

TEST_F(BypassManagerTest, EndsAFadeWhenTheRampTimeIsTakenAway) {
    Init(5);
    Ones(kBlock);
    manager.SetBypass(true);
    Ones(4);
    manager.SetRampTime(0.0);
    EXPECT_EQ(Ones(4), Samples(4, 1.0F));
    late.TakeCalls();
    Ones(4);
    EXPECT_EQ(late.TakeCalls(), "silence;");
}

TEST_F(BypassManagerTest, DoesNothingWhenSetToWhatItIs) {
    Init(5);
    Ones(kBlock);
    manager.SetBypass(false);
    EXPECT_EQ(Ones(4), Samples(4, 0.25F));
    manager.SetBypass(true);
    const Samples fading = Ones(4);
    manager.SetBypass(true);
    EXPECT_GT(Ones(1)[0], fading[3]);
}

TEST_F(BypassManagerTest, ReversesARunningOutputFade) {
    Init(5);
    Ones(kBlock);
    manager.SetBypass(true);
    ExpectNear(Ones(4), {0.25F, 0.325F, 0.4F, 0.475F});
    manager.SetBypass(false);
    ExpectNear(Ones(6), {0.55F, 0.475F, 0.4F, 0.325F, 0.25F, 0.25F});
    late.TakeCalls();
    EXPECT_EQ(Ones(2), Samples(2, 0.25F));
    EXPECT_EQ(late.TakeCalls(), "process;");
}

TEST_F(BypassManagerTest, ReversesARunningInputFade) {
    Init(5);
    SettleBypassed();
    late.notesInput = true;
    manager.SetBypass(false);
    Ones(4); // the input has come in by four tenths
    manager.SetBypass(true);
    Ones(2);
    Ones(4);
    EXPECT_EQ(late.TakeCalls(), "process0.000000;process0.400000;process0.200000;");
    Ones(1);
    EXPECT_EQ(late.TakeCalls(), "silence1.000000;");
}

TEST_F(BypassManagerTest, ReversesAnInputFadeThatHasNotBegun) {
    Init(5);
    Ones(kBlock);
    manager.SetBypass(true);
    Ones(10); // the output fade is through
    manager.SetBypass(false);
    EXPECT_EQ(Ones(2), Samples(2, 1.0F)); // a full input: nothing to fade
    const Samples output = Ones(11);
    EXPECT_NEAR(output[0], 1.0F, 1e-5);
    EXPECT_NEAR(output[10], 0.25F, 1e-5);
}

// However it is toggled: the output never moves by more than one step of the fade.
TEST_F(BypassManagerTest, NeverJumpsHoweverItIsToggled) {
    std::mt19937 random(4);
    for (const int latency : {1, 7, 25}) {
        Init(latency);
        manager.SetBypass(false);
        for (int i = 0; i < 10; ++i) {
            Ones(kBlock); // so that both dry and wet stand at their value
        }
        const float step = 1.0F / static_cast<float>(std::max(latency, 10));
        float last = Ones(1)[0];
        for (int block = 0; block < 3000; ++block) {
            if (random() % 3 == 0) {
                manager.SetBypass(random() % 2 == 0);
            }
            for (const float value : Ones(static_cast<int>(1 + random() % 12))) {
                ASSERT_LE(std::fabs(value - last), step + 1e-5F)
                    << "latency " << latency << ", block " << block;
                last = value;
            }
        }
    }
}

TEST_F(BypassManagerTest, DelaysTheDryInputByTheLatencyInBlocksOfAnySize) {
    std::mt19937 random(5);
    for (const int latency : {1, 3, 16, 100}) {
        Init(latency, 0.0);
        manager.SetBypass(true);
        int next = 1;
        for (int block = 0; block < 300; ++block) {
            const int frames = static_cast<int>(random() % 60);
            const Samples output = Run(MakeCount(frames, next));
            for (int i = 0; i < frames; ++i) {
                const int expected = std::max(next + i - latency, 0);
                ASSERT_EQ(output[static_cast<std::size_t>(i)], static_cast<float>(expected))
                    << "latency " << latency << ", block " << block;
            }
            next += frames;
        }
        manager.SetBypass(false);
    }
}

TEST_F(BypassManagerTest, KeepsTheDryPastWhileActiveAndInSilence) {
    Init(3, 0.0);
    Run({1, 2, 3, 4, 5});
    manager.SetBypass(true);
    EXPECT_EQ(Run({6, 7}), (Samples{3, 4}));
    EXPECT_EQ(RunSilence(4), (Samples{5, 6, 7, 0}));
    manager.SetBypass(false);
    RunSilence(1);
    manager.SetBypass(true);
    EXPECT_EQ(Run({8, 9, 10, 11}), (Samples{0, 0, 0, 8}));
}

TEST_F(BypassManagerTest, GivesTheFilterEmptyInputsWhileASilentOutputFades) {
    Init(5);
    Ones(kBlock);
    late.tail = 100;
    late.notesInput = true;
    late.TakeCalls();
    manager.SetBypass(true);
    // Both dry and wet still hold five frames of sound.
    ExpectNear(RunSilence(7), {0.25F, 0.325F, 0.4F, 0.475F, 0.55F, 0.0F, 0.0F});
    EXPECT_EQ(late.TakeCalls(), "silence0.000000;");
    EXPECT_TRUE(sounds);
    RunSilence(4);
    late.TakeCalls();
    RunSilence(4); // the input fade
    EXPECT_EQ(late.TakeCalls(), "silence0.000000;");
}

TEST_F(BypassManagerTest, ReturnsWhatTheFilterSaysOfSilenceInEveryState) {
    Init(5);
    Ones(kBlock);
    RunSilence(4);
    EXPECT_FALSE(sounds);
    manager.SetBypass(true);
    RunSilence(10); // output fade
    EXPECT_FALSE(sounds);
    RunSilence(10); // input fade
    EXPECT_FALSE(sounds);
    late.tail = 100;
    RunSilence(4); // steady
    EXPECT_TRUE(sounds);
    manager.SetBypass(false);
    RunSilence(10);
    EXPECT_TRUE(sounds);
    RunSilence(10);
    EXPECT_TRUE(sounds);
}

TEST_F(BypassManagerTest, StaysBypassedThroughInit) {
    Init(5);
    manager.SetBypass(true);
    Ones(3); // within the fade
    Init(5);
    EXPECT_TRUE(manager.IsBypassed());
    EXPECT_EQ(Run({1, 2, 3, 4, 5, 6}), (Samples{0, 0, 0, 0, 0, 1})); // steady, the past forgotten
    late.TakeCalls();
    late.notesInput = true;
    manager.SetBypass(false);
    Ones(5);
    Ones(6);
    EXPECT_EQ(late.TakeCalls(), "process0.000000;process0.500000;");
}

TEST_F(BypassManagerTest, ReadsTheLatencyAnewAtInit) {
    Init(5);
    Init(0);
    manager.SetBypass(true);
    EXPECT_EQ(Run({1, 2}), (Samples{1, 2}));
}

TEST_F(BypassManagerTest, LeavesTheFilterAloneWithoutInputsOrOutputs) {
    Init(5);
    manager.SetBypass(true);
    CTestChannels channels(1, 4);
    manager.Process({.inputs = nullptr, .outputs = &channels, .frames = 4});
    manager.Process({.inputs = &channels, .outputs = nullptr, .frames = 4});
    EXPECT_FALSE(manager.ProcessSilence({.inputs = nullptr, .outputs = nullptr, .frames = 4}));
    EXPECT_EQ(late.TakeCalls(), "process;process;silence;");
}

TEST_F(BypassManagerTest, SwitchesAFilterWithoutOutputs) {
    CLateFilter scope(2, 0);
    IFilter& analysis = scope;
    analysis.Init({}, 1000.0);
    for (const int latency : {0, 5}) {
        scope.latency = latency;
        manager.SetBypass(false);
        manager.Init(analysis, 2, 0, kBlock, 1000.0);
        manager.SetRampTime(10.0);
        CTestChannels inputs(2, 6, 1.0F);
        CTestChannels outputs{};
        const CProcessRecord record = MakeRecord(inputs, outputs, 6);
        manager.Process(record);
        manager.SetBypass(true);
        for (int i = 0; i < 4; ++i) {
            manager.Process(record);
        }
        scope.TakeCalls();
        manager.Process(record);
        EXPECT_EQ(scope.TakeCalls(), "silence;") << latency;
        manager.SetBypass(false);
        manager.Process(record);
        EXPECT_EQ(scope.TakeCalls(), "process;") << latency;
    }
}

TEST_F(BypassManagerTest, FadesAllChannelsAlike) {
    CLateFilter stereo(2, 2);
    stereo.latency = 5;
    IFilter& both = stereo;
    both.Init({}, 1000.0);
    manager.Init(both, 2, 2, kBlock, 1000.0);
    manager.SetRampTime(10.0);
    CTestChannels inputs{Samples(kBlock, 1.0F), Samples(kBlock, -2.0F)};
    CTestChannels outputs(2, kBlock);
    manager.Process(MakeRecord(inputs, outputs, kBlock));
    manager.SetBypass(true);
    manager.Process(MakeRecord(inputs, outputs, kBlock));
    for (int i = 0; i < kBlock; ++i) {
        const auto at = static_cast<std::size_t>(i);
        EXPECT_NEAR(outputs.Samples(1)[at], -2.0F * outputs.Samples(0)[at], 1e-5);
    }
    EXPECT_NEAR(outputs.Samples(0)[4], 0.55F, 1e-5);
}

TEST_F(BypassManagerTest, SurvivesBlocksWithoutFrames) {
    Init(5);
    late.tail = 100;
    Ones(kBlock);
    manager.SetBypass(true);
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(Ones(0).empty());
        EXPECT_TRUE(RunSilence(0).empty());
    }
    ExpectNear(Ones(2), {0.25F, 0.325F});
}

} // namespace
} // namespace Vorin::Audio::DSP
