#pragma once

#include <cstdint>

#include "graphics/Bitmap.h"

namespace Vorin::Graphics {

/// A bitmap with pixel memory of its own, cleared to 0 when created.
///
/// Depths of 8, 16, 24 and 32 bits per pixel have pixel memory; their layouts stand in
/// DIBIterator.h, and 24 bits are kept in words of 32. A bitmap stays without pixels, and all
/// drawing on it without effect, when its size is empty, when it is larger than 8192 pixels a side
/// or 16 million pixels, when the depth is another one, and when there is no memory left.
class CDIBBitmap : public CSharedBitmap {
public:
    CDIBBitmap(const Core::C2DSize& size, int bitsPerPixel)
        : CSharedBitmap(CBitmapContext::Create(size, bitsPerPixel)), requestedBits(bitsPerPixel) {}

    /// The depth that was asked for, with and without pixels.
    int GetBitsPerPixel() const override { return requestedBits; }

    /// The first row, the rows GetStrideBytes() apart from top to bottom, with all that was drawn
    /// so far. Null without pixels. To be read before the next drawing.
    const std::uint8_t* GetPixels() const {
        return GetContext() ? GetContext()->BeginReading() : nullptr;
    }
    /// 0 without pixels.
    int GetStrideBytes() const { return GetContext() ? GetContext()->GetStrideBytes() : 0; }

private:
    const int requestedBits;
};

} // namespace Vorin::Graphics
