#include "ProgramTest.h"

#include "Picture.h"

#include <cmath>

namespace WorkbenchTests {
namespace {

class Demo : public CProgramTest {};

TEST_F(Demo, WritesAStereoWavThatIsNotClipped) {
    EXPECT_EQ(Run({"demo", "-o", Path("demo.wav")}), "");
    SF_INFO info{};
    SNDFILE* file = sf_open(Path("demo.wav").c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr);
    sf_close(file);
    EXPECT_EQ(info.format & SF_FORMAT_TYPEMASK, SF_FORMAT_WAV);
    EXPECT_EQ(info.channels, 2);
    EXPECT_GE(info.frames, info.samplerate) << "less than the trace holds";
    const CSound sound = ReadSound(Path("demo.wav"));
    for (const auto& channel : sound.channels) {
        float peak = 0.0F;
        for (const float value : channel) {
            peak = std::max(peak, std::fabs(value));
        }
        EXPECT_GT(peak, 0.3F);
        EXPECT_LT(peak, 1.0F);
    }
    EXPECT_NE(sound.GetLeft(), sound.GetRight());
}

TEST_F(Demo, IsTheSameEachTimeAndEverywhere) {
    ExpectSuccess(RunOndara({"demo", "--output", Path("demo.wav")}));
    EXPECT_TRUE(Run({"demo", "-o", "-"}) == folder.Read("demo.wav"));
}

TEST_F(Demo, IsReadByScope) {
    ExpectSuccess(RunOndara({"demo", "-o", Path("demo.wav")}));
    const CReadDocument document = ReadScope(Path("demo.wav"), {"--flush"});
    EXPECT_EQ(document.frames, ReadSound(Path("demo.wav")).GetFrames());
    for (const CReadCurve& curve : document.curves) {
        const auto [least, most] = std::minmax_element(curve.y.begin(), curve.y.end());
        EXPECT_GT(*most - *least, 0.1) << curve.name;
    }
    EXPECT_EQ(ReadPng(RunScope(Path("demo.wav"), "png", {"--view", "trigger"})).width, 800);
}

} // namespace
} // namespace WorkbenchTests
