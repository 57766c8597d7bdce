// What a surface has Cairo draw: lines, fills, pictures, layers; and how it hands text on.

#include "graphics/DrawSurface.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "TestImage.h"
#include "TestPicture.h"
#include "graphics/DIBSurface.h"
#include "graphics/DrawLayer.h"

namespace Vorin::Graphics::Testing {
namespace {

using Core::C2DRectangle;

constexpr int kSmallest = std::numeric_limits<int>::min();
constexpr int kLargest = std::numeric_limits<int>::max();

// A black bitmap with a surface of Cairo's alone.
class CCairoPicture {
public:
    explicit CCairoPicture(const Core::C2DSize& size)
        : bitmap(size, 32), surface(bitmap.GetContext()) {
        surface.SetPenColor({255, 255, 255});
    }
    CDrawSurface* operator->() { return &surface; }
    RGB GetColor(int x, int y) { return bitmap.CreatePixelAccess()->GetPixel({x, y}); }
    int GetSum() {
        int sum = 0;
        for (int y = 0; y < bitmap.GetSize().height; ++y)
            for (int x = 0; x < bitmap.GetSize().width; ++x)
                sum += GetColor(x, y).green;
        return sum;
    }

private:
    CDIBBitmap bitmap;
    CDrawSurface surface;
};

TEST(DrawSurfaceTest, APlatformLineRunsFromMiddleToMiddle) {
    CCairoPicture picture({8, 3});
    picture->DrawLine({1, 1}, {5, 1});
    EXPECT_EQ(picture.GetColor(0, 1), RGB{});
    EXPECT_NEAR(picture.GetColor(1, 1).green, 128, 1);
    for (int x = 2; x <= 4; ++x)
        EXPECT_EQ(picture.GetColor(x, 1), (RGB{255, 255, 255})) << x;
    EXPECT_NEAR(picture.GetColor(5, 1).green, 128, 1);
    EXPECT_EQ(picture.GetColor(6, 1), RGB{});
    EXPECT_EQ(picture.GetColor(3, 0), RGB{});
    EXPECT_EQ(picture.GetColor(3, 2), RGB{});
}

TEST(DrawSurfaceTest, APlatformPointIsHalfAPixelAndOneOfSeveralAWhole) {
    CCairoPicture picture({5, 3});
    picture->DrawPoint({1, 1});
    EXPECT_NEAR(picture.GetColor(1, 1).green, 128, 1);
    const Core::C2DPoint points[] = {{3, 1}, {4, 2}};
    picture->DrawPoints(points, 2);
    EXPECT_EQ(picture.GetColor(3, 1), (RGB{255, 255, 255}));
    EXPECT_EQ(picture.GetColor(4, 2), (RGB{255, 255, 255}));
    EXPECT_EQ(picture.GetColor(4, 1), RGB{});
}

TEST(DrawSurfaceTest, APlatformPolylineIsItsLines) {
    const Core::C2DPoint points[] = {{1, 1}, {6, 2}, {3, 6}};
    const C2DFloatPoint smooth[] = {{1.0f, 1.0f}, {6.0f, 2.0f}, {3.0f, 6.0f}};
    CCairoPicture whole({8, 8});
    CCairoPicture lines({8, 8});
    CCairoPicture floats({8, 8});
    whole->DrawPolyline(points, 3);
    lines->DrawLine(points[0], points[1]);
    lines->DrawLine(points[1], points[2]);
    floats->DrawSmoothPolyline(smooth, 3);
    for (int x = 0; x < 8; ++x)
        for (int y = 0; y < 8; ++y) {
            EXPECT_EQ(whole.GetColor(x, y), lines.GetColor(x, y));
            EXPECT_EQ(whole.GetColor(x, y), floats.GetColor(x, y));
        }
    EXPECT_GT(whole.GetSum(), 255 * 8);
    whole->DrawPolyline(nullptr, 0);
    whole->DrawSmoothPolyline(nullptr, -1);
    whole->DrawPoints(nullptr, 0);
    whole->DrawSmoothPoints(nullptr, 0);
}

TEST(DrawSurfaceTest, ARectangleOfNoSizeDrawsNothingAndOneOfOnePixelAPoint) {
    CTestPicture own({4, 4});
    own->DrawRectangle({1, 1, 0, 3});
    own->DrawRectangle({1, 1, 3, 0});
    own->DrawRectangle({1, 1, -3, -3});
    EXPECT_TRUE(own.IsBlack());
    own->DrawRectangle({2, 1, 1, 1});
    EXPECT_EQ(own.GetText(), "....\n..#.\n....\n....\n");

    CCairoPicture platform({4, 4});
    platform->DrawRectangle({1, 1, 0, 3});
    EXPECT_EQ(platform.GetSum(), 0);
    platform->DrawRectangle({2, 1, 1, 1});
    EXPECT_EQ(platform.GetColor(2, 1), (RGB{255, 255, 255}));
    EXPECT_EQ(platform.GetSum(), 255);
}

TEST(DrawSurfaceTest, FarAndBadPlatformCoordinatesAreClipped) {
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    CCairoPicture picture({6, 6});
    picture->DrawSmoothLine({kNaN, 0.0f}, {5.0f, 5.0f});
    picture->DrawSmoothLine({0.0f, 0.0f}, {kInfinity, 5.0f});
    picture->DrawSmoothLine({-kInfinity, 0.0f}, {kInfinity, 5.0f});
    picture->DrawSmoothPoint({kNaN, kNaN});
    EXPECT_EQ(picture.GetSum(), 0);
    picture->DrawLine({kSmallest, 2}, {kLargest, 2});
    for (int x = 0; x < 6; ++x)
        EXPECT_EQ(picture.GetColor(x, 2), (RGB{255, 255, 255})) << x;
    EXPECT_EQ(picture.GetSum(), 6 * 255);
    picture->DrawSmoothLine({-3e38f, 4.0f}, {3e38f, 4.0f});
    EXPECT_EQ(picture.GetColor(3, 4), (RGB{255, 255, 255}));
    picture->SetOrigin({kSmallest, kLargest});
    picture->DrawRectangle({kSmallest, kSmallest, kLargest, kLargest});
    picture->DrawRectangle({kLargest, kSmallest, kLargest, kLargest});
    picture->FillRectangle({kLargest, kLargest, kLargest, kLargest});
}

TEST(DrawSurfaceTest, APartOfAnImageIsDrawnAtItsPlace) {
    const auto image = MakeMapImage({20, 10});
    for (int bits : {24, 32}) {
        CTestPicture picture({12, 8}, bits);
        picture->SetOrigin({1, 2});
        picture->DrawImage(*image, {5, 3}, {2, 1}, {4, 3});
        for (int x = 0; x < 12; ++x)
            for (int y = 0; y < 8; ++y) {
                const bool inside = C2DRectangle(3, 3, 4, 3).Contains({x, y});
                const RGB expected =
                    inside ? RGB{static_cast<std::uint8_t>(x + 2), static_cast<std::uint8_t>(y), 0}
                           : RGB{};
                EXPECT_EQ(picture.GetColor(x, y), expected) << x << ", " << y;
            }
    }
}

TEST(DrawSurfaceTest, WhatLiesOutsideTheImageIsLeftOut) {
    const auto image = MakePlainImage({4, 4}, 0xFFFFFFFF);
    CTestPicture picture({8, 8});
    picture->DrawImage(*image, {-2, -1}, {0, 0}, {4, 3});
    EXPECT_EQ(picture.GetText(), "........\n..##....\n..##....\n........\n"
                                 "........\n........\n........\n........\n");
    picture->DrawImage(*image, {3, 3}, {6, 6}, {100, 100});
    EXPECT_EQ(picture.GetColor(6, 6), (RGB{255, 255, 255}));
    EXPECT_EQ(picture.GetColor(7, 7), RGB{});
    for (const C2DRectangle& part : {C2DRectangle{4, 0, 4, 4},
                                     {0, 4, 4, 4},
                                     {-4, 0, 4, 4},
                                     {0, 0, 0, 4},
                                     {0, 0, 4, -1},
                                     {kLargest, kLargest, kLargest, kLargest},
                                     {kSmallest, kSmallest, kLargest, kLargest}}) {
        CTestPicture empty({8, 8});
        empty->DrawImage(*image, part.GetPosition(), {0, 0}, part.GetSize());
        empty->StretchImage(*image, part, {0, 0, 8, 8});
        EXPECT_TRUE(empty.IsBlack());
    }
}

TEST(DrawSurfaceTest, HostilePlacesOfPicturesDrawWhatIsThere) {
    const auto image = MakePlainImage({4, 4}, 0xFFFFFFFF);
    CDIBBitmap bitmap({4, 4}, 16);
    CDrawLayer layer({4, 4});
    CTestPicture picture({8, 8});
    const int values[] = {kSmallest, kSmallest + 1, -5, 0, 3, kLargest - 1, kLargest};
    for (const Core::C2DVector& origin :
         {Core::C2DVector{}, {kLargest, kSmallest}, {kSmallest, kLargest}}) {
        picture->SaveState();
        picture->SetOrigin(origin);
        for (int a : values)
            for (int b : values)
                for (int c : values)
                    for (int d : values) {
                        picture->DrawImage(*image, {a, b}, {c, d}, {a, d});
                        picture->DrawImageAlpha(*image, {a, b}, {c, d}, {kLargest, kLargest}, b);
                        picture->StretchImage(*image, {a, b, c, d}, {b, c, d, a});
                        picture->StretchImage(*image, {0, 0, 4, 4}, {a, b, c, d});
                        picture->DrawBitmap(bitmap, {a, b}, {c, d}, {d, c});
                        picture->StretchBitmap(bitmap, {a, b, kLargest, kLargest}, {a, b, c, d});
                    }
        picture->DrawLayer(layer, {kSmallest, kLargest});
        picture->StretchLayer(layer, {kSmallest, kSmallest, kLargest, kLargest});
        picture->RestoreState();
    }
    picture->SetPenColor({1, 2, 3});
    picture->DrawPoint({4, 4});
    EXPECT_EQ(picture.GetColor(4, 4), (RGB{1, 2, 3})) << "the surface still draws";
}

TEST(DrawSurfaceTest, AnAlphaMakesAnImageLessOpaque) {
    const auto image = MakePlainImage({2, 2}, 0xFFFFFFFF);
    const auto draw = [&](int alpha) {
        CTestPicture picture({2, 2});
        picture->SetFillColor({0, 0, 0});
        picture->FillRectangle({0, 0, 2, 2});
        picture->DrawImageAlpha(*image, {0, 0}, {0, 0}, {2, 2}, alpha);
        return picture.GetColor(1, 1).green;
    };
    EXPECT_EQ(draw(0), 0);
    EXPECT_EQ(draw(-7), 0);
    EXPECT_NEAR(draw(64), 64, 1);
    EXPECT_NEAR(draw(200), 200, 1);
    EXPECT_EQ(draw(255), 255);
    EXPECT_EQ(draw(1000), 255);
}

TEST(DrawSurfaceTest, AnAlphaLeavesTheClipAndTheStateAsTheyWere) {
    const auto image = MakePlainImage({8, 8}, 0xFFFFFFFF);
    CTestPicture picture({8, 8});
    picture->DrawImageAlpha(*image, {0, 0}, {2, 2}, {2, 2}, 128);
    EXPECT_EQ(picture->GetClipBox(), C2DRectangle(0, 0, 8, 8));
    EXPECT_NEAR(picture.GetGrey(2, 2), 128, 1);
    EXPECT_EQ(picture.GetGrey(4, 4), 0);
    picture->RestoreState();
    EXPECT_EQ(picture->GetClipBox(), C2DRectangle(0, 0, 8, 8));
}

TEST(DrawSurfaceTest, APremultipliedImageLetsTheGroundThrough) {
    // A quarter opaque green over white: 64 of green stays, and 191 of the white.
    const auto image = MakePlainImage({1, 1}, 0x40004000);
    CTestPicture picture({1, 1});
    picture->SetFillColor({255, 255, 255});
    picture->FillRectangle({0, 0, 1, 1});
    picture->DrawImage(*image, {0, 0}, {0, 0}, {1, 1});
    EXPECT_NEAR(picture.GetColor(0, 0).red, 191, 1);
    EXPECT_EQ(picture.GetColor(0, 0).green, 255);
    EXPECT_EQ(picture.GetWord(0, 0) >> 24, 0xFFu);
}

TEST(DrawSurfaceTest, AStretchedPartMixesInNothingFromBesideIt) {
    const auto image =
        MakeImage({8, 4}, [](int x, int) { return x < 4 ? 0xFFFF0000u : 0xFF0000FFu; });
    for (const C2DRectangle& place : {C2DRectangle{2, 2, 15, 13}, {1, 1, 2, 2}, {0, 0, 4, 4}}) {
        CTestPicture picture({20, 20});
        picture->StretchImage(*image, {0, 0, 4, 4}, place);
        for (int x = 0; x < 20; ++x)
            for (int y = 0; y < 20; ++y)
                EXPECT_EQ(picture.GetColor(x, y), place.Contains({x, y}) ? RGB({255, 0, 0}) : RGB{})
                    << x << ", " << y;
    }
}

TEST(DrawSurfaceTest, AStretchedImageKeepsItsSides) {
    const auto image =
        MakeImage({2, 2}, [](int x, int y) { return 0xFF000000u | x * 0xFF0000u | y * 0xFF00u; });
    CTestPicture picture({40, 40});
    picture->StretchImage(*image, {0, 0, 2, 2}, {0, 0, 40, 40});
    EXPECT_EQ(picture.GetColor(0, 0), (RGB{0, 0, 0}));
    EXPECT_EQ(picture.GetColor(39, 0), (RGB{255, 0, 0}));
    EXPECT_EQ(picture.GetColor(0, 39), (RGB{0, 255, 0}));
    EXPECT_EQ(picture.GetColor(39, 39), (RGB{255, 255, 0}));
    for (int x = 1; x < 40; ++x)
        EXPECT_GE(picture.GetColor(x, 20).red, picture.GetColor(x - 1, 20).red);
}

TEST(DrawSurfaceTest, ABitmapCanBeDrawnOntoItself) {
    for (int bits : {8, 16, 24, 32}) {
        CTestPicture picture({8, 1}, bits);
        picture->SetFillColor({255, 255, 255});
        picture->FillRectangle({0, 0, 2, 1});
        picture->FillRectangle({3, 0, 1, 1});
        picture->SetFillColor({0, 0, 0});
        picture->FillRectangle({2, 0, 1, 1});
        picture->FillRectangle({4, 0, 4, 1});
        picture->DrawBitmap(picture.GetBitmap(), {0, 0}, {1, 0}, {6, 1});
        EXPECT_EQ(picture.GetText(), "###.#...\n") << bits;
        picture->StretchBitmap(picture.GetBitmap(), {0, 0, 1, 1}, {0, 0, 8, 1});
        EXPECT_EQ(picture.GetText(), "########\n") << bits;
    }
}

TEST(DrawSurfaceTest, ALayerIsDrawnAsAWhole) {
    CDrawLayer layer({3, 2});
    const auto sheet = layer.CreateSurface();
    sheet->SetFillColor({255, 255, 255});
    sheet->FillRectangle({1, 0, 1, 2});
    CTestPicture picture({8, 4});
    picture->DrawLayer(layer, {1, 1});
    EXPECT_EQ(picture.GetText(), "........\n..#.....\n..#.....\n........\n");
    picture->DrawLayerAlpha(layer, {4, 0}, 100);
    EXPECT_NEAR(picture.GetGrey(5, 0), 100, 1);
    CTestPicture stretched({6, 4});
    sheet->FillRectangle({0, 0, 3, 2});
    stretched->StretchLayer(layer, {1, 1, 5, 3});
    EXPECT_EQ(stretched.GetText(), "......\n.#####\n.#####\n.#####\n");
}

TEST(DrawSurfaceTest, PicturesWithoutPixelsDrawNothing) {
    const CImage image(nullptr);
    CDIBBitmap bitmap({0, 4}, 32);
    CDrawLayer layer({-1, -1});
    CTestPicture picture({4, 4});
    picture->DrawImage(image, {0, 0}, {0, 0}, {4, 4});
    picture->StretchImage(image, {0, 0, 4, 4}, {0, 0, 4, 4});
    picture->DrawBitmap(bitmap, {0, 0}, {0, 0}, {4, 4});
    picture->StretchBitmap(bitmap, {0, 0, 4, 4}, {0, 0, 4, 4});
    picture->DrawLayer(layer, {0, 0});
    picture->StretchLayer(layer, {0, 0, 4, 4});
    EXPECT_TRUE(picture.IsBlack());
}

TEST(DrawSurfaceTest, TheBitmapOfASurfaceIsWhatItDrawsOn) {
    CTestPicture picture({5, 4}, 16);
    IBitmap* bitmap = picture->GetBitmap();
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(picture->GetBitmap(), bitmap);
    EXPECT_EQ(bitmap->GetSize(), (Core::C2DSize{5, 4}));
    EXPECT_EQ(bitmap->GetBitsPerPixel(), 16);
    picture->DrawPoint({2, 2});
    EXPECT_EQ(bitmap->CreatePixelAccess()->GetPixel({2, 2}), (RGB{31, 31, 31}));
    picture->ReleaseContext();
    EXPECT_EQ(picture->GetBitmap(), nullptr);
    EXPECT_EQ(picture->GetContext(), nullptr);
}

TEST(DrawSurfaceTest, ASurfaceCanBePutOnOtherPixels) {
    CDIBBitmap first({4, 4}, 32);
    CDIBBitmap second({3, 3}, 32);
    const CDIBBitmap narrow({3, 3}, 16);
    TDIBSurface<CDIB32BGRIterator> surface(first.GetContext());
    surface.SetOrigin({2, 2});
    surface.SetPenColor({9, 9, 9});
    surface.SetContext(second.GetContext());
    EXPECT_EQ(surface.GetOrigin(), Core::C2DPoint{});
    EXPECT_EQ(surface.GetClipBox(), C2DRectangle(0, 0, 3, 3));
    surface.DrawPoint({2, 2});
    EXPECT_EQ(second.CreatePixelAccess()->GetPixel({2, 2}), (RGB{9, 9, 9}));
    EXPECT_EQ(first.CreatePixelAccess()->GetPixel({2, 2}), RGB{});
    surface.SetContext(narrow.GetContext());
    EXPECT_EQ(surface.GetContext(), nullptr) << "another format";
    surface.DrawPoint({0, 0});
    surface.SetContext(nullptr);
    EXPECT_TRUE(surface.GetClipBox().IsEmpty());
}

// A font that notes what it is asked for.
class CNotingFont : public ISurfaceFont {
public:
    explicit CNotingFont(std::string& log, int& count) : notes(log), handles(count) { ++handles; }
    ~CNotingFont() override { --handles; }
    std::unique_ptr<ISurfaceFont> Share() override {
        return std::make_unique<CNotingFont>(notes, handles);
    }
    void DrawText(CDrawContext& context, const CTextColors& colors, const char* text,
                  const Core::C2DPoint& point) override {
        notes +=
            std::string(text) + '@' + std::to_string(point.x) + (colors.fillBackground ? "f" : "t");
        notes += std::to_string(colors.text.red) + '/' + std::to_string(colors.background.red);
        notes += context.BeginCairo() ? ";" : "-";
    }
    void DrawTextInRect(CDrawContext&, const CTextColors&, const char* text,
                        const C2DRectangle& rectangle, const CTextFormat&) override {
        notes += std::string(text) + '#' + std::to_string(rectangle.width) + ';';
    }
    Core::C2DSize GetTextSize(const char*) override { return {7, 8}; }
    Core::C2DSize MeasureText(const char*) override { return {5, 6}; }
    int GetCharacterHeight() override { return 9; }

private:
    std::string& notes;
    int& handles;
};

TEST(DrawSurfaceTest, TextGoesToTheFontWithTheColours) {
    std::string notes;
    int handles = 0;
    CTestPicture picture({4, 4});
    picture->DrawText("nobody", {0, 0});
    EXPECT_EQ(picture->GetTextSize("x"), Core::C2DSize{});
    EXPECT_EQ(picture->MeasureText("x"), Core::C2DSize{});
    EXPECT_EQ(picture->GetCharacterHeight(), 0);
    {
        CNotingFont font(notes, handles);
        picture->SetFont(&font);
    }
    EXPECT_EQ(handles, 1) << "the surface holds a handle of its own";
    picture->SetPenColor({3, 0, 0});
    picture->SetFillColor({4, 0, 0});
    picture->DrawText("a", {2, 1});
    picture->SetTextMode(1);
    picture->DrawText("b", {3, 1});
    EXPECT_EQ(notes, "a@2f3/4;b@3t3/4;");
    EXPECT_EQ(picture->GetTextSize("x"), (Core::C2DSize{7, 8}));
    EXPECT_EQ(picture->MeasureText("x"), (Core::C2DSize{5, 6}));
    EXPECT_EQ(picture->GetCharacterHeight(), 9);
    picture->SetFont(nullptr);
    EXPECT_EQ(handles, 0);
    picture->DrawText("c", {0, 0});
    EXPECT_EQ(notes, "a@2f3/4;b@3t3/4;");
}

} // namespace
} // namespace Vorin::Graphics::Testing
