#include "system/ThreadedTimer.h"

#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopThreadInvoker.h"
#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace Vorin::System {
namespace {

using Testing::CFunctionCommand;

/// Ticks on a thread of its own; the commands run on the test's thread when that pumps.
class ThreadedTimerThreadTest : public ::testing::Test {
protected:
    void PumpUntilRuns(int count) {
        while (runs < count) {
            mainLoop.Pump();
            std::this_thread::yield();
        }
        EXPECT_EQ(runs, count);
    }

    CManualClock clock;
    CRunLoop mainLoop{clock};
    CRunLoopThreadInvoker invoker{mainLoop};
    std::thread::id ranOn;
    int runs = 0;
    CFunctionCommand command{[this] {
        ++runs;
        ranOn = std::this_thread::get_id();
    }};
};

TEST_F(ThreadedTimerThreadTest, TicksOnItsOwnThreadAndExecutesOnTheInvokers) {
    CThreadedTimer timer(&invoker, true, clock);
    EXPECT_TRUE(timer.IsEnabled());
    timer.AddTimer(10, &command);
    clock.Advance(10);
    PumpUntilRuns(1);
    EXPECT_EQ(ranOn, std::this_thread::get_id());
    clock.Advance(10);
    PumpUntilRuns(2);
    timer.RemoveTimer(&command, false);
}

TEST_F(ThreadedTimerThreadTest, TimersAddedWhileOffStayRegistered) {
    CThreadedTimer timer(&invoker, false, clock);
    EXPECT_FALSE(timer.IsEnabled());
    timer.AddTimer(10, &command);
    clock.Advance(10);
    mainLoop.Pump();
    EXPECT_EQ(runs, 0);
    timer.SetEnabled(true);
    PumpUntilRuns(1);
}

TEST_F(ThreadedTimerThreadTest, NothingTicksOnceItIsSwitchedOff) {
    CThreadedTimer timer(&invoker, true, clock);
    timer.AddTimer(10, &command);
    clock.Advance(10);
    PumpUntilRuns(1);
    timer.SetEnabled(false);
    clock.Advance(100);
    for (int i = 0; i < 100; ++i) {
        std::this_thread::yield(); // a thread that still ran would have posted by now
        mainLoop.Pump();
    }
    EXPECT_EQ(runs, 1);
    timer.SetEnabled(true);
    PumpUntilRuns(2);
}

TEST_F(ThreadedTimerThreadTest, TellsWhenItIsSwitched) {
    CThreadedTimer timer(&invoker, false, clock);
    int events = 0;
    bool seen = false;
    CFunctionCommand onEnable([&] {
        ++events;
        seen = timer.IsEnabled();
    });
    timer.GetEnableEvents().Connect(onEnable);
    timer.SetEnabled(false);
    EXPECT_EQ(events, 0);
    timer.SetEnabled(true);
    EXPECT_EQ(events, 1);
    EXPECT_TRUE(seen);
    timer.SetEnabled(false);
    EXPECT_EQ(events, 2);
    EXPECT_FALSE(seen);
}

TEST_F(ThreadedTimerThreadTest, MayDieWithTimersAndCallsUnderWay) {
    auto timer = std::make_unique<CThreadedTimer>(&invoker, true, clock);
    CFunctionCommand other([this] { ++runs; });
    timer->AddTimer(10, &command);
    timer->AddTimer(10, &other);
    clock.Advance(10);
    timer.reset();
    mainLoop.Pump();
    EXPECT_EQ(runs, 0);
}

TEST_F(ThreadedTimerThreadTest, ACommandMaySwitchItOff) {
    CThreadedTimer timer(&invoker, true, clock);
    command.function = [&] {
        ++runs;
        timer.SetEnabled(false);
    };
    timer.AddTimer(10, &command);
    clock.Advance(10);
    PumpUntilRuns(1);
    EXPECT_FALSE(timer.IsEnabled());
}

TEST_F(ThreadedTimerThreadTest, RunsByTheMonotonicClockUnlessGivenAnother) {
    CThreadedTimer timer(&invoker, true);
    timer.AddTimer(1, &command);
    while (runs < 3) {
        mainLoop.Pump();
        std::this_thread::yield();
    }
    timer.RemoveTimer(&command, false);
    const int last = runs;
    mainLoop.Pump();
    EXPECT_EQ(runs, last);
}

} // namespace
} // namespace Vorin::System
