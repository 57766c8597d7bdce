#pragma once

#include "serialization/Serializable.h"

namespace Vorin::Serialization {

/// A data object to read: named values of seven types, objects among them, in a tree.
///
/// Every operation is false when it fails, which leaves the value handed in as it was; a null name
/// always fails. A data object is used by one thread at a time.
class IReadDataStream {
public:
    /// Asked after a read that failed: true when values are left out on purpose, so that a partial
    /// read counts as success.
    virtual bool IsTolerant() const = 0;

    virtual bool ReadBool(const char* name, bool& value) const = 0;
    virtual bool ReadInt(const char* name, int& value) const = 0;
    virtual bool ReadFloat(const char* name, float& value) const = 0;
    virtual bool ReadDouble(const char* name, double& value) const = 0;

    /// `value` becomes a new array that the caller frees with `delete[]`, or null for a null text.
    virtual bool ReadString(const char* name, char*& value) const = 0;

    /// `data` becomes a new array of `size` bytes, made as `char[]`, that the caller frees as such;
    /// null when there are none.
    virtual bool ReadData(const char* name, void*& data, int& size) const = 0;

    /// Has `object` read itself from the nested object; its result is the result.
    virtual bool ReadObject(const char* name, IDeSerialize& object) const = 0;

    virtual ~IReadDataStream() = default;

    virtual bool Exists(const char* name) const = 0;
};

/// A data object to write. A name stands once: writing it again replaces what was there, whatever
/// its type. A write that fails leaves the name removed.
class IWriteDataStream {
public:
    virtual bool WriteBool(const char* name, const bool& value) = 0;
    virtual bool WriteInt(const char* name, const int& value) = 0;
    virtual bool WriteFloat(const char* name, const float& value) = 0;
    virtual bool WriteDouble(const char* name, const double& value) = 0;

    /// A null text is kept as null by a memory object; a text medium holds it as the empty text.
    virtual bool WriteString(const char* name, const char* value) = 0;

    /// `data` may be null when `size` is 0; a negative size fails.
    virtual bool WriteData(const char* name, const void* data, int size) = 0;

    /// Has `object` write itself into a nested object.
    virtual bool WriteObject(const char* name, const ISerialize& object) = 0;

    /// True also when the name was not there.
    virtual bool Remove(const char* name) = 0;

    /// Removes everything.
    virtual bool Clear() = 0;

    virtual ~IWriteDataStream() = default;
};

/// A data object to read and to write.
class IReadWriteDataStream : public virtual IReadDataStream, public virtual IWriteDataStream {};

} // namespace Vorin::Serialization
