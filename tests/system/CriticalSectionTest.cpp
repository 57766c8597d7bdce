#include "system/CriticalSection.h"

#include <gtest/gtest.h>

#include <thread>

namespace Vorin::System {
namespace {

/// Whether another thread could take the lock just now; it gives it back.
bool IsFreeForOthers(CCriticalSection& lock) {
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

TEST(CriticalSectionTest, IsFreeAtFirst) {
    CCriticalSection lock;
    EXPECT_TRUE(IsFreeForOthers(lock));
}

TEST(CriticalSectionTest, KeepsOthersOutUntilItIsUnlocked) {
    CCriticalSection lock;
    lock.Lock();
    EXPECT_FALSE(IsFreeForOthers(lock));
    lock.Unlock();
    EXPECT_TRUE(IsFreeForOthers(lock));
}

TEST(CriticalSectionTest, LetsItsHolderInAgainAndIsFreeAfterAsManyUnlocks) {
    CCriticalSection lock;
    lock.Lock();
    ASSERT_TRUE(lock.TryLock());
    lock.Lock();
    lock.Unlock();
    lock.Unlock();
    EXPECT_FALSE(IsFreeForOthers(lock));
    lock.Unlock();
    EXPECT_TRUE(IsFreeForOthers(lock));
}

TEST(CriticalSectionTest, IsHeldAfterTryLockToo) {
    CCriticalSection lock;
    ASSERT_TRUE(lock.TryLock());
    EXPECT_FALSE(IsFreeForOthers(lock));
    lock.Unlock();
}

TEST(CriticalSectionTest, IsReleasedAtTheEndOfAScope) {
    CCriticalSection lock;
    {
        Core::CAutoLock guard(lock);
        EXPECT_FALSE(IsFreeForOthers(lock));
    }
    EXPECT_TRUE(IsFreeForOthers(lock));
}

TEST(CriticalSectionTest, LetsOneThreadInAtATime) {
    CCriticalSection lock;
    int count = 0; // guarded by the lock
    const auto work = [&] {
        for (int i = 0; i < 20000; ++i) {
            Core::CAutoLock guard(lock);
            ++count;
        }
    };
    std::thread one(work);
    std::thread two(work);
    one.join();
    two.join();
    EXPECT_EQ(count, 40000);
}

} // namespace
} // namespace Vorin::System
