#pragma once

#include "math/Function.h"
#include "math/Interpolators.h"
#include "math/LookupTable.h"
#include "serialization/LookupTableSerializers.h"

#include <algorithm>
#include <cmath>

namespace Vorin::Math {

/// A function over a table that is written at a moving head and read relative to a moving offset:
/// the last `count` samples of an endless sequence, seen as a curve. One thread at a time.
///
/// Sample i of the circle stands in entry i + 1 of the table, which has `count + 3` entries: entry
/// 0 stays zero, and the last two repeat the last sample of the circle, so that the interpolator
/// may read past the end.
///
/// L is a TLookupTable over TConstrainedSplineInterpolator. Positions are computed in the table's
/// own type.
template <class L>
class TCircularLUTFunction : public virtual IFunction {
public:
    using Value = typename L::Value;

    TCircularLUTFunction() = default;
    TCircularLUTFunction(Value min, Value max) { function.SetRange(min, max); }

    const char* GetType() const override;
    double Evaluate(double x) const override { return EvaluateAt(static_cast<Value>(x)); }
    IFunction* Clone() const override { return new TCircularLUTFunction(*this); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteObject("function", Serialization::TLookupTableSerializer<L>(function)) &&
               stream.WriteInt("offset", offset) && stream.WriteInt("currentIndex", currentIndex) &&
               stream.WriteInt("count", count) && stream.WriteInt("limit", limit);
    }

    /// Positions outside the circle are moved to its ends, and the circle is no larger than the
    /// table. False for a table without room for a sample, and for a range that is not finite or
    /// too narrow or wide for a scale.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        TCircularLUTFunction read(*this);
        Serialization::TLookupTableDeSerializer<L> reader(read.function);
        const bool hasTable = stream.ReadObject("function", reader);
        const bool hasOffset = stream.ReadInt("offset", read.offset);
        const bool hasIndex = stream.ReadInt("currentIndex", read.currentIndex);
        const bool hasCount = stream.ReadInt("count", read.count);
        const bool hasLimit = stream.ReadInt("limit", read.limit);
        const bool hasAll = hasTable && hasOffset && hasIndex && hasCount && hasLimit;
        if ((!hasAll && !stream.IsTolerant()) || !read.MakeConsistent()) {
            return false;
        }
        CopyFrom(read);
        return true;
    }

    /// How many samples the circle has, at least 1. Content is kept as far as it fits. Allocates.
    void SetCount(int samples) {
        count = std::max(samples, 1);
        function.SetCount(count + kGuardEntries);
        if (function.GetMax() != function.GetMin()) {
            function.SetScale(static_cast<Value>(count - 1) /
                              (function.GetMax() - function.GetMin()));
        }
        currentIndex = currentIndex < count ? currentIndex : 0;
        offset = std::min(offset, count);
        limit = std::min(limit, count);
    }

    int GetCount() const { return count; }

    /// Where the next sample goes.
    int GetCurrentIndex() const { return currentIndex; }
    int GetOffset() const { return offset; }
    int GetLimit() const { return limit; }
    const L& GetTable() const { return function; }

    /// The samples in the order of the circle, `GetCount()` of them.
    const Value* GetSamples() const { return function.GetValues() + 1; }

    /// Zeroes the table and moves head and offset to the start; the limit keeps its place.
    void Reset() {
        std::fill_n(function.GetValues(), function.GetCount(), Value(0));
        currentIndex = 0;
        offset = 0;
    }

    /// Places the view: `newOffset` is where min falls, `newLimit` the end of what is shown. Both
    /// lie in 0 to GetCount().
    void SetView(int newOffset, int newLimit) {
        offset = newOffset;
        limit = newLimit;
    }

    /// Writes samples at the head. [audio]
    void Write(const Value* samples, int samplesCount) {
        WriteRuns(samplesCount, [&samples](Value* target, int run) {
            std::copy_n(samples, run, target);
            samples += run;
        });
    }

