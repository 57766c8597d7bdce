#include "layout/TestCells.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <random>

#include <gtest/gtest.h>

namespace LayoutTest {
namespace {

using Vorin::Core::kOwn;

/// A column of rows of ten leaves, as a skin of many small controls.
class CSkin {
public:
    explicit CSkin(int leafCount) {
        for (int i = 0; i < leafCount; ++i) {
            if (i % 10 == 0) {
                rows.push_back(new CWatchedGroup(1, 1, 2, kLayoutRow));
                root.AddChild(rows.back(), {}, kOwn);
            }
            leaves.push_back(&AddLeaf(*rows.back(), {8, 6}));
        }
        Start(root);
    }

    int TakePlaceCount() {
        int count = root.placeCount;
        root.placeCount = 0;
        for (auto* row : rows) {
            count += row->placeCount;
            row->placeCount = 0;
        }
        for (auto* leaf : leaves) {
            count += leaf->placeCount;
            leaf->placeCount = 0;
        }
        return count;
    }

    CWatchedGroup root{0, 0, 0, kLayoutColumn};
    std::vector<CWatchedGroup*> rows;
    std::vector<CLeaf*> leaves;
};

TEST(LayoutPassTest, TheMarginOfALeafThatKeepsItsSizeTouchesThatLeafAlone) {
    CSkin skin(2000);
    CLeaf& leaf = *skin.leaves[1234];
    AddLeaf(leaf, {1, 1}).EnableUpdates(true);
    skin.TakePlaceCount();
    leaf.SetHMargin(3);
    EXPECT_EQ(leaf.placeCount, 1);
    EXPECT_EQ(skin.TakePlaceCount(), 1);
}

TEST(LayoutPassTest, ALeafThatGrowsWithinItsRowTouchesThatRowAlone) {
    CSkin skin(2000);
    CWatchedGroup& row = *skin.rows[77];
    SetSetSize(row, {200, 20});
    skin.TakePlaceCount();
    skin.leaves[774]->SetContentSize({9, 6});
    EXPECT_EQ(row.placeCount, 1);
    EXPECT_EQ(skin.TakePlaceCount(), 11);
}

TEST(LayoutPassTest, AFullPassPlacesEachCellOnce) {
    for (const int leafCount : {200, 2000}) {
        CSkin skin(leafCount);
        skin.TakePlaceCount();
        skin.root.Invalidate();
        EXPECT_EQ(skin.TakePlaceCount(), 1 + leafCount / 10 + leafCount);
    }
}

TEST(LayoutPassTest, FlexNeverLosesAPixel) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> childCounts(1, 12);
    std::uniform_int_distribution<int> sizes(0, 400);
    std::uniform_real_distribution<float> flexes(0.01F, 9.0F);
    for (int round = 0; round < 10000; ++round) {
        const bool isRow = round % 2 == 0;
        CGroupLayoutCell group(sizes(random) / 20, sizes(random) / 20, sizes(random) / 20,
                               isRow ? kLayoutRow : kLayoutColumn);
        SetSetSize(group, {sizes(random) * 3, sizes(random) * 3});
        std::vector<CLeaf*> leaves;
        for (int i = childCounts(random); i > 0; --i) {
            leaves.push_back(
                &AddLeaf(group, {sizes(random), sizes(random)}, WithFlex(flexes(random))));
        }
        Start(group);
        const auto along = [isRow](const C2DSize& size) {
            return isRow ? size.width : size.height;
        };
        int sum = 2 * (isRow ? group.GetHMargin() : group.GetVMargin()) +
                  (static_cast<int>(leaves.size()) - 1) * group.GetSpacing();
        for (const CLeaf* leaf : leaves) {
            sum += along(leaf->GetSize());
        }
        ASSERT_EQ(sum, along(group.GetSize())) << "round " << round;
    }
}

/// A value that is as likely extreme as it is not.
int MakeExtreme(std::mt19937& random) {
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kValues[] = {kMin, kMin + 1, -1000, -1, 0, 1, 1000, kMax - 1, kMax};
    return kValues[random() % std::size(kValues)];
}

float MakeExtremeFloat(std::mt19937& random) {
    using Limits = std::numeric_limits<float>;
    constexpr float kValues[] = {
        -Limits::infinity(), Limits::lowest(),  -1.0F, 0.0F, Limits::denorm_min(), 0.5F, 1e9F,
        Limits::max(),       Limits::infinity()};
    return kValues[random() % std::size(kValues)];
}

// What is tested here is that the sanitizer finds nothing.
TEST(LayoutPassTest, SizesAtTheEndsOfAnIntDoNotOverflow) {
    std::mt19937 random(4);
    const auto extremeSize = [&] { return C2DSize{MakeExtreme(random), MakeExtreme(random)}; };
    const auto setUp = [&](CBaseGroupLayoutCell& cell) {
        cell.SetInternalAlignment({static_cast<int>(random() % 3), static_cast<int>(random() % 3)});
        cell.SetFitWidth(random() % 2 == 0);
        cell.SetFitHeight(random() % 2 == 0);
        cell.SetContentSize(extremeSize());
        cell.SetOffset({MakeExtreme(random), MakeExtreme(random)});
    };
    const auto extremeOptions = [&] {
        CLayoutOptions options =
            WithAlign(static_cast<int>(random() % 3), static_cast<int>(random() % 3));
        options.SetFlex(MakeExtremeFloat(random));
        if (random() % 2 == 0) {
            options.SetWidthFraction(MakeExtremeFloat(random));
            options.SetHeightFraction(MakeExtremeFloat(random));
        }
        if (random() % 3 == 0) {
            options.SetHPosition(MakeExtreme(random));
            options.SetVPosition(MakeExtreme(random));
        }
        return options;
    };
    for (int round = 0; round < 3000; ++round) {
        CGroupLayoutCell root(MakeExtreme(random), MakeExtreme(random), MakeExtreme(random),
                              static_cast<int>(random() % 3));
        setUp(root);
        for (int i = 0; i < 3; ++i) {
            auto* group = new CGroupLayoutCell(MakeExtreme(random), MakeExtreme(random),
                                               MakeExtreme(random), static_cast<int>(random() % 3));
            setUp(*group);
            root.AddChild(group, extremeOptions(), kOwn);
            AddLeaf(*group, extremeSize(), extremeOptions());
            AddLeaf(*group, extremeSize(), extremeOptions());
            auto* table = new CTableLayoutCell(MakeExtreme(random), MakeExtreme(random),
                                               MakeExtreme(random), MakeExtreme(random));
            setUp(*table);
            root.AddChild(table, extremeOptions(), kOwn);
            for (int row = 0; row < 2; ++row) {
                table->AddRow(
                    {MakeExtremeFloat(random), MakeExtreme(random), MakeExtremeFloat(random)});
                AddLeaf(*table, extremeSize(), extremeOptions()).SetVisible(random() % 3 != 0);
                AddLeaf(*table, extremeSize(), extremeOptions());
            }
        }
        Start(root, {MakeExtreme(random), MakeExtreme(random)});
        root.SetHMargin(MakeExtreme(random));
    }
}

} // namespace
} // namespace LayoutTest
