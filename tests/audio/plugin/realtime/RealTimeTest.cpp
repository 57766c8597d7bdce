// That the audio path neither allocates nor waits, whatever comes in.

#include "audio/dsp/BaseCoreDSPFilter.h"
#include "audio/plugin/PluginTestKit.h"
#include "audio/plugin/realtime/RealTimeGuard.h"
#include "core/Command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <random>
#include <thread>
#include <vector>

namespace Vorin::Audio::Plugin {
namespace {

constexpr int kLargestBlock = 1024;

class CCounter {
public:
    void Count() { ++count; }

    Core::TCommand<CCounter> command{this, &CCounter::Count};
    int count = 0;
};

/// Sends blocks of changing size, with changing values, through a plug-in under the guard.
class CTorture {
public:
    explicit CTorture(CTestPlugin& target) : plugin(target) {
        std::uniform_real_distribution<float> value(-1.2F, 1.2F);
        for (float& sample : noise) {
            sample = value(random);
        }
        for (int i = 0; i < 6; ++i) {
            plugin.internals.GetFilterChange(i).Connect(valueChanged.command);
        }
        plugin.internals.GetOutputCurve(0).Connect(published.command);
    }
    CTorture(const CTorture&) = delete;
    CTorture& operator=(const CTorture&) = delete;
    ~CTorture() {
        for (int i = 0; i < 6; ++i) {
            plugin.internals.GetFilterChange(i).Disconnect(valueChanged.command);
        }
        plugin.internals.GetOutputCurve(0).Disconnect(published.command);
    }

    void Run(int blocks) {
        for (int block = 0; block < blocks && !::testing::Test::HasFailure(); ++block) {
            if (random() % 8 == 0) {
                ChangeSomeValue();
            }
            RunBlock(static_cast<int>(1 + random() % kLargestBlock));
        }
    }

    void RunBlock(int frames) {
        const bool silent = silentBlocks > 0;
        silentBlocks = silent ? silentBlocks - 1 : (random() % 400 == 0 ? 150 : 0);
        float* left = noise.data() + random() % kLargestBlock;
        float* right = noise.data() + random() % kLargestBlock;
        {
            const RealTime::CGuard guard;
            plugin.Process(left, right, frames, silent);
        }
        ASSERT_EQ(RealTime::GetViolationsCount(), 0)
            << RealTime::GetFirstViolation() << " in a block of " << frames;
    }

    CCounter valueChanged;
    CCounter published;

private:
    void ChangeSomeValue() {
        const int param = static_cast<int>(random() % CTestPlugin::kParamsCount);
        const auto& info = plugin.internals.GetInputInfos().Get(param);
        const double position = static_cast<double>(random() % 1001) / 1000.0;
        plugin.Set(param, info.GetMin() + position * (info.GetMax() - info.GetMin()));
    }

