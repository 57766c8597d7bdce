// Whole-pixel lines, points and rectangles, against pictures made by hand.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "TestPicture.h"

namespace Vorin::Graphics::Testing {
namespace {

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();

// dx = 5, dy = 2: the error runs 2, 0, -2+5, 1, -1+5, 2, 0; below 0 the next row begins.
TEST(LineTest, AShallowLineStepsWhereTheErrorFallsBelowZero) {
    CTestPicture picture({6, 3});
    picture->DrawLine({0, 0}, {5, 2});
    EXPECT_EQ(picture.GetText(), "##....\n"
                                 "..##..\n"
                                 "....##\n");
}

TEST(LineTest, ASteepLineIsTheShallowOneWithItsAxesExchanged) {
    CTestPicture picture({3, 6});
    picture->DrawLine({0, 0}, {2, 5});
    EXPECT_EQ(picture.GetText(), "#..\n#..\n.#.\n.#.\n..#\n..#\n");
}

TEST(LineTest, ARisingLineGoesUp) {
    CTestPicture picture({6, 3});
    picture->DrawLine({0, 2}, {5, 0});
    EXPECT_EQ(picture.GetText(), "....##\n"
                                 "..##..\n"
                                 "##....\n");
}

TEST(LineTest, TheDirectionDoesNotMatter) {
    for (int y = -3; y <= 12; ++y) {
        CTestPicture there({10, 10});
        CTestPicture back({10, 10});
        there->DrawLine({1, 4}, {8, std::clamp(y, 0, 9)});
        back->DrawLine({8, std::clamp(y, 0, 9)}, {1, 4});
        EXPECT_EQ(there.GetText(), back.GetText()) << y;
    }
}

TEST(LineTest, BothEndPointsAreDrawn) {
    CTestPicture picture({3, 3});
    picture->DrawLine({1, 1}, {1, 1});
    EXPECT_EQ(picture.GetText(), "...\n.#.\n...\n");
}

TEST(LineTest, ALineWhollyOutsideTheClipWritesNothing) {
    CTestPicture picture({10, 10});
    picture->IntersectClip({2, 2, 5, 5});
    picture->DrawLine({0, 0}, {9, 0});
    picture->DrawLine({0, 8}, {9, 9});
    picture->DrawLine({1, 0}, {1, 9});
    picture->DrawLine({7, 0}, {9, 9});
    picture->DrawLine({0, 3}, {3, 0}); // passes the corner
    picture->DrawSmoothLine({0.0f, 1.0f}, {9.0f, 1.0f});
    picture->DrawSmoothLine({0.0f, 7.0f}, {9.0f, 8.5f});
    picture->DrawSmoothLine({1.4f, 0.0f}, {1.0f, 9.0f});
    EXPECT_TRUE(picture.IsBlack());
}

TEST(LineTest, ALineWithOneEndOutsideEndsOnTheLastPixelOfTheClip) {
    CTestPicture picture({10, 4});
    picture->IntersectClip({2, 1, 5, 2});
    picture->DrawLine({4, 1}, {30, 1});
    picture->DrawLine({4, 2}, {-30, 2});
    EXPECT_EQ(picture.GetText(), "..........\n"
                                 "....###...\n"
                                 "..###.....\n"
                                 "..........\n");
}

// Cut at the top: x = 1 + 3 * 4 / 7 = 1 + 1. Steep from (2, 0): the error runs 2, -1+4, 0, -3+4,
// -2+4.
TEST(LineTest, AnIntersectionTruncatesTheQuotient) {
    CTestPicture picture({8, 6});
    picture->DrawLine({1, -3}, {5, 4});
    EXPECT_EQ(picture.GetText(), "..#.....\n"
                                 "...#....\n"
                                 "...#....\n"
                                 "....#...\n"
                                 ".....#..\n"
                                 "........\n");
}

// x = 5 + 3 * -4 / 7 = 5 - 1, not 5 - 2.
TEST(LineTest, AnIntersectionTruncatesTowardsZero) {
    CTestPicture picture({8, 6});
    picture->DrawLine({5, -3}, {1, 4});
    EXPECT_EQ(picture.GetGrey(4, 0), 255);
    EXPECT_EQ(picture.GetGrey(3, 0), 0);
}

// Above and left of the clip: cut at the top first, x = -5 + 3 * 13 / 7 = 0, which is inside. Cut
// at the left first it would begin at (1, 0).
TEST(LineTest, TheTopIsCutBeforeTheLeft) {
    CTestPicture picture({9, 5});
    picture->DrawLine({-5, -3}, {8, 4});
    EXPECT_EQ(picture.GetText(), "##.......\n"
                                 "..##.....\n"
                                 "....##...\n"
                                 "......##.\n"
                                 "........#\n");
}

TEST(LineTest, TheFarthestCoordinatesKeepTheirDirection) {
    CTestPicture picture({5, 5});
    picture->DrawLine({kIntMin, kIntMin}, {kIntMax, kIntMax});
    EXPECT_EQ(picture.GetText(), "#....\n.#...\n..#..\n...#.\n....#\n");
    picture->DrawLine({kIntMin, 2}, {kIntMax, 2});
    picture->DrawLine({2, kIntMax}, {2, kIntMin});
    EXPECT_EQ(picture.GetText(), "#.#..\n.##..\n#####\n..##.\n..#.#\n");
}

TEST(LineTest, APolylineNeedsTwoPoints) {
    CTestPicture picture({5, 3});
    const Core::C2DPoint points[] = {{0, 0}, {4, 0}, {4, 2}};
    picture->DrawPolyline(points, 1);
    picture->DrawPolyline(points, 0);
    picture->DrawPolyline(points, -1);
    picture->DrawPolyline(points, kIntMin);
    picture->DrawPolyline(nullptr, 0);
    EXPECT_TRUE(picture.IsBlack());
    picture->DrawPolyline(points, 3);
    EXPECT_EQ(picture.GetText(), "#####\n....#\n....#\n");
}

TEST(LineTest, PointsOutsideTheClipAreLeftOut) {
    CTestPicture picture({5, 3});
    picture->IntersectClip({1, 0, 3, 2});
    const Core::C2DPoint points[] = {
        {0, 0}, {1, 0}, {3, 1}, {4, 1}, {2, 2}, {2, -1}, {-1, 1}, {kIntMin, kIntMin}, {kIntMax, 1}};
    picture->DrawPoints(points, 9);
    picture->DrawPoint({2, 1});
    picture->DrawPoint({4, 0});
    picture->DrawPoints(points, -3);
    EXPECT_EQ(picture.GetText(), ".#...\n..##.\n.....\n");
}

TEST(LineTest, ARectangleIsFramedInsideItsEdges) {
    CTestPicture picture({6, 5});
    picture->DrawRectangle({1, 1, 4, 3});
    EXPECT_EQ(picture.GetText(), "......\n.####.\n.#..#.\n.####.\n......\n");
}

TEST(LineTest, AnEmptyRectangleDrawsNothing) {
    CTestPicture picture({6, 5});
    picture->DrawRectangle({2, 2, 0, 3});
    picture->DrawRectangle({2, 2, 3, 0});
    picture->DrawRectangle({2, 2, 0, 0});
    picture->DrawRectangle({2, 2, -2, 2});
    picture->FillRectangle({2, 2, 0, 3});
    EXPECT_TRUE(picture.IsBlack());
}

TEST(LineTest, ARectangleOfOneByOneIsAPoint) {
    CTestPicture picture({5, 3});
    picture->DrawRectangle({3, 1, 1, 1});
    EXPECT_EQ(picture.GetText(), ".....\n...#.\n.....\n");
}

TEST(LineTest, AFrameAroundTheClipIsNotSeen) {
    CTestPicture picture({5, 3});
    picture->DrawRectangle({-1, -1, 7, 5});
    picture->DrawRectangle({kIntMin, kIntMin, kIntMax, kIntMax});
    EXPECT_TRUE(picture.IsBlack());
}

TEST(LineTest, ALineSetsAlphaToFull) {
    CTestPicture picture({4, 2});
    picture->SetPenColor({1, 2, 3});
    picture->DrawLine({1, 0}, {2, 0});
    picture->DrawPoint({3, 1});
    EXPECT_EQ(picture.GetWord(0, 0), 0u);
    EXPECT_EQ(picture.GetWord(1, 0), 0xFF010203u);
    EXPECT_EQ(picture.GetWord(2, 0), 0xFF010203u);
    EXPECT_EQ(picture.GetWord(3, 1), 0xFF010203u);
}

} // namespace
} // namespace Vorin::Graphics::Testing
