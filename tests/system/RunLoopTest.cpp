#include "system/RunLoop.h"

#include "system/ManualClock.h"
#include "system/RunLoopThreadInvoker.h"
#include "system/RunLoopTimerProvider.h"
#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <memory>
#include <string>
#include <thread>

namespace Vorin::System {
namespace {

using Core::kDontOwn;
using Core::kOwn;
using Testing::CFunctionCommand;

class RunLoopThreadTest : public ::testing::Test {
protected:
    std::string LogOf(int milliseconds) {
        log.clear();
        clock.Advance(milliseconds);
        EXPECT_TRUE(loop->Pump());
        return log;
    }

    std::string log;
    CFunctionCommand a{[this] { log += 'a'; }};
    CFunctionCommand b{[this] { log += 'b'; }};
    CFunctionCommand s{[this] { log += 's'; }};
    CManualClock clock;
    std::unique_ptr<CRunLoop> loop = std::make_unique<CRunLoop>(clock);
    std::unique_ptr<CRunLoopThreadInvoker> invoker = std::make_unique<CRunLoopThreadInvoker>(*loop);
    std::unique_ptr<CRunLoopTimerProvider> timers = std::make_unique<CRunLoopTimerProvider>(*loop);
};

using RunLoopTimersThreadTest = RunLoopThreadTest;

TEST_F(RunLoopThreadTest, OnItsOwnThreadAnAsynchronousCallWaitsForThePump) {
    EXPECT_TRUE(invoker->InvokeAsync(&a, kDontOwn));
    EXPECT_TRUE(invoker->InvokeAsync(&b, kDontOwn));
    EXPECT_EQ(log, "");
    EXPECT_TRUE(loop->Pump());
    EXPECT_EQ(log, "ab");
    EXPECT_TRUE(loop->Pump());
    EXPECT_EQ(log, "ab");
}

TEST_F(RunLoopThreadTest, OnItsOwnThreadASynchronousCallRunsTheQueueUpToItself) {
    a.function = [this] {
        log += 'a';
        invoker->InvokeAsync(&b, kDontOwn);
    };
    invoker->InvokeAsync(&a, kDontOwn);
    EXPECT_TRUE(invoker->InvokeSync(&s, kDontOwn));
    EXPECT_EQ(log, "as");
    loop->Pump();
    EXPECT_EQ(log, "asb");
}

TEST_F(RunLoopThreadTest, ASynchronousCallFromACommandRunsTheQueueUpToItself) {
    a.function = [this] {
        log += "(";
        EXPECT_TRUE(invoker->InvokeSync(&s, kDontOwn));
        log += ")";
    };
    invoker->InvokeAsync(&a, kDontOwn);
    invoker->InvokeAsync(&b, kDontOwn);
    loop->Pump();
    EXPECT_EQ(log, "(bs)");
}

TEST_F(RunLoopThreadTest, FromAnotherThreadASynchronousCallReturnsAfterThePumpRanIt) {
    std::atomic<bool> returned{false};
    const std::thread::id loopThread = std::this_thread::get_id();
    std::thread::id ranOn;
    CFunctionCommand command([&] {
        EXPECT_FALSE(returned);
        ranOn = std::this_thread::get_id();
    });
    std::thread caller([&] {
        EXPECT_TRUE(invoker->InvokeSync(&command, kDontOwn));
        EXPECT_EQ(ranOn, loopThread);
        returned = true;
    });
    while (!returned) {
        loop->Pump();
        std::this_thread::yield();
    }
    caller.join();
}

TEST_F(RunLoopThreadTest, CommandsThatArePostedByCommandsRunInTheSamePump) {
    a.function = [this] {
        log += 'a';
        if (log.size() < 5) {
            invoker->InvokeAsync(&a, kDontOwn);
        }
    };
    invoker->InvokeAsync(&a, kDontOwn);
    loop->Pump();
    EXPECT_EQ(log, "aaaaa");
}

TEST_F(RunLoopThreadTest, ACommandThatAlwaysPostsItselfDoesNotKeepAPumpFromEnding) {
    a.function = [this] {
        log += 'a';
        invoker->InvokeAsync(&a, kDontOwn);
    };
    invoker->InvokeAsync(&a, kDontOwn);
    loop->Pump();
    EXPECT_EQ(log.size(), 64u);
}

TEST_F(RunLoopThreadTest, APumpFromACommandDoesNothing) {
    a.function = [this] {
        log += 'a';
        EXPECT_FALSE(loop->Pump());
    };
    invoker->InvokeAsync(&a, kDontOwn);
    invoker->InvokeAsync(&b, kDontOwn);
    EXPECT_TRUE(loop->Pump());
    EXPECT_EQ(log, "ab");
    invoker->InvokeAsync(&b, kDontOwn);
    EXPECT_TRUE(invoker->InvokeSync(&a, kDontOwn)); // the guard holds in this form of pumping too
    EXPECT_EQ(log, "abba");
}

TEST_F(RunLoopThreadTest, ANestedPumpRunsTheRestButNoTimerThatIsRunning) {
    a.function = [this] {
        log += '(';
        clock.Advance(10);
        loop->PumpNested();
        log += ')';
    };
    timers->AddTimer(10, &a);
    timers->AddTimer(10, &b);
    invoker->InvokeAsync(&s, kDontOwn);
    EXPECT_EQ(LogOf(10), "s(b)");
}

TEST_F(RunLoopThreadTest, OwnedCommandsAreDeletedOnceTheyRan) {
    int deaths = 0;
    invoker->InvokeAsync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn);
    EXPECT_EQ(deaths, 0);
    loop->Pump();
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(invoker->InvokeSync(new CFunctionCommand([&] { log += 'y'; }, &deaths), kOwn));
    EXPECT_EQ(deaths, 2);
    EXPECT_EQ(log, "xy");
}

TEST_F(RunLoopThreadTest, NullIsNotInvoked) {
    EXPECT_FALSE(invoker->InvokeAsync(nullptr, kOwn));
    EXPECT_FALSE(invoker->InvokeSync(nullptr, kOwn));
}

TEST_F(RunLoopThreadTest, TheDeathOfAnInvokerCancelsWhatHasNotRun) {
    int deaths = 0;
    CRunLoopThreadInvoker other(*loop);
    invoker->InvokeAsync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn);
    other.InvokeAsync(&b, kDontOwn);
    invoker->InvokeAsync(&a, kDontOwn);
    invoker.reset();
    EXPECT_EQ(deaths, 1);
    loop->Pump();
    EXPECT_EQ(log, "b");
}

