// Curves of sounds so short and slow that they can be told by hand.

#include "ProgramTest.h"

#include <cmath>

namespace WorkbenchTests {
namespace {

constexpr double kNear = 1e-5; // a point stands a rounding beside its sample

class ScopeByHand : public CProgramTest {
protected:
    /// At 10 Hz the trace has ten samples: point i of ten is sample i.
    static constexpr int kRate = 10;

    CReadDocument Read(const CSound& sound, const Words& options) {
        return ReadScope(MakeFile("in.wav", sound, kWavFloat), options);
    }

    std::vector<double> ReadTrace(const std::vector<float>& samples, const Words& options) {
        return Read(MakeMono(kRate, samples), Words{"--points", "10"} + options).curves.at(0).y;
    }

    static void ExpectNear(const std::vector<double>& values, const std::vector<double>& expected) {
        ASSERT_EQ(values.size(), expected.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_NEAR(values[i], expected[i], kNear) << "at point " << i;
        }
    }

    // 13 samples: the circle of ten holds those from 4 on, with its head behind sample 13.
    const std::vector<float> numbered = {0.01F, 0.02F, 0.03F, 0.04F, 0.05F, 0.06F, 0.07F,
                                         0.08F, 0.09F, 0.10F, 0.11F, 0.12F, 0.13F};
};

TEST_F(ScopeByHand, FlowShowsTheLastSecondWithTheNewestSampleAtTheRight) {
    ExpectNear(ReadTrace(numbered, {"--view", "flow"}),
               {0.04, 0.05, 0.06, 0.07, 0.08, 0.09, 0.10, 0.11, 0.12, 0.13});
}

TEST_F(ScopeByHand, FlowIsTheViewUnlessTold) {
    EXPECT_EQ(ReadTrace(numbered, {}), ReadTrace(numbered, {"--view", "flow"}));
}

TEST_F(ScopeByHand, LoopLeavesEachSampleWhereItWasWritten) {
    ExpectNear(ReadTrace(numbered, {"--view", "loop"}),
               {0.11, 0.12, 0.13, 0.04, 0.05, 0.06, 0.07, 0.08, 0.09, 0.10});
}

TEST_F(ScopeByHand, WhatWasNotFedYetIsZero) {
    ExpectNear(ReadTrace({0.5F, 0.5F, 0.25F}, {"--view", "flow"}),
               {0, 0, 0, 0, 0, 0, 0, 0.5, 0.5, 0.25});
    ExpectNear(ReadTrace({0.5F, 0.5F, 0.25F}, {"--view", "loop"}),
               {0.5, 0.5, 0.25, 0, 0, 0, 0, 0, 0, 0});
}

TEST_F(ScopeByHand, TriggerUpPutsTheSampleBeforeTheRiseAtTheRight) {
    // The newest rise through 0 is the step from -0.2 to 0.3, with three samples behind it. Those
    // three stand behind the right edge, and what they would show at the far left is held at the
    // oldest sample.
    ExpectNear(ReadTrace({0.9F, -0.9F, -0.8F, 0.6F, 0.7F, -0.1F, -0.2F, 0.3F, 0.4F, 0.5F},
                         {"--view", "trigger"}),
               {0.9, 0.9, 0.9, 0.9, -0.9, -0.8, 0.6, 0.7, -0.1, -0.2});
}

TEST_F(ScopeByHand, TriggerUpSkipsTheFallBeforeTheRise) {
    ExpectNear(ReadTrace({0.9F, -0.9F, -0.8F, 0.6F, 0.7F, 0.8F, -0.2F, -0.3F, -0.4F, -0.5F},
                         {"--view", "trigger"}),
               {0.9, 0.9, 0.9, 0.9, 0.9, 0.9, 0.9, 0.9, -0.9, -0.8});
}

TEST_F(ScopeByHand, TriggerDownPutsTheSampleBeforeTheFallAtTheRight) {
    ExpectNear(ReadTrace({-0.9F, 0.9F, 0.8F, -0.6F, -0.7F, 0.1F, 0.2F, -0.3F, -0.4F, -0.5F},
                         {"--view", "trigger", "--trigger-direction", "down"}),
               {-0.9, -0.9, -0.9, -0.9, 0.9, 0.8, -0.6, -0.7, 0.1, 0.2});
}

TEST_F(ScopeByHand, TriggerValueIsTheLevelOfTheCrossing) {
    const std::vector<float> samples = {0.0F, 0.4F, 0.1F, 0.2F, 0.6F, 0.7F, 0.3F, 0.4F, 0.3F, 0.4F};
    // Through 0.5 only the step from 0.2 to 0.6 rises, through 0.35 the last step as well.
    ExpectNear(ReadTrace(samples, {"--view", "trigger", "--trigger-value", "0.5"}),
               {0, 0, 0, 0, 0, 0, 0, 0.4, 0.1, 0.2});
    ExpectNear(ReadTrace(samples, {"--view", "trigger", "--trigger-value", "0.35"}),
               {0, 0, 0.4, 0.1, 0.2, 0.6, 0.7, 0.3, 0.4, 0.3});
}

TEST_F(ScopeByHand, TriggerWithoutACrossingIsFlow) {
    for (const char* direction : {"up", "down"}) {
        EXPECT_EQ(ReadTrace(numbered, {"--view", "trigger", "--trigger-value", "0.9",
                                       "--trigger-direction", direction}),
                  ReadTrace(numbered, {"--view", "flow"}));
        EXPECT_EQ(ReadTrace(numbered, {"--view", "trigger", "--trigger-value", "-0.9",
                                       "--trigger-direction", direction}),
                  ReadTrace(numbered, {"--view", "flow"}));
    }
}

TEST_F(ScopeByHand, DelayMovesTheTraceByWholeSamples) {
    // 0.29 s at 10 Hz are 2.9 samples, which count as 2.
    const std::vector<double> byTwo = {0.02, 0.03, 0.04, 0.05, 0.06, 0.07, 0.08, 0.09, 0.10, 0.11};
    const std::vector<double> byThree = {0.01, 0.02, 0.03, 0.04, 0.05,
                                         0.06, 0.07, 0.08, 0.09, 0.10};
    ExpectNear(ReadTrace(numbered, {"--delay", "200"}), byTwo);
    ExpectNear(ReadTrace(numbered, {"--delay", "290"}), byTwo);
    ExpectNear(ReadTrace(numbered, {"--delay", "300"}), byThree);
}

TEST_F(ScopeByHand, TheSidesOfAStereoFileAreTheTwoChannels) {
    const CSound sound{kRate, {std::vector<float>(10, 0.5F), std::vector<float>(10, -0.25F)}};
    const auto curves = Read(sound, {"--points", "10"}).curves;
    ExpectNear(curves.at(0).y, std::vector<double>(10, 0.5));
    ExpectNear(curves.at(2).y, std::vector<double>(10, -0.25));
}

TEST_F(ScopeByHand, MidIsTheMeanAndSideHalfTheDifference) {
    const CSound sound{kRate, {std::vector<float>(10, 0.5F), std::vector<float>(10, -0.25F)}};
    const auto curves = Read(sound, {"--points", "10", "--stereo-mode", "mid-side"}).curves;
    ExpectNear(curves.at(0).y, std::vector<double>(10, 0.125));
    ExpectNear(curves.at(2).y, std::vector<double>(10, -0.375));
}

TEST_F(ScopeByHand, AMonoFileFeedsBothChannels) {
    const auto curves = Read(MakeMono(kRate, numbered), {"--points", "10"}).curves;
    EXPECT_EQ(curves.at(0).y, curves.at(2).y);
    EXPECT_EQ(curves.at(1).y, curves.at(3).y);
    ExpectNear({curves.at(2).y.back()}, {0.13});
}

TEST_F(ScopeByHand, OfSixChannelsTheFirstTwoAreRead) {
    CSound sound{kRate, {}};
    for (const float level : {0.1F, 0.2F, 0.9F, 0.9F, 0.9F, 0.9F}) {
        sound.channels.emplace_back(10, level);
    }
    const auto curves = Read(sound, {"--points", "10"}).curves;
    ASSERT_EQ(curves.size(), 4U);
    ExpectNear(curves.at(0).y, std::vector<double>(10, 0.1));
    ExpectNear(curves.at(2).y, std::vector<double>(10, 0.2));
}

TEST_F(ScopeByHand, BypassShowsSilence) {
    const auto curves = Read(MakeMono(kRate, numbered), {"--points", "151", "--bypass"}).curves;
    for (const std::size_t channel : {0U, 2U}) {
        EXPECT_EQ(curves.at(channel).y, std::vector<double>(151, 0.0));
        std::vector<double> allAtZero(151, 0.0);
        allAtZero[75] = 1.0;
        EXPECT_EQ(curves.at(channel + 1).y, allAtZero);
    }
}

TEST_F(ScopeByHand, SyncAloneChangesNothing) {
    for (const char* view : {"flow", "loop", "trigger"}) {
        const Words options = {"--view", view};
        EXPECT_EQ(ReadTrace(numbered, options + Words{"--sync", "1"}),
                  ReadTrace(numbered, options));
    }
}

TEST_F(ScopeByHand, TheHistogramCountsLevelsAndItsTallestBinIsOne) {
    // A bin is 1/75 wide. What is beyond full scale counts at its end.
    const std::vector<float> samples = {1.0F, -1.0F, 0.0F, 0.0F, 0.5F, 0.5F, 0.5F, 3.0F, -0.999F};
    const auto curve = Read(MakeMono(100, samples), {"--points", "151", "--flush"}).curves.at(1);
    std::vector<double> expected(151, 0.0);
    expected[0] = 2.0 / 3.0;
    expected[75] = 2.0 / 3.0;
    expected[113] = 1.0;
    expected[150] = 2.0 / 3.0;
    ExpectNear(curve.y, expected);
}

TEST_F(ScopeByHand, TheHistogramForgetsWhatIsOlderThanASecond) {
    std::vector<float> samples(30, 0.0F);
    samples[5] = 1.0F;
    samples[28] = -1.0F;
    const auto curve = Read(MakeMono(10, samples), {"--points", "151"}).curves.at(1);
    EXPECT_EQ(curve.y.back(), 0.0);
    EXPECT_GT(curve.y.front(), 0.0);
    EXPECT_EQ(curve.y.at(75), 1.0);
}

TEST_F(ScopeByHand, IntegerSamplesAreFractionsOfFullScale) {
    WriteSound(Path("a.wav"), MakeMono(10, std::vector<float>(10, -0.5F)), kWav16);
    EXPECT_EQ(ReadScope(Path("a.wav")).curves.at(0).y.back(), -0.5);
    WriteSound(Path("b.wav"), MakeMono(10, std::vector<float>(10, 0.25F)), kWav24);
    EXPECT_EQ(ReadScope(Path("b.wav")).curves.at(0).y.back(), 0.25);
    WriteSound(Path("c.flac"), MakeMono(8000, std::vector<float>(800, -0.25F)), kFlac24);
    EXPECT_EQ(ReadScope(Path("c.flac")).curves.at(0).y.back(), -0.25);
}

/// Sounds whose sample i is i + 1 steps high: the newest sample on show tells how many were
/// published.
class ScopePacing : public CProgramTest {
protected:
    int CountShown(int rate, int frames, const Words& options) {
        constexpr float step = 1.0F / 4096.0F;
        std::vector<float> samples;
        for (int i = 1; i <= frames; ++i) {
            samples.push_back(step * static_cast<float>(i));
        }
        const std::string path = MakeFile("in.wav", MakeMono(rate, samples), kWavFloat);
        const auto curve = ReadScope(path, Words{"--points", "2"} + options).curves.at(0);
        return static_cast<int>(std::lround(curve.y.back() / step));
    }
};

TEST_F(ScopePacing, NothingIsShownBeforeTheFirstRefresh) {
    // 44100 Hz at 50 refreshes a second: one is due after 882 samples.
    EXPECT_EQ(CountShown(44100, 881, {"--block", "441"}), 0);
    EXPECT_EQ(CountShown(44100, 881, {"--block", "1"}), 0);
    EXPECT_EQ(CountShown(44100, 881, {}), 0);
}

TEST_F(ScopePacing, TheFirstRefreshFallsOnTheBlockThatReachesThePeriod) {
    EXPECT_EQ(CountShown(44100, 882, {"--block", "441"}), 882);
    EXPECT_EQ(CountShown(44100, 882, {"--block", "1"}), 882);
    EXPECT_EQ(CountShown(44100, 1000, {"--block", "512"}), 1000);
    EXPECT_EQ(CountShown(44100, 1000, {}), 1000);
}

TEST_F(ScopePacing, WhatFollowsARefreshWaitsForTheNext) {
    // The refresh falls on 1024 and drops the remainder: the next is due at 1906, on block 2048.
    EXPECT_EQ(CountShown(44100, 1500, {"--block", "512"}), 1024);
    EXPECT_EQ(CountShown(44100, 1905, {"--block", "512"}), 1024);
    EXPECT_EQ(CountShown(44100, 1906, {"--block", "512"}), 1906);
    EXPECT_EQ(CountShown(44100, 2500, {"--block", "512"}), 2048);
}

TEST_F(ScopePacing, ThePeriodIsTruncated) {
    // 11025 / 50 is 220.5.
    EXPECT_EQ(CountShown(11025, 219, {"--block", "1"}), 0);
    EXPECT_EQ(CountShown(11025, 220, {"--block", "1"}), 220);
    EXPECT_EQ(CountShown(11025, 659, {"--block", "1"}), 440);
    EXPECT_EQ(CountShown(11025, 660, {"--block", "1"}), 660);
}

TEST_F(ScopePacing, TheRateOfRefreshesIsAnOption) {
    EXPECT_EQ(CountShown(44100, 2204, {"--block", "1", "--refresh", "20"}), 0);
    EXPECT_EQ(CountShown(44100, 2205, {"--block", "1", "--refresh", "20"}), 2205);
    EXPECT_EQ(CountShown(8000, 1250, {"--block", "1", "--refresh", "13.3"}), 1202); // 2 * 601
    EXPECT_EQ(CountShown(8000, 700, {"--block", "1", "--refresh", "1000000"}), 700);
}

TEST_F(ScopePacing, RefreshZeroShowsEachBlock) {
    EXPECT_EQ(CountShown(44100, 1, {"--refresh", "0"}), 1);
    EXPECT_EQ(CountShown(44100, 1000, {"--refresh", "0"}), 1000);
    EXPECT_EQ(CountShown(44100, 881, {"--refresh", "0", "--block", "7"}), 881);
}

TEST_F(ScopePacing, FlushShowsTheLastFrame) {
    EXPECT_EQ(CountShown(44100, 1, {"--flush"}), 1);
    EXPECT_EQ(CountShown(44100, 881, {"--flush"}), 881);
    EXPECT_EQ(CountShown(44100, 1500, {"--flush"}), 1500);
    EXPECT_EQ(CountShown(44100, 1500, {"--flush", "--refresh", "0.001"}), 1500);
}

TEST_F(ScopePacing, BeforeTheFirstRefreshTheHistogramIsEmpty) {
    const std::string path =
        MakeFile("in.wav", MakeMono(44100, std::vector<float>(800, 0.5F)), kWavFloat);
    const auto curve = ReadScope(path).curves.at(1);
    EXPECT_EQ(curve.y, std::vector<double>(curve.y.size(), 0.0));
}

TEST_F(ScopePacing, StartAndSecondsCutTheSound) {
    // Sample i + 1 of the part is sample first + i + 1 of the file.
    EXPECT_EQ(CountShown(8000, 2000, {"--flush", "--seconds", "0.1"}), 800);
    EXPECT_EQ(CountShown(8000, 2000, {"--flush", "--start", "0.1"}), 2000);
    EXPECT_EQ(CountShown(8000, 2000, {"--flush", "--start", "0.1", "--seconds", "0.05"}), 1200);
    EXPECT_EQ(CountShown(8000, 2000, {"--flush", "--seconds", "9"}), 2000);
    // Times are rounded to the nearest frame.
    EXPECT_EQ(CountShown(8000, 2000, {"--flush", "--seconds", "0.10006"}), 800);
    EXPECT_EQ(CountShown(8000, 2000, {"--flush", "--seconds", "0.10007"}), 801);
}

TEST_F(ScopePacing, TheCountOfFramesIsThatOfThePart) {
    const std::string path =
        MakeFile("in.wav", MakeMono(8000, std::vector<float>(2000, 0.5F)), kWavFloat);
    EXPECT_EQ(ReadScope(path).frames, 2000.0);
    EXPECT_EQ(ReadScope(path, {"--start", "0.1"}).frames, 1200.0);
    EXPECT_EQ(ReadScope(path, {"--seconds", "0.1"}).frames, 800.0);
    EXPECT_EQ(ReadScope(path, {"--start", "0.2", "--seconds", "0.1"}).frames, 400.0);
}

} // namespace
} // namespace WorkbenchTests
