#pragma once

#include <memory>

#include "graphics/SurfaceFont.h"
#include "graphics/text/FontDescription.h"
#include "graphics/text/TextFormat.h"

namespace Vorin::Graphics {

class CPlatformFont;

/// A font to measure and draw text with. GUI thread only.
///
/// What goes for all texts: they are UTF-8, and one that is not draws nothing and measures (0, 0).
/// Control characters count as spaces. Of a text that no screen could show, the end is left out:
/// a line has at most 16,384 characters, a text 65,536, of large fonts fewer, and 8,192 lines.
class IFont : public virtual IFontDescription, public virtual ISurfaceFont {
public:
    /// The size of a text as `format` breaks it into lines in a rectangle that is `width` wide,
    /// without rotation. Lines are not broken at words where `width` is 0 or less.
    virtual Core::C2DSize MeasureLines(const char* text, int width, const CTextFormat& format) = 0;
};

/// What the fonts have in common: a description, and a platform font for it.
class CBaseFont : public CFontDescription, public virtual IFont {
public:
    using CFontDescription::CFontDescription;

    std::unique_ptr<ISurfaceFont> Share() override;
    void DrawText(CDrawContext& context, const CTextColors& colors, const char* text,
                  const Core::C2DPoint& point) override;
    void DrawTextInRect(CDrawContext& context, const CTextColors& colors, const char* text,
                        const Core::C2DRectangle& rectangle, const CTextFormat& format) override;
    Core::C2DSize GetTextSize(const char* text) override;
    Core::C2DSize MeasureText(const char* text) override;
    int GetCharacterHeight() override;
    Core::C2DSize MeasureLines(const char* text, int width, const CTextFormat& format) override;

protected:
    /// The platform font for the present values; never null.
    virtual const std::shared_ptr<CPlatformFont>& GetPlatformFont() = 0;
};

/// A font with a platform font of its own, made when it is first needed and dropped on any change.
class CFont : public CBaseFont {
public:
    using CBaseFont::CBaseFont;
    CFont(const CFont& other) : IFontDescription(), ISurfaceFont(), CBaseFont(other) {}
    CFont& operator=(const CFont& other);

    const std::shared_ptr<CPlatformFont>& GetPlatformFont() override;

protected:
    void OnChanged() override { platformFont.reset(); }

private:
    std::shared_ptr<CPlatformFont> platformFont;
};

} // namespace Vorin::Graphics
