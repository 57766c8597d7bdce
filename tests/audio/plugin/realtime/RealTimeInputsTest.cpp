// That texts, curves, surfaces and custom properties come to the audio thread without its
// allocating, freeing or waiting.

#include "audio/plugin/InputsTestKit.h"
#include "audio/plugin/PluginTestKit.h"
#include "audio/plugin/realtime/RealTimeGuard.h"

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <string>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

class RealTimeInputsTest : public ::testing::Test {
protected:
    RealTimeInputsTest() : RealTimeInputsTest(std::make_unique<CAllInputsFilter>()) {}
    explicit RealTimeInputsTest(std::unique_ptr<CAllInputsFilter> owned)
        : filter(*owned), plugin(std::move(owned)), objects(plugin.internals.GetInputObjects()) {
        EXPECT_TRUE(plugin.Configure(48000.0, 16));
        RealTime::Forget();
    }
    ~RealTimeInputsTest() override { RealTime::Forget(); }

    void Process() {
        const RealTime::CGuard guard;
        plugin.Process(samples, samples, 16);
    }

    void SetSomeValue(std::mt19937& random) {
        const int value = static_cast<int>(random() % 1000);
        switch (random() % 4) {
        case 0:
            objects.GetStrings()
                .Get(static_cast<int>(random() % 2))
                .SetValue(std::to_string(value).c_str());
            break;
        case 1:
            objects.GetCurves().Get(0).SetValue(Math::CConstantFunction(value));
            break;
        case 2:
            objects.GetSurfaces().Get(0).SetValue(Math::CConstantBinaryFunction(value));
            break;
        default:
            objects.GetProperties().Get(0).SetValue(CNumberProperty(value));
            break;
        }
    }

    float samples[16] = {};
    CAllInputsFilter& filter;
    CTestPlugin plugin;
    CInputObjects& objects;
};

TEST_F(RealTimeInputsTest, TakesNewValuesWithoutAllocatingOrFreeing) {
    std::mt19937 random(3);
    for (int block = 0; block < 20000; ++block) {
        for (auto i = random() % 4; i > 0; --i) {
            SetSomeValue(random);
        }
        Process();
        ASSERT_EQ(RealTime::GetViolationsCount(), 0) << RealTime::GetFirstViolation();
    }
    EXPECT_GT(filter.atEnd.count, 10000);
}

TEST_F(RealTimeInputsTest, NeitherWaitsForNorWakesThreadsThatSetThem) {
    std::atomic<bool> isDone{false};
    std::thread user([&] {
        std::mt19937 random(4);
        while (!isDone) {
            SetSomeValue(random);
        }
    });
    while (filter.atEnd.count < 2000 && RealTime::GetViolationsCount() == 0) {
        Process();
    }
    isDone = true;
    user.join();
    EXPECT_EQ(RealTime::GetViolationsCount(), 0) << RealTime::GetFirstViolation();
}

TEST_F(RealTimeInputsTest, GivesBackWhatItMayNotHaveYet) {
    for (int i = 0; i < 100; ++i) {
        plugin.internals.BeginChanges();
        objects.GetCurves().Get(0).SetValue(Math::CConstantFunction(i));
        Process();
        plugin.internals.EndChanges();
        Process();
        ASSERT_EQ(filter.atEnd.curve, i);
    }
    EXPECT_EQ(RealTime::GetViolationsCount(), 0) << RealTime::GetFirstViolation();
}

} // namespace
} // namespace Vorin::Audio::Plugin
