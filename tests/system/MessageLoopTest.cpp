#include "system/MessageLoop.h"

#include "system/ManualClock.h"
#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace Vorin::System {
namespace {

using Core::kDontOwn;
using Core::kOwn;
using Testing::CFunctionCommand;
using Testing::Settle;

class MessageLoopThreadTest : public ::testing::Test {
protected:
    /// Keeps the loop's thread inside a command until OpenGate.
    void CloseGate() {
        loop.InvokeAsync(&gate, kDontOwn);
        gateReached.Wait(-1);
    }
    void OpenGate() { gateOpen.Set(); }

    void WaitForQueued(int count) {
        while (loop.GetQueuedCount() != count) {
            std::this_thread::yield();
        }
    }

    CEvent gateReached{false};
    CEvent gateOpen{false};
    CFunctionCommand gate{[this] {
        gateReached.Set();
        gateOpen.Wait(-1);
    }};
    std::string log; // the loop's thread; read by the test after a synchronous call
    CFunctionCommand a{[this] { log += 'a'; }};
    CFunctionCommand b{[this] { log += 'b'; }};
    CFunctionCommand s{[this] { log += 's'; }};
    CManualClock clock;
    CMessageLoop loop{clock};
};

TEST_F(MessageLoopThreadTest, RunsCommandsOnItsOwnThreadFromStartToStop) {
    EXPECT_FALSE(loop.IsRunning());
    ASSERT_TRUE(loop.Start());
    EXPECT_TRUE(loop.IsRunning());
    EXPECT_FALSE(loop.IsCurrent());
    bool current = false;
    CFunctionCommand command([&] { current = loop.IsCurrent(); });
    EXPECT_TRUE(loop.InvokeSync(&command, kDontOwn));
    EXPECT_TRUE(current);
    loop.Stop();
    EXPECT_FALSE(loop.IsRunning());
}

TEST_F(MessageLoopThreadTest, StartAndStopMayBeRepeated) {
    loop.Stop();
    EXPECT_TRUE(loop.Start());
    EXPECT_TRUE(loop.Start());
    loop.Stop();
    loop.Stop();
    EXPECT_TRUE(loop.Start());
    EXPECT_TRUE(loop.InvokeSync(&a, kDontOwn));
    EXPECT_EQ(log, "a");
}

TEST_F(MessageLoopThreadTest, AsynchronousMessagesRunInTheirOrder) {
    ASSERT_TRUE(loop.Start());
    EXPECT_TRUE(loop.InvokeAsync(&a, kDontOwn));
    EXPECT_TRUE(loop.InvokeAsync(&b, kDontOwn));
    EXPECT_TRUE(loop.InvokeAsync(&a, kDontOwn));
    CEvent end(false);
    CFunctionCommand last([&] { end.Set(); });
    loop.InvokeAsync(&last, kDontOwn);
    end.Wait(-1);
    EXPECT_EQ(log, "aba");
}

TEST_F(MessageLoopThreadTest, SynchronousCallsOvertakeWhatIsQueued) {
    ASSERT_TRUE(loop.Start());
    CloseGate();
    loop.InvokeAsync(&a, kDontOwn);
    loop.InvokeAsync(&b, kDontOwn);
    std::thread caller([&] { EXPECT_TRUE(loop.InvokeSync(&s, kDontOwn)); });
    WaitForQueued(3);
    OpenGate();
    caller.join();
    CFunctionCommand nothing([] {});
    while (loop.GetQueuedCount() > 0) {
        loop.InvokeSync(&nothing, kDontOwn);
    }
    loop.Stop();
    EXPECT_EQ(log, "sab");
}

TEST_F(MessageLoopThreadTest, OnItsOwnThreadASynchronousCallRunsAtOnceAndAnAsynchronousOneLater) {
    ASSERT_TRUE(loop.Start());
    CEvent end(false);
    CFunctionCommand last([&] { end.Set(); });
    CFunctionCommand command([&] {
        loop.InvokeAsync(&a, kDontOwn);
        EXPECT_TRUE(loop.InvokeSync(&s, kDontOwn));
        log += '.';
        loop.InvokeAsync(&last, kDontOwn);
    });
    loop.InvokeAsync(&command, kDontOwn);
    end.Wait(-1);
    EXPECT_EQ(log, "s.a");
}

TEST_F(MessageLoopThreadTest, OwnedCommandsAreDeletedBeforeTheSynchronousCallReturns) {
    ASSERT_TRUE(loop.Start());
    int deaths = 0;
    EXPECT_TRUE(loop.InvokeSync(new CFunctionCommand([] {}, &deaths), kOwn));
    EXPECT_EQ(deaths, 1);
    CFunctionCommand inner([&] {
        EXPECT_TRUE(loop.InvokeSync(new CFunctionCommand([] {}, &deaths), kOwn));
        EXPECT_EQ(deaths, 2);
    });
    loop.InvokeSync(&inner, kDontOwn);
    EXPECT_EQ(deaths, 2);
}

TEST_F(MessageLoopThreadTest, NullIsNotInvoked) {
    ASSERT_TRUE(loop.Start());
    EXPECT_FALSE(loop.InvokeSync(nullptr, kOwn));
    EXPECT_FALSE(loop.InvokeAsync(nullptr, kOwn));
}

TEST_F(MessageLoopThreadTest, AMessagePostedBeforeTheStartIsServed) {
    EXPECT_TRUE(loop.InvokeAsync(&a, kDontOwn));
    std::thread caller([&] { EXPECT_TRUE(loop.InvokeSync(&s, kDontOwn)); });
    WaitForQueued(2);
    EXPECT_EQ(log, "");
    ASSERT_TRUE(loop.Start());
    caller.join();
    WaitForQueued(0);
    Settle(loop);
    EXPECT_EQ(log, "sa");
}

TEST_F(MessageLoopThreadTest, AMessagePostedWhileTheLoopIsStoppingIsDestroyedNotExecuted) {
    ASSERT_TRUE(loop.Start());
    CEvent stopping(false);
    CEvent goOn(false);
    CFunctionCommand stop([&] {
        loop.Stop();
        stopping.Set();
        goOn.Wait(-1);
    });
    loop.InvokeAsync(&stop, kDontOwn);
    stopping.Wait(-1);
    int deaths = 0;
    EXPECT_FALSE(loop.InvokeAsync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn));
    EXPECT_EQ(deaths, 1);
    EXPECT_FALSE(loop.InvokeSync(new CFunctionCommand([&] { log += 'x'; }, &deaths), kOwn));
    EXPECT_EQ(deaths, 2);
    goOn.Set();
    loop.Stop();
    EXPECT_EQ(loop.GetQueuedCount(), 0);
    EXPECT_EQ(log, "");
}

