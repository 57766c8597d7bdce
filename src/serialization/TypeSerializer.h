#pragma once

#include "containers/CharString.h"
#include "core/Ownership.h"
#include "runtime/ObjectsFactory.h"
#include "serialization/DataStream.h"

#include <memory>

namespace Vorin::Serialization {

/// The name that the content of an object of that type stands under: "content" and the type in
/// Base64, so that objects of different types never meet under one name.
Containers::CCharString ContentKey(const char* type);

/// Writes an object together with its type: a bool "isNull", for an object a string "type", and
/// the object under `ContentKey`. An object without a type leaves it at "isNull". The object
/// outlives the adapter.
class CTypeSerializer : public virtual ISerialize {
public:
    explicit CTypeSerializer(const ITypeSerializable* writtenObject) : object(writtenObject) {}
    bool Serialize(IWriteDataStream& stream) const override;

private:
    const ITypeSerializable* object;
};

/// Looks whether a stream holds what CTypeSerializer writes, without making anything.
class CTypeDeSerializerTester : public virtual IDeSerialize {
public:
    /// True when "isNull" was read and, unless it is null, "type" too, or the stream is tolerant.
    bool DeSerialize(const IReadDataStream& stream) override;

    bool IsNullRead() const { return isNullRead; }
    bool IsTypeRead() const { return isTypeRead; }
    bool IsTolerant() const { return isTolerant; }
    bool IsNull() const { return isNull; }
    const char* GetType() const { return type.Get(); }

private:
    bool isNullRead = false;
    bool isTypeRead = false;
    bool isTolerant = false;
    bool isNull = false;
    Containers::CCharString type;
};

/// Reads what CTypeSerializer wrote into a new object of interface `T`, made by the objects
/// factory. `TInterfaceIdentifier<T>` names the interface.
///
/// A type that nobody makes, and content that is not fit, fail and leave no object.
template <class T>
class TRuntimeDeSerializer : public virtual IDeSerialize {
public:
    bool DeSerialize(const IReadDataStream& stream) override {
        object.reset();
        CTypeDeSerializerTester tester;
        if (!tester.DeSerialize(stream) || !tester.IsNullRead()) {
            return false;
        }
        if (tester.IsNull()) {
            return true;
        }
        std::unique_ptr<Runtime::IDynamicObject> made(
            Runtime::CObjectsFactory::Instance().CreateObject(tester.GetType(),
                                                              TInterfaceIdentifier<T>::kValue));
        T* narrowed = dynamic_cast<T*>(made.get());
        if (!narrowed || !stream.ReadObject(ContentKey(tester.GetType()).Get(), *narrowed)) {
            return false;
        }
        static_cast<void>(made.release()); // the same object, held by its other type
        object.reset(narrowed);
        return true;
    }

    /// What was read, null for a null; owned by this adapter.
    T* Get() const { return object.get(); }

    /// The same, owned by the caller from here on.
    T* Release() { return object.release(); }

private:
    std::unique_ptr<T> object;
};

/// Reads what CTypeSerializer wrote into a holder, which then owns the object. When that fails the
/// holder keeps what it holds.
template <class T>
class TOwnershipWithCloneTypeDeSerializer : public virtual IDeSerialize {
public:
    explicit TOwnershipWithCloneTypeDeSerializer(Core::TOwnershipWithClone<T>& readHolder)
        : holder(readHolder) {}

    bool DeSerialize(const IReadDataStream& stream) override {
        TRuntimeDeSerializer<T> reader;
        if (!reader.DeSerialize(stream)) {
            return false;
        }
        holder.Set(reader.Release(), Core::kOwn);
        return true;
    }

private:
    Core::TOwnershipWithClone<T>& holder;
};

} // namespace Vorin::Serialization
