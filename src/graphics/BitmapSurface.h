#pragma once

#include "graphics/DrawSurface.h"

namespace Vorin::Graphics {

/// A surface on the pixels of a bitmap. What it has beyond CDrawSurface is its name: the surface
/// of a bitmap in whose format nothing but Cairo draws.
class CBitmapSurface : public CDrawSurface {
public:
    using CDrawSurface::CDrawSurface;
};

} // namespace Vorin::Graphics
