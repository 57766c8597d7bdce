#include "layout/GroupLayoutCell.h"

#include "layout/TestCells.h"

#include <gtest/gtest.h>

namespace LayoutTest {
namespace {

using Vorin::Core::kDontOwn;
using Vorin::Core::kOwn;

std::vector<int> GetWidths(const std::vector<CLeaf*>& leaves) {
    std::vector<int> widths;
    for (const CLeaf* leaf : leaves) {
        widths.push_back(leaf->GetSize().width);
    }
    return widths;
}

TEST(GroupLayoutCellTest, EmptyGroupsNeedTheirMarginsAlongTheLineOnly) {
    CGroupLayoutCell row(3, 4, 5, kLayoutRow);
    CGroupLayoutCell column(3, 4, 5, kLayoutColumn);
    CGroupLayoutCell stack(3, 4, 5, kLayoutStack);
    for (CGroupLayoutCell* group : {&row, &column, &stack}) {
        Start(*group);
    }
    EXPECT_EQ(row.GetSize(), (C2DSize{6, 0}));
    EXPECT_EQ(column.GetSize(), (C2DSize{0, 8}));
    EXPECT_EQ(stack.GetSize(), (C2DSize{0, 0}));
}

TEST(GroupLayoutCellTest, ARowIsAsWideAsItsChildrenWithSpacingAndMargins) {
    CGroupLayoutCell row(3, 4, 5, kLayoutRow);
    AddLeaf(row, {10, 20});
    AddLeaf(row, {30, 7});
    Start(row);
    EXPECT_EQ(row.GetSize(), (C2DSize{3 + 10 + 5 + 30 + 3, 20 + 8}));
}

TEST(GroupLayoutCellTest, AColumnIsARowWithTheAxesExchanged) {
    CGroupLayoutCell column(3, 4, 5, kLayoutColumn);
    AddLeaf(column, {10, 20});
    CLeaf& second = AddLeaf(column, {30, 7});
    Start(column, {100, 200});
    EXPECT_EQ(column.GetSize(), (C2DSize{36, 4 + 20 + 5 + 7 + 4}));
    EXPECT_EQ(second.place, (C2DPoint{103, 229}));
}

TEST(GroupLayoutCellTest, AStackIsAsLargeAsItsLargestChild) {
    CGroupLayoutCell stack(3, 4, 5, kLayoutStack);
    AddLeaf(stack, {10, 20});
    CLeaf& placed = AddLeaf(stack, {30, 7}, WithHPosition(15));
    Start(stack, {100, 200});
    EXPECT_EQ(stack.GetSize(), (C2DSize{15 + 30 + 3, 28}));
    EXPECT_EQ(placed.place, (C2DPoint{115, 210}));
}

TEST(GroupLayoutCellTest, AnAxisWithoutFitTakesTheContentSize) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    AddLeaf(row, {10, 20});
    Start(row);
    row.SetContentSize({99, 98});
    EXPECT_EQ(row.GetSize(), (C2DSize{10, 20}));
    row.SetFitWidth(false);
    EXPECT_EQ(row.GetSize(), (C2DSize{99, 20}));
    row.SetFitSize(true);
    EXPECT_EQ(row.GetSize(), (C2DSize{10, 20}));
    row.SetFitHeight(false);
    EXPECT_EQ(row.GetSize(), (C2DSize{10, 98}));
}

TEST(GroupLayoutCellTest, ThreeEqualFlexesShareTenPixelsAs343) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    SetSetSize(row, {10, 5});
    std::vector<CLeaf*> leaves;
    for (int i = 0; i < 3; ++i) {
        leaves.push_back(&AddLeaf(row, {0, 5}, WithFlex(1.0F)));
    }
    Start(row);
    EXPECT_EQ(GetWidths(leaves), (std::vector{3, 4, 3}));
    row.Relayout();
    row.Invalidate();
    EXPECT_EQ(GetWidths(leaves), (std::vector{3, 4, 3})) << "passes do not add up";
}

