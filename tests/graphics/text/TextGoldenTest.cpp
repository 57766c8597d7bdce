// Pictures that were looked at and found good, one for each thing that text can do. They hold for
// the fonts and the text libraries that the build installs.

#include "graphics/text/GoldenPicture.h"
#include "graphics/text/TextPicture.h"

#include "layout/GroupLayoutCell.h"
#include "layout/TableLayoutCell.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

namespace Vorin::Graphics::Testing {
namespace {

constexpr RGB kPaper{28, 30, 34};
constexpr RGB kFrame{90, 96, 110};
constexpr RGB kInk{236, 236, 228};

/// A sheet of paper to draw on.
class CSheet {
public:
    CSheet(int width, int height) : bitmap({width, height}, 32), surface(bitmap.CreateSurface()) {
        surface->SetFillColor(kPaper);
        surface->FillRectangle({0, 0, width, height});
        surface->SetTextMode(1);
    }

    void Frame(const Core::C2DRectangle& rectangle) {
        surface->SetPenColor(kFrame);
        surface->DrawRectangle(rectangle);
    }

    void Write(const CFontValues& values, const char* text, const Core::C2DRectangle& rectangle,
               const CTextFormat& format) {
        CSharedFont font(values);
        surface->SetPenColor(kInk);
        surface->SetFont(&font);
        surface->DrawTextInRect(text, rectangle, format);
    }

    IDrawSurface& GetSurface() { return *surface; }
    const CDIBBitmap& GetBitmap() const { return bitmap; }

private:
    CDIBBitmap bitmap;
    std::unique_ptr<IDrawSurface> surface;
};

CTextFormat At(int horizontal, int vertical) {
    CTextFormat format;
    format.hAlign = horizontal;
    format.vAlign = vertical;
    return format;
}

// Faces, weights, styles, widths, sizes, no soft edges, lines under and through the text, scripts.
TEST(TextGoldenTest, Fonts) {
    CSheet sheet(260, 250);
    int y = 4;
    const auto line = [&](const CFontValues& values, const char* text) {
        sheet.Write(values, text, {6, y, 250, 22}, At(0, 1));
        y += 24;
    };
    CFontValues values = MakeFont(16);
    line(values, "Level \xe2\x88\x92"
                 "12.5 dB \xc3\xa4\xc3\xb6\xc3\xbc \xc2\xb5s");
    values.weight = kFontWeightBold;
    line(values, "Trigger, bold");
    values.weight = kFontWeightNormal;
    values.italic = true;
    line(values, "Trigger, italic");
    values.italic = false;
    values.underline = true;
    line(values, "Under the letters");
    values.underline = false;
    values.strikeOut = true;
    line(values, "Through the letters");
    values.strikeOut = false;
    values.width = 10;
    line(values, "Narrower than by itself");
    values.width = 24;
    line(values, "Wider than that");
    values.width = 0;
    values.quality = kFontQualityNoAntiAlias;
    line(values, "Without soft edges");
    values.quality = kFontQualityDefault;
    values.face = "DejaVu Sans Mono";
    values.height = 11;
    line(values, "Small 0123456789, all equally wide");
    values = MakeFont(16);
    line(values, "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xce\x91\xce\xb2 \xd0\x94\xd0\xb0 e\xcc\x81");
    EXPECT_EQ(CountDifferences(sheet.GetBitmap(), "fonts"), 0);
}

// Each text fills the rectangle of its own size, at eight angles.
TEST(TextGoldenTest, Rotations) {
    CSheet sheet(400, 210);
    for (int i = 0; i < 8; ++i) {
        const CFontValues values =
            MakeFont(15, static_cast<float>(i) * 45.0F + (i % 2 ? 5.0F : 0.0F));
        const Core::C2DSize size = CSharedFont(values).GetTextSize("Waveform");
        const Core::C2DRectangle cell(i % 4 * 100, i / 4 * 105, 100, 105);
        const Core::C2DRectangle area(
            {cell.x + (cell.width - size.width) / 2, cell.y + (cell.height - size.height) / 2},
            size);
        sheet.Frame(area);
        sheet.Write(values, "Waveform", area, At(1, 1));
    }
    EXPECT_EQ(CountDifferences(sheet.GetBitmap(), "rotations"), 0);
}

// The nine alignments, of a block of two lines, and of a line that is turned.
TEST(TextGoldenTest, Alignments) {
    CSheet sheet(360, 330);
    for (int i = 0; i < 9; ++i) {
        const Core::C2DRectangle area(i % 3 * 120 + 4, i / 3 * 70 + 4, 112, 62);
        sheet.Frame(area);
        CTextFormat format = At(i % 3, i / 3);
        format.multiline = true;
        sheet.Write(MakeFont(14), "One\nand another", area, format);
    }
    for (int i = 0; i < 3; ++i) {
        const Core::C2DRectangle area(i * 120 + 4, 214, 112, 112);
        sheet.Frame(area);
        sheet.Write(MakeFont(14, 20.0F), "Turned", area, At(i, i));
    }
    EXPECT_EQ(CountDifferences(sheet.GetBitmap(), "alignments"), 0);
}

// Lines broken at words, in three alignments, and beside them the same with line feeds kept.
TEST(TextGoldenTest, WordBreak) {
    CSheet sheet(480, 250);
    const char* const text = "The trace of the last second, as it was heard.\nA word that is "
                             "longer than its line: unmistakeablymuchwider";
    for (int i = 0; i < 6; ++i) {
        const Core::C2DRectangle area(i % 3 * 160 + 4, i / 3 * 125 + 4, 132, 117);
        sheet.Frame(area);
        CTextFormat format = At(i % 3, i % 3);
        format.wordBreak = true;
        format.multiline = i >= 3;
        sheet.Write(MakeFont(12), text, area, format);
    }
    EXPECT_EQ(CountDifferences(sheet.GetBitmap(), "word-break"), 0);
}

/// A cell of a layout that is shown as a box with its size in it.
class CShownCell : public Layout::CGroupLayoutCell {
public:
    using CGroupLayoutCell::CGroupLayoutCell;

