#include "datamodel/objects/Action.h"

#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

#include <string>

namespace Vorin::DataModel::Objects {
namespace {

using System::Testing::CFakeInvoker;
using System::Testing::CFunctionCommand;
using Testing::CListener;

class ActionTest : public ::testing::Test {
protected:
    std::string log;
    CFunctionCommand command{[this] { log += "run "; }};
    CAction action{CActionInfo("Reset", "Back to the start"), &command, Core::kDontOwn};
    CListener executed{action.GetExecutionEvents(), [this] { log += "executed "; }};
    CListener enabled{action.GetEnableEvents(), [this] { log += "enable "; }};
};

TEST_F(ActionTest, RunsItsCommandAndThenTellsOfIt) {
    EXPECT_TRUE(action.IsEnabled());
    EXPECT_STREQ(action.GetInfo().GetName(), "Reset");
    action.Execute();
    EXPECT_EQ(log, "run executed ");
}

TEST_F(ActionTest, WhileDisabledNothingHappensAndNothingIsReported) {
    action.SetEnabled(false);
    action.SetEnabled(false);
    EXPECT_EQ(log, "enable ");
    action.Execute();
    EXPECT_EQ(log, "enable ");
    IAction& object = action;
    object.SetEnabled(true);
    object.Execute();
    EXPECT_EQ(log, "enable enable run executed ");
}

TEST_F(ActionTest, WithoutACommandNothingHappens) {
    action.SetCommand(nullptr, Core::kOwn);
    action.Execute();
    EXPECT_EQ(log, "");
    CAction().Execute();
}

TEST_F(ActionTest, DeletesTheCommandThatItOwns) {
    int deaths = 0;
    {
        CAction owner(CActionInfo(), new CFunctionCommand([] {}, &deaths), Core::kOwn);
        owner.SetCommand(new CFunctionCommand([] {}, &deaths), Core::kOwn);
        EXPECT_EQ(deaths, 1);
    }
    EXPECT_EQ(deaths, 2);
}

class CView {
public:
    void Reset() { ++resets; }
    int resets = 0;
};
class CPlotView : public CView {};

TEST_F(ActionTest, AMemberFunctionIsAnActionInOneLine) {
    CPlotView view;
    TActionWrapper reset(view, &CView::Reset, CActionInfo("Reset", ""));
    reset.Execute();
    EXPECT_EQ(view.resets, 1);
    reset.SetEnabled(false);
    reset.Execute();
    EXPECT_EQ(view.resets, 1);
}

class CHistory {
public:
    void Undo() { ++undone; }
    bool CanUndo() const { return canUndo; }
    Core::IEventProvider& GetUndoChangedEvents() const { return undoChanged; }
    void Set(bool can) {
        canUndo = can;
        undoChanged.Notify();
    }

    int undone = 0;

private:
    bool canUndo = false;
    mutable Core::CEventProvider undoChanged;
};

TEST_F(ActionTest, AnAsynchronousActionRunsLaterAndIsSwitchedByItsObject) {
    CHistory history;
    CFakeInvoker invoker;
    TConstAsyncActionWrapper<CHistory> undo(&invoker, &history, &CHistory::Undo, &CHistory::CanUndo,
                                            &CHistory::GetUndoChangedEvents);
    int changes = 0;
    const CListener changed(undo.GetEnableEvents(), [&] { ++changes; });
    EXPECT_FALSE(undo.IsEnabled());
    undo.Execute();
    EXPECT_TRUE(invoker.queue.empty());

    history.Set(true);
    EXPECT_EQ(changes, 1);
    IConstAction& object = undo;
    EXPECT_TRUE(object.IsEnabled());
    object.Execute();
    EXPECT_EQ(history.undone, 0);
    ASSERT_EQ(invoker.queue.size(), 1u);
    invoker.RunOne();
    EXPECT_EQ(history.undone, 1);
}

TEST_F(ActionTest, AnAsynchronousActionWithoutASwitchIsAlwaysOn) {
    CView view;
    CFakeInvoker invoker;
    TConstAsyncActionWrapper<CView> reset(&invoker, &view, &CView::Reset);
    EXPECT_TRUE(reset.IsEnabled());
    reset.Execute();
    invoker.RunOne();
    EXPECT_EQ(view.resets, 1);
}

TEST_F(ActionTest, AnAsynchronousActionDisconnectsWhenItDies) {
    CHistory history;
    CFakeInvoker invoker;
    {
        const TConstAsyncActionWrapper<CHistory> undo(&invoker, &history, &CHistory::Undo,
                                                      &CHistory::CanUndo,
                                                      &CHistory::GetUndoChangedEvents);
    }
    history.Set(true); // would run a command that is gone
    EXPECT_TRUE(history.CanUndo());
}

} // namespace
} // namespace Vorin::DataModel::Objects
