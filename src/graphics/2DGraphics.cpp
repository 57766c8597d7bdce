#include "graphics/2DGraphics.h"

#include <algorithm>

#include "graphics/2DRectangleGraphics.h"
#include "graphics/ColorDrawer.h"

namespace Vorin::Graphics {

void C2DGraphicsBase::SetSize(const Core::C2DSize& newSize) {
    const Core::C2DSize taken{std::max(newSize.width, 0), std::max(newSize.height, 0)};
    if (ownSize != taken) {
        ownSize = taken;
        sizeChanged.Notify();
    }
}

void C2DRectangleGraphics::Draw(IDrawSurface& surface, const ISimple2DRegion*) {
    if (GetSize().IsEmpty()) {
        return;
    }
    surface.SetTextMode(1);
    surface.SetPenColor(color);
    surface.SetPenStyle(penStyle);
    surface.DrawRectangle(GetArea());
}

void CColorDrawer::Draw(IDrawSurface& surface, const ISimple2DRegion* region) {
    surface.SetFillColor(color);
    surface.FillRectangle(GetArea(region));
}

} // namespace Vorin::Graphics
