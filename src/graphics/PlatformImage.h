#pragma once

#include <cairo.h>

#include <memory>

#include "core/Geometry.h"
#include "graphics/BitmapContext.h"

namespace Vorin::Graphics {

/// The platform's image: pixels that do not change any more, as Cairo draws them. GUI thread only.
class CPlatformImage {
public:
    /// Takes over the pixels of a bitmap; whoever else holds them must not draw on them any more.
    /// `opaque` says that each pixel has full alpha: such an image is drawn by plain copying. Null
    /// for null, for a format other than kBGRA32, and when there is no memory left.
    static std::shared_ptr<CPlatformImage> Create(std::shared_ptr<CBitmapContext> pixels,
                                                  bool opaque);

    ~CPlatformImage();
    CPlatformImage(const CPlatformImage&) = delete;
    CPlatformImage& operator=(const CPlatformImage&) = delete;

    Core::C2DSize GetSize() const { return bitmap->GetSize(); }
    int GetBitsPerPixel() const { return bitmap->GetBitsPerPixel(); }
    /// True when some pixel is not fully opaque.
    bool HasAlpha() const { return cairo_image_surface_get_format(surface) == CAIRO_FORMAT_ARGB32; }

    /// The pixels, to be read: words 0xAARRGGBB, the colours premultiplied.
    const std::shared_ptr<CBitmapContext>& GetBitmapContext() const { return bitmap; }

    /// The same pixels as a source for Cairo. Belongs to the image.
    cairo_surface_t* GetCairoSurface() const { return surface; }

private:
    CPlatformImage(std::shared_ptr<CBitmapContext> pixels, cairo_surface_t* source)
        : bitmap(std::move(pixels)), surface(source) {}

    const std::shared_ptr<CBitmapContext> bitmap; // never null
    cairo_surface_t* const surface;
};

} // namespace Vorin::Graphics
