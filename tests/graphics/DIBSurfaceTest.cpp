// Origin, clip, kept states, fills and the end of a surface's drawing life.

#include "graphics/DIBSurface.h"

#include <gtest/gtest.h>

#include <limits>

#include "TestPicture.h"

namespace Vorin::Graphics::Testing {
namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

TEST(DIBSurfaceTest, TheClipIsTheWholeBitmapAtFirst) {
    CTestPicture picture({8, 6});
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(0, 0, 8, 6));
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{0, 0}));
}

TEST(DIBSurfaceTest, OriginsAddUp) {
    CTestPicture picture({8, 6});
    picture->SetOrigin({3, 1});
    picture->SetOrigin({2, 2});
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{5, 3}));
    picture->DrawPoint({1, 1});
    EXPECT_EQ(picture.GetGrey(6, 4), 255);
    picture->SetOrigin({-2, -2});
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{3, 1}));
}

TEST(DIBSurfaceTest, EveryOperationFollowsTheOrigin) {
    const auto draw = [](CTestPicture& picture, int x, int y) {
        const auto fx = static_cast<float>(x);
        const auto fy = static_cast<float>(y);
        const Core::C2DPoint points[] = {{x, y}, {x + 3, y + 1}, {x + 1, y + 4}};
        const C2DFloatPoint smooth[] = {{fx + 1.5f, fy}, {fx + 3.0f, fy + 1.25f}, {fx, fy + 4.5f}};
        picture->SetPenColor({255, 80, 10});
        picture->DrawLine({x, y + 5}, {x + 5, y + 4});
        picture->DrawPolyline(points, 3);
        picture->DrawPoint({x + 6, y});
        picture->DrawPoints(points, 3);
        picture->DrawRectangle({x + 2, y + 2, 4, 3});
        picture->DrawSmoothLine({fx, fy + 0.25f}, {fx + 6.0f, fy + 3.0f});
        picture->DrawSmoothPolyline(smooth, 3);
        picture->DrawSmoothPoint({fx + 5.5f, fy + 5.25f});
        picture->DrawSmoothPoints(smooth, 3);
        picture->FillRectangle({x + 6, y + 6, 2, 1});
    };
    CTestPicture expected({20, 20});
    CTestPicture moved({20, 20});
    draw(expected, 7, 9);
    moved->SetOrigin({7, 9});
    draw(moved, 0, 0);
    for (int x = 0; x < 20; ++x)
        for (int y = 0; y < 20; ++y)
            ASSERT_EQ(expected.GetWord(x, y), moved.GetWord(x, y)) << x << ", " << y;
    EXPECT_FALSE(moved.IsBlack());
}

TEST(DIBSurfaceTest, AClipIsGivenAndReadRelativeToTheOrigin) {
    CTestPicture picture({10, 10});
    picture->SetOrigin({4, 3});
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(-4, -3, 10, 10));
    picture->IntersectClip({1, 1, 3, 2});
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(1, 1, 3, 2));
    picture->SetOrigin({-4, -3});
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(5, 4, 3, 2));
    picture->SetFillColor({255, 255, 255});
    picture->FillRectangle({0, 0, 10, 10});
    EXPECT_EQ(picture.GetText(), "..........\n..........\n..........\n..........\n"
                                 ".....###..\n.....###..\n..........\n..........\n"
                                 "..........\n..........\n");
}

TEST(DIBSurfaceTest, ClipsIntersect) {
    CTestPicture picture({10, 10});
    picture->IntersectClip({-5, 2, 10, 100});
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(0, 2, 5, 8));
    picture->IntersectClip({3, 0, 10, 4});
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(3, 2, 2, 2));
}

TEST(DIBSurfaceTest, AnEmptyClipLetsNothingThrough) {
    for (const Core::C2DRectangle& clip : {Core::C2DRectangle{2, 2, 0, 4},
                                           {2, 2, 4, -1},
                                           {10, 0, 5, 5},
                                           {kMax, kMax, kMax, kMax},
                                           {kMin, kMin, kMax, kMax}}) {
        CTestPicture picture({10, 10});
        picture->SetFillColor({255, 255, 255});
        picture->IntersectClip(clip);
        EXPECT_TRUE(picture->GetClipBox().IsEmpty());
        picture->FillRectangle({0, 0, 10, 10});
        picture->DrawLine({0, 2}, {9, 2});
        picture->DrawLine({2, 0}, {2, 9});
        picture->DrawSmoothLine({0, 2}, {9, 2});
        picture->DrawSmoothLine({2, 0}, {2, 9});
        picture->DrawPoint({2, 2});
        picture->DrawSmoothPoint({1.5f, 1.5f});
        EXPECT_TRUE(picture.IsBlack());
    }
}

TEST(DIBSurfaceTest, AFarOriginComesBack) {
    CTestPicture picture({10, 10});
    for (int i = 0; i < 3; ++i)
        picture->SetOrigin({kMax, kMin});
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{kMax, kMin}));
    picture->DrawPoint({0, 0});
    picture->DrawLine({kMin, kMin}, {kMax, kMax});
    EXPECT_TRUE(picture.IsBlack());
    for (int i = 0; i < 3; ++i)
        picture->SetOrigin({-kMax, kMax});
    picture->SetOrigin({0, 3});
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{0, 0}));
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(0, 0, 10, 10));
}

