#pragma once

#include "serialization/DataStream.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace Vorin::Serialization {

/// An object that writes what a function says.
class CWrites : public virtual ISerialize {
public:
    explicit CWrites(std::function<bool(IWriteDataStream&)> function)
        : write(std::move(function)) {}
    bool Serialize(IWriteDataStream& stream) const override { return write(stream); }

private:
    std::function<bool(IWriteDataStream&)> write;
};

/// An object that reads what a function says.
class CReads : public virtual IDeSerialize {
public:
    explicit CReads(std::function<bool(const IReadDataStream&)> function)
        : read(std::move(function)) {}
    bool DeSerialize(const IReadDataStream& stream) override { return read(stream); }

private:
    std::function<bool(const IReadDataStream&)> read;
};

/// The text under a name; nothing when the read fails, "(null)" for a null text.
inline std::optional<std::string> StringOf(const IReadDataStream& stream, const char* name) {
    char* text = nullptr;
    if (!stream.ReadString(name, text)) {
        return std::nullopt;
    }
    const std::unique_ptr<char[]> owned(text);
    return text ? std::string(text) : std::string("(null)");
}

inline std::optional<std::string> DataOf(const IReadDataStream& stream, const char* name) {
    void* data = nullptr;
    int size = -1;
    if (!stream.ReadData(name, data, size)) {
        return std::nullopt;
    }
    const std::unique_ptr<char[]> owned(static_cast<char*>(data));
    return std::string(owned ? owned.get() : "", static_cast<std::size_t>(size));
}

inline std::optional<int> IntOf(const IReadDataStream& stream, const char* name) {
    int value = 0;
    return stream.ReadInt(name, value) ? std::optional<int>(value) : std::nullopt;
}

inline std::optional<double> DoubleOf(const IReadDataStream& stream, const char* name) {
    double value = 0;
    return stream.ReadDouble(name, value) ? std::optional<double>(value) : std::nullopt;
}

/// What a memory object would be when it left values out on purpose.
template <class Stream>
class TTolerant : public Stream {
public:
    using Stream::Stream;
    bool IsTolerant() const override { return true; }
};

} // namespace Vorin::Serialization
