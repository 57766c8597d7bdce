#include "system/Event.h"

#include "system/WaitableEvent.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

namespace Vorin::System {
namespace {

std::int64_t Now() { return GetMonotonicClock().GetNanoseconds(); }

TEST(EventThreadTest, WaitOnASetEventReturnsTrueAtOnceAndTheEventStaysSet) {
    CEvent event(true);
    EXPECT_TRUE(event.Wait(-1));
    EXPECT_TRUE(event.Wait(-1));
    EXPECT_TRUE(event.IsSet());
}

TEST(EventThreadTest, ResetClosesTheGate) {
    CEvent event(true);
    event.Reset();
    EXPECT_FALSE(event.IsSet());
    event.Set();
    EXPECT_TRUE(event.Wait(-1));
}

TEST(EventThreadTest, WaitReturnsTrueAlsoWhenTheTimeRanOut) {
    CEvent event(false);
    EXPECT_TRUE(event.Wait(0));
    const std::int64_t begin = Now();
    EXPECT_TRUE(event.Wait(3));
    EXPECT_GE(Now() - begin, 3 * nanosecondsPerMillisecond);
    EXPECT_FALSE(event.IsSet());
}

TEST(EventThreadTest, SetWakesEveryWaiter) {
    CEvent event(false);
    std::atomic<int> arrived{0};
    std::atomic<int> through{0};
    std::vector<std::thread> waiters;
    for (int i = 0; i < 3; ++i) {
        waiters.emplace_back([&] {
            ++arrived;
            EXPECT_TRUE(event.Wait(-1));
            EXPECT_TRUE(event.IsSet());
            ++through;
        });
    }
    while (arrived < 3) {
        std::this_thread::yield();
    }
    for (int i = 0; i < 100; ++i) {
        std::this_thread::yield(); // they are most likely asleep by now
    }
    event.Set();
    for (std::thread& waiter : waiters) {
        waiter.join();
    }
    EXPECT_EQ(through, 3);
}

TEST(EventThreadTest, AWaiterMayDestroyTheEventAsSoonAsItWasSet) {
    for (int round = 0; round < 50; ++round) {
        auto event = std::make_unique<CEvent>(false);
        CEvent* set = event.get();
        std::thread waiter([&] {
            event->Wait(-1);
            event.reset();
        });
        set->Set();
        waiter.join();
    }
}

TEST(WaitableEventThreadTest, ASignalSentBeforeTheWaitIsKept) {
    CWaitableEvent event;
    event.Signal();
    EXPECT_TRUE(event.Wait(-1));
}

TEST(WaitableEventThreadTest, WaitConsumesTheSignals) {
    CWaitableEvent event;
    event.Signal();
    event.Signal();
    EXPECT_TRUE(event.Wait(-1));
    const std::int64_t begin = Now();
    EXPECT_TRUE(event.Wait(3));
    EXPECT_GE(Now() - begin, 3 * nanosecondsPerMillisecond);
}

TEST(WaitableEventThreadTest, EachSignalWakesItsWait) {
    CWaitableEvent there;
    CWaitableEvent back;
    int count = 0; // handed to and fro
    std::thread other([&] {
        for (int i = 0; i < 100; ++i) {
            there.Wait(-1);
            ++count;
            back.Signal();
        }
    });
    for (int i = 0; i < 100; ++i) {
        there.Signal();
        back.Wait(-1);
        EXPECT_EQ(count, i + 1);
    }
    other.join();
}

TEST(ConditionFlagThreadTest, AnEndlessTimeIsNotAnOverflow) {
    CConditionFlag flag(false);
    std::thread other([&] { flag.Raise(); });
    EXPECT_TRUE(flag.Wait(std::numeric_limits<std::int64_t>::max(), false));
    EXPECT_TRUE(flag.IsRaised());
    other.join();
}

} // namespace
} // namespace Vorin::System
