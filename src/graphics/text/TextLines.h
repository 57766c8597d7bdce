#pragma once

#include <pango/pangocairo.h>

#include <memory>
#include <vector>

#include "graphics/text/FontLibrary.h"

namespace Vorin::Graphics {

/// A text that was laid out: its lines, measured, ready to be drawn any number of times. In pixels,
/// without rotation and stretch; (0, 0) is the top left corner.
class CTextLines {
public:
    /// `breakWidth` below 0 breaks no line at words.
    CTextLines(PangoContext* context, const PangoFontDescription* font, PangoAttrList* attributes,
               const std::string& text, double breakWidth);
    CTextLines(const CTextLines&) = delete;
    CTextLines& operator=(const CTextLines&) = delete;

    struct CInk {
        double left = 0.0;
        double top = 0.0;
        double right = 0.0;
        double bottom = 0.0;
    };

    struct CLine {
        PangoLayoutLine* line; ///< of one of the layouts
        double width;
        double baseline; ///< from the top of the text
        CInk ink;        ///< from the left end of the line and the top of the text
    };

    const std::vector<CLine>& GetLines() const { return lines; }
    /// The longest line, and the sum of ascents and descents.
    double GetWidth() const { return width; }
    double GetHeight() const { return height; }
    /// What the letters cover, the lines beginning at the left.
    const CInk& GetInk() const { return ink; }

private:
    void TakeLines(PangoLayout* layout);

    // One for each '\n': a layout takes quadratic time for the paragraphs in it.
    std::vector<TObjectPointer<PangoLayout>> layouts;
    std::vector<CLine> lines;
    double width = 0.0;
    double height = 0.0;
    CInk ink;
};

} // namespace Vorin::Graphics
