#include "ProgramTest.h"

#include <cmath>

namespace WorkbenchTests {
namespace {

class ScopeFormats : public CProgramTest {
protected:
    const std::string input = MakeFile("in.wav", MakeSound(8000, 2, 12000), kWavFloat);
};

TEST_F(ScopeFormats, JsonNamesRateFramesAndCurves) {
    const CReadDocument document = ReadScope(input);
    EXPECT_EQ(document.rate, 8000.0);
    EXPECT_EQ(document.frames, 12000.0);
    ASSERT_EQ(document.curves.size(), 4U);
    const char* const names[] = {"Waveform (1)", "Histogram (1)", "Waveform (2)", "Histogram (2)"};
    const char* const units[] = {"s", "", "s", ""};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(document.curves[i].name, names[i]);
        EXPECT_EQ(document.curves[i].unitX, units[i]);
    }
}

TEST_F(ScopeFormats, JsonIsOneLine) {
    const std::string text = RunScope(input, "json");
    EXPECT_EQ(text.find('\n'), text.size() - 1);
}

TEST_F(ScopeFormats, PointsGoFromEndToEndAtEvenDistances) {
    for (const int count : {2, 3, 151, 512, 4001}) {
        const auto curves = ReadScope(input, {"--points", std::to_string(count)}).curves;
        ASSERT_EQ(curves.size(), 4U);
        for (const CReadCurve& curve : curves) {
            const double max = curve.unitX == "s" ? 0.0 : 1.0;
            ASSERT_EQ(curve.x.size(), static_cast<std::size_t>(count));
            EXPECT_EQ(curve.x.front(), -1.0);
            EXPECT_EQ(curve.x.back(), max);
            for (int i = 0; i < count; ++i) {
                EXPECT_NEAR(curve.x[static_cast<std::size_t>(i)],
                            -1.0 + i * (max + 1.0) / (count - 1), 1e-15);
            }
        }
    }
}

TEST_F(ScopeFormats, ThereAre512PointsUnlessTold) {
    for (const CReadCurve& curve : ReadScope(input).curves) {
        EXPECT_EQ(curve.x.size(), 512U);
    }
}

TEST_F(ScopeFormats, CsvHoldsTheSameNumbersAsJson) {
    const Words options = {"--points", "777", "--flush"};
    const auto fromJson = ReadScope(input, options).curves;
    const auto fromCsv = ReadCsvCurves(RunScope(input, "csv", options));
    ASSERT_EQ(fromCsv.size(), fromJson.size());
    for (std::size_t i = 0; i < fromCsv.size(); ++i) {
        EXPECT_EQ(fromCsv[i].name, fromJson[i].name);
        EXPECT_EQ(fromCsv[i].x, fromJson[i].x);
        EXPECT_EQ(fromCsv[i].y, fromJson[i].y);
    }
}

TEST_F(ScopeFormats, FollowTheEndOfTheName) {
    for (const char* format : {"json", "csv", "png"}) {
        const std::string name = std::string("out.") + format;
        EXPECT_EQ(Run({"scope", input, "-o", Path(name)}), "");
        EXPECT_EQ(folder.Read(name), RunScope(input, format));
    }
}

TEST_F(ScopeFormats, AreTakenFromTheOptionBeforeTheName) {
    EXPECT_EQ(Run({"scope", input, "-o", Path("out.json"), "--format", "csv"}), "");
    EXPECT_EQ(folder.Read("out.json"), RunScope(input, "csv"));
    EXPECT_EQ(Run({"scope", input, "-o", Path("out"), "--format", "json"}), "");
    EXPECT_EQ(folder.Read("out"), RunScope(input, "json"));
}

TEST_F(ScopeFormats, AreNotGuessedFromOtherNames) {
    for (const char* name : {"out", "out.txt", "out.JSON", "json", "out.json.bak", "out.jso"}) {
        ExpectRefused({"scope", input, "-o", Path(name)}, 2, Path(name));
    }
    for (const char* name : {".json", ".csv", ".png", "-"}) {
        ExpectRefused({"scope", input, "-o", name}, 2, name);
    }
}

TEST_F(ScopeFormats, OptionsMayStandInAnyOrder) {
    const std::string expected = RunScope(input, "json", {"--points", "9", "--view", "loop"});
    EXPECT_EQ(Run({"scope", "--view", "loop", "--output", "-", "--points", "9", "--format", "json",
                   input}),
              expected);
}

TEST_F(ScopeFormats, TheLastOfARepeatedOptionCounts) {
    EXPECT_EQ(RunScope(input, "json", {"--points", "9", "--points", "11"}),
              RunScope(input, "json", {"--points", "11"}));
}

TEST_F(ScopeFormats, NumbersReadBackAsTheSamplesThatWereFed) {
    // Ten samples at 10 Hz are the whole trace, so that each point is a sample, if not quite: the
    // places between are rounded. The ends are exact.
    const float awkward = 0.1234567F;
    std::vector<float> samples(10, 0.5F);
    samples[0] = awkward;
    samples[9] = -1e-30F;
    const std::string path = MakeFile("ten.wav", MakeMono(10, samples), kWavFloat);
    const Words options = {"--points", "10", "--flush"};
    const CReadCurve json = ReadScope(path, options).curves.at(0);
    const CReadCurve csv = ReadCsvCurves(RunScope(path, "csv", options)).at(0);
    for (const CReadCurve& curve : {json, csv}) {
        EXPECT_EQ(curve.y.front(), static_cast<double>(awkward));
        EXPECT_EQ(curve.y.back(), static_cast<double>(-1e-30F));
    }
}

TEST_F(ScopeFormats, ARepeatedRunGivesTheSameBytes) {
    for (const char* format : {"json", "csv", "png"}) {
        EXPECT_EQ(RunScope(input, format), RunScope(input, format));
    }
}

} // namespace
} // namespace WorkbenchTests
