#pragma once

#include "containers/TextMap.h"
#include "core/Ownership.h"
#include "serialization/DataBuffer.h"

namespace Vorin::Serialization {

/// A data object in memory: a hash map from name to typed value. Nothing is converted: what was
/// written as an int reads as an int alone. Names are compared exactly; items stand in the order of
/// the map.
///
/// It reaches another medium as an int "ItemsCount" and, for each item N, a string "ItemName<N>"
/// and an object "Item<N>".
class CMemDataObject : public virtual IReadWriteDataStream, public virtual ISerializable {
public:
    bool IsTolerant() const override { return false; }
    bool ReadBool(const char* name, bool& value) const override;
    bool ReadInt(const char* name, int& value) const override;
    bool ReadFloat(const char* name, float& value) const override;
    bool ReadDouble(const char* name, double& value) const override;
    bool ReadString(const char* name, char*& value) const override;
    bool ReadData(const char* name, void*& data, int& size) const override;
    bool ReadObject(const char* name, IDeSerialize& object) const override;
    bool Exists(const char* name) const override { return Find(name) != nullptr; }

    bool WriteBool(const char* name, const bool& value) override;
    bool WriteInt(const char* name, const int& value) override;
    bool WriteFloat(const char* name, const float& value) override;
    bool WriteDouble(const char* name, const double& value) override;
    bool WriteString(const char* name, const char* value) override;
    bool WriteData(const char* name, const void* data, int size) override;
    bool WriteObject(const char* name, const ISerialize& object) override;
    bool Remove(const char* name) override;
    bool Clear() override;

    int GetCount() const { return items.GetCount(); }

    bool Serialize(IWriteDataStream& stream) const override;

    /// Becomes what was written. When an item is missing or is not fit, nothing changes, unless
    /// the stream is tolerant: then the items that are there join those present.
    bool DeSerialize(const IReadDataStream& stream) override;

private:
    using Items = Containers::TTextMap<Core::TOwnership<CDataBuffer>>;

    const CDataBuffer* Find(const char* name) const;

    template <class Set>
    bool Write(const char* name, Set set);

    Items items;
};

} // namespace Vorin::Serialization
