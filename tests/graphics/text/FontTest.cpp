#include "graphics/text/Font.h"

#include "graphics/text/PlatformFont.h"
#include "graphics/text/TextPicture.h"

#include <cmath>

#include <gtest/gtest.h>

namespace Vorin::Graphics::Testing {
namespace {

constexpr Core::C2DSize kPicture{200, 200};

CTextFormat Aligned(int horizontal, int vertical) {
    CTextFormat format;
    format.hAlign = horizontal;
    format.vAlign = vertical;
    return format;
}

TEST(FontTest, ALineIsAsWideAsItsLettersAndAsHighAsTheFont) {
    CSharedFont font(MakeFont(20));
    const Core::C2DSize one = font.MeasureText("nnnnn");
    const Core::C2DSize two = font.MeasureText("nnnnnnnnnn");
    EXPECT_GT(one.width, 0);
    EXPECT_EQ(two.width, 2 * one.width);
    EXPECT_EQ(one.height, font.GetCharacterHeight());
    EXPECT_EQ(font.MeasureText("").width, 0);
    EXPECT_EQ(font.MeasureText("").height, font.GetCharacterHeight());
    EXPECT_EQ(font.MeasureText(nullptr), font.MeasureText(""));
    // DejaVu Sans: ascent 0.928, descent 0.236 of the size.
    EXPECT_NEAR(font.GetCharacterHeight(), 23.3, 1.7);
}

TEST(FontTest, ABoldFontIsWiderAndTheWidthStretches) {
    CFontValues values = MakeFont(40);
    CFont font(values);
    const int plain = font.MeasureText("nnnnnnnnnn").width;
    font.SetWidth(20);
    EXPECT_EQ(font.MeasureText("nnnnnnnnnn").width, plain / 2);
    font.SetWidth(40);
    EXPECT_EQ(font.MeasureText("nnnnnnnnnn").width, plain);
    font.SetWidth(0);
    font.SetWeight(kFontWeightBold);
    EXPECT_GT(font.MeasureText("nnnnnnnnnn").width, plain);
}

TEST(FontTest, TheSizeOfATurnedTextIsItsBoundingBox) {
    const Core::C2DSize plain = CSharedFont(MakeFont(20)).MeasureText("Level");
    for (const float angle : {0.0F, 30.0F, 45.0F, 90.0F, 135.0F, 180.0F, 200.0F, 300.0F, -60.0F}) {
        CSharedFont font(MakeFont(20, angle));
        const double c = std::fabs(std::cos(angle * 0.0055555557 * M_PI));
        const double s = std::fabs(std::sin(angle * 0.0055555557 * M_PI));
        const Core::C2DSize expected{static_cast<int>(plain.width * c + plain.height * s + 0.5),
                                     static_cast<int>(plain.width * s + plain.height * c + 0.5)};
        EXPECT_EQ(font.GetTextSize("Level"), expected) << angle;
        EXPECT_EQ(font.MeasureText("Level"), plain) << angle;
    }
}

TEST(FontTest, AlignmentPutsTheTextAtTheEdgesAndInTheMiddle) {
    const Core::C2DRectangle area(20, 30, 150, 100);
    const auto inkAt = [&](int horizontal, int vertical) {
        return GetInkOfText(MakeFont(20), "HH", kPicture, area, Aligned(horizontal, vertical));
    };
    const Core::C2DRectangle start = inkAt(kTextAlignStart, kTextAlignStart);
    const Core::C2DRectangle center = inkAt(kTextAlignCenter, kTextAlignCenter);
    const Core::C2DRectangle end = inkAt(kTextAlignEnd, kTextAlignEnd);
    EXPECT_EQ(start.GetSize(), center.GetSize());
    EXPECT_EQ(start.GetSize(), end.GetSize());
    const Core::C2DSize text = CSharedFont(MakeFont(20)).MeasureText("HH");
    EXPECT_EQ(end.x - start.x, area.width - text.width);
    EXPECT_EQ(end.y - start.y, area.height - text.height);
    EXPECT_NEAR(center.x - start.x, (area.width - text.width) / 2.0, 0.5);
    EXPECT_NEAR(center.y - start.y, (area.height - text.height) / 2.0, 0.5);
    EXPECT_GE(start.x, area.x);
    EXPECT_LT(start.x, area.x + 4);
    EXPECT_GE(start.y, area.y);
}

TEST(FontTest, ATurnedTextStaysInTheRectangleOfItsSize) {
    for (int angle = -360; angle <= 720; angle += 15) {
        CSharedFont font(MakeFont(20, static_cast<float>(angle)));
        const Core::C2DSize size = font.GetTextSize("Level");
        const Core::C2DRectangle area({40, 40}, size);
        const Core::C2DRectangle ink =
            GetInkOfText(font.GetValues(), "Level", kPicture, area, Aligned(1, 1));
        ASSERT_FALSE(ink.IsEmpty()) << angle;
        // At 45 degrees the corner is found with the box of the letters instead.
        const int slack = angle % 90 % 45 == 0 && angle % 90 != 0 ? size.height / 4 : 2;
        EXPECT_GE(ink.x, area.x - slack) << angle;
        EXPECT_GE(ink.y, area.y - slack) << angle;
        EXPECT_LE(ink.GetRight(), area.GetRight() + slack) << angle;
        EXPECT_LE(ink.GetBottom(), area.GetBottom() + slack) << angle;
    }
}

TEST(FontTest, AQuarterTurnGoesUpAndHalfATurnIsOnItsHead) {
    // The letter L has its ink at the left and at the bottom.
    const auto weigh = [](float angle) {
        CTestPicture picture({60, 60});
        CSharedFont font(MakeFont(40, angle));
        picture->SetFont(&font);
        picture->SetTextMode(1);
        picture->DrawTextInRect("L", {0, 0, 60, 60}, {});
        const Core::C2DRectangle ink = GetInk(picture, {60, 60});
        // The corners of the ink that are covered, by their sums of light: left top, right top,
        // right bottom, left bottom.
        std::string corners;
        const int right = ink.x + ink.width - 1;
        const int bottom = ink.y + ink.height - 1;
        for (const auto& [x, y] : {std::pair{ink.x + 1, ink.y + 1},
                                   {right - 1, ink.y + 1},
                                   {right - 1, bottom - 1},
                                   {ink.x + 1, bottom - 1}}) {
            corners += picture.GetGrey(x, y) > 100 ? '#' : '.';
        }
        return corners;
    };
    EXPECT_EQ(weigh(0.0F), "#.##");
    EXPECT_EQ(weigh(90.0F), ".###");
    EXPECT_EQ(weigh(180.0F), "###.");
    EXPECT_EQ(weigh(270.0F), "##.#");
    EXPECT_EQ(weigh(-90.0F), "##.#");
    EXPECT_EQ(weigh(450.0F), ".###");
}

TEST(FontTest, At45DegreesTheBoxIsThatOfTheLetters) {
    // With it the corner does not depend on the rectangle's size, only on its place.
    CTextFormat format = Aligned(0, 0);
    const CFontValues font = MakeFont(20, 45.0F);
    const Core::C2DRectangle small =
        GetInkOfText(font, "Level", kPicture, {50, 50, 60, 80}, format);
    const Core::C2DRectangle large =
        GetInkOfText(font, "Level", kPicture, {50, 50, 140, 90}, format);
    EXPECT_FALSE(small.IsEmpty());
    EXPECT_EQ(small, large);
}

TEST(FontTest, LinesEndAtLineFeedsWhereThereMayBeSeveral) {
    CSharedFont font(MakeFont(20));
    const int line = font.MeasureText("n").height;
    CTextFormat format;
    EXPECT_EQ(font.MeasureLines("nn\nnnnn\nn", 0, format), font.MeasureText("nn nnnn n"));
    format.multiline = true;
    EXPECT_EQ(font.MeasureLines("nn\nnnnn\nn", 0, format),
              (Core::C2DSize{font.MeasureText("nnnn").width, 3 * line}));
    EXPECT_EQ(font.MeasureLines("nn\r\nnnnn\n", 0, format),
              (Core::C2DSize{font.MeasureText("nnnn").width, 3 * line}));
}

TEST(FontTest, LongLinesBreakAtWords) {
    CSharedFont font(MakeFont(20));
    const int line = font.MeasureText("n").height;
    const int word = font.MeasureText("nnnn").width;
    const int two = font.MeasureText("nnnn nnnn").width;
    CTextFormat format;
    EXPECT_EQ(font.MeasureLines("nnnn nnnn nnnn", two, format).height, line);
    format.wordBreak = true;
    EXPECT_EQ(font.MeasureLines("nnnn nnnn nnnn", two, format), (Core::C2DSize{two, 2 * line}));
    EXPECT_EQ(font.MeasureLines("nnnn nnnn nnnn", two - 1, format),
              (Core::C2DSize{word, 3 * line}));
    EXPECT_EQ(font.MeasureLines("nnnn\nnnnn", 1000, format).height, line) << "a space";
    EXPECT_EQ(font.MeasureLines("nnnnnnnn", word, format).height, line) << "words stay whole";
    format.multiline = true;
    EXPECT_EQ(font.MeasureLines("nnnn\nnnnn", 1000, format).height, 2 * line);
}

TEST(FontTest, ABlockOfLinesIsAlignedAsOneLine) {
    const Core::C2DRectangle area(10, 10, 180, 180);
    const int lineHeight = CSharedFont(MakeFont(20)).MeasureText("H").height;
    CTextFormat format = Aligned(kTextAlignEnd, kTextAlignEnd);
    format.multiline = true;
    const Core::C2DRectangle one = GetInkOfText(MakeFont(20), "HHH", kPicture, area, format);
    const Core::C2DRectangle block = GetInkOfText(MakeFont(20), "H\nHHH", kPicture, area, format);
    EXPECT_EQ(block.GetRight(), one.GetRight());
    EXPECT_EQ(block.GetBottom(), one.GetBottom());
    EXPECT_EQ(block.width, one.width);
    EXPECT_EQ(block.y, one.y - lineHeight);
    format.vAlign = kTextAlignCenter;
    const Core::C2DRectangle middle = GetInkOfText(MakeFont(20), "HHH", kPicture, area, format);
    const Core::C2DRectangle middleBlock =
        GetInkOfText(MakeFont(20), "H\nHHH", kPicture, area, format);
    EXPECT_NEAR(middleBlock.y, middle.y - lineHeight / 2.0, 0.6);
}

TEST(FontTest, LinesThatRunFromTheRightStandWhereTheAlignmentSays) {
    const char* const hebrew = "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d";
    const Core::C2DRectangle area(10, 10, 180, 100);
    const int left = GetInkOfText(MakeFont(20), hebrew, kPicture, area, Aligned(0, 1)).x;
    const std::int64_t right =
        GetInkOfText(MakeFont(20), hebrew, kPicture, area, Aligned(2, 1)).GetRight();
    EXPECT_LT(left, 20);
    EXPECT_GT(right, 180);
}

TEST(FontTest, TheBackgroundIsFilledInMode0AlsoBehindNoText) {
    for (const char* text : {"", "A"}) {
        CTestPicture picture({60, 40});
        CSharedFont font(MakeFont(20));
        picture->SetFont(&font);
        picture->SetFillColor({0, 0, 200});
        picture->SetTextMode(0);
        picture->DrawTextInRect(text, {10, 5, 40, 30}, {});
        EXPECT_EQ(GetInk(picture, {60, 40}), Core::C2DRectangle(10, 5, 40, 30)) << text;
        EXPECT_EQ(picture.GetColor(10, 5), (RGB{0, 0, 200}));
    }
}

TEST(FontTest, ALineFillsTheRectangleOfItsSize) {
    CTestPicture picture({100, 40});
    CSharedFont font(MakeFont(20));
    picture->SetFont(&font);
    picture->SetFillColor({0, 0, 200});
    picture->SetTextMode(0);
    picture->DrawText("nn", {7, 3});
    EXPECT_EQ(GetInk(picture, {100, 40}), Core::C2DRectangle({7, 3}, font.MeasureText("nn")));
}

TEST(FontTest, WithoutItsFlagTheTextIsNotDrawn) {
    CTextFormat format;
    format.flags = 2;
    EXPECT_TRUE(GetInkOfText(MakeFont(20), "A", kPicture, {0, 0, 100, 100}, format).IsEmpty());
    format.flags = 3;
    EXPECT_FALSE(GetInkOfText(MakeFont(20), "A", kPicture, {0, 0, 100, 100}, format).IsEmpty());
}

TEST(FontTest, TextIsDrawnInThePenColour) {
    CTestPicture picture({60, 40});
    CSharedFont font(MakeFont(30));
    picture->SetFont(&font);
    picture->SetTextMode(1);
    picture->SetPenColor({255, 128, 0});
    picture->DrawTextInRect("\xe2\x96\x88", {0, 0, 60, 40}, {}); // a full block
    EXPECT_EQ(picture.GetColor(30, 20), (RGB{255, 128, 0}));
}

TEST(FontTest, OnlyTheLastQualityHasNoSoftEdges) {
    for (int quality = 0; quality <= 3; ++quality) {
        CTestPicture picture({60, 60});
        CFontValues values = MakeFont(40);
        values.quality = quality;
        CSharedFont font(values);
        picture->SetFont(&font);
        picture->SetTextMode(1);
        picture->DrawTextInRect("O", {0, 0, 60, 60}, {});
        bool hasSoftEdges = false;
        for (int i = 0; i < 60 * 60; ++i) {
            const int grey = picture.GetGrey(i % 60, i / 60);
            hasSoftEdges |= grey != 0 && grey != 255;
        }
        EXPECT_EQ(hasSoftEdges, quality != kFontQualityNoAntiAlias) << quality;
    }
}

TEST(FontTest, LinesUnderAndThroughTheTextAreDrawn) {
    // The rows of the picture that are lit in the gap between two letters.
    const auto litRows = [](bool underline, bool strikeOut) {
        CFontValues values = MakeFont(40);
        values.underline = underline;
        values.strikeOut = strikeOut;
        CSharedFont font(values);
        CTestPicture picture({100, 60});
        picture->SetFont(&font);
        picture->SetTextMode(1);
        picture->DrawText("I I", {0, 0});
        std::vector<int> rows;
        for (int y = 0; y < 60; ++y) {
            if (picture.GetGrey(font.MeasureText("I I").width / 2, y) > 100) {
                rows.push_back(y);
            }
        }
        return rows;
    };
    EXPECT_TRUE(litRows(false, false).empty());
    ASSERT_FALSE(litRows(true, false).empty());
    ASSERT_FALSE(litRows(false, true).empty());
    EXPECT_GT(litRows(true, false).front(), 35) << "under the letters";
    EXPECT_LT(litRows(false, true).back(), 35) << "through them";
}

TEST(FontTest, AClipIsNotCrossed) {
    CTestPicture picture(kPicture);
    CSharedFont font(MakeFont(40, 30.0F));
    picture->SetFont(&font);
    picture->SetTextMode(0);
    picture->SetFillColor({0, 200, 0});
    picture->IntersectClip({60, 70, 50, 40});
    picture->DrawTextInRect("Level Level", {0, 0, 200, 200}, {});
    EXPECT_EQ(GetInk(picture, kPicture), Core::C2DRectangle(60, 70, 50, 40));
}

TEST(FontTest, AChangedFontDrawsItsChange) {
    CFont font(MakeFont(20));
    const Core::C2DSize before = font.MeasureText("A");
    const auto old = font.GetPlatformFont();
    EXPECT_EQ(font.GetPlatformFont(), old);
    font.SetHeight(40);
    EXPECT_NE(font.GetPlatformFont(), old);
    EXPECT_NE(font.MeasureText("A"), before);
    CFont copy(font);
    EXPECT_EQ(copy.MeasureText("A"), font.MeasureText("A"));
}

TEST(FontTest, ADescribedSizeOf0DrawsNothing) {
    for (const int height : {0, -1, -2147483647 - 1}) {
        CSharedFont font(MakeFont(height));
        EXPECT_EQ(font.MeasureText("A"), Core::C2DSize()) << height;
        EXPECT_EQ(font.GetTextSize("A"), Core::C2DSize()) << height;
        EXPECT_EQ(font.GetCharacterHeight(), 0) << height;
        EXPECT_TRUE(GetInkOfText(MakeFont(height), "A", kPicture, {0, 0, 99, 99}).IsEmpty());
    }
}

TEST(FontTest, AFaceThatIsMissingIsReplaced) {
    CFontValues values = MakeFont(20);
    values.face = "No Such Face At All";
    EXPECT_FALSE(GetInkOfText(values, "A", kPicture, {0, 0, 99, 99}).IsEmpty());
    values.face = "";
    EXPECT_FALSE(GetInkOfText(values, "A", kPicture, {0, 0, 99, 99}).IsEmpty());
    values.face = "\xff\xfe,,,,";
    EXPECT_FALSE(GetInkOfText(values, "A", kPicture, {0, 0, 99, 99}).IsEmpty());
}

} // namespace
} // namespace Vorin::Graphics::Testing