TEST_F(RunLoopThreadTest, ACommandMayDestroyTheInvokerOfASynchronousCallThatWaitsForItsTurn) {
    int deaths = 0;
    a.function = [this] { invoker.reset(); };
    invoker->InvokeAsync(&a, kDontOwn);
    EXPECT_FALSE(invoker->InvokeSync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn));
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(log, "");
}

TEST_F(RunLoopThreadTest, WithoutALoopACommandIsNotRunAndDeletedWhenOwned) {
    int deaths = 0;
    loop.reset();
    EXPECT_FALSE(invoker->InvokeAsync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn));
    EXPECT_EQ(deaths, 1);
    EXPECT_FALSE(invoker->InvokeSync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn));
    EXPECT_EQ(deaths, 2);
    EXPECT_FALSE(invoker->InvokeAsync(&a, kDontOwn));
    EXPECT_EQ(log, "");
}

TEST_F(RunLoopThreadTest, TheDeathOfTheLoopFreesWhoWaitsForIt) {
    std::atomic<bool> calling{false};
    int deaths = 0;
    std::thread caller([&] {
        calling = true;
        EXPECT_FALSE(invoker->InvokeSync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn));
    });
    while (!calling) {
        std::this_thread::yield();
    }
    loop.reset(); // before the call or during it
    caller.join();
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(log, "");
}

