#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "graphics/DIBIterator.h"
#include "graphics/DrawSurface.h"
#include "graphics/LineRaster.h"

namespace Vorin::Graphics {

/// Draws on pixel memory in the format of `Iterator`, line by line and pixel by pixel, by itself.
///
/// GUI thread only. The memory belongs to somebody else and must stay until the surface is gone or
/// released. Origin and clip are read once per call, so the calls that take arrays are the fast
/// ones. Only the bounding box of the clip counts.
template <class Iterator>
class TDIBSurface : public IDrawSurface {
public:
    using Unit = typename Iterator::Unit;

    /// `memory`: the first row, the rows Iterator::GetStride(size.width) units apart. Null gives a
    /// surface on which nothing can be drawn.
    TDIBSurface(Unit* memory, const Core::C2DSize& size);

    void SetPenColor(const RGB& color) override;
    void SetPenStyle(int style) override;
    void DrawLine(const Core::C2DPoint& from, const Core::C2DPoint& to) override;
    void DrawPolyline(const Core::C2DPoint* points, int count) override;
    void DrawPoint(const Core::C2DPoint& point) override;
    void DrawPoints(const Core::C2DPoint* points, int count) override;
    void DrawRectangle(const Core::C2DRectangle& rectangle) override;
    void DrawSmoothLine(const C2DFloatPoint& from, const C2DFloatPoint& to) override;
    void DrawSmoothPolyline(const C2DFloatPoint* points, int count) override;
    void DrawSmoothPoint(const C2DFloatPoint& point) override;
    void DrawSmoothPoints(const C2DFloatPoint* points, int count) override;
    void SetFillColor(const RGB& color) override;
    void FillRectangle(const Core::C2DRectangle& rectangle) override;
    void SetOrigin(const Core::C2DVector& offset) override;
    Core::C2DPoint GetOrigin() const override;
    Core::C2DRectangle GetClipBox() const override;
    void IntersectClip(const Core::C2DRectangle& rectangle) override;
    void SaveState() override;
    void RestoreState() override;
    void ReleaseContext() override;

private:
    /// A sum of offsets: wide enough that going back always leads back.
    struct Origin {
        std::int64_t x = 0;
        std::int64_t y = 0;
    };

    struct State {
        Origin origin;
        Core::C2DRectangle clip; // in pixels of the bitmap, never outside it
        RGB penColor;
        RGB fillColor;
    };

    /// What one drawing call works with. The raster part is the same wherever origin and clip come
    /// from.
    struct Drawing {
        TPixelTarget<Iterator> target;
        Origin origin;
    };

    /// False when there is nothing to draw on.
    bool BeginDrawing(Drawing& drawing) const;
    /// The part of `rectangle`, given relative to the origin, that lies in the clip.
    Core::C2DRectangle GetVisiblePart(const Core::C2DRectangle& rectangle) const;

    Unit* pixels;
    const std::ptrdiff_t stride;
    std::uint64_t penLanes = 0;
    std::uint64_t fillLanes = 0;
    State state;
    std::vector<State> savedStates;
};

extern template class TDIBSurface<CDIB32BGRIterator>;
extern template class TDIBSurface<CDIB24BGRIterator>;
extern template class TDIBSurface<CDIB16BGRIterator>;
extern template class TDIBSurface<CDIB8MonoIterator>;

} // namespace Vorin::Graphics
