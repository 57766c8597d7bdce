#include "system/MTEventProvider.h"

#include "core/Value.h"
#include "system/Event.h"
#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace Vorin::System {
namespace {

using Testing::CFunctionCommand;

TEST(MTEventProviderThreadTest, NotifyRunsTheCommandsOnTheThreadThatNotifies) {
    CMTEventProvider provider;
    std::thread::id seen;
    CFunctionCommand command([&] { seen = std::this_thread::get_id(); });
    provider.Connect(command);
    std::thread::id notifying;
    std::thread other([&] {
        notifying = std::this_thread::get_id();
        provider.Notify();
    });
    other.join();
    EXPECT_EQ(seen, notifying);
}

TEST(MTEventProviderThreadTest, AListenerMayConnectDisconnectAndNotifyOnTheSameProvider) {
    CMTEventProvider provider;
    std::string log;
    CFunctionCommand late([&] { log += 'l'; });
    CFunctionCommand leaving([&] { log += 'x'; });
    CFunctionCommand first([&] {
        log += 'f';
        provider.Connect(&late);
        Core::ICommand* gone = &leaving;
        provider.Disconnect(gone, false);
        provider.Notify();
        provider.Disconnect(late);
    });
    provider.Connect(first);
    provider.Connect(&leaving);
    provider.Notify();
    EXPECT_EQ(log, "fl");
}

TEST(MTEventProviderThreadTest, DisconnectWaitsForARunningListener) {
    CMTEventProvider provider;
    CEvent running(false);
    CEvent disconnecting(false);
    std::string log; // the lock of the provider orders its writers
    CFunctionCommand command([&] {
        running.Set();
        disconnecting.Wait(-1);
        for (int i = 0; i < 100; ++i) {
            std::this_thread::yield(); // the other would be through by now if nothing held it
        }
        log += 'L';
    });
    provider.Connect(command);
    std::thread notifying([&] { provider.Notify(); });
    running.Wait(-1);
    disconnecting.Set();
    provider.Disconnect(command);
    log += 'D';
    notifying.join();
    EXPECT_EQ(log, "LD");
}

TEST(MTEventProviderThreadTest, ConnectWaitsForARunningListener) {
    CMTEventProvider provider;
    CEvent running(false);
    CEvent connecting(false);
    std::string log;
    CFunctionCommand late([&] { log += 'x'; });
    CFunctionCommand command([&] {
        running.Set();
        connecting.Wait(-1);
        for (int i = 0; i < 100; ++i) {
            std::this_thread::yield();
        }
        log += 'L';
    });
    provider.Connect(command);
    std::thread notifying([&] { provider.Notify(); });
    running.Wait(-1);
    connecting.Set();
    provider.Connect(late);
    log += 'C';
    notifying.join();
    EXPECT_EQ(log, "LC");
}

TEST(MTEventProviderThreadTest, DisconnectDestroysUnderTheLockToo) {
    CMTEventProvider provider;
    int deaths = 0;
    Core::ICommand* command = new CFunctionCommand([] {}, &deaths);
    provider.Connect(command);
    provider.Disconnect(command, true);
    EXPECT_EQ(command, nullptr);
    EXPECT_EQ(deaths, 1);
    provider.Notify();
}

TEST(MTEventProviderThreadTest, ThreadsConnectDisconnectAndNotifyAtTheSameTime) {
    CMTEventProvider provider;
    int calls = 0; // under the provider's lock
    const auto work = [&] {
        CFunctionCommand command([&] { ++calls; });
        for (int i = 0; i < 500; ++i) {
            provider.Connect(command);
            provider.Notify();
            provider.Disconnect(command);
        }
    };
    std::thread one(work);
    std::thread two(work);
    one.join();
    two.join();
    EXPECT_GE(calls, 1000); // each thread's own command ran each time; the other's now and then
    const int before = calls;
    provider.Notify();
    EXPECT_EQ(calls, before);
}

TEST(MTEventProviderThreadTest, ServesAsTheEventOfAValue) {
    Core::TValue<double, CMTEventProvider> value(1.0);
    double seen = 0.0;
    CFunctionCommand command([&] { seen = value.GetValue(); });
    value.GetValueChangedEvents().Connect(command);
    std::thread other([&] { value.SetValue(2.5); });
    other.join();
    EXPECT_EQ(seen, 2.5);
}

} // namespace
} // namespace Vorin::System
