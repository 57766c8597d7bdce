#pragma once

#include "serialization/Serializable.h"

namespace Vorin::Serialization {

/// One value with its type, to read and to compare. No read converts: asking for another type than
/// the one held is false, and leaves the value handed in as it was.
class IConstDataHolder {
public:
    virtual bool GetBool(bool& value) const = 0;
    virtual bool GetInt(int& value) const = 0;
    virtual bool GetFloat(float& value) const = 0;
    virtual bool GetDouble(double& value) const = 0;

    /// `value` becomes a new array that the caller frees with `delete[]`, or null for a null text.
    virtual bool GetString(char*& value) const = 0;

    /// `data` becomes a new array of `size` bytes, made as `char[]`, that the caller frees as such;
    /// null when there are none.
    virtual bool GetData(void*& data, int& size) const = 0;

    /// Has `object` read itself from the object held; its result is the result.
    virtual bool GetObject(IDeSerialize& object) const = 0;

    /// True when a value of that type is held and equals `value`. Two numbers are equal when
    /// neither is below the other, so that NaN equals NaN: a NaN that stays is not a change.
    virtual bool Equals(const bool& value) const = 0;
    virtual bool Equals(const int& value) const = 0;
    virtual bool Equals(const float& value) const = 0;
    virtual bool Equals(const double& value) const = 0;

    /// A null text equals a null text alone.
    virtual bool Equals(const char* value) const = 0;
    virtual bool Equals(const void* data, int size) const = 0;

    virtual ~IConstDataHolder() = default;
};

/// One value with its type, to read and to set. A setter that fails leaves the holder empty.
class IDataHolder : public virtual IConstDataHolder {
public:
    virtual bool SetBool(const bool& value) = 0;
    virtual bool SetInt(const int& value) = 0;
    virtual bool SetFloat(const float& value) = 0;
    virtual bool SetDouble(const double& value) = 0;
    virtual bool SetString(const char* value) = 0;
    virtual bool SetData(const void* data, int size) = 0;

    /// Has `object` write itself into a new object, which is then held.
    virtual bool SetObject(const ISerialize& object) = 0;
};

} // namespace Vorin::Serialization
