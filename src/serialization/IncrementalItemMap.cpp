#include "serialization/IncrementalItemMap.h"

#include "containers/Hash.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace Vorin::Serialization {

namespace {

// The hash of short names fills the low bits alone. An odd factor loses none of it; that of the
// golden ratio spreads neighbours evenly over the high bits, which the tree splits by.
std::uint32_t Spread(std::uint32_t hash) { return hash * 2654435769u; }

constexpr int hashBits = 32;
constexpr int branchBits = 2;
constexpr std::size_t branchSize = std::size_t{1} << branchBits;
constexpr std::size_t leafSize = 8; // more only when all have one hash

std::size_t GetDigit(std::uint32_t hash, int depth) {
    return (hash >> (hashBits - branchBits * (depth + 1))) & (branchSize - 1);
}

using Items = std::vector<CIncrementalItemPtr>;

bool IsBefore(const CIncrementalItemPtr& item, const CIncrementalKey& key) {
    const CIncrementalEntry& entry = item->GetValue();
    return entry.hash != key.hash ? entry.hash < key.hash
                                  : std::strcmp(entry.name.Get(), key.name) < 0;
}

// Where the item of the key stands or belongs.
template <class ItemList>
auto FindPlace(ItemList& items, const CIncrementalKey& key) {
    return std::lower_bound(items.begin(), items.end(), key, IsBefore);
}

bool IsOf(const CIncrementalItemPtr& item, const CIncrementalKey& key) {
    const CIncrementalEntry& entry = item->GetValue();
    return entry.hash == key.hash && entry.name == key.name;
}

// Of items in order.
bool HaveOneHash(const Items& items) {
    return items.front()->GetValue().hash == items.back()->GetValue().hash;
}

} // namespace

CIncrementalKey::CIncrementalKey(const char* keyName)
    : name(keyName), hash(Spread(Containers::GetTextHash(keyName))) {}

CIncrementalEntry::CIncrementalEntry(const char* entryName,
                                     std::unique_ptr<CIncrementalDataBuffer> entryBuffer)
    : name(entryName), hash(CIncrementalKey(entryName).hash), buffer(std::move(entryBuffer)) {}

class CIncrementalItemMap::CNode {
public:
    CNode() = default;
    CNode(const CNode&) {} // a copy is counted from 1
    CNode& operator=(const CNode&) = delete;
    virtual ~CNode() = default;

    virtual CNode* Clone() const = 0;
    virtual int GetCount() const = 0;
    virtual CLeaf* AsLeaf() { return nullptr; }
    virtual CBranch* AsBranch() { return nullptr; }

    int refCount = 1;
};

class CIncrementalItemMap::CLeaf final : public CNode {
public:
    CNode* Clone() const override { return new CLeaf(*this); }
    int GetCount() const override { return static_cast<int>(items.size()); }
    CLeaf* AsLeaf() override { return this; }

    Items items; // never empty; by hash, then by name
};

class CIncrementalItemMap::CBranch final : public CNode {
public:
    CNode* Clone() const override { return new CBranch(*this); }
    int GetCount() const override { return count; }
    CBranch* AsBranch() override { return this; }

    int count = 0; // of items
    std::array<CNodePtr, branchSize> children;
};

CIncrementalItemMap::CNodePtr::CNodePtr(const CNodePtr& other) : node(other.node) {
    if (node) {
        ++node->refCount;
    }
}

CIncrementalItemMap::CNodePtr::~CNodePtr() {
    if (node && --node->refCount == 0) {
        delete node;
    }
}

CIncrementalItemMap::CNode& CIncrementalItemMap::CNodePtr::Own() {
    if (node->refCount > 1) {
        *this = CNodePtr(node->Clone());
    }
    return *node;
}

int CIncrementalItemMap::GetCount() const { return root ? root->GetCount() : 0; }

IIncrementalItem* CIncrementalItemMap::Find(const CIncrementalKey& key) const {
    CNode* node = root.Get();
    for (int depth = 0; node; ++depth) {
        if (CLeaf* leaf = node->AsLeaf()) {
            const auto place = FindPlace(leaf->items, key);
            return place != leaf->items.end() && IsOf(*place, key) ? place->Get() : nullptr;
        }
        node = node->AsBranch()->children[GetDigit(key.hash, depth)].Get();
    }
    return nullptr;
}

void CIncrementalItemMap::Insert(CIncrementalItemPtr item) { Insert(root, item, 0); }

