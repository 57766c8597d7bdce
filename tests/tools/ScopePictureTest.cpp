#include "Picture.h"
#include "ProgramTest.h"

#include <cmath>
#include <map>

namespace WorkbenchTests {
namespace {

/// The first channel is drawn in a bright green to blue, the second in a bright orange.
bool IsFirst(const CPicture::Pixel& pixel) {
    return pixel[1] > 150 && pixel[2] > 130 && pixel[0] + 60 < pixel[1];
}
bool IsSecond(const CPicture::Pixel& pixel) {
    return pixel[0] > 180 && pixel[2] + 60 < pixel[0] && pixel[1] < pixel[0];
}

template <class Is>
int Count(const CPicture& picture, int top, int bottom, Is is) {
    int count = 0;
    for (int y = top; y < bottom; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            count += is(picture.At(x, y)) ? 1 : 0;
        }
    }
    return count;
}

class ScopePicture : public CProgramTest {
protected:
    CPicture Draw(const std::string& path, const Words& options = {}) const {
        return ReadPng(RunScope(path, "png", options));
    }

    /// A picture of a sound that stands at one level, the second channel at the opposite one.
    CPicture DrawLevel(float level) const {
        const CSound sound{1000,
                           {std::vector<float>(1100, level), std::vector<float>(1100, -level)}};
        return Draw(MakeFile("level.wav", sound, kWavFloat), {"--flush"});
    }

    /// The mean row of the first channel's pixels within a column.
    static double RowOfFirst(const CPicture& picture, int x) {
        double sum = 0.0;
        int count = 0;
        for (int y = 0; y < picture.height / 2; ++y) {
            if (IsFirst(picture.At(x, y))) {
                sum += y;
                ++count;
            }
        }
        return count > 0 ? sum / count : -1.0;
    }

    const std::string input = MakeFile("in.wav", MakeSound(8000, 2, 12000), kWavFloat);
};

TEST_F(ScopePicture, Is800By400UnlessTold) {
    const CPicture picture = Draw(input);
    EXPECT_EQ(picture.width, 800);
    EXPECT_EQ(picture.height, 400);
}

TEST_F(ScopePicture, HasTheSizeThatIsAskedFor) {
    const std::pair<int, int> sizes[] = {{160, 120},  {161, 121},  {640, 480},
                                         {300, 1000}, {8192, 120}, {160, 8192}};
    for (const auto& [width, height] : sizes) {
        const CPicture picture =
            Draw(input, {"--size", std::to_string(width) + "x" + std::to_string(height)});
        EXPECT_EQ(picture.width, width);
        EXPECT_EQ(picture.height, height);
        EXPECT_GT(Count(picture, 0, height / 2, IsFirst), 0);
        EXPECT_GT(Count(picture, height / 2, height, IsSecond), 0);
    }
}

TEST_F(ScopePicture, IsOpaque) {
    const CPicture picture = Draw(input);
    EXPECT_EQ(Count(picture, 0, picture.height, [](const auto& pixel) { return pixel[3] != 255; }),
              0);
}

TEST_F(ScopePicture, ShowsEachChannelInItsColourInItsHalf) {
    const CPicture picture = Draw(input);
    const int half = picture.height / 2;
    EXPECT_GT(Count(picture, 0, half, IsFirst), 1000);
    EXPECT_GT(Count(picture, half, picture.height, IsSecond), 1000);
    EXPECT_EQ(Count(picture, half, picture.height, IsFirst), 0);
    EXPECT_EQ(Count(picture, 0, half, IsSecond), 0);
}

TEST_F(ScopePicture, IsNotOneFlatColour) {
    const CPicture picture = Draw(input);
    std::map<CPicture::Pixel, int> colours;
    for (const CPicture::Pixel& pixel : picture.pixels) {
        ++colours[pixel];
    }
    EXPECT_GT(colours.size(), 20U);
    for (const auto& [colour, count] : colours) {
        EXPECT_LT(count, picture.width * picture.height * 9 / 10);
    }
}

TEST_F(ScopePicture, PutsHigherLevelsHigher) {
    // The waveform's panel takes the left part of the upper half but for a margin.
    const double top = RowOfFirst(DrawLevel(1.0F), 300);
    const double middle = RowOfFirst(DrawLevel(0.0F), 300);
    const double bottom = RowOfFirst(DrawLevel(-1.0F), 300);
    EXPECT_GE(top, 0.0);
    EXPECT_LE(top, 20.0);
    EXPECT_GE(bottom, 180.0);
    EXPECT_LT(bottom, 200.0);
    EXPECT_NEAR(middle, (top + bottom) / 2, 2.0);
    EXPECT_NEAR(RowOfFirst(DrawLevel(0.5F), 300), (top + middle) / 2, 2.0);
}

TEST_F(ScopePicture, ShowsTheHistogramBesideTheTrace) {
    // At the far right, the bar of a sound at one level stands in the row of its trace.
    const CPicture picture = DrawLevel(0.5F);
    int right = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 600; x < 800; ++x) {
            if (IsFirst(picture.At(x, y)) && x > right) {
                right = x;
            }
        }
    }
    EXPECT_GT(right, 750);
    EXPECT_NEAR(RowOfFirst(picture, right), RowOfFirst(picture, 300), 3.0);
}

TEST_F(ScopePicture, FollowsTheView) {
    const std::string flow = RunScope(input, "png", {"--view", "flow"});
    EXPECT_FALSE(RunScope(input, "png", {"--view", "loop"}) == flow);
    EXPECT_FALSE(RunScope(input, "png", {"--stereo-mode", "mid-side"}) == flow);
    EXPECT_FALSE(RunScope(input, "png", {"--bypass"}) == flow);
    EXPECT_TRUE(RunScope(input, "png", {"--points", "2"}) == flow)
        << "pictures choose their points";
}

TEST_F(ScopePicture, LeavesGapsWhereThereAreNoNumbers) {
    CSound sound{1000, {std::vector<float>(1000, 0.25F), std::vector<float>(1000, 0.25F)}};
    std::fill_n(sound.channels[0].begin() + 400, 200, std::nanf(""));
    const CPicture picture = Draw(MakeFile("gap.wav", sound, kWavFloat), {"--flush"});
    EXPECT_GT(RowOfFirst(picture, 100), 0.0);
    EXPECT_EQ(RowOfFirst(picture, 320), -1.0); // in the middle of the trace
    EXPECT_GT(RowOfFirst(picture, 500), 0.0);
}

TEST_F(ScopePicture, OfNoNumbersAtAllIsDrawn) {
    const CSound sound{
        1000, {std::vector<float>(1000, std::nanf("")), std::vector<float>(1000, -INFINITY)}};
    const CPicture picture = Draw(MakeFile("none.wav", sound, kWavFloat), {"--flush"});
    EXPECT_EQ(picture.width, 800);
    EXPECT_EQ(RowOfFirst(picture, 300), -1.0);
}

} // namespace
} // namespace WorkbenchTests
