// Random trees, laid out at once and built by single changes with updates on: both must come to the
// same layout. Only what is shown is compared: a hidden cell keeps whatever size it had.

#include "layout/TestCells.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace LayoutTest {
namespace {

using Vorin::Core::kOwn;
using CRowSettings = CTableLayoutCell::CRowSettings;

enum EKind { kRow, kColumn, kStack, kTable, kLeaf };

struct CPlan {
    EKind kind = kLeaf;
    int hMargin = 0;
    int vMargin = 0;
    int hSpacing = 0;
    int vSpacing = 0;
    bool fitWidth = true;
    bool fitHeight = true;
    C2DSize contentSize;
    CBaseGroupLayoutCell::CAlignment internalAlign;
    C2DVector offset;
    bool visible = true;
    bool fixedWidth = false;
    bool fixedHeight = false;
    C2DSize fixedSize;
    CLayoutOptions options;
    std::vector<std::unique_ptr<CPlan>> children;
    std::vector<CRowSettings> rows; // of a table, whose children fill the rows in turn
};

class CPlanner {
public:
    explicit CPlanner(std::mt19937& source) : random(source) {}

    int Pick(int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random);
    }
    bool Chance(int oneIn) { return Pick(1, oneIn) == 1; }
    float PickFraction() { return static_cast<float>(Pick(0, 12)) / 10.0F; }

    std::unique_ptr<CPlan> Make(int depth) {
        auto plan = std::make_unique<CPlan>();
        plan->kind = depth == 0 ? kLeaf : static_cast<EKind>(Pick(kRow, kLeaf));
        plan->hMargin = Pick(0, 5);
        plan->vMargin = Pick(0, 5);
        plan->hSpacing = Pick(-2, 6);
        plan->vSpacing = Pick(-2, 6);
        plan->fitWidth = plan->kind != kLeaf && !Chance(3);
        plan->fitHeight = plan->kind != kLeaf && !Chance(3);
        plan->contentSize = {Pick(0, 80), Pick(0, 80)};
        plan->internalAlign = {Pick(0, 2), Pick(0, 2)};
        plan->offset = {Chance(4) ? Pick(-9, 9) : 0, Chance(4) ? Pick(-9, 9) : 0};
        plan->visible = !Chance(6);
        plan->fixedWidth = Chance(12);
        plan->fixedHeight = Chance(12);
        plan->fixedSize = {Pick(0, 60), Pick(0, 60)};
        MakeOptions(plan->options);
        if (plan->kind != kLeaf) {
            for (int i = Pick(plan->kind == kTable ? 1 : 0, 5); i > 0; --i) {
                plan->children.push_back(Make(depth - 1));
            }
        }
        if (plan->kind == kTable) {
            for (int i = Pick(1, 3); i > 0; --i) {
                plan->rows.push_back({Chance(3) ? PickFraction() : -1.0F,
                                      Chance(4) ? Pick(0, 40) : -1,
                                      Chance(3) ? static_cast<float>(Pick(1, 3)) : 0.0F});
            }
        }
        return plan;
    }

private:
    void MakeOptions(CLayoutOptions& options) {
        options.SetHAlign(Pick(0, 2));
        options.SetVAlign(Pick(0, 2));
        if (Chance(5)) {
            options.SetHPosition(Pick(-10, 60));
        }
        if (Chance(5)) {
            options.SetVPosition(Pick(-10, 60));
        }
        if (Chance(4)) {
            options.SetWidthFraction(PickFraction());
        }
        if (Chance(4)) {
            options.SetHeightFraction(PickFraction());
        }
        if (Chance(3)) {
            options.SetFlex(static_cast<float>(Pick(1, 30)) / 10.0F);
        }
    }

    std::mt19937& random;
};

/// A tree made from a plan. `cells` are in the order of the plan, from the top.
struct CTree {
    std::unique_ptr<CBaseGroupLayoutCell> root;
    std::vector<CBaseGroupLayoutCell*> cells;
    std::vector<const C2DPoint*> places;
    std::vector<ILayoutOptions*> options;
    std::vector<const CPlan*> plans;
};

std::unique_ptr<CBaseGroupLayoutCell> MakeCell(const CPlan& plan, bool asPlanned) {
    const auto margin = [asPlanned](int planned) { return asPlanned ? planned : planned + 1; };
    if (plan.kind == kTable) {
        return std::make_unique<CWatchedTable>(margin(plan.hMargin), margin(plan.vMargin),
                                               margin(plan.hSpacing), margin(plan.vSpacing));
    }
    const int type = plan.kind == kColumn  ? kLayoutColumn
                     : plan.kind == kStack ? kLayoutStack
                                           : kLayoutRow;
    return std::make_unique<CWatchedGroup>(margin(plan.hMargin), margin(plan.vMargin),
                                           margin(plan.hSpacing), type);
}

