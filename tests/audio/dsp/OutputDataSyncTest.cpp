#include "audio/dsp/OutputDataSync.h"

#include "audio/dsp/TestMonoFilter.h"

#include <gtest/gtest.h>

#include <limits>

namespace Vorin::Audio::DSP {
namespace {

/// How many samples it takes from a reset to the next refresh, in blocks of `block`.
int CountSamples(COutputDataSync& sync, int block) {
    sync.Reset();
    int samples = 0;
    while (!sync.IsRefreshNeeded() && samples < 1000000) {
        sync.AddSamples(static_cast<std::uint32_t>(block));
        samples += block;
    }
    return samples;
}

TEST(OutputDataSyncTest, AsksForARefreshInEachBlockUntilItIsConfigured) {
    COutputDataSync sync;
    EXPECT_TRUE(sync.IsRefreshNeeded());
    EXPECT_EQ(sync.GetRefreshRate(), 0.0);
    sync.Reset();
    EXPECT_TRUE(sync.IsRefreshNeeded());
}

TEST(OutputDataSyncTest, AsksAfter882SamplesAt44100HzAnd50HzWhateverTheBlock) {
    COutputDataSync sync;
    sync.SetRefreshRate(50.0);
    sync.SetSampleRate(44100.0);
    EXPECT_EQ(CountSamples(sync, 1), 882);
    EXPECT_EQ(CountSamples(sync, 441), 882);
    EXPECT_EQ(CountSamples(sync, 512), 1024);
    EXPECT_EQ(CountSamples(sync, 4096), 4096);
}

TEST(OutputDataSyncTest, DropsTheRemainderAtAReset) {
    COutputDataSync sync;
    sync.SetSampleRate(44100.0);
    sync.SetRefreshRate(50.0);
    sync.Reset();
    sync.AddSamples(1700); // nearly two periods
    EXPECT_TRUE(sync.IsRefreshNeeded());
    sync.Reset();
    sync.AddSamples(881);
    EXPECT_FALSE(sync.IsRefreshNeeded());
    sync.AddSamples(1);
    EXPECT_TRUE(sync.IsRefreshNeeded());
}

TEST(OutputDataSyncTest, RefreshesInEachBlockAtARateOfZero) {
    COutputDataSync sync;
    sync.SetSampleRate(44100.0);
    sync.SetRefreshRate(0.0);
    sync.Reset();
    EXPECT_TRUE(sync.IsRefreshNeeded());
    sync.SetSampleRate(48000.0);
    sync.Reset();
    EXPECT_TRUE(sync.IsRefreshNeeded());
}

TEST(OutputDataSyncTest, KeepsItsCountWhenTheRefreshRateChanges) {
    COutputDataSync sync;
    sync.SetSampleRate(1000.0);
    sync.SetRefreshRate(10.0);
    sync.Reset();
    sync.AddSamples(60);
    EXPECT_FALSE(sync.IsRefreshNeeded());
    sync.SetRefreshRate(20.0);
    EXPECT_TRUE(sync.IsRefreshNeeded());
    EXPECT_EQ(sync.GetRefreshRate(), 20.0);
}

TEST(OutputDataSyncTest, AsksAtOnceAfterAChangeOfTheSampleRate) {
    COutputDataSync sync;
    sync.SetSampleRate(44100.0);
    sync.SetRefreshRate(50.0);
    sync.Reset();
    EXPECT_FALSE(sync.IsRefreshNeeded());
    sync.SetSampleRate(48000.0);
    EXPECT_TRUE(sync.IsRefreshNeeded());
    EXPECT_EQ(CountSamples(sync, 1), 960);
}

TEST(OutputDataSyncTest, TruncatesThePeriod) {
    COutputDataSync sync;
    sync.SetSampleRate(1000.0);
    sync.SetRefreshRate(300.0);
    EXPECT_EQ(CountSamples(sync, 1), 3);
}

TEST(OutputDataSyncTest, StaysDueHoweverManySamplesNobodyRefreshesFor) {
    COutputDataSync sync;
    sync.SetSampleRate(44100.0);
    sync.SetRefreshRate(50.0);
    for (int i = 0; i < 6; ++i) {
        sync.AddSamples(std::numeric_limits<std::int32_t>::max());
        EXPECT_TRUE(sync.IsRefreshNeeded());
    }
    sync.AddSamples(std::numeric_limits<std::uint32_t>::max());
    EXPECT_TRUE(sync.IsRefreshNeeded());
}

TEST(OutputDataSyncTest, SurvivesRatesThatAreNone) {
    COutputDataSync sync;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double hz : {nan, infinity, -infinity, -1.0, 1e-300}) {
        sync.SetSampleRate(44100.0);
        sync.SetRefreshRate(hz);
        sync.SetSampleRate(hz);
        sync.SetRefreshRate(50.0);
        EXPECT_TRUE(sync.IsRefreshNeeded() || CountSamples(sync, 1 << 30) > 0);
    }
}

class OutputDataSyncMuxTest : public ::testing::Test {
protected:
    CTestMonoFilter one;
    CTestMonoFilter two;
    COutputDataSyncMux mux{one, two};
};

TEST_F(OutputDataSyncMuxTest, AnswersFalseAndRateZeroWithoutAnySync) {
    one.hasSync = false;
    two.hasSync = false;
    EXPECT_FALSE(mux.IsRefreshNeeded());
    EXPECT_EQ(mux.GetRefreshRate(), 0.0);
    mux.SetRefreshRate(50.0);
    mux.Reset();
    EXPECT_EQ(one.sync.GetRefreshRate(), 0.0);
}

TEST_F(OutputDataSyncMuxTest, AsksWhenEitherDoes) {
    for (CTestMonoFilter* filter : {&one, &two}) {
        filter->sync.SetSampleRate(1000.0);
        filter->sync.SetRefreshRate(10.0);
        filter->sync.Reset();
    }
    EXPECT_FALSE(mux.IsRefreshNeeded());
    one.sync.AddSamples(100);
    EXPECT_TRUE(mux.IsRefreshNeeded());
    mux.Reset();
    EXPECT_FALSE(mux.IsRefreshNeeded());
    EXPECT_FALSE(one.sync.IsRefreshNeeded());
    two.sync.AddSamples(100);
    EXPECT_TRUE(mux.IsRefreshNeeded());
    two.hasSync = false;
    EXPECT_FALSE(mux.IsRefreshNeeded());
}

TEST_F(OutputDataSyncMuxTest, SetsTheRateOfBothAndGivesTheLarger) {
    mux.SetRefreshRate(25.0);
    EXPECT_EQ(one.sync.GetRefreshRate(), 25.0);
    EXPECT_EQ(two.sync.GetRefreshRate(), 25.0);
    two.sync.SetRefreshRate(40.0);
    EXPECT_EQ(mux.GetRefreshRate(), 40.0);
    two.hasSync = false;
    EXPECT_EQ(mux.GetRefreshRate(), 25.0);
}

} // namespace
} // namespace Vorin::Audio::DSP
