#include "math/Histogram.h"

#include "math/Interpolators.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace Vorin::Math {
namespace {

using Bins = TLookupTable<float, TNearestInterpolator<float, float>>;
using Histogram = THistogram<Bins>;

constexpr float kFloatNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kFloatInfinity = std::numeric_limits<float>::infinity();

std::vector<int> FindBins(const Histogram& histogram, const std::vector<float>& samples) {
    std::vector<int> bins(samples.size());
    histogram.FindBins(samples.data(), static_cast<int>(samples.size()), bins.data());
    return bins;
}

std::vector<float> FoldedTable(Histogram& histogram) {
    histogram.FoldIntoTable();
    const float* values = histogram.GetTable().GetValues();
    return {values, values + histogram.GetCount()};
}

void Count(Histogram& histogram, const std::vector<int>& added, const std::vector<int>& removed) {
    histogram.Count(added.data(), removed.data(), static_cast<int>(added.size()));
}

TEST(HistogramTest, FindsTheNearestBin) {
    const Histogram histogram(5, -1.0F, 1.0F); // bins at -1, -0.5, 0, 0.5 and 1
    EXPECT_EQ(histogram.GetTable().GetScale(), 2.0F);
    EXPECT_EQ(FindBins(histogram, {-1.0F, -0.76F, -0.74F, 0.0F, 0.24F, 0.26F, 0.75F, 1.0F}),
              (std::vector<int>{0, 0, 1, 2, 2, 3, 4, 4}));
}

TEST(HistogramTest, FindsTheBinOfASampleOutsideTheRangeAtItsEnds) {
    const Histogram histogram(5, -1.0F, 1.0F);
    EXPECT_EQ(FindBins(histogram, {1.5F, 3e38F, kFloatInfinity, -1.5F, -3e38F, -kFloatInfinity}),
              (std::vector<int>{4, 4, 4, 0, 0, 0}));
}

TEST(HistogramTest, FindsNaNInTheFirstBin) {
    const Histogram histogram(5, -1.0F, 1.0F);
    EXPECT_EQ(FindBins(histogram, {kFloatNaN, -kFloatNaN, kFloatNaN, kFloatNaN, kFloatNaN, 0.0F}),
              (std::vector<int>{0, 0, 0, 0, 0, 2}));
}

TEST(HistogramTest, FindsTheBinOfADenormalInTheMiddle) {
    const Histogram histogram(5, -1.0F, 1.0F);
    EXPECT_EQ(FindBins(histogram, {1e-40F, -1e-40F, -0.0F}), (std::vector<int>{2, 2, 2}));
}

TEST(HistogramTest, CountsWhatJoinsAndWhatLeaves) {
    Histogram histogram(3, 0.0F, 1.0F);
    constexpr int none = Histogram::kNoBin;
    Count(histogram, {0, 0, 1, 2, 2, 2}, {none, none, none, none, none, none});
    EXPECT_EQ(FoldedTable(histogram), (std::vector<float>{2, 1, 3}));
    Count(histogram, {1, 1}, {0, 2});
    EXPECT_EQ(FoldedTable(histogram), (std::vector<float>{1, 3, 2}));
}

TEST(HistogramTest, ShowsTheTableOfTheLastFold) {
    Histogram histogram(2, 0.0F, 1.0F);
    Count(histogram, {0}, {Histogram::kNoBin});
    EXPECT_EQ(histogram.GetTable().GetValues()[0], 0.0F);
    histogram.FoldIntoTable();
    EXPECT_EQ(histogram.GetTable().GetValues()[0], 1.0F);
}

TEST(HistogramTest, EmptiesTableAndCounts) {
    Histogram histogram(2, 0.0F, 1.0F);
    Count(histogram, {0, 1, 1}, {-1, -1, -1});
    histogram.FoldIntoTable();
    histogram.Reset();
    EXPECT_EQ(histogram.GetTable().GetValues()[1], 0.0F);
    EXPECT_EQ(FoldedTable(histogram), (std::vector<float>{0, 0}));
}

TEST(HistogramTest, EmptiesItselfWhenTheNumberOfBinsChanges) {
    Histogram histogram(2, 0.0F, 1.0F);
    Count(histogram, {0, 1, 1}, {-1, -1, -1});
    histogram.SetCount(3);
    EXPECT_EQ(FoldedTable(histogram), (std::vector<float>{0, 0, 0}));
    EXPECT_EQ(histogram.GetTable().GetScale(), 2.0F);
}

// Integers in several lanes beside floats in one row, which is how the bins are told.
TEST(HistogramTest, HoldsTheNumbersThatCountingInFloatsGives) {
    Histogram histogram(151, -1.0F, 1.0F);
    std::vector<float> plain(151);
    std::vector<int> history(997, Histogram::kNoBin);
    std::size_t oldest = 0;
    std::mt19937 random(5);
    std::normal_distribution<float> value(0.0F, 0.4F);
    for (int round = 0; round < 2000; ++round) {
        std::vector<float> samples(random() % 23);
        for (float& sample : samples) {
            sample = random() % 50 == 0 ? kFloatNaN : value(random);
        }
        const std::vector<int> added = FindBins(histogram, samples);
        std::vector<int> removed;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const float y = samples[i] > 1.0F ? 1.0F : std::fmax(samples[i], -1.0F);
            const auto bin = static_cast<std::size_t>((y + 1.0F) * 75.0F + 0.5F);
            ASSERT_EQ(added[i], static_cast<int>(bin));
            plain[bin] += 1.0F;
            if (history[oldest] != Histogram::kNoBin) {
                plain[static_cast<std::size_t>(history[oldest])] -= 1.0F;
            }
            removed.push_back(history[oldest]);
            history[oldest] = added[i];
            oldest = (oldest + 1) % history.size();
        }
        Count(histogram, added, removed);
        if (round % 100 == 0) {
            ASSERT_EQ(FoldedTable(histogram), plain);
        }
    }
    EXPECT_EQ(FoldedTable(histogram), plain);
}

TEST(HistogramTest, CopiesWithTableAndCounts) {
    Histogram histogram(2, 0.0F, 1.0F);
    Count(histogram, {0, 1, 1}, {-1, -1, -1});
    Histogram copy(histogram);
    Count(histogram, {0}, {-1});
    EXPECT_EQ(FoldedTable(copy), (std::vector<float>{1, 2}));
    EXPECT_EQ(FoldedTable(histogram), (std::vector<float>{2, 2}));
}

} // namespace
} // namespace Vorin::Math