// Whether there is an item more.
bool CIncrementalItemMap::Insert(CNodePtr& slot, CIncrementalItemPtr& item, int depth) {
    if (!slot) {
        slot = CNodePtr(new CLeaf);
    }
    const CIncrementalEntry& entry = item->GetValue();
    CNode& node = slot.Own();
    if (CBranch* branch = node.AsBranch()) {
        const bool isNew = Insert(branch->children[GetDigit(entry.hash, depth)], item, depth + 1);
        branch->count += isNew ? 1 : 0;
        return isNew;
    }
    CLeaf& leaf = *node.AsLeaf();
    const CIncrementalKey key(entry.name.Get());
    const auto place = FindPlace(leaf.items, key);
    if (place != leaf.items.end() && IsOf(*place, key)) {
        *place = std::move(item);
        return false;
    }
    const auto index = place - leaf.items.begin();
    leaf.items.reserve(leaf.items.size() + 1); // exactly: most leaves stay for long
    leaf.items.insert(leaf.items.begin() + index, std::move(item));
    if (leaf.items.size() > leafSize && !HaveOneHash(leaf.items)) {
        slot = Split(leaf, depth);
    }
    return true;
}

CIncrementalItemMap::CNodePtr CIncrementalItemMap::Split(CLeaf& leaf, int depth) {
    auto* branch = new CBranch;
    CNodePtr slot(branch);
    branch->count = leaf.GetCount();
    for (CIncrementalItemPtr& item : leaf.items) {
        const std::size_t digit = GetDigit(item->GetValue().hash, depth);
        Insert(branch->children[digit], item, depth + 1);
    }
    return slot;
}

void CIncrementalItemMap::Remove(const char* name) {
    const CIncrementalKey key(name);
    if (Find(key)) { // else shared nodes would be copied for nothing
        Remove(root, key, 0);
    }
}

void CIncrementalItemMap::Remove(CNodePtr& slot, const CIncrementalKey& key, int depth) {
    CNode& node = slot.Own();
    if (CBranch* branch = node.AsBranch()) {
        --branch->count;
        Remove(branch->children[GetDigit(key.hash, depth)], key, depth + 1);
        Collapse(slot);
        return;
    }
    CLeaf& leaf = *node.AsLeaf();
    leaf.items.erase(FindPlace(leaf.items, key));
    if (leaf.items.empty()) {
        slot = CNodePtr();
    }
}

// Makes a branch a leaf when its items would never have split one.
void CIncrementalItemMap::Collapse(CNodePtr& slot) {
    CBranch& branch = *slot->AsBranch();
    CNodePtr onlyChild;
    int childCount = 0;
    for (const CNodePtr& child : branch.children) {
        if (child) {
            onlyChild = child;
            ++childCount;
        }
    }
    if (childCount == 1 && onlyChild->AsLeaf()) {
        slot = onlyChild;
        return;
    }
    if (static_cast<std::size_t>(branch.count) > leafSize) {
        return;
    }
    auto* leaf = new CLeaf;
    CNodePtr merged(leaf);
    for (const CNodePtr& child : branch.children) { // leaves all, as they hold so few
        if (child) {
            const Items& items = child->AsLeaf()->items;
            leaf->items.insert(leaf->items.end(), items.begin(), items.end());
        }
    }
    leaf->items.shrink_to_fit();
    slot = merged;
}

void CIncrementalItemMap::Share(CNodePtr& mine, const CNodePtr& theirs) {
    if (!mine || !theirs || mine == theirs) {
        return;
    }
    CLeaf* leaf = mine->AsLeaf();
    CLeaf* otherLeaf = theirs->AsLeaf();
    bool isSame = false;
    if (leaf && otherLeaf) {
        isSame = std::equal(leaf->items.begin(), leaf->items.end(), otherLeaf->items.begin(),
                            otherLeaf->items.end(),
                            [](const CIncrementalItemPtr& a, const CIncrementalItemPtr& b) {
                                return a.Get() == b.Get();
                            });
    } else if (!leaf && !otherLeaf) {
        auto& children = mine->AsBranch()->children;
        const auto& otherChildren = theirs->AsBranch()->children;
        for (std::size_t i = 0; i < branchSize; ++i) {
            Share(children[i], otherChildren[i]);
        }
        isSame = children == otherChildren;
    }
    if (isSame) {
        mine = theirs;
    }
}

std::vector<IIncrementalItem*> CIncrementalItemMap::GetItems() const {
    std::vector<IIncrementalItem*> found;
    found.reserve(static_cast<std::size_t>(GetCount()));
    std::vector<CNode*> open; // the first of them last
    if (root) {
        open.push_back(root.Get());
    }
    while (!open.empty()) {
        CNode* node = open.back();
        open.pop_back();
        if (CLeaf* leaf = node->AsLeaf()) {
            for (const CIncrementalItemPtr& item : leaf->items) {
                found.push_back(item.Get());
            }
            continue;
        }
        const auto& children = node->AsBranch()->children;
        for (auto child = children.rbegin(); child != children.rend(); ++child) {
            if (*child) {
                open.push_back(child->Get());
            }
        }
    }
    return found;
}

} // namespace Vorin::Serialization
