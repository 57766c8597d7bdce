#include "serialization/DataBuffer.h"

#include "serialization/MemDataObject.h"

#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>

namespace Vorin::Serialization {

namespace {

char* CopyOf(const void* bytes, int length) {
    auto* copy = new char[static_cast<std::size_t>(length)];
    std::memcpy(copy, bytes, static_cast<std::size_t>(length));
    return copy;
}

// Deliberately not `==`: two NaN compare equal.
template <class T>
bool AreEqual(T a, T b) {
    return !(a < b) && !(a > b);
}

bool IsValueOf(int type, const void* bytes, int length) {
    switch (type) {
    case kBoolData:
        return length == 1;
    case kIntData:
        return length == sizeof(int);
    case kFloatData:
        return length == sizeof(float);
    case kDoubleData:
        return length == sizeof(double);
    case kStringData: // the text ends where the bytes do
        return length == 0 || std::memchr(bytes, '\0', static_cast<std::size_t>(length)) ==
                                  static_cast<const char*>(bytes) + length - 1;
    case kBinaryData:
        return true;
    default:
        return false;
    }
}

} // namespace

template <class T>
bool CTypedBuffer::GetNumber(EDataType wanted, T& value) const {
    if (type != wanted || size != static_cast<int>(sizeof(T))) {
        return false;
    }
    std::memcpy(&value, data, sizeof(T));
    return true;
}

bool CTypedBuffer::GetBool(bool& value) const {
    char byte = 0;
    if (!GetNumber(kBoolData, byte)) {
        return false;
    }
    value = byte != 0;
    return true;
}

bool CTypedBuffer::GetInt(int& value) const { return GetNumber(kIntData, value); }

bool CTypedBuffer::GetFloat(float& value) const { return GetNumber(kFloatData, value); }

bool CTypedBuffer::GetDouble(double& value) const { return GetNumber(kDoubleData, value); }

bool CTypedBuffer::GetString(char*& value) const {
    if (type != kStringData) {
        return false;
    }
    value = size > 0 ? CopyOf(data, size) : nullptr;
    return true;
}

bool CTypedBuffer::GetData(void*& bytes, int& length) const {
    if (type != kBinaryData) {
        return false;
    }
    bytes = size > 0 ? CopyOf(data, size) : nullptr;
    length = size;
    return true;
}

bool CTypedBuffer::Equals(const bool& value) const {
    bool held = false;
    return GetBool(held) && held == value;
}

bool CTypedBuffer::Equals(const int& value) const {
    int held = 0;
    return GetInt(held) && held == value;
}

bool CTypedBuffer::Equals(const float& value) const {
    float held = 0;
    return GetFloat(held) && AreEqual(held, value);
}

bool CTypedBuffer::Equals(const double& value) const {
    double held = 0;
    return GetDouble(held) && AreEqual(held, value);
}

bool CTypedBuffer::Equals(const char* value) const {
    if (type != kStringData) {
        return false;
    }
    if (size == 0 || !value) {
        return size == 0 && !value;
    }
    return std::strcmp(static_cast<const char*>(data), value) == 0;
}

bool CTypedBuffer::Equals(const void* bytes, int length) const {
    if (type != kBinaryData || size != length) {
        return false;
    }
    return size == 0 || (bytes && std::memcmp(data, bytes, static_cast<std::size_t>(size)) == 0);
}

bool CTypedBuffer::HasValueOf(const CTypedBuffer& other) const {
    if (type != other.type) {
        return false;
    }
    float single = 0;
    double number = 0;
    switch (type) {
    case kObjectData:
        return false;
    case kFloatData:
        return other.GetFloat(single) && Equals(single);
    case kDoubleData:
        return other.GetDouble(number) && Equals(number);
    default:
        return size == other.size &&
               (size == 0 || std::memcmp(data, other.data, static_cast<std::size_t>(size)) == 0);
    }
}

template <class T>
bool CTypedBuffer::SetNumber(EDataType newType, const T& value) {
    return SetBytes(newType, &value, static_cast<int>(sizeof(T)));
}

bool CTypedBuffer::SetBool(const bool& value) {
    return SetNumber(kBoolData, static_cast<char>(value ? 1 : 0));
}

bool CTypedBuffer::SetInt(const int& value) { return SetNumber(kIntData, value); }

bool CTypedBuffer::SetFloat(const float& value) { return SetNumber(kFloatData, value); }

bool CTypedBuffer::SetDouble(const double& value) { return SetNumber(kDoubleData, value); }

bool CTypedBuffer::SetString(const char* value) {
    const std::size_t length = value ? std::strlen(value) + 1 : 0;
    if (length > std::size_t{std::numeric_limits<int>::max()}) {
        Free();
        return false;
    }
    return SetBytes(kStringData, value, static_cast<int>(length));
}

bool CTypedBuffer::SetData(const void* bytes, int length) {
    if (length < 0 || (length > 0 && !bytes)) {
        Free();
        return false;
    }
    return SetBytes(kBinaryData, bytes, length);
}

bool CTypedBuffer::SetBytes(EDataType newType, const void* bytes, int length) {
    char* copy = length > 0 ? CopyOf(bytes, length) : nullptr; // `bytes` may be the old content
    Free();
    type = newType;
    size = length;
    data = copy;
    return true;
}

bool CTypedBuffer::Adopt(int newType, void* bytes, int length) {
    Free();
    if (!IsValueOf(newType, bytes, length)) {
        delete[] static_cast<char*>(bytes);
        return false;
    }
    type = newType;
    size = length;
    data = bytes;
    return true;
}

void CTypedBuffer::Free() {
    void* old = data;
    const bool wasObject = type == kObjectData;
    data = nullptr;
    type = kObjectData;
    size = kObjectSize;
    if (!old) {
        return;
    }
    if (wasObject) {
        DeleteObject(old);
    } else {
        delete[] static_cast<char*>(old);
    }
}

void CTypedBuffer::SetObjectPointer(void* object) {
    Free();
    data = object;
}

CMemDataObject* CDataBuffer::GetMemObject() const {
    return static_cast<CMemDataObject*>(GetObjectPointer());
}

void CDataBuffer::DeleteObject(void* object) { delete static_cast<CMemDataObject*>(object); }

bool CDataBuffer::GetObject(IDeSerialize& object) const {
    const CMemDataObject* held = GetMemObject();
    return held && object.DeSerialize(*held);
}

bool CDataBuffer::SetObject(const ISerialize& object) {
    auto written = std::make_unique<CMemDataObject>();
    const bool done = object.Serialize(*written);
    Free();
    if (done) {
        SetObjectPointer(written.release());
    }
    return done;
}

bool CDataBuffer::Serialize(IWriteDataStream& stream) const {
    const int writtenType = GetType();
    if (!stream.WriteInt("type", writtenType)) {
        return false;
    }
    if (writtenType != kObjectData) {
        return stream.WriteData("value", GetBytes(), GetSize());
    }
    const CMemDataObject* held = GetMemObject();
    return held && stream.WriteObject("value", *held);
}

bool CDataBuffer::DeSerialize(const IReadDataStream& stream) {
    Free();
    int readType = kObjectData;
    if (!stream.ReadInt("type", readType)) {
        return false;
    }
    if (readType != kObjectData) {
        void* bytes = nullptr;
        int length = 0;
        return stream.ReadData("value", bytes, length) && Adopt(readType, bytes, length);
    }
    auto read = std::make_unique<CMemDataObject>();
    const bool done = stream.ReadObject("value", *read) || stream.IsTolerant();
    if (done) {
        SetObjectPointer(read.release());
    }
    return done;
}

} // namespace Vorin::Serialization
