#include "graphics/DIBSurface.h"

#include <type_traits>
#include <utility>

namespace Vorin::Graphics {

namespace {

using LongLine = TLine<std::int64_t>;

// A context in whose format the pixels of `Iterator` can be drawn; null for any other.
template <class Iterator>
std::shared_ptr<CBitmapContext> OfFormat(std::shared_ptr<CBitmapContext> context) {
    const bool fits = context && WithIterator(context->GetFormat(), []<class Other>(Other) {
                          return std::is_same_v<Other, Iterator>;
                      });
    return fits ? std::move(context) : nullptr;
}

// A line in bitmap coordinates, wherever its ends lie.
template <class Iterator>
void DrawAnyLine(const TPixelTarget<Iterator>& target, LongLine line) {
    const auto edges = target.template GetEdges<std::int64_t>();
    if (ClipLine(line, edges)) {
        DrawClippedLine(target, static_cast<int>(line.x1), static_cast<int>(line.y1),
                        static_cast<int>(line.x2), static_cast<int>(line.y2));
    }
}

template <class Iterator>
void DrawAnySmoothLine(const TPixelTarget<Iterator>& target, TLine<float> line) {
    if (ClipLine(line, target.template GetEdges<float>())) {
        DrawClippedSmoothLine(target, line);
    }
}

// The polylines test each point once; a pair inside the clip goes straight to the pixels.
template <class Iterator, class Origin>
void DrawLines(const TPixelTarget<Iterator>& target, const Origin& origin,
               const Core::C2DPoint* points, int count) {
    const auto edges = target.template GetEdges<std::int64_t>();
    std::int64_t x1 = points[0].x + origin.x;
    std::int64_t y1 = points[0].y + origin.y;
    bool inside = edges.Contains(x1, y1);
    for (int i = 1; i < count; ++i) {
        const std::int64_t x2 = points[i].x + origin.x;
        const std::int64_t y2 = points[i].y + origin.y;
        const bool nextInside = edges.Contains(x2, y2);
        if (inside && nextInside) {
            DrawClippedLine(target, static_cast<int>(x1), static_cast<int>(y1),
                            static_cast<int>(x2), static_cast<int>(y2));
        } else {
            DrawAnyLine(target, {x1, y1, x2, y2});
        }
        x1 = x2;
        y1 = y2;
        inside = nextInside;
    }
}

template <class Iterator, class Origin>
void DrawSmoothLines(const TPixelTarget<Iterator>& target, const Origin& origin,
                     const C2DFloatPoint* points, int count) {
    const auto edges = target.template GetEdges<float>();
    const auto originX = static_cast<float>(origin.x);
    const auto originY = static_cast<float>(origin.y);
    float x1 = points[0].x + originX;
    float y1 = points[0].y + originY;
    bool inside = edges.Contains(x1, y1);
    for (int i = 1; i < count; ++i) {
        const float x2 = points[i].x + originX;
        const float y2 = points[i].y + originY;
        const bool nextInside = edges.Contains(x2, y2);
        if (inside && nextInside) {
            DrawClippedSmoothLine(target, {x1, y1, x2, y2});
        } else {
            DrawAnySmoothLine(target, {x1, y1, x2, y2});
        }
        x1 = x2;
        y1 = y2;
        inside = nextInside;
    }
}

} // namespace

template <class Iterator>
TDIBSurface<Iterator>::TDIBSurface(std::shared_ptr<CBitmapContext> bitmapContext)
    : CBitmapSurface(OfFormat<Iterator>(std::move(bitmapContext))),
      penLanes(Iterator::ToLanes(GetPenColor())) {}

template <class Iterator>
TDIBSurface<Iterator>::TDIBSurface(Unit* memory, const Core::C2DSize& size)
    : TDIBSurface(CBitmapContext::CreateOver(memory, size, Iterator::kFormat)) {}

template <class Iterator>
void TDIBSurface<Iterator>::SetPenColor(const RGB& color) {
    CBitmapSurface::SetPenColor(color);
    penLanes = Iterator::ToLanes(color);
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawLine(const Core::C2DPoint& from, const Core::C2DPoint& to) {
    const Core::C2DPoint points[] = {from, to};
    DrawPolyline(points, 2);
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawPolyline(const Core::C2DPoint* points, int count) {
    Drawing drawing;
    if (count >= 2 && BeginDrawing(drawing)) {
        DrawLines(drawing.target, drawing.origin, points, count);
    }
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawPoint(const Core::C2DPoint& point) {
    DrawPoints(&point, 1);
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawPoints(const Core::C2DPoint* points, int count) {
    Drawing drawing;
    if (count < 1 || !BeginDrawing(drawing)) {
        return;
    }
    const auto& target = drawing.target;
    const auto edges = target.template GetEdges<std::int64_t>();
    for (int i = 0; i < count; ++i) {
        const std::int64_t x = points[i].x + drawing.origin.x;
        const std::int64_t y = points[i].y + drawing.origin.y;
        if (edges.Contains(x, y)) {
            Iterator::Store(target.At(static_cast<int>(x), static_cast<int>(y)), target.pen);
        }
    }
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawRectangle(const Core::C2DRectangle& rectangle) {
    Drawing drawing;
    if (rectangle.IsEmpty() || !BeginDrawing(drawing)) {
        return;
    }
    const std::int64_t left = rectangle.x + drawing.origin.x;
    const std::int64_t top = rectangle.y + drawing.origin.y;
    const std::int64_t right = left + rectangle.width - 1;
    const std::int64_t bottom = top + rectangle.height - 1;
    DrawAnyLine(drawing.target, {left, top, right, top});
    DrawAnyLine(drawing.target, {right, top, right, bottom});
    DrawAnyLine(drawing.target, {right, bottom, left, bottom});
    DrawAnyLine(drawing.target, {left, bottom, left, top});
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawSmoothLine(const C2DFloatPoint& from, const C2DFloatPoint& to) {
    const C2DFloatPoint points[] = {from, to};
    DrawSmoothPolyline(points, 2);
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawSmoothPolyline(const C2DFloatPoint* points, int count) {
    Drawing drawing;
    if (count >= 2 && BeginDrawing(drawing)) {
        DrawSmoothLines(drawing.target, drawing.origin, points, count);
    }
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawSmoothPoint(const C2DFloatPoint& point) {
    DrawSmoothPoints(&point, 1);
}

template <class Iterator>
void TDIBSurface<Iterator>::DrawSmoothPoints(const C2DFloatPoint* points, int count) {
    Drawing drawing;
    if (count < 1 || !BeginDrawing(drawing)) {
        return;
    }
    const auto originX = static_cast<float>(drawing.origin.x);
    const auto originY = static_cast<float>(drawing.origin.y);
    for (int i = 0; i < count; ++i) {
        PlotSmoothPoint(drawing.target, points[i].x + originX, points[i].y + originY);
    }
}

template <class Iterator>
void TDIBSurface<Iterator>::RestoreState() {
    CBitmapSurface::RestoreState();
    penLanes = Iterator::ToLanes(GetPenColor());
}

template <class Iterator>
void TDIBSurface<Iterator>::SetContext(std::shared_ptr<CBitmapContext> bitmapContext) {
    CBitmapSurface::SetContext(OfFormat<Iterator>(std::move(bitmapContext)));
}

template <class Iterator>
bool TDIBSurface<Iterator>::BeginDrawing(Drawing& drawing) {
    CDrawContext* drawContext = GetContext();
    const Core::C2DRectangle clip = drawContext ? drawContext->GetClip() : Core::C2DRectangle{};
    if (clip.IsEmpty()) {
        return false;
    }
    drawing.target = {AsUnits<Iterator>(static_cast<void*>(drawContext->BeginPixels(clip))),
                      Iterator::GetStride(drawContext->GetBitmapContext()->GetSize().width),
                      penLanes,
                      clip.x,
                      clip.x + clip.width - 1,
                      clip.y,
                      clip.y + clip.height - 1};
    drawing.origin = drawContext->GetOrigin();
    return true;
}

template class TDIBSurface<CDIB32BGRIterator>;
template class TDIBSurface<CDIB24BGRIterator>;
template class TDIBSurface<CDIB16BGRIterator>;
template class TDIBSurface<CDIB8MonoIterator>;

} // namespace Vorin::Graphics
