#include "graphics/images/ImageElement.h"

#include <algorithm>
#include <utility>

#include "graphics/DIBPixelAccess.h"
#include "graphics/DrawLayer.h"

namespace Vorin::Graphics {

CImageElement::CImageElement(std::unique_ptr<IImage> elementImage, int elementAlpha)
    : image(std::move(elementImage)), alpha(std::clamp(elementAlpha, 0, 255)) {}

void CImageElement::SetMask(std::unique_ptr<IImage> maskImage) {
    mask = std::move(maskImage);
    const std::shared_ptr<CPlatformImage> pixels = mask ? mask->GetPlatformImage() : nullptr;
    maskPixels.reset();
    if (pixels) {
        maskPixels =
            std::make_unique<TDIBPixelAccess<CDIB32BGRIterator>>(pixels->GetBitmapContext());
    }
}

bool CImageElement::HitTest(const Core::C2DPoint& local, double threshold) const {
    if (!mask) {
        return Core::C2DRectangle({}, GetSize()).Contains(local);
    }
    return maskPixels && Core::C2DRectangle({}, mask->GetSize()).Contains(local) &&
           GetLuma(maskPixels->GetPixel(local)) > threshold;
}

double GetLuma(const RGB& color) {
    return ((color.red + 2 * color.green + color.blue) >> 2) * 0.003921569;
}

void CNormalImageElement::Draw(IDrawSurface& surface, const Core::C2DPoint& source,
                               const Core::C2DPoint& destination, const Core::C2DSize& size) {
    if (GetImage()) {
        surface.DrawImage(*GetImage(), source, destination, size);
    }
}

void CNormalImageElement::Stretch(IDrawSurface& surface, const Core::C2DRectangle& source,
                                  const Core::C2DRectangle& destination) {
    if (GetImage()) {
        surface.StretchImage(*GetImage(), source, destination);
    }
}

void CAlphaImageElement::Draw(IDrawSurface& surface, const Core::C2DPoint& source,
                              const Core::C2DPoint& destination, const Core::C2DSize& size) {
    if (GetImage()) {
        surface.DrawImageAlpha(*GetImage(), source, destination, size, GetAlpha());
    }
}

void CAlphaImageElement::Stretch(IDrawSurface& surface, const Core::C2DRectangle& source,
                                 const Core::C2DRectangle& destination) {
    if (!GetImage()) {
        return;
    }
    if (GetAlpha() == 255) {
        surface.StretchImage(*GetImage(), source, destination);
        return;
    }
    // As a sheet of what shows, which then as a whole is drawn less opaque.
    const Core::C2DRectangle visible = destination.Intersect(surface.GetClipBox());
    CDrawLayer layer(visible.GetSize());
    const std::unique_ptr<IDrawSurface> sheet = layer.CreateSurface();
    sheet->SetOrigin(Core::C2DPoint{} - visible.GetPosition());
    sheet->StretchImage(*GetImage(), source, destination);
    surface.DrawLayerAlpha(layer, visible.GetPosition(), GetAlpha());
}

} // namespace Vorin::Graphics
