#pragma once

#include "serialization/ListSerializers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace Vorin::Math {

/// How the value of a swept point stands in a stream: `Write` and `Read` one under a name. What
/// cannot be read may fail, or become something that stands for it.
template <class V>
struct TSweptValueForm;

/// A ring of points in time with values of type V: the newest ones, as many as the capacity. Time
/// is in seconds and strictly increases from point to point.
///
/// The capacity is a power of two. A new ring has one slot. One thread writes, and nobody reads
/// meanwhile.
template <class V>
class TSweptRing {
public:
    static constexpr int kMaximumCapacity = 1 << 20;

    TSweptRing() : slots(1) {}

    /// Room for at least `count` points, from 1 to kMaximumCapacity. Forgets all points. Allocates.
    void SetCapacity(int count) {
        int capacity = 1;
        while (capacity < count && capacity < kMaximumCapacity) {
            capacity *= 2;
        }
        Slots(static_cast<std::size_t>(capacity)).swap(slots);
        mask = capacity - 1;
        currentIndex = -1;
        pointsCount = 0;
    }

    int GetCapacity() const { return mask + 1; }
    int GetPointsCount() const { return pointsCount; }

    /// The rate of the points that are there, as measured when the last one came; 0 before the
    /// second.
    double GetPointsPerSecond() const { return pointsPerSecond; }

    /// How much time is to be seen, in seconds; the ring only keeps it. Negative and NaN count as
    /// 0.
    void SetDuration(double seconds) { duration = seconds > 0.0 ? seconds : 0.0; }
    double GetDuration() const { return duration; }

    /// Makes the newest point, over the oldest when the ring is full, and gives the place of its
    /// value. Null for a time that is not later than the newest or not finite: nothing changes.
    V* Add(double time) {
        if (!std::isfinite(time) || (currentIndex >= 0 && !(time > At(currentIndex).time))) {
            return nullptr;
        }
        currentIndex = (currentIndex + 1) & mask;
        pointsCount = std::min(pointsCount + 1, GetCapacity());
        CSlot& slot = At(currentIndex);
        slot.time = time;
        MeasureRate();
        return &slot.value;
    }

    /// Two neighbours and how far between them, from 0 to 1, a time lies. On a point itself both
    /// are that point.
    struct CPlace {
        const V* from;
        const V* to;
        double fraction;
    };

    /// Finds the place of a time relative to the newest point, 0 or negative; later ones fall on
    /// that point. False for times that have no value: NaN, and those before the second oldest
    /// point. The segment behind the oldest point is left out on purpose.
    bool Find(double x, CPlace& place) const {
        if (pointsCount == 0) {
            return false;
        }
        const CSlot& newest = At(currentIndex);
        if (x >= 0.0) {
            place = {&newest.value, &newest.value, 0.0};
            return true;
        }
        const double time = x + newest.time;
        const int first = currentIndex - pointsCount + 2;
        if (pointsCount == 1 || !(time >= At(first).time)) {
            return false;
        }
        const int index = time >= newest.time ? currentIndex : FindSegment(x, time, first);
        const CSlot& from = At(index);
        const CSlot& to = At(index < currentIndex ? index + 1 : index);
        place = {&from.value, &to.value, 0.0};
        if (&from != &to) {
            place.fraction = (time - from.time) / (to.time - from.time);
        }
        return true;
    }

    /// Writes "version", "values", "times", "currentIndex", "mask", "pointsCount", "duration" and
    /// "pointsPerSecond". False for a ring larger than a reader takes.
    bool Serialize(Serialization::IWriteDataStream& stream) const {
        return GetCapacity() <= Serialization::kMaximumItems &&
               stream.WriteInt("version", kVersion) &&
               stream.WriteObject("values", CWriter(slots, "value", &WriteValue)) &&
               stream.WriteObject("times", CWriter(slots, "time", &WriteTime)) &&
               stream.WriteInt("currentIndex", currentIndex) && stream.WriteInt("mask", mask) &&
               stream.WriteInt("pointsCount", pointsCount) &&
               stream.WriteDouble("duration", duration) &&
               stream.WriteDouble("pointsPerSecond", pointsPerSecond);
    }

