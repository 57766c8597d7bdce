#include "serialization/TypeSerializer.h"

#include "serialization/Base64.h"
#include "serialization/ItemSerialization.h"

namespace Vorin::Serialization {

Containers::CCharString ContentKey(const char* type) {
    Containers::CCharString key("content");
    key.Append(type);
    return Base64::Encode(key.Get(), key.GetLength());
}

bool CTypeSerializer::Serialize(IWriteDataStream& stream) const {
    if (!stream.WriteBool("isNull", object == nullptr)) {
        return false;
    }
    const char* type = object ? object->GetType() : nullptr;
    if (!type) {
        return true;
    }
    return stream.WriteString("type", type) && stream.WriteObject(ContentKey(type).Get(), *object);
}

bool CTypeDeSerializerTester::DeSerialize(const IReadDataStream& stream) {
    isTolerant = stream.IsTolerant();
    isNullRead = stream.ReadBool("isNull", isNull);
    isTypeRead = ReadItem(stream, "type", type);
    return isTolerant || (isNullRead && (isNull || isTypeRead));
}

} // namespace Vorin::Serialization
