#include "graphics/DrawSurface.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "graphics/Bitmap.h"
#include "graphics/DrawLayer.h"
#include "graphics/Image.h"
#include "graphics/LineClip.h"
#include "graphics/PictureBlit.h"

namespace Vorin::Graphics {

namespace {

void SetSource(cairo_t* cairo, const RGB& color) {
    constexpr double kUnit = 0.003921569; // 1/255
    cairo_set_source_rgb(cairo, color.red * kUnit, color.green * kUnit, color.blue * kUnit);
}

CPictureSource SourceOf(const IImage& image) {
    const std::shared_ptr<CPlatformImage>& platformImage = image.GetPlatformImage();
    return platformImage
               ? CPictureSource{platformImage->GetCairoSurface(), platformImage->GetSize()}
               : CPictureSource{};
}

} // namespace

CDrawSurface::CDrawSurface(std::shared_ptr<CBitmapContext> bitmapContext) {
    CDrawSurface::SetContext(std::move(bitmapContext));
}

CDrawSurface::~CDrawSurface() = default;

void CDrawSurface::SetContext(std::shared_ptr<CBitmapContext> bitmapContext) {
    CDrawSurface::ReleaseContext();
    auto newContext = std::make_unique<CDrawContext>(std::move(bitmapContext));
    if (newContext->GetBitmapContext()) {
        context = std::move(newContext);
    }
}

void CDrawSurface::ReleaseContext() {
    contextBitmap.reset();
    context.reset();
    savedColors.clear();
}

void CDrawSurface::SetPenColor(const RGB& color) { colors.pen = color; }

void CDrawSurface::SetPenStyle(int) {}

void CDrawSurface::Stroke(double x1, double y1, double x2, double y2) {
    if (!context || !std::isfinite(x1 + y1 + x2 + y2)) {
        return;
    }
    // Cut to what is near the clip: Cairo's own coordinates end at some millions.
    const Core::C2DRectangle clip = context->GetClip();
    const CDrawContext::Origin origin = context->GetOrigin();
    const auto originX = static_cast<double>(origin.x);
    const auto originY = static_cast<double>(origin.y);
    constexpr double kBeyond = 2.0;
    const TClipEdges<double> edges{
        clip.x - originX - kBeyond, clip.x + clip.width - originX + kBeyond,
        clip.y - originY - kBeyond, clip.y + clip.height - originY + kBeyond};
    TLine<double> line{x1, y1, x2, y2};
    if (!CutLine(line, edges)) {
        return;
    }
    cairo_t* cairo = context->BeginCairo();
    if (!cairo) {
        return;
    }
    SetSource(cairo, colors.pen);
    cairo_new_path(cairo);
    if (line.x1 == line.x2 && line.y1 == line.y2) {
        cairo_rectangle(cairo, line.x1 - 0.5, line.y1 - 0.5, 1.0, 1.0);
        cairo_fill(cairo);
        return;
    }
    cairo_set_line_cap(cairo, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_width(cairo, 1.0);
    cairo_move_to(cairo, line.x1, line.y1);
    cairo_line_to(cairo, line.x2, line.y2);
    cairo_stroke(cairo);
}

void CDrawSurface::DrawLine(const Core::C2DPoint& from, const Core::C2DPoint& to) {
    Stroke(from.x + 0.5, from.y + 0.5, to.x + 0.5, to.y + 0.5);
}

void CDrawSurface::DrawPolyline(const Core::C2DPoint* points, int count) {
    for (int i = 1; i < count; ++i) {
        DrawLine(points[i - 1], points[i]);
    }
}

void CDrawSurface::DrawPoint(const Core::C2DPoint& point) {
    Stroke(point.x + 0.5, point.y + 0.5, point.x + 1.0, point.y + 0.5);
}

void CDrawSurface::DrawPoints(const Core::C2DPoint* points, int count) {
    for (int i = 0; i < count; ++i) {
        DrawLine(points[i], points[i]);
    }
}

void CDrawSurface::DrawRectangle(const Core::C2DRectangle& rectangle) {
    if (rectangle.IsEmpty()) {
        return;
    }
    const int left = rectangle.x;
    const int top = rectangle.y;
    const int right = Core::SaturateToInt(rectangle.GetRight() - 1);
    const int bottom = Core::SaturateToInt(rectangle.GetBottom() - 1);
    DrawLine({left, top}, {right, top});
    DrawLine({right, top}, {right, bottom});
    DrawLine({right, bottom}, {left, bottom});
    DrawLine({left, bottom}, {left, top});
}

void CDrawSurface::DrawSmoothLine(const C2DFloatPoint& from, const C2DFloatPoint& to) {
    Stroke(from.x + 0.5, from.y + 0.5, to.x + 0.5, to.y + 0.5);
}

void CDrawSurface::DrawSmoothPolyline(const C2DFloatPoint* points, int count) {
    for (int i = 1; i < count; ++i) {
        DrawSmoothLine(points[i - 1], points[i]);
    }
}

void CDrawSurface::DrawSmoothPoint(const C2DFloatPoint& point) {
    Stroke(point.x + 0.5, point.y + 0.5, point.x + 1.0, point.y + 0.5);
}

void CDrawSurface::DrawSmoothPoints(const C2DFloatPoint* points, int count) {
    for (int i = 0; i < count; ++i) {
        DrawSmoothPoint(points[i]);
    }
}

void CDrawSurface::SetFillColor(const RGB& color) { colors.fill = color; }

void CDrawSurface::FillRectangle(const Core::C2DRectangle& rectangle) {
    if (context) {
        if (cairo_t* cairo = context->BeginCairoPath(rectangle)) {
            SetSource(cairo, colors.fill);
            cairo_fill(cairo);
        }
    }
}

void CDrawSurface::DrawImage(const IImage& image, const Core::C2DPoint& source,
                             const Core::C2DPoint& destination, const Core::C2DSize& size) {
    DrawImageAlpha(image, source, destination, size, kOpaque);
}

void CDrawSurface::DrawImageAlpha(const IImage& image, const Core::C2DPoint& source,
                                  const Core::C2DPoint& destination, const Core::C2DSize& size,
                                  int alpha) {
    if (context) {
        BlitPicture(*context, SourceOf(image), {source, size}, destination, alpha);
    }
}

void CDrawSurface::StretchImage(const IImage& image, const Core::C2DRectangle& source,
                                const Core::C2DRectangle& destination) {
    if (context) {
        StretchPicture(*context, SourceOf(image), source, destination);
    }
}

void CDrawSurface::DrawBitmap(IBitmap& bitmap, const Core::C2DPoint& source,
                              const Core::C2DPoint& destination, const Core::C2DSize& size) {
    DrawBitmapAlpha(bitmap, source, destination, size, kOpaque);
}

void CDrawSurface::DrawBitmapAlpha(IBitmap& bitmap, const Core::C2DPoint& source,
                                   const Core::C2DPoint& destination, const Core::C2DSize& size,
                                   int alpha) {
    if (context) {
        const CBitmapPicture picture(bitmap.GetContext(), *context);
        BlitPicture(*context, picture.GetSource(), {source, size}, destination, alpha);
    }
}

void CDrawSurface::StretchBitmap(IBitmap& bitmap, const Core::C2DRectangle& source,
                                 const Core::C2DRectangle& destination) {
    if (context) {
        const CBitmapPicture picture(bitmap.GetContext(), *context);
        StretchPicture(*context, picture.GetSource(), source, destination);
    }
}

void CDrawSurface::DrawLayer(CDrawLayer& layer, const Core::C2DPoint& point) {
    DrawBitmap(layer.GetBitmap(), {}, point, layer.GetSize());
}

void CDrawSurface::DrawLayerAlpha(CDrawLayer& layer, const Core::C2DPoint& point, int alpha) {
    DrawBitmapAlpha(layer.GetBitmap(), {}, point, layer.GetSize(), alpha);
}

void CDrawSurface::StretchLayer(CDrawLayer& layer, const Core::C2DRectangle& destination) {
    StretchBitmap(layer.GetBitmap(), {Core::C2DPoint{}, layer.GetSize()}, destination);
}

void CDrawSurface::DrawText(const char* text, const Core::C2DPoint& point) {
    if (context && usedFont) {
        usedFont->DrawText(*context, GetTextColors(), text, point);
    }
}

void CDrawSurface::DrawTextInRect(const char* text, const Core::C2DRectangle& rectangle,
                                  const CTextFormat& format) {
    if (context && usedFont) {
        usedFont->DrawTextInRect(*context, GetTextColors(), text, rectangle, format);
    }
}

void CDrawSurface::SetFont(ISurfaceFont* font) { usedFont = font ? font->Share() : nullptr; }

void CDrawSurface::SetTextMode(int mode) { textMode = mode; }

Core::C2DSize CDrawSurface::GetTextSize(const char* text) {
    return usedFont ? usedFont->GetTextSize(text) : Core::C2DSize{};
}

Core::C2DSize CDrawSurface::MeasureText(const char* text) {
    return usedFont ? usedFont->MeasureText(text) : Core::C2DSize{};
}

int CDrawSurface::GetCharacterHeight() { return usedFont ? usedFont->GetCharacterHeight() : 0; }

CTextColors CDrawSurface::GetTextColors() const { return {colors.pen, colors.fill, textMode == 0}; }

void CDrawSurface::SetOrigin(const Core::C2DVector& offset) {
    if (context) {
        context->Translate(offset);
    }
}

Core::C2DPoint CDrawSurface::GetOrigin() const {
    const CDrawContext::Origin origin = context ? context->GetOrigin() : CDrawContext::Origin{};
    return {Core::SaturateToInt(origin.x), Core::SaturateToInt(origin.y)};
}

Core::C2DRectangle CDrawSurface::GetClipBox() const {
    if (!context) {
        return {};
    }
    const Core::C2DRectangle clip = context->GetClip();
    const CDrawContext::Origin origin = context->GetOrigin();
    return {Core::SaturateToInt(clip.x - origin.x), Core::SaturateToInt(clip.y - origin.y),
            clip.width, clip.height};
}

void CDrawSurface::IntersectClip(const Core::C2DRectangle& rectangle) {
    if (context) {
        context->IntersectClip(rectangle);
    }
}

void CDrawSurface::SaveState() {
    if (context) {
        context->Save();
        savedColors.push_back(colors);
    }
}

void CDrawSurface::RestoreState() {
    if (!savedColors.empty()) {
        context->Restore();
        colors = savedColors.back();
        savedColors.pop_back();
    }
}

IBitmap* CDrawSurface::GetBitmap() {
    if (!contextBitmap && context) {
        contextBitmap = std::make_unique<CBitmapAdapter>(context->GetBitmapContext());
    }
    return contextBitmap.get();
}

} // namespace Vorin::Graphics
