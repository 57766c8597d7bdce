#include "system/PollingLock.h"

#include <gtest/gtest.h>

#include <barrier>
#include <thread>

namespace Vorin::System {
namespace {

bool CanAnotherThreadTake(CPollingLock& lock) {
    bool taken = false;
    std::thread other([&] {
        taken = lock.TryLock();
        if (taken) {
            lock.Unlock();
        }
    });
    other.join();
    return taken;
}

TEST(PollingLock, IsHeldByOneThreadUntilTheLastUnlock) {
    CPollingLock lock;
    ASSERT_TRUE(lock.TryLock());
    ASSERT_TRUE(lock.TryLock());
    EXPECT_FALSE(CanAnotherThreadTake(lock));
    lock.Unlock();
    EXPECT_FALSE(CanAnotherThreadTake(lock));
    lock.Unlock();
    EXPECT_TRUE(CanAnotherThreadTake(lock));
}

TEST(PollingLock, LetsAWaiterInOnceItIsFree) {
    CPollingLock lock;
    std::barrier held(2);
    bool entered = false;
    lock.Lock();
    std::thread waiter([&] {
        held.arrive_and_wait();
        lock.Lock();
        entered = true;
        lock.Unlock();
    });
    held.arrive_and_wait();
    lock.Unlock();
    waiter.join();
    EXPECT_TRUE(entered);
}

TEST(PollingLock, GuardsWhatItIsHeldFor) {
    constexpr int kRounds = 2000;
    CPollingLock lock;
    int count = 0; // unguarded but for the lock
    const auto work = [&] {
        for (int i = 0; i < kRounds; ++i) {
            Core::CAutoLock guard(lock);
            ++count;
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    EXPECT_EQ(count, 2 * kRounds);
}

} // namespace
} // namespace Vorin::System
