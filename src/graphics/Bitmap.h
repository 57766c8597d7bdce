#pragma once

#include <memory>

#include "core/Geometry.h"
#include "graphics/DrawSurface.h"
#include "graphics/PixelAccess.h"

namespace Vorin::Graphics {

/// A picture in memory that can be drawn on. GUI thread only.
class IBitmap {
public:
    virtual ~IBitmap() = default;

    /// (0, 0) for a bitmap without pixels.
    virtual Core::C2DSize GetSize() const = 0;
    virtual int GetBitsPerPixel() const = 0;

    /// Sets every byte of the pixel memory to 0.
    virtual void Clear() = 0;

    /// Access to single pixels; null for a depth other than 8, 16, 24 and 32. The caller owns it,
    /// and it must not outlive the bitmap.
    virtual std::unique_ptr<IRGBPixelAccess> CreatePixelAccess() = 0;

    /// A surface that draws on the pixels; null for a depth other than 8, 16, 24 and 32. The caller
    /// owns it, and it must not outlive the bitmap, unless its context was released.
    virtual std::unique_ptr<IDrawSurface> CreateSurface() = 0;
};

} // namespace Vorin::Graphics
