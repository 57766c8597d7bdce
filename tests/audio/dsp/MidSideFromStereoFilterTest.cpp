#include "audio/dsp/MidSideFromStereoFilter.h"

#include "audio/dsp/FilterTestKit.h"
#include "audio/dsp/StereoFromMonoFilter.h"
#include "audio/dsp/TestMonoFilter.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace Vorin::Audio::DSP {
namespace {

using namespace DataModel::Objects;

using Samples = std::vector<float>;

using CStereo = TStereoFromMonoFilter<CReachableFilter>;

/// A stereo filter that stays in the mode it was built with.
class CFixedFilter : public TMidSideFromStereoFilterBase<CStereo> {
public:
    CFixedFilter() : TMidSideFromStereoFilterBase(CParamInfo(), "<M>", "<S>", true) {}
    IFilter* Clone() const override { return new CFixedFilter(*this); }
};

class MidSideFromStereoFilterTest : public ::testing::Test {
protected:
    MidSideFromStereoFilterTest() {
        CReachableFilter::created.clear();
        filter = std::make_unique<TMSLRFromStereoFilter<CStereo>>();
        left = CReachableFilter::created.at(0);
        right = CReachableFilter::created.at(1);
        filter->Init({.applyDefaults = true, .blockSize = 16}, 44100.0);
        SetParams(0.0, 1.0, 0.0);
        left->calls.clear();
        right->calls.clear();
    }

    void SetParams(double mode, double gain, double offset) {
        filter->SetInputParams(CTestVariations{CTestValues{mode, gain, offset}});
    }

    /// What the inner filter makes of a block, before the way back.
    void Process(const Samples& l, const Samples& r, const IConstInputRamp* ramp = nullptr) {
        CTestChannels inputs{l, r};
        const int frames = static_cast<int>(l.size());
        CTestChannels outputs(2, frames);
        left->sum = right->sum = 0.0;
        filter->Process(MakeRecord(inputs, outputs, frames, ramp));
        first = outputs.Samples(0);
        second = outputs.Samples(1);
    }

