#pragma once

#include "containers/Iterator.h"
#include "containers/TextMap.h"
#include "serialization/Serializable.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Vorin::Math {

/// Objects of a function tree, told apart by their address as what they are written as.
using PlaceSet = std::unordered_set<const Serialization::ISerialize*>;
using PlaceMap =
    std::unordered_map<const Serialization::ISerialize*, const Serialization::ISerialize*>;

/// The places of a tree that can be set by name, all of one class. A name has one place or more.
/// The places belong to the tree; one that is gone is only harmful when its name is set.
template <class Place>
class TPlaceholders {
    // Addresses are kept beside: to convert the pointer to a place that is gone would read it.
    struct CEntry {
        Place* place;
        const Serialization::ISerialize* address;
    };
    using CEntries = std::vector<CEntry>;
    using Map = Containers::TTextMap<CEntries>;

public:
    /// The places of one name, valid until the name is added to or forgotten. Null for none.
    class CPlaces {
    public:
        CPlaces() = default;
        explicit CPlaces(const CEntries* entries) : list(entries) {}

        explicit operator bool() const { return list != nullptr; }

        /// Calls `set` for each of them.
        template <class Set>
        void ForEach(Set set) const {
            for (const CEntry& entry : *list) {
                set(*entry.place);
            }
        }

    private:
        const CEntries* list = nullptr;
    };

    /// False for a null or empty name and for a null place.
    bool Add(const char* name, Place* place) {
        if (!name || !*name || !place) {
            return false;
        }
        map.Obtain(name).value.push_back({place, place});
        addresses.insert(place);
        return true;
    }

    bool Has(const Serialization::ISerialize& object) const {
        return addresses.count(&object) != 0;
    }

    CPlaces Find(const char* name) const {
        const auto* found = name ? map.Find(name) : nullptr;
        return CPlaces(found ? &found->value : nullptr);
    }

    /// Calls `set` for each place of the name; false when there is none.
    template <class Set>
    bool ForEach(const char* name, Set set) const {
        const CPlaces places = Find(name);
        if (places) {
            places.ForEach(set);
        }
        return static_cast<bool>(places);
    }

    /// Forgets the places that are not among these, and names without any.
    void Retain(const PlaceSet& places) {
        Map kept;
        addresses.clear();
        for (auto* name = map.GetFirst(); name; name = map.GetNext(name)) {
            for (const CEntry& entry : name->value) {
                if (places.count(entry.address) != 0) {
                    kept.Obtain(name->key.Get()).value.push_back(entry);
                    addresses.insert(entry.address);
                }
            }
        }
        map.Swap(kept);
    }

    /// Takes over the names of another tree's places, at the objects that stand for these places in
    /// this tree.
    void AddMatching(const TPlaceholders& other, const PlaceMap& places) {
        for (auto* name = other.map.GetFirst(); name; name = other.map.GetNext(name)) {
            for (const CEntry& entry : name->value) {
                const auto found = places.find(entry.address);
                if (found != places.end()) {
                    // The tree is the owner's own, which it only walked as const.
                    auto* object = const_cast<Serialization::ISerialize*>(found->second);
                    Add(name->key.Get(), dynamic_cast<Place*>(object));
                }
            }
        }
    }

    /// A new cursor over the names; the caller deletes it.
    Containers::IConstValueIterator<const char*>* CreateIterator() const { return new CNames(map); }

private:
    class CNames : public virtual Containers::IConstValueIterator<const char*> {
    public:
        explicit CNames(const Map& walked) : map(walked), entry(map.GetFirst()) {}

        void Reset() override { entry = map.GetFirst(); }
        void Next() override { entry = entry ? map.GetNext(entry) : nullptr; }
        bool IsAtEnd() const override { return !entry; }
        const char* GetValue() const override { return entry->key.Get(); }

    private:
        const Map& map;
        const typename Map::CEntry* entry;
    };

    Map map;
    PlaceSet addresses;
};

} // namespace Vorin::Math
