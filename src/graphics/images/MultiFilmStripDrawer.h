#pragma once

#include "graphics/2DGraphics.h"
#include "graphics/images/ImageCatalog.h"

namespace Vorin::Graphics {

/// One frame of one of several film strips. A film strip is an image that holds a number of
/// pictures of the same size in a row.
class CMultiFilmStripDrawer : public C2DGraphicsBase {
public:
    /// The catalog is filled by whoever made the drawer.
    CDynamicImageCatalog& GetCatalog() { return catalog; }
    const CImageCatalog& GetCatalog() const { return catalog; }

    /// The pictures in each strip, 1 at first; below 1 counts as 1.
    void SetFrameCount(int count) { Change(frameCount, count < 1 ? 1 : count); }
    int GetFrameCount() const { return frameCount; }

    /// Whether the pictures stand one below the other, as at first, or side by side.
    void SetVertical(bool isVertical) { Change(vertical, isVertical); }
    bool IsVertical() const { return vertical; }

    /// The index of the strip, and the number of the frame, both 0 at first. Outside what there is,
    /// nothing is shown.
    void SetCurrentImage(int index) { Change(currentImage, index); }
    int GetCurrentImage() const { return currentImage; }
    void SetCurrentFrame(int frame) { Change(currentFrame, frame); }
    int GetCurrentFrame() const { return currentFrame; }

    /// Sets the size to that of a frame of the largest strip.
    void FitToImages();

    /// Where the current frame lies in its strip.
    Core::C2DVector GetFrameOffset() const;

    /// Nothing of the neighbouring frames is drawn, even when the object is larger than a frame.
    void Draw(IDrawSurface& surface, const ISimple2DRegion* region) override;
    bool HitTest(const Core::C2DPoint& point) override;
    bool IsTransparent() const override { return catalog.IsTransparent(currentImage); }

private:
    Core::C2DSize GetFrameSize(const Core::C2DSize& strip) const;
    Core::C2DRectangle GetFrameArea() const;

    CDynamicImageCatalog catalog;
    int frameCount = 1;
    bool vertical = true;
    int currentImage = 0;
    int currentFrame = 0;
};

} // namespace Vorin::Graphics
