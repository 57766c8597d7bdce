#include "math/CircularLUTFunction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace Vorin::Math {
namespace {

using Table = TLookupTable<float, TConstrainedSplineInterpolator<float, float>>;
using Trace = TCircularLUTFunction<Table>;

/// A circle of `count` samples over -1 to 0 that has taken `samples`, seen up to the newest one.
Trace MakeTrace(int count, const std::vector<float>& samples) {
    Trace trace(-1.0F, 0.0F);
    trace.SetCount(count);
    trace.Write(samples.data(), static_cast<int>(samples.size()));
    trace.SetView(trace.GetCurrentIndex(), trace.GetCurrentIndex());
    return trace;
}

std::vector<float> TableOf(const Trace& trace) {
    const float* values = trace.GetTable().GetValues();
    return {values, values + trace.GetTable().GetCount()};
}

std::vector<double> Grid(const Trace& trace) {
    std::vector<double> values;
    for (int i = 0; i < trace.GetCount(); ++i) {
        values.push_back(trace.Evaluate(-1.0 + static_cast<double>(i) / (trace.GetCount() - 1)));
    }
    return values;
}

TEST(CircularLUTFunctionTest, HasThreeEntriesMoreThanSamples) {
    const Trace trace = MakeTrace(5, {});
    EXPECT_EQ(trace.GetCount(), 5);
    EXPECT_EQ(trace.GetTable().GetCount(), 8);
    EXPECT_EQ(trace.GetTable().GetScale(), 4.0F);
    EXPECT_EQ(TableOf(trace), std::vector<float>(8));
    EXPECT_EQ(trace.GetSamples(), trace.GetTable().GetValues() + 1);
}

TEST(CircularLUTFunctionTest, HasAtLeastOneSample) {
    EXPECT_EQ(MakeTrace(0, {}).GetCount(), 1);
    EXPECT_EQ(MakeTrace(-3, {}).GetCount(), 1);
}

TEST(CircularLUTFunctionTest, StoresSampleIInEntryIPlus1) {
    EXPECT_EQ(TableOf(MakeTrace(5, {1, 2, 3})), (std::vector<float>{0, 1, 2, 3, 0, 0, 0, 0}));
}

TEST(CircularLUTFunctionTest, RepeatsTheLastSampleOfTheCircleInTheGuards) {
    EXPECT_EQ(TableOf(MakeTrace(4, {1, 2, 3, 4})), (std::vector<float>{0, 1, 2, 3, 4, 4, 4}));
    // The head has gone on, and the guards stay until it comes by again.
    EXPECT_EQ(TableOf(MakeTrace(4, {1, 2, 3, 4, 5, 6})), (std::vector<float>{0, 5, 6, 3, 4, 4, 4}));
}

TEST(CircularLUTFunctionTest, WritesNoGuardOnACircleOfOneSample) {
    const Trace trace = MakeTrace(1, {7, 8});
    EXPECT_EQ(TableOf(trace), (std::vector<float>{0, 8, 0, 0}));
    EXPECT_EQ(trace.GetCurrentIndex(), 0);
    EXPECT_EQ(trace.Evaluate(-0.5), 8.0);
}

TEST(CircularLUTFunctionTest, WrapsTheHeadInRunsOfAnyLength) {
    std::vector<float> samples(23);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<float>(i);
    }
    const Trace atOnce = MakeTrace(5, samples);
    Trace inTurn = MakeTrace(5, {});
    for (const float sample : samples) {
        inTurn.Write(&sample, 1);
    }
    EXPECT_EQ(atOnce.GetCurrentIndex(), 3);
    EXPECT_EQ(inTurn.GetCurrentIndex(), 3);
    EXPECT_EQ(TableOf(atOnce), (std::vector<float>{0, 20, 21, 22, 18, 19, 19, 19}));
    EXPECT_EQ(TableOf(inTurn), TableOf(atOnce));
}

TEST(CircularLUTFunctionTest, WritesZerosAndTheirGuards) {
    Trace trace = MakeTrace(4, {1, 2, 3, 4, 5});
    trace.WriteZeros(4);
    EXPECT_EQ(TableOf(trace), std::vector<float>(7));
    EXPECT_EQ(trace.GetCurrentIndex(), 1);
    trace.WriteZeros(-1);
    EXPECT_EQ(trace.GetCurrentIndex(), 1);
}

