#include "SkinEngine/Model/SkinModelCollectionItem.h"

#include "SkinEngine/Document/SkinLimits.h"
#include "SkinEngine/Model/SkinModelFactory.h"
#include "containers/MemMessageLog.h"

#include <algorithm>
#include <optional>

namespace Vorin::AppEngine {

CSkinModelCollectionItemFactory::CSkinModelCollectionItemFactory(
    CSkinModel& parentModel, std::string collectionId, Core::CDocumentPlace collectionPlace,
    std::unique_ptr<IParsedTemplate> recordedContent, const Serialization::ISerialize& parserState,
    std::shared_ptr<CSkinModelContext> sharedContext)
    : model(parentModel), id(std::move(collectionId)), place(std::move(collectionPlace)),
      content(std::move(recordedContent)), context(std::move(sharedContext)) {
    parserState.Serialize(publicState);
    model.GetEnableEvents().Connect(modelEnabled);
}

CSkinModelCollectionItemFactory::~CSkinModelCollectionItemFactory() {
    model.GetEnableEvents().Disconnect(modelEnabled);
    for (int index = 0; index < items.GetSize(); ++index) {
        if (items[index]) {
            Forget(*items[index]);
            delete items[index];
        }
    }
}

/// One slot more than there may be items: to fill that one is refused, and told of.
void CSkinModelCollectionItemFactory::Reserve(int delta) {
    const int old = items.GetSize();
    const int room = CSkinModelContext::kMaxItems + 1 - old;
    if (delta <= 0 || room <= 0) {
        return;
    }
    items.SetSize(old + std::min(delta, room));
    for (int index = old; index < items.GetSize(); ++index) {
        items[index] = nullptr;
    }
}

bool CSkinModelCollectionItemFactory::CreateItem(
    int index, const Containers::IConstNamedAttributes& attributes) {
    if (items[index]) {
        return true;
    }
    if (!HasRoom()) {
        return false;
    }
    ++context->itemsCount;
    auto item = std::make_unique<CSkinModelCollectionItem>();
    // In its slot before it is filled: what its links set off may take it away again.
    CSkinModelCollectionItem& made = *item;
    items[index] = item.release();
    Fill(made, attributes);
    return true;
}

bool CSkinModelCollectionItemFactory::HasRoom() const {
    std::string full;
    if (context->itemsCount >= CSkinModelContext::kMaxItems) {
        full = ": a model has at most " + std::to_string(CSkinModelContext::kMaxItems) +
               " items in its collections, use a smaller count.";
    } else if (context->itemsElements >= SkinLimits::kExpandedElements) {
        full = ": the items of a model are made from at most " +
               std::to_string(SkinLimits::kExpandedElements) + " elements, use a smaller count.";
    }
    if (!full.empty() && context->log) {
        const Core::CPlaceScope scope(*context->log, place);
        context->log->Log(Core::kErrorMessage, (id + full).c_str(), 0);
    }
    return full.empty();
}

void CSkinModelCollectionItemFactory::Forget(const CSkinModelCollectionItem& item) {
    --context->itemsCount;
    context->itemsElements -= item.GetElements();
}

void CSkinModelCollectionItemFactory::Fill(CSkinModelCollectionItem& item,
                                           const Containers::IConstNamedAttributes& attributes) {
    CoreUtilities::CMemMessageLog log;
    CSkinParser parser(&log);
    parser.GetPublicState().DeSerialize(publicState);
    CSkinModelFactory factory(log, parser, item.GetModel(), context, model);
    parser.ResetHandlers();
    factory.RegisterHandlers();
    // All items together have a document's limit.
    parser.GetBudget().SetElements(context->itemsElements);
    // Without inner content a replay runs to its end.
    const std::unique_ptr<IParsedTemplateInstance> rest(content->Instantiate(attributes, &parser));
    item.SetElements(parser.GetBudget().GetElements() - context->itemsElements);
    context->itemsElements += item.GetElements();
    std::optional<Core::CPlaceScope> scope;
    if (context->log) {
        scope.emplace(*context->log, place);
    }
    factory.Link();
    if (context->log) {
        log.Remove(Core::kInfoMessage);
        for (const CoreUtilities::CMemMessageLog::CRecord& record : log.GetRecords()) {
            context->log->SetPlace(record.place);
            context->log->Log(record.type, record.text.c_str(), record.level);
        }
    }
}

/// Links that run again may change the count meanwhile.
void CSkinModelCollectionItemFactory::OnModelEnabled() {
    for (int index = 0; index < items.GetSize(); ++index) {
        if (items[index]) {
            items[index]->GetModel().SetEnabled(model.IsEnabled());
        }
    }
}

void CSkinModelCollectionItemFactory::DestroyItem(int index) {
    if (items[index]) {
        Forget(*items[index]);
        context->retiredItems.Add(
            std::unique_ptr<ISkinCollectionItem>(std::exchange(items[index], nullptr)));
    }
}

ISkinCollectionItem* CSkinModelCollectionItemFactory::GetItem(int index) {
    return index < items.GetSize() ? items[index] : nullptr;
}

void CSkinModelCollectionItemFactory::Release(int delta) {
    if (delta < 0) {
        items.SetSize(items.GetSize() + delta);
    }
}

} // namespace Vorin::AppEngine
