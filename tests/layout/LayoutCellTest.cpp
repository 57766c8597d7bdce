#include "layout/LayoutCell.h"

#include "layout/TestCells.h"

#include <gtest/gtest.h>

namespace LayoutTest {
namespace {

TEST(LayoutCellTest, StartsVisibleWithoutParentAndWithUpdatesOff) {
    CWatchedGroup cell(0, 0, 0, kLayoutRow);
    EXPECT_TRUE(cell.IsVisible());
    EXPECT_TRUE(cell.IsVisibleInTree());
    EXPECT_FALSE(cell.HasParent());
    EXPECT_FALSE(cell.UpdatesEnabled());
    EXPECT_EQ(cell.GetSize(), C2DSize());
    EXPECT_EQ(cell.GetPosition(), C2DPoint());
    EXPECT_EQ(cell.GetOffset(), C2DVector());
    EXPECT_TRUE(cell.EnableEvents(true)) << "events are on";
}

TEST(LayoutCellTest, NothingIsComputedBeforeUpdatesAreOn) {
    CWatchedGroup row(3, 4, 0, kLayoutRow);
    CLeaf& leaf = AddLeaf(row, {10, 20});
    EXPECT_EQ(row.placeCount, 0);
    EXPECT_EQ(row.GetSize(), C2DSize());
    row.EnableUpdates(true);
    EXPECT_TRUE(leaf.UpdatesEnabled());
    EXPECT_EQ(row.GetSize(), (C2DSize{16, 28}));
}

TEST(LayoutCellTest, SetSizeKeepsAForcedSideAndFiresAllTheSame) {
    CLeaf cell({0, 0});
    cell.SetFixedWidth(30);
    CEventCounter changes(cell.GetSizeChangedEvent());
    cell.SetSize({40, 50});
    EXPECT_EQ(cell.GetSize(), (C2DSize{30, 50}));
    EXPECT_EQ(changes.Take(), 1);
    cell.SetSize({40, 50}); // only the forced side differs
    EXPECT_EQ(cell.GetSize(), (C2DSize{30, 50}));
    EXPECT_EQ(changes.Take(), 1);
    cell.SetSize({30, 50});
    EXPECT_EQ(changes.Take(), 0);
    cell.SetFixedHeight(50);
    cell.SetSize({1, 2});
    EXPECT_EQ(cell.GetSize(), (C2DSize{30, 50}));
    EXPECT_EQ(changes.Take(), 0);
}

TEST(LayoutCellTest, AFixedSizeFiresAndLaysOutTheParentAgain) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    CLeaf& first = AddLeaf(row, {10, 10});
    CLeaf& second = AddLeaf(row, {10, 10});
    Start(row);
    CEventCounter changes(first.GetSizeChangedEvent());
    first.SetFixedSize({25, 15});
    EXPECT_EQ(changes.Take(), 1);
    EXPECT_EQ(row.GetSize(), (C2DSize{35, 15}));
    EXPECT_EQ(second.place, (C2DPoint{25, 2}));
    first.SetFixedSize({25, 15});
    EXPECT_EQ(changes.Take(), 0);
    first.SetContentSize({99, 99});
    EXPECT_EQ(first.GetSize(), (C2DSize{25, 15})) << "a fixed size stays";
}

TEST(LayoutCellTest, AFixedSizeOfARootIsLaidOutAtOnce) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    CLeaf& leaf = AddLeaf(row, {10, 10}, WithFlex(1.0F));
    Start(row);
    row.SetFixedWidth(50);
    EXPECT_EQ(leaf.GetSize(), (C2DSize{50, 10}));
}

TEST(LayoutCellTest, ASideThatWasOnlyGivenCountsInTheParentOnceItIsFixed) {
    CWatchedGroup outer(0, 0, 0, kLayoutRow);
    SetSetSize(outer, {100, 10});
    CLeaf& first = AddLeaf(outer, {10, 10}, WithFlex(1.0F));
    CLeaf& second = AddLeaf(outer, {10, 10}, WithFlex(1.0F));
    Start(outer);
    ASSERT_EQ(first.GetSize().width, 50);
    first.SetFixedWidth(50);
    // 40 pixels are free; the fixed cell cannot take its half.
    EXPECT_EQ(second.GetSize().width, 30);
}

