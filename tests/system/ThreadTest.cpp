#include "system/Thread.h"

#include "system/Event.h"
#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <unistd.h>

namespace Vorin::System {
namespace {

using Testing::CFunctionCommand;

void Increment(void* argument) { ++*static_cast<std::atomic<int>*>(argument); }

void WaitForEvent(void* argument) { static_cast<CEvent*>(argument)->Wait(-1); }

TEST(ThreadTest, RunsTheProcedureWithItsArgumentOnceStarted) {
    std::atomic<int> count{0};
    CThread thread(&Increment, &count, false);
    EXPECT_EQ(thread.GetHandle(), pthread_t{0});
    ASSERT_TRUE(thread.Start());
    EXPECT_TRUE(thread.Wait(-1));
    EXPECT_EQ(count, 1);
}

TEST(ThreadTest, StartsAtConstructionWhenAskedTo) {
    std::atomic<int> count{0};
    CThread thread(&Increment, &count, true);
    EXPECT_TRUE(thread.Wait(-1));
    EXPECT_EQ(count, 1);
}

TEST(ThreadTest, WithoutAProcedureItEndsAtOnce) {
    CThread thread(nullptr, nullptr, true);
    EXPECT_TRUE(thread.Wait(-1));
}

TEST(ThreadTest, WaitForAThreadThatWasNeverStartedReturnsAtOnce) {
    CThread thread(&WaitForEvent, nullptr, false);
    EXPECT_TRUE(thread.Wait(-1));
}

TEST(ThreadTest, WaitWithATimeoutOtherThanMinusOneReturnsAtOnce) {
    CEvent end(false);
    CThread thread(&WaitForEvent, &end, true);
    EXPECT_FALSE(thread.Wait(0));
    EXPECT_FALSE(thread.Wait(1'000'000'000));
    EXPECT_FALSE(thread.Wait(-2));
    EXPECT_NE(thread.GetHandle(), pthread_t{0}); // not joined
    end.Set();
    EXPECT_TRUE(thread.Wait(-1));
}

TEST(ThreadTest, IsNotStartedTwiceButAgainAfterTheWait) {
    std::atomic<int> count{0};
    CThread thread(&Increment, &count, true);
    EXPECT_FALSE(thread.Start());
    EXPECT_TRUE(thread.Wait(-1));
    EXPECT_TRUE(thread.Start());
    EXPECT_TRUE(thread.Wait(-1));
    EXPECT_EQ(count, 2);
}

TEST(ThreadTest, IsCurrentOnTheThreadItselfAlone) {
    struct CSeen {
        CThread* thread;
        bool current = false;
        bool waited = true;
    };
    CSeen seen{nullptr};
    CThread thread(
        [](void* argument) {
            auto* given = static_cast<CSeen*>(argument);
            given->current = given->thread->IsCurrent();
            given->waited = given->thread->Wait(-1);
        },
        &seen, false);
    seen.thread = &thread;
    EXPECT_FALSE(thread.IsCurrent());
    ASSERT_TRUE(thread.Start());
    EXPECT_FALSE(thread.IsCurrent());
    EXPECT_TRUE(thread.Wait(-1));
    EXPECT_TRUE(seen.current);
    EXPECT_FALSE(seen.waited) << "a thread cannot wait for itself";
}

TEST(ThreadTest, CancelEndsAThreadThatWouldNotEndByItself) {
    CThread thread(
        [](void*) {
            while (true) {
                pause();
            }
        },
        nullptr, true);
    EXPECT_TRUE(thread.Cancel());
    EXPECT_TRUE(thread.Wait(-1));
    EXPECT_FALSE(thread.Cancel()) << "there is no thread any more";
}

TEST(ThreadTest, CancelUnwindsTheStackSoThatLocksAreGivenBack) {
    struct CHeld {
        CCriticalSection lock;
        CEvent locked{false};
        CEvent never{false};
    };
    CHeld held;
    CThread thread(
        [](void* argument) {
            auto* given = static_cast<CHeld*>(argument);
            const Core::CAutoLock guard(given->lock);
            given->locked.Set();
            given->never.Wait(-1);
        },
        &held, true);
    held.locked.Wait(-1);
    EXPECT_TRUE(thread.Cancel());
    EXPECT_TRUE(thread.Wait(-1));
    ASSERT_TRUE(held.lock.TryLock());
    held.lock.Unlock();
    EXPECT_FALSE(held.never.IsSet()); // takes the mutex that the cancelled wait held
}

TEST(ThreadTest, DestructionDoesNotJoin) {
    struct CSteps {
        CEvent goOn{false};
        CEvent done{false};
    };
    // Not freed here: the thread may still be inside `Set` when we are woken by it.
    const auto steps = std::make_shared<CSteps>();
    auto* own = new std::shared_ptr<CSteps>(steps);
    auto thread = std::make_unique<CThread>(
        [](void* argument) {
            const std::unique_ptr<std::shared_ptr<CSteps>> given(
                static_cast<std::shared_ptr<CSteps>*>(argument));
            (*given)->goOn.Wait(-1);
            (*given)->done.Set();
        },
        own, true);
    thread.reset();
    EXPECT_FALSE(steps->done.IsSet());
    steps->goOn.Set();
    EXPECT_TRUE(steps->done.Wait(-1));
}

TEST(CommandThreadTest, ExecutesItsCommandOnItsThread) {
    std::unique_ptr<CCommandThread> thread;
    bool current = false;
    CFunctionCommand command([&] { current = thread->IsCurrent(); });
    thread = std::make_unique<CCommandThread>(&command, Core::kDontOwn, false);
    ASSERT_TRUE(thread->Start());
    EXPECT_TRUE(thread->Wait(-1));
    EXPECT_TRUE(current);
}

TEST(CommandThreadTest, DeletesAnOwnedCommandWithItself) {
    int deaths = 0;
    std::atomic<int> runs{0};
    {
        CCommandThread thread(new CFunctionCommand([&] { ++runs; }, &deaths), Core::kOwn, true);
        EXPECT_TRUE(thread.Wait(-1));
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(deaths, 1);
}

TEST(CommandThreadTest, WithoutACommandItEndsAtOnce) {
    CCommandThread thread(nullptr, Core::kOwn, true);
    EXPECT_TRUE(thread.Wait(-1));
}

} // namespace
} // namespace Vorin::System
