#include "filters/Oscilloscope.h"

#include "audio/dsp/FilterTestKit.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <numeric>

namespace PluginsFilters {
namespace {

using namespace Vorin::Audio::DSP;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// An oscilloscope at a rate, with short ways to feed it.
class OscilloscopeTest : public ::testing::Test {
protected:
    enum EView { kFlow, kLoop, kTrigger };

    void Init(double rate) { filter.Init({}, rate); }

    void SetParams(double view, double sync = 0.0, double delay = 0.0, double level = 0.0,
                   double direction = 0.0) {
        filter.SetInputParams(CTestVariations{CTestValues{view, sync, delay, level, direction}});
    }

    void Feed(const std::vector<float>& samples, const IConstInputRamp* ramp = nullptr) {
        CTestChannels inputs{samples};
        CTestChannels outputs{};
        filter.Process(MakeRecord(inputs, outputs, static_cast<int>(samples.size()), ramp));
    }

    bool FeedSilence(int frames) {
        CTestChannels inputs(1, frames);
        CTestChannels outputs{};
        return filter.ProcessSilence(MakeRecord(inputs, outputs, frames));
    }

    void Refresh() {
        filter.UpdateOutputs();
        filter.PublishOutputs();
    }

    double WaveformAt(double x) const { return filter.GetOutputCurves().Get(0).Evaluate(x); }
    double HistogramAt(double x) const { return filter.GetOutputCurves().Get(1).Evaluate(x); }

    /// The waveform at each sample of the circle, from x = -1 to x = 0.
    std::vector<double> Trace() const {
        const int count = scope.GetWaveform().GetCount();
        std::vector<double> values;
        for (int i = 0; i < count; ++i) {
            values.push_back(WaveformAt(-1.0 + static_cast<double>(i) / (count - 1)));
        }
        return values;
    }

    std::vector<float> Bins() {
        filter.UpdateOutputs();
        const auto& table = scope.GetHistogram().GetTable();
        return {table.GetValues(), table.GetValues() + table.GetCount()};
    }

    int BinOf(float sample) {
        Init(8000.0);
        Feed({sample});
        const std::vector<float> bins = Bins();
        EXPECT_EQ(std::accumulate(bins.begin(), bins.end(), 0.0F), 1.0F);
        return static_cast<int>(std::find(bins.begin(), bins.end(), 1.0F) - bins.begin());
    }

    float TableEntry(int index) const { return scope.GetWaveform().GetTable().GetValues()[index]; }

