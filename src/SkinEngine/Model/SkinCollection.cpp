#include "SkinEngine/Model/SkinCollection.h"

#include <algorithm>
#include <limits>

namespace Vorin::AppEngine {

CSkinCollectionBase::~CSkinCollectionBase() = default;

void CSkinCollectionBase::Disconnect() { DisconnectItemsFrom(0); }

void CSkinCollectionBase::AddItemParameters(Containers::INamedAttributes& attributes, int index) {
    static_cast<void>(attributes);
    static_cast<void>(index);
}

void CSkinCollectionBase::SetItemFactory(std::unique_ptr<ISkinCollectionItemFactory> factory) {
    itemFactory = std::move(factory);
    FollowCount();
}

void CSkinCollectionBase::ChangeCount(int newCount) {
    if (newCount != count) {
        count = newCount;
        FollowCount();
    }
}

void CSkinCollectionBase::DisconnectItemsFrom(int index) {
    if (!itemFactory) {
        return;
    }
    for (int i = std::max(index, 0); i < itemFactory->GetCount(); ++i) {
        if (ISkinCollectionItem* item = itemFactory->GetItem(i)) {
            item->Disconnect();
        }
    }
}

/// A change that comes out of a change is left to the one in progress, which goes on until both
/// counts agree: nesting them would let a document decide how deep.
void CSkinCollectionBase::FollowCount() {
    if (!itemFactory || isChanging) {
        return;
    }
    isChanging = true;
    for (int round = 0; round < kMaxRounds && itemFactory->GetCount() != count; ++round) {
        const int oldCount = itemFactory->GetCount();
        const int newCount = count;
        countChanging.Notify(newCount);
        itemFactory->Reserve(newCount - oldCount);
        if (newCount < oldCount) {
            Shrink(oldCount, newCount);
        } else {
            Grow(oldCount, newCount);
        }
        itemFactory->Release(newCount - oldCount);
        countChanged.Notify();
    }
    count = itemFactory->GetCount();
    isChanging = false;
}

void CSkinCollectionBase::Shrink(int oldCount, int newCount) {
    DisconnectItemsFrom(newCount);
    for (int index = newCount; index < oldCount; ++index) {
        itemFactory->DestroyItem(index);
    }
}

/// Items are made in order up to the count as it is by then. The slots behind the last one that
/// could be made are taken back.
void CSkinCollectionBase::Grow(int oldCount, int newCount) {
    int index = oldCount;
    for (; index < count && index < newCount; ++index) {
        Containers::CNamedAttributes attributes;
        attributes.SetValue(itemName.c_str(), (id + "[" + std::to_string(index) + "]").c_str());
        AddItemParameters(attributes, index);
        if (index >= itemFactory->GetCount() || !itemFactory->CreateItem(index, attributes)) {
            count = index;
            break;
        }
    }
    itemFactory->Release(index - itemFactory->GetCount());
}

void CSkinCollection::SetBounds(int newMinCount, int newMaxCount) {
    minCount = newMinCount;
    maxCount = newMaxCount;
}

int CSkinCollection::Clamp(int wanted) const {
    return std::max(std::min(std::max(wanted, minCount), maxCount), 0);
}

CForEachSkinCollection::~CForEachSkinCollection() { CForEachSkinCollection::Disconnect(); }

void CForEachSkinCollection::Disconnect() {
    CSkinCollectionBase::Disconnect();
    for (const CSource& source : sources) {
        source.collection->GetCountChangedEvents().Disconnect(refreshCount);
        source.collection->GetCountChangingEvents().Disconnect(disconnectFrom);
    }
    sources.clear();
}

void CForEachSkinCollection::AddItemParameters(Containers::INamedAttributes& attributes,
                                               int index) {
    for (const CSource& source : sources) {
        attributes.SetValue((source.id + "_" + GetItemName()).c_str(),
                            (source.id + "[" + std::to_string(index) + "]").c_str());
    }
}

void CForEachSkinCollection::ConnectSource(const char* sourceId,
                                           DataModel::IConstCollection& collection) {
    sources.push_back({sourceId, &collection});
    collection.GetCountChangedEvents().Connect(refreshCount);
    collection.GetCountChangingEvents().Connect(disconnectFrom);
    RefreshCount();
}

void CForEachSkinCollection::DisconnectSource(DataModel::IConstCollection& collection) {
    collection.GetCountChangedEvents().Disconnect(refreshCount);
    collection.GetCountChangingEvents().Disconnect(disconnectFrom);
    std::erase_if(sources, [&](const CSource& source) { return source.collection == &collection; });
    RefreshCount();
}

void CForEachSkinCollection::SetHeld(bool hold) {
    isHeld = hold;
    RefreshCount();
}

void CForEachSkinCollection::RefreshCount() {
    if (isHeld) {
        return;
    }
    int smallest = sources.empty() ? 0 : std::numeric_limits<int>::max();
    for (const CSource& source : sources) {
        smallest = std::min(smallest, source.collection->GetCount());
    }
    ChangeCount(std::max(smallest, 0));
}

} // namespace Vorin::AppEngine
