#include "system/ManualClock.h"

#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::System {
namespace {

TEST(ClockTest, TheMonotonicClockRunsByItselfAndNotBack) {
    IClock& clock = GetMonotonicClock();
    EXPECT_EQ(clock.GetMovedEvents(), nullptr);
    const std::int64_t first = clock.GetNanoseconds();
    std::int64_t second = clock.GetNanoseconds();
    while (second == first) {
        second = clock.GetNanoseconds();
    }
    EXPECT_GT(second, first);
}

TEST(ClockTest, AManualClockMovesWhenToldAndTellsAfterwards) {
    CManualClock clock;
    std::int64_t seen = -1;
    Testing::CFunctionCommand command([&] { seen = clock.GetNanoseconds(); });
    ASSERT_NE(clock.GetMovedEvents(), nullptr);
    clock.GetMovedEvents()->Connect(command);
    EXPECT_EQ(clock.GetNanoseconds(), 0);
    clock.Advance(2);
    EXPECT_EQ(seen, 2'000'000);
    clock.AdvanceNanoseconds(5);
    EXPECT_EQ(seen, 2'000'005);
}

TEST(ClockTest, AManualClockDoesNotGoBack) {
    CManualClock clock;
    clock.Advance(2);
    clock.Advance(-1);
    EXPECT_EQ(clock.GetNanoseconds(), 2'000'000);
}

} // namespace
} // namespace Vorin::System
