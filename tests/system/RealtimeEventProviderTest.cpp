#include "system/RealtimeEventProvider.h"

#include <gtest/gtest.h>

#include <barrier>
#include <functional>
#include <thread>
#include <utility>

namespace Vorin::System {
namespace {

class CCall : public Core::ICommand {
public:
    explicit CCall(std::function<void()> function) : call(std::move(function)) {}
    void Execute() override { call(); }

private:
    std::function<void()> call;
};

TEST(RealtimeEventProvider, RunsTheCommandsOnTheNotifyingThread) {
    CRealtimeEventProvider provider;
    int calls = 0;
    CCall call([&] { ++calls; });
    provider.Connect(call);
    provider.Notify();
    EXPECT_EQ(calls, 1);
    provider.NotifyIfKept();
    EXPECT_EQ(calls, 1);
    provider.Disconnect(call);
    provider.Notify();
    EXPECT_EQ(calls, 1);
}

TEST(RealtimeEventProvider, KeepsWhatItCannotDeliverWithoutWaiting) {
    CRealtimeEventProvider provider;
    std::barrier inside(2);
    std::barrier go(2);
    int calls = 0; // by one thread at a time: under the provider's lock
    CCall call([&] {
        if (++calls == 1) {
            inside.arrive_and_wait();
            go.arrive_and_wait();
        }
    });
    provider.Connect(call);
    std::thread slow([&] { provider.Notify(); });
    inside.arrive_and_wait();
    provider.Notify(); // returns though the other thread is inside
    provider.Notify();
    go.arrive_and_wait();
    slow.join();
    EXPECT_EQ(calls, 2); // the walk that was in the way delivers both as one
    provider.NotifyIfKept();
    EXPECT_EQ(calls, 2);
}

TEST(RealtimeEventProvider, LeavesTheRestForLaterRatherThanWalkForEver) {
    CRealtimeEventProvider provider;
    int calls = 0;
    // Each walk meets a notification from another thread.
    CCall call([&] {
        ++calls;
        std::thread([&] { provider.Notify(); }).join();
    });
    provider.Connect(call);
    provider.Notify();
    EXPECT_EQ(calls, 2);
    provider.NotifyIfKept();
    EXPECT_EQ(calls, 4);
}

TEST(RealtimeEventProvider, DoesNotRunACommandOnceItIsDisconnected) {
    constexpr int kRounds = 300;
    CRealtimeEventProvider provider;
    std::atomic<bool> isStopping{false};
    std::thread notifier([&] {
        while (!isStopping) {
            provider.Notify();
        }
    });
    for (int i = 0; i < kRounds; ++i) {
        bool isAlive = true;
        CCall call([&] { EXPECT_TRUE(isAlive); });
        provider.Connect(call);
        provider.Disconnect(call);
        isAlive = false;
    }
    isStopping = true;
    notifier.join();
}

} // namespace
} // namespace Vorin::System