    std::unique_ptr<IFilter> filter;
    CReachableFilter* left = nullptr;
    CReachableFilter* right = nullptr;
    Samples first;
    Samples second;
};

TEST_F(MidSideFromStereoFilterTest, ShowsItsOwnParameterFirst) {
    const IConstParamInfos& infos = filter->GetInputParamInfos();
    ASSERT_EQ(infos.GetCount(), 3);
    const IConstParamInfo& mode = infos.Get(0);
    EXPECT_STREQ(mode.GetName(), "Stereo Mode");
    EXPECT_EQ(static_cast<int>(mode.GetType()), 0);
    EXPECT_STREQ(mode.GetUnit(), "");
    EXPECT_STREQ(mode.GetComment(), "Left-Right or Mid-Side");
    EXPECT_EQ(mode.GetMin(), 0.0);
    EXPECT_EQ(mode.GetMax(), 1.0);
    EXPECT_EQ(mode.GetDefault(), 0.0);
    Containers::CCharString text;
    mode.GetValueToText().ValueToText(0.0, text);
    EXPECT_STREQ(text.Get(), "Stereo");
    mode.GetValueToText().ValueToText(1.0, text);
    EXPECT_STREQ(text.Get(), "Mid-Side");
    EXPECT_STREQ(infos.Get(1).GetName(), "Gain");
    EXPECT_STREQ(infos.Get(2).GetName(), "Offset");
}

TEST_F(MidSideFromStereoFilterTest, CountsTheChannelsOfItsOutputs) {
    EXPECT_STREQ(filter->GetOutputParamInfos().Get(0).GetName(), "Sum (1)");
    EXPECT_STREQ(filter->GetPrivateOutputParamInfos().Get(1).GetName(), "Hidden (2)");
    EXPECT_STREQ(filter->GetOutputStringInfos().Get(1).GetName(), "Note (2)");
    EXPECT_STREQ(filter->GetOutputCurveInfos().Get(0).GetName(), "Shape (1)");
    EXPECT_STREQ(filter->GetOutputSurfaceInfos().Get(1).GetName(), "Field (2)");
    EXPECT_STREQ(filter->GetOutputPropertyInfos().Get(0).GetName(), "Extra (1)");
}

TEST_F(MidSideFromStereoFilterTest, SkipsItsOwnParameterForTheInnerFilter) {
    SetParams(1.0, 3.0, 4.0);
    EXPECT_EQ(left->calls, "params0(3,4);");
    EXPECT_EQ(right->calls, "params0(3,4);");
}

TEST_F(MidSideFromStereoFilterTest, GivesTheInnerFilterLeftAndRightInStereo) {
    Process({1, 2}, {10, 20});
    EXPECT_EQ(left->sum, 3.0);
    EXPECT_EQ(right->sum, 30.0);
    EXPECT_EQ(first, (Samples{1, 2}));
    EXPECT_EQ(second, (Samples{10, 20}));
}

TEST_F(MidSideFromStereoFilterTest, GivesTheInnerFilterMidAndSide) {
    SetParams(1.0, 1.0, 0.0);
    Process({1, 2}, {9, 20});
    EXPECT_EQ(left->sum, 5.0 + 11.0);
    EXPECT_EQ(right->sum, 4.0 + 9.0);
}

TEST_F(MidSideFromStereoFilterTest, BringsTheOutputsBackToLeftAndRight) {
    SetParams(1.0, 2.0, 0.0);
    Process({1, 2}, {9, 20});
    EXPECT_EQ(first, (Samples{2, 4}));
    EXPECT_EQ(second, (Samples{18, 40}));
}

TEST_F(MidSideFromStereoFilterTest, AppliesItsOwnParameterAtTheEdgesOfTheBlock) {
    const CTestRamp ramp({CTestValues{0, 1, 0}}, {CTestValues{1, 2, 0}});
    Process({1}, {3}, &ramp);
    EXPECT_EQ(left->sum, 1.0);
    EXPECT_EQ(right->sum, 3.0);
    EXPECT_EQ(left->calls, "process1;params0(1,0);params0(2,0);done1;");
    Process({1}, {3});
    EXPECT_EQ(left->sum, 2.0);
    EXPECT_EQ(right->sum, 1.0);
}

TEST_F(MidSideFromStereoFilterTest, MovesItsModeThroughTheBlockByTheOrdersOfARamp) {
    const CTestRamp ramp({CTestValues{0, 1, 0}, CTestValues{0.5, 0, 0}}, {CTestValues{1, 1, 0}});
    CTestChannels inputs{{1, 1, 1}, {3, 3, 3}};
    CTestChannels none{};
    // a runs -1, -0.5, 0: q of the left and p of the right give 1, 1.5 and 2.
    CTestChannels outputs(2, 3);
    filter->Process(MakeRecord(inputs, outputs, 3, &ramp));
    EXPECT_EQ(left->sum, 1.0 + 1.5 + 2.0);
    // Side: q of the right less p of the left, halved: 3, 2 and 1.
    EXPECT_EQ(right->sum, 3.0 + 2.0 + 1.0);
}

TEST_F(MidSideFromStereoFilterTest, TakesItsModeFromARampInSilenceToo) {
    CTestChannels inputs(2, 4);
    CTestChannels outputs(2, 4, 9.0F);
    const CTestRamp ramp({CTestValues{0, 1, 0}}, {CTestValues{1, 2, 0}});
    EXPECT_FALSE(filter->ProcessSilence(MakeRecord(inputs, outputs, 4, &ramp)));
    EXPECT_EQ(left->calls, "params0(1,0);silence4;params0(2,0);");
    EXPECT_EQ(outputs.Samples(0), Samples(4));
    Process({1}, {3});
    EXPECT_EQ(left->sum, 2.0);
}

TEST_F(MidSideFromStereoFilterTest, ReturnsWhatTheInnerFilterSaysOfSilence) {
    CTestChannels inputs(2, 4);
    CTestChannels outputs(2, 4);
    left->tail = 4;
    EXPECT_TRUE(filter->ProcessSilence(MakeRecord(inputs, outputs, 4)));
    EXPECT_FALSE(filter->ProcessSilence(MakeRecord(inputs, outputs, 4)));
}

TEST_F(MidSideFromStereoFilterTest, DoesNothingWhenAChannelIsMissing) {
    CTestChannels one(1, 4, 1.0F);
    CTestChannels two(2, 4, 1.0F);
    filter->Process(MakeRecord(one, two, 4));
    filter->Process(MakeRecord(two, one, 4));
    filter->Process({.inputs = nullptr, .outputs = &two, .frames = 4});
    filter->Process({.inputs = &two, .outputs = nullptr, .frames = 4});
    EXPECT_EQ(left->calls, "");
    EXPECT_EQ(right->calls, "");
    EXPECT_EQ(two.Samples(0), Samples(4, 1.0F));
}

TEST_F(MidSideFromStereoFilterTest, TakesInputsWithoutSamplesAsSilence) {
    Process({1.0F, 2.0F}, {3.0F, 4.0F});
    CAudioStream absent[2];
    CAudioStreams inputs(absent, 2);
    CTestChannels outputs(2, 2);
    filter->Process(MakeRecord(inputs, outputs, 2));
    EXPECT_EQ(outputs.Samples(0), Samples({0.0F, 0.0F}));
    EXPECT_EQ(outputs.Samples(1), Samples({0.0F, 0.0F}));
}

TEST_F(MidSideFromStereoFilterTest, TakesMoreChannelsThanItNeeds) {
    CTestChannels three(3, 2, 1.0F);
    CTestChannels outputs(3, 2, 9.0F);
    filter->Process(MakeRecord(three, outputs, 2));
    EXPECT_EQ(left->sum, 2.0);
    EXPECT_EQ(outputs.Samples(2), Samples(2, 9.0F));
}

TEST_F(MidSideFromStereoFilterTest, TakesBlocksBeyondTheAnnouncedSize) {
    const Samples l = MakeTestNoise(100, 1);
    const Samples r = MakeTestNoise(100, 2);
    Process(l, r);
    EXPECT_EQ(first, l);
    EXPECT_EQ(second, r);
}

TEST_F(MidSideFromStereoFilterTest, LeavesItsInputsUntouched) {
    SetParams(1.0, 1.0, 0.0);
    CTestChannels inputs{{1, 2}, {9, 20}};
    CTestChannels outputs(2, 2);
    filter->Process(MakeRecord(inputs, outputs, 2));
    EXPECT_EQ(inputs.Samples(0), (Samples{1, 2}));
    EXPECT_EQ(inputs.Samples(1), (Samples{9, 20}));
}

TEST_F(MidSideFromStereoFilterTest, GoesBackToStereoWhenInitAppliesTheDefaults) {
    SetParams(1.0, 1.0, 0.0);
    filter->Init({.applyDefaults = true}, 44100.0);
    EXPECT_EQ(left->gain, 2.0);
    Process({1}, {3});
    EXPECT_EQ(left->sum, 1.0);
    SetParams(1.0, 1.0, 0.0);
    filter->Init({}, 44100.0);
    Process({1}, {3});
    EXPECT_EQ(left->sum, 2.0);
}

TEST_F(MidSideFromStereoFilterTest, ForwardsTheRestToTheInnerFilter) {
    left->tail = 7;
    right->latency = 3;
    EXPECT_EQ(filter->GetTailSamples(), 7);
    EXPECT_EQ(filter->GetLatency(), 3);
    EXPECT_EQ(filter->GetIOConfigurations().GetInputInfos().GetCount(), 2);
    EXPECT_STREQ(filter->GetProductInfo().GetName(), "Mono");
    filter->Reset();
    filter->UpdateOutputs();
    filter->PublishOutputs();
    EXPECT_EQ(left->calls, "reset;updateParams;update;publish;");
    EXPECT_EQ(right->calls, left->calls);
    EXPECT_TRUE(filter->GetOutputCurveChanges().Get(1).IsDirty());
    EXPECT_EQ(filter->GetOutputCurves().GetCount(), 2);
    filter->GetOutputDataSync()->SetRefreshRate(12.0);
    EXPECT_EQ(right->sync.GetRefreshRate(), 12.0);
    EXPECT_EQ(filter->GetLegacyPresets().GetCount(), 0);
    filter->Uninit();
}

TEST_F(MidSideFromStereoFilterTest, ClonesToAnEqualAndIndependentTree) {
    SetParams(1.0, 3.0, 0.0);
    const std::unique_ptr<IFilter> clone(filter->Clone());
    SetParams(0.0, 1.0, 0.0);
    filter.reset();
    CTestChannels inputs{{1}, {3}};
    CTestChannels outputs(2, 1);
    clone->Process(MakeRecord(inputs, outputs, 1));
    clone->PublishOutputs();
    EXPECT_EQ(clone->GetOutputParamValues().GetValue(0), 2.0); // Mid
    EXPECT_EQ(clone->GetOutputParamValues().GetValue(1), 1.0); // Side
    EXPECT_EQ(outputs.Samples(0), Samples{3});
    EXPECT_EQ(outputs.Samples(1), Samples{9});
    ASSERT_EQ(clone->GetInputParamInfos().GetCount(), 3);
    EXPECT_STREQ(clone->GetInputParamInfos().Get(0).GetName(), "Stereo Mode");
    EXPECT_STREQ(clone->GetInputParamInfos().Get(1).GetName(), "Gain");
    EXPECT_STREQ(clone->GetOutputCurveInfos().Get(1).GetName(), "Shape (2)");
}

TEST(FixedModeTest, HasNoParameterOfItsOwnAndDoesNotShiftValues) {
    CReachableFilter::created.clear();
    CFixedFilter fixed;
    IFilter& filter = fixed;
    CReachableFilter* left = CReachableFilter::created.at(0);
    filter.Init({}, 44100.0);
    EXPECT_EQ(filter.GetInputParamInfos().GetCount(), 2);
    EXPECT_STREQ(filter.GetInputParamInfos().Get(0).GetName(), "Gain");
    EXPECT_STREQ(filter.GetOutputCurveInfos().Get(0).GetName(), "Shape <M>");
    left->calls.clear();
    filter.SetInputParams(CTestVariations{CTestValues{5, 6}});
    EXPECT_EQ(left->calls, "params0(5,6);");
    CTestChannels inputs{{1}, {3}};
    CTestChannels outputs(2, 1);
    const CTestRamp ramp({CTestValues{1, 0}}, {CTestValues{1, 2}});
    filter.Process(MakeRecord(inputs, outputs, 1, &ramp));
    EXPECT_EQ(left->sum, 1.0);
    EXPECT_EQ(left->offset, 2.0);
}

} // namespace
} // namespace Vorin::Audio::DSP
