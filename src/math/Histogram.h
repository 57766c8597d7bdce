#pragma once

#include "containers/Count.h"
#include "math/LookupTable.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace Vorin::Math {

/// How many of the samples in a window fall into each of a row of bins. One thread at a time.
///
/// L is the TLookupTable that shows the bins as a function. The counts are kept apart from it, in
/// integers and spread over several lanes: two samples in a row that fall into one bin then do not
/// wait for each other. FoldIntoTable brings the table up to date, so what reads the table calls it
/// first. Below 2^24 samples in the window the table's floats hold the same numbers that counting
/// in floats would give.
template <class L>
class THistogram : public virtual Containers::ICount {
public:
    using Value = typename L::Value;

    /// The bin of a sample that has left no count: RemoveBin of it changes nothing.
    static constexpr int kNoBin = -1;

    THistogram(int bins, Value min, Value max) {
        table.SetRange(min, max);
        THistogram::SetCount(bins);
    }

    int GetCount() const override { return table.GetCount(); }

    /// Sets the number of bins and empties them. Allocates.
    void SetCount(int bins) override {
        table.SetCount(bins);
        pairSize = static_cast<std::size_t>(table.GetCount()) + 1;
        pairs.resize(pairSize * kPairs);
        Reset();
    }

    void Reset() {
        std::fill(pairs.begin(), pairs.end(), CPair());
        std::fill_n(table.GetValues(), table.GetCount(), Value(0));
    }

    /// The bin of each sample. What lies outside the range falls into the first or the last bin,
    /// NaN into the first. [audio]
    void FindBins(const Value* samples, int count, int* bins) const {
        const Value bottom = table.GetMin();
        const Value top = table.GetMax();
        const Value scale = table.GetScale();
        for (int i = 0; i < count; ++i) {
            // The second comparison fails for NaN, and so takes the bottom for it.
            const Value raised = samples[i] > bottom ? samples[i] : bottom;
            const Value inside = samples[i] > top ? top : raised;
            bins[i] = static_cast<int>((inside - bottom) * scale + Value(0.5));
        }
    }

    /// Adds one to each bin of `added` and takes one from each of `removed`, where kNoBin takes
    /// nothing. [audio]
    void Count(const int* added, const int* removed, int count) {
        // The first entry of a lane belongs to kNoBin and is never read.
        CPair* const pair0 = pairs.data() + 1;
        CPair* const pair1 = pair0 + pairSize;
        CPair* const pair2 = pair1 + pairSize;
        CPair* const pair3 = pair2 + pairSize;
        int i = 0;
        for (; i + 4 <= count; i += 4) {
            pair0[added[i]].a += 1;
            pair0[added[i + 1]].b += 1;
            pair1[added[i + 2]].a += 1;
            pair1[added[i + 3]].b += 1;
            pair2[removed[i]].a -= 1;
            pair2[removed[i + 1]].b -= 1;
            pair3[removed[i + 2]].a -= 1;
            pair3[removed[i + 3]].b -= 1;
        }
        for (; i < count; ++i) {
            pair0[added[i]].a += 1;
            pair2[removed[i]].a -= 1;
        }
    }

    /// Brings the table up to date with the counts. [audio]
    void FoldIntoTable() {
        Value* values = table.GetValues();
        for (int bin = 0; bin < table.GetCount(); ++bin) {
            std::uint32_t sum = 0;
            for (std::size_t pair = 0; pair < kPairs; ++pair) {
                const CPair& counts = pairs[pair * pairSize + static_cast<std::size_t>(bin) + 1];
                sum += counts.a + counts.b;
            }
            values[bin] = static_cast<Value>(static_cast<std::int32_t>(sum));
        }
    }

    /// The bins as of the last fold.
    const L& GetTable() const { return table; }

private:
    /// Two lanes side by side, so that a bin is the index of both: no instruction goes into finding
    /// the lane.
    struct CPair {
        std::uint32_t a = 0;
        std::uint32_t b = 0;
    };
    static constexpr std::size_t kPairs = 4;

    L table;
    std::size_t pairSize = 0;
    std::vector<CPair> pairs;
};

} // namespace Vorin::Math
