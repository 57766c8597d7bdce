#include "core/EventProvider.h"

#include "core/Value.h"

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

/// Writes its name to the log, then does what the test gave it to do.
class CListener {
public:
    CListener(std::string& sharedLog, char ownName) : log(sharedLog), name(ownName) {}

    void OnChanged() {
        log += name;
        if (reaction) {
            reaction();
        }
    }

    std::string& log;
    char name;
    std::function<void()> reaction;
    TCommand<CListener> command{this, &CListener::OnChanged};
};

class EventProviderTest : public ::testing::Test {
protected:
    void ConnectAll() {
        for (CListener* listener : {&a, &b, &c, &d}) {
            provider.Connect(listener->command);
        }
    }

    /// Disconnects in the form that takes a pointer.
    void DisconnectByPointer(CListener& listener) {
        ICommand* command = &listener.command;
        provider.Disconnect(command, false);
    }

    std::string NotifyAndGetLog() {
        log.clear();
        provider.Notify();
        return log;
    }

    std::string log;
    CListener a{log, 'a'};
    CListener b{log, 'b'};
    CListener c{log, 'c'};
    CListener d{log, 'd'};
    CEventProvider provider;
};

/// A command on the heap that counts the living.
class CHeapCommand : public ICommand {
public:
    explicit CHeapCommand(int& livingCount) : living(livingCount) { ++living; }
    ~CHeapCommand() override { --living; }
    void Execute() override {
        if (reaction) {
            reaction();
        }
    }

    std::function<void()> reaction;

private:
    int& living;
};

