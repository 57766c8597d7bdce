// Many plug-ins at once, one after the other, and the library that comes and goes.

#include "host/Options.h"
#include "host/State.h"

#include <dirent.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <thread>

namespace TestHost {
namespace {

/// The names in a folder of the system's about this process.
int CountEntries(const char* folder) {
    DIR* directory = opendir(folder);
    int count = 0;
    while (directory && readdir(directory)) {
        ++count;
    }
    if (directory) {
        closedir(directory);
    }
    return count;
}

int CountThreads() { return CountEntries("/proc/self/task"); }
int CountFiles() { return CountEntries("/proc/self/fd"); }

bool IsMapped(const char* path) {
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.find(path) != std::string::npos) {
            return true;
        }
    }
    return false;
}

/// In a loop of its own per thread: sixteen instances at a rate of their own each.
void RunInstances(const CLibrary& library, unsigned seed, double seconds) {
    constexpr int kInstances = 16;
    constexpr float rates[] = {8000.0F, 22050.0F, 44100.0F, 48000.0F};
    std::mt19937 random(seed);
    std::vector<std::unique_ptr<CInstance>> plugins;
    for (int i = 0; i < kInstances; ++i) {
        plugins.push_back(std::make_unique<CInstance>(library));
        plugins.back()->Start(rates[i % 4], 256);
    }
    std::vector<float> last(kInstances, 0.0F);
    for (int i = 0; i < kInstances; ++i) {
        // Each has its own rate; the shortest block decides how many there are.
        const int blocks = static_cast<int>(seconds * static_cast<double>(rates[i % 4]) / 256.0);
        CInstance& plugin = *plugins[static_cast<std::size_t>(i)];
        for (int block = 0; block < blocks; ++block) {
            if (random() % 16 == 0) {
                last[static_cast<std::size_t>(i)] = static_cast<float>(random() % 1000) / 999.0F;
                plugin.Set(kDelay, last[static_cast<std::size_t>(i)]);
            }
            plugin.Run(256);
        }
    }
    for (int i = 0; i < kInstances; ++i) {
        EXPECT_NEAR(plugins[static_cast<std::size_t>(i)]->GetParam(kDelay),
                    last[static_cast<std::size_t>(i)], 1e-6F);
    }
}

TEST(InstancesTest, SixtyFourRunOnFourThreads) {
    const CHost host;
    const CLibrary library;
    const double seconds = GetOptions().seconds > 0.0 ? GetOptions().seconds : 1.0;
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < 4; ++i) {
        threads.emplace_back([&library, i, seconds] { RunInstances(library, i, seconds); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(InstancesTest, AThousandAreMadeAndDestroyed) {
    const CHost host;
    const CLibrary library;
    { CInstance first(library); }
    const int threads = CountThreads();
    const int files = CountFiles();
    for (int i = 0; i < 1000; ++i) {
        CInstance plugin(library);
        if (i % 10 == 0) {
            plugin.Start(static_cast<float>(8000 + 40 * i), 64);
            plugin.Run(64);
        }
    }
    EXPECT_EQ(CountThreads(), threads);
    EXPECT_EQ(CountFiles(), files);
}

TEST(InstancesTest, AreMadeAndDestroyedOnFourThreadsAtOnce) {
    const CHost host;
    const CLibrary library;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&library] {
            for (int round = 0; round < 50; ++round) {
                CInstance plugin(library);
                plugin.Start();
                plugin.Run(64);
                EXPECT_EQ(plugin.SetChunk(plugin.GetChunk()), 1);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(InstancesTest, OneDoesNotSeeWhatIsSetInAnother) {
    const CHost host;
    const CLibrary library;
    CInstance one(library);
    CInstance other(library);
    const std::string before = other.GetChunk();
    ASSERT_EQ(one.SetChunk(ControlledState({1, 1, 2, 1, 300, 1, 1}, {{kDelay, 0, 1}})), 1);
    EXPECT_EQ(other.GetChunk(), before);
}

TEST(InstancesTest, TheFirstMayGoBeforeTheSecond) {
    const CHost host;
    const CLibrary library;
    auto first = std::make_unique<CInstance>(library);
    CInstance second(library);
    first.reset();
    second.Start();
    second.Run(512);
    EXPECT_EQ(second.SetChunk(second.GetChunk()), 1);
}

TEST(UnloadTest, LeavesTheProcessAsItFoundItAHundredTimes) {
    const CHost host;
    { const CLibrary first; } // what it depends on may stay
    const int threads = CountThreads();
    const int files = CountFiles();
    ASSERT_FALSE(IsMapped(ONDARA_LIBRARY));
    for (int i = 0; i < 100; ++i) {
        {
            const CLibrary library;
            ASSERT_TRUE(IsMapped(ONDARA_LIBRARY));
            CInstance plugin(library);
            plugin.Start();
            plugin.Run(512);
            ASSERT_EQ(plugin.SetChunk(plugin.GetChunk()), 1);
        }
        ASSERT_FALSE(IsMapped(ONDARA_LIBRARY)) << "load " << i;
        ASSERT_EQ(CountThreads(), threads);
        ASSERT_EQ(CountFiles(), files);
    }
}

TEST(UnloadTest, GoesAfterAThreadThatUsedItStillRuns) {
    const CHost host;
    std::atomic<int> phase{0};
    std::thread other;
    {
        const CLibrary library;
        CInstance plugin(library);
        plugin.Start();
        other = std::thread([&] {
            plugin.Run(64);
            plugin.GetChunk();
            phase = 1;
            phase.notify_all();
            phase.wait(1); // its end comes when the library is gone
        });
        phase.wait(0);
    }
    EXPECT_FALSE(IsMapped(ONDARA_LIBRARY));
    phase = 2;
    phase.notify_all();
    other.join();
}

} // namespace
} // namespace TestHost
