#include "layout/TableLayoutCell.h"

#include "layout/TestCells.h"

#include <gtest/gtest.h>

namespace LayoutTest {
namespace {

using Vorin::Core::kOwn;
using CRowSettings = CTableLayoutCell::CRowSettings;

TEST(TableLayoutCellTest, ColumnsAndRowsAreAsLargeAsTheirLargestCell) {
    CTableLayoutCell table(1, 2, 3, 4);
    table.AddRow({});
    AddLeaf(table, {10, 5});
    AddLeaf(table, {20, 8});
    table.AddRow({});
    CLeaf& wide = AddLeaf(table, {30, 6}, WithAlign(kAlignStart, kAlignStart));
    CLeaf& small = AddLeaf(table, {2, 2}, WithAlign(kAlignEnd, kAlignEnd));
    Start(table, {100, 200});
    EXPECT_EQ(table.GetSize(), (C2DSize{1 + 30 + 3 + 20 + 1, 2 + 8 + 4 + 6 + 2}));
    EXPECT_EQ(wide.place, (C2DPoint{101, 214}));
    EXPECT_EQ(small.place, (C2DPoint{101 + 33 + 18, 214 + 4}));
    EXPECT_EQ(small.GetPosition(), (C2DPoint{51, 16}));
}

TEST(TableLayoutCellTest, CellsAreCenteredInTheirBox) {
    CTableLayoutCell table(0, 0, 0, 0);
    table.AddRow({});
    AddLeaf(table, {20, 20});
    table.AddRow({});
    CLeaf& small = AddLeaf(table, {5, 4});
    Start(table);
    EXPECT_EQ(small.place, (C2DPoint{7, 20}));
}

TEST(TableLayoutCellTest, PositionsHaveNoEffect) {
    CTableLayoutCell table(0, 0, 0, 0);
    table.AddRow({});
    AddLeaf(table, {20, 20});
    CLeaf& cell = AddLeaf(table, {5, 20}, WithHPosition(100));
    Start(table);
    EXPECT_EQ(cell.place, (C2DPoint{20, 0}));
    EXPECT_EQ(table.GetSize(), (C2DSize{25, 20}));
}

TEST(TableLayoutCellTest, AFixedHeightGoesBeforeCellsAndFraction) {
    CTableLayoutCell table(0, 0, 0, 0);
    table.AddRow({0.5F, 30, 0.0F});
    AddLeaf(table, {10, 90});
    table.AddRow({});
    CLeaf& below = AddLeaf(table, {10, 10});
    Start(table);
    EXPECT_EQ(table.GetSize(), (C2DSize{10, 40}));
    EXPECT_EQ(below.place, (C2DPoint{0, 30}));
}

TEST(TableLayoutCellTest, ARowFractionIsOfTheInnerHeightAndNeedsNothing) {
    CTableLayoutCell table(0, 10, 0, 0);
    table.AddRow({0.5F, -1, 0.0F});
    CLeaf& filling = AddLeaf(table, {10, 70}, WithFractions(-1.0F, 1.0F));
    table.AddRow({});
    CLeaf& below = AddLeaf(table, {10, 10});
    Start(table);
    // 30 high: 10 of them inside, half of that for the row, which is now counted.
    EXPECT_EQ(table.GetSize(), (C2DSize{10, 30}));
    EXPECT_EQ(filling.GetSize(), (C2DSize{10, 5}));
    SetSetSize(table, {10, 120});
    EXPECT_EQ(filling.GetSize(), (C2DSize{10, 50}));
    EXPECT_EQ(below.place, (C2DPoint{0, 60}));
}

TEST(TableLayoutCellTest, CellFractionsAreOfTheTablesWidthAndTheRowsHeight) {
    CTableLayoutCell table(5, 0, 0, 0);
    SetSetSize(table, {110, 60});
    table.AddRow({-1.0F, 40, 0.0F});
    CLeaf& cell = AddLeaf(table, {1, 1}, WithFractions(0.25F, 0.5F));
    CLeaf& next = AddLeaf(table, {1, 1});
    Start(table);
    EXPECT_EQ(cell.GetSize(), (C2DSize{25, 20}));
    EXPECT_EQ(next.place.x, 30);
}

TEST(TableLayoutCellTest, RowsShareTheRoomByFlex) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {10, 100});
    table.AddRow({-1.0F, -1, 1.0F});
    CLeaf& first = AddLeaf(table, {10, 10}, WithFractions(-1.0F, 1.0F));
    table.AddRow({-1.0F, -1, 2.0F});
    CLeaf& second = AddLeaf(table, {10, 10}, WithFractions(-1.0F, 1.0F));
    Start(table);
    // Cells that fill their row need no height; 100 are shared as 33 and 67.
    EXPECT_EQ(first.GetSize().height, 33);
    EXPECT_EQ(second.GetSize().height, 67);
    EXPECT_EQ(second.place.y, 33);
    table.Relayout();
    EXPECT_EQ(second.GetSize().height, 67);
}

