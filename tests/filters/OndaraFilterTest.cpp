// The product's filter tree as a whole.

#include "filters/OndaraFilter.h"

#include "audio/dsp/FilterTestKit.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace PluginsFilters {
namespace {

using namespace Vorin::Audio::DSP;

class OndaraFilterTest : public ::testing::Test {
protected:
    enum ECurve { kWaveform1, kHistogram1, kWaveform2, kHistogram2 };

    void Init(double rate) { filter->Init({.blockSize = 64}, rate); }

    void SetParams(double mode, double view = 0.0, double sync = 0.0, double delay = 0.0) {
        filter->SetInputParams(CTestVariations{CTestValues{mode, view, sync, delay, 0.0, 0.0}});
    }

    static void Feed(IFilter& target, const std::vector<float>& left,
                     const std::vector<float>& right, const IConstInputRamp* ramp = nullptr) {
        CTestChannels inputs{left, right};
        CTestChannels outputs{};
        target.Process(MakeRecord(inputs, outputs, static_cast<int>(left.size()), ramp));
        Refresh(target);
    }

    static void Refresh(IFilter& target) {
        target.UpdateOutputs();
        target.PublishOutputs();
    }

    /// The waveform of a channel at each sample of the circle.
    static std::vector<double> Trace(const IFilter& target, int curve, int count) {
        std::vector<double> values;
        for (int i = 0; i < count; ++i) {
            const double x = -1.0 + static_cast<double>(i) / (count - 1);
            values.push_back(target.GetOutputCurves().Get(curve).Evaluate(x));
        }
        return values;
    }

    std::unique_ptr<IFilter> filter = CreateOndaraFilter();
};

TEST_F(OndaraFilterTest, ShowsItsParametersInOrder) {
    const IConstParamInfos& infos = filter->GetInputParamInfos();
    std::vector<std::string> names;
    for (int i = 0; i < infos.GetCount(); ++i) {
        names.emplace_back(infos.Get(i).GetName());
        EXPECT_EQ(infos.Get(i).GetDefault(), 0.0) << names.back();
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Stereo Mode", "View Mode", "Sync", "Delay",
                                               "Trigger Value", "Trigger Direction"}));
}

TEST_F(OndaraFilterTest, NamesItsCurvesByTheCountOfTheirChannel) {
    const IConstCurveInfos& infos = filter->GetOutputCurveInfos();
    std::vector<std::string> names;
    for (int i = 0; i < infos.GetCount(); ++i) {
        names.emplace_back(infos.Get(i).GetName());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Waveform (1)", "Histogram (1)", "Waveform (2)",
                                               "Histogram (2)"}));
    // What the axes say has come along.
    EXPECT_STREQ(infos.Get(kWaveform2).GetXInfo().GetUnit(), "s");
    EXPECT_EQ(infos.Get(kWaveform2).GetXInfo().GetMin(), -1.0);
    EXPECT_STREQ(infos.Get(kHistogram2).GetYName(), "Normalized");
}

TEST_F(OndaraFilterTest, HasTwoInputsAndNoOutput) {
    EXPECT_EQ(filter->GetIOConfigurations().GetInputInfos().GetCount(), 2);
    EXPECT_EQ(filter->GetIOConfigurations().GetOutputInfos().GetCount(), 0);
    EXPECT_EQ(filter->GetIOConfigurations().GetConfigurations().GetCount(), 0);
    EXPECT_EQ(filter->GetOutputCurves().GetCount(), 4);
    EXPECT_EQ(filter->GetOutputCurveChanges().GetCount(), 4);
}

TEST_F(OndaraFilterTest, HasBeenInitedFor44100Hz) {
    EXPECT_EQ(filter->GetTailSamples(), 44100);
    EXPECT_EQ(filter->GetLatency(), 0);
    EXPECT_STREQ(filter->GetProductInfo().GetName(), "Oscilloscope");
}

TEST_F(OndaraFilterTest, TracesLeftAndRightInStereo) {
    Init(4.0);
    SetParams(0.0);
    Feed(*filter, {1, 0.5F, 0.25F, -0.5F}, {-1, -0.5F, 0.75F, 0.125F});
    EXPECT_EQ(Trace(*filter, kWaveform1, 4), (std::vector<double>{1, 0.5, 0.25, -0.5}));
    EXPECT_EQ(Trace(*filter, kWaveform2, 4), (std::vector<double>{-1, -0.5, 0.75, 0.125}));
}

TEST_F(OndaraFilterTest, TracesMidAndSide) {
    Init(4.0);
    SetParams(1.0);
    Feed(*filter, {1, 0.5F, 0.25F, -0.5F}, {-1, -0.5F, 0.75F, 0.5F});
    EXPECT_EQ(Trace(*filter, kWaveform1, 4), (std::vector<double>{0, 0, 0.5, 0}));
    EXPECT_EQ(Trace(*filter, kWaveform2, 4), (std::vector<double>{-1, -0.5, 0.25, 0.5}));
}

TEST_F(OndaraFilterTest, CountsTheHistogramOfEachChannelApart) {
    Init(100.0);
    SetParams(0.0);
    Feed(*filter, {1, 1, 0}, {-1, 0, 0});
    const IConstCurves& curves = filter->GetOutputCurves();
    EXPECT_EQ(curves.Get(kHistogram1).Evaluate(1.0), 1.0);
    EXPECT_EQ(curves.Get(kHistogram1).Evaluate(0.0), 0.5);
    EXPECT_EQ(curves.Get(kHistogram1).Evaluate(-1.0), 0.0);
    EXPECT_EQ(curves.Get(kHistogram2).Evaluate(0.0), 1.0);
    EXPECT_EQ(curves.Get(kHistogram2).Evaluate(-1.0), 0.5);
}

