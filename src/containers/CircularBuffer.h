#pragma once

#include "containers/Count.h"

#include <algorithm>
#include <memory>

namespace Vorin::Core {

/// The last values of an endless sequence: an array of a power of two, a mask and the place of the
/// newest value. One thread at a time.
///
/// A single write is `head = (head + 1) & mask; data[head] = v`; a single read of the value n
/// behind the newest is `data[(head - n) & mask]`. There are no bounds checks.
template <class T>
class TCircularBuffer : public Containers::ICount {
public:
    TCircularBuffer() = default;
    TCircularBuffer(const TCircularBuffer& other) { *this = other; }
    TCircularBuffer& operator=(const TCircularBuffer& other) {
        if (this == &other) {
            return *this;
        }
        // Not by SetSize, which has no way to a size of 0, nor from a size of 1 to itself.
        if (size != other.size) {
            data.reset(other.size > 0 ? new T[static_cast<std::size_t>(other.size)] : nullptr);
        }
        std::copy_n(other.data.get(), other.size, data.get());
        size = other.size;
        mask = other.mask;
        head = other.head;
        return *this;
    }

    int GetCount() const override { return size; }
    void SetCount(int count) override { SetSize(count); }

    /// Rounds n up to a power of two; 0 gives 1 and 1 gives 2. When that is the size already,
    /// nothing changes; otherwise the content is undefined until the owner fills it. The head
    /// stays, wrapped into the new size. Allocates.
    virtual void SetSize(int n) {
        const int wanted = RoundUp(n);
        if (wanted == size) {
            return;
        }
        data.reset();
        data.reset(new T[static_cast<std::size_t>(wanted)]);
        size = wanted;
        mask = wanted - 1;
        head &= mask;
    }

    void Fill(T value) { std::fill_n(data.get(), size, value); }

    void Push(T value) {
        head = (head + 1) & mask;
        data[head] = value;
    }

    /// The value n behind the newest one; n wraps.
    T GetBehind(int n) const { return data[(head - n) & mask]; }

    /// Pushes `count` values and gives, for each, the value that was pushed `distance` values
    /// before it: 0 is the value itself, 1 the one before. They are given where they stand, as long
    /// as they stand there in a row and the push leaves them; else in `room`. Valid until the next
    /// push. `distance` is 0 to GetCount(); `values` and `room` do not overlap. [audio]
    const T* PushAndGetDelayed(const T* values, int count, int distance, T* room) {
        if (distance == 0) {
            CopyIn(values, count);
            return values;
        }
        const int from = (head + 1 - distance) & mask;
        if (count <= distance && distance <= size - count && from <= size - count) {
            CopyIn(values, count);
            return data.get() + from;
        }
        const int stored = std::min(count, distance);
        CopyOut(from, stored, room);
        std::copy_n(values, count - stored, room + stored);
        CopyIn(values, count);
        return room;
    }

private:
    static int RoundUp(int n) {
        constexpr int largest = 1 << 30;
        if (n <= 0) {
            return 1;
        }
        int rounded = 2;
        while (rounded < n && rounded < largest) {
            rounded *= 2;
        }
        return rounded;
    }

    void CopyOut(int from, int count, T* target) const {
        const int first = std::min(count, size - from);
        std::copy_n(data.get() + from, first, target);
        std::copy_n(data.get(), count - first, target + first);
    }

    void CopyIn(const T* values, int count) {
        while (count > 0) {
            const int start = (head + 1) & mask;
            const int run = std::min(count, size - start);
            std::copy_n(values, run, data.get() + start);
            head = start + run - 1;
            values += run;
            count -= run;
        }
    }

    std::unique_ptr<T[]> data;
    int mask = 0;
    int head = 0;
    int size = 0;
};

} // namespace Vorin::Core
