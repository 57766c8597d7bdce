#include "serialization/IncrementalHistoryManager.h"
#include "serialization/HistoryTree.h"

#include <functional>
#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

const std::vector<std::string> kKeyNames = {"a", "b", "c", "sub", "x", "y"};

/// A root with the int "a" and what else a test puts in, its history, and the events of it.
class IncrementalHistoryManagerTest : public testing::Test {
protected:
    void Set(const char* name, int value) { root[name] = value; }
    int Get(const char* name) { return std::get<int>(root[name]); }

    /// One snapshot for each value of "a".
    void Record(std::initializer_list<int> values) {
        for (const int value : values) {
            Set("a", value);
            history.TakeSnapshot();
        }
        events.Take();
    }

    CTree root;
    CTreeSerializer serializer{root, kKeyNames};
    CIncrementalHistoryManager history{&serializer};
    CHistoryEvents events{history};
};

TEST_F(IncrementalHistoryManagerTest, ANewHistoryIsEmptyWithoutLimitAndRestoresInFull) {
    EXPECT_EQ(history.GetCount(), 0);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.GetCurrent(), nullptr);
    EXPECT_EQ(history.GetMaxCount(), -1);
    EXPECT_FALSE(history.IsPartialRestore());
}

TEST_F(IncrementalHistoryManagerTest, TheFirstSnapshotIsAnEntryButNoStepToUndo) {
    history.TakeSnapshot(); // of a root that writes nothing
    EXPECT_EQ(history.GetCount(), 1);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(events.Take(), "h");
}

TEST_F(IncrementalHistoryManagerTest, ASnapshotWithoutAChangeIsNoEntryAndSendsNothing) {
    Record({1, 2});
    const auto* current = history.GetCurrent();
    history.TakeSnapshot();
    EXPECT_EQ(history.GetCount(), 2);
    EXPECT_EQ(history.GetCurrent(), current);
    EXPECT_EQ(events.Take(), "");
}

TEST_F(IncrementalHistoryManagerTest, ASnapshotWithoutAChangeKeepsWhatCanBeRedone) {
    Record({1, 2, 3});
    history.Undo();
    events.Take();
    history.TakeSnapshot();
    EXPECT_TRUE(history.CanRedo());
    EXPECT_EQ(history.GetCount(), 3);
    EXPECT_EQ(events.Take(), "");
}

TEST_F(IncrementalHistoryManagerTest, OnlyTheSecondSnapshotMakesUndoPossible) {
    Record({1});
    Set("a", 2);
    history.TakeSnapshot();
    EXPECT_TRUE(history.CanUndo());
    EXPECT_EQ(events.Take(), "hu");
    Set("a", 3);
    history.TakeSnapshot();
    EXPECT_EQ(events.Take(), "h");
}

TEST_F(IncrementalHistoryManagerTest, AValueThatGoesAloneIsNoEntry) {
    Set("b", 1);
    Record({1});
    root.values.erase("b");
    history.TakeSnapshot();
    EXPECT_EQ(history.GetCount(), 1);
    Set("a", 2); // with another change the step knows that it went
    history.TakeSnapshot();
    EXPECT_FALSE(history.GetCurrent()->Exists("b"));
}

TEST_F(IncrementalHistoryManagerTest, UndoAndRedoWalkThroughTheStates) {
    Record({1, 2, 3});
    history.Undo();
    EXPECT_EQ(Get("a"), 2);
    history.Undo();
    EXPECT_EQ(Get("a"), 1);
    history.Redo();
    EXPECT_EQ(Get("a"), 2);
    history.Redo();
    EXPECT_EQ(Get("a"), 3);
}

TEST_F(IncrementalHistoryManagerTest, UndoAndRedoSendOnlyWhatTurns) {
    Record({1, 2, 3});
    history.Undo(); // redo becomes possible
    EXPECT_EQ(events.Take(), "r");
    history.Undo(); // undo becomes impossible
    EXPECT_EQ(events.Take(), "u");
    history.Redo();
    EXPECT_EQ(events.Take(), "u");
    history.Redo();
    EXPECT_EQ(events.Take(), "r");
}

TEST_F(IncrementalHistoryManagerTest, BetweenTwoEntriesUndoAndRedoSendTheirOwnEventFirst) {
    Record({1, 2});
    history.Undo();
    EXPECT_EQ(events.Take(), "ur");
    history.Redo();
    EXPECT_EQ(events.Take(), "ru");
}

