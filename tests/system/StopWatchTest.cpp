#include "system/StopWatch.h"
#include "system/ManualClock.h"

#include <gtest/gtest.h>

namespace Vorin::System {
namespace {

TEST(StopWatch, StandsAtZeroUntilItIsStarted) {
    CManualClock clock;
    const CStopWatch watch(clock);
    clock.Advance(5);
    EXPECT_EQ(watch.GetMilliseconds(), 0.0);
    EXPECT_FALSE(watch.IsRunning());
}

TEST(StopWatch, ShowsTheTimeSinceTheLastStart) {
    CManualClock clock;
    CStopWatch watch(clock);
    watch.Start();
    clock.AdvanceNanoseconds(1'500'000);
    EXPECT_EQ(watch.GetMilliseconds(), 1.5);
    watch.Start();
    EXPECT_EQ(watch.GetMilliseconds(), 0.0);
}

TEST(StopWatch, KeepsItsTimeWhenStopped) {
    CManualClock clock;
    CStopWatch watch(clock);
    watch.Start();
    clock.Advance(3);
    watch.Stop();
    clock.Advance(4);
    watch.Stop();
    EXPECT_EQ(watch.GetMilliseconds(), 3.0);
    EXPECT_FALSE(watch.IsRunning());
}

} // namespace
} // namespace Vorin::System
