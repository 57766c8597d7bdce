#pragma once

#include "graphics/2DGraphics.h"

namespace Vorin::Graphics {

/// Draws nothing. It may be there for the mouse all the same.
class C2DEmptyGraphics : public C2DGraphicsBase {
public:
    /// A sensitive one is hit at every point of its size.
    C2DEmptyGraphics(bool isTransparent, bool isSensitive)
        : transparent(isTransparent), sensitive(isSensitive) {}

    void Draw(IDrawSurface&, const ISimple2DRegion*) override {}
    bool HitTest(const Core::C2DPoint& point) override {
        return sensitive && GetArea().Contains(point);
    }
    bool IsTransparent() const override { return transparent; }

private:
    const bool transparent;
    const bool sensitive;
};

} // namespace Vorin::Graphics