    COscilloscope scope;
    IFilter& filter = scope;
};

TEST_F(OscilloscopeTest, HasTheSizesOf44100Hz) {
    Init(44100.0);
    EXPECT_EQ(scope.GetWaveform().GetCount(), 44100);
    EXPECT_EQ(scope.GetWaveform().GetTable().GetCount(), 44103);
    EXPECT_EQ(scope.GetBinHistory().GetCount(), 65536);
    EXPECT_EQ(scope.GetBinWindow(), 44100);
    EXPECT_EQ(scope.GetDelayLine().GetCount(), 16384);
    EXPECT_EQ(scope.GetTailSamples(), 44100);
    EXPECT_EQ(scope.GetLatency(), 0);
}

TEST_F(OscilloscopeTest, CountsOneSecondRoundedToTheNearestSample) {
    Init(44100.4);
    EXPECT_EQ(scope.GetWaveform().GetCount(), 44100);
    Init(1234.5);
    EXPECT_EQ(scope.GetWaveform().GetCount(), 1235);
    EXPECT_EQ(scope.GetWaveform().GetTable().GetScale(), 1234.0F);
    // 370.35 + 0.5 samples of delay, in a power of two.
    EXPECT_EQ(scope.GetDelayLine().GetCount(), 512);
}

TEST_F(OscilloscopeTest, KeepsABinHistoryThatIsAPowerOfTwoExactly) {
    Init(65536.0);
    EXPECT_EQ(scope.GetBinHistory().GetCount(), 65536);
    EXPECT_EQ(scope.GetBinWindow(), 65536);
}

TEST_F(OscilloscopeTest, HoldsTheNewestSampleAloneInTheHistogramAtARateOfAPowerOfTwo) {
    Init(1024.0);
    Feed({-1.0F, 0.0F, 0.5F, 1.0F});
    std::vector<float> expected(151);
    expected[150] = 1.0F;
    EXPECT_EQ(Bins(), expected);
}

TEST_F(OscilloscopeTest, DelaysBy13230SamplesAt300MillisecondsAnd44100Hz) {
    Init(44100.0);
    SetParams(kFlow, 0.0, 300.0);
    std::vector<float> impulse(13232);
    impulse[0] = 0.5F;
    Feed(impulse);
    EXPECT_EQ(TableEntry(13230), 0.0F);
    EXPECT_EQ(TableEntry(13231), 0.5F);
    EXPECT_EQ(TableEntry(13232), 0.0F);
}

TEST_F(OscilloscopeTest, TruncatesTheDelayToWholeSamples) {
    Init(1000.0);
    SetParams(kFlow, 0.0, 2.999);
    Feed(MakeCount(5));
    EXPECT_EQ(TableEntry(3), 1.0F);
    EXPECT_EQ(TableEntry(2), 0.0F);
}

TEST_F(OscilloscopeTest, ComputesTheDelayAnewWhenTheSampleRateChanges) {
    Init(1000.0);
    SetParams(kFlow, 0.0, 2.0);
    Init(2000.0);
    Feed(MakeCount(6));
    EXPECT_EQ(TableEntry(4), 0.0F);
    EXPECT_EQ(TableEntry(5), 1.0F);
}

TEST_F(OscilloscopeTest, TakesNoDelayFromValuesThatAreNone) {
    Init(1000.0);
    for (const double delay : {-5.0, std::numeric_limits<double>::quiet_NaN()}) {
        SetParams(kFlow, 0.0, delay);
        filter.Reset();
        Feed({0.5F});
        EXPECT_EQ(TableEntry(1), 0.5F) << delay;
    }
    SetParams(kFlow, 0.0, 1e300);
    Feed(MakeCount(3000)); // reads within the delay line, whatever it finds there
}

TEST_F(OscilloscopeTest, CountsEachSampleInTheNearestOf151Bins) {
    EXPECT_EQ(BinOf(1.0F), 150);
    EXPECT_EQ(BinOf(-1.0F), 0);
    EXPECT_EQ(BinOf(0.0F), 75);
    EXPECT_EQ(BinOf(0.5F), 113); // 37.5 bins above the middle
    EXPECT_EQ(BinOf(-0.5F), 38);
}

TEST_F(OscilloscopeTest, CountsWhatLiesOutsideTheRangeInTheOuterBins) {
    EXPECT_EQ(BinOf(3.0F), 150);
    EXPECT_EQ(BinOf(kInfinity), 150);
    EXPECT_EQ(BinOf(-3.0F), 0);
    EXPECT_EQ(BinOf(-kInfinity), 0);
    EXPECT_EQ(BinOf(kNaN), 0);
}

TEST_F(OscilloscopeTest, KeepsANaNInTheTraceAsItIs) {
    Init(8.0);
    Feed({0.25F, kNaN, 0.5F});
    EXPECT_EQ(BitsOf(TableEntry(2)), BitsOf(kNaN));
    EXPECT_EQ(TableEntry(3), 0.5F);
}

TEST_F(OscilloscopeTest, ForgetsASampleInTheHistogramWhenMoreThanASecondHasFollowedIt) {
    Init(10.0);
    Feed({1.0F});
    Feed(std::vector<float>(10));
    EXPECT_EQ(Bins()[150], 1.0F);
    EXPECT_EQ(Bins()[75], 10.0F);
    Feed({0.0F});
    EXPECT_EQ(Bins()[150], 0.0F);
    EXPECT_EQ(Bins()[75], 11.0F);
}

TEST_F(OscilloscopeTest, ReadsAZeroHistogramBeforeTheFirstSample) {
    Init(44100.0);
    Refresh();
    for (int bin = 0; bin <= 150; ++bin) {
        EXPECT_EQ(HistogramAt(-1.0 + bin / 75.0), 0.0);
    }
}

TEST_F(OscilloscopeTest, PublishesOnceAfterInitWithoutAnySample) {
    Init(8.0);
    Refresh();
    EXPECT_TRUE(filter.GetOutputCurveChanges().Get(0).IsDirty());
    EXPECT_TRUE(filter.GetOutputCurveChanges().Get(1).IsDirty());
    filter.GetOutputCurveChanges().Get(0).ClearDirty();
    filter.GetOutputCurveChanges().Get(1).ClearDirty();
    Refresh();
    EXPECT_FALSE(filter.GetOutputCurveChanges().Get(0).IsDirty());
    EXPECT_FALSE(filter.GetOutputCurveChanges().Get(1).IsDirty());
}

TEST_F(OscilloscopeTest, NormalizesTheHistogramToItsTallestBin) {
    Init(100.0);
    Feed({1.0F, 0.0F, 0.0F, 0.0F, 0.0F});
    Refresh();
    EXPECT_EQ(HistogramAt(0.0), 1.0);
    EXPECT_EQ(HistogramAt(1.0), 0.25);
    EXPECT_EQ(HistogramAt(2.0), 0.25);
    EXPECT_EQ(HistogramAt(-1.0), 0.0);
}

TEST_F(OscilloscopeTest, FillsTheGuardsBeforeTheHeadWrapsWithinABlock) {
    Init(4.0);
    Feed({1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F});
    const std::vector<float> expected{0.0F, 5.0F, 6.0F, 3.0F, 4.0F, 4.0F, 4.0F};
    const float* table = scope.GetWaveform().GetTable().GetValues();
    EXPECT_EQ(std::vector<float>(table, table + 7), expected);
    EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 2);
}

TEST_F(OscilloscopeTest, WritesNoGuardOnACircleOfOneSample) {
    Init(1.0);
    Feed({0.5F});
    const float* table = scope.GetWaveform().GetTable().GetValues();
    EXPECT_EQ(std::vector<float>(table, table + 4), (std::vector<float>{0.0F, 0.5F, 0.0F, 0.0F}));
    EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 0);
}

