// What the undo history costs, for a root of 2,000 values in one object, in 40 objects of 50, and
// in 10 objects of 10 objects of 20.
//
// Time: a snapshot with one change, beside writing the same root into a memory object, which is a
// full copy without a comparison. Memory: what a snapshot without a change leaves allocated, and
// what 1,000 snapshots with one change each hold, over 3 full snapshots and 1 KB a change.
//
// Ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`. The limit is the most.

#include "bench/Ratio.h"
#include "serialization/MemDataObject.h"
#include "tests/serialization/HistoryMemory.h"

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

using namespace Vorin::Serialization;

/// Each round changes one value and takes a snapshot; the history keeps two.
class CSnapshotSide {
public:
    explicit CSnapshotSide(const CBigRootShape& shape) : root(shape.counts), history(&root) {
        history.SetMaxCount(2);
        history.TakeSnapshot();
    }
    void Run() {
        next = (next + 7) % CBigRoot::kValueCount;
        root.Change(next);
        history.TakeSnapshot();
    }

private:
    CBigRoot root;
    CIncrementalHistoryManager history;
    int next = 0;
};

/// Each round changes one value and writes all into a new memory object.
class CCopySide {
public:
    explicit CCopySide(const CBigRootShape& shape) : root(shape.counts) {}
    void Run() {
        next = (next + 7) % CBigRoot::kValueCount;
        root.Change(next);
        CMemDataObject copy;
        benchmark::DoNotOptimize(root.Serialize(copy));
    }

private:
    CBigRoot root;
    int next = 0;
};

template <class Side>
void BM_OneChange(benchmark::State& state) {
    const CBigRootShape& shape = GetBigRootShapes()[static_cast<std::size_t>(state.range(0))];
    state.SetLabel(shape.name);
    Side side(shape);
    for (auto _ : state) {
        side.Run();
    }
}
BENCHMARK(BM_OneChange<CSnapshotSide>)->DenseRange(0, 2);
BENCHMARK(BM_OneChange<CCopySide>)->DenseRange(0, 2);

double MeasureTimeRatio(const CBigRootShape& shape) {
    constexpr int rounds = 20;
    CSnapshotSide snapshot(shape);
    CCopySide copy(shape);
    return Bench::MeasureRatio([&] { snapshot.Run(); }, rounds, [&] { copy.Run(); }, rounds);
}

void PrintRatios(const CBigRootShape& shape) {
    const CHistoryCost cost = MeasureHistory(shape);
    std::printf("%s: the first snapshot holds %lld bytes, each change %.0f more\n", shape.name,
                cost.first.bytes, cost.GetBytesPerChange());
    std::printf("ratio history_unchanged_bytes_%s %lld (limit 0)\n", shape.name,
                cost.unchanged.bytes);
    std::printf("ratio history_memory_%s %.2f (limit 1)\n", shape.name, cost.GetRatio());
    std::printf("ratio history_time_%s %.2f (limit 2)\n", shape.name, MeasureTimeRatio(shape));
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    for (const CBigRootShape& shape : GetBigRootShapes()) {
        PrintRatios(shape);
    }
    return 0;
}
