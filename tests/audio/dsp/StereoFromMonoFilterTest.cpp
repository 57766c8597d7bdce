#include "audio/dsp/StereoFromMonoFilter.h"

#include "audio/dsp/FilterTestKit.h"
#include "audio/dsp/TestMonoFilter.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Vorin::Audio::DSP {
namespace {

using Samples = std::vector<float>;

class StereoFromMonoFilterTest : public ::testing::Test {
protected:
    StereoFromMonoFilterTest() {
        CReachableFilter::created.clear();
        stereo = std::make_unique<TStereoFromMonoFilter<CReachableFilter>>();
        left = CReachableFilter::created.at(0);
        right = CReachableFilter::created.at(1);
        filter = stereo.get();
    }

    std::unique_ptr<TStereoFromMonoFilter<CReachableFilter>> stereo;
    CReachableFilter* left = nullptr;
    CReachableFilter* right = nullptr;
    IFilter* filter = nullptr;
};

TEST_F(StereoFromMonoFilterTest, HasTwiceTheChannels) {
    EXPECT_EQ(filter->GetIOConfigurations().GetInputInfos().GetCount(), 2);
    EXPECT_EQ(filter->GetIOConfigurations().GetOutputInfos().GetCount(), 2);
    filter->Init({.configuration = 4}, 44100.0);
    EXPECT_EQ(filter->GetIOConfiguration().GetInputInfos().GetCount(), 2);
}

TEST_F(StereoFromMonoFilterTest, ShowsTheSharedInputsOnce) {
    ASSERT_EQ(filter->GetInputParamInfos().GetCount(), 2);
    EXPECT_STREQ(filter->GetInputParamInfos().Get(0).GetName(), "Gain");
    EXPECT_STREQ(filter->GetProductInfo().GetName(), "Mono");
}

TEST_F(StereoFromMonoFilterTest, ShowsEachOutputForBothChannels) {
    EXPECT_EQ(filter->GetOutputParamInfos().GetCount(), 2);
    EXPECT_EQ(filter->GetPrivateOutputParamInfos().GetCount(), 2);
    EXPECT_EQ(filter->GetOutputStringInfos().GetCount(), 2);
    EXPECT_EQ(filter->GetOutputCurveInfos().GetCount(), 2);
    EXPECT_EQ(filter->GetOutputSurfaceInfos().GetCount(), 2);
    EXPECT_EQ(filter->GetOutputPropertyInfos().GetCount(), 2);
    EXPECT_STREQ(filter->GetOutputCurveInfos().Get(0).GetName(), "Shape (L)");
    EXPECT_STREQ(filter->GetOutputCurveInfos().Get(1).GetName(), "Shape (R)");
}

TEST_F(StereoFromMonoFilterTest, InitsBothChannels) {
    filter->Init({.applyDefaults = true}, 32000.0);
    EXPECT_EQ(left->GetRate(), 32000.0);
    EXPECT_EQ(right->GetRate(), 32000.0);
    EXPECT_EQ(left->calls, "init;params0(2,0.5);reset;");
    EXPECT_EQ(right->calls, left->calls);
    filter->Uninit();
}

TEST_F(StereoFromMonoFilterTest, GivesTheSameValuesToBothChannels) {
    filter->SetInputParams(CTestVariations{CTestValues{3, 4}});
    EXPECT_EQ(left->calls, "params0(3,4);");
    EXPECT_EQ(right->calls, "params0(3,4);");
}

TEST_F(StereoFromMonoFilterTest, GivesEachChannelItsStreams) {
    left->gain = 2.0;
    right->gain = 3.0;
    CTestChannels inputs{{1, 2}, {10, 20}};
    CTestChannels outputs(2, 2);
    filter->Process(MakeRecord(inputs, outputs, 2));
    EXPECT_EQ(outputs.Samples(0), (Samples{2, 4}));
    EXPECT_EQ(outputs.Samples(1), (Samples{30, 60}));
}

TEST_F(StereoFromMonoFilterTest, GivesTheRampToBothChannels) {
    CTestChannels channels(2, 3);
    const CTestRamp ramp({CTestValues{1, 0}}, {CTestValues{3, 4}});
    filter->Process(MakeRecord(channels, channels, 3, &ramp));
    EXPECT_EQ(left->calls, "process3;params0(1,0);params0(3,4);done1;");
    EXPECT_EQ(right->calls, left->calls);
}

TEST_F(StereoFromMonoFilterTest, GivesAChannelThatIsMissingAsNone) {
    CTestChannels one(1, 3, 1.0F);
    CTestChannels outputs(2, 3, 9.0F);
    filter->Process(MakeRecord(one, outputs, 3));
    EXPECT_EQ(left->calls, "process3;done1;");
    EXPECT_EQ(right->calls, "process3;done0;");
    EXPECT_EQ(outputs.Samples(1), Samples(3, 9.0F));
    filter->Process({.inputs = nullptr, .outputs = nullptr, .frames = 3});
    EXPECT_EQ(left->calls, "process3;done1;process3;done0;");
}

TEST_F(StereoFromMonoFilterTest, SoundsInSilenceWhileEitherChannelDoes) {
    CTestChannels inputs(2, 4);
    CTestChannels outputs(2, 4, 9.0F);
    const CProcessRecord record = MakeRecord(inputs, outputs, 4);
    EXPECT_FALSE(filter->ProcessSilence(record));
    EXPECT_EQ(outputs.Samples(0), Samples(4));
    EXPECT_EQ(outputs.Samples(1), Samples(4));
    left->tail = 10;
    EXPECT_TRUE(filter->ProcessSilence(record));
    left->tail = 0;
    right->tail = 10;
    EXPECT_TRUE(filter->ProcessSilence(record));
    // Each was asked each time: no channel's tail stands still because the other one sounds.
    EXPECT_EQ(left->calls, "silence4;process4;done1;silence4;");
    EXPECT_EQ(right->calls, "silence4;silence4;process4;done1;");
}

TEST_F(StereoFromMonoFilterTest, HasTheLargerTailAndLatency) {
    left->tail = 3;
    right->tail = 5;
    left->latency = 9;
    right->latency = 7;
    EXPECT_EQ(filter->GetTailSamples(), 5);
    EXPECT_EQ(filter->GetLatency(), 9);
}

TEST_F(StereoFromMonoFilterTest, ResetsUpdatesAndPublishesBothChannels) {
    filter->Reset();
    filter->UpdateOutputs();
    filter->PublishOutputs();
    EXPECT_EQ(left->calls, "reset;updateParams;update;publish;");
    EXPECT_EQ(right->calls, left->calls);
}

TEST_F(StereoFromMonoFilterTest, PacesByTheSyncsOfBothChannels) {
    IOutputDataSync* sync = filter->GetOutputDataSync();
    ASSERT_NE(sync, nullptr);
    sync->SetRefreshRate(20.0);
    EXPECT_EQ(left->sync.GetRefreshRate(), 20.0);
    EXPECT_EQ(right->sync.GetRefreshRate(), 20.0);
    left->hasSync = false;
    right->hasSync = false;
    EXPECT_FALSE(filter->GetOutputDataSync()->IsRefreshNeeded());
}

TEST_F(StereoFromMonoFilterTest, ReadsTheOutputsOfTheLeftChannelFirst) {
    CTestChannels inputs{{1, 2}, {10, 20}};
    CTestChannels outputs(2, 2);
    filter->Process(MakeRecord(inputs, outputs, 2));
    filter->PublishOutputs();
    const IFilter& seen = *filter;
    ASSERT_EQ(seen.GetOutputParamValues().GetCount(), 2);
    EXPECT_EQ(seen.GetOutputParamValues().GetValue(0), 3.0);
    EXPECT_EQ(seen.GetOutputParamValues().GetValue(1), 30.0);
    ASSERT_EQ(seen.GetPrivateOutputParamValues().GetCount(), 2);
    EXPECT_EQ(seen.GetPrivateOutputParamValues().GetValue(1), -30.0);
    ASSERT_EQ(seen.GetOutputStrings().GetCount(), 2);
    EXPECT_STREQ(seen.GetOutputStrings().GetValue(0), "3");
    EXPECT_STREQ(seen.GetOutputStrings().GetValue(1), "30");
    ASSERT_EQ(seen.GetOutputCurves().GetCount(), 2);
    EXPECT_EQ(seen.GetOutputCurves().Get(0).Evaluate(0.0), 3.0);
    EXPECT_EQ(seen.GetOutputCurves().Get(1).Evaluate(0.0), 30.0);
    ASSERT_EQ(seen.GetOutputSurfaces().GetCount(), 2);
    EXPECT_EQ(seen.GetOutputSurfaces().Get(1).Evaluate(0.0, 0.0), 30.0);
    EXPECT_EQ(seen.GetOutputProperties().GetCount(), 2);
}

TEST_F(StereoFromMonoFilterTest, PassesTheMarksOfBothChannelsOn) {
    filter->PublishOutputs();
    for (IChanges* changes :
         {&filter->GetOutputStringChanges(), &filter->GetOutputCurveChanges(),
          &filter->GetOutputSurfaceChanges(), &filter->GetOutputPropertyChanges()}) {
        ASSERT_EQ(changes->GetCount(), 2);
        EXPECT_TRUE(changes->Get(0).IsDirty());
        EXPECT_TRUE(changes->Get(1).IsDirty());
        changes->Get(1).ClearDirty();
    }
    EXPECT_TRUE(left->GetOutputCurveChanges().Get(0).IsDirty());
    EXPECT_FALSE(right->GetOutputCurveChanges().Get(0).IsDirty());
}

TEST_F(StereoFromMonoFilterTest, ClonesToAnEqualAndIndependentFilter) {
    left->gain = 2.0;
    right->gain = 3.0;
    left->tail = 12;
    const std::unique_ptr<IFilter> clone(filter->Clone());
    stereo.reset();
    EXPECT_EQ(clone->GetTailSamples(), 12);
    CTestChannels inputs{{1}, {10}};
    CTestChannels outputs(2, 1);
    clone->Process(MakeRecord(inputs, outputs, 1));
    clone->PublishOutputs();
    EXPECT_EQ(outputs.Samples(0), Samples{2});
    EXPECT_EQ(outputs.Samples(1), Samples{30});
    EXPECT_EQ(clone->GetOutputParamValues().GetValue(1), 10.0);
    ASSERT_EQ(clone->GetOutputCurveInfos().GetCount(), 2);
    clone->GetOutputDataSync()->SetRefreshRate(7.0);
    EXPECT_EQ(clone->GetOutputDataSync()->GetRefreshRate(), 7.0);
}

} // namespace
} // namespace Vorin::Audio::DSP