    /// Writes zeros at the head. [audio]
    void WriteZeros(int samplesCount) {
        WriteRuns(samplesCount, [](Value* target, int run) { std::fill_n(target, run, Value(0)); });
    }

    /// Takes over table, range and view; allocates only when the table's size differs.
    void CopyFrom(const TCircularLUTFunction& source) {
        function.SetCount(source.function.GetCount());
        *this = source;
    }

private:
    static constexpr int kGuardEntries = 3;

    /// Makes what was read from elsewhere fit to be used. False when it cannot be.
    bool MakeConsistent() {
        const Value width = function.GetMax() - function.GetMin();
        if (!std::isfinite(width)) {
            return false;
        }
        if (function.GetCount() == 0 && count == 0) { // a circle that never had a size
            offset = currentIndex = limit = 0;
            return true;
        }
        const int room = function.GetCount() - kGuardEntries;
        if (room < 1) {
            return false;
        }
        count = std::clamp(count, 1, room);
        function.SetCount(count + kGuardEntries);
        function.SetScale(width != Value(0) ? static_cast<Value>(count - 1) / width : Value(0));
        offset = std::clamp(offset, 0, count);
        currentIndex = std::clamp(currentIndex, 0, count - 1);
        limit = std::clamp(limit, 0, count);
        return std::isfinite(function.GetScale());
    }

    template <class Store>
    void WriteRuns(int samplesCount, Store store) {
        if (count == 0) {
            return;
        }
        Value* samples = function.GetValues() + 1;
        while (samplesCount > 0) {
            const int run = std::min(samplesCount, count - currentIndex);
            store(samples + currentIndex, run);
            samplesCount -= run;
            currentIndex += run;
            if (currentIndex == count) {
                // A circle of one sample has its last sample at index 0, where no guard is written.
                if (count > 1) {
                    samples[count] = samples[count + 1] = samples[count - 1];
                }
                currentIndex = 0;
            }
        }
    }

    Value EvaluateAt(Value x) const {
        const Value* table = function.GetValues();
        if (function.GetCount() < kGuardEntries + 1) {
            return Value(0);
        }
        const Value min = function.GetMin();
        const Value max = function.GetMax();
        // Both comparisons fail for NaN, which then counts as min.
        const Value inside = x > max ? max : (x > min ? x : min);
        Value position = (inside - min) * function.GetScale() + static_cast<Value>(offset);
        if (position >= static_cast<Value>(count)) {
            position -= static_cast<Value>(count);
        }
        if (IsHidden(position)) {
            return table[currentIndex + 1];
        }
        const Value q = position + Value(1);
        // Adding 1 can round up to the entry behind the last sample; the clamp keeps the spline
        // inside the table and gives the same value.
        const int k = std::min(static_cast<int>(q), count);
        return TConstrainedSplineInterpolator<Value, Value>::Segment(table + k,
                                                                     q - static_cast<Value>(k));
    }

    /// What lies between the limit and the head is newer than the view's end and must not show up
    /// at its far left.
    bool IsHidden(Value position) const {
        const Value first = static_cast<Value>(limit);
        const Value last = static_cast<Value>(currentIndex);
        if (limit > currentIndex) {
            return position >= first || position < last;
        }
        return limit < currentIndex && position >= first && position < last;
    }

    L function;
    int offset = 0;
    int currentIndex = 0;
    int count = 0;
    int limit = 0;
};

template <>
inline const char*
TCircularLUTFunction<TLookupTable<float, TConstrainedSplineInterpolator<float, float>>>::GetType()
    const {
    return "{AAC13163-0B6E-4a60-A1BE-257878A0B336}";
}

template <>
inline const char* TCircularLUTFunction<
    TLookupTable<double, TConstrainedSplineInterpolator<double, double>>>::GetType() const {
    return "{F659F5AF-E3E2-455d-82B7-F07A47473B31}";
}

} // namespace Vorin::Math
