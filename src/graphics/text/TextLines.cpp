#include "graphics/text/TextLines.h"

#include <algorithm>
#include <limits>

namespace Vorin::Graphics {

namespace {

struct CLayoutIterFree {
    void operator()(PangoLayoutIter* iterator) const { pango_layout_iter_free(iterator); }
};

double ToPixels(int pangoUnits) { return static_cast<double>(pangoUnits) / PANGO_SCALE; }

} // namespace

CTextLines::CTextLines(PangoContext* context, const PangoFontDescription* font,
                       PangoAttrList* attributes, const std::string& text, double breakWidth) {
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        PangoLayout* layout = layouts.emplace_back(pango_layout_new(context)).get();
        pango_layout_set_font_description(layout, font);
        pango_layout_set_attributes(layout, attributes);
        if (breakWidth >= 0.0 && breakWidth < ToPixels(std::numeric_limits<int>::max())) {
            pango_layout_set_width(layout, static_cast<int>(breakWidth * PANGO_SCALE));
            pango_layout_set_wrap(layout, PANGO_WRAP_WORD);
        }
        pango_layout_set_text(layout, text.data() + begin, static_cast<int>(end - begin));
        TakeLines(layout);
        begin = end + 1;
    }
}

void CTextLines::TakeLines(PangoLayout* layout) {
    const std::unique_ptr<PangoLayoutIter, CLayoutIterFree> iterator(pango_layout_get_iter(layout));
    const double layoutTop = height;
    do {
        PangoRectangle inkUnits;
        PangoRectangle logical;
        pango_layout_iter_get_line_extents(iterator.get(), &inkUnits, &logical);
        const double inkLeft = ToPixels(inkUnits.x - logical.x);
        const double inkTop = layoutTop + ToPixels(inkUnits.y);
        const CLine line{pango_layout_iter_get_line_readonly(iterator.get()),
                         ToPixels(logical.width),
                         layoutTop + ToPixels(pango_layout_iter_get_baseline(iterator.get())),
                         {inkLeft, inkTop, inkLeft + ToPixels(inkUnits.width),
                          inkTop + ToPixels(inkUnits.height)}};
        width = std::max(width, line.width);
        height = layoutTop + ToPixels(logical.y) + ToPixels(logical.height);
        const bool isFirst = lines.empty();
        ink = {isFirst ? line.ink.left : std::min(ink.left, line.ink.left),
               isFirst ? line.ink.top : std::min(ink.top, line.ink.top),
               isFirst ? line.ink.right : std::max(ink.right, line.ink.right),
               isFirst ? line.ink.bottom : std::max(ink.bottom, line.ink.bottom)};
        lines.push_back(line);
    } while (pango_layout_iter_next_line(iterator.get()));
}

} // namespace Vorin::Graphics