    void Place(const Core::C2DPoint& newPlace, const Core::C2DPoint& newRelativePlace) override {
        place = newPlace;
        CGroupLayoutCell::Place(newPlace, newRelativePlace);
    }
    Core::C2DRectangle GetBox() const { return {place, GetSize()}; }

private:
    Core::C2DPoint place;
};

// A column of a row with flex of 1, 2 and 1, a table, a stack, and a row with fractions.
TEST(TextGoldenTest, LayoutBoxes) {
    using namespace Layout;
    CGroupLayoutCell root(8, 8, 8, kLayoutColumn);
    root.SetFitSize(false);
    root.SetContentSize({360, 300});
    std::vector<CShownCell*> boxes;
    const auto addBox = [&boxes](IGroupLayoutCell& group, const Core::C2DSize& size, float flex,
                                 float width, float height, int align) {
        auto* cell = new CShownCell(0, 0, 0, kLayoutRow);
        cell->SetFitSize(false);
        cell->SetContentSize(size);
        CLayoutOptions options;
        options.SetFlex(flex);
        options.SetWidthFraction(width);
        options.SetHeightFraction(height);
        options.SetHAlign(align);
        options.SetVAlign(align);
        group.AddChild(cell, options, Core::kOwn);
        boxes.push_back(cell);
    };
    const auto addGroup = [&](int type, const Core::C2DSize& size) -> CShownCell& {
        auto* group = new CShownCell(4, 4, 4, type);
        CLayoutOptions options;
        options.SetWidthFraction(1.0F);
        group->SetFitHeight(size.height == 0);
        group->SetContentSize(size);
        root.AddChild(group, options, Core::kOwn);
        boxes.push_back(group);
        return *group;
    };
    CShownCell& row = addGroup(kLayoutRow, {});
    for (const float flex : {1.0F, 2.0F, 1.0F}) {
        addBox(row, {20, 24}, flex, -1.0F, -1.0F, kAlignCenter);
    }
    auto* table = new CTableLayoutCell(4, 4, 4, 4);
    root.AddChild(table, CLayoutOptions(), Core::kOwn);
    for (int line = 0; line < 3; ++line) {
        table->AddRow({});
        for (int column = 0; column < 4; ++column) {
            addBox(*table, {30 + 16 * ((line + column) % 3), 14 + 6 * ((2 * line + column) % 3)},
                   0.0F, -1.0F, -1.0F, column % 3);
        }
    }
    CShownCell& stack = addGroup(kLayoutStack, {0, 60});
    for (const int align : {kAlignStart, kAlignCenter, kAlignEnd}) {
        addBox(stack, {120, 24}, 0.0F, -1.0F, -1.0F, align);
    }
    CShownCell& fractions = addGroup(kLayoutRow, {0, 50});
    addBox(fractions, {1, 1}, 0.0F, 0.25F, 1.0F, kAlignCenter);
    addBox(fractions, {1, 1}, 0.0F, 0.5F, 0.5F, kAlignEnd);
    root.EnableUpdates(true);
    root.PlaceAt({0, 0});

    CSheet sheet(360, 300);
    for (const CShownCell* cell : boxes) {
        const Core::C2DRectangle box = cell->GetBox();
        sheet.Frame(box);
        if (!cell->GetInsertAfter()) { // without children
            const std::string text = std::to_string(box.width) + "x" + std::to_string(box.height);
            sheet.Write(MakeFont(10), text.c_str(), box, At(1, 1));
        }
    }
    EXPECT_EQ(CountDifferences(sheet.GetBitmap(), "layout-boxes"), 0);
}

} // namespace
} // namespace Vorin::Graphics::Testing