TEST_F(RunLoopThreadTest, ACommandMayDestroyTheLoop) {
    a.function = [this] {
        log += 'a';
        loop.reset();
    };
    timers->AddTimer(10, &b);
    clock.Advance(10);
    invoker->InvokeAsync(&a, kDontOwn);
    invoker->InvokeAsync(&s, kDontOwn);
    loop->Pump();
    EXPECT_EQ(log, "a");
}

TEST_F(RunLoopThreadTest, TheThreadThatPumpsOrAttachesIsTheLoopsThread) {
    std::thread other([&] {
        loop->Pump();
        EXPECT_TRUE(invoker->InvokeSync(&a, kDontOwn)) << "would wait for a pump otherwise";
    });
    other.join();
    loop->AttachToCurrentThread();
    EXPECT_TRUE(invoker->InvokeSync(&b, kDontOwn));
    EXPECT_EQ(log, "ab");
}

TEST_F(RunLoopThreadTest, ThreadsInvokeWhileTheLoopIsPumped) {
    int runs = 0; // the loop's thread
    std::atomic<int> ended{0};
    const auto work = [&] {
        CFunctionCommand command([&] { ++runs; });
        for (int i = 0; i < 50; ++i) {
            EXPECT_TRUE(invoker->InvokeAsync(new CFunctionCommand([&] { ++runs; }), kOwn));
            EXPECT_TRUE(invoker->InvokeSync(&command, kDontOwn));
        }
        ++ended;
    };
    std::thread one(work);
    std::thread two(work);
    while (ended < 2) {
        loop->Pump();
        std::this_thread::yield();
    }
    one.join();
    two.join();
    EXPECT_EQ(runs, 200);
}

TEST_F(RunLoopTimersThreadTest, ATimerRunsOncePerPeriodWhenTheLoopIsPumped) {
    timers->AddTimer(10, &a);
    EXPECT_EQ(LogOf(9), "");
    EXPECT_EQ(LogOf(1), "a");
    EXPECT_EQ(LogOf(0), "");
    EXPECT_EQ(LogOf(10), "a");
}

TEST_F(RunLoopTimersThreadTest, ALateTimerRunsOnceAndKeepsItsGrid) {
    timers->AddTimer(30, &a);
    std::string all;
    for (int i = 0; i < 6; ++i) {
        all.append(LogOf(20)).append(".");
    }
    EXPECT_EQ(all, ".a.a..a.a."); // 40, 60, 100, 120
    EXPECT_EQ(LogOf(95), "a");
    EXPECT_EQ(LogOf(24), "");
    EXPECT_EQ(LogOf(1), "a");
}

TEST_F(RunLoopTimersThreadTest, TimersRunInTheOrderInWhichTheyFellDue) {
    timers->AddTimer(20, &a);
    timers->AddTimer(10, &b);
    EXPECT_EQ(LogOf(25), "ba"); // 10; 20
    timers->RemoveTimer(&b, false);
    EXPECT_EQ(LogOf(15), "a"); // 40
    timers->AddTimer(20, &b);
    EXPECT_EQ(LogOf(20), "ab"); // both 60: as added
}

TEST_F(RunLoopTimersThreadTest, AddingACommandAgainChangesItsPeriod) {
    timers->AddTimer(10, &a);
    clock.Advance(5);
    timers->AddTimer(30, &a);
    EXPECT_EQ(LogOf(29), "");
    EXPECT_EQ(LogOf(1), "a");
    timers->RemoveTimer(&a, false);
    EXPECT_EQ(LogOf(100), "");
}

TEST_F(RunLoopTimersThreadTest, ATimerRunsOncePerPumpHoweverLongItsCommandTakes) {
    a.function = [this] {
        log += 'a';
        clock.Advance(20);
    };
    timers->AddTimer(10, &a);
    EXPECT_EQ(LogOf(10), "a");
    EXPECT_EQ(LogOf(0), "a");
}

