// COLLECTION and FOREACH.

#include "SkinEngine/Model/CommonParams.h"
#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/LinkCommands.h"
#include "SkinEngine/Model/ModelElement.h"
#include "SkinEngine/Model/SkinCollection.h"
#include "SkinEngine/Model/SkinModelCollectionItem.h"

#include "datamodel/objects/CaptureValueWrapper.h"

#include <limits>

namespace Vorin::AppEngine {

namespace {

/// Sets the initial count of a collection, once all collections are there.
class CSetCountCommand final : public CSkinModelFactory::CLinkCommand {
public:
    CSetCountCommand(CSkinModelFactory& modelFactory, CSkinCollection& countedCollection,
                     int initialCount)
        : factory(modelFactory), collection(countedCollection), count(initialCount),
          place(modelFactory.GetLog().GetPlace()) {}

    bool Execute() override {
        const Core::CPlaceScope scope(factory.GetLog(), place);
        collection.SetCount(count);
        return collection.GetCount() >= count;
    }

private:
    CSkinModelFactory& factory;
    CSkinCollection& collection;
    const int count;
    const Core::CDocumentPlace place;
};

/// Lets a FOREACH count, once all of its sources are connected.
class CReleaseForEachCommand final : public CSkinModelFactory::CLinkCommand {
public:
    explicit CReleaseForEachCommand(CForEachSkinCollection& heldCollection)
        : collection(heldCollection) {}

