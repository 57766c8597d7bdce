#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "graphics/images/ImageFile.h"

namespace Vorin::Graphics::Testing {

inline CLoadedImage DecodePngText(const std::string& bytes) {
    const void* data = bytes.data();
    return DecodePng(static_cast<const std::uint8_t*>(data), bytes.size());
}
inline CLoadedImage DecodeForeignText(const std::string& bytes) {
    const void* data = bytes.data();
    return DecodeForeignImage(static_cast<const std::uint8_t*>(data), bytes.size());
}

// A pixel of a loaded image: 0xAARRGGBB, premultiplied.
inline std::uint32_t GetWord(const CPlatformImage& image, int x, int y) {
    const auto& bitmap = image.GetBitmapContext();
    std::uint32_t word;
    std::memcpy(&word, bitmap->BeginReading() + y * bitmap->GetStrideBytes() + x * 4, sizeof word);
    return word;
}

} // namespace Vorin::Graphics::Testing
