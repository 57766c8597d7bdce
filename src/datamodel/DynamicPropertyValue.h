#pragma once

#include "runtime/DynamicObject.h"
#include "serialization/DataStream.h"
#include "serialization/Serializable.h"

namespace Vorin::DataModel::Objects {

/// A value of a type that only plug-in code knows. Immutable while it is shared; threads exchange
/// clones.
class IDynamicPropertyValue : public virtual Runtime::IDynamicObject,
                              public virtual Serialization::ITypeSerializable {
public:
    /// A deep copy, owned by the caller and freed with delete.
    virtual IDynamicPropertyValue* Clone() const = 0;
};

/// The null object: a value of no type.
class CEmptyDynamicPropertyValue : public IDynamicPropertyValue {
public:
    /// Null: there is no class to make it again from.
    const char* GetType() const override { return nullptr; }
    bool Serialize(Serialization::IWriteDataStream&) const override { return true; }
    bool DeSerialize(const Serialization::IReadDataStream&) override { return true; }
    IDynamicPropertyValue* Clone() const override { return new CEmptyDynamicPropertyValue; }
};

/// Interface identifier, for Runtime::CObjectsFactory. It is part of the file format.
inline constexpr char kDynamicPropertyInterface[] = "{3D7F0B52-61C4-4E0B-9A86-2B1C5D90E7A4}";

} // namespace Vorin::DataModel::Objects

namespace Vorin::Serialization {

template <>
struct TInterfaceIdentifier<DataModel::Objects::IDynamicPropertyValue> {
    static constexpr const char* kValue = DataModel::Objects::kDynamicPropertyInterface;
};

} // namespace Vorin::Serialization