TEST_F(RunLoopTimersThreadTest, ATimerThatIsAddedDuringAPumpIsForTheNextOne) {
    a.function = [this] {
        log += 'a';
        timers->RemoveTimer(&a, false);
        timers->AddTimer(10, &a);
        clock.Advance(10);
    };
    timers->AddTimer(10, &a);
    EXPECT_EQ(LogOf(10), "a");
    EXPECT_EQ(LogOf(0), "a");
}

TEST_F(RunLoopTimersThreadTest, ATimerMayRemoveAndDestroyItselfFromItsOwnCommand) {
    int deaths = 0;
    auto* own = new CFunctionCommand([] {}, &deaths);
    own->function = [this, own] {
        log += 'x';
        timers->RemoveTimer(own, true);
    };
    timers->AddTimer(10, own);
    EXPECT_EQ(LogOf(10), "x");
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(LogOf(10), "");
}

TEST_F(RunLoopTimersThreadTest, ATimerThatIsDueDoesNotRunOnceAnotherRemovedIt) {
    a.function = [this] {
        log += 'a';
        timers->RemoveTimer(&b, false);
    };
    timers->AddTimer(10, &a);
    timers->AddTimer(10, &b);
    EXPECT_EQ(LogOf(10), "a");
}

TEST_F(RunLoopTimersThreadTest, ATimerThatIsDueWaitsAnewOnceAnotherAddedItAgain) {
    a.function = [this] {
        log += 'a';
        timers->AddTimer(10, &b);
    };
    timers->AddTimer(20, &a);
    timers->AddTimer(20, &b);
    EXPECT_EQ(LogOf(20), "a");
    EXPECT_EQ(LogOf(10), "b");
}

TEST_F(RunLoopTimersThreadTest, WhatATimerPostsRunsInTheSamePump) {
    a.function = [this] {
        log += 'a';
        invoker->InvokeAsync(&s, kDontOwn);
    };
    timers->AddTimer(10, &a);
    EXPECT_EQ(LogOf(10), "as");
}

TEST_F(RunLoopTimersThreadTest, RemoveDestroysTheCommandRegisteredOrNot) {
    int deaths = 0;
    auto* known = new CFunctionCommand([] {}, &deaths);
    timers->AddTimer(10, known);
    timers->RemoveTimer(known, true);
    EXPECT_EQ(deaths, 1);
    timers->RemoveTimer(new CFunctionCommand([] {}, &deaths), true);
    EXPECT_EQ(deaths, 2);
    EXPECT_EQ(LogOf(10), "");
}

TEST_F(RunLoopTimersThreadTest, NullIsIgnoredAndPeriodsBelowOneMillisecondCountAsOne) {
    timers->AddTimer(10, nullptr);
    timers->RemoveTimer(nullptr, true);
    timers->AddTimer(std::numeric_limits<int>::min(), &a);
    EXPECT_EQ(LogOf(0), "");
    EXPECT_EQ(LogOf(1), "a");
}

TEST_F(RunLoopTimersThreadTest, TheDeathOfAProviderRemovesItsTimers) {
    CRunLoopTimerProvider other(*loop);
    timers->AddTimer(10, &a);
    other.AddTimer(10, &a);
    other.AddTimer(10, &b);
    EXPECT_EQ(LogOf(10), "aab") << "each provider has a timer of its own";
    timers.reset();
    EXPECT_EQ(LogOf(10), "ab");
}

TEST_F(RunLoopTimersThreadTest, AProviderMayOutliveTheLoop) {
    timers->AddTimer(10, &a);
    loop.reset();
    clock.Advance(10);
    timers->AddTimer(10, &b);
    timers->RemoveTimer(&a, false);
    EXPECT_EQ(log, "");
}

} // namespace
} // namespace Vorin::System