const C2DPoint& GetPlaceOf(CBaseGroupLayoutCell& cell) {
    if (auto* table = dynamic_cast<CWatchedTable*>(&cell)) {
        return table->place;
    }
    return dynamic_cast<CWatchedGroup&>(cell).place;
}

void SetSpacing(CBaseGroupLayoutCell& cell, const CPlan& plan) {
    if (auto* table = dynamic_cast<CTableLayoutCell*>(&cell)) {
        table->SetHSpacing(plan.hSpacing);
        table->SetVSpacing(plan.vSpacing);
    } else {
        dynamic_cast<CGroupLayoutCell&>(cell).SetSpacing(plan.hSpacing);
    }
}

/// The setters that bring a cell to its plan, each a change of its own. The last few are of
/// its options, which a root has none of.
constexpr int kSetterCount = 18;

void Set(CTree& tree, std::size_t index, int setter) {
    CBaseGroupLayoutCell& cell = *tree.cells[index];
    const CPlan& plan = *tree.plans[index];
    ILayoutOptions* options = tree.options[index];
    switch (setter) {
    case 0:
        return cell.SetHMargin(plan.hMargin);
    case 1:
        return cell.SetVMargin(plan.vMargin);
    case 2:
        return SetSpacing(cell, plan);
    case 3:
        return cell.SetFitWidth(plan.fitWidth);
    case 4:
        return cell.SetFitHeight(plan.fitHeight);
    case 5:
        return cell.SetContentSize(plan.contentSize);
    case 6:
        return cell.SetInternalHAlign(plan.internalAlign.horizontal);
    case 7:
        return cell.SetInternalVAlign(plan.internalAlign.vertical);
    case 8:
        return cell.SetOffset(plan.offset);
    case 9:
        return index > 0 ? cell.SetVisible(plan.visible) : void();
    case 10:
        return plan.fixedWidth ? cell.SetFixedWidth(plan.fixedSize.width) : void();
    case 11:
        return plan.fixedHeight ? cell.SetFixedHeight(plan.fixedSize.height) : void();
    case 12:
        return options ? options->SetHAlign(plan.options.GetHAlign()) : void();
    case 13:
        return options ? options->SetVAlign(plan.options.GetVAlign()) : void();
    case 14:
        if (options && plan.options.HasHPosition()) {
            options->SetHPosition(plan.options.GetHPosition());
        }
        return;
    case 15:
        if (options && plan.options.HasVPosition()) {
            options->SetVPosition(plan.options.GetVPosition());
        }
        return;
    case 16:
        return options ? options->SetFlex(plan.options.GetFlex()) : void();
    default:
        if (options) {
            options->SetWidthFraction(plan.options.GetWidthFraction());
            options->SetHeightFraction(plan.options.GetHeightFraction());
        }
    }
}

/// Changes something that the plan says otherwise, to be put right later.
void SetWrong(CTree& tree, std::size_t index, CPlanner& planner) {
    CBaseGroupLayoutCell& cell = *tree.cells[index];
    ILayoutOptions* options = tree.options[index];
    switch (planner.Pick(0, 6)) {
    case 0:
        return cell.SetHMargin(planner.Pick(0, 9));
    case 1:
        return cell.SetContentSize({planner.Pick(0, 90), planner.Pick(0, 90)});
    case 2:
        return cell.SetFitSize(planner.Chance(2));
    case 3:
        return index > 0 ? cell.SetVisible(planner.Chance(2)) : void();
    case 4:
        return options ? options->SetFlex(planner.PickFraction()) : void();
    case 5:
        return options ? options->SetWidthFraction(planner.PickFraction()) : void();
    default:
        return options ? options->SetHeightFraction(planner.PickFraction()) : void();
    }
}

void Register(CTree& tree, CBaseGroupLayoutCell& cell, const CPlan& plan, ILayoutOptions* options) {
    tree.cells.push_back(&cell);
    tree.places.push_back(&GetPlaceOf(cell));
    tree.plans.push_back(&plan);
    tree.options.push_back(options);
}

