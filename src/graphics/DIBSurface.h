#pragma once

#include <cstdint>
#include <memory>

#include "graphics/BitmapSurface.h"
#include "graphics/DIBIterator.h"
#include "graphics/LineRaster.h"

namespace Vorin::Graphics {

/// Draws lines and points on pixel memory in the format of `Iterator` by itself, pixel by pixel;
/// all else is drawn by Cairo on the same pixels.
///
/// GUI thread only. Origin and clip are read from the context once per call, so the calls that take
/// arrays are the fast ones; none of them allocates. Lines and points respect only the bounding box
/// of the clip.
template <class Iterator>
class TDIBSurface : public CBitmapSurface {
public:
    using Unit = typename Iterator::Unit;

    /// On a context of the format of `Iterator`. On any other, and on null, nothing is drawn.
    explicit TDIBSurface(std::shared_ptr<CBitmapContext> bitmapContext);

    /// `memory`: the first row, the rows Iterator::GetStride(size.width) units apart. It stays the
    /// caller's, and must not go before the surface is gone or released. Null gives a surface on
    /// which nothing can be drawn.
    TDIBSurface(Unit* memory, const Core::C2DSize& size);

    void SetPenColor(const RGB& color) override;
    void DrawLine(const Core::C2DPoint& from, const Core::C2DPoint& to) override;
    void DrawPolyline(const Core::C2DPoint* points, int count) override;
    void DrawPoint(const Core::C2DPoint& point) override;
    void DrawPoints(const Core::C2DPoint* points, int count) override;
    /// The four lines at one look at origin and clip.
    void DrawRectangle(const Core::C2DRectangle& rectangle) override;
    void DrawSmoothLine(const C2DFloatPoint& from, const C2DFloatPoint& to) override;
    void DrawSmoothPolyline(const C2DFloatPoint* points, int count) override;
    void DrawSmoothPoint(const C2DFloatPoint& point) override;
    void DrawSmoothPoints(const C2DFloatPoint* points, int count) override;
    void RestoreState() override;
    void SetContext(std::shared_ptr<CBitmapContext> bitmapContext) override;

private:
    /// What one drawing call works with. The raster part is the same wherever origin and clip come
    /// from.
    struct Drawing {
        TPixelTarget<Iterator> target;
        CDrawContext::Origin origin;
    };

    /// False when there is nothing to draw on.
    bool BeginDrawing(Drawing& drawing);

    std::uint64_t penLanes; // the pen colour as the raster takes it
};

extern template class TDIBSurface<CDIB32BGRIterator>;
extern template class TDIBSurface<CDIB24BGRIterator>;
extern template class TDIBSurface<CDIB16BGRIterator>;
extern template class TDIBSurface<CDIB8MonoIterator>;

} // namespace Vorin::Graphics