TEST_F(OscilloscopeTest, ShowsTheNewestSampleAtTheRightEdgeInFlow) {
    Init(5.0);
    SetParams(kFlow);
    Feed({1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F});
    Refresh();
    EXPECT_EQ(Trace(), (std::vector<double>{3, 4, 5, 6, 7}));
}

TEST_F(OscilloscopeTest, LetsTheHeadSweepOverAStandingTraceInLoop) {
    Init(5.0);
    SetParams(kLoop);
    Feed({1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F});
    Refresh();
    EXPECT_EQ(Trace(), (std::vector<double>{6, 7, 3, 4, 5}));
}

TEST_F(OscilloscopeTest, EndsTheTraceWithTheLastSampleBeforeAnUpwardCrossing) {
    Init(8.0);
    SetParams(kTrigger, 0.0, 0.0, 0.5, 0.0);
    // Crosses 0.5 upward between 0.25, which has index 3, and 0.75; the newest lies above.
    Feed({-1.0F, 0.0625F, 0.125F, 0.25F, 0.75F, 0.875F, 1.0F});
    Refresh();
    EXPECT_EQ(scope.GetWaveform().GetOffset(), 4);
    EXPECT_EQ(scope.GetWaveform().GetLimit(), 4);
    // The three samples that are newer than the crossing give way to the oldest one, a zero.
    EXPECT_EQ(Trace(), (std::vector<double>{0, 0, 0, 0, -1, 0.0625, 0.125, 0.25}));
}

TEST_F(OscilloscopeTest, WalksBackOverWhatLiesBelowToFindAnUpwardCrossing) {
    Init(8.0);
    SetParams(kTrigger, 0.0, 0.0, 0.5, 0.0);
    Feed({0.0F, 0.1875F, 0.75F, 0.875F, 0.375F, 0.25F});
    Refresh();
    EXPECT_EQ(scope.GetWaveform().GetOffset(), 2);
    EXPECT_EQ(WaveformAt(0.0), 0.1875);
}

TEST_F(OscilloscopeTest, EndsTheTraceWithTheLastSampleBeforeADownwardCrossing) {
    Init(8.0);
    SetParams(kTrigger, 0.0, 0.0, 0.5, 1.0);
    Feed({0.75F, 0.875F, 0.5F, 0.375F, 0.25F});
    Refresh();
    EXPECT_EQ(scope.GetWaveform().GetOffset(), 3);
    EXPECT_EQ(WaveformAt(0.0), 0.5);
    // What has come back above the level is walked over.
    Feed({0.75F, 0.875F});
    Refresh();
    EXPECT_EQ(scope.GetWaveform().GetOffset(), 3);
    EXPECT_EQ(WaveformAt(0.0), 0.5);
}

