#include "graphics/text/TextDrawer.h"

#include <cstring>

namespace Vorin::Graphics {

CTextDrawer::CTextDrawer() { text.GetValueChangedEvents().Connect(changedCommand); }

CTextDrawer::~CTextDrawer() {
    text.GetValueChangedEvents().Disconnect(changedCommand);
    if (font.Get()) {
        font.Get()->GetChangedEvent().Disconnect(changedCommand);
    }
}

void CTextDrawer::SetFont(IFont* newFont, Core::EOwnership ownership) {
    const bool differs = newFont != font.Get();
    if (differs && font.Get()) {
        font.Get()->GetChangedEvent().Disconnect(changedCommand);
    }
    font.Set(newFont, ownership);
    if (differs) {
        if (newFont) {
            newFont->GetChangedEvent().Connect(changedCommand);
        }
        Invalidate();
    }
}

void CTextDrawer::SetText(const char* newText) {
    if (std::strcmp(newText ? newText : "", GetText()) != 0) {
        text.SetValue(newText);
    }
}

Core::C2DSize CTextDrawer::GetTextSize() {
    if (!font.Get()) {
        return {};
    }
    return format.multiline || format.wordBreak
               ? font.Get()->MeasureLines(GetText(), GetSize().width, format)
               : font.Get()->GetTextSize(GetText());
}

void CTextDrawer::Draw(IDrawSurface& surface, const ISimple2DRegion*) {
    surface.SaveState();
    surface.SetPenColor(textColor);
    surface.SetTextMode(textMode);
    surface.SetFont(font.Get());
    if (textMode == 0) {
        surface.SetFillColor(backgroundColor);
        surface.FillRectangle(GetArea());
    }
    surface.DrawTextInRect(GetText(), GetArea(), format);
    surface.RestoreState();
}

} // namespace Vorin::Graphics
