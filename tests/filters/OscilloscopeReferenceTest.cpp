// COscilloscope beside its plain one-sample-at-a-time form, bit for bit.

#include "filters/OscilloscopePair.h"
#include "filters/TestSignals.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <tuple>
#include <vector>

namespace PluginsFilters {
namespace {

constexpr std::array kBlocks{1, 2, 7, 64, 255, 256, 257, 512, 1000, 4096};
constexpr int kLargestBlock = 4096;

/// Leads a pair through blocks of changing size, stride and values, with a comparison now and then.
class CJourney {
public:
    CJourney(double sampleRate, ESignal kind)
        : pair(sampleRate), signal(kind), random(static_cast<unsigned>(sampleRate)),
          rate(sampleRate) {
        pair.SetRefreshRate(50.0);
        pair.Update();
        pair.Publish();
    }

    void Go(int frames) {
        int untilCheck = 1;
        for (int done = 0; done < frames && !::testing::Test::HasFailure();) {
            const int block = Choose(kBlocks);
            RunBlock(Chance(40) ? 0 : block);
            done += block;
            if (pair.Refresh() && --untilCheck == 0) {
                Check();
                untilCheck = 1 + static_cast<int>(random() % 40);
            }
        }
        pair.Update();
        Check();
    }

private:
    bool Chance(unsigned oneIn) { return random() % oneIn == 0; }

    template <class T, std::size_t N>
    T Choose(const std::array<T, N>& list) {
        return list[random() % N];
    }

    CScopePair::Params MakeParams() {
        const std::array<double, 5> delays{0.0, 1000.01 / rate, 12.3456, 299.99, 300.0};
        const std::array<double, 8> levels{0.0, 0.25, -0.25, 0.5, -0.75, 1e-40, 2.0, -2.0};
        return {static_cast<double>(random() % 3),
                Chance(12) ? 1.0 - pair.params[1] : pair.params[1], Choose(delays), Choose(levels),
                static_cast<double>(random() % 2)};
    }

    void RunBlock(int frames) {
        const CScopePair::Params newParams = MakeParams();
        const CScopePair::Params* change = Chance(8) ? &newParams : nullptr;
        if (Chance(16)) {
            pair.ProcessSilence(frames, change);
        } else {
            const int stride = static_cast<int>(random() % 3);
            signal.Fill(samples);
            pair.Process(samples, stride, frames, change);
        }
        ASSERT_EQ(pair.IsRefreshNeeded(), pair.reference.sync.IsRefreshNeeded());
    }

    void Check() {
        ASSERT_TRUE(pair.HasSameHistory());
        ASSERT_TRUE(pair.HasSameUpdate());
        if (!Chance(4)) {
            pair.Publish();
        }
        ASSERT_TRUE(pair.HasSamePublished());
    }