/// Adds the children of a plan to its cell, and theirs. `byChanges` adds them in another order than
/// they stand in, with updates on and not yet as planned.
void AddChildren(CTree& tree, CBaseGroupLayoutCell& parent, const CPlan& plan, bool byChanges,
                 CPlanner& planner) {
    std::vector<CBaseGroupLayoutCell*> added(plan.children.size(), nullptr);
    std::vector<ILayoutOptions*> options(plan.children.size(), nullptr);
    const auto add = [&](std::size_t index) {
        const CPlan& childPlan = *plan.children[index];
        auto cell = MakeCell(childPlan, !byChanges);
        added[index] = cell.get();
        if (byChanges && planner.Chance(2)) {
            cell->EnableUpdates(true);
        }
        options[index] =
            parent.AddChild(cell.get(), byChanges ? CLayoutOptions() : childPlan.options, kOwn);
        if (byChanges) {
            cell->EnableUpdates(true);
        }
        cell.release();
    };
    if (auto* table = dynamic_cast<CTableLayoutCell*>(&parent)) {
        std::size_t child = 0;
        for (std::size_t row = 0; row < plan.rows.size(); ++row) {
            table->AddRow(plan.rows[row]);
            for (; child < plan.children.size() * (row + 1) / plan.rows.size(); ++child) {
                add(child);
            }
        }
    } else {
        std::vector<std::size_t> order(plan.children.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        for (std::size_t i = 0; byChanges && i < order.size(); ++i) {
            std::swap(order[i], order[static_cast<std::size_t>(
                                    planner.Pick(0, static_cast<int>(order.size()) - 1))]);
        }
        for (const std::size_t index : order) {
            std::size_t before = index;
            while (before > 0 && !added[before - 1]) {
                --before;
            }
            parent.SetInsertAfter(before > 0 ? added[before - 1] : nullptr);
            add(index);
        }
    }
    for (std::size_t i = 0; i < added.size(); ++i) {
        Register(tree, *added[i], *plan.children[i], options[i]);
        AddChildren(tree, *added[i], *plan.children[i], byChanges, planner);
    }
}

CTree LayOutAtOnce(const CPlan& plan, CPlanner& planner) {
    CTree tree;
    tree.root = MakeCell(plan, true);
    Register(tree, *tree.root, plan, nullptr);
    AddChildren(tree, *tree.root, plan, false, planner);
    for (std::size_t i = 0; i < tree.cells.size(); ++i) {
        for (int setter = 0; setter < kSetterCount; ++setter) {
            Set(tree, i, setter);
        }
    }
    Start(*tree.root, {100, 200});
    return tree;
}

CTree LayOutByChanges(const CPlan& plan, CPlanner& planner) {
    CTree tree;
    tree.root = MakeCell(plan, false);
    Start(*tree.root, {100, 200});
    Register(tree, *tree.root, plan, nullptr);
    AddChildren(tree, *tree.root, plan, true, planner);
    const auto pickCell = [&] {
        return static_cast<std::size_t>(planner.Pick(0, static_cast<int>(tree.cells.size()) - 1));
    };
    for (std::size_t i = 0; i < tree.cells.size(); ++i) {
        SetWrong(tree, pickCell(), planner);
        Set(tree, pickCell(), planner.Pick(0, kSetterCount - 1));
    }
    std::vector<int> order(kSetterCount);
    std::iota(order.begin(), order.end(), 0);
    for (int& setter : order) {
        std::swap(setter, order[static_cast<std::size_t>(planner.Pick(0, kSetterCount - 1))]);
    }
    const std::size_t start = pickCell();
    for (const int setter : order) {
        for (std::size_t i = 0; i < tree.cells.size(); ++i) {
            Set(tree, (start + i) % tree.cells.size(), setter);
        }
    }
    return tree;
}

TEST(RandomTreeTest, ATreeLaidOutAtOnceEqualsTheSameTreeBuiltBySingleChanges) {
    std::mt19937 random(20240611);
    CPlanner planner(random);
    int compared = 0;
    for (int round = 0; round < 10000; ++round) {
        auto plan = planner.Make(round % 4 == 0 ? 3 : 2);
        plan->kind = plan->kind == kLeaf ? kRow : plan->kind;
        plan->visible = true;
        if (plan->kind == kTable && plan->children.empty()) {
            plan->kind = kColumn;
        }
        const CTree atOnce = LayOutAtOnce(*plan, planner);
        const CTree byChanges = LayOutByChanges(*plan, planner);
        ASSERT_EQ(atOnce.cells.size(), byChanges.cells.size());
        for (std::size_t i = 0; i < atOnce.cells.size(); ++i) {
            ASSERT_EQ(atOnce.cells[i]->IsVisibleInTree(), byChanges.cells[i]->IsVisibleInTree());
            if (!atOnce.cells[i]->IsVisibleInTree()) {
                continue;
            }
            ++compared;
            ASSERT_EQ(atOnce.cells[i]->GetSize(), byChanges.cells[i]->GetSize())
                << "tree " << round << ", cell " << i;
            ASSERT_EQ(*atOnce.places[i], *byChanges.places[i])
                << "tree " << round << ", cell " << i;
            ASSERT_EQ(atOnce.cells[i]->GetPosition(), byChanges.cells[i]->GetPosition())
                << "tree " << round << ", cell " << i;
        }
    }
    EXPECT_GT(compared, 50000) << "trees with something in them";
}

} // namespace
} // namespace LayoutTest