TEST_F(OscilloscopeTest, FindsACrossingAcrossTheSeamOfTheCircle) {
    Init(4.0);
    SetParams(kTrigger, 0.0, 0.0, 0.5, 0.0);
    // On the circle: 0.75 1 0 0.25, the head behind 1.
    Feed({0.0F, 0.0F, 0.0F, 0.25F, 0.75F, 1.0F});
    Refresh();
    EXPECT_EQ(scope.GetWaveform().GetOffset(), 4);
    EXPECT_EQ(WaveformAt(0.0), 0.25);
}

TEST_F(OscilloscopeTest, FallsBackToFlowWhenTheInputStaysAboveTheLevel) {
    Init(8.0);
    SetParams(kTrigger, 0.0, 0.0, 0.5, 0.0);
    Feed(std::vector<float>(19, 0.75F));
    Refresh();
    EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 3);
    EXPECT_EQ(scope.GetWaveform().GetOffset(), 3);
    EXPECT_EQ(scope.GetWaveform().GetLimit(), 3);
    EXPECT_EQ(Trace(), std::vector<double>(8, 0.75));
}

TEST_F(OscilloscopeTest, PlacesASampleExactlyOnTheLevelAtTheFirstPlaceOfTheCircle) {
    for (const double direction : {0.0, 1.0}) {
        Init(8.0);
        SetParams(kTrigger, 0.0, 0.0, 0.5, direction);
        Feed({0.25F, 0.75F, 0.25F, 0.5F});
        Refresh();
        EXPECT_EQ(scope.GetWaveform().GetOffset(), 1);
        EXPECT_EQ(WaveformAt(0.0), 0.25);
    }
}

TEST_F(OscilloscopeTest, ChoosesTheViewByTheMiddlesBetweenItsValues) {
    Init(8.0);
    Feed({0.25F, 0.5F, 0.75F});
    const auto offsetFor = [this](double view) {
        // The newest sample alone lies above the level: the trigger is behind the second.
        SetParams(view, 0.0, 0.0, 0.5, 0.0);
        filter.UpdateOutputs();
        return scope.GetWaveform().GetOffset();
    };
    EXPECT_EQ(offsetFor(0.5), 3);
    EXPECT_EQ(offsetFor(0.51), 0);
    EXPECT_EQ(offsetFor(1.5), 0);
    EXPECT_EQ(offsetFor(1.51), 2);
    EXPECT_EQ(offsetFor(-7.0), 3);
    EXPECT_EQ(offsetFor(99.0), 2);
}

TEST_F(OscilloscopeTest, ForgetsAllHistoryWhenSyncFlipsEitherWay) {
    Init(8.0);
    for (const double sync : {1.0, 0.0}) {
        SetParams(kFlow, 1.0 - sync);
        Feed({1.0F, 0.5F});
        SetParams(kFlow, sync);
        EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 0);
        EXPECT_EQ(TableEntry(1), 0.0F);
        EXPECT_EQ(Bins(), std::vector<float>(151));
        Refresh();
        EXPECT_EQ(Trace(), std::vector<double>(8));
    }
}

TEST_F(OscilloscopeTest, KeepsItsHistoryWhenSyncIsSetToWhatItIs) {
    Init(8.0);
    SetParams(kFlow, 1.0);
    Feed({1.0F, 0.5F});
    SetParams(kLoop, 0.51);
    EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 2);
}

TEST_F(OscilloscopeTest, AppliesTheValuesOfARampAtBothEdgesOfTheBlock) {
    Init(1000.0);
    const CTestRamp ramp({CTestValues{0, 0, 1, 0, 0}}, {CTestValues{0, 0, 3, 0, 0}});
    Feed({1.0F, 2.0F, 3.0F, 4.0F}, &ramp);
    Feed({5.0F, 6.0F});
    const float* samples = scope.GetWaveform().GetSamples();
    EXPECT_EQ(std::vector<float>(samples, samples + 6), (std::vector<float>{0, 1, 2, 3, 2, 3}));
}

TEST_F(OscilloscopeTest, ReadsItsInputInAnyStride) {
    Init(8.0);
    std::vector<float> samples{1.0F, -1.0F, 2.0F, -2.0F, 3.0F, -3.0F};
    CAudioStream stream(samples.data(), 6, 2);
    CAudioStreams inputs(&stream, 1);
    CTestChannels outputs{};
    filter.Process(MakeRecord(inputs, outputs, 3));
    const float* circle = scope.GetWaveform().GetSamples();
    EXPECT_EQ(std::vector<float>(circle, circle + 4), (std::vector<float>{1, 2, 3, 0}));
}

