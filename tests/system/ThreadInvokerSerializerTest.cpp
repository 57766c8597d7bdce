#include "system/ThreadInvokerSerializer.h"

#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace Vorin::System {
namespace {

using Core::kDontOwn;
using Core::kOwn;
using Testing::CFakeInvoker;
using Testing::CFakeTimerProvider;
using Testing::CFunctionCommand;

class ThreadInvokerSerializerTest : public ::testing::Test {
protected:
    CFakeTimerProvider timer;
    CFakeInvoker invoker;
    CThreadInvokerSerializer serializer{&timer, &invoker, 20};
    std::string log;
    CFunctionCommand a{[this] { log += 'a'; }};
    CFunctionCommand b{[this] { log += 'b'; }};
};

TEST_F(ThreadInvokerSerializerTest, StartsInactiveWithoutATimer) {
    EXPECT_FALSE(serializer.IsActive());
    EXPECT_TRUE(timer.timers.empty());
    EXPECT_EQ(serializer.GetRefreshTime(), 20);
    EXPECT_TRUE(serializer.InvokeAsync(&a, kDontOwn));
    serializer.Execute();
    EXPECT_EQ(log, "") << "what is queued waits until it is active";
    serializer.SetActive(true);
    EXPECT_EQ(timer.TakeLog(), "+20 ");
    timer.Tick();
    EXPECT_EQ(log, "a");
}

TEST_F(ThreadInvokerSerializerTest, ATickRunsWhatIsQueuedInOrder) {
    serializer.SetActive(true);
    serializer.InvokeAsync(&a, kDontOwn);
    serializer.InvokeAsync(&b, kDontOwn);
    EXPECT_EQ(log, "");
    timer.Tick();
    EXPECT_EQ(log, "ab");
    timer.Tick();
    EXPECT_EQ(log, "ab");
}

TEST_F(ThreadInvokerSerializerTest, SynchronousInvocationsAreNotHeldBack) {
    EXPECT_TRUE(serializer.InvokeSync(&a, kDontOwn));
    EXPECT_EQ(invoker.syncCalls, 1);
    EXPECT_EQ(log, "a");
}

TEST_F(ThreadInvokerSerializerTest, ACommandMayInvokeAnotherInTheSameTick) {
    a.function = [this] {
        log += 'a';
        serializer.InvokeAsync(&b, kDontOwn);
    };
    serializer.SetActive(true);
    serializer.InvokeAsync(&a, kDontOwn);
    timer.Tick();
    EXPECT_EQ(log, "ab");
}

TEST_F(ThreadInvokerSerializerTest, SwitchingOffKeepsTheRestOfTheQueue) {
    a.function = [this] {
        log += 'a';
        serializer.SetActive(false);
    };
    serializer.SetActive(true);
    serializer.InvokeAsync(&a, kDontOwn);
    serializer.InvokeAsync(&b, kDontOwn);
    timer.Tick();
    EXPECT_EQ(log, "a");
    EXPECT_TRUE(timer.timers.empty());
    serializer.SetActive(true);
    timer.Tick();
    EXPECT_EQ(log, "ab");
}

TEST_F(ThreadInvokerSerializerTest, ARefreshTimeRestartsAnActiveTimer) {
    serializer.SetRefreshTime(30);
    EXPECT_EQ(timer.TakeLog(), "");
    serializer.SetActive(true);
    EXPECT_EQ(timer.TakeLog(), "+30 ");
    serializer.SetRefreshTime(30);
    EXPECT_EQ(timer.TakeLog(), "");
    serializer.SetRefreshTime(40);
    EXPECT_EQ(timer.TakeLog(), "- +40 ");
}

TEST_F(ThreadInvokerSerializerTest, ClearDeletesWhatIsQueued) {
    int deaths = 0;
    serializer.SetActive(true);
    serializer.InvokeAsync(new CFunctionCommand([this] { log += 'x'; }, &deaths), kOwn);
    serializer.InvokeAsync(&a, kDontOwn);
    serializer.Clear();
    EXPECT_EQ(deaths, 1);
    timer.Tick();
    EXPECT_EQ(log, "");
}

TEST_F(ThreadInvokerSerializerTest, OwnedCommandsAreDeletedOnceTheyRan) {
    int deaths = 0;
    serializer.SetActive(true);
    serializer.InvokeAsync(new CFunctionCommand([this] { log += 'x'; }, &deaths), kOwn);
    timer.Tick();
    EXPECT_EQ(log, "x");
    EXPECT_EQ(deaths, 1);
}

TEST_F(ThreadInvokerSerializerTest, ItsDeathTakesTheTimerBackAndDeletesTheQueue) {
    int deaths = 0;
    {
        CThreadInvokerSerializer other(&timer, &invoker, 10);
        other.SetActive(true);
        other.InvokeAsync(new CFunctionCommand([this] { log += 'x'; }, &deaths), kOwn);
    }
    EXPECT_TRUE(timer.timers.empty());
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(log, "");
}

TEST_F(ThreadInvokerSerializerTest, NullIsNotInvoked) {
    EXPECT_FALSE(serializer.InvokeAsync(nullptr, kOwn));
}

TEST_F(ThreadInvokerSerializerTest, ThreadsInvokeWhileAnotherDrains) {
    int runs = 0; // under the drain lock
    serializer.SetActive(true);
    const auto invoke = [&] {
        for (int i = 0; i < 300; ++i) {
            serializer.InvokeAsync(new CFunctionCommand([&] { ++runs; }), kOwn);
        }
    };
    std::thread one(invoke);
    std::thread two(invoke);
    for (int i = 0; i < 100; ++i) {
        timer.Tick();
    }
    one.join();
    two.join();
    timer.Tick();
    EXPECT_EQ(runs, 600);
}

} // namespace
} // namespace Vorin::System
