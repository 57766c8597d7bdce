#include "graphics/text/TextDrawer.h"

#include "graphics/text/TextPicture.h"

#include <gtest/gtest.h>

namespace Vorin::Graphics::Testing {
namespace {

class TextDrawerTest : public ::testing::Test {
protected:
    TextDrawerTest() {
        drawer.SetSize({100, 50});
        drawer.GetInvalidatedEvent().Connect(command);
    }
    ~TextDrawerTest() override { drawer.GetInvalidatedEvent().Disconnect(command); }

    void OnInvalidated(const Core::C2DRectangle& area) {
        EXPECT_EQ(area, Core::C2DRectangle(0, 0, 100, 50));
        ++invalidations;
    }
    int TakeInvalidations() {
        const int taken = invalidations;
        invalidations = 0;
        return taken;
    }

    CSharedFont font{MakeFont(20)};
    CTextDrawer drawer;
    int invalidations = 0;
    Core::TArgCommand<TextDrawerTest, const Core::C2DRectangle&> command{
        this, &TextDrawerTest::OnInvalidated};
};

TEST_F(TextDrawerTest, EachChangeInvalidatesOnce) {
    drawer.SetFont(&font, Core::kDontOwn);
    EXPECT_EQ(TakeInvalidations(), 1);
    drawer.SetText("A");
    EXPECT_EQ(TakeInvalidations(), 1);
    drawer.SetText("A");
    drawer.SetFont(&font, Core::kDontOwn);
    EXPECT_EQ(TakeInvalidations(), 0);
    font.SetHeight(30);
    EXPECT_EQ(TakeInvalidations(), 1);
    drawer.GetCaptureText().SetValue("B");
    EXPECT_EQ(TakeInvalidations(), 1);
    EXPECT_STREQ(drawer.GetText(), "B");
    drawer.SetTextColor({1, 2, 3});
    drawer.SetBackgroundColor({1, 2, 3});
    drawer.SetTextMode(0);
    drawer.SetHAlign(0);
    drawer.SetVAlign(2);
    drawer.SetMultiline(true);
    drawer.SetWordBreak(true);
    EXPECT_EQ(TakeInvalidations(), 7);
    drawer.SetHAlign(0);
    drawer.SetMultiline(true);
    EXPECT_EQ(TakeInvalidations(), 0);
    drawer.SetText(nullptr);
    EXPECT_STREQ(drawer.GetText(), "");
    drawer.SetFont(nullptr, Core::kDontOwn);
    TakeInvalidations();
    font.SetHeight(40);
    EXPECT_EQ(TakeInvalidations(), 0);
}

TEST_F(TextDrawerTest, DrawsItsTextInItsColourAndLeavesTheStateAsItWas) {
    CTestPicture picture({120, 60});
    drawer.SetFont(new CSharedFont(MakeFont(30)), Core::kOwn);
    drawer.SetText("\xe2\x96\x88"); // a full block
    drawer.SetTextColor({255, 128, 0});
    drawer.Draw(*picture, nullptr);
    EXPECT_EQ(picture.GetColor(50, 25), (RGB{255, 128, 0}));
    EXPECT_EQ(picture.GetColor(5, 5), RGB{}) << "no background";
    EXPECT_TRUE(drawer.IsTransparent());
    picture->DrawPoint({119, 59});
    EXPECT_EQ(picture.GetColor(119, 59), (RGB{255, 255, 255})) << "the pen of before";
}

TEST_F(TextDrawerTest, Mode0FillsTheAreaWithAndWithoutAFont) {
    drawer.SetTextMode(0);
    drawer.SetBackgroundColor({0, 0, 200});
    EXPECT_FALSE(drawer.IsTransparent());
    for (const bool hasFont : {false, true}) {
        CTestPicture picture({120, 60});
        drawer.SetFont(hasFont ? &font : nullptr, Core::kDontOwn);
        drawer.Draw(*picture, nullptr);
        EXPECT_EQ(GetInk(picture, {120, 60}), Core::C2DRectangle(0, 0, 100, 50));
    }
}

TEST_F(TextDrawerTest, IsHitInItsArea) {
    EXPECT_TRUE(drawer.HitTest({99, 49}));
    EXPECT_FALSE(drawer.HitTest({100, 49}));
    EXPECT_FALSE(drawer.HitTest({-1, 0}));
}

TEST_F(TextDrawerTest, KnowsTheSizeOfItsLines) {
    EXPECT_EQ(drawer.GetTextSize(), Core::C2DSize());
    drawer.SetFont(&font, Core::kDontOwn);
    drawer.SetText("nnnn nnnn\nnn");
    EXPECT_EQ(drawer.GetTextSize(), font.GetTextSize("nnnn nnnn nn"));
    drawer.SetMultiline(true);
    EXPECT_EQ(drawer.GetTextSize().height, 2 * font.GetCharacterHeight());
    drawer.SetWordBreak(true);
    EXPECT_EQ(drawer.GetTextSize().height, 3 * font.GetCharacterHeight());
}

} // namespace
} // namespace Vorin::Graphics::Testing
