#pragma once

#include "SkinEngine/Document/NameMap.h"
#include "serialization/DataStream.h"
#include "serialization/ItemName.h"
#include "serialization/ItemSerialization.h"
#include "serialization/Limits.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Vorin::AppEngine {

/// A name and an object, as an object "name" and "value".
class CWrittenNamedItem : public virtual Serialization::ISerialize {
public:
    CWrittenNamedItem(const char* itemName, const Serialization::ISerialize& itemValue)
        : name(itemName), value(itemValue) {}
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteString("name", name) && stream.WriteObject("value", value);
    }

private:
    const char* name;
    const Serialization::ISerialize& value;
};

class CReadNamedItem : public virtual Serialization::IDeSerialize {
public:
    explicit CReadNamedItem(Serialization::IDeSerialize& readValue) : value(readValue) {}
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return Serialization::ReadItem(stream, "name", name) && stream.ReadObject("value", value);
    }
    const char* GetName() const { return name.Get(); }

private:
    Containers::CCharString name;
    Serialization::IDeSerialize& value;
};

/// Writes "itemsCount" and "item0", "item1" and so on, sorted by name. `adapt` makes an
/// `ISerialize` of a value of the map.
template <class V, class Adapt>
bool WriteNamedItems(Serialization::IWriteDataStream& stream, const TNameMap<V>& map, Adapt adapt) {
    std::vector<const typename TNameMap<V>::value_type*> sorted;
    for (const auto& entry : map) {
        sorted.push_back(&entry);
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const auto* a, const auto* b) { return a->first < b->first; });
    bool done = stream.WriteInt("itemsCount", static_cast<int>(sorted.size()));
    for (std::size_t i = 0; done && i < sorted.size(); ++i) {
        const auto& value = adapt(sorted[i]->second);
        done = stream.WriteObject(Serialization::ItemName("item", static_cast<int>(i)).Get(),
                                  CWrittenNamedItem(sorted[i]->first.c_str(), value));
    }
    return done;
}

/// Reads what `WriteNamedItems` wrote into an empty map. `V` is default-constructible, and `adapt`
/// makes an `IDeSerialize` of it.
template <class V, class Adapt>
bool ReadNamedItems(const Serialization::IReadDataStream& stream, TNameMap<V>& map, Adapt adapt) {
    int count = 0;
    if (!stream.ReadInt("itemsCount", count) || count < 0 || count > Serialization::kMaximumItems) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        V value{};
        auto&& adapter = adapt(value);
        CReadNamedItem item(adapter);
        if (!stream.ReadObject(Serialization::ItemName("item", i).Get(), item)) {
            return false;
        }
        map[item.GetName()] = std::move(value);
    }
    return true;
}

} // namespace Vorin::AppEngine