TEST_F(OscilloscopeTest, DoesNothingWithoutAnInput) {
    Init(8.0);
    filter.GetOutputDataSync()->SetRefreshRate(1.0);
    filter.GetOutputDataSync()->Reset();
    Refresh();
    filter.GetOutputCurveChanges().Get(0).ClearDirty();
    CTestChannels none{};
    CTestChannels outputs{};
    filter.Process(MakeRecord(none, outputs, 100));
    EXPECT_FALSE(filter.GetOutputDataSync()->IsRefreshNeeded());
    Refresh();
    EXPECT_FALSE(filter.GetOutputCurveChanges().Get(0).IsDirty());
}

TEST_F(OscilloscopeTest, TracesTheTailForASecondAndThenTakesTheCheapPath) {
    Init(10.0);
    Feed(std::vector<float>(10, 1.0F));
    EXPECT_TRUE(FeedSilence(8));
    EXPECT_EQ(Bins()[75], 8.0F);
    // This call begins within the second, and runs as a whole.
    EXPECT_TRUE(FeedSilence(8));
    EXPECT_EQ(Bins()[150], 0.0F);
    EXPECT_EQ(Bins()[75], 11.0F);
    EXPECT_FALSE(FeedSilence(8));
}

TEST_F(OscilloscopeTest, PublishesNothingMoreOnTheCheapPathAndKeepsTheFlatTrace) {
    Init(8.0);
    Feed(std::vector<float>(8, 1.0F));
    FeedSilence(8);
    Refresh();
    filter.GetOutputCurveChanges().Get(0).ClearDirty();
    EXPECT_FALSE(FeedSilence(5));
    Refresh();
    EXPECT_FALSE(filter.GetOutputCurveChanges().Get(0).IsDirty());
    EXPECT_EQ(Trace(), std::vector<double>(8));
    EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 5);
    EXPECT_EQ(scope.GetDelayLine().GetBehind(0), 0.0F);
}

TEST_F(OscilloscopeTest, WritesZerosWithTheirGuardsOnTheCheapPath) {
    Init(4.0);
    FeedSilence(4);
    scope.Reset();
    Feed({1.0F, 2.0F, 3.0F, 4.0F});
    FeedSilence(4); // the tail
    Feed({5.0F});
    FeedSilence(4);
    EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 1);
    EXPECT_FALSE(FeedSilence(3));
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(TableEntry(i), 0.0F) << i;
    }
    EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 0);
}

TEST_F(OscilloscopeTest, AsksForARefreshByTheSamplesOfBothPaths) {
    Init(1000.0);
    filter.GetOutputDataSync()->SetRefreshRate(10.0);
    filter.GetOutputDataSync()->Reset();
    Feed(std::vector<float>(99));
    EXPECT_FALSE(filter.GetOutputDataSync()->IsRefreshNeeded());
    Feed({0.0F});
    EXPECT_TRUE(filter.GetOutputDataSync()->IsRefreshNeeded());
    FeedSilence(1000);
    filter.GetOutputDataSync()->Reset();
    FeedSilence(99);
    EXPECT_FALSE(filter.GetOutputDataSync()->IsRefreshNeeded());
    FeedSilence(1);
    EXPECT_TRUE(filter.GetOutputDataSync()->IsRefreshNeeded());
}

TEST_F(OscilloscopeTest, ShowsReadersNothingNewUntilItPublishes) {
    Init(8.0);
    Feed({0.25F, 0.5F});
    Refresh();
    const std::vector<double> before = Trace();
    const double histogram = HistogramAt(0.5);
    Feed({1.0F, 1.0F, 1.0F});
    EXPECT_EQ(Trace(), before);
    filter.UpdateOutputs();
    EXPECT_EQ(Trace(), before);
    EXPECT_EQ(HistogramAt(0.5), histogram);
    filter.PublishOutputs();
    EXPECT_EQ(Trace(), (std::vector<double>{0, 0, 0, 0.25, 0.5, 1, 1, 1}));
}

TEST_F(OscilloscopeTest, KeepsTheListOfItsCurvesForLife) {
    const IConstCurves* curves = &filter.GetOutputCurves();
    const Vorin::Math::IFunction* waveform = &curves->Get(0);
    const Vorin::Math::IFunction* histogram = &curves->Get(1);
    for (const double rate : {8.0, 44100.0, 96000.0}) {
        Init(rate);
        Refresh();
        ASSERT_EQ(curves, &filter.GetOutputCurves());
        ASSERT_EQ(curves->GetCount(), 2);
        EXPECT_EQ(&curves->Get(0), waveform);
        EXPECT_EQ(&curves->Get(1), histogram);
    }
}

