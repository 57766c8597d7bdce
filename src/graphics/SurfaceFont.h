#pragma once

#include <memory>

#include "core/Geometry.h"
#include "graphics/RGB.h"

namespace Vorin::Graphics {

class CDrawContext;
struct CTextFormat; // graphics/text/TextFormat.h

/// In which colours a surface has a text drawn.
struct CTextColors {
    RGB text;
    RGB background;
    bool fillBackground = false; ///< whether the text's rectangle is filled first (text mode 0)
};

/// What a surface asks of a font: to measure text and to draw it on a context. The fonts
/// themselves live in graphics/text; their interface `IFont` extends this one.
///
/// GUI thread only. Texts are UTF-8, ended by a zero byte; null is as good as empty. A font that
/// the platform does not give draws nothing and measures (0, 0).
///
/// A surface passes its text operations straight on:
///
///     DrawText(text, point), DrawTextInRect(text, rectangle, format), GetTextSize(text),
///     MeasureText(text), GetCharacterHeight()
///
/// with its pen colour for the text, its fill colour for the background, and `fillBackground` from
/// SetTextMode. SetFont keeps what `Share` gives, and lets go of the font before.
class ISurfaceFont {
public:
    virtual ~ISurfaceFont() = default;

    /// A further handle on the same font for a surface to keep; never null.
    virtual std::unique_ptr<ISurfaceFont> Share() = 0;

    /// One line, its top left corner at `point`, relative to the context's origin.
    virtual void DrawText(CDrawContext& context, const CTextColors& colors, const char* text,
                          const Core::C2DPoint& point) = 0;
    virtual void DrawTextInRect(CDrawContext& context, const CTextColors& colors, const char* text,
                                const Core::C2DRectangle& rectangle, const CTextFormat& format) = 0;

    /// The bounding box of the text as it is drawn, its rotation included.
    virtual Core::C2DSize GetTextSize(const char* text) = 0;
    /// Without rotation.
    virtual Core::C2DSize MeasureText(const char* text) = 0;
    /// Ascent plus descent, in pixels.
    virtual int GetCharacterHeight() = 0;
};

} // namespace Vorin::Graphics
