#pragma once

#include "graphics/2DGraphics.h"

namespace Vorin::Graphics {

/// The frame of its area, one pixel wide. White, of style 0, at first. Hit at every point of its
/// size.
class C2DRectangleGraphics : public C2DGraphicsBase {
public:
    void SetColor(const RGB& newColor) { Change(color, newColor); }
    const RGB& GetColor() const { return color; }
    /// As that of IDrawSurface::SetPenStyle.
    void SetPenStyle(int newStyle) { Change(penStyle, newStyle); }
    int GetPenStyle() const { return penStyle; }

    void Draw(IDrawSurface& surface, const ISimple2DRegion* region) override;
    bool HitTest(const Core::C2DPoint& point) override { return GetArea().Contains(point); }
    bool IsTransparent() const override { return true; }

private:
    RGB color{255, 255, 255};
    int penStyle = 0;
};

} // namespace Vorin::Graphics
