// The origin and the clip of a context, as Cairo and as our own routines see them.

#include "graphics/DrawContext.h"

#include <gtest/gtest.h>

#include "TestPicture.h"

namespace Vorin::Graphics::Testing {
namespace {

using Core::C2DRectangle;

TEST(DrawContextTest, LinesFollowWhatIsDoneToTheContextThroughCairo) {
    CTestPicture picture({10, 4});
    CDrawContext& context = *picture->GetContext();
    cairo_t* cairo = context.BeginCairo();
    ASSERT_NE(cairo, nullptr);
    cairo_save(cairo);
    cairo_translate(cairo, 2.0, 1.0);
    cairo_rectangle(cairo, 1.0, 0.0, 4.0, 2.0);
    cairo_clip(cairo);
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{2, 1}));
    EXPECT_EQ(picture->GetClipBox(), C2DRectangle(1, 0, 4, 2));
    picture->DrawLine({-9, 1}, {99, 1});
    cairo_restore(cairo);
    EXPECT_EQ(picture.GetText(), "..........\n..........\n...####...\n..........\n");
    EXPECT_EQ(picture->GetClipBox(), C2DRectangle(0, 0, 10, 4));
}

TEST(DrawContextTest, LinesRespectOnlyTheBoundingBoxOfTheClip) {
    CTestPicture picture({8, 3});
    cairo_t* cairo = picture->GetContext()->BeginCairo();
    cairo_rectangle(cairo, 1.0, 0.0, 2.0, 3.0);
    cairo_rectangle(cairo, 5.0, 0.0, 2.0, 3.0);
    cairo_clip(cairo);
    EXPECT_EQ(picture->GetClipBox(), C2DRectangle(1, 0, 6, 3));
    picture->DrawLine({0, 0}, {7, 0});
    picture->SetFillColor({255, 255, 255});
    picture->FillRectangle({0, 2, 8, 1}); // Cairo knows the whole clip
    EXPECT_EQ(picture.GetText(), ".######.\n........\n.##..##.\n");
}

TEST(DrawContextTest, AnOriginBetweenPixelsCountsAsTheNearest) {
    CTestPicture picture({4, 4});
    cairo_t* cairo = picture->GetContext()->BeginCairo();
    cairo_translate(cairo, 1.5, -0.6);
    EXPECT_EQ(picture->GetOrigin(), (Core::C2DPoint{2, -1}));
}

TEST(DrawContextTest, NothingCanBeDrawnWithoutAClipOrAContext) {
    CTestPicture picture({4, 4});
    CDrawContext& context = *picture->GetContext();
    EXPECT_EQ(context.BeginCairo({4, 0, 1, 1}), nullptr);
    EXPECT_EQ(context.BeginCairo({0, 0, 0, 1}), nullptr);
    EXPECT_NE(context.BeginCairo({3, 3, 9, 9}), nullptr);
    picture->IntersectClip({0, 0, 0, 0});
    EXPECT_EQ(context.BeginCairo(), nullptr);

    CDrawContext none(nullptr);
    EXPECT_EQ(none.GetBitmapContext(), nullptr);
    EXPECT_EQ(none.BeginCairo(), nullptr);
    EXPECT_EQ(none.BeginPixels({0, 0, 1, 1}), nullptr);
    none.Translate({1, 1});
    none.Save();
    none.IntersectClip({0, 0, 1, 1});
    none.Restore();
    none.Restore();
    EXPECT_EQ(none.GetOrigin().x, 0);
    EXPECT_TRUE(none.GetClip().IsEmpty());
}

TEST(DrawContextTest, SurfacesOfOneBitmapHaveOriginAndClipOfTheirOwn) {
    CDIBBitmap bitmap({6, 6}, 32);
    const auto first = bitmap.CreateSurface();
    const auto second = bitmap.CreateSurface();
    first->SetOrigin({2, 2});
    first->IntersectClip({0, 0, 1, 1});
    EXPECT_EQ(second->GetOrigin(), Core::C2DPoint{});
    EXPECT_EQ(second->GetClipBox(), C2DRectangle(0, 0, 6, 6));
}

} // namespace
} // namespace Vorin::Graphics::Testing
