#include "graphics/text/FontManager.h"
#include "graphics/text/PlatformFont.h"
#include "graphics/text/TextPicture.h"

#include <sys/resource.h>

#include <limits>

#include <gtest/gtest.h>

namespace Vorin::Graphics::Testing {
namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

/// Draws a text in every way there is. Standard error stays silent.
void DrawEverywhere(const CFontValues& values, const char* text) {
    ::testing::internal::CaptureStderr();
    CTestPicture picture({120, 80});
    CSharedFont font(values);
    picture->SetFont(&font);
    for (const int mode : {0, 1}) {
        picture->SetTextMode(mode);
        picture->DrawText(text, {3, 3});
        CTextFormat format;
        picture->DrawTextInRect(text, {0, 0, 120, 80}, format);
        format.multiline = true;
        format.wordBreak = true;
        picture->DrawTextInRect(text, {0, 0, 120, 80}, format);
    }
    font.GetTextSize(text);
    font.MeasureText(text);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(TextBadInputTest, WhatIsNoUtf8DrawsAndMeasuresNothing) {
    CSharedFont font(MakeFont(20));
    for (const char* text : {"\xff", "ab\xc3", "\xc0\x80", "\xed\xa0\x80", "\xf5\x80\x80\x80",
                             "abc\x80 def", "\xe2\x82"}) {
        EXPECT_EQ(font.MeasureText(text), Core::C2DSize());
        EXPECT_EQ(font.GetTextSize(text), Core::C2DSize());
        CTestPicture picture({60, 40});
        picture->SetFont(&font);
        picture->SetFillColor({9, 9, 9});
        picture->DrawTextInRect(text, {0, 0, 60, 40}, {});
        picture->DrawText(text, {0, 0});
        EXPECT_TRUE(picture.IsBlack()) << "not even the background";
    }
}

TEST(TextBadInputTest, AllScriptsAndControlCharactersDoNoHarm) {
    for (const char* text :
         {"\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd8\xb3\xd9\x84\xd8\xa7\xd9\x85", // right to left
          "e\xcc\x81\xcc\x82\xcc\x83\xcc\x84\xcc\x85\xcc\x86",                 // many accents
          "\xcc\x81", "\xf0\x9f\x8e\xb5\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x94\xac", // emoji
          "\xe2\x80\xae rtl \xe2\x80\xac \xe2\x81\xa6", "\xef\xb7\xbd\xef\xbf\xbe\xef\xbf\xbf",
          "\xf4\x8f\xbf\xbf", "\x01\x02\x1b[31m\x7f\xc2\x85\xe2\x80\xa8\xe2\x80\xa9", "\t\v\f\r\n",
          "\xe4\xb8\xad\xe6\x96\x87", "\xe0\xb8\xa0\xe0\xb8\xb2\xe0\xb8\xa9\xe0\xb8\xb2"}) {
        DrawEverywhere(MakeFont(20), text);
        DrawEverywhere(MakeFont(20, 33.0F), text);
    }
}

TEST(TextBadInputTest, ControlCharactersAreSpaces) {
    CSharedFont font(MakeFont(20));
    EXPECT_EQ(font.MeasureText("a\x01"
                               "b\nc\xe2\x80\xa9"),
              font.MeasureText("a b c "));
}

TEST(TextBadInputTest, AMegabyteInOneLineIsCutAtWhatNoScreenShows) {
    for (const char* letters : {"x", "\xd8\xb3", "e\xcc\x81", "word "}) {
        std::string text;
        while (text.size() < 1'000'000) {
            text += letters;
        }
        DrawEverywhere(MakeFont(12), text.c_str());
        CSharedFont font(MakeFont(12));
        const Core::C2DSize size = font.MeasureText(text.c_str());
        EXPECT_GT(size.width, 8192) << letters;
        EXPECT_LT(size.width, 500'000) << letters;
    }
    struct rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, 400'000) << "kilobytes";
}

TEST(TextBadInputTest, AMegabyteOfLinesIsCutToo) {
    std::string text;
    while (text.size() < 1'000'000) {
        text += "a\n";
    }
    DrawEverywhere(MakeFont(12), text.c_str());
    CSharedFont font(MakeFont(12));
    CTextFormat format;
    format.multiline = true;
    EXPECT_LT(font.MeasureLines(text.c_str(), 100, format).height, 2'000'000);
}

TEST(TextBadInputTest, ATextThatIsNoUtf8FarBehindTheEndDrawsNothing) {
    const std::string text = std::string(1'000'000, 'a') + '\xff';
    EXPECT_EQ(CSharedFont(MakeFont(12)).MeasureText(text.c_str()), Core::C2DSize());
}

TEST(TextBadInputTest, FontsOfAnySizeDoNoHarm) {
    for (const int height : {kMin, -1, 0, 1, 2, 255, 257, 8192, 100'000, kMax}) {
        for (const int width : {kMin, 0, 1, 100'000, kMax}) {
            CFontValues values = MakeFont(height);
            values.width = width;
            DrawEverywhere(values, "Mj\xc3\xa4 \xf0\x9f\x8e\xb5\nWide");
        }
    }
    EXPECT_EQ(CSharedFont(MakeFont(100'000)).MeasureText("A"),
              CSharedFont(MakeFont(kMaxBitmapSide)).MeasureText("A"));
}

TEST(TextBadInputTest, AHugeLetterIsDrawnWhereItIsVisible) {
    CTestPicture picture({100, 100});
    CSharedFont font(MakeFont(8192));
    picture->SetFont(&font);
    picture->SetTextMode(1);
    picture->DrawTextInRect("\xe2\x96\x88", {0, 0, 100, 100}, {}); // a full block
    EXPECT_EQ(GetInk(picture, {100, 100}), Core::C2DRectangle(0, 0, 100, 100));
}

TEST(TextBadInputTest, WeightsAndQualitiesOfAnyValueDoNoHarm) {
    for (const int value : {kMin, -1, 0, 1, 4, 99999, kMax}) {
        CFontValues values = MakeFont(20);
        values.weight = value;
        values.quality = value;
        DrawEverywhere(values, "Weight");
    }
}

TEST(TextBadInputTest, AnglesOfAnyValueDoNoHarm) {
    using Limits = std::numeric_limits<float>;
    for (const float angle : {-Limits::infinity(), Limits::lowest(), -721.0F, -1e-30F, 1e9F,
                              44.9999F, 45.0F, 45.0001F, Limits::max(), Limits::infinity()}) {
        DrawEverywhere(MakeFont(20, angle), "Angle");
    }
}

TEST(TextBadInputTest, RectanglesAtTheEndsOfAnIntDoNoHarm) {
    constexpr int kValues[] = {kMin, kMin + 1, -1, 0, 1, 50, kMax - 1, kMax};
    for (const float angle : {0.0F, 44.0F, 45.0F, 90.0F, 211.0F}) {
        CTestPicture picture({50, 50});
        CSharedFont font(MakeFont(20, angle));
        picture->SetFont(&font);
        CTextFormat format;
        for (int i = 0; i < 8 * 8 * 8 * 8; ++i) {
            format.hAlign = i % 3;
            format.vAlign = i / 3 % 3;
            format.wordBreak = i % 2 == 0;
            picture->DrawTextInRect(
                "two words",
                {kValues[i % 8], kValues[i / 8 % 8], kValues[i / 64 % 8], kValues[i / 512]},
                format);
            picture->DrawText("two words", {kValues[i % 8], kValues[i / 8 % 8]});
        }
    }
}

TEST(TextBadInputTest, KeptTextsAreBounded) {
    CFont font(MakeFont(12));
    for (int i = 0; i < 2000; ++i) {
        font.MeasureText(std::to_string(i).c_str());
    }
    EXPECT_EQ(font.GetPlatformFont()->GetKeptTextCount(), CTextLinesCache::kMaxTexts);
    const std::string longText(60'000, 'x');
    for (char letter = 'a'; letter < 'k'; ++letter) {
        font.MeasureText((longText + letter).c_str());
    }
    EXPECT_LT(font.GetPlatformFont()->GetKeptTextCount(), 6u);
    font.MeasureText(std::string(70'000, 'x').c_str());
    EXPECT_LT(font.GetPlatformFont()->GetKeptTextCount(), 6u);
}

TEST(TextBadInputTest, AKeptTextIsNotLaidOutAgain) {
    CFont font(MakeFont(12));
    font.MeasureText("level");
    font.MeasureText("level");
    font.GetTextSize("level");
    EXPECT_EQ(font.GetPlatformFont()->GetKeptTextCount(), 1u);
    font.MeasureText("\xff");
    EXPECT_EQ(font.MeasureText("\xff"), Core::C2DSize()) << "also when it is kept";
}

TEST(TextBadInputTest, ManyFontsAndTextsLeaveNothingBehind) {
    const int before = CFontManager::Get().GetFontCount();
    CTestPicture picture({40, 20});
    for (int i = 0; i < 10'000; ++i) {
        CSharedFont font(MakeFont(8 + i % 20));
        picture->SetFont(&font);
        picture->DrawText("x", {i % 30, 0});
    }
    picture->SetFont(nullptr);
    EXPECT_EQ(CFontManager::Get().GetFontCount(), before);
}

} // namespace
} // namespace Vorin::Graphics::Testing