TEST(GroupLayoutCellTest, FlexAddsToWhatACellNeedsAndShrinksItWhereRoomLacks) {
    CGroupLayoutCell row(5, 0, 10, kLayoutRow);
    SetSetSize(row, {140, 5});
    std::vector<CLeaf*> leaves{&AddLeaf(row, {20, 5}, WithFlex(1.0F)), &AddLeaf(row, {40, 5}),
                               &AddLeaf(row, {10, 5}, WithFlex(3.0F))};
    Start(row); // 10 + 20 + 70 are taken, 40 are free
    EXPECT_EQ(GetWidths(leaves), (std::vector{30, 40, 40}));
    row.SetContentSize({80, 5}); // 20 too few
    EXPECT_EQ(GetWidths(leaves), (std::vector{15, 40, -5})) << "sizes may go negative";
}

TEST(GroupLayoutCellTest, AColumnFlexesHeights) {
    CGroupLayoutCell column(0, 0, 0, kLayoutColumn);
    SetSetSize(column, {5, 50});
    CLeaf& leaf = AddLeaf(column, {5, 10}, WithFlex(0.25F));
    Start(column);
    EXPECT_EQ(leaf.GetSize(), (C2DSize{5, 50}));
}

TEST(GroupLayoutCellTest, AStackKnowsNoFlex) {
    CGroupLayoutCell stack(0, 0, 0, kLayoutStack);
    SetSetSize(stack, {50, 50});
    CLeaf& leaf = AddLeaf(stack, {5, 10}, WithFlex(1.0F));
    Start(stack);
    EXPECT_EQ(leaf.GetSize(), (C2DSize{5, 10}));
}

TEST(GroupLayoutCellTest, FlexBehindAPositionIsSharedOutOncePerPass) {
    // The position begins the run anew, so a wider first cell does not make the row need more.
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    SetSetSize(row, {100, 5});
    CLeaf& flexible = AddLeaf(row, {10, 5}, WithFlex(1.0F));
    AddLeaf(row, {20, 5}, WithHPosition(50));
    Start(row);
    EXPECT_EQ(flexible.GetSize().width, 40);
    row.Relayout();
    EXPECT_EQ(flexible.GetSize().width, 40);
}

TEST(GroupLayoutCellTest, FractionsAreOfTheInnerSizeAndAskForNothing) {
    CGroupLayoutCell row(10, 5, 0, kLayoutRow);
    SetSetSize(row, {121, 31});
    CLeaf& half = AddLeaf(row, {1000, 1000}, WithFractions(0.5F, 0.5F));
    CLeaf& rest = AddLeaf(row, {0, 0}, WithFlex(1.0F));
    Start(row);
    EXPECT_EQ(half.GetSize(), (C2DSize{50, 10})); // 50.5 and 10.5
    EXPECT_EQ(rest.GetSize().width, 51);
    row.SetFitSize(true);
    EXPECT_EQ(row.GetSize(), (C2DSize{20, 10}));
}

TEST(GroupLayoutCellTest, AFractionOf0CountsAsOne) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    CLeaf& leaf = AddLeaf(row, {10, 10}, WithFractions(0.0F, -1.0F));
    Start(row);
    EXPECT_EQ(leaf.GetSize(), (C2DSize{0, 10}));
}

TEST(GroupLayoutCellTest, APositionResetsTheRun) {
    CGroupLayoutCell row(3, 0, 2, kLayoutRow);
    AddLeaf(row, {50, 5});
    CLeaf& placed = AddLeaf(row, {10, 5}, WithHPosition(20));
    CLeaf& next = AddLeaf(row, {6, 5});
    Start(row, {100, 0});
    EXPECT_EQ(placed.place.x, 120);
    EXPECT_EQ(next.place.x, 132);
    EXPECT_EQ(row.GetSize().width, 20 + 10 + 2 + 6 + 3) << "even a narrower row than its children";
}

