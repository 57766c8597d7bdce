#include "graphics/DrawContext.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Vorin::Graphics {

namespace {

std::int64_t RoundToLong(double value) {
    constexpr double kFarthest = 4503599627370496.0; // 2^52, up to which each integer is a double
    return std::isnan(value) ? 0
                             : static_cast<std::int64_t>(
                                   std::floor(std::clamp(value, -kFarthest, kFarthest) + 0.5));
}

int RoundToInt(double value) { return Core::SaturateToInt(RoundToLong(value)); }

} // namespace

CDrawContext::CDrawContext(std::shared_ptr<CBitmapContext> bitmapContext) {
    cairo_surface_t* surface = bitmapContext ? bitmapContext->GetCairoSurface() : nullptr;
    if (!surface) {
        return;
    }
    cairo.reset(cairo_create(surface));
    if (cairo_status(cairo.get()) == CAIRO_STATUS_SUCCESS) {
        bitmap = std::move(bitmapContext);
    } else {
        cairo.reset();
    }
}

cairo_t* CDrawContext::BeginCairo() {
    const Core::C2DRectangle clip = GetClip();
    if (clip.IsEmpty()) {
        return nullptr;
    }
    bitmap->BeginCairo(clip);
    return cairo.get();
}

cairo_t* CDrawContext::BeginCairo(const Core::C2DRectangle& area) {
    const Core::C2DRectangle visible = GetVisiblePart(area);
    if (visible.IsEmpty()) {
        return nullptr;
    }
    bitmap->BeginCairo(visible);
    return cairo.get();
}

std::uint8_t* CDrawContext::BeginPixels(const Core::C2DRectangle& area) {
    return bitmap ? bitmap->BeginPixels(area) : nullptr;
}

void CDrawContext::Translate(const Core::C2DVector& offset) {
    if (cairo) {
        cairo_translate(cairo.get(), offset.x, offset.y);
    }
}

CDrawContext::Origin CDrawContext::GetOrigin() const {
    if (!cairo) {
        return {};
    }
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo.get(), &matrix);
    return {RoundToLong(matrix.x0), RoundToLong(matrix.y0)};
}

Core::C2DRectangle CDrawContext::GetClip() const {
    if (!cairo) {
        return {};
    }
    // The box in pixels of the bitmap, whatever the matrix does.
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo.get(), &matrix);
    cairo_identity_matrix(cairo.get());
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    cairo_clip_extents(cairo.get(), &left, &top, &right, &bottom);
    cairo_set_matrix(cairo.get(), &matrix);
    const int x = static_cast<int>(left);
    const int y = static_cast<int>(top);
    return Core::C2DRectangle(x, y, RoundToInt(right) - x, RoundToInt(bottom) - y)
        .Intersect({Core::C2DPoint{}, bitmap->GetSize()});
}

Core::C2DRectangle CDrawContext::GetVisiblePart(const Core::C2DRectangle& rectangle) const {
    const Core::C2DRectangle clip = GetClip();
    if (clip.IsEmpty() || rectangle.IsEmpty()) {
        return {};
    }
    const Origin origin = GetOrigin();
    const std::int64_t x = rectangle.x + origin.x;
    const std::int64_t y = rectangle.y + origin.y;
    const std::int64_t left = std::clamp<std::int64_t>(x, clip.x, clip.GetRight());
    const std::int64_t top = std::clamp<std::int64_t>(y, clip.y, clip.GetBottom());
    const std::int64_t right = std::clamp(x + rectangle.width, left, clip.GetRight());
    const std::int64_t bottom = std::clamp(y + rectangle.height, top, clip.GetBottom());
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
            static_cast<int>(bottom - top)};
}

void CDrawContext::IntersectClip(const Core::C2DRectangle& rectangle) {
    if (!cairo) {
        return;
    }
    // In pixels of the bitmap, which are never too far for Cairo.
    const Core::C2DRectangle visible = GetVisiblePart(rectangle);
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo.get(), &matrix);
    cairo_identity_matrix(cairo.get());
    cairo_new_path(cairo.get());
    cairo_rectangle(cairo.get(), visible.x, visible.y, visible.width, visible.height);
    cairo_clip(cairo.get());
    cairo_set_matrix(cairo.get(), &matrix);
}

void CDrawContext::Save() {
    if (cairo) {
        cairo_save(cairo.get());
        ++savedStates;
    }
}

void CDrawContext::Restore() {
    if (savedStates > 0) {
        cairo_restore(cairo.get());
        --savedStates;
    }
}

} // namespace Vorin::Graphics