TEST(TableLayoutCellTest, FlexOfARowThatNoCellFillsIsMeasuredAway) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {10, 100});
    table.AddRow({-1.0F, -1, 1.0F});
    AddLeaf(table, {10, 10});
    table.AddRow({});
    CLeaf& second = AddLeaf(table, {10, 10});
    Start(table);
    EXPECT_EQ(second.place.y, 10);
}

TEST(TableLayoutCellTest, FlexOfARowWithAFractionAddsToIt) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {10, 100});
    table.AddRow({0.25F, -1, 1.0F});
    AddLeaf(table, {10, 10});
    table.AddRow({});
    CLeaf& second = AddLeaf(table, {10, 10});
    Start(table);
    EXPECT_EQ(second.place.y, 90);
}

TEST(TableLayoutCellTest, ColumnsShareTheRoomByTheirLargestFlex) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {100, 20});
    table.AddRow({});
    CLeaf& a = AddLeaf(table, {10, 10}, WithFlex(1.0F));
    CLeaf& b = AddLeaf(table, {30, 10}, WithFlex(2.0F));
    table.AddRow({});
    CLeaf& below = AddLeaf(table, {10, 10}, WithFlex(0.5F));
    CLeaf& last = AddLeaf(table, {5, 10}, WithAlign(kAlignStart, kAlignStart));
    Start(table); // 60 free, 20 per flex
    EXPECT_EQ(a.GetSize().width, 30);
    EXPECT_EQ(b.GetSize().width, 70);
    EXPECT_EQ(below.GetSize().width, 15) << "half of the column's 10, and half of its 20";
    EXPECT_EQ(last.place.x, 30);
    table.Relayout();
    EXPECT_EQ(b.GetSize().width, 70);
    EXPECT_EQ(below.GetSize().width, 15);
}

TEST(TableLayoutCellTest, AFlexibleCellFillsItsColumnAlsoWithoutRoomToShare) {
    CTableLayoutCell table(0, 0, 0, 0);
    table.AddRow({});
    AddLeaf(table, {40, 10});
    table.AddRow({});
    CLeaf& cell = AddLeaf(table, {10, 10}, WithFlex(1.0F));
    Start(table);
    EXPECT_EQ(cell.GetSize().width, 40);
}

TEST(TableLayoutCellTest, EachRowCarriesItsOwnRoundingError) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {10, 20});
    std::vector<CLeaf*> leaves;
    for (int row = 0; row < 2; ++row) {
        table.AddRow({});
        for (int i = 0; i < 3; ++i) {
            leaves.push_back(&AddLeaf(table, {0, 10}, WithFlex(1.0F)));
        }
    }
    Start(table);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(leaves[static_cast<std::size_t>(i)]->GetSize().width, i % 3 == 1 ? 4 : 3);
    }
}

TEST(TableLayoutCellTest, AHiddenCellTakesNoColumnAndGoesTo00) {
    CTableLayoutCell table(0, 0, 5, 0);
    table.AddRow({});
    CLeaf& hidden = AddLeaf(table, {10, 10});
    CLeaf& second = AddLeaf(table, {20, 10});
    CLeaf& third = AddLeaf(table, {30, 10});
    Start(table, {100, 0});
    hidden.SetVisible(false);
    EXPECT_EQ(hidden.place, (C2DPoint{0, 0}));
    EXPECT_EQ(second.place.x, 100);
    EXPECT_EQ(third.place.x, 125);
    EXPECT_EQ(table.GetSize().width, 20 + 30 + 2 * 5) << "the spacings of three columns";
}

