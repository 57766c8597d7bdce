#include "core/Geometry.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace Vorin::Core {
namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

TEST(GeometryTest, ValuesStartAtZero) {
    EXPECT_EQ(C2DPoint(), (C2DPoint{0, 0}));
    EXPECT_EQ(C2DVector(), (C2DVector{0, 0}));
    EXPECT_EQ(C2DSize(), (C2DSize{0, 0}));
    EXPECT_EQ(C2DRectangle(), C2DRectangle(0, 0, 0, 0));
}

TEST(GeometryTest, PointsAndVectorsAdd) {
    EXPECT_EQ((C2DPoint{3, 4} + C2DVector{10, -1}), (C2DPoint{13, 3}));
    EXPECT_EQ((C2DPoint{3, 4} - C2DVector{10, -1}), (C2DPoint{-7, 5}));
    EXPECT_EQ((C2DPoint{3, 4} - C2DPoint{1, 9}), (C2DVector{2, -5}));
    EXPECT_EQ((C2DVector{3, 4} + C2DVector{1, 1}), (C2DVector{4, 5}));
    EXPECT_EQ((C2DVector{3, 4} - C2DVector{1, 1}), (C2DVector{2, 3}));
    EXPECT_EQ((-C2DVector{3, -4}), (C2DVector{-3, 4}));
}

TEST(GeometryTest, SumsStopAtTheEndsOfTheRange) {
    EXPECT_EQ((C2DPoint{kMax, kMin} + C2DVector{1, -1}), (C2DPoint{kMax, kMin}));
    EXPECT_EQ((C2DPoint{kMin, kMax} - C2DPoint{kMax, kMin}), (C2DVector{kMin, kMax}));
    EXPECT_EQ((-C2DVector{kMin, kMax}), (C2DVector{kMax, -kMax}));
}

TEST(GeometryTest, RightAndBottomEdgesLieOutside) {
    const C2DRectangle rectangle(2, 3, 4, 5);
    EXPECT_TRUE(rectangle.Contains({2, 3}));
    EXPECT_TRUE(rectangle.Contains({5, 7}));
    EXPECT_FALSE(rectangle.Contains({6, 7}));
    EXPECT_FALSE(rectangle.Contains({5, 8}));
    EXPECT_FALSE(rectangle.Contains({1, 3}));
    EXPECT_FALSE(rectangle.Contains({2, 2}));
}

TEST(GeometryTest, ASideOfZeroOrLessIsEmpty) {
    EXPECT_FALSE(C2DRectangle(0, 0, 1, 1).IsEmpty());
    for (const C2DSize& size : {C2DSize{0, 1}, {1, 0}, {-1, 1}, {1, -1}, {-3, -3}}) {
        EXPECT_TRUE(size.IsEmpty());
        EXPECT_TRUE(C2DRectangle({5, 5}, size).IsEmpty());
        EXPECT_FALSE(C2DRectangle({5, 5}, size).Contains({5, 5}));
    }
}

TEST(GeometryTest, AnIntersectionTakesTheInnerEdges) {
    const C2DRectangle a(0, 0, 10, 10);
    EXPECT_EQ(a.Intersect({3, -2, 20, 5}), C2DRectangle(3, 0, 7, 3));
    EXPECT_EQ(a.Intersect({2, 2, 3, 3}), C2DRectangle(2, 2, 3, 3));
    EXPECT_EQ(a.Intersect(a), a);
}

TEST(GeometryTest, AnIntersectionOfSeparateAreasHasNoSides) {
    const C2DRectangle a(0, 0, 10, 10);
    EXPECT_EQ(a.Intersect({10, 2, 5, 5}), C2DRectangle(10, 2, 0, 5));
    EXPECT_EQ(a.Intersect({2, 30, 5, 5}), C2DRectangle(2, 30, 5, 0));
    EXPECT_EQ(a.Intersect({4, 4, -2, 3}), C2DRectangle(4, 4, 0, 3));
    EXPECT_FALSE(a.Intersects({10, 2, 5, 5}));
    EXPECT_TRUE(a.Intersects({9, 2, 5, 5}));
    EXPECT_FALSE(a.Intersects({4, 4, 0, 3}));
}

// Of the definition: a point is in the intersection when it is in both.
TEST(GeometryTest, AnIntersectionHoldsTheCommonPixels) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> number(-4, 8);
    for (int i = 0; i < 2000; ++i) {
        const C2DRectangle a(number(random), number(random), number(random), number(random));
        const C2DRectangle b(number(random), number(random), number(random), number(random));
        const C2DRectangle common = a.Intersect(b);
        EXPECT_EQ(common, b.Intersect(a));
        for (int x = -9; x < 18; ++x)
            for (int y = -9; y < 18; ++y)
                ASSERT_EQ(common.Contains({x, y}), a.Contains({x, y}) && b.Contains({x, y}));
    }
}

TEST(GeometryTest, TheEndsOfTheRangeDoNotOverflow) {
    const C2DRectangle far(kMax - 1, kMax - 1, kMax, kMax);
    EXPECT_TRUE(far.Contains({kMax, kMax}));
    EXPECT_EQ(far.GetRight(), 2LL * kMax - 1);
    const C2DRectangle all(kMin, kMin, kMax, kMax);
    EXPECT_FALSE(all.Contains({0, 0}));
    EXPECT_TRUE(all.Contains({-2, -2}));
    EXPECT_TRUE(far.Intersect(all).IsEmpty());
    EXPECT_EQ(far.Intersect({0, 0, kMax, kMax}), C2DRectangle(kMax - 1, kMax - 1, 1, 1));
    EXPECT_TRUE(C2DRectangle(kMin, kMin, kMin, kMin).Intersect(far).IsEmpty());
}

TEST(GeometryTest, AMovedRectangleKeepsItsSize) {
    EXPECT_EQ(C2DRectangle(1, 2, 3, 4).Moved({10, -10}), C2DRectangle(11, -8, 3, 4));
    EXPECT_EQ(C2DRectangle(1, 2, 3, 4).Moved({kMax, kMin}), C2DRectangle(kMax, kMin + 2, 3, 4));
}

} // namespace
} // namespace Vorin::Core
