#pragma once

#include "graphics/2DGraphics.h"
#include "graphics/images/ImageCatalog.h"

namespace Vorin::Graphics {

/// One of several images: a button by its state, say.
class CMultiImageDrawer : public C2DGraphicsBase {
public:
    /// The catalog is filled by whoever made the drawer.
    CDynamicImageCatalog& GetCatalog() { return catalog; }
    const CImageCatalog& GetCatalog() const { return catalog; }

    /// The index of the image shown, 0 at first. That of an empty slot shows nothing.
    void SetCurrent(int index) { Change(current, index); }
    int GetCurrent() const { return current; }

    /// Sets the size to the largest width and the largest height of all images.
    void FitToImages() { SetSize(catalog.GetLargestSize()); }

    void Draw(IDrawSurface& surface, const ISimple2DRegion* region) override {
        const Core::C2DRectangle area = GetArea(region);
        catalog.Draw(current, surface, area, area.GetPosition());
    }
    bool HitTest(const Core::C2DPoint& point) override {
        return catalog.HitTest(current, point, {}, kHitThreshold);
    }
    bool IsTransparent() const override { return catalog.IsTransparent(current); }

private:
    CDynamicImageCatalog catalog;
    int current = 0;
};

} // namespace Vorin::Graphics
