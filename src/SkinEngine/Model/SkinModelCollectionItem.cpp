#include "SkinEngine/Model/SkinModelCollectionItem.h"

#include "SkinEngine/Model/SkinModelFactory.h"
#include "containers/MemMessageLog.h"

#include <algorithm>

namespace Vorin::AppEngine {

CSkinModelCollectionItemFactory::CSkinModelCollectionItemFactory(
    CSkinModel& parentModel, std::unique_ptr<IParsedTemplate> recordedContent,
    const Serialization::ISerialize& parserState, std::shared_ptr<CSkinModelContext> sharedContext)
    : model(parentModel), content(std::move(recordedContent)), context(std::move(sharedContext)) {
    parserState.Serialize(publicState);
    model.GetEnableEvents().Connect(modelEnabled);
}

CSkinModelCollectionItemFactory::~CSkinModelCollectionItemFactory() {
    model.GetEnableEvents().Disconnect(modelEnabled);
    for (int index = 0; index < items.GetSize(); ++index) {
        if (items[index]) {
            --context->itemsCount;
            delete items[index];
        }
    }
}

void CSkinModelCollectionItemFactory::Reserve(int delta) {
    const int old = items.GetSize();
    const int room = CSkinModelContext::kMaxItems - old;
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
    if (context->itemsCount >= CSkinModelContext::kMaxItems) {
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

void CSkinModelCollectionItemFactory::Fill(CSkinModelCollectionItem& item,
                                           const Containers::IConstNamedAttributes& attributes) {
    CoreUtilities::CMemMessageLog log;
    CSkinParser parser(&log);
    parser.GetPublicState().DeSerialize(publicState);
    CSkinModelFactory factory(log, parser, item.GetModel(), context, model);
    parser.ResetHandlers();
    factory.RegisterHandlers();
    // Without inner content a replay runs to its end.
    const std::unique_ptr<IParsedTemplateInstance> rest(content->Instantiate(attributes, &parser));
    factory.Link();
    if (Core::IMessageLog* itemLog = context->services.itemLog) {
        log.Remove(Core::kInfoMessage);
        for (const CoreUtilities::CMemMessageLog::CRecord& record : log.GetRecords()) {
            const Core::CPlaceScope scope(*itemLog, record.place);
            itemLog->Log(record.type, record.text.c_str(), record.level);
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
        --context->itemsCount;
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