    bool Execute() override {
        collection.SetHeld(false);
        return true;
    }

private:
    CForEachSkinCollection& collection;
};

Objects::CParamInfo MakeCountInfo(const std::string& name, int min, int max, int initial) {
    return {Objects::kParamInteger,
            name.c_str(),
            "",
            "",
            new Objects::CParamValueToText("%.0f"),
            nullptr,
            static_cast<double>(min),
            static_cast<double>(max),
            static_cast<double>(initial)};
}

/// "item_name", and the model as the owner: by its identifier, or without one.
template <class I, class T>
bool AddCollectionObject(CModelElement& element, std::unique_ptr<T> made) {
    T& collection = *made;
    element.GetFactory().SetPendingCollection(&collection);
    if (element.Has("item_name")) {
        collection.SetItemName(element.Get("item_name"));
    }
    element.GetModel().AddDisconnect(collection);
    if (!*element.GetId()) {
        element.GetModel().Own(std::move(made));
        return true;
    }
    if (element.GetModel().template AddObject<I>(element.GetId(), made.release(), Core::kOwn)) {
        return true;
    }
    element.GetFactory().SetPendingCollection(nullptr);
    return false;
}

void ReadBounds(CModelElement& element, CSkinCollection& collection) {
    int minCount = 0;
    int maxCount = std::numeric_limits<int>::max();
    element.GetInteger("min_count", minCount);
    element.GetInteger("max_count", maxCount);
    collection.SetBounds(minCount, maxCount);
}

} // namespace

bool MakeCollection(CModelElement& element) {
    CSkinModelFactory& factory = element.GetFactory();
    factory.GetParser().StartRecording(nullptr);
    factory.SetPendingCollection(nullptr);
    if (!element.Has("id")) {
        return element.Fail("Cannot create collection, id field is empty.");
    }
    auto made = std::make_unique<CSkinCollection>(element.GetId());
    CSkinCollection& collection = *made;
    if (!AddCollectionObject<DataModel::ICollection>(element, std::move(made))) {
        return false;
    }
    ReadBounds(element, collection);
    int count = 0;
    element.GetInteger("count", count);
    count = collection.Clamp(count);
    const std::string countId = GetUsedSubId(element, "count");
    if (!countId.empty()) {
        AddPropertyParam(element, countId,
                         new Objects::TCaptureValueWrapper(
                             collection, &Containers::IConstCount::GetCount,
                             &Containers::ICount::SetCount,
                             &DataModel::IConstCollection::GetCountChangedEvents,
                             MakeCountInfo(countId, collection.Clamp(collection.GetMinCount()),
                                           collection.GetMaxCount(), count)));
    }
    element.AddToLists();
    factory.AddCountCommand(std::make_unique<CSetCountCommand>(factory, collection, count));
    return true;
}

bool MakeForEach(CModelElement& element) {
    CSkinModelFactory& factory = element.GetFactory();
    factory.GetParser().StartRecording(nullptr);
    factory.SetPendingCollection(nullptr);
    if (!element.Has("collection_id")) {
        return element.Fail("Cannot create \"foreach\" collection, collection_id field is empty.");
    }
    auto made = std::make_unique<CForEachSkinCollection>(element.GetId());
    CForEachSkinCollection& collection = *made;
    if (!AddCollectionObject<DataModel::IConstCollection>(element, std::move(made))) {
        return false;
    }
    const std::string countId = GetUsedSubId(element, "count");
    if (!countId.empty()) {
        using CCount =
            Objects::TConstCaptureValueWrapper<CForEachSkinCollection, Objects::IConstParamInfo,
                                               Objects::CParamInfo, double>;
        auto count = std::make_unique<CCount>(
            collection, &Containers::IConstCount::GetCount,
            &DataModel::IConstCollection::GetCountChangedEvents,
            MakeCountInfo(countId, 0, std::numeric_limits<int>::max(), collection.GetCount()));
        element.GetModel().AddDisconnect(*count);
        if (!element.GetModel().AddObject<Objects::IConstCaptureParam>(
                countId.c_str(), count.release(), Core::kOwn)) {
            element.SetFailed();
        }
    }
    collection.SetHeld(true);
    for (const std::string& source : SplitIds(element.Get("collection_id"))) {
        using CConnect =
            TConnectByRefWithIdCommand<CForEachSkinCollection, DataModel::IConstCollection>;
        factory.AddPreLinkCommand(std::make_unique<CConnect>(
            factory, source.c_str(), collection, &CForEachSkinCollection::ConnectSource,
            [&collection](const char*, DataModel::IConstCollection& gone) {
                collection.DisconnectSource(gone);
            }));
    }
    factory.AddPreLinkCommand(std::make_unique<CReleaseForEachCommand>(collection));
    return true;
}

bool EndCollection(CSkinModelFactory& factory) {
    std::unique_ptr<IParsedTemplate> content(factory.GetParser().StopRecording(nullptr));
    CSkinCollectionBase* collection = factory.TakePendingCollection();
    if (collection && content) {
        collection->SetItemFactory(std::make_unique<CSkinModelCollectionItemFactory>(
            factory.GetModel(), collection->GetId(), factory.GetLog().GetPlace(),
            std::move(content), factory.GetParser().GetPublicState(), factory.GetContext()));
    }
    return true;
}

bool DeclareCollection(CModelElement& element) {
    element.GetFactory().SetRecordedAttributes(element.GetAttributes());
    element.GetFactory().GetParser().StartRecording(nullptr);
    return true;
}

/// Replays the content once, for all items that there will ever be.
bool EndDeclaredCollection(CSkinModelFactory& factory) {
    const std::unique_ptr<IParsedTemplate> content(factory.GetParser().StopRecording(nullptr));
    const Containers::CNamedAttributes attributes = factory.TakeRecordedAttributes();
    const auto text = [&](const char* name, const char* otherwise) -> std::string {
        const char* value = attributes.GetValue(name);
        return value ? value : otherwise;
    };
    const std::string itemName = text("item_name", "item_id");
    Containers::CNamedAttributes parameters;
    parameters.SetValue(itemName.c_str(), (text("id", "") + "[*]").c_str());
    for (const std::string& source : SplitIds(attributes.GetValue("collection_id"))) {
        factory.GetUsage().Declare(source.c_str());
        std::string parameter = source;
        parameter += '_';
        parameter += itemName;
        parameters.SetValue(parameter.c_str(), (source + "[*]").c_str());
    }
    if (content) {
        const std::unique_ptr<IParsedTemplateInstance> rest(
            content->Instantiate(parameters, &factory.GetParser()));
    }
    return true;
}

} // namespace Vorin::AppEngine
