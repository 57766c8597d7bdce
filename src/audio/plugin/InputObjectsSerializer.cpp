#include "audio/plugin/InputObjectsSerializer.h"

#include "serialization/ItemSerialization.h"

namespace Vorin::Audio::Plugin {

using namespace Serialization;

namespace {

constexpr char kObjectsCount[] = "count";
constexpr char kTextWord[] = "s";

} // namespace

bool CInputStringsSerializer::Serialize(IWriteDataStream& stream) const {
    bool done = stream.WriteInt(kObjectsCount, inputs.GetCount());
    for (int i = 0; i < inputs.GetCount(); ++i) {
        const CMTInputString::Item item = inputs.Get(i).GetItem();
        done &= stream.WriteString(ItemName(kTextWord, i).Get(), item->GetValue());
    }
    return done;
}

bool CInputStringsDeSerializer::DeSerialize(const IReadDataStream& stream) {
    const int known = static_cast<int>(items.size());
    if (!IsCountFit(stream, kObjectsCount, kTextWord, known)) {
        return false;
    }
    for (int i = 0; i < known; ++i) {
        const Containers::CCharString name = ItemName(kTextWord, i);
        Containers::CCharString text;
        if (ReadItem(stream, name.Get(), text)) {
            items[static_cast<std::size_t>(i)] = TInputItem<const char*>::Make(text.Get());
        } else if (stream.Exists(name.Get())) {
            return false;
        }
    }
    return true;
}

} // namespace Vorin::Audio::Plugin
