#pragma once

#include "graphics/2DGraphics.h"

namespace Vorin::Graphics {

/// Fills its area with a colour.
class CColorDrawer : public C2DGraphicsBase {
public:
    /// `hitTestResult`: what HitTest says, whatever the point.
    CColorDrawer(const RGB& fillColor, bool hitTestResult)
        : color(fillColor), hitResult(hitTestResult) {}

    void SetColor(const RGB& newColor) { Change(color, newColor); }
    const RGB& GetColor() const { return color; }

    void Draw(IDrawSurface& surface, const ISimple2DRegion* region) override;
    bool HitTest(const Core::C2DPoint&) override { return hitResult; }
    bool IsTransparent() const override { return false; }

private:
    RGB color;
    const bool hitResult;
};

} // namespace Vorin::Graphics
