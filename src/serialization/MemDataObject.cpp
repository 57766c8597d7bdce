#include "serialization/MemDataObject.h"

#include "serialization/ItemName.h"
#include "serialization/Limits.h"

#include <memory>
#include <utility>
#include <vector>

namespace Vorin::Serialization {

namespace {

/// One item on its way in.
struct CReadItem {
    std::unique_ptr<char[]> name;
    std::unique_ptr<CDataBuffer> buffer;

    bool Read(const IReadDataStream& stream, int index) {
        char* text = nullptr;
        if (!stream.ReadString(ItemName("ItemName", index).Get(), text)) {
            return false;
        }
        name.reset(text);
        buffer = std::make_unique<CDataBuffer>();
        return text && stream.ReadObject(ItemName("Item", index).Get(), *buffer);
    }
};

} // namespace

const CDataBuffer* CMemDataObject::Find(const char* name) const {
    const Items::CEntry* entry = name ? items.Find(name) : nullptr;
    return entry ? entry->value.Get() : nullptr;
}

bool CMemDataObject::ReadBool(const char* name, bool& value) const {
    const CDataBuffer* buffer = Find(name);
    return buffer && buffer->GetBool(value);
}

bool CMemDataObject::ReadInt(const char* name, int& value) const {
    const CDataBuffer* buffer = Find(name);
    return buffer && buffer->GetInt(value);
}

bool CMemDataObject::ReadFloat(const char* name, float& value) const {
    const CDataBuffer* buffer = Find(name);
    return buffer && buffer->GetFloat(value);
}

bool CMemDataObject::ReadDouble(const char* name, double& value) const {
    const CDataBuffer* buffer = Find(name);
    return buffer && buffer->GetDouble(value);
}

bool CMemDataObject::ReadString(const char* name, char*& value) const {
    const CDataBuffer* buffer = Find(name);
    return buffer && buffer->GetString(value);
}

bool CMemDataObject::ReadData(const char* name, void*& data, int& size) const {
    const CDataBuffer* buffer = Find(name);
    return buffer && buffer->GetData(data, size);
}

bool CMemDataObject::ReadObject(const char* name, IDeSerialize& object) const {
    const CDataBuffer* buffer = Find(name);
    return buffer && buffer->GetObject(object);
}

template <class Set>
bool CMemDataObject::Write(const char* name, Set set) {
    if (!name) {
        return false;
    }
    // Both first, since name and value may be texts of the item that is replaced.
    auto buffer = std::make_unique<CDataBuffer>();
    const bool done = set(*buffer);
    const Containers::CCharString key(name);
    items.Remove(key.Get());
    if (done) {
        items.Obtain(key.Get()).value.Set(buffer.release(), Core::kOwn);
    }
    return done;
}

bool CMemDataObject::WriteBool(const char* name, const bool& value) {
    return Write(name, [&value](CDataBuffer& buffer) { return buffer.SetBool(value); });
}

bool CMemDataObject::WriteInt(const char* name, const int& value) {
    return Write(name, [&value](CDataBuffer& buffer) { return buffer.SetInt(value); });
}

bool CMemDataObject::WriteFloat(const char* name, const float& value) {
    return Write(name, [&value](CDataBuffer& buffer) { return buffer.SetFloat(value); });
}

bool CMemDataObject::WriteDouble(const char* name, const double& value) {
    return Write(name, [&value](CDataBuffer& buffer) { return buffer.SetDouble(value); });
}

bool CMemDataObject::WriteString(const char* name, const char* value) {
    return Write(name, [value](CDataBuffer& buffer) { return buffer.SetString(value); });
}

bool CMemDataObject::WriteData(const char* name, const void* data, int size) {
    return Write(name, [data, size](CDataBuffer& buffer) { return buffer.SetData(data, size); });
}

bool CMemDataObject::WriteObject(const char* name, const ISerialize& object) {
    return Write(name, [&object](CDataBuffer& buffer) { return buffer.SetObject(object); });
}

bool CMemDataObject::Remove(const char* name) {
    if (!name) {
        return false;
    }
    items.Remove(name);
    return true;
}

bool CMemDataObject::Clear() {
    items.Clear();
    return true;
}

bool CMemDataObject::Serialize(IWriteDataStream& stream) const {
    if (!stream.WriteInt("ItemsCount", items.GetCount())) {
        return false;
    }
    int index = 0;
    for (const Items::CEntry* entry = items.GetFirst(); entry; entry = items.GetNext(entry)) {
        if (!stream.WriteString(ItemName("ItemName", index).Get(), entry->key.Get()) ||
            !stream.WriteObject(ItemName("Item", index).Get(), *entry->value.Get())) {
            return false;
        }
        ++index;
    }
    return true;
}

bool CMemDataObject::DeSerialize(const IReadDataStream& stream) {
    const bool isTolerant = stream.IsTolerant();
    int count = 0;
    if (!stream.ReadInt("ItemsCount", count) && !isTolerant) {
        return false;
    }
    if (count < 0 || count > kMaximumItems) {
        return false;
    }
    std::vector<CReadItem> read;
    for (int index = 0; index < count; ++index) {
        CReadItem item;
        if (item.Read(stream, index)) {
            read.push_back(std::move(item));
        } else if (!isTolerant) {
            return false;
        }
    }
    if (!isTolerant) {
        items.Clear();
    }
    for (CReadItem& item : read) {
        items.Obtain(item.name.get()).value.Set(item.buffer.release(), Core::kOwn);
    }
    return true;
}

} // namespace Vorin::Serialization
