// Anti-aliased lines and points against weights worked out by hand.
//
// The pen is white on black. A pixel of weight a then reads (255 * a) >> 8, and a second weight b
// on a pixel of value v leads to v + (((255 - v) * b) >> 8).

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "TestPicture.h"

namespace Vorin::Graphics::Testing {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

constexpr int Weighted(int a) { return (255 * a) >> 8; }

TEST(SmoothLineTest, ALineOnAPixelRowIsPlainInTheMiddleAndPartialAtBothEnds) {
    CTestPicture picture({10, 8});
    picture->DrawSmoothLine({2.0f, 5.0f}, {7.0f, 5.0f});
    EXPECT_EQ(picture.GetText(), "..........\n..........\n..........\n..........\n..........\n"
                                 "..######..\n..........\n..........\n");
    EXPECT_EQ(picture.GetGrey(2, 5), Weighted(127)); // half a column: 127.5
    for (int x = 3; x <= 6; ++x)
        EXPECT_EQ(picture.GetGrey(x, 5), 255) << x;
    EXPECT_EQ(picture.GetGrey(7, 5), Weighted(127));
}

// Slope 1/2 from (1, 1): rows 1.5, 2 and 2.5 at columns 2, 3 and 4.
void ExpectSlopeOfOneHalf(const std::vector<std::vector<int>>& weights, CTestPicture& picture,
                          bool steep) {
    for (int x = 0; x < 7; ++x)
        for (int y = 0; y < 7; ++y) {
            const int grey = steep ? picture.GetGrey(y, x) : picture.GetGrey(x, y);
            EXPECT_EQ(grey,
                      Weighted(weights[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]))
                << x << ", " << y;
        }
}

const std::vector<std::vector<int>> kSlopeOfOneHalf{
    {0, 0, 0, 0, 0, 0, 0},     {0, 127, 128, 0, 0, 0, 0}, {0, 0, 127, 255, 128, 0, 0},
    {0, 0, 0, 0, 127, 127, 0}, {0, 0, 0, 0, 0, 0, 0},     {0, 0, 0, 0, 0, 0, 0},
    {0, 0, 0, 0, 0, 0, 0},
};

TEST(SmoothLineTest, ASlopeSharesEachColumnBetweenTwoRows) {
    CTestPicture picture({7, 7});
    picture->DrawSmoothLine({1.0f, 1.0f}, {5.0f, 3.0f});
    ExpectSlopeOfOneHalf(kSlopeOfOneHalf, picture, false);
}

TEST(SmoothLineTest, ASteepSlopeSharesEachRowBetweenTwoColumns) {
    CTestPicture picture({7, 7});
    picture->DrawSmoothLine({1.0f, 1.0f}, {3.0f, 5.0f});
    ExpectSlopeOfOneHalf(kSlopeOfOneHalf, picture, true);
}

TEST(SmoothLineTest, TheDirectionDoesNotMatter) {
    CTestPicture picture({7, 7});
    picture->DrawSmoothLine({5.0f, 3.0f}, {1.0f, 1.0f});
    ExpectSlopeOfOneHalf(kSlopeOfOneHalf, picture, false);
}

// Three quarters of the line belong to row 2: 255 * 0.25 = 63.75, so 63 for row 3 and 192 for
// row 2. The ends cover half a column: 255 * 0.75 / 2 = 95.6 and 255 * 0.25 / 2 = 31.9.
TEST(SmoothLineTest, AFlatLineBetweenTwoRowsKeepsItsShares) {
    CTestPicture picture({8, 6});
    picture->DrawSmoothLine({1.0f, 2.25f}, {6.0f, 2.25f});
    for (int x = 2; x <= 5; ++x) {
        EXPECT_EQ(picture.GetGrey(x, 2), Weighted(192)) << x;
        EXPECT_EQ(picture.GetGrey(x, 3), Weighted(63)) << x;
    }
    for (int x : {1, 6}) {
        EXPECT_EQ(picture.GetGrey(x, 2), Weighted(95)) << x;
        EXPECT_EQ(picture.GetGrey(x, 3), Weighted(31)) << x;
    }
    EXPECT_EQ(picture.GetText(), "........\n........\n.######.\n.######.\n........\n........\n");
}

// 0.15 of a row over 50 columns is a slope of 0.003, below 1/255: the first end's share holds
// throughout.
TEST(SmoothLineTest, AnAlmostFlatLineKeepsTheShareOfItsFirstEnd) {
    CTestPicture picture({60, 6});
    picture->DrawSmoothLine({2.0f, 2.5f}, {52.0f, 2.65f});
    for (int x = 3; x <= 51; ++x) {
        EXPECT_EQ(picture.GetGrey(x, 2), Weighted(128)) << x;
        EXPECT_EQ(picture.GetGrey(x, 3), Weighted(127)) << x;
    }
}

TEST(SmoothLineTest, AnAlmostFlatLineNearARowIsPlain) {
    CTestPicture picture({20, 6});
    picture->DrawSmoothLine({2.0f, 1.997f}, {17.0f, 2.003f});
    for (int x = 3; x <= 16; ++x) {
        EXPECT_EQ(picture.GetGrey(x, 1), 0) << x;
        EXPECT_EQ(picture.GetGrey(x, 2), 255) << x;
        EXPECT_EQ(picture.GetGrey(x, 3), 0) << x;
    }
}

// A single point has no slope. Its column is written by both ends, the first covering 1 - 0.75, the
// second 0.75 of it, half of that in each row: 31.9 and 95.6. 30 + ((225 * 95) >> 8) = 113.
TEST(SmoothLineTest, ASinglePointHasNoSlopeAndRunsTheFlatBranch) {
    CTestPicture picture({8, 8});
    picture->DrawSmoothLine({3.25f, 4.5f}, {3.25f, 4.5f});
    EXPECT_EQ(Weighted(31), 30);
    EXPECT_EQ(picture.GetGrey(3, 4), 113);
    EXPECT_EQ(picture.GetGrey(3, 5), 113);
    EXPECT_EQ(picture.GetText(), "........\n........\n........\n........\n"
                                 "...#....\n...#....\n........\n........\n");
}

// (2 .. 2.2) rounds to column 2 for both ends: 1 - 0.5 and 0.7 of it on one row:
// 126 + ((129 * 178) >> 8) = 126 + 89.
TEST(SmoothLineTest, AShortLineWritesItsColumnTwice) {
    CTestPicture picture({8, 4});
    picture->DrawSmoothLine({2.0f, 1.0f}, {2.2f, 1.0f});
    EXPECT_EQ(picture.GetGrey(2, 1), 126 + 89);
    EXPECT_EQ(picture.GetText(), "........\n..#.....\n........\n........\n");
}

// The first end's column begins a quarter before the line does: row 9.125, whose lower pixel is
// outside.
TEST(SmoothLineTest, TheLowerPixelOfAnEndStaysInsideTheClip) {
    CTestPicture picture({10, 12});
    picture->IntersectClip({0, 0, 10, 10});
    picture->DrawSmoothLine({1.25f, 9.0f}, {5.25f, 7.0f});
    EXPECT_EQ(picture.GetGrey(1, 9), Weighted(55)); // 0.875 * 0.25 * 255 = 55.8
    for (int x = 0; x < 10; ++x)
        EXPECT_EQ(picture.GetWord(x, 10), 0u) << x;

    // The mirror image: now it is the second end.
    picture->DrawSmoothLine({4.0f, 7.0f}, {8.25f, 9.0f});
    picture->DrawSmoothLine({4.0f, 7.0f}, {7.75f, 9.0f});
    for (int x = 0; x < 10; ++x)
        EXPECT_EQ(picture.GetWord(x, 10), 0u) << x;
}

TEST(SmoothLineTest, TheRightPixelOfASteepEndStaysInsideTheClip) {
    CTestPicture picture({12, 10});
    picture->IntersectClip({0, 0, 10, 10});
    picture->DrawSmoothLine({9.0f, 1.25f}, {7.0f, 5.25f});
    picture->DrawSmoothLine({7.0f, 4.0f}, {9.0f, 7.75f});
    EXPECT_EQ(picture.GetGrey(9, 1), Weighted(55));
    for (int y = 0; y < 10; ++y)
        EXPECT_EQ(picture.GetWord(10, y), 0u) << y;
}

// The column begins at row 2.875, above the clip: only the lower share is left.
TEST(SmoothLineTest, TheUpperPixelOfAnEndStaysInsideTheClip) {
    CTestPicture picture({10, 12});
    picture->IntersectClip({0, 3, 10, 9});
    picture->DrawSmoothLine({1.25f, 3.0f}, {5.25f, 5.0f});
    EXPECT_EQ(picture.GetGrey(1, 3), Weighted(55));
    for (int x = 0; x < 10; ++x)
        EXPECT_EQ(picture.GetWord(x, 2), 0u) << x;
}

TEST(SmoothLineTest, ALineLooksTheSameWhereverTheClipBegins) {
    CTestPicture atTop({10, 6});
    CTestPicture lower({10, 16});
    lower->IntersectClip({0, 8, 10, 6});
    lower->SetOrigin({0, 8});
    for (const float y : {0.0f, 0.125f, 0.25f, 0.375f}) {
        atTop->DrawSmoothLine({0.75f + 8.0f * y, y}, {8.25f, 3.0f});
        atTop->DrawSmoothLine({0.25f, 2.0f + y}, {7.25f, y});
        lower->DrawSmoothLine({0.75f + 8.0f * y, y}, {8.25f, 3.0f});
        lower->DrawSmoothLine({0.25f, 2.0f + y}, {7.25f, y});
    }
    for (int x = 0; x < 10; ++x) {
        for (int y = 0; y < 6; ++y)
            EXPECT_EQ(atTop.GetWord(x, y), lower.GetWord(x, y + 8)) << x << ", " << y;
        EXPECT_EQ(lower.GetWord(x, 7), 0u);
        EXPECT_EQ(lower.GetWord(x, 14), 0u);
    }
}

TEST(SmoothLineTest, ALineWithOneEndOutsideEndsOnTheLastPixelOfTheClip) {
    CTestPicture picture({10, 4});
    picture->IntersectClip({0, 0, 7, 4});
    picture->DrawSmoothLine({2.0f, 2.0f}, {30.0f, 2.0f});
    EXPECT_EQ(picture.GetText(), "..........\n..........\n..#####...\n..........\n");
    EXPECT_EQ(picture.GetGrey(5, 2), 255);
    EXPECT_EQ(picture.GetGrey(6, 2), Weighted(127));
}

// Column 3 of the slope lies on row 2 exactly: its weight is 255.
TEST(SmoothLineTest, TheFullWeightStaysOneStepShortOfTheColour) {
    CTestPicture deep({7, 7}, 32);
    deep->DrawSmoothLine({1.0f, 1.0f}, {5.0f, 3.0f});
    EXPECT_EQ(deep.GetGrey(3, 2), 254);
    CTestPicture shallow({7, 7}, 16);
    shallow->DrawSmoothLine({1.0f, 1.0f}, {5.0f, 3.0f});
    EXPECT_EQ(shallow.GetGrey(3, 2), 30); // (31 * 255) >> 8
}

// Downwards the shift rounds away from the source: 200 + ((-200 * 255) >> 8) = 200 - 200.
TEST(SmoothLineTest, ABlackLineReachesBlack) {
    CTestPicture picture({7, 7});
    picture.SetColor(3, 2, {200, 100, 1});
    picture.SetColor(2, 2, {200, 100, 1});
    picture->SetPenColor({0, 0, 0});
    picture->DrawSmoothLine({1.0f, 1.0f}, {5.0f, 3.0f});
    EXPECT_EQ(picture.GetColor(3, 2), RGB{});
    EXPECT_EQ(picture.GetColor(2, 2), (RGB{100, 50, 0})); // weight 127: 200 - 99.2, 100 - 49.6
}

TEST(SmoothLineTest, EachFormatBlendsItsOwnChannels) {
    const auto draw = [](int bits) {
        CTestPicture picture({7, 7}, bits);
        picture->SetPenColor({200, 100, 50});
        picture->DrawSmoothLine({1.0f, 1.0f}, {5.0f, 3.0f});
        return picture.GetColor(2, 1); // weight 128: half of each
    };
    EXPECT_EQ(draw(32), (RGB{100, 50, 25}));
    EXPECT_EQ(draw(24), (RGB{100, 50, 25}));
    EXPECT_EQ(draw(16), (RGB{12, 6, 3}));  // of 25, 12 and 6
    EXPECT_EQ(draw(8), (RGB{56, 56, 56})); // of (200 + 200 + 50) / 4 = 112
}

TEST(SmoothLineTest, APixelHasFullAlphaAfterAnyWriteAndNoneWithoutOne) {
    CTestPicture picture({7, 7});
    picture->DrawSmoothLine({1.0f, 1.0f}, {5.0f, 3.0f});
    for (int x = 0; x < 7; ++x)
        for (int y = 0; y < 7; ++y)
            EXPECT_EQ(picture.GetWord(x, y) >> 24,
                      kSlopeOfOneHalf[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] > 0
                          ? 0xFFu
                          : 0u)
                << x << ", " << y;
}

TEST(SmoothLineTest, CoordinatesThatAreNoNumbersDrawNothing) {
    CTestPicture picture({10, 10});
    for (const float bad : {kNaN, kInfinity, -kInfinity}) {
        picture->DrawSmoothLine({bad, 5.0f}, {5.0f, 5.0f});
        picture->DrawSmoothLine({5.0f, bad}, {5.0f, 5.0f});
        picture->DrawSmoothLine({5.0f, 5.0f}, {bad, 5.0f});
        picture->DrawSmoothLine({5.0f, 5.0f}, {5.0f, bad});
        picture->DrawSmoothPoint({bad, 5.0f});
        picture->DrawSmoothPoint({5.0f, bad});
    }
    EXPECT_TRUE(picture.IsBlack());
}

TEST(SmoothLineTest, APolylineLeavesOutOnlyThePairsWithABadPoint) {
    CTestPicture picture({20, 3});
    const C2DFloatPoint points[] = {{1, 1}, {5, 1}, {kNaN, 1}, {12, 1}, {16, 1}};
    picture->DrawSmoothPolyline(points, 5);
    EXPECT_EQ(picture.GetText(), "....................\n"
                                 ".#####......#####...\n"
                                 "....................\n");
}

TEST(SmoothLineTest, FarCoordinatesDrawTheVisiblePart) {
    CTestPicture picture({6, 3});
    picture->DrawSmoothLine({-1e30f, 1.0f}, {1e30f, 1.0f});
    EXPECT_EQ(picture.GetText(), "......\n######\n......\n");
}

TEST(SmoothLineTest, APolylineNeedsTwoPoints) {
    CTestPicture picture({6, 3});
    const C2DFloatPoint points[] = {{1, 1}, {4, 1}};
    picture->DrawSmoothPolyline(points, 1);
    picture->DrawSmoothPolyline(points, 0);
    picture->DrawSmoothPolyline(points, -7);
    picture->DrawSmoothPolyline(nullptr, 0);
    EXPECT_TRUE(picture.IsBlack());
}

// Fractions 0.25 and 0.5: 255 * 0.125 = 31.9 in the left column, 255 * 0.375 = 95.6 in the right.
TEST(SmoothPointTest, TheWeightGrowsWithTheDistanceFromThePixel) {
    CTestPicture picture({10, 10});
    picture->DrawSmoothPoint({4.25f, 6.5f});
    EXPECT_EQ(picture.GetGrey(4, 6), Weighted(31));
    EXPECT_EQ(picture.GetGrey(5, 6), Weighted(95));
    EXPECT_EQ(picture.GetGrey(4, 7), Weighted(31));
    EXPECT_EQ(picture.GetGrey(5, 7), Weighted(95));
}

TEST(SmoothPointTest, EachPixelHasItsOwnShare) {
    CTestPicture picture({10, 10});
    picture->DrawSmoothPoint({4.25f, 6.125f}); // 255 times 1/32, 3/32, 7/32, 21/32
    EXPECT_EQ(picture.GetGrey(4, 6), Weighted(7));
    EXPECT_EQ(picture.GetGrey(5, 6), Weighted(23));
    EXPECT_EQ(picture.GetGrey(4, 7), Weighted(55));
    EXPECT_EQ(picture.GetGrey(5, 7), Weighted(167));
}

TEST(SmoothPointTest, APointOnAPixelGivesAllItsWeightToTheDiagonalNeighbour) {
    CTestPicture picture({10, 10});
    picture->DrawSmoothPoint({4.0f, 6.0f});
    EXPECT_EQ(picture.GetGrey(4, 6), 0);
    EXPECT_EQ(picture.GetGrey(5, 6), 0);
    EXPECT_EQ(picture.GetGrey(4, 7), 0);
    EXPECT_EQ(picture.GetGrey(5, 7), 254);
    // A weight of 0 is a write too.
    EXPECT_EQ(picture.GetWord(4, 6), 0xFF000000u);
}

TEST(SmoothPointTest, TheBorderOfTheClipIsNeverTouched) {
    CTestPicture picture({12, 12});
    picture->IntersectClip({2, 3, 6, 5}); // columns 2 to 7, rows 3 to 7
    std::mt19937 random(11);
    std::uniform_real_distribution<float> coordinate(-2.0f, 13.0f);
    std::vector<C2DFloatPoint> points;
    for (int i = 0; i < 4000; ++i)
        points.push_back({coordinate(random), coordinate(random)});
    picture->DrawSmoothPoints(points.data(), static_cast<int>(points.size()));
    EXPECT_EQ(picture.GetText(), "............\n............\n............\n............\n"
                                 "...####.....\n...####.....\n...####.....\n............\n"
                                 "............\n............\n............\n............\n");
}

// The pixels of a point are tested one by one, by axis.
TEST(SmoothPointTest, APointBesideTheBorderKeepsThePixelsInside) {
    CTestPicture picture({6, 6});
    picture->DrawSmoothPoint({0.5f, 0.5f});
    EXPECT_EQ(picture.GetText(), "......\n.#....\n......\n......\n......\n......\n");
    picture->DrawSmoothPoint({4.5f, 2.5f});
    EXPECT_EQ(picture.GetText(), "......\n.#....\n....#.\n....#.\n......\n......\n");
}

TEST(SmoothPointTest, NoPointsDrawNothing) {
    CTestPicture picture({6, 6});
    const C2DFloatPoint point{2.5f, 2.5f};
    picture->DrawSmoothPoints(&point, 0);
    picture->DrawSmoothPoints(&point, -4);
    picture->DrawSmoothPoints(nullptr, 0);
    EXPECT_TRUE(picture.IsBlack());
}

} // namespace
} // namespace Vorin::Graphics::Testing
