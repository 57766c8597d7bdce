#include "PngBytes.h"

#include <zlib.h>

namespace Vorin::Graphics::Testing {
namespace {

const Bytef* AsZlibBytes(const std::string& bytes) {
    const void* data = bytes.data();
    return static_cast<const Bytef*>(data);
}

int GetChannels(EPngType type) {
    switch (type) {
    case kColour:
        return 3;
    case kGreyAlpha:
        return 2;
    case kColourAlpha:
        return 4;
    default:
        return 1;
    }
}

// One row of every `step`th column from `x`, packed from the highest bit down.
void AppendRow(std::string& rows, const CPngPicture& picture, int x, int y, int step) {
    rows += '\0'; // no filter
    unsigned bits = 0;
    int filled = 0;
    for (; x < picture.width; x += step)
        for (int channel = 0; channel < GetChannels(picture.type); ++channel) {
            const auto value = static_cast<unsigned>(picture.sample(x, y, channel));
            if (picture.depth >= 8) {
                if (picture.depth == 16)
                    rows += static_cast<char>(value >> 8);
                rows += static_cast<char>(value & 0xFF);
                continue;
            }
            bits = (bits << picture.depth) | value;
            filled += picture.depth;
            if (filled == 8) {
                rows += static_cast<char>(bits);
                bits = 0;
                filled = 0;
            }
        }
    if (filled > 0)
        rows += static_cast<char>(bits << (8 - filled));
}

} // namespace

std::string GetBigEndian(std::uint32_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

std::string GetChunkBytes(const CPngChunk& chunk) {
    const std::string body = chunk.type + chunk.data;
    const auto sum = crc32(0, AsZlibBytes(body), static_cast<uInt>(body.size()));
    return GetBigEndian(static_cast<std::uint32_t>(chunk.data.size())) + body +
           GetBigEndian(static_cast<std::uint32_t>(sum));
}

std::string GetPngSignature() { return "\x89PNG\r\n\x1A\n"; }

std::string GetPngBytes(const std::vector<CPngChunk>& chunks) {
    std::string bytes = GetPngSignature();
    for (const CPngChunk& chunk : chunks)
        bytes += GetChunkBytes(chunk);
    return bytes;
}

std::string Compress(const std::string& bytes) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::string packed(size, '\0');
    void* target = packed.data();
    compress2(static_cast<Bytef*>(target), &size, AsZlibBytes(bytes),
              static_cast<uLong>(bytes.size()), 9);
    packed.resize(size);
    return packed;
}

CPngChunk GetHeaderChunk(std::uint32_t width, std::uint32_t height, int depth, int type,
                         bool interlaced) {
    std::string data = GetBigEndian(width) + GetBigEndian(height);
    for (const int value : {depth, type, 0, 0, interlaced ? 1 : 0})
        data += static_cast<char>(value);
    return {"IHDR", data};
}

std::string GetRows(const CPngPicture& picture) {
    std::string rows;
    if (!picture.interlaced) {
        for (int y = 0; y < picture.height; ++y)
            AppendRow(rows, picture, 0, y, 1);
        return rows;
    }
    static constexpr struct {
        int x, y, stepX, stepY;
    } kPasses[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                   {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
    for (const auto& pass : kPasses)
        if (pass.x < picture.width)
            for (int y = pass.y; y < picture.height; y += pass.stepY)
                AppendRow(rows, picture, pass.x, y, pass.stepX);
    return rows;
}

std::vector<CPngChunk> GetPngChunks(const CPngPicture& picture) {
    std::vector<CPngChunk> chunks = {GetHeaderChunk(
        static_cast<std::uint32_t>(picture.width), static_cast<std::uint32_t>(picture.height),
        picture.depth, picture.type, picture.interlaced)};
    chunks.insert(chunks.end(), picture.beforeData.begin(), picture.beforeData.end());
    chunks.push_back({"IDAT", Compress(GetRows(picture))});
    chunks.push_back({"IEND", ""});
    return chunks;
}

std::string GetPngBytes(const CPngPicture& picture) { return GetPngBytes(GetPngChunks(picture)); }

} // namespace Vorin::Graphics::Testing
