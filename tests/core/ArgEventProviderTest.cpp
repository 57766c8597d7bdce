#include "core/ArgEventProvider.h"

#include <functional>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CArgListener {
public:
    CArgListener(std::string& sharedLog, char ownName) : log(sharedLog), name(ownName) {}

    void OnEvent(int argument) {
        log += name + std::to_string(argument) + ' ';
        if (reaction) {
            reaction(argument);
        }
    }

    std::string& log;
    char name;
    std::function<void(int)> reaction;
    TArgCommand<CArgListener, int> command{this, &CArgListener::OnEvent};
};

class ArgEventProviderTest : public ::testing::Test {
protected:
    void ConnectAll() {
        for (CArgListener* listener : {&a, &b, &c}) {
            provider.Connect(listener->command);
        }
    }

    std::string NotifyAndGetLog(int argument) {
        log.clear();
        provider.Notify(argument);
        return log;
    }

    std::string log;
    CArgListener a{log, 'a'};
    CArgListener b{log, 'b'};
    CArgListener c{log, 'c'};
    TArgEventProvider<int> provider;
};

TEST_F(ArgEventProviderTest, CommandsGetTheArgumentInTheOrderOfConnection) {
    provider.Connect(&b.command);
    provider.Connect(a.command);
    EXPECT_EQ(NotifyAndGetLog(7), "b7 a7 ");
}

TEST_F(ArgEventProviderTest, NestedNotificationsAreIndependentWalks) {
    ConnectAll();
    b.reaction = [&](int argument) {
        if (argument == 1) {
            provider.Notify(2);
        }
    };
    // The nested walk skips b, which is running; the outer one goes on with c and its own 1.
    EXPECT_EQ(NotifyAndGetLog(1), "a1 b1 a2 c2 c1 ");
}

TEST_F(ArgEventProviderTest, ListenerMayDisconnectTheNextOne) {
    ConnectAll();
    a.reaction = [&](int) { provider.Disconnect(b.command); };
    EXPECT_EQ(NotifyAndGetLog(1), "a1 c1 ");
}

TEST_F(ArgEventProviderTest, ListenerMayConnectAnother) {
    provider.Connect(a.command);
    a.reaction = [&](int) {
        a.reaction = nullptr;
        provider.Connect(b.command);
    };
    EXPECT_EQ(NotifyAndGetLog(1), "a1 b1 ");
}

TEST_F(ArgEventProviderTest, ListenerThatDisconnectsItselfBreaksNothing) {
    ConnectAll();
    b.reaction = [&](int) {
        provider.Disconnect(b.command);
        provider.Disconnect(c.command);
    };
    EXPECT_EQ(NotifyAndGetLog(1), "a1 b1 ");
    EXPECT_EQ(NotifyAndGetLog(2), "a2 ");
}

TEST_F(ArgEventProviderTest, NestedWalkMayRemoveTheCommandOfTheOuterOne) {
    ConnectAll();
    b.reaction = [&](int argument) {
        if (argument == 1) {
            provider.Notify(2);
        }
    };
    a.reaction = [&](int argument) {
        if (argument == 2) {
            provider.Disconnect(b.command);
        }
    };
    EXPECT_EQ(NotifyAndGetLog(1), "a1 b1 a2 c2 c1 ");
    EXPECT_EQ(NotifyAndGetLog(3), "a3 c3 ");
}

TEST_F(ArgEventProviderTest, BothFormsOfDisconnectRemoveEveryEntry) {
    provider.Connect(a.command);
    provider.Connect(b.command);
    provider.Connect(a.command);
    TIArgCommand<int>* pointer = &a.command;
    provider.Disconnect(pointer, false);
    EXPECT_EQ(pointer, &a.command);
    EXPECT_EQ(NotifyAndGetLog(1), "b1 ");
    provider.Connect(b.command);
    provider.Disconnect(b.command);
    EXPECT_EQ(NotifyAndGetLog(1), "");
}

TEST_F(ArgEventProviderTest, PointerFormWithDestroyDeletesAndClears) {
    class CCommand : public TIArgCommand<int> {
    public:
        explicit CCommand(bool& flag) : destroyed(flag) {}
        ~CCommand() override { destroyed = true; }
        void Execute(int) override {}

    private:
        bool& destroyed;
    };
    bool destroyed = false;
    TIArgCommand<int>* pointer = new CCommand(destroyed);
    provider.Connect(pointer);
    provider.Disconnect(pointer, true);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_TRUE(destroyed);
    provider.Disconnect(pointer, true);
    provider.Notify(1);
}

TEST_F(ArgEventProviderTest, ReferenceArgumentsReachEveryListenerAsTheSameObject) {
    class CAdder {
    public:
        void Add(int& sum) { ++sum; }
        TArgCommand<CAdder, int&> command{this, &CAdder::Add};
    };
    TArgEventProvider<int&> adders;
    CAdder first;
    CAdder second;
    adders.Connect(first.command);
    adders.Connect(second.command);
    int sum = 40;
    adders.Notify(sum);
    EXPECT_EQ(sum, 42);
}

TEST_F(ArgEventProviderTest, CopyStartsWithoutListeners) {
    ConnectAll();
    TArgEventProvider<int> copy(provider);
    copy.Notify(1);
    EXPECT_EQ(log, "");
}

} // namespace
