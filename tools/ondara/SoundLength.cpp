#include "SoundLength.h"

#include <fstream>
#include <string_view>

namespace Workbench {

namespace {

/// A file whose bytes are taken from any place. What lies behind the end reads as nothing.
class CBytes {
public:
    explicit CBytes(const std::string& path) : file(path, std::ios::binary | std::ios::ate) {
        const std::streamoff end = file.tellg();
        size = end > 0 ? static_cast<std::uint64_t>(end) : 0;
    }

    std::uint64_t GetSize() const { return size; }

    std::string Read(std::uint64_t place, std::size_t count) {
        std::string bytes(count, '\0');
        if (count > size || place > size - count) {
            return {};
        }
        file.seekg(static_cast<std::streamoff>(place));
        file.read(bytes.data(), static_cast<std::streamsize>(count));
        return file ? bytes : std::string();
    }

    /// 0 behind the end.
    std::uint64_t ReadInteger(std::uint64_t place, std::size_t count, bool bigEndian) {
        const std::string bytes = Read(place, count);
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const char byte = bigEndian ? bytes[i] : bytes[bytes.size() - 1 - i];
            value = value << 8 | static_cast<unsigned char>(byte);
        }
        return value;
    }

private:
    std::ifstream file;
    std::uint64_t size = 0;
};

/// How the chunks of a kind of file are laid out.
struct CChunks {
    std::string_view magic;  ///< the file begins with it
    std::string_view data;   ///< the name of the chunk that holds the sound
    std::uint64_t first;     ///< where the first chunk begins
    std::size_t nameSize;    ///< of a chunk's name; its size follows
    std::size_t sizeSize;    ///< of a chunk's size
    std::uint64_t alignment; ///< a chunk begins at a multiple of it
    bool bigEndian;
    bool sizeCountsHeader;
};

constexpr CChunks kKinds[] = {
    {"RIFF", "data", 12, 4, 4, 2, false, false}, {"RIFX", "data", 12, 4, 4, 2, true, false},
    {"RF64", "data", 12, 4, 4, 2, false, false}, {"FORM", "SSND", 12, 4, 4, 2, true, false},
    {"riff", "data", 40, 16, 8, 8, false, true}, // Wave64
    {"caff", "data", 8, 4, 8, 1, true, false},
};

/// Where the 64-bit size of an RF64 file's sound stands.
constexpr std::uint64_t kLargeSize = 28;

/// What writers leave as a size when they can't come back to the header: all ones, half of that, or
/// a little less than one of them; of 64 bits what no file can have.
bool IsUnknown(std::uint64_t size) {
    constexpr std::uint64_t impossible = std::uint64_t(1) << 62;
    constexpr std::uint64_t half = 0x80000000U;
    constexpr std::uint64_t whole = 0xFFFFFFFFU;
    constexpr std::uint64_t little = 0x10000U;
    return (size > half - little && size <= half) || (size > whole - little && size <= whole) ||
           size >= impossible;
}

bool MeasureChunks(CBytes& bytes, const CChunks& kind, CSoundLength& length) {
    const std::uint64_t header = kind.nameSize + kind.sizeSize;
    for (std::uint64_t place = kind.first; place + header <= bytes.GetSize();) {
        std::uint64_t size =
            bytes.ReadInteger(place + kind.nameSize, kind.sizeSize, kind.bigEndian);
        if (kind.sizeCountsHeader) {
            size = size > header ? size - header : 0;
        }
        if (bytes.Read(place, kind.data.size()) == kind.data) {
            if (kind.magic == "RF64" && size == 0xFFFFFFFFU) {
                size = bytes.ReadInteger(kLargeSize, 8, false);
            }
            length = {size, bytes.GetSize() - place - header};
            return !IsUnknown(size);
        }
        place += header;
        if (size > bytes.GetSize() - place) {
            return false;
        }
        place = (place + size + kind.alignment - 1) / kind.alignment * kind.alignment;
    }
    return false;
}

bool MeasureAu(CBytes& bytes, CSoundLength& length) {
    const std::uint64_t start = bytes.ReadInteger(4, 4, true);
    const std::uint64_t size = bytes.ReadInteger(8, 4, true);
    length = {size, bytes.GetSize() > start ? bytes.GetSize() - start : 0};
    return !IsUnknown(size);
}

} // namespace

bool MeasureSound(const std::string& path, CSoundLength& length) {
    CBytes bytes(path);
    const std::string magic = bytes.Read(0, 4);
    for (const CChunks& kind : kKinds) {
        if (magic == kind.magic) {
            return MeasureChunks(bytes, kind, length);
        }
    }
    return magic == ".snd" && MeasureAu(bytes, length);
}

} // namespace Workbench
