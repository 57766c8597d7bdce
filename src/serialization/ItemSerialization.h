#pragma once

#include "containers/CharString.h"
#include "serialization/DataStream.h"

#include <memory>

namespace Vorin::Serialization {

/// How one element of a list, or the value of a named pair, stands in a stream: numbers and texts
/// as values, all else as an object.
inline bool WriteItem(IWriteDataStream& stream, const char* name, const int& item) {
    return stream.WriteInt(name, item);
}
inline bool WriteItem(IWriteDataStream& stream, const char* name, const double& item) {
    return stream.WriteDouble(name, item);
}
inline bool WriteItem(IWriteDataStream& stream, const char* name,
                      const Containers::CCharString& item) {
    return stream.WriteString(name, item.Get());
}
inline bool WriteItem(IWriteDataStream& stream, const char* name, const ISerialize& item) {
    return stream.WriteObject(name, item);
}

inline bool ReadItem(const IReadDataStream& stream, const char* name, int& item) {
    return stream.ReadInt(name, item);
}
inline bool ReadItem(const IReadDataStream& stream, const char* name, double& item) {
    return stream.ReadDouble(name, item);
}
inline bool ReadItem(const IReadDataStream& stream, const char* name,
                     Containers::CCharString& item) {
    char* text = nullptr;
    if (!stream.ReadString(name, text)) {
        return false;
    }
    const std::unique_ptr<char[]> owned(text);
    item = text;
    return true;
}
inline bool ReadItem(const IReadDataStream& stream, const char* name, IDeSerialize& item) {
    return stream.ReadObject(name, item);
}

} // namespace Vorin::Serialization
