#pragma once

namespace Vorin::Graphics {

/// How the pixels of a bitmap lie in memory; DIBIterator.h has a type for each. A pixel of either
/// 32-bit format is the same word; they differ in what Cairo takes the top byte for.
enum class EPixelFormat {
    kMono8,  ///< a grey byte
    kBGR16,  ///< words 0RRRRRGGGGGBBBBB
    kBGR24,  ///< bytes B, G, R
    kBGR32,  ///< words 0xXXRRGGBB: the top byte says nothing
    kBGRA32, ///< words 0xAARRGGBB, the colours premultiplied by alpha
};

} // namespace Vorin::Graphics
