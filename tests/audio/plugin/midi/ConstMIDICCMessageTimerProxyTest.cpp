#include "audio/plugin/midi/ConstMIDICCMessageTimerProxy.h"

#include "audio/plugin/midi/MIDITestKit.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;

class MIDICCMessageTimerProxy : public ::testing::Test {
protected:
    MIDICCMessageTimerProxy() { Make(); }

    void Make() {
        message.Set({1, 2, 3}, false);
        proxy.emplace(message, timers, 10);
    }

    void Tick() {
        clock.Advance(10);
        EXPECT_TRUE(loop.Pump());
    }

    CMIDICCValues Values() const {
        return {proxy->GetChannel(), proxy->GetNumber(), proxy->GetValue()};
    }

    System::CManualClock clock;
    System::CRunLoop loop{clock};
    System::CRunLoopTimerProvider timers{loop};
    CMIDICCMessage message;
    std::optional<CConstMIDICCMessageTimerProxy> proxy;
};

TEST_F(MIDICCMessageTimerProxy, StartsWithTheMessageAsItIs) {
    CListener changed(proxy->GetChangedEvent());
    CListener received(proxy->GetReceivedEvent());
    EXPECT_EQ(Values(), (CMIDICCValues{1, 2, 3}));
    Tick();
    EXPECT_EQ(changed.Take(), 0);
    EXPECT_EQ(received.Take(), 0);
}

TEST_F(MIDICCMessageTimerProxy, FollowsAtTheNextTick) {
    std::string log;
    CListener received(proxy->GetReceivedEvent(), [&] { log += "received "; });
    CListener changed(proxy->GetChangedEvent(), [&] {
        log += "changed ";
        EXPECT_EQ(Values(), (CMIDICCValues{4, 5, 6}));
    });
    message.Set({4, 5, 6}, true);
    clock.Advance(9);
    loop.Pump();
    EXPECT_EQ(Values(), (CMIDICCValues{1, 2, 3}));
    EXPECT_EQ(log, "");
    clock.Advance(1);
    loop.Pump();
    EXPECT_EQ(Values(), (CMIDICCValues{4, 5, 6}));
    EXPECT_EQ(log, "changed received ");
    Tick();
    EXPECT_EQ(log, "changed received ");
}

TEST_F(MIDICCMessageTimerProxy, TheSameMessageAgainIsReceivedWithoutAChange) {
    CListener changed(proxy->GetChangedEvent());
    CListener received(proxy->GetReceivedEvent());
    message.Set({1, 2, 3}, true);
    Tick();
    EXPECT_EQ(changed.Take(), 0);
    EXPECT_EQ(received.Take(), 1);
}

TEST_F(MIDICCMessageTimerProxy, ManyMessagesBetweenTwoTicksCountAsTheLast) {
    CListener changed(proxy->GetChangedEvent());
    CListener received(proxy->GetReceivedEvent());
    for (int value = 0; value < 100; ++value) {
        message.Set({1, 2, value}, true);
    }
    Tick();
    EXPECT_EQ(changed.Take(), 1);
    EXPECT_EQ(received.Take(), 1);
    EXPECT_EQ(Values(), (CMIDICCValues{1, 2, 99}));
}

TEST_F(MIDICCMessageTimerProxy, LeavesTheMessageAndTheTimerWhenItDies) {
    proxy.reset();
    message.Set({4, 5, 6}, true);
    Tick();
    Make(); // the listeners and the timer of the first one would be found by the sanitizers
    message.Set({7, 8, 9}, true);
    Tick();
    EXPECT_EQ(Values(), (CMIDICCValues{7, 8, 9}));
}

TEST_F(MIDICCMessageTimerProxy, EndsWithTheLastMessageOfAnotherThread) {
    std::thread audio([&] {
        for (int i = 0; i < 20'000; ++i) {
            message.Set({i % 16 + 1, i % 128, i % 100}, true);
        }
    });
    std::thread::id firedOn;
    CListener received(proxy->GetReceivedEvent(), [&] { firedOn = std::this_thread::get_id(); });
    for (int i = 0; i < 200; ++i) {
        Tick();
    }
    audio.join();
    Tick();
    EXPECT_EQ(Values(), (CMIDICCValues{19'999 % 16 + 1, 19'999 % 128, 19'999 % 100}));
    EXPECT_EQ(firedOn, std::this_thread::get_id());
}

} // namespace
} // namespace Vorin::Audio::Plugin
