#pragma once

#include <memory>
#include <vector>

#include "core/Geometry.h"
#include "graphics/DrawContext.h"
#include "graphics/FloatPoint.h"
#include "graphics/RGB.h"
#include "graphics/SurfaceFont.h"

namespace Vorin::Graphics {

class CDrawLayer;
class IBitmap;
class IImage;

/// What everything shown on screen is drawn on.
///
/// GUI thread only. Coordinates are pixels, y growing downwards, relative to the current origin.
/// Nothing is drawn outside the current clip. Lines are one pixel wide. Coordinates and sizes may
/// have any value: what lies far away is clipped, what is empty draws nothing, and a line or point
/// with a coordinate that is not a finite number is left out. Arrays may be null when their count
/// is 0 or less.
class IDrawSurface {
public:
    virtual ~IDrawSurface() = default;

    /// What the surface draws on; null once it was released. Belongs to the surface.
    virtual CDrawContext* GetContext() = 0;

    /// The colour of lines, points and text. Black at first.
    virtual void SetPenColor(const RGB& color) = 0;

    /// Accepted with no effect: every line is drawn solid. Styles are 0 solid, 1 dashed, 2 dotted,
    /// 3 dashes and dots, 4 dashes and two dots.
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

    /// The colour of filled areas, and of the background of text. Black at first.
    virtual void SetFillColor(const RGB& color) = 0;
    virtual void FillRectangle(const Core::C2DRectangle& rectangle) = 0;

    /// The part of an image that begins at `source` and has the size `size`, its top left corner
    /// at `destination`. What of it lies outside the image is left out.
    virtual void DrawImage(const IImage& image, const Core::C2DPoint& source,
                           const Core::C2DPoint& destination, const Core::C2DSize& size) = 0;
    /// The same, as a whole less opaque: `alpha` of 0 to 255; other values mean the nearer end.
    virtual void DrawImageAlpha(const IImage& image, const Core::C2DPoint& source,
                                const Core::C2DPoint& destination, const Core::C2DSize& size,
                                int alpha) = 0;
    /// The part of an image that lies in `source`, cut to the image, scaled to `destination`.
    virtual void StretchImage(const IImage& image, const Core::C2DRectangle& source,
                              const Core::C2DRectangle& destination) = 0;

    /// The same for what a bitmap holds now. It may be the bitmap that is drawn on.
    virtual void DrawBitmap(IBitmap& bitmap, const Core::C2DPoint& source,
                            const Core::C2DPoint& destination, const Core::C2DSize& size) = 0;
    virtual void DrawBitmapAlpha(IBitmap& bitmap, const Core::C2DPoint& source,
                                 const Core::C2DPoint& destination, const Core::C2DSize& size,
                                 int alpha) = 0;
    virtual void StretchBitmap(IBitmap& bitmap, const Core::C2DRectangle& source,
                               const Core::C2DRectangle& destination) = 0;

    /// The same for a whole layer.
    virtual void DrawLayer(CDrawLayer& layer, const Core::C2DPoint& point) = 0;
    virtual void DrawLayerAlpha(CDrawLayer& layer, const Core::C2DPoint& point, int alpha) = 0;
    virtual void StretchLayer(CDrawLayer& layer, const Core::C2DRectangle& destination) = 0;

    /// Text, in the font set last; without one nothing is drawn, and sizes are (0, 0). See
    /// ISurfaceFont for what each does.
    virtual void DrawText(const char* text, const Core::C2DPoint& point) = 0;
    virtual void DrawTextInRect(const char* text, const Core::C2DRectangle& rectangle,
                                const CTextFormat& format) = 0;
    /// Keeps a handle of its own on the font; null lets go of the one before. Not part of the
    /// states that SaveState keeps.
    virtual void SetFont(ISurfaceFont* font) = 0;
    /// 0, as at first: each text first fills its rectangle with the fill colour. Any other value:
    /// text alone. Not part of the states that SaveState keeps.
    virtual void SetTextMode(int mode) = 0;
    virtual Core::C2DSize GetTextSize(const char* text) = 0;
    virtual Core::C2DSize MeasureText(const char* text) = 0;
    virtual int GetCharacterHeight() = 0;

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

