#pragma once

#include "containers/Count.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Vorin::Math {

/// A row of values over a uniform grid from min to max, read by an interpolator.
///
/// T is the type of the values, I one of the interpolators over it. Reading never fails: what lies
/// outside the range reads as the nearer end of it, NaN as min, and an empty table as 0. Readers
/// may share a table that nobody writes. Assigning a table of the same count does not allocate.
template <class T, class I>
class TLookupTable : public virtual Containers::ICount {
public:
    using Value = T;
    using Interpolator = I;
    using Position = typename I::Position;

    int GetCount() const override { return static_cast<int>(values.size()); }

    /// Keeps the values that fit, zeroes new ones and sets the scale anew. A negative count is 0.
    /// Allocates.
    void SetCount(int count) override {
        const auto size = static_cast<std::size_t>(count > 0 ? count : 0);
        if (size != values.size()) {
            // Into an array of just this size: one that grows by itself takes up to twice the room,
            // and one that shrinks keeps it.
            std::vector<T> resized(size, T(0));
            std::copy_n(values.begin(), std::min(size, values.size()), resized.begin());
            values.swap(resized);
        }
        UpdateScale();
    }

    /// Sets the range and, unless it is empty, the scale.
    void SetRange(T newMin, T newMax) {
        min = newMin;
        max = newMax;
        UpdateScale();
    }

    T GetMin() const { return min; }
    T GetMax() const { return max; }

    /// Grid steps per unit of x: (count - 1) / (max - min), or what SetScale gave since the last
    /// SetCount or SetRange.
    T GetScale() const { return scale; }
    void SetScale(T newScale) { scale = newScale; }

    /// The GetCount() values, which live until the next SetCount or assignment.
    T* GetValues() { return values.data(); }
    const T* GetValues() const { return values.data(); }

    /// Where x falls on the grid. NaN for an infinite or wildly large range: interpolators take it.
    Position GetPosition(Position x) const {
        const Position first = min;
        const Position last = max;
        // Both comparisons fail for NaN, which then counts as min.
        const Position inside = x > last ? last : (x > first ? x : first);
        return (inside - first) * static_cast<Position>(scale);
    }

    T Evaluate(Position x) const {
        return I::Interpolate(values.data(), static_cast<int>(values.size()), GetPosition(x));
    }

private:
    void UpdateScale() {
        if (min < max || min > max) {
            scale = (static_cast<T>(values.size()) - T(1)) / (max - min);
        }
    }

    T min = T(0);
    T max = T(1);
    T scale = T(0);
    std::vector<T> values;
};

} // namespace Vorin::Math
