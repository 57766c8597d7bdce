#pragma once

#include <cairo.h>

#include <memory>

#include "core/Geometry.h"
#include "graphics/DrawContext.h"

/// How pictures get onto a context, wherever they come from: images and bitmaps alike.

namespace Vorin::Graphics {

inline constexpr int kOpaque = 255;

/// Pixels that Cairo can draw, borrowed; null draws nothing.
struct CPictureSource {
    cairo_surface_t* surface = nullptr;
    Core::C2DSize size;
};

/// The pixels of a bitmap as they are now. When they are those that are drawn on, a copy: Cairo
/// must not draw a surface onto itself.
class CBitmapPicture {
public:
    /// `bitmap` may be null.
    CBitmapPicture(const std::shared_ptr<CBitmapContext>& bitmap, const CDrawContext& target);
    CBitmapPicture(const CBitmapPicture&) = delete;
    CBitmapPicture& operator=(const CBitmapPicture&) = delete;
    ~CBitmapPicture();

    const CPictureSource& GetSource() const { return source; }

private:
    CPictureSource source;
    cairo_surface_t* copy = nullptr;
};

/// Draws the part `from` of a picture with its top left corner at `to`; what of it lies outside the
/// picture is left out. `alpha` is 0 to 255, other values mean the nearer end.
void BlitPicture(CDrawContext& context, const CPictureSource& source,
                 const Core::C2DRectangle& from, const Core::C2DPoint& to, int alpha);

/// Draws the part of a picture that lies in `from` scaled to `to`.
void StretchPicture(CDrawContext& context, const CPictureSource& source,
                    const Core::C2DRectangle& from, const Core::C2DRectangle& to);

} // namespace Vorin::Graphics