    /// False, and the ring as it was, unless all is there and is a state that a ring comes to:
    /// lists of one length, a power of two, and times that increase. On a tolerant stream the ring
    /// stays when any of it is missing.
    bool DeSerialize(const Serialization::IReadDataStream& stream) {
        TSweptRing read;
        read.slots.clear();
        int version = 0;
        double newDuration = 0.0;
        CReader values(read.slots, "value", &ReadValue);
        CReader times(read.slots, "time", &ReadTime);
        const bool hasAll =
            stream.ReadInt("version", version) && stream.ReadObject("values", values) &&
            stream.ReadObject("times", times) &&
            stream.ReadInt("currentIndex", read.currentIndex) &&
            stream.ReadInt("mask", read.mask) && stream.ReadInt("pointsCount", read.pointsCount) &&
            stream.ReadDouble("duration", newDuration) &&
            stream.ReadDouble("pointsPerSecond", read.pointsPerSecond);
        if (!hasAll) {
            return stream.IsTolerant();
        }
        if (version != kVersion || !read.IsConsistent()) {
            return false;
        }
        read.SetDuration(newDuration);
        read.pointsPerSecond = std::isfinite(read.pointsPerSecond) ? read.pointsPerSecond : 0.0;
        read.MeasureRate();
        *this = std::move(read);
        return true;
    }

private:
    struct CSlot {
        double time = 0.0;
        V value{};
    };
    using Slots = std::vector<CSlot>;

    static constexpr int kVersion = 1;
    static constexpr int kWalkSteps = 4;

    /// One column of the slots on its way out.
    class CWriter : public virtual Serialization::ISerialize {
    public:
        using WriteOne = bool (*)(Serialization::IWriteDataStream&, const char*, const CSlot&);

        CWriter(const Slots& writtenSlots, const char* itemWord, WriteOne writeOne)
            : slots(writtenSlots), names(itemWord), write(writeOne) {}

        bool Serialize(Serialization::IWriteDataStream& stream) const override {
            const int count = static_cast<int>(slots.size());
            bool done = names.WriteCount(stream, count);
            for (int index = 0; done && index < count; ++index) {
                done = write(stream, names.GetName(index).Get(),
                             slots[static_cast<std::size_t>(index)]);
            }
            return done;
        }

    private:
        const Slots& slots;
        const Serialization::CItemNames names;
        const WriteOne write;
    };

    /// One column on its way in: the first makes the slots, one at least, and the other has to be
    /// as long. The items have to be there before anything is allocated.
    class CReader : public virtual Serialization::IDeSerialize {
    public:
        using ReadOne = bool (*)(const Serialization::IReadDataStream&, const char*, CSlot&);

        CReader(Slots& readSlots, const char* itemWord, ReadOne readOne)
            : slots(readSlots), names(itemWord), read(readOne) {}

        bool DeSerialize(const Serialization::IReadDataStream& stream) override {
            int count = 0;
            if (!names.ReadCount(stream, count) || count == 0 || count > kMaximumCapacity ||
                !names.HasAll(stream, count)) {
                return false;
            }
            const auto size = static_cast<std::size_t>(count);
            if (slots.empty()) {
                Slots(size).swap(slots);
            }
            bool done = size == slots.size();
            for (int index = 0; done && index < count; ++index) {
                done = read(stream, names.GetName(index).Get(),
                            slots[static_cast<std::size_t>(index)]);
            }
            return done;
        }

    private:
        Slots& slots;
        const Serialization::CItemNames names;
        const ReadOne read;
    };

    static bool WriteTime(Serialization::IWriteDataStream& stream, const char* name,
                          const CSlot& slot) {
        return stream.WriteDouble(name, slot.time);
    }
    static bool WriteValue(Serialization::IWriteDataStream& stream, const char* name,
                           const CSlot& slot) {
        return TSweptValueForm<V>::Write(stream, name, slot.value);
    }
    static bool ReadTime(const Serialization::IReadDataStream& stream, const char* name,
                         CSlot& slot) {
        return stream.ReadDouble(name, slot.time);
    }
    static bool ReadValue(const Serialization::IReadDataStream& stream, const char* name,
                          CSlot& slot) {
        return TSweptValueForm<V>::Read(stream, name, slot.value);
    }

