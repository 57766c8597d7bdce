#include "audio/plugin/midi/MIDILearner.h"

#include "audio/plugin/midi/MIDITestKit.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;

class MIDILearner : public ::testing::Test {
protected:
    CMIDICCMessage message;
    CMIDICCSetting target{MakeInfo(0.0, 1.0)};
    CMIDILearner learner{message};
};

TEST_F(MIDILearner, StartsDisabledWithoutATarget) {
    EXPECT_FALSE(learner.IsEnabled());
    EXPECT_EQ(learner.GetTarget(), nullptr);
}

TEST_F(MIDILearner, SwitchingComparesStoresAndFires) {
    CListener enable(learner.GetEnableEvents(), [] {});
    learner.SetEnabled(false);
    EXPECT_EQ(enable.Take(), 0);
    learner.SetEnabled(true);
    EXPECT_TRUE(learner.IsEnabled());
    learner.SetEnabled(true);
    EXPECT_EQ(enable.Take(), 1);
    learner.SetEnabled(false);
    EXPECT_FALSE(learner.IsEnabled());
    EXPECT_EQ(enable.Take(), 1);
}

TEST_F(MIDILearner, GivesTheTargetChannelAndControllerAndNothingElse) {
    const CMIDICCSetting untouched(MakeInfo(0.0, 1.0));
    learner.SetTarget(&target);
    EXPECT_EQ(learner.GetTarget(), &target);
    learner.SetEnabled(true);
    message.Set({5, 74, 33}, true);
    CFieldsTuple expected = FieldsOf(untouched);
    std::get<0>(expected) = 5;
    std::get<1>(expected) = 74;
    EXPECT_EQ(FieldsOf(target), expected);
}

TEST_F(MIDILearner, ASecondControllerReplacesTheFirst) {
    learner.SetTarget(&target);
    learner.SetEnabled(true);
    message.Set({5, 74, 33}, true);
    message.Set({16, 0, 1}, true);
    EXPECT_EQ(target.GetChannel(), 16);
    EXPECT_EQ(target.GetNumber(), 0);
    EXPECT_TRUE(learner.IsEnabled());
}

TEST_F(MIDILearner, LearnsFromWhatComesInAfterItWasEnabled) {
    message.Set({5, 74, 33}, true);
    learner.SetTarget(&target);
    learner.SetEnabled(true);
    EXPECT_EQ(target.GetChannel(), 1);
    message.Set({5, 74, 33}, false); // no change
    EXPECT_EQ(target.GetChannel(), 1);
    message.Set({5, 74, 33}, true);
    EXPECT_EQ(target.GetChannel(), 5);
}

TEST_F(MIDILearner, DoesNothingWhileNotEnabledOrWithoutATarget) {
    learner.SetTarget(&target);
    message.Set({5, 74, 33}, true);
    learner.SetEnabled(true);
    learner.SetTarget(nullptr);
    message.Set({6, 75, 33}, true);
    learner.SetTarget(&target);
    learner.SetEnabled(false);
    message.Set({7, 76, 33}, true);
    EXPECT_EQ(target.GetChannel(), 1);
    EXPECT_EQ(target.GetNumber(), 0);
}

TEST_F(MIDILearner, AMessageThatIsNoControllerTeachesNothing) {
    learner.SetTarget(&target);
    learner.SetEnabled(true);
    message.Set({17, 128, 0}, true);
    message.Set({-1, -1, -1}, true);
    EXPECT_EQ(target.GetChannel(), 1);
    EXPECT_EQ(target.GetNumber(), 0);
}

TEST_F(MIDILearner, AListenerOfTheTargetMayEndTheLearning) {
    learner.SetTarget(&target);
    learner.SetEnabled(true);
    CListener done(target.GetChangedEvent(), [&] { learner.SetEnabled(false); });
    message.Set({5, 74, 33}, true);
    EXPECT_FALSE(learner.IsEnabled());
    message.Set({6, 75, 33}, true);
    EXPECT_EQ(target.GetChannel(), 5);
}

TEST_F(MIDILearner, LeavesTheMessageWhenItDies) {
    {
        CMIDILearner other(message);
        other.SetTarget(&target);
        other.SetEnabled(true);
    }
    message.Set({5, 74, 33}, true);
    EXPECT_EQ(target.GetChannel(), 1);
}

TEST_F(MIDILearner, DoesNotTouchATargetThatWasTakenAwayWhileMessagesComeIn) {
    constexpr int kRounds = 300;
    std::atomic<bool> isStopping{false};
    std::thread audio([&] {
        for (int i = 0; !isStopping; ++i) {
            message.Set({i % 16 + 1, i % 128, 0}, true);
        }
    });
    const CParamInfo info = MakeInfo(0.0, 1.0);
    for (int i = 0; i < kRounds; ++i) {
        auto setting = std::make_unique<CMIDICCSetting>(info);
        learner.SetTarget(setting.get());
        learner.SetEnabled(true);
        if (i % 2) {
            learner.SetEnabled(false);
        } else {
            learner.SetTarget(nullptr);
        }
        const CFieldsTuple last = FieldsOf(*setting);
        std::this_thread::yield();
        EXPECT_EQ(FieldsOf(*setting), last);
        setting.reset(); // a late write would be found by the sanitizers
        learner.SetTarget(nullptr);
        learner.SetEnabled(false);
    }
    isStopping = true;
    audio.join();
}

} // namespace
} // namespace Vorin::Audio::Plugin
