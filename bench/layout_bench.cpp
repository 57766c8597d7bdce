// What a change costs in a tree of layout cells. A skin of 2,000 cells stands beside one of 200: a
// full pass costs in proportion, a change that keeps a cell's size costs the same in both.
//
// The program ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`.

#include "bench/Ratio.h"
#include "layout/GroupLayoutCell.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace Vorin;
using namespace Vorin::Layout;

/// Counts the passes over it.
class CCountedCell : public CGroupLayoutCell {
public:
    using CGroupLayoutCell::CGroupLayoutCell;

    void Place(const Core::C2DPoint& newPlace, const Core::C2DPoint& newRelativePlace) override {
        ++placeCount;
        CGroupLayoutCell::Place(newPlace, newRelativePlace);
    }

    static inline long placeCount = 0;
};

/// A column of panels, each a column of rows, each of nine leaves of a set size: one cell in ten is
/// a row, one in a hundred a panel.
class CSkin {
public:
    explicit CSkin(int cellCount) : root(0, 0, 4, kLayoutColumn) {
        for (int panel = 0; panel < cellCount / 100; ++panel) {
            CCountedCell& column = Add(root, kLayoutColumn);
            for (int row = 0; row < 9; ++row) {
                CCountedCell& line = Add(column, kLayoutRow);
                for (int leaf = 0; leaf < 10; ++leaf) {
                    CCountedCell& cell = Add(line, kLayoutRow);
                    cell.SetFitSize(false);
                    cell.SetContentSize({20, 10});
                    leaves.push_back(&cell);
                }
            }
        }
        root.EnableUpdates(true);
        root.PlaceAt({0, 0});
    }

    /// The margin of a leaf, which keeps its size.
    void ChangeMargin() { leaves[leaves.size() / 2]->SetHMargin(margin = 3 - margin); }
    /// The size of a leaf, which changes that of all above it.
    void ChangeSize() { leaves[leaves.size() / 2]->SetContentSize({width = 50 - width, width}); }
    void PassOverAll() { root.Invalidate(); }

private:
    static CCountedCell& Add(CGroupLayoutCell& parent, int type) {
        auto* cell = new CCountedCell(1, 1, 2, type);
        parent.AddChild(cell, CLayoutOptions(), Core::kOwn);
        return *cell;
    }

    CCountedCell root;
    std::vector<CCountedCell*> leaves;
    int margin = 1;
    int width = 20;
};

void BM_MarginOfALeaf(benchmark::State& state) {
    CSkin skin(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        skin.ChangeMargin();
    }
}
BENCHMARK(BM_MarginOfALeaf)->Arg(200)->Arg(2000);

void BM_SizeOfALeaf(benchmark::State& state) {
    CSkin skin(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        skin.ChangeSize();
    }
}
BENCHMARK(BM_SizeOfALeaf)->Arg(200)->Arg(2000);

void BM_FullPass(benchmark::State& state) {
    CSkin skin(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        skin.PassOverAll();
    }
}
BENCHMARK(BM_FullPass)->Arg(200)->Arg(2000);

template <class Change>
void PrintPlaceCount(const char* name, Change change) {
    CCountedCell::placeCount = 0;
    change();
    std::printf("places %s %ld\n", name, CCountedCell::placeCount);
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    CSkin large(2000);
    CSkin small(200);
    PrintPlaceCount("margin_of_a_leaf_in_2000", [&] { large.ChangeMargin(); });
    PrintPlaceCount("full_pass_over_2000", [&] { large.PassOverAll(); });
    PrintPlaceCount("full_pass_over_200", [&] { small.PassOverAll(); });
    Bench::PrintRatio("layout_margin_2000_to_200",
                      Bench::MeasureRatio([&] { large.ChangeMargin(); }, 20000,
                                          [&] { small.ChangeMargin(); }, 20000),
                      1.5);
    Bench::PrintRatio(
        "layout_full_pass_2000_to_200",
        Bench::MeasureRatio([&] { large.PassOverAll(); }, 20, [&] { small.PassOverAll(); }, 200),
        13);
    return 0;
}