    CScopePair pair;
    CTestSignal signal;
    std::mt19937 random;
    double rate;
    std::vector<float> samples = std::vector<float>(2 * kLargestBlock);
};

class OscilloscopeJourneyTest : public ::testing::TestWithParam<std::tuple<double, ESignal>> {};

// Two seconds at least, so that the circle goes round twice.
TEST_P(OscilloscopeJourneyTest, MatchesThePlainFormThroughBlocksOfAllSizesStridesAndValues) {
    const auto [rate, signal] = GetParam();
    CJourney(rate, signal).Go(static_cast<int>(2.2 * rate) + 30000);
}

// 65536: the bin history is exactly full. 54613.4: so is the delay line, at the longest delay.
INSTANTIATE_TEST_SUITE_P(Rates, OscilloscopeJourneyTest,
                         ::testing::Combine(::testing::Values(1.0, 8.0, 1234.5, 8000.0, 44100.0,
                                                              48000.0, 54613.4, 65536.0, 192000.0),
                                            ::testing::ValuesIn(kAllSignals)),
                         [](const auto& test) {
                             return NameOf(std::get<1>(test.param)) + "At" +
                                    std::to_string(static_cast<int>(std::get<0>(test.param)));
                         });

class OscilloscopeBlockSizeTest : public ::testing::TestWithParam<int> {};

TEST_P(OscilloscopeBlockSizeTest, MatchesThePlainFormInBlocksOfOneSize) {
    const int block = GetParam();
    CScopePair pair(48000.0);
    CTestSignal signal(ESignal::kNoise);
    pair.SetParams({2.0, 0.0, 123.4, 0.25, 0.0});
    std::vector<float> samples(static_cast<std::size_t>(block));
    for (int done = 0; done < 110000; done += block) {
        signal.Fill(samples);
        pair.Process(samples, 1, block);
    }
    pair.Update();
    pair.Publish();
    EXPECT_TRUE(pair.HasSameHistory());
    EXPECT_TRUE(pair.HasSameUpdate());
    EXPECT_TRUE(pair.HasSamePublished());
}

INSTANTIATE_TEST_SUITE_P(Blocks, OscilloscopeBlockSizeTest, ::testing::ValuesIn(kBlocks),
                         ::testing::PrintToStringParamName());

class OscilloscopeViewTest
    : public ::testing::TestWithParam<std::tuple<double, double, double, ESignal>> {};

TEST_P(OscilloscopeViewTest, MatchesThePlainFormInEveryViewAtEveryDelay) {
    const auto [view, direction, delay, kind] = GetParam();
    CScopePair pair(8000.0);
    CTestSignal signal(kind);
    std::vector<float> samples(160);
    for (const double level : {-2.0, -0.5, -0.25, 0.0, 0.25, 0.5, 1e-40, 2.0}) {
        pair.SetParams({view, 0.0, delay, level, direction});
        for (int refresh = 0; refresh < 60; ++refresh) {
            signal.Fill(samples);
            pair.Process(samples, 1, 160);
            pair.Update();
            pair.Publish();
            ASSERT_TRUE(pair.HasSameUpdate());
        }
        ASSERT_TRUE(pair.HasSamePublished());
    }
    EXPECT_TRUE(pair.HasSameHistory());
}

INSTANTIATE_TEST_SUITE_P(Views, OscilloscopeViewTest,
                         ::testing::Combine(::testing::Values(0.0, 1.0, 2.0),
                                            ::testing::Values(0.0, 1.0),
                                            ::testing::Values(0.0, 0.126, 37.51, 300.0),
                                            ::testing::ValuesIn(kAllSignals)));

class OscilloscopeSilenceTest : public ::testing::TestWithParam<double> {};

TEST_P(OscilloscopeSilenceTest, MatchesThePlainFormThroughTheTailAndTheCheapPathBehindIt) {
    const double rate = GetParam();
    CScopePair pair(rate);
    CTestSignal signal(ESignal::kSine);
    pair.SetParams({0.0, 0.0, 10.0, 0.0, 0.0});
    const int block = std::max(static_cast<int>(rate / 13.0), 1);
    std::vector<float> samples(static_cast<std::size_t>(block));
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 17; ++i) {
            signal.Fill(samples);
            pair.Process(samples, 1, block);
            pair.Update();
            pair.Publish();
        }
        for (int i = 0; i < 33; ++i) {
            const CScopePair::Params late{1.0, 0.0, 20.0, 0.0, 0.0};
            pair.ProcessSilence(block, i == 29 ? &late : nullptr);
            pair.Update();
            pair.Publish();
            ASSERT_TRUE(pair.HasSameHistory()) << "silent block " << i;
            ASSERT_TRUE(pair.HasSameUpdate()) << "silent block " << i;
            ASSERT_TRUE(pair.HasSamePublished()) << "silent block " << i;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rates, OscilloscopeSilenceTest,
                         ::testing::Values(1.0, 8.0, 1234.5, 44100.0, 65536.0));

TEST(OscilloscopeReinitTest, MatchesThePlainFormWhenTheSampleRateChanges) {
    CScopePair pair(44100.0);
    CTestSignal signal(ESignal::kNoise);
    pair.SetParams({0.0, 0.0, 33.3, 0.25, 0.0});
    std::vector<float> samples(1000);
    for (const double rate : {44100.0, 48000.0, 8000.0, 192000.0, 8.0, 1.0, 65536.0, 44100.0}) {
        pair.Init(rate);
        pair.Update();
        pair.Publish();
        ASSERT_TRUE(pair.HasSameHistory()) << rate;
        ASSERT_TRUE(pair.HasSamePublished()) << rate;
        for (int i = 0; i < 30; ++i) {
            signal.Fill(samples);
            pair.Process(samples, 1, 1000);
        }
        pair.Update();
        pair.Publish();
        ASSERT_TRUE(pair.HasSameHistory()) << rate;
        ASSERT_TRUE(pair.HasSameUpdate()) << rate;
        ASSERT_TRUE(pair.HasSamePublished()) << rate;
    }
}

} // namespace
} // namespace PluginsFilters
