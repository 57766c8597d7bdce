#pragma once

#include "core/Command.h"
#include "core/Ownership.h"
#include "datamodel/objects/CaptureText.h"
#include "graphics/2DGraphics.h"
#include "graphics/text/Font.h"

namespace Vorin::Graphics {

/// Draws a text in its area. GUI thread only.
///
/// Black letters in the middle, on whatever lies behind them, at first. Without a font only the
/// background is drawn.
class CTextDrawer : public C2DGraphicsBase {
public:
    CTextDrawer();
    ~CTextDrawer() override;
    CTextDrawer(const CTextDrawer&) = delete;
    CTextDrawer& operator=(const CTextDrawer&) = delete;

    /// With `kDontOwn` the font outlives its stay. Null for none.
    void SetFont(IFont* newFont, Core::EOwnership ownership);
    IFont* GetFont() { return font.Get(); }

    void SetTextColor(const RGB& color) { Change(textColor, color); }
    const RGB& GetTextColor() const { return textColor; }
    void SetBackgroundColor(const RGB& color) { Change(backgroundColor, color); }
    const RGB& GetBackgroundColor() const { return backgroundColor; }
    /// 0 fills the whole area with the background colour first; any other value draws text alone.
    void SetTextMode(int mode) { Change(textMode, mode); }
    int GetTextMode() const { return textMode; }

    /// See CTextFormat.
    void SetHAlign(int align) { Change(format.hAlign, align); }
    int GetHAlign() const { return format.hAlign; }
    void SetVAlign(int align) { Change(format.vAlign, align); }
    int GetVAlign() const { return format.vAlign; }
    void SetMultiline(bool multiline) { Change(format.multiline, multiline); }
    bool IsMultiline() const { return format.multiline; }
    void SetWordBreak(bool wordBreak) { Change(format.wordBreak, wordBreak); }
    bool IsWordBreak() const { return format.wordBreak; }

    /// Null counts as empty. The same text changes nothing.
    void SetText(const char* newText);
    const char* GetText() const { return text.GetValue(); }
    /// The text as a value; whoever sets it there has the area redrawn too.
    DataModel::Objects::CCaptureText& GetCaptureText() { return text; }

    /// What the text takes by itself: its lines, as they are broken in the present width, turned as
    /// the font is. (0, 0) without a font.
    Core::C2DSize GetTextSize();

    void Draw(IDrawSurface& surface, const ISimple2DRegion* region) override;
    bool HitTest(const Core::C2DPoint& point) override { return GetArea().Contains(point); }
    bool IsTransparent() const override { return textMode != 0; }

private:
    void OnChanged() { Invalidate(); }

    Core::TOwnership<IFont> font;
    RGB textColor;
    RGB backgroundColor;
    int textMode = 1;
    CTextFormat format;
    DataModel::Objects::CCaptureText text;
    Core::TCommand<CTextDrawer> changedCommand{this, &CTextDrawer::OnChanged};
};

} // namespace Vorin::Graphics
