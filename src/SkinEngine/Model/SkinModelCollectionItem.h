#pragma once

#include "SkinEngine/Document/ParsedTemplate.h"
#include "SkinEngine/Model/SkinCollectionItem.h"
#include "SkinEngine/Model/SkinModel.h"
#include "SkinEngine/Model/SkinModelContext.h"
#include "containers/DynamicVector.h"
#include "serialization/MemDataObject.h"

#include <memory>
#include <string>

namespace Vorin::AppEngine {

/// An item of a collection in a model: a model of its own, whose objects are in the model around it
/// too.
class CSkinModelCollectionItem : public virtual ISkinCollectionItem {
public:
    CSkinModel& GetModel() { return model; }

    /// How many elements the item was expanded from.
    int GetElements() const { return elements; }
    void SetElements(int count) { elements = count; }

    void Disconnect() override { model.Disconnect(); }

private:
    CSkinModel model;
    int elements = 0;
};

/// Makes such items out of recorded elements, also long after the document was read. They are
/// enabled while the model around them is.
class CSkinModelCollectionItemFactory : public virtual ISkinCollectionItemFactory {
public:
    /// The model outlives the factory. The parser's state is copied. Identifier and place are those
    /// of the collection, for messages.
    CSkinModelCollectionItemFactory(CSkinModel& parentModel, std::string collectionId,
                                    Core::CDocumentPlace collectionPlace,
                                    std::unique_ptr<IParsedTemplate> recordedContent,
                                    const Serialization::ISerialize& parserState,
                                    std::shared_ptr<CSkinModelContext> sharedContext);
    ~CSkinModelCollectionItemFactory() override;

    CSkinModelCollectionItemFactory(const CSkinModelCollectionItemFactory&) = delete;
    CSkinModelCollectionItemFactory& operator=(const CSkinModelCollectionItemFactory&) = delete;

    int GetCount() const override { return items.GetSize(); }
    void Reserve(int delta) override;

    /// False when there is as much in the items of the model as there may be, which is logged. What
    /// goes wrong inside an item leaves out a part of it, and stops no other one.
    bool CreateItem(int index, const Containers::IConstNamedAttributes& attributes) override;
    void DestroyItem(int index) override;
    ISkinCollectionItem* GetItem(int index) override;
    void Release(int delta) override;

private:
    void OnModelEnabled();
    bool HasRoom() const;
    void Forget(const CSkinModelCollectionItem& item);
    void Fill(CSkinModelCollectionItem& item, const Containers::IConstNamedAttributes& attributes);

    Containers::TDynamicVector<CSkinModelCollectionItem*, Containers::CStepGrowthStrategy> items{
        Containers::CStepGrowthStrategy(1)};
    CSkinModel& model;
    const std::string id;
    const Core::CDocumentPlace place;
    std::unique_ptr<IParsedTemplate> content;
    Serialization::CMemDataObject publicState;
    std::shared_ptr<CSkinModelContext> context;
    // One for all items: to take thousands of listeners out of a provider takes its time.
    Core::TCommand<CSkinModelCollectionItemFactory> modelEnabled{
        this, &CSkinModelCollectionItemFactory::OnModelEnabled};
};

} // namespace Vorin::AppEngine