TEST_F(IncrementalHistoryManagerTest, UndoAndRedoInAnImpossibleDirectionDoNothing) {
    history.Undo();
    history.Redo();
    Record({1});
    Set("a", 7);
    history.Undo();
    history.Redo();
    EXPECT_EQ(Get("a"), 7);
    EXPECT_EQ(events.Take(), "");
}

TEST_F(IncrementalHistoryManagerTest, ASnapshotAfterUndoDropsWhatCouldBeRedone) {
    Record({1, 2, 3, 4});
    history.Undo();
    history.Undo();
    events.Take();
    Set("a", 9);
    history.TakeSnapshot();
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.GetCount(), 3);
    EXPECT_EQ(events.Take(), "hr");
    history.Undo();
    EXPECT_EQ(Get("a"), 2);
    history.Redo();
    EXPECT_EQ(Get("a"), 9);
}

TEST_F(IncrementalHistoryManagerTest, ASnapshotAfterUndoToTheFirstEntrySendsAllThree) {
    Record({1, 2});
    history.Undo();
    events.Take();
    Set("a", 9);
    history.TakeSnapshot();
    EXPECT_EQ(events.Take(), "hur");
}

TEST_F(IncrementalHistoryManagerTest, PastTheLimitTheOldestGoesAndTheNextIsTheBaseline) {
    history.SetMaxCount(3);
    root["sub"] = CBox(CTree{});
    root.Sub("sub")["x"] = 1;
    Record({1, 2, 3, 4});
    EXPECT_EQ(history.GetCount(), 3);
    EXPECT_EQ(CountPrevious(history), 2);
    history.Undo();
    history.Undo();
    EXPECT_EQ(Get("a"), 2);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_EQ(history.GetCurrent()->GetPrevious(), nullptr);
    EXPECT_FALSE(history.GetCurrent()->IsUnchanged());
    root.values.clear(); // the baseline holds also what never changed
    history.Redo();
    history.Undo();
    EXPECT_EQ(std::get<int>(root.Sub("sub")["x"]), 1);
    EXPECT_EQ(Get("a"), 2);
}

TEST_F(IncrementalHistoryManagerTest, EachEntryIsComparedWithTheOneBeforeIt) {
    Record({1, 2, 3, 4});
    EXPECT_EQ(CountPrevious(history), 3);
    history.Undo();
    history.Undo();
    EXPECT_EQ(CountPrevious(history), 1);
    Set("a", 9);
    history.TakeSnapshot(); // the tail goes
    EXPECT_EQ(CountPrevious(history), 2);
    history.SetMaxCount(2);
    Set("a", 10);
    history.TakeSnapshot(); // the head goes
    EXPECT_EQ(CountPrevious(history), 1);
}

TEST_F(IncrementalHistoryManagerTest, ALowerLimitHoldsFromTheNextSnapshotOn) {
    Record({1, 2, 3, 4, 5});
    history.SetMaxCount(1);
    EXPECT_EQ(history.GetCount(), 5);
    history.TakeSnapshot(); // no change
    EXPECT_EQ(history.GetCount(), 5);
    Set("a", 6);
    history.TakeSnapshot();
    EXPECT_EQ(history.GetCount(), 1);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_EQ(events.Take(), "hu");
}

TEST_F(IncrementalHistoryManagerTest, ALimitOfNoneKeepsNothing) {
    history.SetMaxCount(0);
    Set("a", 1);
    history.TakeSnapshot();
    EXPECT_EQ(events.Take(), "h");
    EXPECT_EQ(history.GetCount(), 0);
    EXPECT_EQ(history.GetCurrent(), nullptr);
    history.UpdateCurrent();
    EXPECT_EQ(history.GetCount(), 0);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
}

TEST_F(IncrementalHistoryManagerTest, ANegativeLimitIsNone) {
    history.SetMaxCount(std::numeric_limits<int>::min());
    EXPECT_EQ(history.GetMaxCount(), -1);
    Record({1, 2, 3});
    EXPECT_EQ(history.GetCount(), 3);
}

TEST_F(IncrementalHistoryManagerTest, AFullUndoRestoresEveryValue) {
    Set("b", 5);
    Record({1, 2});
    Set("b", 6); // never recorded
    history.Undo();
    EXPECT_EQ(Get("a"), 1);
    EXPECT_EQ(Get("b"), 5);
}

