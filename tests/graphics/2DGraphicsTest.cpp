// The objects that draw themselves: empty, framed, filled.

#include "graphics/2DGraphics.h"

#include <gtest/gtest.h>

#include <vector>

#include "TestPicture.h"
#include "graphics/2DEmptyGraphics.h"
#include "graphics/2DRectangleGraphics.h"
#include "graphics/ColorDrawer.h"

namespace Vorin::Graphics::Testing {
namespace {

using Core::C2DRectangle;

// Notes what an object tells.
class CObserver : public Core::ICommand, public Core::TIArgCommand<const C2DRectangle&> {
public:
    explicit CObserver(I2DGraphics& observed) : graphics(observed) {
        graphics.GetSizeChangedEvent().Connect(static_cast<Core::ICommand&>(*this));
        graphics.GetInvalidatedEvent().Connect(*this);
    }
    ~CObserver() override {
        graphics.GetSizeChangedEvent().Disconnect(static_cast<Core::ICommand&>(*this));
        graphics.GetInvalidatedEvent().Disconnect(
            static_cast<Core::TIArgCommand<const C2DRectangle&>&>(*this));
    }
    CObserver(const CObserver&) = delete;
    CObserver& operator=(const CObserver&) = delete;
    void Execute() override { ++sizeChanges; }
    void Execute(const C2DRectangle& area) override { invalidated.push_back(area); }

    int sizeChanges = 0;
    std::vector<C2DRectangle> invalidated;

private:
    I2DGraphics& graphics;
};

TEST(GraphicsTest, ASizeIsClampedAndToldWhenItDiffers) {
    C2DEmptyGraphics graphics(true, true);
    CObserver observer(graphics);
    graphics.SetSize({5, 4});
    graphics.SetSize({5, 4});
    EXPECT_EQ(observer.sizeChanges, 1);
    graphics.SetSize({-3, 4});
    EXPECT_EQ(graphics.GetSize(), (Core::C2DSize{0, 4}));
    graphics.SetSize({-8, 4});
    EXPECT_EQ(observer.sizeChanges, 2);
}

TEST(GraphicsTest, AnEmptyObjectIsHitWhenItIsSensitive) {
    C2DEmptyGraphics sensitive(true, true);
    C2DEmptyGraphics numb(false, false);
    for (C2DEmptyGraphics* graphics : {&sensitive, &numb})
        graphics->SetSize({3, 2});
    EXPECT_TRUE(sensitive.HitTest({0, 0}));
    EXPECT_TRUE(sensitive.HitTest({2, 1}));
    EXPECT_FALSE(sensitive.HitTest({3, 1}));
    EXPECT_FALSE(sensitive.HitTest({-1, 0}));
    EXPECT_FALSE(numb.HitTest({0, 0}));
    EXPECT_TRUE(sensitive.IsTransparent());
    EXPECT_FALSE(numb.IsTransparent());
    CTestPicture picture({4, 4});
    sensitive.Draw(*picture, nullptr);
    EXPECT_TRUE(picture.IsBlack());
}

TEST(GraphicsTest, ARectangleIsAWhiteFrame) {
    C2DRectangleGraphics graphics;
    CTestPicture picture({5, 4});
    graphics.Draw(*picture, nullptr);
    EXPECT_TRUE(picture.IsBlack()) << "no size";
    graphics.SetSize({4, 3});
    graphics.Draw(*picture, nullptr);
    EXPECT_EQ(picture.GetText(), "####.\n#..#.\n####.\n.....\n");
    EXPECT_EQ(picture.GetColor(3, 1), (RGB{255, 255, 255}));
    EXPECT_TRUE(graphics.IsTransparent());

    CObserver observer(graphics);
    graphics.SetColor({255, 255, 255});
    EXPECT_TRUE(observer.invalidated.empty());
    graphics.SetColor({1, 2, 3});
    graphics.SetPenStyle(2);
    EXPECT_EQ(observer.invalidated, (std::vector<C2DRectangle>{{0, 0, 4, 3}, {0, 0, 4, 3}}));
    graphics.Draw(*picture, nullptr);
    EXPECT_EQ(picture.GetColor(0, 0), (RGB{1, 2, 3}));
}

TEST(GraphicsTest, AColourFillsItsAreaOrTheRegionsBox) {
    CColorDrawer drawer({255, 0, 0}, true);
    drawer.SetSize({6, 3});
    CTestPicture picture({6, 3});
    CSimple2DRegion region(C2DRectangle{1, 1, 1, 1});
    region.UnionRectangle({3, 2, 1, 1});
    drawer.Draw(*picture, &region);
    EXPECT_EQ(picture.GetText(), "......\n.###..\n.###..\n");
    drawer.Draw(*picture, nullptr);
    EXPECT_EQ(picture.GetText(), "######\n######\n######\n");
    EXPECT_FALSE(drawer.IsTransparent());
    EXPECT_TRUE(drawer.HitTest({-50, 99}));
    EXPECT_FALSE(CColorDrawer({}, false).HitTest({0, 0}));
}

TEST(GraphicsTest, AColourTellsWhenItChanges) {
    CColorDrawer drawer({255, 0, 0}, true);
    drawer.SetSize({6, 3});
    CObserver observer(drawer);
    drawer.SetColor({255, 0, 0});
    EXPECT_TRUE(observer.invalidated.empty());
    drawer.SetColor({0, 0, 9});
    EXPECT_EQ(observer.invalidated, (std::vector<C2DRectangle>{{0, 0, 6, 3}}));
    EXPECT_EQ(drawer.GetColor(), (RGB{0, 0, 9}));
}

} // namespace
} // namespace Vorin::Graphics::Testing
