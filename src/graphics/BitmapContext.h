#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>

#include "core/Geometry.h"
#include "graphics/PixelFormat.h"

namespace Vorin::Graphics {

/// No bitmap or image is larger.
inline constexpr int kMaxBitmapSide = 8192;
inline constexpr std::int64_t kMaxBitmapPixels = 16'000'000;

/// True for a size that is neither empty nor beyond the limits.
bool IsBitmapSize(const Core::C2DSize& size);

/// Pixel memory on which both Cairo and our own pixel routines draw.
///
/// GUI thread only. The formats of 32 bits are Cairo's own: both sides work on the same memory. Of
/// the other formats Cairo knows none, and draws on a 32-bit picture of the same size; what one
/// side drew is carried over when the other one's turn comes.
///
/// Whoever is about to draw says so, once per drawing operation and not per pixel: BeginPixels
/// before pixels are read or written by hand, BeginCairo before anything is drawn by Cairo. A call
/// costs two comparisons as long as the side does not change.
class CBitmapContext {
public:
    /// Memory of its own, cleared to 0. Null for an empty size, one beyond the limits, a depth
    /// other than 8, 16, 24 and 32, and when there is no memory left. A depth of 24 gives kBGR32,
    /// so that the context reports 32 bits.
    static std::shared_ptr<CBitmapContext> Create(const Core::C2DSize& size, int bitsPerPixel);

    /// Over memory that stays the caller's and must outlive the context, the rows
    /// GetStrideBytes() apart. Null for null, for a size as above, and without memory.
    static std::shared_ptr<CBitmapContext> CreateOver(void* memory, const Core::C2DSize& size,
                                                      EPixelFormat format);

    /// The format of a depth; nothing for a depth other than 8, 16, 24 and 32.
    static std::optional<EPixelFormat> GetFormatOfDepth(int bitsPerPixel);

    /// The bytes from a row to the next.
    static int GetStrideBytes(EPixelFormat format, int width);

    ~CBitmapContext();
    CBitmapContext(const CBitmapContext&) = delete;
    CBitmapContext& operator=(const CBitmapContext&) = delete;

    const Core::C2DSize& GetSize() const { return size; }
    EPixelFormat GetFormat() const { return format; }
    int GetBitsPerPixel() const;
    int GetStrideBytes() const { return strideBytes; }
    std::size_t GetByteCount() const;

    /// Sets every byte to 0.
    void Clear();

    /// The first row, with all that Cairo drew. Read what you want before Cairo draws again.
    const std::uint8_t* BeginReading();

    /// The first row likewise, to be written within `area` (pixels of the bitmap) until Cairo draws
    /// again.
    std::uint8_t* BeginPixels(const Core::C2DRectangle& area);

    /// Makes Cairo see what was written by hand, before it draws within `area`.
    void BeginCairo(const Core::C2DRectangle& area);

    /// What Cairo draws on, and a source for drawing elsewhere; null when there is no memory for
    /// it. Belongs to the context. Drawing on it, and reading from it, begins with BeginCairo.
    cairo_surface_t* GetCairoSurface();

private:
    struct FreeMemory {
        void operator()(std::uint8_t* memory) const { std::free(memory); }
    };
    struct FreeSurface {
        void operator()(cairo_surface_t* owned) const { cairo_surface_destroy(owned); }
    };

    CBitmapContext(std::uint8_t* memory, const Core::C2DSize& size, EPixelFormat format);

    bool IsShared() const { return format >= EPixelFormat::kBGR32; }
    Core::C2DRectangle GetArea() const { return {Core::C2DPoint{}, size}; }
    void TakeFromCairo();
    void GiveToCairo();

    const Core::C2DSize size;
    const EPixelFormat format;
    const int strideBytes;
    std::unique_ptr<std::uint8_t, FreeMemory> ownMemory; // null over somebody else's
    std::uint8_t* const pixels;
    std::unique_ptr<cairo_surface_t, FreeSurface> surface; // made when first asked for
    // What one side drew and the other has not seen; at most one of the two is not empty.
    Core::C2DRectangle drawnByHand;
    Core::C2DRectangle drawnByCairo;
};

} // namespace Vorin::Graphics
