#include "graphics/text/PlatformFont.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "graphics/DrawContext.h"
#include "graphics/text/DrawableText.h"

namespace Vorin::Graphics {

namespace {

// Letters larger than this are drawn as outlines: as pictures each would be kept in memory.
constexpr int kLargestPictureSize = 256;
// Up to here sines and cosines of the angle count as equal.
constexpr double kEqualSides = 1e-6;

int ClampSize(int pixels) { return std::clamp(pixels, 0, kMaxBitmapSide); }

int ToInt(double wholePixels) {
    return Core::SaturateToInt(static_cast<std::int64_t>(std::clamp(wholePixels, -1e12, 1e12)));
}
int CeilToInt(double pixels) { return ToInt(std::ceil(pixels)); }
int FloorToInt(double pixels) { return ToInt(std::floor(pixels)); }

double ToRadians(float degrees) {
    return std::isfinite(degrees) ? static_cast<double>(degrees) * 0.0055555557 * M_PI : 0.0;
}

/// The angle that decides about which corner a box is turned, from 0 up to 360.
double ToCornerAngle(float degrees) {
    const double angle = std::isfinite(degrees) ? std::fmod(degrees + 360.0, 360.0) : 0.0;
    return angle < 0.0 ? angle + 360.0 : angle;
}

/// The distance of something from the beginning of the room it stands in.
double Align(double room, double extent, int align) {
    switch (align) {
    case kTextAlignStart:
        return 0.0;
    case kTextAlignEnd:
        return room - extent;
    default:
        return (room - extent) * 0.5;
    }
}

PangoFontDescription* MakeDescription(const CFontValues& values, int size) {
    PangoFontDescription* font = pango_font_description_new();
    if (!values.face.empty()) {
        pango_font_description_set_family(font, values.face.c_str());
    }
    pango_font_description_set_absolute_size(font, static_cast<double>(size) * PANGO_SCALE);
    pango_font_description_set_weight(
        font, static_cast<PangoWeight>(std::clamp(values.weight, 100, 1000)));
    pango_font_description_set_style(font, values.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return font;
}

PangoAttrList* MakeAttributes(const CFontValues& values) {
    PangoAttrList* list = pango_attr_list_new();
    if (values.underline) {
        pango_attr_list_insert(list, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
    }
    if (values.strikeOut) {
        pango_attr_list_insert(list, pango_attr_strikethrough_new(TRUE));
    }
    return list;
}

/// Letters look the same on every desktop: its own settings are for its own text.
void SetFontOptions(PangoContext* context, bool antiAlias) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options,
                                     antiAlias ? CAIRO_ANTIALIAS_GRAY : CAIRO_ANTIALIAS_NONE);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
}

void SetColor(cairo_t* cairo, const RGB& color) {
    cairo_set_source_rgb(cairo, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
}

void FillBackground(CDrawContext& context, const RGB& color, const Core::C2DRectangle& rectangle) {
    if (cairo_t* cairo = rectangle.IsEmpty() ? nullptr : context.BeginCairo(rectangle)) {
        cairo_save(cairo);
        SetColor(cairo, color);
        cairo_rectangle(cairo, rectangle.x, rectangle.y, rectangle.width, rectangle.height);
        cairo_fill(cairo);
        cairo_restore(cairo);
    }
}

} // namespace

CPlatformFont::CPlatformFont(const CFontValues& description)
    : size(ClampSize(description.height)),
      stretch(description.width > 0 && size > 0
                  ? static_cast<double>(ClampSize(description.width)) / size
                  : 1.0),
      angle(ToRadians(description.escapement)), sine(std::fabs(std::sin(angle))),
      cosine(std::fabs(std::cos(angle))), cornerAngle(ToCornerAngle(description.escapement)),
      antiAlias(description.quality != kFontQualityNoAntiAlias),
      font(MakeDescription(description, size)), attributes(MakeAttributes(description)) {}

/// Makes what depends on the faces that there are; false for a font that draws nothing.
bool CPlatformFont::Prepare() {
    if (size == 0) {
        return false;
    }
    CFontLibrary& library = CFontLibrary::Get();
    if (generation == library.GetGeneration()) {
        return pangoContext != nullptr;
    }
    generation = library.GetGeneration();
    cache.Clear();
    pangoContext = library.CreateContext();
    if (!pangoContext) {
        return false;
    }
    SetFontOptions(pangoContext.get(), antiAlias);
    PangoFontMetrics* metrics = pango_context_get_metrics(pangoContext.get(), font.get(), nullptr);
    characterHeight = static_cast<double>(pango_font_metrics_get_ascent(metrics) +
                                          pango_font_metrics_get_descent(metrics)) /
                      PANGO_SCALE;
    pango_font_metrics_unref(metrics);
    return true;
}

std::shared_ptr<const CTextLines> CPlatformFont::GetLines(const char* text, bool multiline,
                                                          double breakWidth) {
    if (!Prepare()) {
        return nullptr;
    }
    const CTextLinesCache::CKey key{text ? text : "", multiline, breakWidth};
    if (const auto* kept = cache.Find(key)) {
        return *kept;
    }
    const int largestSide = CeilToInt(size * std::max(stretch, 1.0));
    const auto drawable = MakeDrawableText(key.text, multiline, GetTextLimits(largestSide));
    std::shared_ptr<const CTextLines> lines;
    if (drawable) {
        lines =
            std::make_shared<CTextLines>(pangoContext.get(), font.get(), attributes.get(),
                                         *drawable, breakWidth < 0.0 ? -1.0 : breakWidth / stretch);
    }
    cache.Add(key, lines);
    return lines;
}

double CPlatformFont::GetBreakWidth(const CTextFormat& format, double boxWidth) const {
    return format.wordBreak ? std::max(boxWidth, 0.0) : -1.0;
}

Core::C2DSize CPlatformFont::GetPixelSize(const CTextLines& lines) const {
    return {CeilToInt(lines.GetWidth() * stretch), CeilToInt(lines.GetHeight())};
}

Core::C2DSize CPlatformFont::MeasureText(const char* text) {
    const auto lines = GetLines(text, false, -1.0);
    return lines ? GetPixelSize(*lines) : Core::C2DSize{};
}

Core::C2DSize CPlatformFont::MeasureLines(const char* text, int width, const CTextFormat& format) {
    const auto lines =
        GetLines(text, format.multiline, width > 0 ? GetBreakWidth(format, width) : -1.0);
    return lines ? GetPixelSize(*lines) : Core::C2DSize{};
}

Core::C2DSize CPlatformFont::GetTextSize(const char* text) {
    const Core::C2DSize plain = MeasureText(text);
    return {FloorToInt(plain.width * cosine + plain.height * sine + 0.5),
            FloorToInt(plain.width * sine + plain.height * cosine + 0.5)};
}

int CPlatformFont::GetCharacterHeight() { return Prepare() ? CeilToInt(characterHeight) : 0; }

void CPlatformFont::DrawText(CDrawContext& context, const CTextColors& colors, const char* text,
                             const Core::C2DPoint& point) {
    const auto lines = GetLines(text, false, -1.0);
    if (!lines) {
        return;
    }
    if (colors.fillBackground) {
        FillBackground(context, colors.background, {point, GetPixelSize(*lines)});
    }
    CTextFormat corner;
    corner.hAlign = kTextAlignStart;
    corner.vAlign = kTextAlignStart;
    CBox box;
    box.x = point.x;
    box.y = point.y;
    Show(context, colors.text, *lines, box, corner);
}

void CPlatformFont::DrawTextInRect(CDrawContext& context, const CTextColors& colors,
                                   const char* text, const Core::C2DRectangle& rectangle,
                                   const CTextFormat& format) {
    if (rectangle.IsEmpty()) {
        return;
    }
    CBox box = GetBox(rectangle);
    const auto lines =
        GetLines(text, format.multiline, IsInkBox() ? -1.0 : GetBreakWidth(format, box.width));
    if (!lines) {
        return;
    }
    if (colors.fillBackground) {
        FillBackground(context, colors.background, rectangle);
    }
    if ((format.flags & kTextShown) == 0) {
        return;
    }
    if (IsInkBox()) {
        const CTextLines::CInk& ink = lines->GetInk();
        box.width = (ink.right - ink.left) * stretch;
        box.height = ink.bottom - ink.top;
    }
    PlaceBox(box, rectangle);
    Show(context, colors.text, *lines, box, format);
}

/// True at 45 degrees and its like: there every box fits into the rectangle whose sides add up to
/// the same, and the one around the letters is taken.
bool CPlatformFont::IsInkBox() const { return std::fabs(cosine - sine) < kEqualSides; }

/// The box that fits into a rectangle when it is turned. Its corner is not set yet.
CPlatformFont::CBox CPlatformFont::GetBox(const Core::C2DRectangle& rectangle) const {
    CBox box;
    box.angle = angle;
    if (!IsInkBox()) {
        const double divisor = cosine * cosine - sine * sine;
        box.width = (cosine * rectangle.width - sine * rectangle.height) / divisor;
        box.height = (cosine * rectangle.height - sine * rectangle.width) / divisor;
    }
    return box;
}

/// The corner of the box where it touches the rectangle from inside.
void CPlatformFont::PlaceBox(CBox& box, const Core::C2DRectangle& rectangle) const {
    double x = 0.0;
    double y = 0.0;
    if (cornerAngle <= 90.0) {
        y = box.width * sine;
    } else if (cornerAngle <= 180.0) {
        x = box.width * cosine;
        y = rectangle.height;
    } else if (cornerAngle <= 270.0) {
        x = rectangle.width;
        y = rectangle.height - sine * box.width;
    } else {
        x = rectangle.width - cosine * box.width;
    }
    box.x = rectangle.x + x;
    box.y = rectangle.y + y;
}

void CPlatformFont::Show(CDrawContext& context, const RGB& color, const CTextLines& lines,
                         const CBox& box, const CTextFormat& format) const {
    const bool isTurned = box.angle != 0.0;
    const auto snap = [isTurned](double value) {
        return isTurned ? value : std::floor(value + 0.5); // letters stand on whole pixels
    };
    const double top = snap(Align(box.height, lines.GetHeight(), format.vAlign));

    // All that the letters may cover, whichever way they are turned.
    const CTextLines::CInk& ink = lines.GetInk();
    const double alignedLeft =
        std::min(0.0, Align(box.width, lines.GetWidth() * stretch, format.hAlign));
    const double alignedRight = std::max(0.0, box.width) + lines.GetWidth() * stretch;
    const double border = size * 0.25 + 2.0; // lines under and through the text, slanted edges
    const double left = alignedLeft + std::min(ink.left, 0.0) * stretch - border;
    const double right =
        alignedRight + std::max(ink.right - lines.GetWidth(), 0.0) * stretch + border;
    const double upper = top + std::min(ink.top, 0.0) - border;
    const double lower = top + std::max(ink.bottom, lines.GetHeight()) + border;
    Core::C2DRectangle area;
    if (isTurned) {
        const double reach = std::hypot(std::max(std::fabs(left), std::fabs(right)),
                                        std::max(std::fabs(upper), std::fabs(lower)));
        area = {FloorToInt(box.x - reach), FloorToInt(box.y - reach), CeilToInt(2.0 * reach + 2.0),
                CeilToInt(2.0 * reach + 2.0)};
    } else {
        area = {FloorToInt(box.x + left), FloorToInt(box.y + upper), CeilToInt(right - left + 2.0),
                CeilToInt(lower - upper + 2.0)};
    }
    cairo_t* cairo = context.BeginCairo(area);
    if (!cairo) {
        return;
    }
    cairo_save(cairo);
    SetColor(cairo, color);
    cairo_translate(cairo, box.x, box.y);
    if (isTurned) {
        cairo_rotate(cairo, -box.angle);
    }
    if (stretch != 1.0) {
        cairo_scale(cairo, stretch, 1.0);
    }
    const bool asOutlines = size * std::max(stretch, 1.0) > kLargestPictureSize;
    if (asOutlines && !antiAlias) {
        cairo_set_antialias(cairo, CAIRO_ANTIALIAS_NONE);
    }
    for (const CTextLines::CLine& line : lines.GetLines()) {
        const double x = snap(Align(box.width, line.width * stretch, format.hAlign));
        cairo_move_to(cairo, x / stretch, top + line.baseline);
        if (asOutlines) {
            pango_cairo_layout_line_path(cairo, line.line);
            cairo_fill(cairo);
        } else {
            pango_cairo_show_layout_line(cairo, line.line);
        }
    }
    cairo_new_path(cairo); // the last current point is not part of what restore brings back
    cairo_restore(cairo);
}

} // namespace Vorin::Graphics
