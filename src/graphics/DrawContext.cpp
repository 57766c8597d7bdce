#include "graphics/DrawContext.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Vorin::Graphics {

namespace {

/// To the nearest, halves upwards. Written out, since a call of the library's floor is most of the
/// cost of looking at a context.
std::int64_t RoundToLong(double value) {
    constexpr double kFarthest = 4503599627370496.0; // 2^52, up to which each integer is a double
    if (!(value > -kFarthest && value < kFarthest)) {
        return std::isnan(value) ? 0 : static_cast<std::int64_t>(std::copysign(kFarthest, value));
    }
    const double shifted = value + 0.5;
    const auto whole = static_cast<std::int64_t>(shifted);
    return static_cast<double>(whole) > shifted ? whole - 1 : whole;
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

cairo_t* CDrawContext::BeginCairoPath(const Core::C2DRectangle& area) {
    const CView view = GetView();
    const Core::C2DRectangle visible = GetVisiblePart(area, view);
    if (visible.IsEmpty()) {
        return nullptr;
    }
    bitmap->BeginCairo(visible);
    cairo_new_path(cairo.get());
    cairo_rectangle(cairo.get(), static_cast<double>(visible.x - view.origin.x),
                    static_cast<double>(visible.y - view.origin.y), visible.width, visible.height);
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

Core::C2DRectangle CDrawContext::GetClip() const { return GetView().clip; }

CDrawContext::CView CDrawContext::GetView() const {
    if (!cairo) {
        return {};
    }
    cairo_matrix_t matrix;
    cairo_get_matrix(cairo.get(), &matrix);
    const Origin origin{RoundToLong(matrix.x0), RoundToLong(matrix.y0)};
    const bool isTranslation =
        matrix.xx == 1.0 && matrix.yy == 1.0 && matrix.xy == 0.0 && matrix.yx == 0.0;
    if (!isTranslation) { // the box in pixels of the bitmap, whatever the matrix does
        cairo_identity_matrix(cairo.get());
    }
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    cairo_clip_extents(cairo.get(), &left, &top, &right, &bottom);
    if (!isTranslation) {
        cairo_set_matrix(cairo.get(), &matrix);
        matrix.x0 = 0.0;
        matrix.y0 = 0.0;
    }
    const Core::C2DPoint topLeft{RoundToInt(left + matrix.x0), RoundToInt(top + matrix.y0)};
    const Core::C2DSize size{RoundToInt(right + matrix.x0) - topLeft.x,
                             RoundToInt(bottom + matrix.y0) - topLeft.y};
    return {origin,
            Core::C2DRectangle(topLeft, size).Intersect({Core::C2DPoint{}, bitmap->GetSize()})};
}

Core::C2DRectangle CDrawContext::GetVisiblePart(const Core::C2DRectangle& rectangle) const {
    return GetVisiblePart(rectangle, GetView());
}

Core::C2DRectangle CDrawContext::GetVisiblePart(const Core::C2DRectangle& rectangle,
                                                const CView& view) {
    const Core::C2DRectangle& clip = view.clip;
    if (clip.IsEmpty() || rectangle.IsEmpty()) {
        return {};
    }
    const std::int64_t x = rectangle.x + view.origin.x;
    const std::int64_t y = rectangle.y + view.origin.y;
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
