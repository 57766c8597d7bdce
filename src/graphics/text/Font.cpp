#include "graphics/text/Font.h"

#include <utility>

#include "graphics/text/PlatformFont.h"

namespace Vorin::Graphics {

namespace {

/// What a surface keeps of a font: the platform font as it was when the surface took it.
class CFontHandle final : public ISurfaceFont {
public:
    explicit CFontHandle(std::shared_ptr<CPlatformFont> platformFont)
        : font(std::move(platformFont)) {}

    std::unique_ptr<ISurfaceFont> Share() override { return std::make_unique<CFontHandle>(font); }
    void DrawText(CDrawContext& context, const CTextColors& colors, const char* text,
                  const Core::C2DPoint& point) override {
        font->DrawText(context, colors, text, point);
    }
    void DrawTextInRect(CDrawContext& context, const CTextColors& colors, const char* text,
                        const Core::C2DRectangle& rectangle, const CTextFormat& format) override {
        font->DrawTextInRect(context, colors, text, rectangle, format);
    }
    Core::C2DSize GetTextSize(const char* text) override { return font->GetTextSize(text); }
    Core::C2DSize MeasureText(const char* text) override { return font->MeasureText(text); }
    int GetCharacterHeight() override { return font->GetCharacterHeight(); }

private:
    std::shared_ptr<CPlatformFont> font;
};

} // namespace

std::unique_ptr<ISurfaceFont> CBaseFont::Share() {
    return std::make_unique<CFontHandle>(GetPlatformFont());
}

void CBaseFont::DrawText(CDrawContext& context, const CTextColors& colors, const char* text,
                         const Core::C2DPoint& point) {
    GetPlatformFont()->DrawText(context, colors, text, point);
}

void CBaseFont::DrawTextInRect(CDrawContext& context, const CTextColors& colors, const char* text,
                               const Core::C2DRectangle& rectangle, const CTextFormat& format) {
    GetPlatformFont()->DrawTextInRect(context, colors, text, rectangle, format);
}

Core::C2DSize CBaseFont::GetTextSize(const char* text) {
    return GetPlatformFont()->GetTextSize(text);
}

Core::C2DSize CBaseFont::MeasureText(const char* text) {
    return GetPlatformFont()->MeasureText(text);
}

int CBaseFont::GetCharacterHeight() { return GetPlatformFont()->GetCharacterHeight(); }

Core::C2DSize CBaseFont::MeasureLines(const char* text, int width, const CTextFormat& format) {
    return GetPlatformFont()->MeasureLines(text, width, format);
}

CFont& CFont::operator=(const CFont& other) {
    if (this != &other) {
        SetValues(other.GetValues());
    }
    return *this;
}

const std::shared_ptr<CPlatformFont>& CFont::GetPlatformFont() {
    if (!platformFont) {
        platformFont = std::make_shared<CPlatformFont>(GetValues());
    }
    return platformFont;
}

} // namespace Vorin::Graphics