TEST_F(OscilloscopeTest, ClonesToAnEqualAndIndependentFilter) {
    Init(8.0);
    SetParams(kTrigger, 1.0, 250.0, 0.25, 1.0);
    Feed({0.125F, 0.25F, 0.5F, 1.0F, 0.75F});
    Refresh();
    Feed({0.375F});
    const std::unique_ptr<IFilter> clone(filter.Clone());
    const IFilter& constClone = *clone;
    const auto traceOf = [](const IFilter& one) {
        std::vector<double> values;
        for (int i = 0; i < 50; ++i) {
            values.push_back(one.GetOutputCurves().Get(0).Evaluate(-1.0 + i / 49.0));
            values.push_back(one.GetOutputCurves().Get(1).Evaluate(-1.0 + i / 24.5));
        }
        return values;
    };
    EXPECT_EQ(traceOf(constClone), traceOf(filter));
    EXPECT_NE(&constClone.GetOutputCurves(), &filter.GetOutputCurves());
    EXPECT_NE(&constClone.GetOutputCurves().Get(0), &filter.GetOutputCurves().Get(0));

    // The unpublished state has come along too, delay line and parameters included.
    const std::vector<double> before = traceOf(filter);
    const auto feed = [](IFilter& one) {
        CTestChannels inputs{{0.25F, -0.25F, 0.5F, -0.5F}};
        CTestChannels outputs{};
        one.Process(MakeRecord(inputs, outputs, 4));
        one.UpdateOutputs();
        one.PublishOutputs();
    };
    feed(*clone);
    EXPECT_EQ(traceOf(filter), before);
    feed(filter);
    EXPECT_EQ(traceOf(constClone), traceOf(filter));
    EXPECT_NE(traceOf(filter), before);
}

TEST_F(OscilloscopeTest, OutlivesTheFilterThatItWasClonedFrom) {
    auto original = std::make_unique<COscilloscope>();
    static_cast<IFilter&>(*original).Init({}, 8.0);
    const std::unique_ptr<IFilter> clone(static_cast<IFilter&>(*original).Clone());
    original.reset();
    CTestChannels inputs{{1.0F}};
    CTestChannels outputs{};
    clone->Process(MakeRecord(inputs, outputs, 1));
    clone->UpdateOutputs();
    clone->PublishOutputs();
    EXPECT_EQ(clone->GetOutputCurves().Get(0).Evaluate(0.0), 1.0);
    EXPECT_EQ(clone->GetOutputCurves().Get(1).Evaluate(1.0), 1.0);
}

TEST_F(OscilloscopeTest, ClonesBeforeItsFirstInit) {
    const std::unique_ptr<IFilter> clone(filter.Clone());
    clone->Init({}, 8.0);
    EXPECT_EQ(clone->GetTailSamples(), 8);
    EXPECT_EQ(filter.GetTailSamples(), 0);
}

TEST_F(OscilloscopeTest, SurvivesBlocksBeforeItsFirstInit) {
    Feed({1.0F, 2.0F});
    FeedSilence(3);
    SetParams(kTrigger, 1.0, 100.0, 0.0, 0.0);
    Refresh();
    EXPECT_EQ(WaveformAt(-0.5), 0.0);
    EXPECT_EQ(HistogramAt(0.0), 0.0);
}

TEST_F(OscilloscopeTest, SurvivesRatesAndFrameCountsThatAreNone) {
    for (const double rate : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), 0.2}) {
        Init(rate);
        Feed({1.0F, 0.5F});
        Refresh();
        EXPECT_EQ(scope.GetWaveform().GetCount(), 1) << rate;
    }
    CTestChannels inputs{{1.0F}};
    CTestChannels outputs{};
    for (const int frames : {0, -1, std::numeric_limits<int>::min()}) {
        filter.Process(MakeRecord(inputs, outputs, frames));
        filter.ProcessSilence(MakeRecord(inputs, outputs, frames));
        EXPECT_EQ(scope.GetWaveform().GetCurrentIndex(), 0);
    }
}

} // namespace
} // namespace PluginsFilters
