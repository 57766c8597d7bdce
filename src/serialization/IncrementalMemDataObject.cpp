#include "serialization/IncrementalMemDataObject.h"

#include <memory>
#include <utility>

namespace Vorin::Serialization {

namespace {

const CIncrementalDataBuffer& BufferOf(const IIncrementalItem& item) {
    return *item.GetValue().buffer;
}

CIncrementalItemPtr MakeItem(const char* name, std::unique_ptr<CIncrementalDataBuffer> buffer) {
    return CIncrementalItemPtr(new CIncrementalItem(name, std::move(buffer)));
}

} // namespace

CIncrementalMemDataObject::CIncrementalMemDataObject(
    const CIncrementalMemDataObject* previousSnapshot, bool isTolerant)
    : previous(previousSnapshot), unchanged(previousSnapshot != nullptr), tolerant(isTolerant) {}

const IIncrementalItem* CIncrementalMemDataObject::GetItem(const char* name) const {
    return name ? items.Find(CIncrementalKey(name)) : nullptr;
}

const CIncrementalDataBuffer* CIncrementalMemDataObject::Find(const char* name) const {
    const IIncrementalItem* item = GetItem(name);
    return item ? &BufferOf(*item) : nullptr;
}

IIncrementalItem* CIncrementalMemDataObject::FindPrevious(const CIncrementalKey& key) const {
    return previous ? previous->items.Find(key) : nullptr;
}

bool CIncrementalMemDataObject::ReadBool(const char* name, bool& value) const {
    const CIncrementalDataBuffer* buffer = Find(name);
    return buffer && buffer->GetBool(value);
}

bool CIncrementalMemDataObject::ReadInt(const char* name, int& value) const {
    const CIncrementalDataBuffer* buffer = Find(name);
    return buffer && buffer->GetInt(value);
}

bool CIncrementalMemDataObject::ReadFloat(const char* name, float& value) const {
    const CIncrementalDataBuffer* buffer = Find(name);
    return buffer && buffer->GetFloat(value);
}

bool CIncrementalMemDataObject::ReadDouble(const char* name, double& value) const {
    const CIncrementalDataBuffer* buffer = Find(name);
    return buffer && buffer->GetDouble(value);
}

bool CIncrementalMemDataObject::ReadString(const char* name, char*& value) const {
    const CIncrementalDataBuffer* buffer = Find(name);
    return buffer && buffer->GetString(value);
}

bool CIncrementalMemDataObject::ReadData(const char* name, void*& data, int& size) const {
    const CIncrementalDataBuffer* buffer = Find(name);
    return buffer && buffer->GetData(data, size);
}

bool CIncrementalMemDataObject::ReadObject(const char* name, IDeSerialize& object) const {
    const CIncrementalDataBuffer* buffer = Find(name);
    return buffer && buffer->GetObject(object);
}

template <class Set, class... Value>
bool CIncrementalMemDataObject::WriteValue(const char* name, Set set, const Value&... value) {
    if (!name) {
        return false;
    }
    IIncrementalItem* before = FindPrevious(CIncrementalKey(name));
    if (before && BufferOf(*before).Equals(value...)) {
        items.Insert(CIncrementalItemPtr::Share(before));
        return true;
    }
    auto buffer = std::make_unique<CIncrementalDataBuffer>();
    if (!(buffer.get()->*set)(value...)) {
        items.Remove(name);
        return false;
    }
    unchanged = false;
    items.Insert(MakeItem(name, std::move(buffer)));
    return true;
}

bool CIncrementalMemDataObject::WriteBool(const char* name, const bool& value) {
    return WriteValue(name, &CIncrementalDataBuffer::SetBool, value);
}

bool CIncrementalMemDataObject::WriteInt(const char* name, const int& value) {
    return WriteValue(name, &CIncrementalDataBuffer::SetInt, value);
}

bool CIncrementalMemDataObject::WriteFloat(const char* name, const float& value) {
    return WriteValue(name, &CIncrementalDataBuffer::SetFloat, value);
}

bool CIncrementalMemDataObject::WriteDouble(const char* name, const double& value) {
    return WriteValue(name, &CIncrementalDataBuffer::SetDouble, value);
}

bool CIncrementalMemDataObject::WriteString(const char* name, const char* value) {
    return WriteValue(name, &CIncrementalDataBuffer::SetString, value);
}

bool CIncrementalMemDataObject::WriteData(const char* name, const void* data, int size) {
    return WriteValue(name, &CIncrementalDataBuffer::SetData, data, size);
}

bool CIncrementalMemDataObject::WriteObject(const char* name, const ISerialize& object) {
    if (!name) {
        return false;
    }
    IIncrementalItem* before = FindPrevious(CIncrementalKey(name));
    auto buffer = std::make_unique<CIncrementalDataBuffer>();
    bool isSame = false;
    if (!buffer->SetObject(object, before ? &BufferOf(*before) : nullptr, isSame)) {
        items.Remove(name);
        return false;
    }
    if (isSame) {
        items.Insert(CIncrementalItemPtr::Share(before));
    } else {
        unchanged = false;
        items.Insert(MakeItem(name, std::move(buffer)));
    }
    return true;
}

bool CIncrementalMemDataObject::Remove(const char* name) {
    if (!name) {
        return false;
    }
    items.Remove(name);
    return true;
}

bool CIncrementalMemDataObject::Clear() {
    items.Clear();
    unchanged = previous != nullptr;
    return true;
}

void CIncrementalMemDataObject::Detach() {
    previous = nullptr;
    unchanged = false;
}

void CIncrementalMemDataObject::ShareWithPrevious() {
    if (previous) {
        items.ShareWith(previous->items);
    }
}

bool CIncrementalMemDataObject::SetDifference(const CIncrementalMemDataObject& from,
                                              const CIncrementalMemDataObject& to) {
    if (to.previous != &from && from.previous != &to) {
        return false;
    }
    FillDifference(from, to);
    return true;
}

void CIncrementalMemDataObject::FillDifference(const CIncrementalMemDataObject& from,
                                               const CIncrementalMemDataObject& to) {
    Clear();
    bool isComplete = true;
    for (IIncrementalItem* item : to.items.GetItems()) {
        const CIncrementalKey key(item->GetValue().name.Get());
        isComplete = InsertDifference(*item, from.items.Find(key)) && isComplete;
    }
    tolerant = !isComplete;
}

// False when the item is left out.
bool CIncrementalMemDataObject::InsertDifference(IIncrementalItem& item, IIncrementalItem* before) {
    if (before == &item) {
        return false;
    }
    const CIncrementalDataBuffer& buffer = BufferOf(item);
    // Two records can hold one value: rewriting an entry in place compares it with the one before
    // it, never with the one behind it.
    if (before && BufferOf(*before).HasValueOf(buffer)) {
        return false;
    }
    const CIncrementalMemDataObject* object = buffer.GetMemObject();
    const CIncrementalMemDataObject* objectBefore =
        before ? BufferOf(*before).GetMemObject() : nullptr;
    if (object && objectBefore) {
        auto difference = std::make_unique<CIncrementalDataBuffer>();
        difference->SetDifference(*objectBefore, *object);
        items.Insert(MakeItem(item.GetValue().name.Get(), std::move(difference)));
    } else {
        items.Insert(CIncrementalItemPtr::Share(&item));
    }
    return true;
}

} // namespace Vorin::Serialization
