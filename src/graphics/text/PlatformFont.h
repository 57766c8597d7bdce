#pragma once

#include <pango/pangocairo.h>

#include <memory>

#include "core/Geometry.h"
#include "graphics/SurfaceFont.h"
#include "graphics/text/FontDescription.h"
#include "graphics/text/FontLibrary.h"
#include "graphics/text/TextFormat.h"
#include "graphics/text/TextLines.h"
#include "graphics/text/TextLinesCache.h"

namespace Vorin::Graphics {

/// The platform's font for a description, and the texts that were laid out with it. GUI thread
/// only. The operations are those of ISurfaceFont and IFont.
class CPlatformFont {
public:
    explicit CPlatformFont(const CFontValues& description);
    CPlatformFont(const CPlatformFont&) = delete;
    CPlatformFont& operator=(const CPlatformFont&) = delete;

    void DrawText(CDrawContext& context, const CTextColors& colors, const char* text,
                  const Core::C2DPoint& point);
    void DrawTextInRect(CDrawContext& context, const CTextColors& colors, const char* text,
                        const Core::C2DRectangle& rectangle, const CTextFormat& format);
    Core::C2DSize GetTextSize(const char* text);
    Core::C2DSize MeasureText(const char* text);
    Core::C2DSize MeasureLines(const char* text, int width, const CTextFormat& format);
    int GetCharacterHeight();

    /// How many texts are kept; for tests.
    std::size_t GetKeptTextCount() const { return cache.GetCount(); }

private:
    struct CDescriptionFree {
        void operator()(PangoFontDescription* it) const { pango_font_description_free(it); }
    };
    struct CAttributesUnref {
        void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
    };

    /// The box that text is set in, before it is turned, and where its corner stands.
    struct CBox {
        double width = 0.0;
        double height = 0.0;
        double x = 0.0; ///< the corner, and what the box is turned about
        double y = 0.0;
        double angle = 0.0; ///< in radians, counterclockwise
    };

    bool Prepare();
    /// Null when nothing is drawn.
    std::shared_ptr<const CTextLines> GetLines(const char* text, bool multiline, double breakWidth);
    double GetBreakWidth(const CTextFormat& format, double boxWidth) const;
    bool IsInkBox() const;
    CBox GetBox(const Core::C2DRectangle& rectangle) const;
    void PlaceBox(CBox& box, const Core::C2DRectangle& rectangle) const;
    Core::C2DSize GetPixelSize(const CTextLines& lines) const;
    void Show(CDrawContext& context, const RGB& color, const CTextLines& lines, const CBox& box,
              const CTextFormat& format) const;

    const int size;       ///< in pixels; 0 for a font that draws nothing
    const double stretch; ///< how much wider than by itself the face is
    const double angle;   ///< in radians, counterclockwise
    const double sine;
    const double cosine;
    const double cornerAngle; ///< in degrees, 0 up to 360
    const bool antiAlias;
    const std::unique_ptr<PangoFontDescription, CDescriptionFree> font;
    const std::unique_ptr<PangoAttrList, CAttributesUnref> attributes;

    // Made for one generation of the library's faces.
    TObjectPointer<PangoContext> pangoContext;
    int generation = -1;
    double characterHeight = 0.0;
    CTextLinesCache cache;
};

} // namespace Vorin::Graphics
