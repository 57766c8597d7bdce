#pragma once

#include <memory>

#include "core/Geometry.h"
#include "graphics/DrawSurface.h"
#include "graphics/Image.h"
#include "graphics/PixelAccess.h"

namespace Vorin::Graphics {

/// An image as a widget uses it: with the way it is drawn, and the shape in which it is hit.
///
/// GUI thread only. An element without an image draws nothing, and is (0, 0) large.
class CImageElement {
public:
    /// `elementImage` may be null. `alpha`: 0 to 255.
    CImageElement(std::unique_ptr<IImage> elementImage, int alpha);
    virtual ~CImageElement() = default;
    CImageElement(const CImageElement&) = delete;
    CImageElement& operator=(const CImageElement&) = delete;

    /// The part of the image that begins at `source` and has the size `size`, its top left corner
    /// at `destination`; what of it lies outside the image is left out.
    virtual void Draw(IDrawSurface& surface, const Core::C2DPoint& source,
                      const Core::C2DPoint& destination, const Core::C2DSize& size) = 0;

    /// The part `source` of the image, scaled to `destination`.
    virtual void Stretch(IDrawSurface& surface, const Core::C2DRectangle& source,
                         const Core::C2DRectangle& destination) = 0;

    /// True when what lies behind the image can show through it.
    virtual bool IsTransparent() const = 0;

    /// Null without one. Belongs to the element.
    IImage* GetImage() const { return image.get(); }
    Core::C2DSize GetSize() const { return image ? image->GetSize() : Core::C2DSize{}; }
    int GetAlpha() const { return alpha; }

    /// From here on the element is hit where the mask is bright; null: in its whole size.
    void SetMask(std::unique_ptr<IImage> maskImage);
    IImage* GetMask() const { return mask.get(); }

    /// `local`: a point of the image. With a mask, true when the mask's pixel is brighter than
    /// `threshold`, of 0 to 1; outside the mask nothing is hit.
    bool HitTest(const Core::C2DPoint& local, double threshold) const;

private:
    const std::unique_ptr<IImage> image;
    const int alpha;
    std::unique_ptr<IImage> mask;
    std::unique_ptr<IRGBPixelAccess> maskPixels; // null without a mask that has pixels
};

/// How bright a pixel is, from 0 to 1 (a little above, by rounding, for white).
double GetLuma(const RGB& color);

/// The image as it is. Taken for opaque.
class CNormalImageElement : public CImageElement {
public:
    explicit CNormalImageElement(std::unique_ptr<IImage> elementImage)
        : CImageElement(std::move(elementImage), 255) {}

    void Draw(IDrawSurface& surface, const Core::C2DPoint& source,
              const Core::C2DPoint& destination, const Core::C2DSize& size) override;
    void Stretch(IDrawSurface& surface, const Core::C2DRectangle& source,
                 const Core::C2DRectangle& destination) override;
    bool IsTransparent() const override { return false; }
};

/// The image with what lies behind shining through: where it has alpha, and everywhere by the
/// constant alpha.
class CAlphaImageElement : public CImageElement {
public:
    using CImageElement::CImageElement;

    void Draw(IDrawSurface& surface, const Core::C2DPoint& source,
              const Core::C2DPoint& destination, const Core::C2DSize& size) override;
    void Stretch(IDrawSurface& surface, const Core::C2DRectangle& source,
                 const Core::C2DRectangle& destination) override;
    bool IsTransparent() const override { return true; }
};

} // namespace Vorin::Graphics