TEST(CircularLUTFunctionTest, PutsTheOffsetAtTheLeftEnd) {
    Trace trace = MakeTrace(5, {1, 2, 3, 4, 5, 6, 7});
    EXPECT_EQ(Grid(trace), (std::vector<double>{3, 4, 5, 6, 7}));
    trace.SetView(0, trace.GetCurrentIndex());
    EXPECT_EQ(Grid(trace), (std::vector<double>{6, 7, 3, 4, 5}));
    // An offset of the whole count is the start of the circle.
    trace.SetView(5, trace.GetCurrentIndex());
    EXPECT_EQ(Grid(trace), (std::vector<double>{6, 7, 3, 4, 5}));
}

TEST(CircularLUTFunctionTest, HidesWhatLiesBetweenTheLimitAndTheHead) {
    Trace trace = MakeTrace(5, {1, 2, 3, 4, 5, 6, 7, 8}); // circle 6 7 8 4 5, the oldest is 4
    trace.SetView(1, 1);
    EXPECT_EQ(Grid(trace), (std::vector<double>{4, 4, 4, 5, 6}));
}

TEST(CircularLUTFunctionTest, HidesAcrossTheSeamWhenTheLimitLiesBehindTheHead) {
    Trace trace = MakeTrace(5, {1, 2, 3, 4, 5, 6}); // circle 6 2 3 4 5, the oldest is 2
    trace.SetView(4, 4);
    EXPECT_EQ(Grid(trace), (std::vector<double>{2, 2, 2, 3, 4}));
}

TEST(CircularLUTFunctionTest, CountsAPositionBeyondTheRangeAsItsEnd) {
    const Trace trace = MakeTrace(5, {1, 2, 3, 4, 5});
    EXPECT_EQ(trace.Evaluate(-1.5), 1.0);
    EXPECT_EQ(trace.Evaluate(-std::numeric_limits<double>::infinity()), 1.0);
    EXPECT_EQ(trace.Evaluate(0.5), 5.0);
    EXPECT_EQ(trace.Evaluate(std::numeric_limits<double>::infinity()), 5.0);
    EXPECT_EQ(trace.Evaluate(std::numeric_limits<double>::quiet_NaN()), 1.0);
}

TEST(CircularLUTFunctionTest, InterpolatesByTheConstrainedSpline) {
    const Trace trace = MakeTrace(5, {0, 1, 3, 3, 2});
    // Between 1 and 3: s = 2; the next difference is 0, so the slope at 3 is 0; the last one is 1,
    // so g = 1 * 2 * 2/3 / 3 = 4/9 and m0 = -8/9. h = s + m0 = 10/9, r = -s + g - h = -24/9. At f =
    // 1/2: (s - 3h - r) / 2 + 1 + (r / 2 + 3h) / 4 = 2/3 + 1 + 1/2 = 13/6.
    EXPECT_NEAR(trace.Evaluate(-0.625), 13.0 / 6.0, 1e-6);
    // Between 3 and 3 nothing moves.
    EXPECT_EQ(trace.Evaluate(-0.375), 3.0);
}

TEST(CircularLUTFunctionTest, NeverOvershootsBetweenTwoSamples) {
    std::mt19937 random(9);
    std::uniform_real_distribution<float> value(-1.0F, 1.0F);
    std::vector<float> samples(64);
    std::generate(samples.begin(), samples.end(), [&] { return value(random); });
    const Trace trace = MakeTrace(64, samples);
    for (std::size_t i = 0; i + 1 < samples.size(); ++i) {
        const double low = std::min(samples[i], samples[i + 1]);
        const double high = std::max(samples[i], samples[i + 1]);
        for (int part = 0; part <= 20; ++part) {
            const double x = -1.0 + (static_cast<double>(i) + part / 20.0) / 63.0;
            const double y = trace.Evaluate(x);
            // The position is a float, so that x may fall a little beside the two samples.
            EXPECT_GE(y, low - 1e-4) << i;
            EXPECT_LE(y, high + 1e-4) << i;
        }
    }
}