TEST(LayoutCellTest, VisibilityInTreeNeedsAllParents) {
    CGroupLayoutCell root(0, 0, 0, kLayoutColumn);
    auto* row = new CGroupLayoutCell(0, 0, 0, kLayoutRow);
    root.AddChild(row, {}, Vorin::Core::kOwn);
    CLeaf& leaf = AddLeaf(*row, {1, 1});
    EXPECT_TRUE(leaf.IsVisibleInTree());
    row->SetVisible(false);
    EXPECT_TRUE(leaf.IsVisible());
    EXPECT_FALSE(leaf.IsVisibleInTree());
    row->SetVisible(true);
    leaf.SetVisible(false);
    EXPECT_FALSE(leaf.IsVisibleInTree());
}

TEST(LayoutCellTest, ARootThatIsHiddenIsPlacedAndNothingElse) {
    CWatchedGroup root(0, 0, 0, kLayoutRow);
    Start(root, {5, 6});
    root.SetVisible(false);
    EXPECT_FALSE(root.IsVisible());
    EXPECT_EQ(root.place, (C2DPoint{5, 6}));
}

TEST(LayoutCellTest, HidingLaysOutTheParentAlsoWhenNoSizeChanges) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    SetSetSize(row, {100, 10});
    CLeaf& first = AddLeaf(row, {10, 10});
    CLeaf& second = AddLeaf(row, {10, 10});
    Start(row);
    ASSERT_EQ(second.place, (C2DPoint{10, 0}));
    first.SetVisible(false);
    EXPECT_EQ(second.place, (C2DPoint{0, 0}));
    first.SetVisible(true);
    EXPECT_EQ(second.place, (C2DPoint{10, 0}));
}

TEST(LayoutCellTest, AVisibilityChangedWithUpdatesOffIsMadeUpFor) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    CLeaf& first = AddLeaf(row, {10, 10});
    CLeaf& second = AddLeaf(row, {10, 10});
    Start(row);
    row.EnableUpdates(false);
    first.SetVisible(false);
    EXPECT_EQ(second.place, (C2DPoint{10, 0}));
    row.EnableUpdates(true);
    EXPECT_EQ(second.place, (C2DPoint{0, 0}));
    EXPECT_EQ(row.GetSize(), (C2DSize{10, 10}));
}

TEST(LayoutCellTest, AnOffsetMovesTheCellAtOnceAndNotItsRelativePosition) {
    CWatchedGroup row(2, 3, 0, kLayoutRow);
    auto* inner = new CWatchedGroup(0, 0, 0, kLayoutRow);
    row.AddChild(inner, {}, Vorin::Core::kOwn);
    CLeaf& leaf = AddLeaf(*inner, {10, 10});
    Start(row, {100, 100});
    ASSERT_EQ(inner->place, (C2DPoint{102, 103}));
    ASSERT_EQ(leaf.place, (C2DPoint{102, 103}));
    inner->SetOffset({7, -1});
    EXPECT_EQ(inner->place, (C2DPoint{102, 103})) << "the place is that before the offset";
    EXPECT_EQ(leaf.place, (C2DPoint{109, 102}));
    EXPECT_EQ(inner->GetPosition(), (C2DPoint{0, 0}));
    EXPECT_EQ(leaf.GetPosition(), (C2DPoint{0, 0}));
    const int before = inner->placeCount;
    inner->SetOffset({7, -1});
    EXPECT_EQ(inner->placeCount, before);
}

TEST(LayoutCellTest, RelativePositionsCountFromTheParentsContent) {
    CWatchedGroup row(2, 3, 5, kLayoutRow);
    AddLeaf(row, {10, 10});
    CLeaf& second = AddLeaf(row, {10, 20});
    Start(row, {100, 200});
    EXPECT_EQ(second.place, (C2DPoint{117, 203}));
    EXPECT_EQ(second.GetPosition(), (C2DPoint{15, 0}));
}

