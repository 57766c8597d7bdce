// One audio thread and three others do whatever a host may do at the same time, in random order.
// `--seed=N` gives other orders, `--seconds=N` longer runs.

#include "host/Options.h"
#include "host/State.h"

#include <chrono>
#include <thread>

namespace TestHost {
namespace {

using Clock = std::chrono::steady_clock;

Clock::time_point EndOfRun(double usualSeconds) {
    const double seconds = GetOptions().seconds > 0.0 ? GetOptions().seconds : usualSeconds;
    return Clock::now() +
           std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

/// The audio thread: blocks of any size, in any buffers, with events; what comes out is what went
/// in.
void RunAudio(CInstance& plugin, unsigned seed, Clock::time_point end) {
    constexpr std::size_t kMost = 1500;
    std::mt19937 random(seed);
    std::vector<float> source(2 * kMost);
    for (float& sample : source) {
        sample = static_cast<float>(random() % 2001) / 1000.0F - 1.0F;
    }
    std::vector<float> buffer(2 * kMost);
    CEvents events(8);
    for (int block = 0; Clock::now() < end; ++block) {
        const std::size_t frames = random() % kMost;
        std::copy(source.begin(), source.end(), buffer.begin());
        float* left = buffer.data();
        float* right = left + kMost;
        events.Clear();
        for (std::size_t count = random() % 4; count > 0; --count) {
            events.Add(0xb0 + static_cast<int>(random() % 16), static_cast<int>(random() % 8),
                       static_cast<int>(random() % 128));
        }
        plugin.Ask(effProcessEvents, 0, 0, events.Get());
        if (random() % 8 == 0) { // a parameter that the host automates
            plugin.Set(static_cast<VstInt32>(random() % kParamsCount),
                       static_cast<float>(random() % 101) / 100.0F);
        }
        float* inputs[] = {left, right};
        float* crossed[] = {right, left};
        const bool isCrossed = random() % 2 == 0;
        plugin.Process(inputs, isCrossed ? crossed : inputs, static_cast<VstInt32>(frames));
        for (std::size_t i = 0; i < frames; ++i) {
            ASSERT_EQ(BitsOf(isCrossed ? right[i] : left[i]), BitsOf(source[i])) << block;
            ASSERT_EQ(BitsOf(isCrossed ? left[i] : right[i]), BitsOf(source[kMost + i])) << block;
        }
    }
}

void RunParameters(CInstance& plugin, unsigned seed, Clock::time_point end) {
    std::mt19937 random(seed);
    while (Clock::now() < end) {
        const auto index = static_cast<VstInt32>(random() % (kParamsCount + 1));
        plugin.Set(index, static_cast<float>(random() % 101) / 100.0F);
        const float value = plugin.GetParam(index);
        ASSERT_TRUE(value >= 0.0F && value <= 1.0F);
        plugin.Text(effGetParamDisplay, index, 24);
        plugin.Text(effGetParamName, index, 24);
        plugin.Ask(effGetTailSize);
    }
}

void RunStates(CInstance& plugin, unsigned seed, Clock::time_point end) {
    std::mt19937 random(seed);
    while (Clock::now() < end) {
        switch (random() % 4) {
        case 0:
            ASSERT_NE(plugin.GetChunk().find("</Preset>"), std::string::npos);
            break;
        case 1:
            ASSERT_EQ(plugin.SetChunk(State(RandomValues(random))), 1);
            break;
        case 2:
            ASSERT_EQ(plugin.SetChunk(ControlledState(
                          RandomValues(random), {{kDelay, 0, static_cast<int>(random() % 8)},
                                                 {kViewMode, 3, static_cast<int>(random() % 8)}})),
                      1);
            break;
        default:
            ASSERT_EQ(plugin.SetChunk("<Preset><inputParams count=\"7\" p4=\"nan\"/></Preset>"), 0);
        }
    }
}

void RunSetup(CInstance& plugin, unsigned seed, Clock::time_point end) {
    std::mt19937 random(seed);
    constexpr float rates[] = {8000.0F, 44100.0F, 48000.0F, 96000.0F};
    while (Clock::now() < end) {
        VstSpeakerArrangement stereo{};
        stereo.type = kSpeakerArrStereo;
        stereo.numChannels = random() % 4 == 0 ? 1 : 2;
        VstPinProperties pin{};
        switch (random() % 7) {
        case 0:
            plugin.Ask(effMainsChanged, 0, static_cast<VstIntPtr>(random() % 2));
            break;
        case 1:
            plugin.Ask(effSetSampleRate, 0, 0, nullptr, rates[random() % 4]);
            break;
        case 2:
            plugin.Ask(effSetBlockSize, 0, static_cast<VstIntPtr>(1 + random() % 1000));
            break;
        case 3:
            plugin.Ask(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&stereo), &stereo);
            break;
        case 4:
            plugin.Ask(effGetInputProperties, 0, 0, &pin);
            plugin.Ask(effGetOutputProperties, 1, 0, &pin);
            break;
        case 5:
            plugin.Ask(effSetBypass, 0, static_cast<VstIntPtr>(random() % 2));
            break;
        default:
            plugin.Ask(effGetTailSize);
            ASSERT_NE(plugin.GetChunk().find("</Preset>"), std::string::npos);
        }
        std::this_thread::yield();
    }
}

TEST(StormTest, EverythingAtOnceOnFourThreads) {
    const CHost host;
    const CLibrary library;
    CInstance plugin(library);
    plugin.Start();
    const unsigned seed = GetOptions().seed;
    const Clock::time_point end = EndOfRun(1.0);
    std::vector<std::thread> threads;
    threads.emplace_back(RunAudio, std::ref(plugin), seed, end);
    threads.emplace_back(RunParameters, std::ref(plugin), seed + 1, end);
    threads.emplace_back(RunStates, std::ref(plugin), seed + 2, end);
    threads.emplace_back(RunSetup, std::ref(plugin), seed + 3, end);
    for (std::thread& thread : threads) {
        thread.join();
    }
    // Nothing has been left behind that a restored state would not show.
    plugin.Stop();
    const std::string state = State(CValues{0, 1, 2, 1, 33.25, 0.5, 0});
    ASSERT_EQ(plugin.SetChunk(state), 1);
    CInstance fresh(library);
    ASSERT_EQ(fresh.SetChunk(state), 1);
    EXPECT_EQ(plugin.GetChunk(), fresh.GetChunk());
}

/// The values of a chunk.
CValues ValuesOf(const std::string& chunk) {
    CValues values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::string name = " p" + std::to_string(i) + "=\"";
        values[i] = std::stod(chunk.substr(chunk.find(name) + name.size()));
    }
    return values;
}

TEST(StormTest, AStateIsRestoredAndSavedAsAWhole) {
    const CHost host;
    const CLibrary library;
    CInstance plugin(library);
    plugin.Start();
    const CValues low{0, 0, 0, 0, 1, -1, 0};
    const CValues high{1, 1, 2, 1, 299, 1, 1};
    ASSERT_EQ(plugin.SetChunk(State(low, "low")), 1);
    const Clock::time_point end = EndOfRun(0.5);
    std::thread audio([&] {
        while (Clock::now() < end) {
            plugin.Run(64);
        }
    });
    std::thread loader([&] {
        while (Clock::now() < end) {
            ASSERT_EQ(plugin.SetChunk(State(high, "high")), 1);
            ASSERT_EQ(plugin.SetChunk(State(low, "low")), 1);
        }
    });
    int highs = 0;
    int lows = 0;
    while (Clock::now() < end) {
        const std::string chunk = plugin.GetChunk();
        const CValues values = ValuesOf(chunk);
        const bool isHigh = chunk.find("progName=\"high\"") != std::string::npos;
        EXPECT_EQ(values, isHigh ? high : low) << chunk;
        (isHigh ? highs : lows)++;
        if (testing::Test::HasFailure()) {
            break;
        }
    }
    audio.join();
    loader.join();
    EXPECT_GT(highs + lows, 0);
}

} // namespace
} // namespace TestHost