TEST_F(OndaraFilterTest, ForgetsBothChannelsWhenSyncFlipsEitherWay) {
    Init(8.0);
    for (const double sync : {1.0, 0.0}) {
        SetParams(0.0, 0.0, 1.0 - sync);
        Feed(*filter, {1, 0.5F}, {-1, -0.5F});
        ASSERT_NE(Trace(*filter, kWaveform2, 8), std::vector<double>(8));
        SetParams(0.0, 0.0, sync);
        Refresh(*filter);
        for (int curve = 0; curve < 4; ++curve) {
            EXPECT_EQ(Trace(*filter, curve, 8), std::vector<double>(8)) << curve;
        }
    }
}

TEST_F(OndaraFilterTest, TakesTheModeOfARampFromTheNextBlockOn) {
    Init(4.0);
    SetParams(0.0);
    const CTestRamp ramp({CTestValues{0, 0, 0, 0, 0, 0}}, {CTestValues{1, 0, 0, 0, 0, 0}});
    Feed(*filter, {1, 1}, {0, 0}, &ramp);
    Feed(*filter, {1, 1}, {0, 0});
    EXPECT_EQ(Trace(*filter, kWaveform1, 4), (std::vector<double>{1, 1, 0.5, 0.5}));
    EXPECT_EQ(Trace(*filter, kWaveform2, 4), (std::vector<double>{0, 0, -0.5, -0.5}));
}

TEST_F(OndaraFilterTest, IgnoresABlockWithAChannelMissing) {
    Init(4.0);
    CTestChannels one(1, 4, 1.0F);
    CTestChannels outputs{};
    filter->Process(MakeRecord(one, outputs, 4));
    Refresh(*filter);
    EXPECT_EQ(Trace(*filter, kWaveform1, 4), std::vector<double>(4));
}

TEST_F(OndaraFilterTest, FallsSilentASecondAfterItsInput) {
    Init(100.0);
    SetParams(0.0);
    Feed(*filter, {1, 1}, {1, 1});
    CTestChannels inputs(2, 60);
    CTestChannels outputs{};
    EXPECT_TRUE(filter->ProcessSilence(MakeRecord(inputs, outputs, 60)));
    EXPECT_TRUE(filter->ProcessSilence(MakeRecord(inputs, outputs, 60)));
    EXPECT_FALSE(filter->ProcessSilence(MakeRecord(inputs, outputs, 60)));
    Refresh(*filter);
    EXPECT_EQ(Trace(*filter, kWaveform1, 100), std::vector<double>(100));
}

TEST_F(OndaraFilterTest, PacesBothChannelsAsOne) {
    Init(1000.0);
    IOutputDataSync* sync = filter->GetOutputDataSync();
    sync->SetRefreshRate(10.0);
    sync->Reset();
    Feed(*filter, std::vector<float>(99), std::vector<float>(99));
    EXPECT_FALSE(sync->IsRefreshNeeded());
    Feed(*filter, {0}, {0});
    EXPECT_TRUE(sync->IsRefreshNeeded());
    EXPECT_EQ(sync->GetRefreshRate(), 10.0);
}

TEST_F(OndaraFilterTest, ClonesToAnEqualAndIndependentTree) {
    Init(8.0);
    SetParams(1.0, 1.0, 1.0, 125.0);
    Feed(*filter, {1, 0.5F, 0.25F}, {-1, -0.5F, 0.75F});
    const std::unique_ptr<IFilter> clone(filter->Clone());
    for (int curve = 0; curve < 4; ++curve) {
        EXPECT_EQ(Trace(*clone, curve, 33), Trace(*filter, curve, 33)) << curve;
        EXPECT_NE(&clone->GetOutputCurves().Get(curve), &filter->GetOutputCurves().Get(curve));
    }
    const std::vector<double> before = Trace(*filter, kWaveform1, 33);
    Feed(*clone, {0.5F, 0.5F}, {0.25F, 0.125F});
    EXPECT_EQ(Trace(*filter, kWaveform1, 33), before);
    Feed(*filter, {0.5F, 0.5F}, {0.25F, 0.125F});
    for (int curve = 0; curve < 4; ++curve) {
        EXPECT_EQ(Trace(*clone, curve, 33), Trace(*filter, curve, 33)) << curve;
    }
    filter.reset();
    Feed(*clone, {1}, {1});
    EXPECT_STREQ(clone->GetOutputCurveInfos().Get(kHistogram2).GetName(), "Histogram (2)");
    EXPECT_STREQ(clone->GetInputParamInfos().Get(5).GetName(), "Trigger Direction");
}

TEST_F(OndaraFilterTest, SharesItsTablesBetweenInstancesAndNothingElse) {
    const std::unique_ptr<IFilter> other = CreateOndaraFilter();
    EXPECT_EQ(&filter->GetInputParamInfos().Get(1), &other->GetInputParamInfos().Get(1));
    Init(4.0);
    other->Init({}, 4.0);
    Feed(*filter, {1, 1}, {1, 1});
    Refresh(*other);
    EXPECT_EQ(Trace(*other, kWaveform1, 4), std::vector<double>(4));
}

} // namespace
} // namespace PluginsFilters
