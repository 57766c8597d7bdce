#include "graphics/PlatformImage.h"

#include <new>
#include <utility>

namespace Vorin::Graphics {

std::shared_ptr<CPlatformImage> CPlatformImage::Create(std::shared_ptr<CBitmapContext> pixels,
                                                       bool opaque) {
    if (!pixels || pixels->GetFormat() != EPixelFormat::kBGRA32) {
        return nullptr;
    }
    pixels->BeginCairo({});
    // Cairo only reads what it gets as a source.
    auto* memory = const_cast<std::uint8_t*>(pixels->BeginReading());
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        memory, opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32, pixels->GetSize().width,
        pixels->GetSize().height, pixels->GetStrideBytes());
    std::shared_ptr<CPlatformImage> image;
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
        image.reset(new (std::nothrow) CPlatformImage(std::move(pixels), surface));
    }
    if (!image) {
        cairo_surface_destroy(surface);
    }
    return image;
}

CPlatformImage::~CPlatformImage() {
    // Whoever still holds the surface must not reach the memory that goes now.
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
}

} // namespace Vorin::Graphics
