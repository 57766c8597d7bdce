#pragma once

#include "core/Geometry.h"
#include "graphics/RGB.h"

namespace Vorin::Graphics {

/// Reads and writes the pixels of a bitmap one at a time.
///
/// GUI thread only. A point outside the bitmap reads as black and is
/// not written.
class IRGBPixelAccess {
public:
    virtual ~IRGBPixelAccess() = default;

    /// The channels as the bitmap's format holds them: a 16-bit bitmap gives 5-bit values.
    virtual RGB GetPixel(const Core::C2DPoint& point) const = 0;
    virtual void SetPixel(const Core::C2DPoint& point, const RGB& color) = 0;

    /// An offset that is added to every point. (0, 0) at first.
    virtual void SetOrigin(const Core::C2DVector& origin) = 0;
    virtual Core::C2DVector GetOrigin() const = 0;
};

} // namespace Vorin::Graphics
