#pragma once

#include "containers/CharString.h"
#include "core/Ownership.h"
#include "serialization/ItemSerialization.h"
#include "serialization/TypeSerializer.h"

namespace Vorin::Serialization {

/// What a named value of type `T` is kept as.
template <class T>
struct TNamedValueStorage {
    using Type = T;
};
template <>
struct TNamedValueStorage<char*> {
    using Type = Containers::CCharString;
};

/// A pair of a "name" and a "value"; `T` is `char*`, `int` or `double`. It has its own copies.
template <class T>
class TSerializableNamedValue : public virtual ISerializable {
public:
    using Value = typename TNamedValueStorage<T>::Type;

    TSerializableNamedValue() = default;
    TSerializableNamedValue(const char* pairName, const Value& pairValue)
        : name(pairName), value(pairValue) {}

    const char* GetName() const { return name.Get(); }
    const Value& GetValue() const { return value; }

    bool Serialize(IWriteDataStream& stream) const override {
        return WriteItem(stream, "name", name) && WriteItem(stream, "value", value);
    }

    /// True when both were read, or the stream is tolerant.
    bool DeSerialize(const IReadDataStream& stream) override {
        const bool isNameRead = ReadItem(stream, "name", name);
        const bool isValueRead = ReadItem(stream, "value", value);
        return (isNameRead && isValueRead) || stream.IsTolerant();
    }

private:
    Containers::CCharString name;
    Value value{};
};

/// A name and an object that is there already, read in place. The object outlives the adapter; a
/// null one cannot be written or read.
template <class T>
class TSerializableNamedPointer : public virtual ISerializable {
public:
    TSerializableNamedPointer(const char* pairName, T* pairObject)
        : name(pairName), object(pairObject) {}

    const char* GetName() const { return name.Get(); }
    T* GetObject() const { return object; }

    bool Serialize(IWriteDataStream& stream) const override {
        return object && WriteItem(stream, "name", name) && WriteItem(stream, "value", *object);
    }

    bool DeSerialize(const IReadDataStream& stream) override {
        const bool isNameRead = ReadItem(stream, "name", name);
        const bool isValueRead = object && ReadItem(stream, "value", *object);
        return (isNameRead && isValueRead) || stream.IsTolerant();
    }

private:
    Containers::CCharString name;
    T* object;
};

/// A name and an object that is made anew by its type when it is read; null is a value too.
template <class T>
class TSerializableNamedTypedPointer : public virtual ISerializable {
public:
    TSerializableNamedTypedPointer() = default;
    TSerializableNamedTypedPointer(const char* pairName, T* pairObject, Core::EOwnership ownership)
        : name(pairName), object(pairObject, ownership) {}

    const char* GetName() const { return name.Get(); }
    T* GetObject() { return object.Get(); }
    const T* GetObject() const { return object.Get(); }

    /// Gives the object away; the caller owns what this pair owned.
    T* Release() {
        T* released = object.Get();
        object.Set(released, Core::kDontOwn);
        object.Set(nullptr, Core::kOwn);
        return released;
    }

    bool Serialize(IWriteDataStream& stream) const override {
        return WriteItem(stream, "name", name) &&
               stream.WriteObject("value", CTypeSerializer(object.Get()));
    }

    /// What cannot be read keeps what it was.
    bool DeSerialize(const IReadDataStream& stream) override {
        const bool isNameRead = ReadItem(stream, "name", name);
        TRuntimeDeSerializer<T> reader;
        const bool isValueRead = stream.ReadObject("value", reader);
        if (isValueRead) {
            object.Set(reader.Release(), Core::kOwn);
        }
        return (isNameRead && isValueRead) || stream.IsTolerant();
    }

private:
    Containers::CCharString name;
    Core::TOwnership<T> object;
};

} // namespace Vorin::Serialization
