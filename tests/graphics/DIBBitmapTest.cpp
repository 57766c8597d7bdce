#include "graphics/DIBBitmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace Vorin::Graphics {
namespace {

bool IsAllZero(const CDIBBitmap& bitmap) {
    const std::uint8_t* pixels = bitmap.GetPixels();
    return std::all_of(pixels, pixels + bitmap.GetStrideBytes() * bitmap.GetSize().height,
                       [](std::uint8_t byte) { return byte == 0; });
}

TEST(DIBBitmapTest, StrideFollowsTheDepth) {
    EXPECT_EQ(CDIBBitmap({5, 2}, 32).GetStrideBytes(), 20);
    EXPECT_EQ(CDIBBitmap({5, 2}, 24).GetStrideBytes(), 20) << "kept in words of 32 bits";
    EXPECT_EQ(CDIBBitmap({5, 2}, 16).GetStrideBytes(), 12);
    EXPECT_EQ(CDIBBitmap({5, 2}, 8).GetStrideBytes(), 8);
}

TEST(DIBBitmapTest, ANewBitmapIsCleared) {
    for (int bits : {8, 16, 24, 32}) {
        const CDIBBitmap bitmap({33, 17}, bits);
        ASSERT_NE(bitmap.GetPixels(), nullptr);
        EXPECT_TRUE(IsAllZero(bitmap)) << bits;
        EXPECT_EQ(bitmap.GetSize(), (Core::C2DSize{33, 17}));
        EXPECT_EQ(bitmap.GetBitsPerPixel(), bits);
    }
}

TEST(DIBBitmapTest, ClearSetsEveryByteToZero) {
    for (int bits : {8, 16, 24, 32}) {
        CDIBBitmap bitmap({7, 3}, bits);
        std::fill_n(bitmap.GetContext()->BeginPixels({{}, bitmap.GetSize()}),
                    bitmap.GetStrideBytes() * 3, std::uint8_t{0x5A});
        bitmap.Clear();
        EXPECT_TRUE(IsAllZero(bitmap)) << bits;
    }
}

TEST(DIBBitmapTest, AnEmptySizeHasNoPixels) {
    for (const Core::C2DSize& size : {Core::C2DSize{0, 5}, {5, 0}, {0, 0}, {-1, 5}, {5, -1}}) {
        CDIBBitmap bitmap(size, 32);
        EXPECT_EQ(bitmap.GetPixels(), nullptr);
        EXPECT_EQ(bitmap.GetSize(), (Core::C2DSize{0, 0}));
        EXPECT_EQ(bitmap.GetStrideBytes(), 0);
        bitmap.Clear();
    }
}

TEST(DIBBitmapTest, AbsurdSizesHaveNoPixels) {
    constexpr int kMax = std::numeric_limits<int>::max();
    EXPECT_NE(CDIBBitmap({8192, 1}, 8).GetPixels(), nullptr);
    EXPECT_NE(CDIBBitmap({1, 8192}, 8).GetPixels(), nullptr);
    EXPECT_NE(CDIBBitmap({4000, 4000}, 8).GetPixels(), nullptr);
    EXPECT_EQ(CDIBBitmap({8193, 1}, 8).GetPixels(), nullptr);
    EXPECT_EQ(CDIBBitmap({1, 8193}, 8).GetPixels(), nullptr);
    EXPECT_EQ(CDIBBitmap({4001, 4000}, 8).GetPixels(), nullptr);
    EXPECT_EQ(CDIBBitmap({kMax, kMax}, 32).GetPixels(), nullptr);
}

TEST(DIBBitmapTest, OtherDepthsHaveNoAccessAndASurfaceThatDrawsNothing) {
    for (int bits : {-8, 0, 1, 4, 15, 31, 64}) {
        CDIBBitmap bitmap({4, 4}, bits);
        EXPECT_EQ(bitmap.GetPixels(), nullptr) << bits;
        EXPECT_EQ(bitmap.CreatePixelAccess(), nullptr) << bits;
        EXPECT_EQ(bitmap.GetBitsPerPixel(), bits);
        const auto surface = bitmap.CreateSurface();
        ASSERT_NE(surface, nullptr) << bits;
        surface->FillRectangle({0, 0, 4, 4});
        surface->DrawLine({0, 0}, {3, 3});
        EXPECT_EQ(surface->GetContext(), nullptr) << bits;
        EXPECT_TRUE(surface->GetClipBox().IsEmpty()) << bits;
    }
}

TEST(DIBBitmapTest, ABitmapOf24BitsHasAContextOf32) {
    const CDIBBitmap bitmap({4, 4}, 24);
    EXPECT_EQ(bitmap.GetBitsPerPixel(), 24);
    EXPECT_EQ(bitmap.GetContext()->GetBitsPerPixel(), 32);
    EXPECT_EQ(bitmap.GetContext()->GetFormat(), EPixelFormat::kBGR32);
}

TEST(DIBBitmapTest, ABitmapWithoutPixelsTakesDrawingWithoutEffect) {
    CDIBBitmap bitmap({0, 0}, 32);
    const auto access = bitmap.CreatePixelAccess();
    ASSERT_NE(access, nullptr);
    access->SetPixel({0, 0}, {1, 2, 3});
    EXPECT_EQ(access->GetPixel({0, 0}), RGB{});

    const auto surface = bitmap.CreateSurface();
    ASSERT_NE(surface, nullptr);
    const Core::C2DPoint points[] = {{0, 0}, {5, 5}};
    const C2DFloatPoint smooth[] = {{0, 0}, {5, 5}};
    surface->DrawLine(points[0], points[1]);
    surface->DrawPolyline(points, 2);
    surface->DrawPoints(points, 2);
    surface->DrawRectangle({0, 0, 3, 3});
    surface->DrawSmoothLine(smooth[0], smooth[1]);
    surface->DrawSmoothPolyline(smooth, 2);
    surface->DrawSmoothPoints(smooth, 2);
    surface->FillRectangle({0, 0, 3, 3});
    EXPECT_TRUE(surface->GetClipBox().IsEmpty());
}

TEST(DIBBitmapTest, PixelAccessReadsAndWritesEachFormat) {
    const RGB color{200, 100, 50};
    const auto writeAndRead = [&](int bits) {
        CDIBBitmap bitmap({3, 3}, bits);
        const auto access = bitmap.CreatePixelAccess();
        access->SetPixel({2, 1}, color);
        EXPECT_EQ(access->GetPixel({1, 1}), RGB{});
        EXPECT_EQ(access->GetPixel({2, 0}), RGB{});
        return access->GetPixel({2, 1});
    };
    EXPECT_EQ(writeAndRead(32), color);
    EXPECT_EQ(writeAndRead(24), color);
    EXPECT_EQ(writeAndRead(16), (RGB{25, 12, 6}));
    EXPECT_EQ(writeAndRead(8), (RGB{112, 112, 112})); // (200 + 200 + 50) / 4 = 112.5
}

TEST(DIBBitmapTest, PixelAccessAddsItsOrigin) {
    CDIBBitmap bitmap({4, 4}, 32);
    const auto access = bitmap.CreatePixelAccess();
    access->SetOrigin({2, 1});
    EXPECT_EQ(access->GetOrigin(), (Core::C2DVector{2, 1}));
    access->SetPixel({1, 2}, {9, 8, 7});
    access->SetOrigin({0, 0});
    EXPECT_EQ(access->GetPixel({3, 3}), (RGB{9, 8, 7}));
}

TEST(DIBBitmapTest, PixelAccessLeavesOutWhatLiesOutside) {
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kMin = std::numeric_limits<int>::min();
    CDIBBitmap bitmap({4, 4}, 24);
    const auto access = bitmap.CreatePixelAccess();
    for (const Core::C2DVector& origin : {Core::C2DVector{}, {kMax, kMax}, {kMin, kMin}}) {
        access->SetOrigin(origin);
        for (const Core::C2DPoint& point :
             {Core::C2DPoint{-1, 0}, {0, -1}, {4, 0}, {0, 4}, {kMax, kMax}, {kMin, kMin}}) {
            access->SetPixel(point, {1, 2, 3});
            EXPECT_EQ(access->GetPixel(point), RGB{});
        }
    }
    EXPECT_TRUE(IsAllZero(bitmap));
}

TEST(DIBBitmapTest, ASurfaceDrawsOnTheBitmap) {
    for (int bits : {8, 16, 24, 32}) {
        CDIBBitmap bitmap({4, 4}, bits);
        bitmap.CreateSurface()->DrawPoint({2, 2});
        EXPECT_EQ(bitmap.CreatePixelAccess()->GetPixel({2, 2}), RGB{}) << "the pen starts black";
        const auto surface = bitmap.CreateSurface();
        surface->SetPenColor({255, 255, 255});
        surface->DrawPoint({2, 2});
        EXPECT_NE(bitmap.CreatePixelAccess()->GetPixel({2, 2}), RGB{}) << bits;
    }
}

} // namespace
} // namespace Vorin::Graphics