TEST(GroupLayoutCellTest, APositionAcrossTheLineCountsWithOneMargin) {
    CGroupLayoutCell row(0, 4, 0, kLayoutRow);
    CLeaf& placed = AddLeaf(row, {10, 20}, WithVPosition(30));
    Start(row, {0, 100});
    EXPECT_EQ(row.GetSize().height, 54);
    EXPECT_EQ(placed.place.y, 130);
}

TEST(GroupLayoutCellTest, AlignmentAcrossTheLineUsesMarginsAtTheEdgesOnly) {
    CGroupLayoutCell row(0, 10, 0, kLayoutRow);
    SetSetSize(row, {100, 101});
    CLeaf& top = AddLeaf(row, {10, 20}, WithAlign(kAlignCenter, kAlignStart));
    CLeaf& middle = AddLeaf(row, {10, 20}, WithAlign(kAlignCenter, kAlignCenter));
    CLeaf& bottom = AddLeaf(row, {10, 20}, WithAlign(kAlignCenter, kAlignEnd));
    Start(row);
    EXPECT_EQ(top.place.y, 10);
    EXPECT_EQ(middle.place.y, 40);
    EXPECT_EQ(bottom.place.y, 71);
}

TEST(GroupLayoutCellTest, InternalAlignmentMovesTheRunAndRoundsTowardZero) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    SetSetSize(row, {100, 10});
    CLeaf& leaf = AddLeaf(row, {15, 10});
    Start(row);
    EXPECT_EQ(leaf.place.x, 0);
    row.SetInternalHAlign(kAlignCenter);
    EXPECT_EQ(leaf.place.x, 42);
    row.SetInternalHAlign(kAlignEnd);
    EXPECT_EQ(leaf.place.x, 85);
    row.SetInternalAlignment({kAlignCenter, kAlignEnd});
    row.SetContentSize({10, 10});
    EXPECT_EQ(leaf.place.x, -2) << "-5 / 2";
    EXPECT_EQ(row.GetInternalVAlign(), kAlignEnd);
}

TEST(GroupLayoutCellTest, AStackAlignsEachChildAlone) {
    CGroupLayoutCell stack(10, 20, 0, kLayoutStack);
    SetSetSize(stack, {100, 200});
    CLeaf& start = AddLeaf(stack, {10, 10}, WithAlign(kAlignStart, kAlignStart));
    CLeaf& center = AddLeaf(stack, {11, 11});
    CLeaf& end = AddLeaf(stack, {10, 10}, WithAlign(kAlignEnd, kAlignEnd));
    Start(stack);
    EXPECT_EQ(start.place, (C2DPoint{10, 20}));
    EXPECT_EQ(center.place, (C2DPoint{44, 94}));
    EXPECT_EQ(end.place, (C2DPoint{80, 170}));
}

TEST(GroupLayoutCellTest, AHiddenChildGoesTo00KeepsItsSizeAndAddsNoSpacing) {
    CGroupLayoutCell row(3, 0, 5, kLayoutRow);
    AddLeaf(row, {10, 10});
    CLeaf& hidden = AddLeaf(row, {20, 10});
    CLeaf& last = AddLeaf(row, {30, 10});
    Start(row, {100, 100});
    hidden.SetVisible(false);
    EXPECT_EQ(hidden.place, (C2DPoint{0, 0}));
    EXPECT_EQ(hidden.GetPosition(), (C2DPoint{0, 0}));
    EXPECT_EQ(hidden.GetSize(), (C2DSize{20, 10}));
    EXPECT_EQ(last.place, (C2DPoint{118, 100}));
    EXPECT_EQ(row.GetSize().width, 51);
}

