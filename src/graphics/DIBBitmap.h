#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "graphics/Bitmap.h"

namespace Vorin::Graphics {

/// A bitmap with pixel memory of its own, cleared to 0 when created.
///
/// Depths of 8, 16, 24 and 32 bits per pixel have pixel memory; their layouts stand in
/// DIBIterator.h. A bitmap stays without pixels, and all drawing on it without effect, when its
/// size is empty, when it is larger than 8192 pixels a side or 16 million pixels, when the depth is
/// another one, and when there is no memory left.
class CDIBBitmap : public IBitmap {
public:
    CDIBBitmap(const Core::C2DSize& size, int bitsPerPixel);
    CDIBBitmap(const CDIBBitmap&) = delete;
    CDIBBitmap& operator=(const CDIBBitmap&) = delete;

    Core::C2DSize GetSize() const override { return size; }
    /// The depth that was asked for, with and without pixels.
    int GetBitsPerPixel() const override { return bitsPerPixel; }
    void Clear() override;
    std::unique_ptr<IRGBPixelAccess> CreatePixelAccess() override;
    std::unique_ptr<IDrawSurface> CreateSurface() override;

    /// The first row, the rows GetStrideBytes() apart from top to bottom. Null without pixels.
    /// Lives as long as the bitmap.
    const std::uint8_t* GetPixels() const { return pixels.get(); }
    std::uint8_t* GetPixels() { return pixels.get(); }
    /// 0 without pixels.
    int GetStrideBytes() const { return strideBytes; }

private:
    struct FreeMemory {
        void operator()(std::uint8_t* memory) const { std::free(memory); }
    };

    std::size_t GetByteCount() const;

    const int bitsPerPixel;
    Core::C2DSize size;
    int strideBytes = 0;
    std::unique_ptr<std::uint8_t, FreeMemory> pixels;
};

} // namespace Vorin::Graphics