TEST(TableLayoutCellTest, BehindAHiddenCellFlexReadsTheNextColumn) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {100, 20});
    table.AddRow({});
    CLeaf& hidden = AddLeaf(table, {10, 10});
    CLeaf& flexible = AddLeaf(table, {20, 10}, WithFlex(1.0F));
    table.AddRow({});
    AddLeaf(table, {30, 10});
    AddLeaf(table, {40, 10}, WithFlex(4.0F));
    hidden.SetVisible(false);
    Start(table);
    // Columns by shown cells: 30 and 40 wide, of flex 1 and 4; 30 free, 6 per flex. The flexible
    // cell is shown in column 0 and counted in column 1: 40 * 1 / 4 + 6.
    EXPECT_EQ(flexible.GetSize().width, 16);
}

TEST(TableLayoutCellTest, BehindAHiddenCellAColumnWithoutFlexMakesNoOverflow) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {100, 20});
    table.AddRow({});
    AddLeaf(table, {10, 10}).SetVisible(false);
    CLeaf& flexible = AddLeaf(table, {20, 10}, WithFlex(1.0F));
    Start(table); // column 1 has neither width nor flex: 0 / 0, and the share of 80
    EXPECT_EQ(flexible.GetSize().width, 80);
}

TEST(TableLayoutCellTest, InternalAlignmentMovesTheWholeTable) {
    CTableLayoutCell table(0, 0, 0, 0);
    SetSetSize(table, {100, 50});
    table.AddRow({});
    CLeaf& cell = AddLeaf(table, {20, 10});
    Start(table);
    table.SetInternalAlignment({kAlignEnd, kAlignCenter});
    EXPECT_EQ(cell.place, (C2DPoint{80, 20}));
}

TEST(TableLayoutCellTest, WithoutACellTheMinimumSizeStays) {
    CTableLayoutCell table(5, 5, 0, 0);
    Start(table);
    EXPECT_EQ(table.GetSize(), (C2DSize{0, 0}));
    table.AddRow({});
    EXPECT_EQ(table.GetSize(), (C2DSize{0, 0}));
    CLeaf& cell = AddLeaf(table, {20, 10});
    EXPECT_EQ(table.GetSize(), (C2DSize{30, 20}));
    table.RemoveCell(&cell, true);
    EXPECT_EQ(table.GetSize(), (C2DSize{30, 20}));
}

TEST(TableLayoutCellTest, WithoutARowNoCellIsAdded) {
    CTableLayoutCell table(0, 0, 0, 0);
    CLeaf leaf({1, 1});
    EXPECT_EQ(table.AddCell(&leaf, {}, Vorin::Core::kDontOwn), nullptr);
    ITableLayoutRow* row = table.AddRow({});
    EXPECT_EQ(table.AddCell(nullptr, {}, kOwn), nullptr);
    table.SetInsertRowAfter(nullptr);
    EXPECT_EQ(table.AddCell(&leaf, {}, Vorin::Core::kDontOwn), nullptr);
    EXPECT_EQ(table.GetInsertCellAfter(), nullptr);
    table.SetInsertRowAfter(row);
    EXPECT_NE(table.AddCell(&leaf, {}, Vorin::Core::kDontOwn), nullptr);
}

TEST(TableLayoutCellTest, RowsAndCellsGoToTheirInsertPoints) {
    CTableLayoutCell table(0, 0, 0, 0);
    ITableLayoutRow* first = table.AddRow({});
    CLeaf& a = AddLeaf(table, {10, 10});
    ITableLayoutRow* third = table.AddRow({});
    CLeaf& c = AddLeaf(table, {10, 10});
    table.SetInsertRowAfter(first);
    EXPECT_EQ(table.GetInsertRowAfter(), first);
    EXPECT_EQ(table.GetInsertCellAfter(), &a);
    ITableLayoutRow* second = table.AddRow({});
    EXPECT_EQ(table.GetInsertRowAfter(), second);
    EXPECT_EQ(table.GetInsertCellAfter(), nullptr);
    CLeaf& b = AddLeaf(table, {10, 10});
    table.SetInsertCellAfter(nullptr);
    CLeaf& beforeB = AddLeaf(table, {10, 10});
    table.SetInsertCellAfter(&c);
    EXPECT_EQ(table.GetInsertRowAfter(), third) << "the row of the cell";
    EXPECT_EQ(table.GetInsertCellAfter(), &c);
    CLeaf& behindC = AddLeaf(table, {10, 10});
    Start(table);
    EXPECT_EQ(a.place, (C2DPoint{0, 0}));
    EXPECT_EQ(beforeB.place, (C2DPoint{0, 10}));
    EXPECT_EQ(b.place, (C2DPoint{10, 10}));
    EXPECT_EQ(c.place, (C2DPoint{0, 20}));
    EXPECT_EQ(behindC.place, (C2DPoint{10, 20}));
    CLeaf unknown({1, 1});
    table.SetInsertRowAfter(first);
    table.SetInsertCellAfter(&unknown);
    EXPECT_EQ(table.GetInsertCellAfter(), &a) << "the end of the row";
}