TEST(GroupLayoutCellTest, AHiddenChildOfAStackStaysAtItsAlignedPlace) {
    CGroupLayoutCell stack(0, 0, 0, kLayoutStack);
    SetSetSize(stack, {100, 100});
    CLeaf& hidden = AddLeaf(stack, {20, 10}, WithAlign(kAlignEnd, kAlignEnd));
    Start(stack, {1000, 0});
    hidden.SetVisible(false);
    EXPECT_EQ(hidden.place, (C2DPoint{1080, 90}));
}

TEST(GroupLayoutCellTest, WhereTheFirstChildHasItsEventsOffNoneGetsThemBack) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    CLeaf& first = AddLeaf(row, {10, 10});
    CLeaf& second = AddLeaf(row, {10, 10});
    Start(row);
    second.EnableEvents(false);
    row.PlaceAt({0, 0});
    EXPECT_TRUE(second.EnableEvents(true)) << "the first one's decide, and they were on";
    first.EnableEvents(false);
    row.PlaceAt({0, 0});
    EXPECT_FALSE(second.EnableEvents(true));
}

TEST(GroupLayoutCellTest, AnOptionRecomputesTheGroupAndNotTheParent) {
    CWatchedGroup root(0, 0, 0, kLayoutColumn);
    auto* row = new CWatchedGroup(0, 0, 0, kLayoutRow);
    root.AddChild(row, {}, kOwn);
    SetSetSize(*row, {100, 50});
    auto* leaf = new CLeaf({10, 10});
    ILayoutOptions* options = row->AddChild(leaf, {}, kOwn);
    Start(root);
    root.placeCount = row->placeCount = 0;
    options->SetVAlign(kAlignEnd);
    EXPECT_EQ(leaf->place, (C2DPoint{0, 40}));
    EXPECT_EQ(row->placeCount, 1);
    EXPECT_EQ(root.placeCount, 0);
}

TEST(GroupLayoutCellTest, AChangeClimbsAsFarAsSizesChange) {
    CWatchedGroup root(0, 0, 0, kLayoutColumn);
    auto* middle = new CWatchedGroup(0, 0, 0, kLayoutRow);
    root.AddChild(middle, {}, kOwn);
    SetSetSize(*middle, {100, 50});
    auto* inner = new CWatchedGroup(0, 0, 0, kLayoutRow);
    middle->AddChild(inner, {}, kOwn);
    CLeaf& leaf = AddLeaf(*inner, {10, 10});
    Start(root);
    root.placeCount = middle->placeCount = inner->placeCount = leaf.placeCount = 0;
    leaf.SetContentSize({20, 10});
    EXPECT_EQ(inner->GetSize(), (C2DSize{20, 10}));
    EXPECT_EQ(root.placeCount, 0);
    EXPECT_EQ(middle->placeCount, 1);
    EXPECT_EQ(inner->placeCount, 1);
    EXPECT_EQ(leaf.placeCount, 1);
}

TEST(GroupLayoutCellTest, ACellThatComesToNeedJustWhatFlexGaveItAsksItsParentAllTheSame) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    SetSetSize(row, {100, 10});
    CLeaf& first = AddLeaf(row, {10, 10}, WithFlex(1.0F));
    CLeaf& second = AddLeaf(row, {10, 10}, WithFlex(1.0F));
    Start(row);
    ASSERT_EQ(first.GetSize().width, 50);
    first.SetContentSize({50, 10});
    EXPECT_EQ(first.GetSize().width, 70);
    EXPECT_EQ(second.GetSize().width, 30);
}

