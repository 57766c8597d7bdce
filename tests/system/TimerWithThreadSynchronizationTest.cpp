#include "system/TimerWithThreadSynchronization.h"

#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::System {
namespace {

using Testing::CFakeInvoker;
using Testing::CFakeTimerProvider;
using Testing::CFunctionCommand;

class TimerWithThreadSynchronizationTest : public ::testing::Test {
protected:
    CFakeTimerProvider provider;
    CFakeInvoker invoker;
    CTimerWithThreadSynchronization timers{&provider, &invoker};
    int runs = 0;
    CFunctionCommand command{[this] { ++runs; }};
};

TEST_F(TimerWithThreadSynchronizationTest, ATickPostsAndTheInvokerExecutes) {
    timers.AddTimer(20, &command);
    EXPECT_EQ(provider.TakeLog(), "+20 ");
    provider.Tick();
    EXPECT_EQ(runs, 0);
    ASSERT_EQ(invoker.queue.size(), 1u);
    EXPECT_EQ(invoker.queue[0].second, Core::kOwn);
    invoker.RunOne();
    EXPECT_EQ(runs, 1);
    provider.Tick();
    invoker.RunOne();
    EXPECT_EQ(runs, 2);
}

TEST_F(TimerWithThreadSynchronizationTest,
       SixteenTicksAreDroppedWhileACallIsUnderWayThenOneIsPosted) {
    timers.AddTimer(20, &command);
    provider.Tick();
    for (int i = 0; i < 16; ++i) {
        provider.Tick();
        EXPECT_EQ(invoker.queue.size(), 1u);
    }
    provider.Tick();
    EXPECT_EQ(invoker.queue.size(), 2u);
    for (int i = 0; i < 16; ++i) {
        provider.Tick();
    }
    EXPECT_EQ(invoker.queue.size(), 2u) << "counted anew";
    provider.Tick();
    EXPECT_EQ(invoker.queue.size(), 3u);
}

TEST_F(TimerWithThreadSynchronizationTest, ATimerRemovedInTheMeantimeIsSkipped) {
    timers.AddTimer(20, &command);
    provider.Tick();
    timers.RemoveTimer(&command, false);
    EXPECT_TRUE(provider.timers.empty());
    invoker.RunOne();
    EXPECT_EQ(runs, 0);
}

TEST_F(TimerWithThreadSynchronizationTest, AddingACommandAgainChangesItsPeriod) {
    timers.AddTimer(20, &command);
    timers.AddTimer(30, &command);
    ASSERT_EQ(provider.timers.size(), 1u);
    EXPECT_EQ(provider.timers[0].period, 30);
}

TEST_F(TimerWithThreadSynchronizationTest, RemoveDestroysTheCommandRegisteredOrNot) {
    int deaths = 0;
    auto* known = new CFunctionCommand([] {}, &deaths);
    timers.AddTimer(20, known);
    timers.RemoveTimer(known, true);
    EXPECT_EQ(deaths, 1);
    timers.RemoveTimer(new CFunctionCommand([] {}, &deaths), true);
    EXPECT_EQ(deaths, 2);
}

TEST_F(TimerWithThreadSynchronizationTest, NullIsIgnored) {
    timers.AddTimer(20, nullptr);
    timers.RemoveTimer(nullptr, true);
    EXPECT_EQ(provider.TakeLog(), "");
}

TEST_F(TimerWithThreadSynchronizationTest, ACommandMayRemoveAndDestroyItself) {
    int deaths = 0;
    auto* own = new CFunctionCommand([] {}, &deaths);
    own->function = [this, own] { timers.RemoveTimer(own, true); };
    timers.AddTimer(20, own);
    provider.Tick();
    invoker.RunOne();
    EXPECT_EQ(deaths, 1);
}

TEST_F(TimerWithThreadSynchronizationTest, ATickDuringTheExecutionPostsAgain) {
    command.function = [this] {
        ++runs;
        provider.Tick();
    };
    timers.AddTimer(20, &command);
    provider.Tick();
    invoker.RunOne();
    EXPECT_EQ(invoker.queue.size(), 1u);
}

TEST_F(TimerWithThreadSynchronizationTest, CallsThatAreUnderWayWhenItDiesDoNothing) {
    auto dying = std::make_unique<CTimerWithThreadSynchronization>(&provider, &invoker);
    dying->AddTimer(20, &command);
    provider.Tick();
    dying.reset();
    EXPECT_TRUE(provider.timers.empty());
    ASSERT_EQ(invoker.queue.size(), 1u);
    invoker.RunOne();
    EXPECT_EQ(runs, 0);
}

} // namespace
} // namespace Vorin::System