TEST(TableLayoutCellTest, RemovingTheLongestRowDropsItsColumns) {
    CTableLayoutCell table(0, 0, 7, 0);
    table.AddRow({});
    AddLeaf(table, {10, 10});
    ITableLayoutRow* longest = table.AddRow({});
    AddLeaf(table, {20, 10});
    AddLeaf(table, {30, 10});
    Start(table);
    ASSERT_EQ(table.GetSize(), (C2DSize{57, 20}));
    longest->Remove();
    EXPECT_EQ(table.GetSize(), (C2DSize{10, 10}));
    EXPECT_NE(table.GetInsertRowAfter(), nullptr);
}

TEST(TableLayoutCellTest, RemovingACellDropsItsColumnAndAnUnknownOneNothing) {
    CTableLayoutCell table(0, 0, 7, 0);
    table.AddRow({});
    AddLeaf(table, {10, 10});
    CLeaf& second = AddLeaf(table, {20, 10});
    Start(table);
    CLeaf unknown({1, 1});
    table.RemoveCell(&unknown, true);
    EXPECT_EQ(table.GetSize(), (C2DSize{37, 10}));
    second.Detach();
    const std::unique_ptr<CLeaf> own(&second);
    EXPECT_EQ(table.GetSize(), (C2DSize{10, 10}));
    EXPECT_FALSE(second.HasParent());
}

TEST(TableLayoutCellTest, ClearRemovesRowsAndCells) {
    CTableLayoutCell table(0, 0, 0, 0);
    CLeaf borrowed({1, 1});
    table.AddRow({});
    AddLeaf(table, {10, 10});
    table.AddCell(&borrowed, {}, Vorin::Core::kDontOwn);
    Start(table);
    table.Clear();
    EXPECT_FALSE(borrowed.HasParent());
    EXPECT_EQ(table.GetInsertRowAfter(), nullptr);
    table.AddRow({});
    AddLeaf(table, {5, 6});
    EXPECT_EQ(table.GetSize(), (C2DSize{5, 6}));
}

TEST(TableLayoutCellTest, OptionsAndSpacingLayOutAgain) {
    CTableLayoutCell table(0, 0, 0, 0);
    table.AddRow({});
    AddLeaf(table, {10, 30});
    auto* leaf = new CLeaf({10, 10});
    ILayoutOptions* options = table.AddCell(leaf, {}, kOwn);
    table.AddRow({});
    CLeaf& below = AddLeaf(table, {10, 10});
    Start(table);
    options->SetVAlign(kAlignEnd);
    EXPECT_EQ(leaf->place, (C2DPoint{10, 20}));
    table.SetHSpacing(3);
    table.SetVSpacing(4);
    EXPECT_EQ(leaf->place, (C2DPoint{13, 20}));
    EXPECT_EQ(below.place, (C2DPoint{0, 34}));
}

TEST(TableLayoutCellTest, WhereTheFirstCellHasItsEventsOffNoneGetsThemBack) {
    CTableLayoutCell table(0, 0, 0, 0);
    table.AddRow({});
    CLeaf& first = AddLeaf(table, {10, 10});
    table.AddRow({});
    CLeaf& second = AddLeaf(table, {10, 10});
    Start(table);
    first.EnableEvents(false);
    table.PlaceAt({0, 0});
    EXPECT_FALSE(second.EnableEvents(true));
}

} // namespace
} // namespace LayoutTest