TEST(GroupLayoutCellTest, TheInsertPointMovesBehindWhatWasAdded) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    EXPECT_EQ(row.GetInsertAfter(), nullptr);
    CLeaf& a = AddLeaf(row, {1, 1});
    CLeaf& b = AddLeaf(row, {1, 1});
    EXPECT_EQ(row.GetInsertAfter(), &b);
    row.SetInsertAfter(nullptr);
    EXPECT_EQ(row.GetInsertAfter(), nullptr);
    CLeaf& c = AddLeaf(row, {1, 1});
    EXPECT_EQ(row.GetInsertAfter(), &c);
    row.SetInsertAfter(&a);
    EXPECT_EQ(row.GetInsertAfter(), &a);
    CLeaf unknown({1, 1});
    row.SetInsertAfter(&unknown);
    EXPECT_EQ(row.GetInsertAfter(), &b);
    Start(row);
    EXPECT_EQ(c.place.x, 0);
    EXPECT_EQ(a.place.x, 1);
    EXPECT_EQ(b.place.x, 2);
}

TEST(GroupLayoutCellTest, RemovingResetsTheInsertPointAlsoForAnUnknownCell) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    AddLeaf(row, {1, 1});
    CLeaf& b = AddLeaf(row, {1, 1});
    CLeaf unknown({1, 1});
    row.SetInsertAfter(nullptr);
    row.RemoveChild(&unknown, true);
    EXPECT_EQ(row.GetInsertAfter(), &b);
    row.SetInsertAfter(nullptr);
    row.RemoveChild(&b, true);
    EXPECT_NE(row.GetInsertAfter(), nullptr);
    row.RemoveChild(nullptr, true);
}

TEST(GroupLayoutCellTest, ANullCellIsNotAdded) {
    CGroupLayoutCell row(0, 0, 0, kLayoutRow);
    EXPECT_EQ(row.AddChild(nullptr, {}, kOwn), nullptr);
}

class CDyingCell : public CLeaf {
public:
    explicit CDyingCell(int& deathCount) : CLeaf({1, 1}), deaths(deathCount) {}
    ~CDyingCell() override { ++deaths; }

private:
    int& deaths;
};

TEST(GroupLayoutCellTest, OnlyOwnedChildrenAreDestroyed) {
    int deaths = 0;
    const auto borrowed = std::make_unique<CDyingCell>(deaths);
    const auto kept = std::make_unique<CDyingCell>(deaths);
    {
        CGroupLayoutCell row(0, 0, 0, kLayoutRow);
        auto* owned = new CDyingCell(deaths);
        row.AddChild(owned, {}, kOwn);
        row.AddChild(borrowed.get(), {}, kDontOwn);
        row.RemoveChild(borrowed.get(), true);
        EXPECT_EQ(deaths, 0);
        row.RemoveChild(owned, true);
        EXPECT_EQ(deaths, 1);
        row.AddChild(kept.get(), {}, kOwn);
        row.RemoveChild(kept.get(), false);
        EXPECT_EQ(deaths, 1);
        row.AddChild(new CDyingCell(deaths), {}, kOwn);
        row.AddChild(borrowed.get(), {}, kDontOwn);
        Start(row);
        row.Clear();
        EXPECT_EQ(deaths, 2);
        EXPECT_FALSE(borrowed->HasParent());
        EXPECT_EQ(row.GetSize(), C2DSize());
        EXPECT_EQ(row.GetInsertAfter(), nullptr);
        row.AddChild(new CDyingCell(deaths), {}, kOwn);
        row.AddChild(borrowed.get(), {}, kDontOwn);
    }
    EXPECT_EQ(deaths, 3);
}

TEST(GroupLayoutCellTest, MarginSpacingAndTypeLayOutAgain) {
    CGroupLayoutCell group(0, 0, 0, kLayoutRow);
    AddLeaf(group, {10, 10});
    CLeaf& second = AddLeaf(group, {10, 10});
    Start(group);
    group.SetHMargin(4);
    group.SetSpacing(3);
    EXPECT_EQ(second.place, (C2DPoint{17, 0}));
    group.SetLayoutType(kLayoutColumn);
    group.SetVMargin(1);
    EXPECT_EQ(second.place, (C2DPoint{4, 14}));
    EXPECT_EQ(group.GetSize(), (C2DSize{18, 25}));
}

} // namespace
} // namespace LayoutTest
