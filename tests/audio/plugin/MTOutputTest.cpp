#include "audio/plugin/MTOutput.h"

#include "core/Command.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

class COutputListener {
public:
    explicit COutputListener(std::function<void()> whenCalled = [] {})
        : onChanged(std::move(whenCalled)) {}

    void Call() {
        ++calls;
        onChanged();
    }

    std::function<void()> onChanged;
    Core::TCommand<COutputListener> command{this, &COutputListener::Call};
    int calls = 0;
};

TEST(MTOutputTest, HasNoValueAtFirst) {
    TMTOutput<int> output;
    EXPECT_EQ(output.GetValue(), nullptr);
}

TEST(MTOutputTest, TellsItsListenersOnceForAValue) {
    TMTOutput<int> output;
    COutputListener listener;
    output.Connect(listener.command);
    output.NotifyIfMarked();
    EXPECT_EQ(listener.calls, 0);
    const int value = 7;
    output.SetValue(&value);
    EXPECT_EQ(output.GetValue(), &value);
    EXPECT_EQ(listener.calls, 0);
    output.NotifyIfMarked();
    output.NotifyIfMarked();
    EXPECT_EQ(listener.calls, 1);
    // The same value again counts: what it points at has changed.
    output.SetValue(&value);
    output.NotifyIfMarked();
    EXPECT_EQ(listener.calls, 2);
    output.Disconnect(listener.command);
}

TEST(MTOutputTest, TellsNobodyWhoHasDisconnected) {
    TMTOutput<int> output;
    COutputListener listener;
    output.Connect(listener.command);
    output.Disconnect(listener.command);
    output.SetValue(nullptr);
    output.NotifyIfMarked();
    EXPECT_EQ(listener.calls, 0);
}

TEST(MTOutputTest, TellsOfAChangeThatComesWhileItIsBusyElsewhere) {
    TMTOutput<int> output;
    // While the first listener runs, the object is busy with it: another thread does not wait.
    COutputListener listener([&] {
        if (listener.calls > 1) {
            return;
        }
        std::thread([&] {
            output.SetValue(nullptr);
            output.NotifyIfMarked();
        }).join();
        EXPECT_EQ(listener.calls, 1);
    });
    output.Connect(listener.command);
    output.SetValue(nullptr);
    output.NotifyIfMarked();
    EXPECT_EQ(listener.calls, 2);
    output.NotifyIfMarked();
    EXPECT_EQ(listener.calls, 2);
    output.Disconnect(listener.command);
}

TEST(MTOutputTest, LetsAListenerDisconnectItself) {
    TMTOutput<int> output;
    COutputListener listener;
    listener.onChanged = [&] { output.Disconnect(listener.command); };
    output.Connect(listener.command);
    output.SetValue(nullptr);
    output.NotifyIfMarked();
    output.SetValue(nullptr);
    output.NotifyIfMarked();
    EXPECT_EQ(listener.calls, 1);
}

} // namespace
} // namespace Vorin::Audio::Plugin
