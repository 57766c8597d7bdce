#include "graphics/PictureBlit.h"

#include <algorithm>

namespace Vorin::Graphics {

namespace {

cairo_surface_t* CopyPicture(cairo_surface_t* source, const Core::C2DSize& size) {
    cairo_surface_t* copy =
        cairo_image_surface_create(cairo_image_surface_get_format(source), size.width, size.height);
    cairo_t* cairo = cairo_create(copy);
    cairo_set_source_surface(cairo, source, 0.0, 0.0);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cairo);
    const bool isWhole = cairo_status(cairo) == CAIRO_STATUS_SUCCESS;
    cairo_destroy(cairo);
    if (!isWhole) {
        cairo_surface_destroy(copy);
        return nullptr;
    }
    return copy;
}

/// A part of a picture as a picture of its own, so that scaling never mixes in what lies beside.
cairo_surface_t* CreateView(cairo_surface_t* source, const Core::C2DRectangle& part) {
    cairo_surface_flush(source);
    const int stride = cairo_image_surface_get_stride(source);
    return cairo_image_surface_create_for_data(
        cairo_image_surface_get_data(source) + static_cast<std::ptrdiff_t>(part.y) * stride +
            static_cast<std::ptrdiff_t>(part.x) * 4,
        cairo_image_surface_get_format(source), part.width, part.height, stride);
}

} // namespace

CBitmapPicture::CBitmapPicture(const std::shared_ptr<CBitmapContext>& bitmap,
                               const CDrawContext& target) {
    if (!bitmap) {
        return;
    }
    bitmap->BeginCairo({});
    source = {bitmap->GetCairoSurface(), bitmap->GetSize()};
    if (source.surface && bitmap == target.GetBitmapContext()) {
        copy = CopyPicture(source.surface, source.size);
        source.surface = copy;
    }
}

CBitmapPicture::~CBitmapPicture() {
    if (copy) {
        cairo_surface_destroy(copy);
    }
}

void BlitPicture(CDrawContext& context, const CPictureSource& source,
                 const Core::C2DRectangle& from, const Core::C2DPoint& to, int alpha) {
    const Core::C2DRectangle part = from.Intersect({Core::C2DPoint{}, source.size});
    if (!source.surface || part.IsEmpty() || alpha <= 0) {
        return;
    }
    const std::int64_t left = std::int64_t{to.x} + (std::int64_t{part.x} - from.x);
    const std::int64_t top = std::int64_t{to.y} + (std::int64_t{part.y} - from.y);
    const Core::C2DRectangle place{Core::SaturateToInt(left), Core::SaturateToInt(top), part.width,
                                   part.height};
    if (place.x != left || place.y != top) {
        return;
    }
    cairo_t* cairo = context.BeginCairoPath(place);
    if (!cairo) {
        return;
    }
    cairo_set_source_surface(cairo, source.surface, static_cast<double>(left - part.x),
                             static_cast<double>(top - part.y));
    if (alpha >= kOpaque) {
        cairo_fill(cairo);
    } else {
        context.Save();
        cairo_clip(cairo);
        cairo_paint_with_alpha(cairo, alpha * 0.003921569);
        context.Restore();
    }
}

void StretchPicture(CDrawContext& context, const CPictureSource& source,
                    const Core::C2DRectangle& from, const Core::C2DRectangle& to) {
    const Core::C2DRectangle part = from.Intersect({Core::C2DPoint{}, source.size});
    if (!source.surface || part.IsEmpty() || to.IsEmpty()) {
        return;
    }
    cairo_t* cairo = context.BeginCairoPath(to);
    if (!cairo) {
        return;
    }
    cairo_surface_t* view = CreateView(source.surface, part);
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(view);
    cairo_surface_destroy(view);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
    cairo_matrix_t matrix; // from the surface to the picture
    cairo_matrix_init_scale(&matrix, part.width / static_cast<double>(to.width),
                            part.height / static_cast<double>(to.height));
    cairo_matrix_translate(&matrix, -static_cast<double>(to.x), -static_cast<double>(to.y));
    cairo_pattern_set_matrix(pattern, &matrix);
    cairo_set_source(cairo, pattern);
    cairo_pattern_destroy(pattern);
    cairo_fill(cairo);
}

} // namespace Vorin::Graphics
