#include "graphics/images/ImageGraphics.h"

#include <algorithm>
#include <utility>

namespace Vorin::Graphics {

namespace {

/// Where a coordinate lies within its tile.
int GetTileOffset(int coordinate, int side) {
    const int remainder = coordinate % side;
    return remainder < 0 ? remainder + side : remainder;
}

} // namespace

void CImageGraphics::SetElement(std::unique_ptr<CImageElement> element) {
    catalog.SetElement(0, std::move(element));
    stretchedDirty = true;
    Invalidate();
}

void CImageGraphics::SetDrawMode(int mode) {
    Change(drawMode, mode == kRepeat || mode == kStretch ? mode : static_cast<int>(kPlain));
}

void CImageGraphics::Draw(IDrawSurface& surface, const ISimple2DRegion* region) {
    const Core::C2DRectangle area = GetArea(region);
    switch (drawMode) {
    case kRepeat:
        DrawTiles(surface, area.Intersect(surface.GetClipBox()));
        break;
    case kStretch:
        if (CDIBBitmap* bitmap = GetStretched()) {
            const Core::C2DPoint position = area.GetPosition();
            if (catalog.IsTransparent(0)) {
                surface.DrawBitmapAlpha(*bitmap, position, position, area.GetSize(), 255);
            } else {
                surface.DrawBitmap(*bitmap, position, position, area.GetSize());
            }
        }
        break;
    default:
        catalog.Draw(0, surface, area, area.GetPosition());
    }
}

void CImageGraphics::DrawTiles(IDrawSurface& surface, const Core::C2DRectangle& area) const {
    const Core::C2DSize tile = catalog.GetElementSize(0);
    if (tile.IsEmpty() || area.IsEmpty()) {
        return;
    }
    const int firstX = GetTileOffset(area.x, tile.width);
    int sourceY = GetTileOffset(area.y, tile.height);
    for (int y = 0; y < area.height;) {
        const int height = std::min(tile.height - sourceY, area.height - y);
        int sourceX = firstX;
        for (int x = 0; x < area.width;) {
            const int width = std::min(tile.width - sourceX, area.width - x);
            catalog.Draw(0, surface, {area.x + x, area.y + y, width, height}, {sourceX, sourceY});
            x += width;
            sourceX = 0;
        }
        y += height;
        sourceY = 0;
    }
}

CDIBBitmap* CImageGraphics::GetStretched() {
    CImageElement* element = catalog.GetElement(0);
    if (!element || !element->GetImage() || GetSize().IsEmpty()) {
        return nullptr;
    }
    if (!stretched || stretched->GetSize() != GetSize()) {
        stretched = std::make_unique<CDIBBitmap>(GetSize(), 32);
        stretchedPixels = stretched->CreatePixelAccess();
        stretchedDirty = true;
    }
    if (stretchedDirty) {
        stretched->Clear();
        element->Stretch(*stretched->CreateSurface(), {Core::C2DPoint{}, element->GetSize()},
                         GetArea());
        stretchedDirty = false;
        ++stretchCount;
    }
    return stretched.get();
}

bool CImageGraphics::HitTest(const Core::C2DPoint& point) {
    if (!GetArea().Contains(point)) {
        return false;
    }
    switch (drawMode) {
    case kRepeat: {
        const Core::C2DSize tile = catalog.GetElementSize(0);
        return !tile.IsEmpty() &&
               catalog.HitTest(0, {point.x % tile.width, point.y % tile.height}, {}, kHitThreshold);
    }
    case kStretch:
        return GetStretched() && GetLuma(stretchedPixels->GetPixel(point)) > kHitThreshold;
    default:
        return catalog.HitTest(0, point, {}, kHitThreshold);
    }
}

bool CImageGraphics::IsTransparent() const {
    const Core::C2DSize image = catalog.GetElementSize(0);
    const bool leavesRoom =
        drawMode == kPlain && (image.width < GetSize().width || image.height < GetSize().height);
    return leavesRoom || catalog.IsTransparent(0);
}

} // namespace Vorin::Graphics
