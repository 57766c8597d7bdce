#pragma once

#include "core/Geometry.h"
#include "graphics/FloatPoint.h"
#include "graphics/RGB.h"

namespace Vorin::Graphics {

/// What everything shown on screen is drawn on.
///
/// GUI thread only. Coordinates are pixels, y growing downwards, relative to the current origin.
/// Nothing is drawn outside the current clip. Lines are one pixel wide. Coordinates may have any
/// value: far ones are clipped, and a line or point with a coordinate that is not a finite number
/// is left out. Arrays may be null when their count is 0 or less; no drawing operation allocates.
class IDrawSurface {
public:
    virtual ~IDrawSurface() = default;

    /// The colour of lines and points. Black at first.
    virtual void SetPenColor(const RGB& color) = 0;

    /// Accepted with no effect: every line is drawn solid.
    virtual void SetPenStyle(int style) = 0;

    /// A line with both its end points.
    virtual void DrawLine(const Core::C2DPoint& from, const Core::C2DPoint& to) = 0;
    /// Lines from each point to the next. A count below 2 draws nothing.
    virtual void DrawPolyline(const Core::C2DPoint* points, int count) = 0;
    virtual void DrawPoint(const Core::C2DPoint& point) = 0;
    virtual void DrawPoints(const Core::C2DPoint* points, int count) = 0;
    /// The frame of a rectangle in the pen colour, inside its edges. An empty one draws nothing.
    virtual void DrawRectangle(const Core::C2DRectangle& rectangle) = 0;

    /// The anti-aliased forms.
    virtual void DrawSmoothLine(const C2DFloatPoint& from, const C2DFloatPoint& to) = 0;
    virtual void DrawSmoothPolyline(const C2DFloatPoint* points, int count) = 0;
    virtual void DrawSmoothPoint(const C2DFloatPoint& point) = 0;
    virtual void DrawSmoothPoints(const C2DFloatPoint* points, int count) = 0;

    /// The colour of filled areas. Black at first.
    virtual void SetFillColor(const RGB& color) = 0;
    virtual void FillRectangle(const Core::C2DRectangle& rectangle) = 0;

    /// Moves the origin by `offset` from where it is: the offsets of nested calls add up, and the
    /// negative offset takes a call back.
    virtual void SetOrigin(const Core::C2DVector& offset) = 0;
    /// Where the origin lies on the surface.
    virtual Core::C2DPoint GetOrigin() const = 0;

    /// The bounding box of the clip, relative to the origin.
    virtual Core::C2DRectangle GetClipBox() const = 0;
    /// Cuts the clip down to what it has in common with `rectangle`, relative to the origin.
    virtual void IntersectClip(const Core::C2DRectangle& rectangle) = 0;

    /// SaveState keeps origin, clip and colours; RestoreState returns to what the latest SaveState
    /// kept. The calls nest. Without a kept state RestoreState changes nothing.
    virtual void SaveState() = 0;
    virtual void RestoreState() = 0;

    /// Ends the drawing life of the surface: from here on every drawing operation does nothing.
    virtual void ReleaseContext() = 0;
};

} // namespace Vorin::Graphics
