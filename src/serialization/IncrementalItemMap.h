#pragma once

#include "containers/CharString.h"
#include "core/RefCountItem.h"
#include "serialization/IncrementalDataBuffer.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace Vorin::Serialization {

/// The name of a value and where it belongs in a map: its text hash, spread over all bits.
struct CIncrementalKey {
    explicit CIncrementalKey(const char* keyName);

    const char* name;
    std::uint32_t hash;
};

/// One value of a snapshot under its name. Never changes once it is made.
struct CIncrementalEntry {
    CIncrementalEntry(const char* entryName, std::unique_ptr<CIncrementalDataBuffer> entryBuffer);

    const Containers::CCharString name;
    const std::uint32_t hash; // as in the key of the name
    const std::unique_ptr<const CIncrementalDataBuffer> buffer;
};

/// An entry that all snapshots share whose value is the same; it goes with the last of them.
using IIncrementalItem = Core::IRefCountItem<const CIncrementalEntry&>;
using CIncrementalItem = Core::RefCountItem<const CIncrementalEntry&, CIncrementalEntry>;
using CIncrementalItemPtr = Core::RefCountItemPtr<const CIncrementalEntry&>;

/// A hash map from name to item that shares the memory of its own structure with another one where
/// both hold the same items, so that the tenth of ten nearly equal maps costs what differs.
///
/// A tree: each branch splits by the next two bits of the hash, leaves hold a few items in order.
/// Its shape follows from the names alone, not from the order in which they came, so equal parts
/// of two maps have equal shapes. A node that several maps share is copied before it is changed:
/// no map ever sees a change of another one. Names are compared exactly and are not null. One
/// thread.
class CIncrementalItemMap {
public:
    CIncrementalItemMap() = default;
    CIncrementalItemMap(const CIncrementalItemMap&) = delete;
    CIncrementalItemMap& operator=(const CIncrementalItemMap&) = delete;

    int GetCount() const;

    /// The item, valid as long as the map holds it; null when there is none.
    IIncrementalItem* Find(const CIncrementalKey& key) const;

    /// Takes the place of an item of the same name.
    void Insert(CIncrementalItemPtr item);

    /// Does nothing when there is no such name.
    void Remove(const char* name);

    void Clear() { root = CNodePtr(); }

    /// Gives up the own nodes that hold the same items as those of `other`, for those.
    void ShareWith(const CIncrementalItemMap& other) { Share(root, other.root); }

    /// All items by ascending hash, then by name.
    std::vector<IIncrementalItem*> GetItems() const;

private:
    class CNode;
    class CLeaf;
    class CBranch;

    /// One reference to a node, or none.
    class CNodePtr {
    public:
        CNodePtr() = default;
        explicit CNodePtr(CNode* newNode) : node(newNode) {}
        CNodePtr(const CNodePtr& other);
        CNodePtr(CNodePtr&& other) noexcept : node(std::exchange(other.node, nullptr)) {}
        CNodePtr& operator=(CNodePtr other) noexcept {
            std::swap(node, other.node);
            return *this;
        }
        ~CNodePtr();

        CNode* Get() const { return node; }
        CNode* operator->() const { return node; }
        explicit operator bool() const { return node != nullptr; }
        bool operator==(const CNodePtr& other) const { return node == other.node; }

        /// A node that nobody shares, to be changed: this one or a copy that takes its place.
        CNode& Own();

    private:
        CNode* node = nullptr;
    };

    static bool Insert(CNodePtr& slot, CIncrementalItemPtr& item, int depth);
    static CNodePtr Split(CLeaf& leaf, int depth);
    static void Remove(CNodePtr& slot, const CIncrementalKey& key, int depth);
    static void Collapse(CNodePtr& slot);
    static void Share(CNodePtr& mine, const CNodePtr& theirs);

    CNodePtr root;
};

} // namespace Vorin::Serialization