TEST(DIBSurfaceTest, AFilledRectangleEndsBeforeItsRightAndBottomEdges) {
    for (int bits : {8, 16, 24, 32}) {
        CTestPicture picture({6, 4}, bits);
        picture->SetFillColor({255, 255, 255});
        picture->FillRectangle({1, 1, 3, 2});
        EXPECT_EQ(picture.GetText(), "......\n.###..\n.###..\n......\n") << bits;
        picture->FillRectangle({5, -3, 7, 4});
        EXPECT_EQ(picture.GetText(), ".....#\n.###..\n.###..\n......\n") << bits;
    }
}

TEST(DIBSurfaceTest, AFillHasItsOwnColourAndFullAlpha) {
    CTestPicture picture({3, 2});
    picture->FillRectangle({0, 0, 1, 1});
    EXPECT_EQ(picture.GetWord(0, 0), 0xFF000000u) << "black at first";
    picture->SetFillColor({1, 2, 3});
    picture->FillRectangle({1, 0, 1, 1});
    picture->DrawPoint({2, 0});
    EXPECT_EQ(picture.GetWord(1, 0), 0xFF010203u);
    EXPECT_EQ(picture.GetWord(2, 0), 0xFFFFFFFFu);
}

TEST(DIBSurfaceTest, AFillOfTheWholeRangeFillsTheClip) {
    CTestPicture picture({5, 3});
    picture->SetFillColor({255, 255, 255});
    picture->IntersectClip({1, 1, 3, 1});
    picture->FillRectangle({kMin / 2, kMin / 2, kMax, kMax});
    EXPECT_EQ(picture.GetText(), ".....\n.###.\n.....\n");
}

TEST(DIBSurfaceTest, APenStyleHasNoEffect) {
    CTestPicture picture({9, 1});
    for (int style : {0, 1, 2, 3, 4, 77, -1}) {
        picture.GetBitmap().Clear();
        picture->SetPenStyle(style);
        picture->DrawLine({0, 0}, {8, 0});
        EXPECT_EQ(picture.GetText(), "#########\n") << style;
    }
}

TEST(DIBSurfaceTest, StatesNestAndRestoreEverything) {
    CTestPicture picture({8, 2});
    picture->SetPenColor({1, 0, 0});
    picture->SetFillColor({0, 1, 0});
    picture->SaveState();
    picture->SetPenColor({2, 0, 0});
    picture->SetOrigin({1, 0});
    picture->SaveState();
    picture->SetPenColor({3, 0, 0});
    picture->SetFillColor({0, 3, 0});
    picture->SetOrigin({1, 1});
    picture->IntersectClip({0, 0, 2, 1});
    picture->RestoreState();

    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{1, 0}));
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(-1, 0, 8, 2));
    picture->DrawPoint({0, 0});
    EXPECT_EQ(picture.GetColor(1, 0), (RGB{2, 0, 0}));

    picture->RestoreState();
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{0, 0}));
    picture->DrawPoint({2, 0});
    picture->FillRectangle({3, 0, 1, 1});
    EXPECT_EQ(picture.GetColor(2, 0), (RGB{1, 0, 0}));
    EXPECT_EQ(picture.GetColor(3, 0), (RGB{0, 1, 0}));
}

TEST(DIBSurfaceTest, AnUnmatchedRestoreChangesNothing) {
    CTestPicture picture({8, 2});
    picture->SetPenColor({1, 2, 3});
    picture->SetOrigin({1, 1});
    picture->IntersectClip({0, 0, 3, 1});
    picture->RestoreState();
    picture->RestoreState();
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{1, 1}));
    EXPECT_EQ(picture->GetClipBox(), Core::C2DRectangle(0, 0, 3, 1));
    picture->DrawPoint({0, 0});
    EXPECT_EQ(picture.GetColor(1, 1), (RGB{1, 2, 3}));
}

TEST(DIBSurfaceTest, AReleasedSurfaceDrawsNothing) {
    CTestPicture picture({8, 8});
    const Core::C2DPoint points[] = {{1, 1}, {5, 5}};
    const C2DFloatPoint smooth[] = {{1.5f, 1.5f}, {5.0f, 4.5f}};
    picture->SetFillColor({255, 255, 255});
    picture->SaveState();
    picture->ReleaseContext();
    // Not even by returning to a state from before.
    for (int i = 0; i < 2; ++i) {
        picture->SetPenColor({255, 255, 255});
        picture->SetFillColor({255, 255, 255});
        picture->DrawLine(points[0], points[1]);
        picture->DrawPolyline(points, 2);
        picture->DrawPoint(points[0]);
        picture->DrawPoints(points, 2);
        picture->DrawRectangle({1, 1, 4, 4});
        picture->DrawSmoothLine(smooth[0], smooth[1]);
        picture->DrawSmoothPolyline(smooth, 2);
        picture->DrawSmoothPoint(smooth[0]);
        picture->DrawSmoothPoints(smooth, 2);
        picture->FillRectangle({1, 1, 4, 4});
        picture->IntersectClip({1, 1, 4, 4});
        picture->RestoreState();
    }
    EXPECT_TRUE(picture.IsBlack());
    EXPECT_TRUE(picture->GetClipBox().IsEmpty());
    picture->ReleaseContext();
}

TEST(DIBSurfaceTest, AReleasedSurfaceOutlivesItsBitmap) {
    std::unique_ptr<IDrawSurface> surface;
    {
        CDIBBitmap bitmap({8, 8}, 32);
        surface = bitmap.CreateSurface();
        surface->ReleaseContext();
    }
    surface->DrawLine({0, 0}, {7, 7});
    surface->FillRectangle({0, 0, 8, 8});
    EXPECT_TRUE(surface->GetClipBox().IsEmpty());
}

} // namespace
} // namespace Vorin::Graphics::Testing
