#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// PNG files byte by byte, the right ones and the wrong ones: what a library for writing would
// never write has to be read, too.

namespace Vorin::Graphics::Testing {

struct CPngChunk {
    std::string type;
    std::string data;
};

// Length, type, data and check sum.
std::string GetChunkBytes(const CPngChunk& chunk);

std::string GetPngSignature();
std::string GetPngBytes(const std::vector<CPngChunk>& chunks);

std::string Compress(const std::string& bytes);
std::string GetBigEndian(std::uint32_t value);

enum EPngType { kGrey = 0, kColour = 2, kPalette = 3, kGreyAlpha = 4, kColourAlpha = 6 };

CPngChunk GetHeaderChunk(std::uint32_t width, std::uint32_t height, int depth, int type,
                         bool interlaced = false);

// What an image is made of: `sample(x, y, channel)` in the range of the depth.
struct CPngPicture {
    int width;
    int height;
    int depth;
    EPngType type;
    std::function<int(int x, int y, int channel)> sample;
    bool interlaced = false;
    std::vector<CPngChunk> beforeData = {}; // PLTE, tRNS and others
};

// The rows as the data chunk holds them, without any filter.
std::string GetRows(const CPngPicture& picture);

// The header, the chunks before the data, the data, the end.
std::vector<CPngChunk> GetPngChunks(const CPngPicture& picture);
std::string GetPngBytes(const CPngPicture& picture);

} // namespace Vorin::Graphics::Testing
