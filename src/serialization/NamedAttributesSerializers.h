#pragma once

#include "containers/NamedAttributes.h"
#include "serialization/Serializable.h"

namespace Vorin::Serialization {

/// Writes a table of attributes as an object "namedValues": a list of name and value with the item
/// word "item", sorted by name, so that what is written does not hang on the order of the table.
class CNamedAttributesSerializer : public virtual ISerialize {
public:
    explicit CNamedAttributesSerializer(const Containers::IConstNamedAttributes& writtenAttributes)
        : attributes(writtenAttributes) {}
    bool Serialize(IWriteDataStream& stream) const override;

private:
    const Containers::IConstNamedAttributes& attributes;
};

/// Reads a table of attributes, which then holds what was written; when that fails it stays as it
/// was. On a tolerant stream the attributes that are there join those of the table.
class CNamedAttributesDeSerializer : public virtual IDeSerialize {
public:
    explicit CNamedAttributesDeSerializer(Containers::INamedAttributes& readAttributes)
        : attributes(readAttributes) {}
    bool DeSerialize(const IReadDataStream& stream) override;

private:
    Containers::INamedAttributes& attributes;
};

/// Both over one table, which outlives the adapter.
class CSerializableNamedAttributes : public virtual ISerializable {
public:
    explicit CSerializableNamedAttributes(Containers::CNamedAttributes& serializedAttributes)
        : attributes(serializedAttributes) {}
    bool Serialize(IWriteDataStream& stream) const override {
        return CNamedAttributesSerializer(attributes).Serialize(stream);
    }
    bool DeSerialize(const IReadDataStream& stream) override {
        return CNamedAttributesDeSerializer(attributes).DeSerialize(stream);
    }

private:
    Containers::CNamedAttributes& attributes;
};

} // namespace Vorin::Serialization
