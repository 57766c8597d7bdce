#include "audio/plugin/BlockProcessor.h"

#include "audio/dsp/FilterTestKit.h"
#include "audio/dsp/TestMonoFilter.h"
#include "audio/plugin/HostParam.h"
#include "audio/plugin/LockHolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Vorin::Audio::Plugin {
namespace {

using namespace DSP;

/// A plug-in around a filter that writes down what it is asked for, refreshed in each block.
class BlockProcessorTest : public ::testing::Test {
protected:
    enum EParam { kBypass, kGain, kOffset };

    BlockProcessorTest() {
        auto owned = std::make_unique<CTestMonoFilter>();
        mono = owned.get();
        internals = std::make_unique<CFilterHost>(
            CFilterHost::CConfig{.filter = std::move(owned), .defaultRefreshRate = 0.0});
        values = std::make_unique<CHostParams>(internals->GetInputInfos());
        internals->Connect(*values);
        processor = std::make_unique<CBlockProcessor>(*internals);
        isConfigured = internals->Configure({.blockSize = 64}, 1000.0);
        mono->calls.clear();
    }

    void SetUp() override { ASSERT_TRUE(isConfigured); }

    std::string TakeCalls() {
        std::string calls;
        calls.swap(mono->calls);
        return calls;
    }

    std::vector<float> Run(const std::vector<float>& samples, bool bypass = false,
                           bool silent = false) {
        CTestChannels inputs{samples};
        CTestChannels outputs(1, static_cast<int>(samples.size()), 99.0F);
        processor->Process({inputs, outputs, static_cast<int>(samples.size()), bypass, silent});
        return outputs.Samples(0);
    }

    /// A refresh after each `samples` samples.
    void Pace(int samples) {
        mono->sync.SetSampleRate(1000.0);
        mono->sync.SetRefreshRate(1000.0 / samples);
        mono->sync.Reset();
    }

    CTestMonoFilter* mono = nullptr;
    std::unique_ptr<CFilterHost> internals;
    std::unique_ptr<CHostParams> values;
    std::unique_ptr<CBlockProcessor> processor;
    bool isConfigured = false;
};

TEST_F(BlockProcessorTest, ProcessesThenUpdatesThenPublishes) {
    mono->gain = 2.0;
    mono->offset = 0.0;
    EXPECT_EQ(Run({1, 2}), (std::vector<float>{2, 4}));
    EXPECT_EQ(TakeCalls(), "process2;done1;updateParams;update;publish;");
    EXPECT_EQ(internals->GetOutputCurve(0).GetValue()->Evaluate(0.0), 3.0);
}

TEST_F(BlockProcessorTest, GivesTheFilterTheValuesThatChangedBeforeTheBlock) {
    values->Get(kGain).SetValue(3.0);
    Run({1});
    EXPECT_EQ(TakeCalls(),
              "process1;params0(2,0.5);params0(3,0.5);done1;updateParams;update;publish;");
    Run({1});
    EXPECT_EQ(TakeCalls(), "process1;done1;updateParams;update;publish;");
    values->Get(kOffset).SetValue(1.0);
    Run({1});
    EXPECT_EQ(TakeCalls(),
              "process1;params0(3,0.5);params0(3,1);done1;updateParams;update;publish;");
}

TEST_F(BlockProcessorTest, TakesTheSilentPathForASilentBlock) {
    EXPECT_EQ(Run({0, 0}, false, true), (std::vector<float>{0, 0}));
    EXPECT_EQ(TakeCalls(), "silence2;updateParams;update;publish;");
}

TEST_F(BlockProcessorTest, GivesTheValuesToTheFilterOnTheSilentPathToo) {
    values->Get(kGain).SetValue(3.0);
    Run({0}, false, true);
    EXPECT_EQ(TakeCalls(), "params0(2,0.5);silence1;params0(3,0.5);updateParams;update;publish;");
}

TEST_F(BlockProcessorTest, NeverTakesTheSilentPathWithoutInputs) {
    CTestChannels inputs{};
    CTestChannels outputs(1, 2);
    processor->Process({inputs, outputs, 2, false, true});
    EXPECT_EQ(TakeCalls(), "process2;done0;updateParams;update;publish;");
}

TEST_F(BlockProcessorTest, BypassesFromTheBlockOnThatSaysSo) {
    EXPECT_EQ(Run({1, 2}, true), (std::vector<float>{1, 2}));
    EXPECT_EQ(TakeCalls(), "silence2;updateParams;update;publish;");
    EXPECT_EQ(Run({1, 2}, false), (std::vector<float>{1, 2}));
    EXPECT_EQ(TakeCalls(), "process2;done1;updateParams;update;publish;");
}

TEST_F(BlockProcessorTest, GivesABypassedFilterItsValues) {
    values->Get(kGain).SetValue(3.0);
    Run({1}, true);
    EXPECT_EQ(mono->gain, 3.0);
    Run({1}, true);
    EXPECT_EQ(internals->PrepareBlock(), nullptr);
}

TEST_F(BlockProcessorTest, RefreshesWhenTheSyncAsksForIt) {
    Pace(10);
    TakeCalls();
    mono->sync.AddSamples(9);
    Run({1});
    EXPECT_EQ(TakeCalls(), "process1;done1;");
    mono->sync.AddSamples(1);
    Run({1});
    EXPECT_EQ(TakeCalls(), "process1;done1;updateParams;update;publish;");
    // The count has begun anew.
    Run({1});
    EXPECT_EQ(TakeCalls(), "process1;done1;");
}

TEST_F(BlockProcessorTest, CountsTheFramesForAFilterWithoutSync) {
    mono->hasSync = false;
    internals->GetOutputDataSync().SetRefreshRate(100.0);
    internals->GetOutputDataSync().Reset();
    Run(std::vector<float>(9));
    EXPECT_EQ(TakeCalls(), "process9;done1;");
    Run({1});
    EXPECT_EQ(TakeCalls(), "process1;done1;updateParams;update;publish;");
}

TEST_F(BlockProcessorTest, TriesAgainInEachBlockUntilTheReaderIsGoneWithoutAnotherUpdate) {
    Pace(10);
    mono->sync.AddSamples(10);
    TakeCalls();
    {
        const CLockHolder reader(internals->GetOutputsLock());
        Run({1});
        EXPECT_EQ(TakeCalls(), "process1;done1;updateParams;update;");
        Run({2});
        Run({3});
        EXPECT_EQ(TakeCalls(), "process1;done1;process1;done1;");
    }
    Run({4});
    EXPECT_EQ(TakeCalls(), "process1;done1;publish;");
    Run({5});
    EXPECT_EQ(TakeCalls(), "process1;done1;");
}

TEST_F(BlockProcessorTest, PublishesTheNewestStateAloneAfterAReader) {
    {
        const CLockHolder reader(internals->GetOutputsLock());
        Run({1});
        Run({2});
        EXPECT_EQ(internals->GetOutputCurve(0).GetValue()->Evaluate(0.0), 0.0);
    }
    TakeCalls();
    Run({4});
    EXPECT_EQ(TakeCalls(), "process1;done1;updateParams;update;publish;");
    EXPECT_EQ(internals->GetOutputCurve(0).GetValue()->Evaluate(0.0), 7.0);
}

TEST_F(BlockProcessorTest, RunsBlocksWithoutFrames) {
    Run({});
    EXPECT_EQ(TakeCalls(), "process0;done1;updateParams;update;publish;");
    Run({}, true, true);
    EXPECT_EQ(TakeCalls(), "silence0;updateParams;update;publish;");
}

} // namespace
} // namespace Vorin::Audio::Plugin