TEST_F(EventProviderTest, NotifyWithoutCommandsReturns) {
    EXPECT_EQ(NotifyAndGetLog(), "");
    // A walk that ended leaves nothing behind that a later one would trip over.
    provider.Connect(a.command);
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

TEST_F(EventProviderTest, CommandsRunInTheOrderOfConnection) {
    provider.Connect(&c.command);
    provider.Connect(a.command);
    provider.Connect(&b.command);
    EXPECT_EQ(NotifyAndGetLog(), "cab");
}

TEST_F(EventProviderTest, CommandConnectedTwiceRunsTwice) {
    provider.Connect(a.command);
    provider.Connect(a.command);
    EXPECT_EQ(NotifyAndGetLog(), "aa");
}

TEST_F(EventProviderTest, PointerFormRemovesTheFirstEntryOnly) {
    provider.Connect(a.command);
    provider.Connect(b.command);
    provider.Connect(a.command);
    DisconnectByPointer(a);
    EXPECT_EQ(NotifyAndGetLog(), "ba");
}

TEST_F(EventProviderTest, ReferenceFormRemovesEveryEntry) {
    provider.Connect(a.command);
    provider.Connect(b.command);
    provider.Connect(a.command);
    provider.Disconnect(a.command);
    EXPECT_EQ(NotifyAndGetLog(), "b");
}

TEST_F(EventProviderTest, DisconnectOfAnUnknownCommandDoesNothing) {
    provider.Connect(a.command);
    provider.Disconnect(b.command);
    DisconnectByPointer(b);
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

TEST_F(EventProviderTest, DisconnectOfNullDoesNothingWhateverDestroySays) {
    provider.Connect(a.command);
    ICommand* none = nullptr;
    provider.Disconnect(none, false);
    provider.Disconnect(none, true);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

TEST_F(EventProviderTest, PointerFormWithoutDestroyLeavesCommandAndPointer) {
    int living = 0;
    CHeapCommand command(living);
    ICommand* pointer = &command;
    provider.Connect(pointer);
    provider.Disconnect(pointer, false);
    EXPECT_EQ(pointer, &command);
    EXPECT_EQ(living, 1);
}

TEST_F(EventProviderTest, PointerFormWithDestroyDeletesTheCommandAndClearsThePointer) {
    int living = 0;
    ICommand* pointer = new CHeapCommand(living);
    provider.Connect(pointer);
    provider.Disconnect(pointer, true);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(living, 0);
    provider.Notify();
}

TEST_F(EventProviderTest, PointerFormWithDestroyDeletesACommandThatWasNeverConnected) {
    int living = 0;
    ICommand* pointer = new CHeapCommand(living);
    provider.Disconnect(pointer, true);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(living, 0);
}

TEST_F(EventProviderTest, ListenerThatNotifiesIsNotReentered) {
    ConnectAll();
    int nested = 0;
    a.reaction = [&] {
        if (++nested < 10) {
            provider.Notify();
        }
    };
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
    EXPECT_EQ(nested, 1);
}

TEST_F(EventProviderTest, NestedNotifyTakesOverTheWalk) {
    ConnectAll();
    bool done = false;
    b.reaction = [&] {
        if (!done) {
            done = true;
            provider.Notify();
        }
    };
    // a and b by the outer walk; a again, then c and d by the nested one; nothing a third time.
    EXPECT_EQ(NotifyAndGetLog(), "abacd");
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
}

TEST_F(EventProviderTest, CommandsOfAllOuterWalksAreSkippedByTheInnermost) {
    ConnectAll();
    int rounds = 0;
    a.reaction = [&] { rounds < 5 ? (++rounds, provider.Notify()) : void(); };
    b.reaction = [&] { rounds < 5 ? (++rounds, provider.Notify()) : void(); };
    // a starts a walk that skips a; its b starts one that skips both.
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
    EXPECT_EQ(rounds, 2);
}

TEST_F(EventProviderTest, CommandRunsAgainAfterItsNestedNotifyEnded) {
    ConnectAll();
    int rounds = 0;
    d.reaction = [&] {
        if (rounds++ == 0) {
            provider.Notify();
            provider.Notify(); // d is still running: this walk skips it as well
        }
    };
    EXPECT_EQ(NotifyAndGetLog(), "abcdabcabc");
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
}

TEST_F(EventProviderTest, CommandThatNestedOnceIsRunByLaterNestedWalks) {
    ConnectAll();
    b.reaction = [&] {
        b.reaction = nullptr;
        provider.Notify();
    };
    EXPECT_EQ(NotifyAndGetLog(), "abacd");
    a.reaction = [&] {
        a.reaction = nullptr;
        provider.Notify();
    };
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
}

TEST_F(EventProviderTest, ListenerThatSetsItsValueRunsOncePerExternalChange) {
    TValue<double> value(0.0);
    for (CListener* listener : {&a, &b, &c}) {
        value.GetValueChangedEvents().Connect(listener->command);
    }
    std::vector<double> seenByC;
    b.reaction = [&] { value.SetValue(value.GetValue() < 10.0 ? 10.0 : value.GetValue() + 1.0); };
    c.reaction = [&] { seenByC.push_back(value.GetValue()); };
    value.SetValue(1.0);
    EXPECT_EQ(log, "abac");
    EXPECT_EQ(seenByC, std::vector<double>{10.0});
    EXPECT_EQ(value.GetValue(), 10.0);
}

TEST_F(EventProviderTest, DisconnectOfTheCommandUnderTheCursorGoesOnBehindIt) {
    TValue<bool> trigger(false);
    ConnectAll();
    // b lets go of the provider when the trigger changes, and a changes it while b comes next.
    CListener onTrigger{log, 't'};
    onTrigger.reaction = [&] { DisconnectByPointer(b); };
    trigger.GetValueChangedEvents().Connect(onTrigger.command);
    a.reaction = [&] { trigger.SetValue(true); };
    EXPECT_EQ(NotifyAndGetLog(), "atcd");
    EXPECT_EQ(NotifyAndGetLog(), "acd");
}

TEST_F(EventProviderTest, DisconnectOfAllThatFollowEndsTheWalk) {
    ConnectAll();
    a.reaction = [&] {
        DisconnectByPointer(b);
        DisconnectByPointer(c);
        DisconnectByPointer(d);
    };
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

TEST_F(EventProviderTest, ReferenceFormOnTheNextCommandIsMemorySafeAndGoesOnBehindIt) {
    ConnectAll();
    a.reaction = [&] {
        provider.Disconnect(b.command);
        provider.Disconnect(c.command);
    };
    EXPECT_EQ(NotifyAndGetLog(), "ad");
    EXPECT_EQ(NotifyAndGetLog(), "ad");
}

TEST_F(EventProviderTest, CommandRemovedByReferenceMayDieBeforeTheWalkReachesIt) {
    int living = 0;
    auto doomed = std::make_unique<CHeapCommand>(living);
    bool executed = false;
    doomed->reaction = [&] { executed = true; };
    provider.Connect(a.command);
    provider.Connect(*doomed);
    provider.Connect(c.command);
    a.reaction = [&] {
        if (doomed) {
            provider.Disconnect(*doomed);
            doomed.reset();
        }
    };
    EXPECT_EQ(NotifyAndGetLog(), "ac");
    EXPECT_FALSE(executed);
    EXPECT_EQ(living, 0);
}

TEST_F(EventProviderTest, ListenerMayDisconnectItselfByPointer) {
    ConnectAll();
    b.reaction = [&] { DisconnectByPointer(b); };
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
    EXPECT_EQ(NotifyAndGetLog(), "acd");
}

TEST_F(EventProviderTest, ListenerMayDisconnectItselfByReference) {
    ConnectAll();
    b.reaction = [&] { provider.Disconnect(b.command); };
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
    EXPECT_EQ(NotifyAndGetLog(), "acd");
}

TEST_F(EventProviderTest, ListenerMayDisconnectItselfAndWhatFollows) {
    ConnectAll();
    b.reaction = [&] {
        provider.Disconnect(c.command);
        provider.Disconnect(b.command);
        provider.Disconnect(d.command);
    };
    EXPECT_EQ(NotifyAndGetLog(), "ab");
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

TEST_F(EventProviderTest, CommandMayBeDestroyedFromItsOwnExecute) {
    int living = 0;
    // The command is deleted while it is on the stack, so its reaction must not live in it.
    class CSelfDestroying : public ICommand {
    public:
        CSelfDestroying(CEventProvider& source, int& livingCount)
            : provider(source), living(livingCount) {
            ++living;
        }
        ~CSelfDestroying() override { --living; }
        void Execute() override {
            ICommand* self = this;
            provider.Disconnect(self, true);
        }

    private:
        CEventProvider& provider;
        int& living;
    };
    provider.Connect(a.command);
    provider.Connect(new CSelfDestroying(provider, living));
    provider.Connect(c.command);
    EXPECT_EQ(NotifyAndGetLog(), "ac");
    EXPECT_EQ(living, 0);
    EXPECT_EQ(NotifyAndGetLog(), "ac");
}

TEST_F(EventProviderTest, NestedWalkMayRemoveTheCommandOfTheOuterOne) {
    ConnectAll();
    bool nested = false;
    b.reaction = [&] {
        if (!nested) {
            nested = true;
            provider.Notify();
        }
    };
    a.reaction = [&] {
        if (nested) {
            provider.Disconnect(b.command);
        }
    };
    EXPECT_EQ(NotifyAndGetLog(), "abacd");
    EXPECT_EQ(NotifyAndGetLog(), "acd");
}

TEST_F(EventProviderTest, ListenerMayLeaveAndComeBackInOneCall) {
    ConnectAll();
    bool done = false;
    b.reaction = [&] {
        if (!done) {
            done = true;
            DisconnectByPointer(b);
            provider.Connect(b.command);
        }
    };
    // The new entry stands at the tail, and the walk still comes by there.
    EXPECT_EQ(NotifyAndGetLog(), "abcdb");
    EXPECT_EQ(NotifyAndGetLog(), "acdb");
}

TEST_F(EventProviderTest, CommandConnectedDuringAWalkRunsInItUnlessTheLastConnectsIt) {
    provider.Connect(a.command);
    provider.Connect(b.command);
    a.reaction = [&] {
        a.reaction = nullptr;
        provider.Connect(c.command);
    };
    EXPECT_EQ(NotifyAndGetLog(), "abc");
    c.reaction = [&] {
        c.reaction = nullptr;
        provider.Connect(d.command);
    };
    EXPECT_EQ(NotifyAndGetLog(), "abc");
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
}

TEST_F(EventProviderTest, DisabledProviderOnlyCounts) {
    provider.Connect(a.command);
    provider.SetEnabled(false);
    EXPECT_EQ(NotifyAndGetLog(), "");
    EXPECT_EQ(NotifyAndGetLog(), "");
    EXPECT_EQ(provider.GetPendingCount(), 2);
}

TEST_F(EventProviderTest, EnablingForgetsTheCountAndReplaysNothing) {
    provider.Connect(a.command);
    provider.SetEnabled(false);
    provider.Notify();
    provider.SetEnabled(false);
    EXPECT_EQ(provider.GetPendingCount(), 1);
    provider.SetEnabled(true);
    EXPECT_EQ(log, "");
    EXPECT_EQ(provider.GetPendingCount(), 0);
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

TEST_F(EventProviderTest, NotifyDisabledFromInsideLetsTheWalkFinish) {
    ConnectAll();
    a.reaction = [&] {
        provider.SetEnabled(false);
        provider.Notify();
    };
    EXPECT_EQ(NotifyAndGetLog(), "abcd");
    EXPECT_EQ(provider.GetPendingCount(), 1);
}

TEST_F(EventProviderTest, LongListBehavesAsAShortOne) {
    std::mt19937 random(20);
    std::string runLog;
    std::vector<std::unique_ptr<CListener>> listeners;
    for (int i = 0; i < 100; ++i) {
        listeners.push_back(std::make_unique<CListener>(runLog, static_cast<char>(i)));
    }
    std::string expected; // the names in the order of connection
    for (int step = 0; step < 3000; ++step) {
        CListener& listener = *listeners[random() % listeners.size()];
        const unsigned action = random() % 8;
        if (action == 0) {
            provider.Disconnect(listener.command);
            std::erase(expected, listener.name);
        } else if (action <= 2) {
            DisconnectByPointer(listener);
            if (const auto first = expected.find(listener.name); first != std::string::npos) {
                expected.erase(first, 1);
            }
        } else {
            provider.Connect(listener.command);
            expected += listener.name;
        }
        runLog.clear();
        provider.Notify();
        ASSERT_EQ(runLog, expected) << "step " << step;
    }
    EXPECT_GT(expected.size(), 100U);
}

TEST_F(EventProviderTest, ListenerMayTakeEveryOtherOutOfALongList) {
    std::vector<std::unique_ptr<CListener>> listeners;
    for (int i = 0; i < 1000; ++i) {
        listeners.push_back(std::make_unique<CListener>(log, 'x'));
        provider.Connect(listeners.back()->command);
        provider.Connect(listeners.back()->command);
    }
    provider.Connect(a.command);
    listeners[500]->reaction = [&] {
        for (const auto& listener : listeners) {
            provider.Disconnect(listener->command);
        }
    };
    EXPECT_EQ(NotifyAndGetLog(), std::string(1001, 'x') + "a");
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

TEST_F(EventProviderTest, CopyStartsWithoutListeners) {
    provider.Connect(a.command);
    CEventProvider copy(provider);
    copy.Notify();
    EXPECT_EQ(log, "");
}

TEST_F(EventProviderTest, AssignmentKeepsTheListenersOfTheTarget) {
    provider.Connect(a.command);
    CEventProvider other;
    other.Connect(b.command);
    other = provider;
    other.Notify();
    EXPECT_EQ(log, "b");
    EXPECT_EQ(NotifyAndGetLog(), "a");
}

} // namespace
