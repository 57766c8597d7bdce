#include "serialization/NamedAttributesSerializers.h"

#include "serialization/ListSerializers.h"
#include "serialization/NamedValues.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace Vorin::Serialization {

namespace {

using Pair = TSerializableNamedValue<char*>;
using Pairs = std::vector<Pair>;

} // namespace

bool CNamedAttributesSerializer::Serialize(IWriteDataStream& stream) const {
    Pairs pairs;
    const std::unique_ptr<Containers::IConstIterator<Containers::CNamedAttribute>> iterator(
        attributes.CreateIterator());
    for (; !iterator->IsAtEnd(); iterator->Next()) {
        pairs.emplace_back(iterator->Get().GetName(), iterator->Get().GetValue());
    }
    std::sort(pairs.begin(), pairs.end(), [](const Pair& a, const Pair& b) {
        return std::strcmp(a.GetName(), b.GetName()) < 0;
    });
    return stream.WriteObject("namedValues", TStdContainerSerializer<Pairs>(pairs, "item"));
}

bool CNamedAttributesDeSerializer::DeSerialize(const IReadDataStream& stream) {
    Pairs pairs;
    TStdContainerDeSerializer<Pair, Pairs> reader(pairs, "item");
    if (!stream.ReadObject("namedValues", reader)) {
        return stream.IsTolerant();
    }
    Containers::CNamedAttributes read;
    if (stream.IsTolerant()) {
        read.Set(attributes);
    }
    for (const Pair& pair : pairs) {
        read.SetValue(pair.GetName(), pair.GetValue().Get());
    }
    attributes.Set(read);
    return true;
}

} // namespace Vorin::Serialization
