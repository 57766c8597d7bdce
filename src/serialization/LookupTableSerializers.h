#pragma once

#include "serialization/DataStream.h"
#include "serialization/Limits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <type_traits>

namespace Vorin::Serialization {

/// Writes a lookup table: doubles "min" and "max", an int "valuesCount" and the values as data
/// "values", as they stand in memory. `L` has `Value`, GetCount, GetMin, GetMax and GetValues.
template <class L>
class TLookupTableSerializer : public virtual ISerialize {
public:
    explicit TLookupTableSerializer(const L& writtenTable) : table(writtenTable) {}

    bool Serialize(IWriteDataStream& stream) const override {
        const int count = table.GetCount();
        constexpr int bytes = sizeof(typename L::Value);
        return count <= std::numeric_limits<int>::max() / bytes &&
               stream.WriteDouble("min", static_cast<double>(table.GetMin())) &&
               stream.WriteDouble("max", static_cast<double>(table.GetMax())) &&
               stream.WriteInt("valuesCount", count) &&
               stream.WriteData("values", table.GetValues(), count * bytes);
    }

private:
    const L& table;
};

/// Reads a lookup table, which has SetCount and SetRange besides. False, and the table as it was,
/// unless all is there and the data are as many values as the count says. On a tolerant stream the
/// range and the values may be left out, each pair as a whole.
template <class L>
class TLookupTableDeSerializer : public virtual IDeSerialize {
    using Value = typename L::Value;
    static_assert(std::is_floating_point_v<Value>);

public:
    explicit TLookupTableDeSerializer(L& readTable) : table(readTable) {}

    bool DeSerialize(const IReadDataStream& stream) override {
        double min = 0.0;
        double max = 0.0;
        const bool isMinRead = stream.ReadDouble("min", min);
        const bool hasRange = stream.ReadDouble("max", max) && isMinRead;
        int count = 0;
        int size = 0;
        const std::unique_ptr<char[]> bytes = ReadValues(stream, count, size);
        const bool hasValues = count >= 0 && count <= std::numeric_limits<int>::max() / kBytes &&
                               size == count * kBytes;
        if ((!hasRange || !hasValues) && !stream.IsTolerant()) {
            return false;
        }
        if (hasValues) {
            table.SetCount(count);
            if (size > 0) {
                std::memcpy(table.GetValues(), bytes.get(), static_cast<std::size_t>(size));
            }
        }
        if (hasRange) {
            table.SetRange(Narrowed(min), Narrowed(max));
        }
        return true;
    }

private:
    static constexpr int kBytes = sizeof(Value);

    /// `count` is -1 when the count or the data are missing.
    static std::unique_ptr<char[]> ReadValues(const IReadDataStream& stream, int& count,
                                              int& size) {
        void* data = nullptr;
        if (!stream.ReadInt("valuesCount", count) || !stream.ReadData("values", data, size)) {
            count = -1;
        }
        return std::unique_ptr<char[]>(static_cast<char*>(data));
    }

    /// A double too large for a float is no value that it could become.
    static Value Narrowed(double value) {
        constexpr double largest = std::numeric_limits<Value>::max();
        return static_cast<Value>(std::isfinite(value) ? std::clamp(value, -largest, largest)
                                                       : value);
    }

    L& table;
};

} // namespace Vorin::Serialization
