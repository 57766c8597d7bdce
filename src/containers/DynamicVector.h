#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <utility>

namespace Vorin::Containers {

/// Grows by half of the capacity, in multiples of 4: appending costs linear time.
class CExpGrowthStrategy {
public:
    /// The capacity for `size` elements; equal to `capacity` when the array stays.
    int GetTarget(int size, int capacity, bool shrink) const {
        std::int64_t target = size;
        if (size > capacity) {
            target = std::max<std::int64_t>(size, std::int64_t{capacity} * 3 / 2);
        } else if (size >= std::int64_t{capacity} * 2 / 3) {
            return capacity;
        }
        target = (target + 3) / 4 * 4;
        if (target > std::numeric_limits<int>::max()) {
            target = std::numeric_limits<int>::max();
        }
        return (target > capacity || shrink) ? static_cast<int>(target) : capacity;
    }
};

/// Grows by `step` elements at least.
class CStepGrowthStrategy {
public:
    /// A `step` below 1 counts as 1.
    CStepGrowthStrategy(int growthStep = 16) : step(std::max(growthStep, 1)) {}

    int GetStep() const { return step; }

    /// The capacity for `size` elements; equal to `capacity` when the array stays.
    int GetTarget(int size, int capacity, bool shrink) const {
        if (size > capacity) {
            const std::int64_t target = std::max<std::int64_t>(size, std::int64_t{capacity} + step);
            return static_cast<int>(
                std::min<std::int64_t>(target, std::numeric_limits<int>::max()));
        }
        return (shrink && size < capacity - step) ? size : capacity;
    }

private:
    int step;
};

/// Carries elements over to a new array by assignment: for classes.
template <class T>
struct TEqualOperatorCopier {
    static void Copy(T* target, T* source, int count) { std::move(source, source + count, target); }
};

/// Carries elements over to a new array as bytes: for plain data.
template <class T>
struct TMemoryCopier {
    static_assert(std::is_trivially_copyable_v<T>, "only plain data is copied as bytes");
    static void Copy(T* target, T* source, int count) {
        std::memcpy(target, source, static_cast<std::size_t>(count) * sizeof(T));
    }
};

/// A contiguous array that forgets its elements when it has to be reallocated: for scratch data.
///
/// `G` decides how the capacity follows the size; a size below 0 counts as 0. A new array is
/// filled with `T()`. Elements between size and capacity stay as they were left, so growing within
/// the capacity brings back old values. An allocation that fails throws `std::bad_alloc`.
template <class T, class G>
class TNCDynamicVector {
public:
    explicit TNCDynamicVector(G growthStrategy = G()) : growth(growthStrategy) {}
    virtual ~TNCDynamicVector() { delete[] data; }

    TNCDynamicVector(const TNCDynamicVector&) = delete;
    TNCDynamicVector& operator=(const TNCDynamicVector&) = delete;

    int GetSize() const { return size; }
    int GetCapacity() const { return capacity; }

    /// The first element, or null while the capacity is 0. Valid until the next reallocation.
    T* GetData() { return data; }
    const T* GetData() const { return data; }

    T& operator[](int index) {
        assert(0 <= index && index < size);
        return data[index];
    }
    const T& operator[](int index) const {
        assert(0 <= index && index < size);
        return data[index];
    }

    /// The capacity falls only when `shrink` is set.
    void SetSize(int newSize, bool shrink = false) {
        newSize = std::max(newSize, 0);
        const int target = growth.GetTarget(newSize, capacity, shrink);
        if (target != capacity) {
            Reallocate(target, std::min(size, newSize));
        }
        size = newSize;
    }

protected:
    /// Called with the new and the old array while both exist.
    virtual void KeepElements(T* target, T* source, int count) {
        static_cast<void>(target);
        static_cast<void>(source);
        static_cast<void>(count);
    }

    void Swap(TNCDynamicVector& other) noexcept {
        std::swap(data, other.data);
        std::swap(size, other.size);
        std::swap(capacity, other.capacity);
        std::swap(growth, other.growth);
    }

    const G& GetGrowth() const { return growth; }

private:
    void Reallocate(int target, int keep) {
        T* fresh = target > 0 ? new T[static_cast<std::size_t>(target)]() : nullptr;
        if (keep > 0) {
            KeepElements(fresh, data, keep);
        }
        delete[] data;
        data = fresh;
        capacity = target;
    }

    T* data = nullptr;
    int size = 0;
    int capacity = 0;
    [[no_unique_address]] G growth;
};

/// A contiguous array that keeps its elements, by the copier `C`, when it is reallocated.
///
/// A copy has the elements and the growth strategy, not the spare capacity.
template <class T, class G = CExpGrowthStrategy, class C = TEqualOperatorCopier<T>>
class TDynamicVector : public TNCDynamicVector<T, G> {
    using Base = TNCDynamicVector<T, G>;

public:
    explicit TDynamicVector(G growthStrategy = G()) : Base(growthStrategy) {}

    TDynamicVector(const TDynamicVector& other) : Base(other.GetGrowth()) {
        this->SetSize(other.GetSize());
        std::copy_n(other.GetData(), other.GetSize(), this->GetData());
    }
    TDynamicVector(TDynamicVector&& other) noexcept : Base(other.GetGrowth()) { this->Swap(other); }

    TDynamicVector& operator=(const TDynamicVector& other) {
        if (this != &other) {
            TDynamicVector copy(other);
            this->Swap(copy);
        }
        return *this;
    }
    TDynamicVector& operator=(TDynamicVector&& other) noexcept {
        if (this != &other) {
            TDynamicVector taken(std::move(other));
            this->Swap(taken);
        }
        return *this;
    }

    /// Appends a copy; `value` may be an element of this vector. A vector that holds as many
    /// elements as an `int` counts takes no more.
    void Add(const T& value) {
        const int index = this->GetSize();
        if (index == std::numeric_limits<int>::max()) {
            return;
        }
        T copy(value);
        this->SetSize(index + 1);
        this->GetData()[index] = std::move(copy);
    }

protected:
    void KeepElements(T* target, T* source, int count) override { C::Copy(target, source, count); }
};

} // namespace Vorin::Containers
