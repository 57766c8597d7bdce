#pragma once

#include <memory>

#include "graphics/DIBBitmap.h"

namespace Vorin::Graphics {

/// A transparent sheet that is drawn on apart, and then onto a surface as a whole. GUI thread only.
class CDrawLayer {
public:
    /// Without pixels, and drawn without effect, where a CDIBBitmap is.
    explicit CDrawLayer(const Core::C2DSize& size) : bitmap(size, 32) {}

    Core::C2DSize GetSize() const { return bitmap.GetSize(); }
    IBitmap& GetBitmap() { return bitmap; }
    /// As that of a bitmap.
    std::unique_ptr<IDrawSurface> CreateSurface() { return bitmap.CreateSurface(); }

private:
    CDIBBitmap bitmap;
};

} // namespace Vorin::Graphics
