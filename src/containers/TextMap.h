#pragma once

#include "containers/CharString.h"
#include "containers/Hash.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace Vorin::Containers {

/// A hash map from text to `V`, with chained buckets that grow with the number of entries.
///
/// Entries never move: a pointer to one is valid until that entry is removed. The order of a walk
/// (`GetFirst`, `GetNext`) is that of the buckets and changes with the map. Keys are not null.
/// No locks.
template <class V>
class TTextMap {
public:
    struct CEntry {
        const CCharString key;
        V value;
        CEntry* next = nullptr; // in the same bucket
    };

    TTextMap() = default;
    ~TTextMap() { Clear(); }

    TTextMap(const TTextMap& other) {
        for (const CEntry* entry = other.GetFirst(); entry; entry = other.GetNext(entry)) {
            Obtain(entry->key.Get()).value = entry->value;
        }
    }
    TTextMap(TTextMap&& other) noexcept { Swap(other); }
    TTextMap& operator=(TTextMap other) noexcept {
        Swap(other);
        return *this;
    }

    void Swap(TTextMap& other) noexcept {
        buckets.swap(other.buckets);
        std::swap(count, other.count);
    }

    int GetCount() const { return count; }
    int GetBucketCount() const { return static_cast<int>(buckets.size()); }

    /// Where entries of this key live; 0 in a map that never held anything.
    int GetBucket(const char* key) const {
        return buckets.empty() ? 0 : static_cast<int>(BucketOf(key));
    }

    CEntry* Find(const char* key) { return FindEntry(key); }
    const CEntry* Find(const char* key) const { return FindEntry(key); }

    /// The entry of `key`, made with a default value when there is none.
    CEntry& Obtain(const char* key) {
        if (CEntry* entry = FindEntry(key)) {
            return *entry;
        }
        if (static_cast<std::size_t>(count) >= buckets.size()) {
            Grow();
        }
        CEntry*& head = buckets[BucketOf(key)];
        head = new CEntry{CCharString(key), V(), head};
        ++count;
        return *head;
    }

    /// False when there is no such key.
    bool Remove(const char* key) {
        if (buckets.empty()) {
            return false;
        }
        for (CEntry** link = &buckets[BucketOf(key)]; *link; link = &(*link)->next) {
            if ((*link)->key == key) {
                CEntry* entry = *link;
                *link = entry->next;
                --count;
                delete entry; // last: `key` may be the entry's own text
                return true;
            }
        }
        return false;
    }

    void Clear() {
        std::vector<CEntry*> old;
        old.swap(buckets);
        count = 0;
        for (CEntry* entry : old) {
            while (entry) {
                CEntry* next = entry->next;
                delete entry;
                entry = next;
            }
        }
    }

    CEntry* GetFirst() { return FirstFrom(0); }
    const CEntry* GetFirst() const { return FirstFrom(0); }
    CEntry* GetNext(const CEntry* entry) { return Following(entry); }
    const CEntry* GetNext(const CEntry* entry) const { return Following(entry); }

private:
    static constexpr std::size_t firstBucketCount = 17;

    std::size_t BucketOf(const char* key) const { return GetTextHash(key) % buckets.size(); }

    CEntry* FindEntry(const char* key) const {
        if (buckets.empty()) {
            return nullptr;
        }
        CEntry* entry = buckets[BucketOf(key)];
        while (entry && !(entry->key == key)) {
            entry = entry->next;
        }
        return entry;
    }

    CEntry* FirstFrom(std::size_t bucket) const {
        for (; bucket < buckets.size(); ++bucket) {
            if (buckets[bucket]) {
                return buckets[bucket];
            }
        }
        return nullptr;
    }

    CEntry* Following(const CEntry* entry) const {
        return entry->next ? entry->next : FirstFrom(BucketOf(entry->key.Get()) + 1);
    }

    // An odd count: the hash multiplies by 5, and a count that shares a factor would fold keys.
    void Grow() {
        std::vector<CEntry*> old(buckets.empty() ? firstBucketCount : buckets.size() * 2 + 3);
        old.swap(buckets);
        for (CEntry* entry : old) {
            while (entry) {
                CEntry* next = entry->next;
                CEntry*& head = buckets[BucketOf(entry->key.Get())];
                entry->next = head;
                head = entry;
                entry = next;
            }
        }
    }

    std::vector<CEntry*> buckets;
    int count = 0;
};

} // namespace Vorin::Containers