TEST_F(MessageLoopThreadTest, WhatAStopLeavesOverWaitsForTheNextStart) {
    ASSERT_TRUE(loop.Start());
    CFunctionCommand stop([&] {
        loop.InvokeAsync(&a, kDontOwn);
        loop.Stop();
        EXPECT_FALSE(loop.Start()) << "not from its own thread";
    });
    loop.InvokeSync(&stop, kDontOwn);
    ASSERT_TRUE(loop.Start()); // joins the thread that stopped itself
    WaitForQueued(0);
    Settle(loop);
    EXPECT_EQ(log, "a");
}

TEST(MessageLoopLifeThreadTest, ItsDeathDestroysTheQueueAndFreesWhoWaits) {
    int deaths = 0;
    int runs = 0;
    auto loop = std::make_unique<CMessageLoop>();
    loop->InvokeAsync(new CFunctionCommand([&] { ++runs; }, &deaths), kOwn);
    CMessageLoop* raw = loop.get();
    std::thread caller([&] {
        CFunctionCommand command([&] { ++runs; });
        EXPECT_FALSE(raw->InvokeSync(&command, kDontOwn));
    });
    while (loop->GetQueuedCount() != 2) {
        std::this_thread::yield();
    }
    loop.reset();
    caller.join();
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(runs, 0);
}

TEST(MessageLoopLifeThreadTest, ACommandThatDiesWithTheQueueMayPostAgain) {
    int deaths = 0;
    class CPostingAtDeath : public Core::ICommand {
    public:
        CPostingAtDeath(CMessageLoop& target, int* deathCount) : loop(target), deaths(deathCount) {}
        ~CPostingAtDeath() override {
            loop.InvokeAsync(new CFunctionCommand([] {}, deaths), kOwn);
        }
        void Execute() override {}
        CMessageLoop& loop;
        int* deaths;
    };
    {
        CMessageLoop loop;
        loop.InvokeAsync(new CPostingAtDeath(loop, &deaths), kOwn);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(MessageLoopLifeThreadTest, ALoopThreadRunsFromItsConstructionToItsDeath) {
    std::thread::id seen;
    {
        CMessageLoopThread loop;
        EXPECT_TRUE(loop.IsRunning());
        CFunctionCommand command([&] { seen = std::this_thread::get_id(); });
        EXPECT_TRUE(loop.InvokeSync(&command, kDontOwn));
    }
    EXPECT_NE(seen, std::thread::id());
    EXPECT_NE(seen, std::this_thread::get_id());
}

TEST(MessageLoopLifeThreadTest, ManyThreadsInvokeBothWays) {
    CMessageLoopThread loop;
    int runs = 0; // the loop's thread
    const auto work = [&] {
        CFunctionCommand command([&] { ++runs; });
        for (int i = 0; i < 100; ++i) {
            EXPECT_TRUE(loop.InvokeAsync(new CFunctionCommand([&] { ++runs; }), kOwn));
            EXPECT_TRUE(loop.InvokeSync(&command, kDontOwn));
        }
    };
    std::thread one(work);
    std::thread two(work);
    one.join();
    two.join();
    CFunctionCommand nothing([] {});
    while (loop.GetQueuedCount() > 0) {
        loop.InvokeSync(&nothing, kDontOwn);
    }
    int seen = 0;
    CFunctionCommand read([&] { seen = runs; });
    loop.InvokeSync(&read, kDontOwn);
    EXPECT_EQ(seen, 400);
}

} // namespace
} // namespace Vorin::System
