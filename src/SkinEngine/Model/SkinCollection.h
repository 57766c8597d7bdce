#pragma once

#include "SkinEngine/Model/Collection.h"
#include "SkinEngine/Model/SkinCollectionItem.h"
#include "core/ArgEventProvider.h"
#include "core/Command.h"
#include "core/Disconnect.h"

#include <memory>
#include <string>
#include <vector>

namespace Vorin::AppEngine {

/// A number of items made of one template. One thread.
class CSkinCollectionBase : public virtual DataModel::IConstCollection,
                            public virtual Core::IDisconnect {
public:
    explicit CSkinCollectionBase(const char* collectionId) : id(collectionId) {}
    CSkinCollectionBase(const CSkinCollectionBase&) = delete;
    CSkinCollectionBase& operator=(const CSkinCollectionBase&) = delete;

    int GetCount() const override { return count; }
    ~CSkinCollectionBase() override;
    Core::TIArgEventProvider<int>& GetCountChangingEvents() override { return countChanging; }
    Core::IEventProvider& GetCountChangedEvents() override { return countChanged; }

    /// Disconnects each item.
    void Disconnect() override;

    /// Sets the parameters that the template of an item gets beside the item's own name.
    virtual void AddItemParameters(Containers::INamedAttributes& attributes, int index);

    const char* GetId() const { return id.c_str(); }

    /// The name of the template's parameter that stands for the item.
    const char* GetItemName() const { return itemName.c_str(); }
    void SetItemName(const char* name) { itemName = name; }

    /// Makes the items that are wanted by now.
    void SetItemFactory(std::unique_ptr<ISkinCollectionItemFactory> factory);
    ISkinCollectionItemFactory* GetItemFactory() { return itemFactory.get(); }

protected:
    /// Makes or lets go of items until there are as many as wanted. When no more can be made, the
    /// count becomes that of the items there are.
    void ChangeCount(int newCount);

    void DisconnectItemsFrom(int index);

private:
    /// A count that changes with what the change sets off may never settle.
    static constexpr int kMaxRounds = 64;

    void FollowCount();
    void Shrink(int oldCount, int newCount);
    void Grow(int oldCount, int newCount);

    int count = 0; // wanted
    const std::string id;
    std::string itemName = "item_id";
    std::unique_ptr<ISkinCollectionItemFactory> itemFactory;
    Core::TArgEventProvider<int> countChanging;
    Core::CEventProvider countChanged;
    bool isChanging = false;
};

/// A collection with a count of its own.
class CSkinCollection : public CSkinCollectionBase, public virtual DataModel::ICollection {
public:
    using CSkinCollectionBase::CSkinCollectionBase;

    /// The bounds of the count. Where they cross, the maximum wins; no count is below 0.
    void SetBounds(int newMinCount, int newMaxCount);
    int GetMinCount() const { return minCount; }
    int GetMaxCount() const { return maxCount; }

    /// The count nearest to `wanted` within the bounds.
    int Clamp(int wanted) const;

    void SetCount(int newCount) override { ChangeCount(Clamp(newCount)); }

private:
    int minCount = 0;
    int maxCount = 2147483647;
};

/// A collection with an item for each item of others: as many as the smallest of them has.
class CForEachSkinCollection : public CSkinCollectionBase {
public:
    using CSkinCollectionBase::CSkinCollectionBase;
    ~CForEachSkinCollection() override;

    /// Lets go of the sources, and disconnects each item.
    void Disconnect() override;

    /// For each source, its own item: the parameter of its id, "_", and the item name.
    void AddItemParameters(Containers::INamedAttributes& attributes, int index) override;

    /// Follows the collection from now on.
    void ConnectSource(const char* sourceId, DataModel::IConstCollection& collection);

    /// For a source that goes.
    void DisconnectSource(DataModel::IConstCollection& collection);

    /// While held the count stays: no item is made before all of its sources are known.
    void SetHeld(bool hold);

private:
    struct CSource {
        std::string id;
        DataModel::IConstCollection* collection;
    };

    void RefreshCount();
    void DisconnectFrom(int index) { DisconnectItemsFrom(index); }

    std::vector<CSource> sources;
    Core::TCommand<CForEachSkinCollection> refreshCount{this,
                                                        &CForEachSkinCollection::RefreshCount};
    Core::TArgCommand<CForEachSkinCollection, int> disconnectFrom{
        this, &CForEachSkinCollection::DisconnectFrom};
    bool isHeld = false;
};

} // namespace Vorin::AppEngine