    /// The pixels that the surface draws on, as a bitmap; null once it was released. Belongs to
    /// the surface.
    virtual IBitmap* GetBitmap() = 0;

    /// Ends the drawing life of the surface: from here on every drawing operation does nothing.
    virtual void ReleaseContext() = 0;
};

/// A surface on a context that comes from elsewhere.
class IAdaptedDrawSurface : public IDrawSurface {
public:
    /// Draws on other pixels from here on, with their origin, clip and kept states as new; null is
    /// as good as ReleaseContext.
    virtual void SetContext(std::shared_ptr<CBitmapContext> bitmapContext) = 0;
};

/// Has Cairo draw everything, lines included: anti-aliased, each from the middle of a pixel to the
/// middle of another, so that the pixels at its ends are half covered. A line of one point fills
/// its pixel, and DrawPoint covers half of one.
class CDrawSurface : public IAdaptedDrawSurface {
public:
    /// Over null the surface draws nothing. It keeps the pixels alive while it draws on them,
    /// unless they are somebody else's.
    explicit CDrawSurface(std::shared_ptr<CBitmapContext> bitmapContext);
    ~CDrawSurface() override;
    CDrawSurface(const CDrawSurface&) = delete;
    CDrawSurface& operator=(const CDrawSurface&) = delete;

    CDrawContext* GetContext() override { return context.get(); }
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
    void DrawImage(const IImage& image, const Core::C2DPoint& source,
                   const Core::C2DPoint& destination, const Core::C2DSize& size) override;
    void DrawImageAlpha(const IImage& image, const Core::C2DPoint& source,
                        const Core::C2DPoint& destination, const Core::C2DSize& size,
                        int alpha) override;
    void StretchImage(const IImage& image, const Core::C2DRectangle& source,
                      const Core::C2DRectangle& destination) override;
    void DrawBitmap(IBitmap& bitmap, const Core::C2DPoint& source,
                    const Core::C2DPoint& destination, const Core::C2DSize& size) override;
    void DrawBitmapAlpha(IBitmap& bitmap, const Core::C2DPoint& source,
                         const Core::C2DPoint& destination, const Core::C2DSize& size,
                         int alpha) override;
    void StretchBitmap(IBitmap& bitmap, const Core::C2DRectangle& source,
                       const Core::C2DRectangle& destination) override;
    void DrawLayer(CDrawLayer& layer, const Core::C2DPoint& point) override;
    void DrawLayerAlpha(CDrawLayer& layer, const Core::C2DPoint& point, int alpha) override;
    void StretchLayer(CDrawLayer& layer, const Core::C2DRectangle& destination) override;
    void DrawText(const char* text, const Core::C2DPoint& point) override;
    void DrawTextInRect(const char* text, const Core::C2DRectangle& rectangle,
                        const CTextFormat& format) override;
    void SetFont(ISurfaceFont* font) override;
    void SetTextMode(int mode) override;
    Core::C2DSize GetTextSize(const char* text) override;
    Core::C2DSize MeasureText(const char* text) override;
    int GetCharacterHeight() override;
    void SetOrigin(const Core::C2DVector& offset) override;
    Core::C2DPoint GetOrigin() const override;
    Core::C2DRectangle GetClipBox() const override;
    void IntersectClip(const Core::C2DRectangle& rectangle) override;
    void SaveState() override;
    void RestoreState() override;
    IBitmap* GetBitmap() override;
    void ReleaseContext() override;
    void SetContext(std::shared_ptr<CBitmapContext> bitmapContext) override;

protected:
    const RGB& GetPenColor() const { return colors.pen; }

private:
    struct CColors {
        RGB pen;
        RGB fill;
    };

    /// A segment between positions relative to the origin.
    void Stroke(double x1, double y1, double x2, double y2);
    CTextColors GetTextColors() const;

    std::unique_ptr<CDrawContext> context;  // null once released
    std::unique_ptr<IBitmap> contextBitmap; // made when first asked for
    std::unique_ptr<ISurfaceFont> usedFont; // null: none set
    CColors colors;
    std::vector<CColors> savedColors; // one for each kept state of the context
    int textMode = 0;
};

} // namespace Vorin::Graphics
