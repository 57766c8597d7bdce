#include "system/MessageLoop.h"

#include "system/ManualClock.h"
#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <string>
#include <thread>

namespace Vorin::System {
namespace {

using Core::kDontOwn;
using Testing::CFunctionCommand;
using Testing::Settle;

class MessageLoopTimersThreadTest : public ::testing::Test {
protected:
    /// Moves the clock and returns when what fell due has run: what runs in it.
    std::string LogOf(int milliseconds) {
        clock.Advance(milliseconds);
        Settle(loop, 3);
        std::string taken;
        CFunctionCommand take([&] { taken.swap(log); });
        loop.InvokeSync(&take, kDontOwn);
        return taken;
    }

    std::string log; // the loop's thread
    CFunctionCommand a{[this] { log += 'a'; }};
    CFunctionCommand b{[this] { log += 'b'; }};
    CManualClock clock;
    CMessageLoop loop{clock};
};

TEST_F(MessageLoopTimersThreadTest, ATimerRunsOncePerPeriodOnTheLoopsThread) {
    ASSERT_TRUE(loop.Start());
    std::atomic<bool> current{false};
    a.function = [&] {
        log += 'a';
        current = loop.IsCurrent();
    };
    loop.AddTimer(10, &a);
    EXPECT_EQ(LogOf(9), "");
    EXPECT_EQ(LogOf(1), "a");
    EXPECT_EQ(LogOf(9), "");
    EXPECT_EQ(LogOf(1), "a");
    EXPECT_TRUE(current);
}

TEST_F(MessageLoopTimersThreadTest, ALateTimerRunsOnceAndCountsFromThen) {
    ASSERT_TRUE(loop.Start());
    loop.AddTimer(10, &a);
    EXPECT_EQ(LogOf(35), "a");
    EXPECT_EQ(LogOf(9), "");
    EXPECT_EQ(LogOf(1), "a");
}

TEST_F(MessageLoopTimersThreadTest, APeriodCountsFromTheExecutionNotFromWhenItWasDue) {
    ASSERT_TRUE(loop.Start());
    a.function = b.function = [this] {
        if (log.empty() && clock.GetNanoseconds() == 10 * nanosecondsPerMillisecond) {
            clock.Advance(5); // so the other of the two runs at 15
        }
        log += 'x';
    };
    loop.AddTimer(10, &a);
    loop.AddTimer(10, &b);
    EXPECT_EQ(LogOf(10), "xx");
    EXPECT_EQ(LogOf(5), "x"); // at 20
    EXPECT_EQ(LogOf(5), "x"); // at 25
}

TEST_F(MessageLoopTimersThreadTest, AddingACommandAgainChangesItsPeriodAndStartsItAnew) {
    ASSERT_TRUE(loop.Start());
    loop.AddTimer(10, &a);
    EXPECT_EQ(LogOf(6), "");
    loop.AddTimer(30, &a);
    EXPECT_EQ(LogOf(29), "");
    EXPECT_EQ(LogOf(1), "a");
    loop.AddTimer(5, &a);
    EXPECT_EQ(LogOf(5), "a");
    loop.RemoveTimer(&a, false);
    EXPECT_EQ(LogOf(100), "") << "there was one timer";
}

TEST_F(MessageLoopTimersThreadTest, TimersOfTheirOwnPeriodsRunSideBySide) {
    ASSERT_TRUE(loop.Start());
    loop.AddTimer(10, &a);
    loop.AddTimer(15, &b);
    EXPECT_EQ(LogOf(10), "a");
    EXPECT_EQ(LogOf(5), "b");
    EXPECT_EQ(LogOf(5), "a");
    loop.RemoveTimer(&a, false);
    EXPECT_EQ(LogOf(10), "b");
}

TEST_F(MessageLoopTimersThreadTest, APeriodOfZeroOrLessCountsAsOneMillisecond) {
    ASSERT_TRUE(loop.Start());
    loop.AddTimer(0, &a);
    EXPECT_EQ(LogOf(0), "");
    EXPECT_EQ(LogOf(1), "a");
    loop.AddTimer(std::numeric_limits<int>::min(), &a);
    EXPECT_EQ(LogOf(0), "");
    EXPECT_EQ(LogOf(1), "a");
}

TEST_F(MessageLoopTimersThreadTest, TheLongestPeriodDoesNotOverflow) {
    ASSERT_TRUE(loop.Start());
    loop.AddTimer(std::numeric_limits<int>::max(), &a);
    EXPECT_EQ(LogOf(std::numeric_limits<int>::max() - 1), "");
    EXPECT_EQ(LogOf(1), "a");
}

TEST_F(MessageLoopTimersThreadTest, NullIsIgnored) {
    ASSERT_TRUE(loop.Start());
    loop.AddTimer(10, nullptr);
    loop.RemoveTimer(nullptr, true);
    EXPECT_EQ(LogOf(100), "");
}

TEST_F(MessageLoopTimersThreadTest, RemoveDestroysTheCommandRegisteredOrNot) {
    int deaths = 0;
    ASSERT_TRUE(loop.Start());
    auto* known = new CFunctionCommand([] {}, &deaths);
    loop.AddTimer(10, known);
    loop.RemoveTimer(known, true);
    EXPECT_EQ(deaths, 1);
    loop.RemoveTimer(new CFunctionCommand([] {}, &deaths), true);
    EXPECT_EQ(deaths, 2);
    EXPECT_EQ(LogOf(10), "");
}

TEST_F(MessageLoopTimersThreadTest, ATimerMayRemoveAndDestroyItselfFromItsOwnCommand) {
    int deaths = 0;
    ASSERT_TRUE(loop.Start());
    auto* own = new CFunctionCommand([] {}, &deaths);
    own->function = [this, own] {
        log += 'x';
        loop.RemoveTimer(own, true);
    };
    loop.AddTimer(10, own);
    EXPECT_EQ(LogOf(10), "x");
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(LogOf(100), "");
}

TEST_F(MessageLoopTimersThreadTest, ATimerMayAddItselfAnewFromItsOwnCommand) {
    ASSERT_TRUE(loop.Start());
    a.function = [this] {
        log += 'a';
        loop.RemoveTimer(&a, false);
        loop.AddTimer(20, &a);
    };
    loop.AddTimer(10, &a);
    EXPECT_EQ(LogOf(10), "a");
    EXPECT_EQ(LogOf(19), "");
    EXPECT_EQ(LogOf(1), "a");
}

TEST_F(MessageLoopTimersThreadTest, ATimerThatIsDueDoesNotRunOnceAnotherRemovedIt) {
    ASSERT_TRUE(loop.Start());
    a.function = [this] {
        log += 'x';
        loop.RemoveTimer(&b, false);
    };
    b.function = [this] {
        log += 'x';
        loop.RemoveTimer(&a, false);
    };
    loop.AddTimer(10, &a);
    loop.AddTimer(10, &b);
    EXPECT_EQ(LogOf(10), "x") << "both were due; the first to run removed the other";
}

TEST_F(MessageLoopTimersThreadTest, ATimerThatIsDueDoesNotRunOnceAnotherChangedItsPeriod) {
    ASSERT_TRUE(loop.Start());
    a.function = [this] {
        log += 'x';
        loop.AddTimer(100, &b);
    };
    b.function = [this] {
        log += 'x';
        loop.AddTimer(100, &a);
    };
    loop.AddTimer(10, &a);
    loop.AddTimer(10, &b);
    EXPECT_EQ(LogOf(10), "x");
}

TEST_F(MessageLoopTimersThreadTest, RemoveOnAnotherThreadWaitsForARunningExecution) {
    ASSERT_TRUE(loop.Start());
    CEvent running(false);
    CEvent removing(false);
    a.function = [&] {
        running.Set();
        removing.Wait(-1);
        for (int i = 0; i < 100; ++i) {
            std::this_thread::yield(); // the other would be through by now if nothing held it
        }
        log += 'T';
    };
    loop.AddTimer(10, &a);
    clock.Advance(10);
    running.Wait(-1);
    removing.Set();
    loop.RemoveTimer(&a, false);
    log += 'R'; // the timer is gone, so the log is ours
    EXPECT_EQ(log, "TR");
}

TEST_F(MessageLoopTimersThreadTest, TimersMayBeAddedWhileACommandRunsThatAddsTimersItself) {
    ASSERT_TRUE(loop.Start());
    CEvent running(false);
    CEvent changed(false);
    a.function = [&] {
        running.Set();
        changed.Wait(-1);
        log += 'a';
        loop.AddTimer(10, &b);
    };
    loop.AddTimer(10, &a);
    clock.Advance(10);
    running.Wait(-1);
    loop.AddTimer(40, &a); // the record whose command is running: must not wait for it
    changed.Set();
    EXPECT_EQ(LogOf(0), "a");
    EXPECT_EQ(LogOf(10), "b");
}

TEST_F(MessageLoopTimersThreadTest, AFloodOfMessagesDoesNotStarveTimers) {
    ASSERT_TRUE(loop.Start());
    std::atomic<bool> flooding{true};
    CFunctionCommand flood([&] {
        if (flooding) {
            loop.InvokeAsync(&flood, kDontOwn);
        }
    });
    CEvent ran(false);
    a.function = [&] { ran.Set(); };
    loop.AddTimer(10, &a);
    loop.InvokeAsync(&flood, kDontOwn);
    loop.InvokeAsync(&flood, kDontOwn); // the queue is never empty
    clock.Advance(10);
    ran.Wait(-1);
    flooding = false;
    loop.Stop();
}

TEST_F(MessageLoopTimersThreadTest, TimersThatAreAlwaysDueDoNotStarveASynchronousCaller) {
    ASSERT_TRUE(loop.Start());
    CEvent ran(false);
    a.function = [&] {
        ran.Set();
        clock.Advance(1);
    };
    loop.AddTimer(1, &a);
    clock.Advance(1);
    ran.Wait(-1);
    for (int i = 0; i < 20; ++i) {
        CFunctionCommand nothing([] {});
        EXPECT_TRUE(loop.InvokeSync(&nothing, kDontOwn));
    }
    loop.Stop();
}

TEST_F(MessageLoopTimersThreadTest, MessagesAndDueTimersRunInTurn) {
    CEvent end(false);
    CFunctionCommand message([this] { log += 'm'; });
    CFunctionCommand last([&] { end.Set(); });
    a.function = b.function = [this] { log += 't'; };
    loop.AddTimer(10, &a);
    loop.AddTimer(10, &b);
    clock.Advance(10);
    for (int i = 0; i < 4; ++i) {
        loop.InvokeAsync(&message, kDontOwn);
    }
    loop.InvokeAsync(&last, kDontOwn);
    ASSERT_TRUE(loop.Start());
    end.Wait(-1);
    loop.Stop();
    EXPECT_EQ(log, "mmtmtm") << "the timers are found after the first message";
}

TEST_F(MessageLoopTimersThreadTest, TimersStayRegisteredOverAStop) {
    loop.AddTimer(10, &a);
    ASSERT_TRUE(loop.Start());
    EXPECT_EQ(LogOf(10), "a");
    loop.Stop();
    clock.Advance(25);
    EXPECT_EQ(log, "");
    ASSERT_TRUE(loop.Start());
    EXPECT_EQ(LogOf(0), "a") << "late, so once";
    EXPECT_EQ(LogOf(10), "a");
}

TEST_F(MessageLoopTimersThreadTest, ItsSerializerSharesOneTimerOfTheLoop) {
    loop.GetTimerSerializer().AddTimer(20, &a);
    loop.GetTimerSerializer().AddTimer(30, &b);
    ASSERT_TRUE(loop.Start());
    std::string all;
    for (int i = 0; i < 6; ++i) {
        all.append(LogOf(10)).append(".");
    }
    EXPECT_EQ(all, ".a.b.a..ab.");
}

TEST_F(MessageLoopTimersThreadTest, ATimerOfTheSerializerMayChangeTheBaseFromItsCommand) {
    a.function = [this] {
        log += 'a';
        loop.GetTimerSerializer().AddTimer(20, &b);
        loop.GetTimerSerializer().RemoveTimer(&a, false);
    };
    loop.GetTimerSerializer().AddTimer(30, &a);
    ASSERT_TRUE(loop.Start());
    EXPECT_EQ(LogOf(30), "a");
    EXPECT_EQ(LogOf(20), "b");
}

TEST_F(MessageLoopTimersThreadTest, ARemovedCommandNeverRunsWhateverTheOtherThreadsDo) {
    ASSERT_TRUE(loop.Start());
    std::atomic<bool> end{false};
    std::thread mover([&] {
        while (!end) {
            clock.Advance(2);
        }
    });
    const auto work = [&] {
        for (int i = 0; i < 500; ++i) {
            bool alive = true; // plain: the removal orders it
            CFunctionCommand command([&] { EXPECT_TRUE(alive); });
            loop.AddTimer(1, &command);
            if (i % 3 == 0) {
                loop.AddTimer(2, &command);
            }
            if (i % 50 == 0) {
                Settle(loop);
            }
            loop.RemoveTimer(&command, false);
            alive = false;
        }
    };
    std::thread one(work);
    std::thread two(work);
    one.join();
    two.join();
    end = true;
    mover.join();
}

/// Holds the loop's thread at its second look at the clock after a jump: the first finds the timer
/// due, the second comes before its execution.
class CHoldingClock : public CManualClock {
public:
    std::int64_t GetNanoseconds() const override {
        if (loop && loop->IsCurrent() && CManualClock::GetNanoseconds() > 0 && ++looks == 2) {
            reached.Set();
            goOn.Wait(-1);
        }
        return CManualClock::GetNanoseconds();
    }

