#pragma once

#include <cstdint>
#include <memory>

#include "graphics/BitmapContext.h"
#include "graphics/DIBIterator.h"
#include "graphics/Image.h"

namespace Vorin::Graphics::Testing {

// An image of which `getWord(x, y)` gives each pixel: 0xAARRGGBB, premultiplied.
template <class F>
std::shared_ptr<CPlatformImage> MakePlatformImage(const Core::C2DSize& size, F getWord) {
    const auto pixels = CBitmapContext::Create(size, 32);
    auto* words = AsUnits<CDIB32BGRIterator>(
        static_cast<void*>(pixels->BeginPixels({Core::C2DPoint{}, size})));
    bool opaque = true;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x, ++words) {
            *words = static_cast<std::uint32_t>(getWord(x, y));
            opaque = opaque && *words >> 24 == 0xFF;
        }
    return CPlatformImage::Create(pixels, opaque);
}

template <class F>
std::unique_ptr<CImage> MakeImage(const Core::C2DSize& size, F getWord) {
    return std::make_unique<CImage>(MakePlatformImage(size, getWord));
}

// Opaque; each pixel tells where it lies: red its column, green its row.
inline std::unique_ptr<CImage> MakeMapImage(const Core::C2DSize& size) {
    return MakeImage(size,
                     [](int x, int y) { return 0xFF000000u | (x & 255) << 16 | (y & 255) << 8; });
}

inline std::unique_ptr<CImage> MakePlainImage(const Core::C2DSize& size, std::uint32_t word) {
    return MakeImage(size, [word](int, int) { return word; });
}

} // namespace Vorin::Graphics::Testing
