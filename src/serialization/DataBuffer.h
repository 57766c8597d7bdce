#pragma once

#include "serialization/DataHolder.h"
#include "serialization/DataStream.h"

namespace Vorin::Serialization {

class CMemDataObject;

/// The type of a value. The numbers are part of the file format.
enum EDataType {
    kObjectData = 0,
    kBoolData = 1,
    kIntData = 2,
    kFloatData = 3,
    kDoubleData = 4,
    kStringData = 5,
    kBinaryData = 6
};

/// One typed value in memory, all but what concerns objects: what a buffer for one kind of object
/// derives from. A new one is empty: of type object, with no object. One thread.
class CTypedBuffer : public virtual IDataHolder {
public:
    CTypedBuffer() = default;
    CTypedBuffer(const CTypedBuffer&) = delete;
    CTypedBuffer& operator=(const CTypedBuffer&) = delete;

    bool GetBool(bool& value) const override;
    bool GetInt(int& value) const override;
    bool GetFloat(float& value) const override;
    bool GetDouble(double& value) const override;
    bool GetString(char*& value) const override;
    bool GetData(void*& bytes, int& length) const override;

    bool Equals(const bool& value) const override;
    bool Equals(const int& value) const override;
    bool Equals(const float& value) const override;
    bool Equals(const double& value) const override;
    bool Equals(const char* value) const override;
    bool Equals(const void* bytes, int length) const override;

    /// The same type and an equal value; false for objects.
    bool HasValueOf(const CTypedBuffer& other) const;

    bool SetBool(const bool& value) override;
    bool SetInt(const int& value) override;
    bool SetFloat(const float& value) override;
    bool SetDouble(const double& value) override;
    bool SetString(const char* value) override;
    bool SetData(const void* bytes, int length) override;

    EDataType GetType() const { return static_cast<EDataType>(type); }

    /// In bytes: 1, 4, 4 and 8 for the numbers, the length with the final zero for a text, 0 for a
    /// null text; `kObjectSize`, which is no length, for objects.
    int GetSize() const { return size; }
    static constexpr int kObjectSize = -1;

protected:
    /// Deletes the object that `SetObjectPointer` was given.
    virtual void DeleteObject(void* object) = 0;

    /// Lets go of the value; a derived destructor calls it while its `DeleteObject` still stands.
    void Free();

    void SetObjectPointer(void* object);
    void* GetObjectPointer() const { return type == kObjectData ? data : nullptr; }

    /// The bytes as they are, whatever the type; null for objects.
    const void* GetBytes() const { return type == kObjectData ? nullptr : data; }

    /// Takes bytes that were allocated as `char[]` as a value of a type read from elsewhere. False,
    /// and the bytes freed, when they are no value of that type.
    bool Adopt(int newType, void* bytes, int length);

private:
    template <class T>
    bool GetNumber(EDataType wanted, T& value) const;
    template <class T>
    bool SetNumber(EDataType newType, const T& value);
    bool SetBytes(EDataType newType, const void* bytes, int length);

    int size = kObjectSize;
    int type = kObjectData;
    void* data = nullptr;
};

/// One typed value in memory whose objects are `CMemDataObject`s: an entry of such an object.
///
/// Written as an int "type" and, as "value", the object or the bytes of any other value as they
/// stand in memory.
class CDataBuffer final : public CTypedBuffer, public virtual ISerializable {
public:
    ~CDataBuffer() override { Free(); }

    bool GetObject(IDeSerialize& object) const override;
    bool SetObject(const ISerialize& object) override;

    bool Serialize(IWriteDataStream& stream) const override;
    bool DeSerialize(const IReadDataStream& stream) override;

private:
    void DeleteObject(void* object) override;
    CMemDataObject* GetMemObject() const;
};

} // namespace Vorin::Serialization
