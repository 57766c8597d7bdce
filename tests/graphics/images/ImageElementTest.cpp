// Elements and catalogs: how an image is drawn, and where it is hit.

#include "graphics/images/ImageElement.h"

#include <gtest/gtest.h>

#include <limits>

#include "graphics/TestImage.h"
#include "graphics/TestPicture.h"
#include "graphics/images/ImageCatalog.h"

namespace Vorin::Graphics::Testing {
namespace {

using Core::C2DRectangle;

TEST(ImageElementTest, ANormalElementIsOpaqueAndDrawsItsPart) {
    CNormalImageElement element(MakeMapImage({10, 10}));
    EXPECT_FALSE(element.IsTransparent());
    EXPECT_EQ(element.GetSize(), (Core::C2DSize{10, 10}));
    CTestPicture picture({8, 4});
    element.Draw(*picture, {7, 2}, {1, 1}, {100, 2});
    EXPECT_EQ(picture.GetText(), "........\n.###....\n.###....\n........\n");
    EXPECT_EQ(picture.GetColor(3, 2), (RGB{9, 3, 0}));
}

TEST(ImageElementTest, AnAlphaElementLetsTheGroundThrough) {
    CAlphaImageElement element(MakePlainImage({4, 4}, 0xFFFFFFFF), 51);
    EXPECT_TRUE(element.IsTransparent());
    CTestPicture picture({6, 6});
    picture->SetFillColor({100, 100, 100});
    picture->FillRectangle({0, 0, 6, 6});
    element.Draw(*picture, {0, 0}, {0, 0}, {4, 4});
    EXPECT_NEAR(picture.GetGrey(1, 1), 131, 1); // 100 * 204 / 255 + 51
    EXPECT_EQ(picture.GetGrey(4, 4), 100);
    EXPECT_EQ(CAlphaImageElement(nullptr, 999).GetAlpha(), 255);
    EXPECT_EQ(CAlphaImageElement(nullptr, -1).GetAlpha(), 0);
}

TEST(ImageElementTest, AStretchedAlphaElementIsLessOpaqueToo) {
    CAlphaImageElement half(MakePlainImage({2, 2}, 0xFFFFFFFF), 128);
    CAlphaImageElement whole(MakePlainImage({2, 2}, 0xFFFFFFFF), 255);
    CTestPicture picture({10, 10});
    picture->SetOrigin({1, 1});
    half.Stretch(*picture, {0, 0, 2, 2}, {0, 0, 5, 4});
    EXPECT_NEAR(picture.GetGrey(3, 3), 128, 1);
    EXPECT_EQ(picture.GetGrey(6, 3), 0);
    whole.Stretch(*picture, {0, 0, 2, 2}, {6, 6, 2, 2});
    EXPECT_EQ(picture.GetGrey(8, 8), 255);
    constexpr int kMax = std::numeric_limits<int>::max();
    half.Stretch(*picture, {0, 0, 2, 2}, {-kMax, -kMax, kMax, kMax});
    half.Stretch(*picture, {0, 0, 2, 2}, {0, 0, -5, kMax});
}

TEST(ImageElementTest, WithoutAMaskTheSizeIsHit) {
    const CNormalImageElement element(MakePlainImage({4, 3}, 0xFF000000));
    EXPECT_TRUE(element.HitTest({0, 0}, 0.2));
    EXPECT_TRUE(element.HitTest({3, 2}, 0.2));
    EXPECT_FALSE(element.HitTest({4, 2}, 0.2));
    EXPECT_FALSE(element.HitTest({0, 3}, 0.2));
    EXPECT_FALSE(element.HitTest({-1, 0}, 0.2));
}

TEST(ImageElementTest, AMaskIsHitWhereItIsBright) {
    CNormalImageElement element(MakePlainImage({4, 4}, 0xFF000000));
    // Grey rising by one from column to column; 51 of 255 is a fifth.
    element.SetMask(MakeImage({60, 2}, [](int x, int) { return 0xFF000000u | x * 0x010101u; }));
    EXPECT_FALSE(element.HitTest({50, 1}, 0.2));
    EXPECT_TRUE(element.HitTest({52, 1}, 0.2)) << "the mask, not the image, has the size";
    EXPECT_FALSE(element.HitTest({52, 2}, 0.2));
    EXPECT_FALSE(element.HitTest({-1, 0}, 0.2));
    element.SetMask(nullptr);
    EXPECT_TRUE(element.HitTest({1, 1}, 0.2));
    element.SetMask(std::make_unique<CImage>(nullptr));
    EXPECT_FALSE(element.HitTest({1, 1}, 0.2)) << "a mask without pixels";
}

// The luma of 51 is 51 * 0.003921569: just above a fifth by that factor, and the fifth itself when
// that is the threshold.
TEST(ImageElementTest, ALumaOfExactlyTheThresholdDoesNotHit) {
    CNormalImageElement element(MakePlainImage({1, 1}, 0xFF000000));
    element.SetMask(MakePlainImage({1, 1}, 0xFF333333));
    EXPECT_FALSE(element.HitTest({0, 0}, 51 * 0.003921569));
    EXPECT_TRUE(element.HitTest({0, 0}, 50 * 0.003921569));
    EXPECT_EQ(GetLuma({51, 51, 51}), 51 * 0.003921569);
    EXPECT_EQ(GetLuma({10, 20, 31}), 20 * 0.003921569) << "(10 + 40 + 31) >> 2";
}

TEST(ImageCatalogTest, AnEmptySlotIsTransparentAndHasNoSize) {
    CDynamicImageCatalog catalog(3);
    catalog.SetElement(2, std::make_unique<CNormalImageElement>(nullptr));
    CTestPicture picture({4, 4});
    for (const int index : {-1, 0, 1, 2, 3, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(catalog.GetImage(index), nullptr);
        EXPECT_EQ(catalog.GetElementSize(index), Core::C2DSize{});
        EXPECT_TRUE(catalog.IsTransparent(index)) << index;
        EXPECT_FALSE(catalog.HitTest(index, {0, 0}, {0, 0}, 0.2));
        catalog.Draw(index, *picture, {0, 0, 4, 4}, {0, 0});
    }
    EXPECT_TRUE(picture.IsBlack());
    EXPECT_EQ(CImageCatalog(-3).GetCount(), 0);
}

TEST(ImageCatalogTest, ElementsAreFoundByTheirIndex) {
    CDynamicImageCatalog catalog;
    catalog.SetElement(0, std::make_unique<CNormalImageElement>(MakeMapImage({3, 3})));
    EXPECT_EQ(catalog.GetCount(), 0);
    catalog.SetCount(3);
    catalog.SetElement(0, std::make_unique<CNormalImageElement>(MakeMapImage({5, 2})));
    catalog.SetElement(1, std::make_unique<CAlphaImageElement>(MakeMapImage({5, 2}), 255));
    catalog.SetElement(2, std::make_unique<CNormalImageElement>(MakeMapImage({2, 9})));
    EXPECT_TRUE(catalog.HaveSameSize(0, 1));
    EXPECT_FALSE(catalog.HaveSameSize(0, 2));
    EXPECT_TRUE(catalog.HaveSameSize(7, -7)) << "neither has one";
    EXPECT_FALSE(catalog.IsTransparent(0));
    EXPECT_TRUE(catalog.IsTransparent(1));
    EXPECT_EQ(catalog.GetLargestSize(), (Core::C2DSize{5, 9}));
    EXPECT_TRUE(catalog.HitTest(0, {14, 11}, {10, 10}, 0.2));
    EXPECT_FALSE(catalog.HitTest(0, {9, 11}, {10, 10}, 0.2));
    CTestPicture picture({6, 4});
    catalog.Draw(2, *picture, {3, 1, 2, 2}, {0, 5});
    EXPECT_EQ(picture.GetText(), "......\n...##.\n...##.\n......\n");
    EXPECT_EQ(picture.GetColor(4, 2), (RGB{1, 6, 0}));
    catalog.SetElement(0, nullptr);
    EXPECT_EQ(catalog.GetElement(0), nullptr);
    catalog.SetCount(-1);
    EXPECT_EQ(catalog.GetCount(), 0);
}

TEST(ImageCatalogTest, FarPointsAreNotHit) {
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    CDynamicImageCatalog catalog(1);
    catalog.SetElement(0, std::make_unique<CNormalImageElement>(MakeMapImage({5, 2})));
    for (const int x : {kMin, kMax})
        for (const int y : {kMin, kMax})
            EXPECT_FALSE(catalog.HitTest(0, {x, y}, {x == kMin ? kMax : kMin, 0}, 0.2));
}

} // namespace
} // namespace Vorin::Graphics::Testing