TEST_F(IncrementalHistoryManagerTest, APartialUndoLeavesAValueThatDidNotChangeAlone) {
    history.SetPartialRestore(true);
    Set("b", 5);
    root["sub"] = CBox(CTree{});
    root.Sub("sub")["x"] = 1;
    root.Sub("sub")["y"] = 1;
    Record({1});
    root.Sub("sub")["x"] = 2;
    Record({2});
    Set("b", 6); // never recorded
    root.Sub("sub")["y"] = 7;
    history.Undo();
    EXPECT_EQ(Get("a"), 1);
    EXPECT_EQ(Get("b"), 6);
    EXPECT_EQ(std::get<int>(root.Sub("sub")["x"]), 1);
    EXPECT_EQ(std::get<int>(root.Sub("sub")["y"]), 7);
    history.Redo();
    EXPECT_EQ(Get("a"), 2);
    EXPECT_EQ(Get("b"), 6);
    EXPECT_EQ(std::get<int>(root.Sub("sub")["x"]), 2);
    EXPECT_EQ(std::get<int>(root.Sub("sub")["y"]), 7);
}

TEST_F(IncrementalHistoryManagerTest, APartialStepAfterUpdateCurrentStillGivesOnlyWhatDiffers) {
    history.SetPartialRestore(true);
    Set("b", 1);
    Record({1});
    Set("b", 2);
    Record({2});
    history.Undo();
    Set("b", 2); // now the first entry holds the second one's value, in a record of its own
    history.UpdateCurrent();
    Set("b", 3); // never recorded
    history.Redo();
    EXPECT_EQ(Get("a"), 2);
    EXPECT_EQ(Get("b"), 3);
}

TEST_F(IncrementalHistoryManagerTest, APartialStepReachesObjectsAfterUpdateCurrentInTheMiddle) {
    history.SetPartialRestore(true);
    root["sub"] = CBox(CTree{});
    for (const int value : {1, 2, 3}) {
        root.Sub("sub")["x"] = value;
        root.Sub("sub")["y"] = 10 * value;
        history.TakeSnapshot();
    }
    history.Undo();
    root.Sub("sub")["x"] = 8;
    history.UpdateCurrent();
    history.Redo();
    EXPECT_EQ(std::get<int>(root.Sub("sub")["x"]), 3);
    EXPECT_EQ(std::get<int>(root.Sub("sub")["y"]), 30);
    history.Undo();
    EXPECT_EQ(std::get<int>(root.Sub("sub")["x"]), 8);
    EXPECT_EQ(std::get<int>(root.Sub("sub")["y"]), 20);
}

TEST_F(IncrementalHistoryManagerTest, UpdateCurrentOfAnEmptyHistoryTakesASnapshot) {
    Set("a", 1);
    history.UpdateCurrent();
    EXPECT_EQ(history.GetCount(), 1);
    EXPECT_EQ(events.Take(), "h");
}

TEST_F(IncrementalHistoryManagerTest, UpdateCurrentReplacesTheEntryAndSendsNothing) {
    Record({1, 2, 3});
    history.Undo();
    events.Take();
    const auto* current = history.GetCurrent();
    Set("a", 8);
    history.UpdateCurrent();
    EXPECT_EQ(history.GetCurrent(), current);
    EXPECT_EQ(history.GetCount(), 3);
    EXPECT_TRUE(history.CanRedo());
    EXPECT_EQ(events.Take(), "");
    history.Redo();
    EXPECT_EQ(Get("a"), 3);
    history.Undo();
    EXPECT_EQ(Get("a"), 8);
}

TEST_F(IncrementalHistoryManagerTest, AStateThatWasUpdatedInPlaceIsNoNewEntry) {
    Record({1, 2});
    Set("a", 3);
    history.UpdateCurrent();
    history.TakeSnapshot();
    EXPECT_EQ(history.GetCount(), 2);
}

TEST_F(IncrementalHistoryManagerTest, UpdateCurrentComparesWithTheEntryBefore) {
    Record({1, 2});
    Set("a", 1);
    history.UpdateCurrent();
    EXPECT_TRUE(history.GetCurrent()->IsUnchanged());
    EXPECT_EQ(history.GetCount(), 2);
    Set("a", 3);
    history.UpdateCurrent();
    EXPECT_FALSE(history.GetCurrent()->IsUnchanged());
}

TEST_F(IncrementalHistoryManagerTest, ClearForgetsAllAndSendsRedoThenUndo) {
    Record({1, 2, 3});
    history.Undo();
    events.Take();
    history.Clear();
    EXPECT_EQ(history.GetCount(), 0);
    EXPECT_EQ(history.GetCurrent(), nullptr);
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(events.Take(), "ru");
    EXPECT_EQ(Get("a"), 2);
}