TEST(CircularLUTFunctionTest, StaysInsideTheTableWhenThePositionRoundsUp) {
    // Just below 65536 a float cannot hold the position plus one.
    Trace trace(-1.0F, 0.0F);
    trace.SetCount(65536);
    const std::vector<float> samples(65536, 0.25F);
    trace.Write(samples.data(), 65536);
    for (int offset = 0; offset < 4; ++offset) {
        trace.SetView(offset, trace.GetCurrentIndex());
        for (double x = -1e-4; x <= 0.0; x += 1e-7) {
            ASSERT_EQ(trace.Evaluate(x), 0.25);
        }
    }
}

TEST(CircularLUTFunctionTest, ReadsZeroWhileItHasNoTable) {
    EXPECT_EQ(Trace().Evaluate(0.5), 0.0);
    EXPECT_EQ(Trace(-1.0F, 0.0F).Evaluate(-0.5), 0.0);
}

TEST(CircularLUTFunctionTest, ForgetsItsSamplesButKeepsItsLimitAtAReset) {
    Trace trace = MakeTrace(5, {1, 2, 3});
    trace.Reset();
    EXPECT_EQ(TableOf(trace), std::vector<float>(8));
    EXPECT_EQ(trace.GetCurrentIndex(), 0);
    EXPECT_EQ(trace.GetOffset(), 0);
    EXPECT_EQ(trace.GetLimit(), 3);
}

TEST(CircularLUTFunctionTest, KeepsTheSamplesThatFitWhenItsCountChanges) {
    Trace trace = MakeTrace(5, {1, 2, 3});
    trace.SetCount(7);
    EXPECT_EQ(TableOf(trace), (std::vector<float>{0, 1, 2, 3, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(trace.GetTable().GetScale(), 6.0F);
    trace.SetCount(2);
    EXPECT_EQ(TableOf(trace), (std::vector<float>{0, 1, 2, 3, 0}));
    const float four = 4.0F;
    trace.Write(&four, 1);
    EXPECT_EQ(TableOf(trace)[1], 4.0F);
}

TEST(CircularLUTFunctionTest, KeepsTheScaleOfARangeWithoutLength) {
    Trace trace(2.0F, 2.0F);
    trace.SetCount(5);
    const std::vector<float> samples{1, 2, 3, 4, 5};
    trace.Write(samples.data(), 5);
    EXPECT_EQ(trace.Evaluate(2.0), 1.0);
    EXPECT_EQ(trace.Evaluate(7.0), 1.0);
}

TEST(CircularLUTFunctionTest, ClonesToAnEqualAndIndependentFunction) {
    Trace trace = MakeTrace(5, {1, 2, 3, 4, 5, 6});
    const std::unique_ptr<IFunction> clone(trace.Clone());
    const auto* copy = dynamic_cast<const Trace*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(Grid(*copy), Grid(trace));
    const float nine = 9.0F;
    trace.Write(&nine, 1);
    trace.SetView(0, 0);
    EXPECT_EQ(Grid(*copy), (std::vector<double>{2, 3, 4, 5, 6}));
}

TEST(CircularLUTFunctionTest, TakesOverTableAndView) {
    Trace target = MakeTrace(3, {9, 9, 9});
    const Trace source = MakeTrace(5, {1, 2, 3, 4, 5, 6, 7});
    target.CopyFrom(source);
    EXPECT_EQ(TableOf(target), TableOf(source));
    EXPECT_EQ(Grid(target), (std::vector<double>{3, 4, 5, 6, 7}));
    EXPECT_EQ(target.GetCurrentIndex(), 2);
    EXPECT_EQ(target.GetLimit(), 2);
}

TEST(CircularLUTFunctionTest, HasAnIdentifierForEachType) {
    using Exact =
        TCircularLUTFunction<TLookupTable<double, TConstrainedSplineInterpolator<double, double>>>;
    EXPECT_STREQ(Trace().GetType(), "{AAC13163-0B6E-4a60-A1BE-257878A0B336}");
    EXPECT_STREQ(Exact().GetType(), "{F659F5AF-E3E2-455d-82B7-F07A47473B31}");
}

} // namespace
} // namespace Vorin::Math
