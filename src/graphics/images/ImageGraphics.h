#pragma once

#include <memory>

#include "graphics/2DGraphics.h"
#include "graphics/DIBBitmap.h"
#include "graphics/images/ImageCatalog.h"

namespace Vorin::Graphics {

/// An image as a background: as it is, as tiles, or scaled to the area.
class CImageGraphics : public C2DGraphicsBase {
public:
    enum EDrawMode {
        kPlain = 0,   ///< at (0, 0), not scaled
        kRepeat = 1,  ///< side by side, the first at (0, 0)
        kStretch = 2, ///< scaled once to the object's size
    };

    CImageGraphics() : catalog(1) {}

    /// Null: nothing to draw.
    void SetElement(std::unique_ptr<CImageElement> element);
    const CImageCatalog& GetCatalog() const { return catalog; }

    /// One of EDrawMode; anything else is kPlain.
    void SetDrawMode(int mode);
    int GetDrawMode() const { return drawMode; }

    void Draw(IDrawSurface& surface, const ISimple2DRegion* region) override;

    /// In the mode kStretch the object is hit where what it shows is bright enough.
    bool HitTest(const Core::C2DPoint& point) override;

    /// Also when the image leaves a part of the area free.
    bool IsTransparent() const override;

    /// How often the image was scaled so far.
    int GetStretchCount() const { return stretchCount; }

private:
    void DrawTiles(IDrawSurface& surface, const Core::C2DRectangle& area);
    void DrawPrepared(IDrawSurface& surface, CDIBBitmap& bitmap, const Core::C2DRectangle& area,
                      const Core::C2DPoint& source) const;
    /// Brings the scaled image up to date; null when there is nothing to show.
    CDIBBitmap* GetStretched();
    /// Small tiles side by side in a bitmap; null without memory for it.
    CDIBBitmap* GetTileBlock(const Core::C2DSize& tile);

    CDynamicImageCatalog catalog; // one slot
    int drawMode = kPlain;
    std::unique_ptr<CDIBBitmap> stretched; // null until needed
    std::unique_ptr<IRGBPixelAccess> stretchedPixels;
    bool stretchedDirty = true;
    std::unique_ptr<CDIBBitmap> tileBlock; // null until needed, and when the element changes
    int stretchCount = 0;
};

} // namespace Vorin::Graphics