    // Indices count on below 0, to the oldest point; the mask brings them into the ring.
    CSlot& At(int index) { return slots[static_cast<std::size_t>(index & mask)]; }
    const CSlot& At(int index) const { return slots[static_cast<std::size_t>(index & mask)]; }

    void MeasureRate() {
        if (pointsCount >= 2) {
            const double oldest = At(currentIndex - pointsCount + 1).time;
            const auto steps = static_cast<float>(pointsCount - 1);
            pointsPerSecond = static_cast<double>(steps) / (At(currentIndex).time - oldest);
        }
    }

    /// The last index from `first` whose time is not after `time`, which lies from the time at
    /// `first` to before that of the newest point.
    ///
    /// Walks from where the point would be if all were as far apart. When that is far off, which
    /// it is when the rate has changed, a search of the rest finds the same in few steps more.
    int FindSegment(double x, double time, int first) const {
        int low = first;
        int high = currentIndex;
        int index = Guess(x, first);
        if (At(index).time <= time) {
            low = index;
            for (int step = 0; step < kWalkSteps; ++step) {
                if (At(low + 1).time > time) {
                    return low;
                }
                ++low;
            }
        } else {
            high = index;
            for (int step = 0; step < kWalkSteps; ++step) {
                --index;
                if (At(index).time <= time) {
                    return index;
                }
                high = index;
            }
        }
        return Search(time, low, high);
    }

    /// From `first` to the last point but one.
    int Guess(double x, int first) const {
        const double offset = x * pointsPerSecond + 0.5;
        // Also false for NaN, so that what is converted fits.
        if (!(offset > -static_cast<double>(pointsCount))) {
            return first;
        }
        return std::clamp(currentIndex + static_cast<int>(offset), first, currentIndex - 1);
    }

    /// The last index of low to high whose time is not after `time`; it lies between theirs. Takes
    /// turns between the middle, which bounds the steps, and where the time would fall if points
    /// were even, which is near it wherever the rate is steady.
    int Search(double time, int low, int high) const {
        for (bool halve = false; high - low > 1; halve = !halve) {
            int middle = low + (high - low) / 2;
            if (!halve) {
                const double share =
                    (time - At(low).time) / (At(high).time - At(low).time) * (high - low);
                if (share >= 0.0 && share <= high - low) { // not for NaN
                    middle = std::clamp(low + static_cast<int>(share), low + 1, high - 1);
                }
            }
            (At(middle).time <= time ? low : high) = middle;
        }
        return low;
    }

    bool IsConsistent() const {
        const std::size_t size = slots.size();
        if (size == 0 || size > kMaximumCapacity || (size & (size - 1)) != 0 || mask < 0 ||
            static_cast<std::size_t>(mask) != size - 1) {
            return false;
        }
        if (pointsCount < 0 || pointsCount > GetCapacity()) {
            return false;
        }
        // A ring that is not full was filled from its first slot.
        const bool isPlaceRight = pointsCount < GetCapacity()
                                      ? currentIndex == pointsCount - 1
                                      : currentIndex >= 0 && currentIndex <= mask;
        return isPlaceRight && AreTimesIncreasing();
    }

    bool AreTimesIncreasing() const {
        bool are = true;
        for (int index = currentIndex - pointsCount + 1; index <= currentIndex && are; ++index) {
            const double time = At(index).time;
            are = std::isfinite(time) &&
                  (index == currentIndex - pointsCount + 1 || time > At(index - 1).time);
        }
        return are;
    }

    Slots slots; // a time beside its value: a lookup reads both
    int currentIndex = -1;
    int mask = 0;
    int pointsCount = 0;
    double duration = 0.0;
    double pointsPerSecond = 0.0;
};

} // namespace Vorin::Math