    CTestPlugin& plugin;
    std::mt19937 random{6};
    int silentBlocks = 0;
    std::vector<float> noise = std::vector<float>(2 * kLargestBlock);
};

class RealTimeTest : public ::testing::Test {
protected:
    void SetUp() override { RealTime::Forget(); }
    void TearDown() override { RealTime::Forget(); }
};

TEST_F(RealTimeTest, ProcessesHundredThousandBlocksWithoutAllocatingOrWaiting) {
    CTestPlugin plugin;
    ASSERT_TRUE(plugin.Configure(48000.0, kLargestBlock));
    CTorture torture(plugin);
    torture.Run(100000);
    // It has gone through what it is to go through.
    EXPECT_GT(torture.valueChanged.count, 1000);
    EXPECT_GT(torture.published.count, 1000);
}

TEST_F(RealTimeTest, DoesSoAtEverySampleRateThatItIsConfiguredFor) {
    CTestPlugin plugin;
    for (const double rate : {8000.0, 44100.0, 192000.0, 65536.0, 22050.0}) {
        ASSERT_TRUE(plugin.Configure(rate, kLargestBlock));
        CTorture torture(plugin);
        torture.Run(1500);
    }
}

TEST_F(RealTimeTest, DoesNotWaitForAReaderThatHoldsTheLock) {
    CTestPlugin plugin;
    ASSERT_TRUE(plugin.Configure(48000.0, kLargestBlock));
    CTorture torture(plugin);
    std::atomic<int> phase{0};
    std::thread reader([&] {
        plugin.internals.GetOutputsLock().Lock();
        phase = 1;
        phase.notify_one();
        phase.wait(1);
        plugin.internals.GetOutputsLock().Unlock();
    });
    phase.wait(0);
    torture.Run(1000);
    EXPECT_EQ(torture.published.count, 0);
    phase = 2;
    phase.notify_one();
    reader.join();
    RealTime::Forget();
    torture.RunBlock(1);
    EXPECT_EQ(torture.published.count, 1); // what was due all the time
}

TEST_F(RealTimeTest, SeesTheAllocationOfABlockBeyondTheAnnouncedSize) {
    CTestPlugin plugin;
    ASSERT_TRUE(plugin.Configure(48000.0, 16));
    std::vector<float> samples(512);
    {
        const RealTime::CGuard guard;
        plugin.Process(samples.data(), samples.data(), 512);
    }
    EXPECT_GT(RealTime::GetViolationsCount(), 0);
}

/// Passes its input through, with a latency that it only claims, so that its bypass fades.
class CLateFilter : public DSP::CBaseCoreDSPFilter {
public:
    DSP::IFilter* Clone() const override { return new CLateFilter(*this); }
    const DSP::IConstFilterProductInfo& GetProductInfo() const override {
        static const DSP::CFilterProductInfo info("", "", "", "", "", 0, "");
        return info;
    }
    const DSP::IProcessInfo& GetIOConfigurations() const override {
        static const DSP::CProcessInfo info(2, 2);
        return info;
    }
    int GetLatency() const override { return 700; }
};

TEST_F(RealTimeTest, FadesABypassWithoutAllocatingOrWaiting) {
    CTestPlugin plugin(std::make_unique<CLateFilter>());
    ASSERT_TRUE(plugin.Configure(48000.0, kLargestBlock));
    std::vector<float> samples(4 * kLargestBlock);
    std::mt19937 random(7);
    for (int block = 0; block < 5000; ++block) {
        const int frames = static_cast<int>(1 + random() % kLargestBlock);
        DSP::CAudioStream streams[4];
        for (int i = 0; i < 4; ++i) {
            streams[i].Set(samples.data() + i * kLargestBlock, frames);
        }
        DSP::CAudioStreams inputs(streams, 2);
        DSP::CAudioStreams outputs(streams + 2, 2);
        const bool bypass = block / 3 % 2 == 1;
        const bool silent = random() % 5 == 0;
        {
            const RealTime::CGuard guard;
            plugin.processor.Process({inputs, outputs, frames, bypass, silent});
        }
        ASSERT_EQ(RealTime::GetViolationsCount(), 0) << RealTime::GetFirstViolation();
    }
}

// The tables that all instances share are not counted: another instance has made them.
TEST_F(RealTimeTest, AnInstanceAt48000HzTakesLessThan1600000Bytes) {
    const CTestPlugin other;
    std::vector<float> samples(512, 0.5F);
    const std::int64_t before = RealTime::GetLiveBytes();
    std::int64_t most = 0;
    {
        CTestPlugin plugin;
        // Whatever it ran at before.
        for (const double rate : {48000.0, 192000.0, 48000.0, 8000.0, 48000.0}) {
            const bool isConfigured = plugin.Configure(rate, 512);
            for (int i = 0; isConfigured && i < 200; ++i) {
                plugin.Process(samples.data(), samples.data(), 512);
            }
            const bool isCounted = isConfigured && rate == 48000.0;
            most = std::max(most, isCounted ? RealTime::GetLiveBytes() - before : 0);
        }
    }
    const std::int64_t left = RealTime::GetLiveBytes() - before;
    EXPECT_GT(most, 1000000); // two channels of four bytes a sample, twice, and the histories
    EXPECT_LT(most, 1600000);
    EXPECT_EQ(left, 0);
}

} // namespace
} // namespace Vorin::Audio::Plugin