TEST(LayoutCellTest, APassFiresEachEventOnceAfterTheLayoutIsFinished) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    SetSetSize(row, {100, 10});
    CLeaf& first = AddLeaf(row, {10, 10}, WithFlex(1.0F));
    CLeaf& second = AddLeaf(row, {10, 10}, WithFractions(0.5F, 1.0F));
    Start(row);
    ASSERT_EQ(first.GetSize().width, 50);
    CEventCounter firstSize(first.GetSizeChangedEvent());
    CEventCounter secondSize(second.GetSizeChangedEvent());
    CEventCounter secondPosition(second.GetPositionChangedEvent());
    row.SetContentSize({200, 10});
    EXPECT_EQ(firstSize.Take(), 1);
    EXPECT_EQ(secondSize.Take(), 1);
    EXPECT_EQ(secondPosition.Take(), 1);
    // Sizes fall to what the cells need and are given anew on the way: nobody hears of that.
    row.SetVMargin(1);
    EXPECT_EQ(firstSize.Take(), 0);
    EXPECT_EQ(secondSize.Take(), 1) << "two rows less";
    EXPECT_EQ(secondPosition.Take(), 0) << "it still begins where the content does";
}

TEST(LayoutCellTest, EventsSwitchedOnFireOnlyWhatDiffers) {
    CLeaf cell({0, 0});
    CEventCounter sizes(cell.GetSizeChangedEvent());
    CEventCounter positions(cell.GetPositionChangedEvent());
    EXPECT_TRUE(cell.EnableEvents(false));
    EXPECT_FALSE(cell.EnableEvents(false));
    cell.SetSize({5, 5});
    cell.SetSize({0, 0});
    cell.Place({3, 3}, {3, 3});
    EXPECT_EQ(sizes.Take() + positions.Take(), 0);
    EXPECT_FALSE(cell.EnableEvents(true));
    EXPECT_EQ(sizes.Take(), 0) << "the size is what it was";
    EXPECT_EQ(positions.Take(), 1);
    cell.SetSize({5, 5});
    EXPECT_EQ(sizes.Take(), 1);
}

TEST(LayoutCellTest, DetachLeavesTheParentAlive) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    CLeaf& leaf = AddLeaf(row, {10, 10});
    AddLeaf(row, {10, 10});
    Start(row);
    EXPECT_TRUE(leaf.HasParent());
    leaf.Detach();
    const std::unique_ptr<CLeaf> own(&leaf);
    EXPECT_FALSE(leaf.HasParent());
    EXPECT_EQ(row.GetSize(), (C2DSize{10, 10}));
    leaf.Detach();
    leaf.SetContentSize({50, 50}); // asks nobody any more
    EXPECT_EQ(row.GetSize(), (C2DSize{10, 10}));
}

TEST(LayoutCellTest, RelayoutPlacesWhereTheCellStands) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    CLeaf& leaf = AddLeaf(row, {10, 10});
    Start(row, {30, 40});
    row.EnableUpdates(false);
    leaf.SetContentSize({20, 10});
    row.Relayout();
    EXPECT_EQ(row.place, (C2DPoint{30, 40}));
}

TEST(LayoutCellTest, AListenerMayChangeTheSizeOfAnotherCell) {
    CWatchedGroup row(0, 0, 0, kLayoutRow);
    CLeaf& first = AddLeaf(row, {10, 10});
    CLeaf& second = AddLeaf(row, {10, 10});
    Start(row);
    struct CFollower {
        CLeaf& from;
        CLeaf& to;
        void Follow() { to.SetContentSize(from.GetSize()); }
    } follower{first, second};
    Vorin::Core::TCommand<CFollower> command(&follower, &CFollower::Follow);
    first.GetSizeChangedEvent().Connect(command);
    first.SetContentSize({30, 10});
    first.GetSizeChangedEvent().Disconnect(command);
    EXPECT_EQ(second.GetSize(), (C2DSize{30, 10}));
    EXPECT_EQ(row.GetSize(), (C2DSize{60, 10}));
}

} // namespace
} // namespace LayoutTest
