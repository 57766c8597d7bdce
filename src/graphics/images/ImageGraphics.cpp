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

/// Visits the tiles of `tile` pixels that have a part in `area`, the first tile lying at (0, 0):
/// `function` gets the part, and where it begins within its tile.
template <class F>
void ForEachTile(const Core::C2DRectangle& area, const Core::C2DSize& tile, F function) {
    const int firstX = GetTileOffset(area.x, tile.width);
    int sourceY = GetTileOffset(area.y, tile.height);
    for (int y = 0; y < area.height;) {
        const int height = std::min(tile.height - sourceY, area.height - y);
        int sourceX = firstX;
        for (int x = 0; x < area.width;) {
            const int width = std::min(tile.width - sourceX, area.width - x);
            function(Core::C2DRectangle(area.x + x, area.y + y, width, height),
                     Core::C2DPoint{sourceX, sourceY});
            x += width;
            sourceX = 0;
        }
        y += height;
        sourceY = 0;
    }
}

/// How many times a side of a tile is repeated in a block: a drawing call costs as much as copying
/// some thousand pixels.
int GetBlockSide(int tileSide) {
    constexpr int kLeastSide = 128;
    return (kLeastSide + tileSide - 1) / tileSide * tileSide;
}

} // namespace

void CImageGraphics::SetElement(std::unique_ptr<CImageElement> element) {
    catalog.SetElement(0, std::move(element));
    stretchedDirty = true;
    tileBlock.reset();
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
            DrawPrepared(surface, *bitmap, area, area.GetPosition());
        }
        break;
    default:
        catalog.Draw(0, surface, area, area.GetPosition());
    }
}

void CImageGraphics::DrawPrepared(IDrawSurface& surface, CDIBBitmap& bitmap,
                                  const Core::C2DRectangle& area,
                                  const Core::C2DPoint& source) const {
    if (catalog.IsTransparent(0)) {
        surface.DrawBitmapAlpha(bitmap, source, area.GetPosition(), area.GetSize(), 255);
    } else {
        surface.DrawBitmap(bitmap, source, area.GetPosition(), area.GetSize());
    }
}

void CImageGraphics::DrawTiles(IDrawSurface& surface, const Core::C2DRectangle& area) {
    const Core::C2DSize tile = catalog.GetElementSize(0);
    if (tile.IsEmpty() || area.IsEmpty()) {
        return;
    }
    if (CDIBBitmap* block = GetTileBlock(tile)) {
        ForEachTile(area, block->GetSize(),
                    [&](const Core::C2DRectangle& part, const Core::C2DPoint& source) {
                        DrawPrepared(surface, *block, part, source);
                    });
    } else {
        ForEachTile(area, tile, [&](const Core::C2DRectangle& part, const Core::C2DPoint& source) {
            catalog.Draw(0, surface, part, source);
        });
    }
}

CDIBBitmap* CImageGraphics::GetTileBlock(const Core::C2DSize& tile) {
    const Core::C2DSize size{GetBlockSide(tile.width), GetBlockSide(tile.height)};
    if (size == tile) {
        return nullptr;
    }
    if (!tileBlock) {
        const CPlatformImage& image = *catalog.GetImage(0)->GetPlatformImage();
        const bool opaque = !image.HasAlpha() && !catalog.IsTransparent(0);
        tileBlock = std::make_unique<CDIBBitmap>(size, opaque ? 24 : 32);
        const std::unique_ptr<IDrawSurface> sheet = tileBlock->CreateSurface();
        ForEachTile({Core::C2DPoint{}, size}, tile,
                    [&](const Core::C2DRectangle& part, const Core::C2DPoint& source) {
                        catalog.Draw(0, *sheet, part, source);
                    });
    }
    return tileBlock->GetContext() ? tileBlock.get() : nullptr;
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
