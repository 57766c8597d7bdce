#include "system/LockableBool.h"

#include <gtest/gtest.h>

#include <thread>

namespace Vorin::System {
namespace {

TEST(LockableBoolThreadTest, KeepsWhatItIsSetTo) {
    CLockableBool flag(true);
    EXPECT_TRUE(flag.Get());
    flag.Set(false);
    EXPECT_FALSE(flag.Get());
    EXPECT_FALSE(CLockableBool().Get());
}

TEST(LockableBoolThreadTest, OneThreadOfManyTakesAFlagThatItHoldsWhileDeciding) {
    CLockableBool taken(false);
    int takers = 0; // under the flag's lock
    const auto take = [&] {
        const Core::CAutoLock held(taken);
        if (!taken.Get()) {
            taken.Set(true);
            ++takers;
        }
    };
    for (int round = 0; round < 100; ++round) {
        taken.Set(false);
        std::thread one(take);
        std::thread two(take);
        one.join();
        two.join();
        EXPECT_EQ(takers, round + 1);
    }
}

} // namespace
} // namespace Vorin::System
