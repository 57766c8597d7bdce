// Backgrounds, states and film strips.

#include "graphics/images/ImageGraphics.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "graphics/TestImage.h"
#include "graphics/TestPicture.h"
#include "graphics/images/MultiFilmStripDrawer.h"
#include "graphics/images/MultiImageDrawer.h"

namespace Vorin::Graphics::Testing {
namespace {

using Core::C2DRectangle;

std::unique_ptr<CImageElement> MakeMapElement(const Core::C2DSize& size) {
    return std::make_unique<CNormalImageElement>(MakeMapImage(size));
}

// Counts how often it is drawn, and what of it.
class CCountingElement : public CNormalImageElement {
public:
    CCountingElement(const Core::C2DSize& size, std::vector<C2DRectangle>& drawn)
        : CNormalImageElement(MakeMapImage(size)), parts(drawn) {}
    void Draw(IDrawSurface& surface, const Core::C2DPoint& source,
              const Core::C2DPoint& destination, const Core::C2DSize& size) override {
        parts.emplace_back(source, size);
        CNormalImageElement::Draw(surface, source, destination, size);
    }

private:
    std::vector<C2DRectangle>& parts;
};

// Notes the areas that an object asks to redraw.
class CInvalidations : public Core::TIArgCommand<const C2DRectangle&> {
public:
    explicit CInvalidations(I2DGraphics& observed) : graphics(observed) {
        graphics.GetInvalidatedEvent().Connect(*this);
    }
    ~CInvalidations() override {
        graphics.GetInvalidatedEvent().Disconnect(
            static_cast<Core::TIArgCommand<const C2DRectangle&>&>(*this));
    }
    CInvalidations(const CInvalidations&) = delete;
    CInvalidations& operator=(const CInvalidations&) = delete;
    void Execute(const C2DRectangle& area) override { areas.push_back(area); }
    std::vector<C2DRectangle> areas;

private:
    I2DGraphics& graphics;
};

TEST(ImageGraphicsTest, APlainImageLiesAtTheTopLeft) {
    CImageGraphics graphics;
    graphics.SetElement(MakeMapElement({6, 3}));
    graphics.SetSize({8, 4});
    CTestPicture picture({8, 4});
    graphics.Draw(*picture, nullptr);
    EXPECT_EQ(picture.GetColor(5, 2), (RGB{5, 2, 0}));
    EXPECT_EQ(picture.GetColor(6, 2), RGB{});
    EXPECT_TRUE(graphics.IsTransparent()) << "it leaves a part of the area free";
    graphics.SetSize({6, 3});
    EXPECT_FALSE(graphics.IsTransparent());
    EXPECT_TRUE(graphics.HitTest({5, 2}));
    EXPECT_FALSE(graphics.HitTest({6, 2}));

    CTestPicture part({8, 4});
    const CSimple2DRegion region(C2DRectangle{2, 1, 2, 1});
    graphics.Draw(*part, &region);
    EXPECT_EQ(part.GetText(), "........\n..##....\n........\n........\n");
    EXPECT_EQ(part.GetColor(3, 1), (RGB{3, 1, 0}));
}

TEST(ImageGraphicsTest, NothingIsDrawnWithoutAnImage) {
    CImageGraphics graphics;
    graphics.SetSize({8, 4});
    CTestPicture picture({8, 4});
    for (const int mode : {0, 1, 2}) {
        graphics.SetDrawMode(mode);
        graphics.Draw(*picture, nullptr);
        EXPECT_FALSE(graphics.HitTest({1, 1}));
        EXPECT_TRUE(graphics.IsTransparent());
    }
    graphics.SetElement(std::make_unique<CNormalImageElement>(nullptr));
    graphics.Draw(*picture, nullptr);
    EXPECT_TRUE(picture.IsBlack());
}

TEST(ImageGraphicsTest, TilesBeginInTheMiddleAndCoverTheAreaExactly) {
    std::vector<C2DRectangle> parts;
    CImageGraphics graphics;
    graphics.SetElement(std::make_unique<CCountingElement>(Core::C2DSize{10, 6}, parts));
    graphics.SetDrawMode(CImageGraphics::kRepeat);
    graphics.SetSize({100, 100});
    CTestPicture picture({100, 100});
    const C2DRectangle area{15, 4, 22, 9}; // one and a half tiles in
    const CSimple2DRegion region(area);
    graphics.Draw(*picture, &region);
    for (int x = 0; x < 100; ++x)
        for (int y = 0; y < 100; ++y) {
            const RGB expected = area.Contains({x, y}) ? RGB{static_cast<std::uint8_t>(x % 10),
                                                             static_cast<std::uint8_t>(y % 6), 0}
                                                       : RGB{};
            ASSERT_EQ(picture.GetColor(x, y), expected) << x << ", " << y;
        }
    // Small tiles are put side by side once.
    const std::size_t draws = parts.size();
    graphics.Draw(*picture, nullptr);
    EXPECT_EQ(parts.size(), draws);
    for (const C2DRectangle& part : parts)
        EXPECT_EQ(part, C2DRectangle(0, 0, 10, 6));
}

TEST(ImageGraphicsTest, LargeTilesAreDrawnOneByOneAndOnlyInTheArea) {
    std::vector<C2DRectangle> parts;
    CImageGraphics graphics;
    graphics.SetElement(std::make_unique<CCountingElement>(Core::C2DSize{300, 400}, parts));
    graphics.SetDrawMode(CImageGraphics::kRepeat);
    graphics.SetSize({2000, 2000});
    CTestPicture picture({1000, 1000});
    const C2DRectangle area{450, 390, 550, 420}; // one and a half tiles in
    const CSimple2DRegion region(area);
    graphics.Draw(*picture, &region);
    // Columns of 150, 300 and 100, rows of 10, 400 and 10: no tile more, none more than its part.
    ASSERT_EQ(parts.size(), 9u);
    EXPECT_EQ(parts[0], C2DRectangle(150, 390, 150, 10));
    EXPECT_EQ(parts[1], C2DRectangle(0, 390, 300, 10));
    EXPECT_EQ(parts[2], C2DRectangle(0, 390, 100, 10));
    EXPECT_EQ(parts[3], C2DRectangle(150, 0, 150, 400));
    EXPECT_EQ(parts[8], C2DRectangle(0, 0, 100, 10));
    for (int x = 0; x < 1000; x += 7)
        for (int y = 0; y < 1000; y += 7) {
            const RGB expected = area.Contains({x, y}) ? RGB{static_cast<std::uint8_t>(x % 300),
                                                             static_cast<std::uint8_t>(y % 400), 0}
                                                       : RGB{};
            ASSERT_EQ(picture.GetColor(x, y), expected) << x << ", " << y;
        }
}

TEST(ImageGraphicsTest, TransparentTilesShowTheGroundOnceThrough) {
    for (const int side : {3, 300}) {
        CImageGraphics graphics;
        graphics.SetElement(
            std::make_unique<CAlphaImageElement>(MakePlainImage({side, side}, 0x80008000), 128));
        graphics.SetDrawMode(CImageGraphics::kRepeat);
        graphics.SetSize({400, 10});
        CTestPicture picture({400, 10});
        picture->SetFillColor({200, 0, 0});
        picture->FillRectangle({0, 0, 400, 10});
        graphics.Draw(*picture, nullptr);
        for (int x = 0; x < 400; ++x) { // a quarter opaque
            ASSERT_NEAR(picture.GetColor(x, 5).green, 64, 2) << x;
            ASSERT_NEAR(picture.GetColor(x, 5).red, 150, 2) << x;
        }
    }
}

TEST(ImageGraphicsTest, RandomTiledAreasShowTheSamePixels) {
    std::mt19937 random(9);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 300; ++round) {
        const Core::C2DSize tile{pick(1, 30), pick(1, 30)};
        CImageGraphics graphics;
        graphics.SetElement(MakeMapElement(tile));
        graphics.SetDrawMode(CImageGraphics::kRepeat);
        graphics.SetSize({64, 64});
        CTestPicture picture({64, 64});
        const C2DRectangle area{pick(0, 60), pick(0, 60), pick(1, 64), pick(1, 64)};
        const CSimple2DRegion region(area);
        graphics.Draw(*picture, &region);
        for (int x = 0; x < 64; ++x)
            for (int y = 0; y < 64; ++y) {
                const RGB expected = area.Contains({x, y})
                                         ? RGB{static_cast<std::uint8_t>(x % tile.width),
                                               static_cast<std::uint8_t>(y % tile.height), 0}
                                         : RGB{};
                ASSERT_EQ(picture.GetColor(x, y), expected) << round << ": " << x << ", " << y;
            }
    }
}

TEST(ImageGraphicsTest, TilesOutsideTheClipAreNotVisited) {
    std::vector<C2DRectangle> parts;
    constexpr int kMax = std::numeric_limits<int>::max();
    CImageGraphics graphics;
    graphics.SetElement(std::make_unique<CCountingElement>(Core::C2DSize{256, 256}, parts));
    graphics.SetDrawMode(CImageGraphics::kRepeat);
    graphics.SetSize({kMax, kMax});
    CTestPicture picture({400, 400});
    graphics.Draw(*picture, nullptr);
    EXPECT_EQ(parts.size(), 4u);
    picture->SetOrigin({-kMax + 10, -kMax + 10});
    const CSimple2DRegion everything(C2DRectangle{-kMax, -kMax, kMax, kMax});
    graphics.Draw(*picture, &everything);
    EXPECT_LE(parts.size(), 4u + 9u);
}

TEST(ImageGraphicsTest, TilesAreHitByTheirOwnShape) {
    auto element = std::make_unique<CNormalImageElement>(MakeMapImage({4, 4}));
    element->SetMask(MakeImage(
        {4, 4}, [](int x, int y) { return x == 1 && y == 2 ? 0xFFFFFFFFu : 0xFF000000u; }));
    CImageGraphics graphics;
    graphics.SetElement(std::move(element));
    graphics.SetDrawMode(CImageGraphics::kRepeat);
    graphics.SetSize({20, 20});
    EXPECT_TRUE(graphics.HitTest({1, 2}));
    EXPECT_TRUE(graphics.HitTest({13, 18}));
    EXPECT_FALSE(graphics.HitTest({12, 18}));
    EXPECT_FALSE(graphics.HitTest({21, 2})) << "outside the object";
}

TEST(ImageGraphicsTest, AnImageIsStretchedOnceForASize) {
    CImageGraphics graphics;
    graphics.SetElement(std::make_unique<CNormalImageElement>(
        MakeImage({2, 1}, [](int x, int) { return x ? 0xFFFFFFFFu : 0xFF000000u; })));
    graphics.SetDrawMode(CImageGraphics::kStretch);
    graphics.SetSize({40, 20});
    EXPECT_EQ(graphics.GetStretchCount(), 0) << "not before it is needed";
    CTestPicture picture({64, 64});
    for (int i = 0; i < 3; ++i)
        graphics.Draw(*picture, nullptr);
    EXPECT_EQ(graphics.GetStretchCount(), 1);
    EXPECT_EQ(picture.GetGrey(0, 10), 0);
    EXPECT_EQ(picture.GetGrey(39, 19), 255);
    EXPECT_EQ(picture.GetGrey(40, 10), 0);
    EXPECT_TRUE(graphics.HitTest({39, 10}));
    EXPECT_FALSE(graphics.HitTest({0, 10})) << "too dark";
    EXPECT_FALSE(graphics.HitTest({40, 10}));

    graphics.SetSize({60, 20});
    const CSimple2DRegion region(C2DRectangle{50, 5, 4, 4});
    CTestPicture part({64, 64});
    graphics.Draw(*part, &region);
    EXPECT_EQ(graphics.GetStretchCount(), 2);
    EXPECT_EQ(part.GetGrey(49, 6), 0);
    EXPECT_EQ(part.GetGrey(50, 5), 255);
    EXPECT_EQ(part.GetGrey(54, 6), 0);
    graphics.SetElement(MakeMapElement({4, 4}));
    graphics.Draw(*part, nullptr);
    EXPECT_EQ(graphics.GetStretchCount(), 3);
}

TEST(ImageGraphicsTest, AStretchedTransparentImageLetsTheGroundThrough) {
    CImageGraphics graphics;
    graphics.SetElement(
        std::make_unique<CAlphaImageElement>(MakePlainImage({2, 2}, 0x80008000), 255));
    graphics.SetDrawMode(CImageGraphics::kStretch);
    graphics.SetSize({8, 8});
    EXPECT_TRUE(graphics.IsTransparent());
    CTestPicture picture({8, 8});
    picture->SetFillColor({200, 0, 0});
    picture->FillRectangle({0, 0, 8, 8});
    graphics.Draw(*picture, nullptr);
    EXPECT_NEAR(picture.GetColor(4, 4).red, 99, 2);
    EXPECT_NEAR(picture.GetColor(4, 4).green, 128, 1);
}

TEST(ImageGraphicsTest, ASizeBeyondTheLimitsIsNotStretchedTo) {
    CImageGraphics graphics;
    graphics.SetElement(MakeMapElement({4, 4}));
    graphics.SetDrawMode(CImageGraphics::kStretch);
    for (const Core::C2DSize& size :
         {Core::C2DSize{0, 5}, {20000, 20000}, {std::numeric_limits<int>::max(), 1}}) {
        graphics.SetSize(size);
        CTestPicture picture({8, 8});
        graphics.Draw(*picture, nullptr);
        EXPECT_TRUE(picture.IsBlack());
        EXPECT_FALSE(graphics.HitTest({0, 0}));
    }
}

TEST(ImageGraphicsTest, ChangesAreTold) {
    CImageGraphics graphics;
    graphics.SetSize({3, 4});
    CInvalidations told(graphics);
    graphics.SetDrawMode(CImageGraphics::kRepeat);
    graphics.SetDrawMode(CImageGraphics::kRepeat);
    EXPECT_EQ(told.areas, (std::vector<C2DRectangle>{{0, 0, 3, 4}}));
    graphics.SetDrawMode(17);
    EXPECT_EQ(graphics.GetDrawMode(), 0);
    graphics.SetElement(MakeMapElement({4, 4}));
    EXPECT_EQ(told.areas.size(), 3u);
}

TEST(MultiImageDrawerTest, TheCurrentImageIsShown) {
    CMultiImageDrawer drawer;
    drawer.GetCatalog().SetCount(3);
    drawer.GetCatalog().SetElement(0, MakeMapElement({4, 7}));
    drawer.GetCatalog().SetElement(
        1, std::make_unique<CAlphaImageElement>(MakePlainImage({6, 2}, 0xFFFFFFFF), 255));
    drawer.FitToImages();
    EXPECT_EQ(drawer.GetSize(), (Core::C2DSize{6, 7}));
    EXPECT_FALSE(drawer.IsTransparent());
    EXPECT_TRUE(drawer.HitTest({3, 6}));

    CInvalidations told(drawer);
    drawer.SetCurrent(0);
    EXPECT_TRUE(told.areas.empty());
    drawer.SetCurrent(1);
    EXPECT_EQ(told.areas, (std::vector<C2DRectangle>{{0, 0, 6, 7}}));
    EXPECT_TRUE(drawer.IsTransparent());
    EXPECT_FALSE(drawer.HitTest({3, 6}));
    CTestPicture picture({8, 8});
    drawer.Draw(*picture, nullptr);
    EXPECT_EQ(picture.GetGrey(5, 1), 255);
    EXPECT_EQ(picture.GetGrey(5, 2), 0);
    drawer.SetCurrent(2);
    drawer.Draw(*picture, nullptr);
    EXPECT_TRUE(drawer.IsTransparent());
}

TEST(MultiFilmStripDrawerTest, TheLastOf64FramesLiesAtItsOffset) {
    CMultiFilmStripDrawer drawer;
    drawer.GetCatalog().SetCount(1);
    // The blue of a pixel is the number of its frame.
    drawer.GetCatalog().SetElement(
        0, std::make_unique<CNormalImageElement>(MakeImage({6400, 2}, [](int x, int) {
            return 0xFF000000u | static_cast<unsigned>(x / 100);
        })));
    drawer.SetVertical(false);
    drawer.SetFrameCount(64);
    drawer.FitToImages();
    EXPECT_EQ(drawer.GetSize(), (Core::C2DSize{100, 2}));
    CTestPicture picture({120, 4});
    for (const int frame : {0, 31, 63}) {
        drawer.SetCurrentFrame(frame);
        EXPECT_EQ(drawer.GetFrameOffset(), (Core::C2DVector{100 * frame, 0}));
        drawer.Draw(*picture, nullptr);
        EXPECT_EQ(picture.GetColor(0, 0).blue, frame);
        EXPECT_EQ(picture.GetColor(99, 1).blue, frame);
        EXPECT_EQ(picture.GetColor(100, 1), RGB{});
    }
}

TEST(MultiFilmStripDrawerTest, OnlyTheFrameAndOnlyTheRegionIsDrawn) {
    CMultiFilmStripDrawer drawer;
    drawer.GetCatalog().SetCount(1);
    drawer.GetCatalog().SetElement(0, MakeMapElement({5, 40}));
    drawer.SetFrameCount(4);
    drawer.SetCurrentFrame(2);
    drawer.SetSize({50, 50}); // larger than a frame
    CTestPicture picture({8, 14});
    drawer.Draw(*picture, nullptr);
    EXPECT_EQ(picture.GetColor(4, 9), (RGB{4, 29, 0}));
    EXPECT_EQ(picture.GetColor(4, 10), RGB{});
    CTestPicture part({8, 14});
    const CSimple2DRegion region(C2DRectangle{1, 3, 2, 2});
    drawer.Draw(*part, &region);
    EXPECT_EQ(part.GetColor(2, 4), (RGB{2, 24, 0}));
    EXPECT_EQ(part.GetColor(3, 4), RGB{});
    EXPECT_EQ(part.GetColor(2, 2), RGB{});
}

TEST(MultiFilmStripDrawerTest, AFrameIsHitByItsOwnPartOfTheMask) {
    auto element = std::make_unique<CNormalImageElement>(MakeMapImage({4, 8}));
    element->SetMask(
        MakeImage({4, 8}, [](int, int y) { return y == 6 ? 0xFFFFFFFFu : 0xFF000000u; }));
    CMultiFilmStripDrawer drawer;
    drawer.GetCatalog().SetCount(1);
    drawer.GetCatalog().SetElement(0, std::move(element));
    drawer.SetFrameCount(2);
    drawer.FitToImages();
    EXPECT_FALSE(drawer.HitTest({1, 2}));
    EXPECT_FALSE(drawer.HitTest({1, 6})) << "that is the second frame";
    drawer.SetCurrentFrame(1);
    EXPECT_TRUE(drawer.HitTest({1, 2}));
    EXPECT_FALSE(drawer.HitTest({1, 3}));
}

TEST(MultiFilmStripDrawerTest, FramesThatAreNotThereShowNothing) {
    CMultiFilmStripDrawer drawer;
    drawer.GetCatalog().SetCount(2);
    drawer.GetCatalog().SetElement(0, MakeMapElement({4, 8}));
    drawer.SetFrameCount(0);
    EXPECT_EQ(drawer.GetFrameCount(), 1);
    drawer.SetFrameCount(2);
    drawer.FitToImages();
    CTestPicture picture({4, 4});
    for (const int frame :
         {-1, 2, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        drawer.SetCurrentFrame(frame);
        drawer.Draw(*picture, nullptr);
        EXPECT_FALSE(drawer.HitTest({1, 1}));
    }
    drawer.SetCurrentFrame(0);
    drawer.SetCurrentImage(1);
    EXPECT_TRUE(drawer.IsTransparent());
    drawer.Draw(*picture, nullptr);
    EXPECT_TRUE(picture.IsBlack());
}

TEST(MultiFilmStripDrawerTest, ChangesAreTold) {
    CMultiFilmStripDrawer drawer;
    drawer.SetSize({2, 2});
    CInvalidations told(drawer);
    drawer.SetCurrentFrame(0);
    drawer.SetCurrentImage(0);
    drawer.SetVertical(true);
    drawer.SetFrameCount(1);
    EXPECT_TRUE(told.areas.empty());
    drawer.SetCurrentFrame(1);
    drawer.SetCurrentImage(1);
    drawer.SetVertical(false);
    drawer.SetFrameCount(5);
    EXPECT_EQ(told.areas, std::vector<C2DRectangle>(4, {0, 0, 2, 2}));
}

} // namespace
} // namespace Vorin::Graphics::Testing
