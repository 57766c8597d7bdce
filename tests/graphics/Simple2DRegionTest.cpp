#include "graphics/Simple2DRegion.h"

#include <gtest/gtest.h>

#include <limits>

namespace Vorin::Graphics {
namespace {

using Core::C2DRectangle;

TEST(Simple2DRegionTest, AnEmptyRegionHasNoBoundsAndMeetsNothing) {
    CSimple2DRegion region;
    EXPECT_TRUE(region.IsEmpty());
    EXPECT_EQ(region.GetBounds(), C2DRectangle());
    EXPECT_FALSE(region.Intersects({-100, -100, 200, 200}));
    region.IntersectRectangle({0, 0, 5, 5});
    EXPECT_TRUE(region.IsEmpty());
}

TEST(Simple2DRegionTest, ACloneOfAnEmptyRegionCanBeChanged) {
    const auto clone = CSimple2DRegion().Clone();
    EXPECT_TRUE(clone->IsEmpty());
    EXPECT_EQ(clone->GetBounds(), C2DRectangle());
    clone->UnionRectangle({1, 2, 3, 4});
    EXPECT_EQ(clone->GetBounds(), C2DRectangle(1, 2, 3, 4));
}

TEST(Simple2DRegionTest, ARegionIsNotItsBounds) {
    CSimple2DRegion region(C2DRectangle{0, 0, 10, 10});
    region.UnionRectangle({20, 20, 10, 10});
    EXPECT_EQ(region.GetBounds(), C2DRectangle(0, 0, 30, 30));
    EXPECT_TRUE(region.Intersects({5, 5, 1, 1}));
    EXPECT_TRUE(region.Intersects({9, 9, 12, 12}));
    EXPECT_FALSE(region.Intersects({10, 10, 10, 10}));
    EXPECT_FALSE(region.Intersects({5, 5, 0, 3}));
    region.IntersectRectangle({8, 0, 14, 40});
    EXPECT_EQ(region.GetBounds(), C2DRectangle(8, 0, 14, 30));
    region.IntersectRectangle({10, 10, 5, 5});
    EXPECT_TRUE(region.IsEmpty());
}

TEST(Simple2DRegionTest, ACloneIsIndependent) {
    CSimple2DRegion region(C2DRectangle{0, 0, 4, 4});
    const auto clone = region.Clone();
    region.UnionRectangle({10, 0, 4, 4});
    clone->IntersectRectangle({0, 0, 2, 2});
    EXPECT_EQ(region.GetBounds(), C2DRectangle(0, 0, 14, 4));
    EXPECT_EQ(clone->GetBounds(), C2DRectangle(0, 0, 2, 2));
}

TEST(Simple2DRegionTest, EmptyRectanglesAddNothingAndLeaveNothing) {
    CSimple2DRegion region;
    region.UnionRectangle({3, 3, 0, 9});
    region.UnionRectangle({3, 3, 9, -1});
    EXPECT_TRUE(region.IsEmpty());
    region.UnionRectangle({3, 3, 9, 9});
    region.IntersectRectangle({4, 4, -2, 5});
    EXPECT_TRUE(region.IsEmpty());
}

TEST(Simple2DRegionTest, FarRectanglesAreCutToTheRange) {
    constexpr int kMin = std::numeric_limits<int>::min();
    constexpr int kMax = std::numeric_limits<int>::max();
    constexpr int kFar = (1 << 30) - 1;
    CSimple2DRegion region(C2DRectangle{kMin, kMin, kMax, kMax});
    EXPECT_EQ(region.GetBounds(), C2DRectangle(-kFar, -kFar, kFar - 1, kFar - 1));
    region.UnionRectangle({kMax, kMax, kMax, kMax}); // beyond it
    EXPECT_EQ(region.GetBounds(), C2DRectangle(-kFar, -kFar, kFar - 1, kFar - 1));
    region.UnionRectangle({0, 0, kMax, kMax});
    EXPECT_EQ(region.GetBounds(), C2DRectangle(-kFar, -kFar, 2 * kFar, 2 * kFar));
    EXPECT_TRUE(region.Intersects({kMin, kMin, kMax, kMax}));
    EXPECT_FALSE(region.Intersects({kMin, 0, kMax, kMax})) << "it ends before column -1";
}

} // namespace
} // namespace Vorin::Graphics