    const CMessageLoop* loop = nullptr;
    mutable int looks = 0; // the loop's thread
    mutable CEvent reached{false};
    mutable CEvent goOn{false};
};

TEST(MessageLoopClockThreadTest, ATimerRemovedJustBeforeItsExecutionDoesNotRun) {
    CHoldingClock clock;
    CMessageLoop loop(clock);
    clock.loop = &loop;
    ASSERT_TRUE(loop.Start());
    int runs = 0;
    int deaths = 0;
    auto* command = new CFunctionCommand([&] { ++runs; }, &deaths);
    loop.AddTimer(10, command);
    clock.Advance(10);
    clock.reached.Wait(-1);
    loop.RemoveTimer(command, true);
    EXPECT_EQ(deaths, 1);
    clock.goOn.Set();
    loop.Stop();
    EXPECT_EQ(runs, 0);
}

TEST(MessageLoopClockThreadTest, RunsTimersByTheMonotonicClockUnlessGivenAnother) {
    CMessageLoopThread loop;
    CEvent ran(false);
    int runs = 0;
    CFunctionCommand command([&] {
        if (++runs == 3) {
            ran.Set();
        }
    });
    const std::int64_t begin = GetMonotonicClock().GetNanoseconds();
    loop.AddTimer(2, &command);
    ran.Wait(-1);
    EXPECT_GE(GetMonotonicClock().GetNanoseconds() - begin, 6 * nanosecondsPerMillisecond);
    loop.RemoveTimer(&command, false);
}

} // namespace
} // namespace Vorin::System
