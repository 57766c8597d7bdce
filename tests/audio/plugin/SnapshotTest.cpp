// That a reader of the published curves always sees one moment as a whole, while the audio goes on
// and parameters change. Made for the thread sanitizer too.

#include "audio/plugin/PluginTestKit.h"
#include "core/Command.h"
#include "core/Lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <random>
#include <set>
#include <thread>
#include <vector>

namespace Vorin::Audio::Plugin {
namespace {

/// One second, and one block: a block of one value fills the circle with it. Not a power of two, at
/// which the histogram would hold a single sample.
constexpr int kSecond = 250;

/// The values of the blocks: multiples of the width of a bin, so that each has a bin of its own.
float ValueOf(int block) { return static_cast<float>(1 + block % 70) / 75.0F; }

class SnapshotTest : public ::testing::Test {
protected:
    enum ECurve { kWaveform1, kHistogram1, kWaveform2, kHistogram2 };

    SnapshotTest() { isConfigured = plugin.Configure(kSecond, kSecond); }

    void SetUp() override {
        ASSERT_TRUE(isConfigured);
        plugin.internals.GetOutputDataSync().SetRefreshRate(1.0);
    }

    /// Left gets a value, right its negative.
    void Play() {
        std::vector<float> left(kSecond);
        std::vector<float> right(kSecond);
        for (int block = 0; !isOver; ++block) {
            std::fill(left.begin(), left.end(), ValueOf(block));
            std::fill(right.begin(), right.end(), -ValueOf(block));
            plugin.Process(left.data(), right.data(), kSecond);
        }
    }

    /// The value that the whole trace has; NaN when it has not one value.
    double FlatTrace(int curve) {
        const Math::IFunction& trace = *plugin.internals.GetOutputCurve(curve).GetValue();
        const double value = trace.Evaluate(-1.0);
        for (int i = 1; i <= 100; ++i) {
            if (trace.Evaluate(-1.0 + i / 100.0) != value) {
                return std::nan("");
            }
        }
        return value;
    }

    /// A bin of the trace's value holds nearly everything; with no samples at all, nothing.
    bool HasHistogramOf(int curve, double value) {
        const Math::IFunction& bins = *plugin.internals.GetOutputCurve(curve).GetValue();
        const double tallest = bins.Evaluate(value);
        return tallest == 1.0 || (value == 0.0 && tallest == 0.0);
    }

    /// Reads once, under the lock of the readers.
    void Read() {
        const Core::CAutoLock guard(plugin.internals.GetOutputsLock());
        const double first = FlatTrace(kWaveform1);
        const double second = FlatTrace(kWaveform2);
        ASSERT_FALSE(std::isnan(first)) << "the first trace is torn";
        ASSERT_FALSE(std::isnan(second)) << "the second trace is torn";
        // Left and Right, Mid (which is 0) and Side, or nothing yet.
        ASSERT_TRUE(second == -first || first == 0.0) << first << " beside " << second;
        ASSERT_TRUE(HasHistogramOf(kHistogram1, first)) << first;
        ASSERT_TRUE(HasHistogramOf(kHistogram2, second)) << second;
        seen.insert(second);
    }

    void ChangeSomeValue() {
        constexpr int params[] = {CTestPlugin::kStereoMode, CTestPlugin::kViewMode,
                                  CTestPlugin::kSync, CTestPlugin::kTriggerValue,
                                  CTestPlugin::kTriggerDirection};
        const int param = params[random() % 5];
        const auto& info = plugin.internals.GetInputInfos().Get(param);
        const int steps = param == CTestPlugin::kViewMode ? 2 : 1;
        plugin.Set(param, info.GetMin() + static_cast<double>(random() % (steps + 1U)) *
                                              (info.GetMax() - info.GetMin()) / steps);
    }

    CTestPlugin plugin;
    bool isConfigured = false;
    std::atomic<bool> isOver{false};
    std::set<double> seen;
    std::mt19937 random{8};
};

TEST_F(SnapshotTest, IsSeenAsAWholeWhileBlocksRunAndParametersChange) {
    CCounter published;
    plugin.internals.GetOutputCurve(kWaveform1).Connect(published.command);
    std::thread audio([this] { Play(); });
    constexpr std::size_t wanted = 40;
    for (int read = 0; read < 1000000 && seen.size() < wanted && !HasFailure(); ++read) {
        Read();
        ChangeSomeValue();
        std::this_thread::yield();
    }
    isOver = true;
    audio.join();
    EXPECT_GE(seen.size(), wanted);
    EXPECT_GE(published.count, static_cast<int>(wanted));
    plugin.internals.GetOutputCurve(kWaveform1).Disconnect(published.command);
}

TEST_F(SnapshotTest, CanBeListenedToFromAnyThreadWhileBlocksRun) {
    std::thread audio([this] { Play(); });
    CCounter counter;
    while (counter.count < 200) {
        plugin.internals.GetOutputCurve(kHistogram2).Connect(counter.command);
        std::this_thread::yield();
        plugin.internals.GetOutputCurve(kHistogram2).Disconnect(counter.command);
        const int before = counter.count;
        std::this_thread::yield();
        ASSERT_EQ(counter.count, before) << "told after it was disconnected";
    }
    isOver = true;
    audio.join();
}

TEST_F(SnapshotTest, FollowsARefreshRateThatIsSetWhileBlocksRun) {
    std::thread audio([this] { Play(); });
    for (int i = 0; i < 200; ++i) {
        plugin.internals.GetOutputDataSync().SetRefreshRate(1.0 + i % 5);
        std::this_thread::yield();
    }
    isOver = true;
    audio.join();
    EXPECT_EQ(plugin.internals.GetOutputDataSync().GetRefreshRate(), 5.0);
}

} // namespace
} // namespace Vorin::Audio::Plugin
