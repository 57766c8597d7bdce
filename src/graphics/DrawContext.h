#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>

#include "core/Geometry.h"
#include "graphics/BitmapContext.h"

namespace Vorin::Graphics {

/// The platform's drawing context: a bitmap's pixels, and an origin and a clip for drawing on them.
///
/// GUI thread only. Origin and clip live in a `cairo_t`, and are read from it whenever somebody
/// asks: what is done to them through Cairo holds for our own pixel routines too. They start as
/// (0, 0) and the whole bitmap.
///
/// To draw with Cairo, as text does:
///
///     if (cairo_t* cairo = context.BeginCairo()) {
///         cairo_save(cairo);
///         ... // any drawing; one unit is a pixel, y grows downwards, (0, 0) is the origin
///         cairo_restore(cairo);
///     }
///
/// Take the `cairo_t` anew for each operation, and leave it as it was: with the same matrix, clip
/// and number of saved states. Colour and other sources are not kept for anybody: each operation
/// sets its own.
class CDrawContext {
public:
    /// A context that draws nothing over null, and when there is no memory left.
    explicit CDrawContext(std::shared_ptr<CBitmapContext> bitmapContext);
    CDrawContext(const CDrawContext&) = delete;
    CDrawContext& operator=(const CDrawContext&) = delete;

    /// Null when the context draws nothing.
    const std::shared_ptr<CBitmapContext>& GetBitmapContext() const { return bitmap; }

    /// The `cairo_t`, ready to draw anywhere within the clip. Null when nothing can be drawn: the
    /// clip is empty, or there is no bitmap.
    cairo_t* BeginCairo();
    /// The same for drawing that stays within `area`, relative to the origin.
    cairo_t* BeginCairo(const Core::C2DRectangle& area);
    /// The same with the part of `area` that can show as the current path, which is never too large
    /// for Cairo.
    cairo_t* BeginCairoPath(const Core::C2DRectangle& area);

    /// The first row of the pixels, to be read and written by hand within `area`, in pixels of the
    /// bitmap. Null when there are none.
    std::uint8_t* BeginPixels(const Core::C2DRectangle& area);

    /// A sum of offsets: wide enough that going back always leads back.
    struct Origin {
        std::int64_t x = 0;
        std::int64_t y = 0;
    };
    void Translate(const Core::C2DVector& offset);
    /// Where the origin lies on the bitmap.
    Origin GetOrigin() const;

    /// The bounding box of the clip in pixels of the bitmap; never outside it.
    Core::C2DRectangle GetClip() const;
    /// The part of `rectangle`, given relative to the origin, that lies in that box, in pixels of
    /// the bitmap.
    Core::C2DRectangle GetVisiblePart(const Core::C2DRectangle& rectangle) const;
    /// Cuts the clip down to what it has in common with `rectangle`, relative to the origin.
    void IntersectClip(const Core::C2DRectangle& rectangle);

    /// Origin, clip and all else that Cairo keeps. Restore without a kept state does nothing.
    void Save();
    void Restore();

private:
    /// Origin and clip at one look.
    struct CView {
        Origin origin;
        Core::C2DRectangle clip;
    };
    CView GetView() const;
    static Core::C2DRectangle GetVisiblePart(const Core::C2DRectangle& rectangle,
                                             const CView& view);

    struct FreeCairo {
        void operator()(cairo_t* context) const { cairo_destroy(context); }
    };

    std::shared_ptr<CBitmapContext> bitmap;
    std::unique_ptr<cairo_t, FreeCairo> cairo; // null exactly when `bitmap` is
    int savedStates = 0;
};

} // namespace Vorin::Graphics