TEST_F(IncrementalHistoryManagerTest, ClearOfAnEmptyHistorySendsNothing) {
    history.Clear();
    EXPECT_EQ(events.Take(), "");
}

TEST_F(IncrementalHistoryManagerTest, ClearOfOneEntrySendsNothing) {
    Record({1});
    history.Clear();
    EXPECT_EQ(history.GetCount(), 0);
    EXPECT_EQ(events.Take(), "");
}

TEST(IncrementalHistoryManagerRootTest, WithoutARootNothingHappens) {
    CIncrementalHistoryManager history(nullptr);
    CHistoryEvents events(history);
    history.TakeSnapshot();
    history.UpdateCurrent();
    history.Undo();
    history.Redo();
    history.Clear();
    EXPECT_EQ(history.GetCount(), 0);
    EXPECT_EQ(events.Take(), "");
}

/// Calls a function while it is written and read.
class CBusyRoot : public virtual ISerializable {
public:
    bool Serialize(IWriteDataStream& stream) const override {
        call();
        return stream.WriteInt("value", value);
    }
    bool DeSerialize(const IReadDataStream& stream) override {
        value = -1;
        call();
        return stream.ReadInt("value", value);
    }

    int value = 0;
    std::function<void()> call = [] {};
};

TEST(IncrementalHistoryManagerRootTest, WhatTheRootCallsWhileItIsWrittenOrReadDoesNothing) {
    CBusyRoot root;
    CIncrementalHistoryManager history(&root);
    for (; root.value < 3; ++root.value) {
        history.TakeSnapshot();
    }
    int calls = 0;
    root.call = [&history, &calls] {
        ++calls;
        history.TakeSnapshot();
        history.UpdateCurrent();
        history.Undo();
        history.Redo();
        history.Clear();
    };
    history.Undo();
    EXPECT_EQ(root.value, 1);
    EXPECT_EQ(history.GetCount(), 3);
    EXPECT_TRUE(history.CanUndo());
    EXPECT_TRUE(history.CanRedo());
    root.value = 9;
    history.TakeSnapshot();
    EXPECT_EQ(history.GetCount(), 3);
    EXPECT_EQ(calls, 2);
}

// A part that cannot be written must not cost the user the undo of all the others.
TEST(IncrementalHistoryManagerRootTest, ARootThatReportsAFailureIsRecordedAsFarAsItWasWritten) {
    class CFailingRoot : public CBusyRoot {
    public:
        bool Serialize(IWriteDataStream& stream) const override {
            return CBusyRoot::Serialize(stream) && false;
        }
        bool DeSerialize(const IReadDataStream& stream) override {
            return CBusyRoot::DeSerialize(stream) && false;
        }
    };
    CFailingRoot root;
    CIncrementalHistoryManager history(&root);
    history.TakeSnapshot();
    root.value = 1;
    history.TakeSnapshot();
    history.Undo();
    EXPECT_EQ(root.value, 0);
    EXPECT_TRUE(history.CanRedo());
}

/// A listener that acts on the history it hears from.
class CActingListener {
public:
    CActingListener(CIncrementalHistoryManager& heard, std::function<void()> function)
        : history(heard), action(std::move(function)) {
        history.GetHistoryChangedEvents().Connect(command);
        history.GetRedoChangedEvents().Connect(command);
    }
    ~CActingListener() {
        history.GetHistoryChangedEvents().Disconnect(command);
        history.GetRedoChangedEvents().Disconnect(command);
    }

private:
    void Act() { action(); }

    CIncrementalHistoryManager& history;
    std::function<void()> action;
    Vorin::Core::TCommand<CActingListener> command{this, &CActingListener::Act};
};

TEST_F(IncrementalHistoryManagerTest, AListenerMayChangeTheHistoryItHearsFrom) {
    Record({1, 2});
    {
        const CActingListener listener(history, [this] { history.Clear(); });
        Set("a", 3);
        history.TakeSnapshot();
        EXPECT_EQ(history.GetCount(), 0);
    }
    Record({1, 2, 3});
    const CActingListener listener(history, [this] {
        Set("a", 50);
        history.TakeSnapshot();
    });
    history.Undo();
    EXPECT_EQ(history.GetCount(), 3);
    EXPECT_FALSE(history.CanRedo());
    EXPECT_TRUE(history.CanUndo());
}

} // namespace
