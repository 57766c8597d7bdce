#include "CurveText.h"

#include "Curves.h"
#include "Json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Workbench {
namespace {

using namespace WorkbenchTests;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

CCurve MakeCurve(std::string name, std::string unit, std::vector<CPoint> points) {
    return {std::move(name), std::move(unit), -1.0, 1.0, std::move(points)};
}

TEST(CurveText, IsOneLineOfJson) {
    EXPECT_EQ(WriteJson({MakeCurve("Waveform (1)", "s", {{-1.0, 0.25}, {0.0, -1e-9}}),
                         MakeCurve("Histogram (1)", "", {{1.0, 1.0}})},
                        48000.0, 96000),
              "{\"sample_rate\":48000,\"frames\":96000,\"curves\":["
              "{\"name\":\"Waveform (1)\",\"unit_x\":\"s\",\"points\":[[-1,0.25],[0,-1e-09]]},"
              "{\"name\":\"Histogram (1)\",\"unit_x\":\"\",\"points\":[[1,1]]}]}\n");
}

TEST(CurveText, IsARowOfCsvPerPoint) {
    EXPECT_EQ(WriteCsv({MakeCurve("Waveform (1)", "s", {{-1.0, 0.25}, {0.0, 0.5}}),
                        MakeCurve("Histogram (1)", "", {{1.0, 1.0}})}),
              "curve,x,y\nWaveform (1),-1,0.25\nWaveform (1),0,0.5\nHistogram (1),1,1\n");
}

TEST(CurveText, OfNoCurvesIsStillADocument) {
    EXPECT_TRUE(ReadJsonCurves(WriteJson({}, 8000.0, 1)).curves.empty());
    EXPECT_EQ(WriteCsv({}), "curve,x,y\n");
}

TEST(CurveText, StaysJsonWhateverTheValues) {
    const std::string text = WriteJson(
        {MakeCurve("w", "s", {{0.0, kNaN}, {1.0, kInfinity}, {2.0, -kInfinity}})}, 8.0, 3);
    EXPECT_NE(text.find("[[0,null],[1,1e999],[2,-1e999]]"), std::string::npos) << text;
    const auto curves = ReadJsonCurves(text).curves;
    ASSERT_EQ(curves.size(), 1U);
    EXPECT_TRUE(std::isnan(curves[0].y[0]));
    EXPECT_EQ(curves[0].y[1], kInfinity);
    EXPECT_EQ(curves[0].y[2], -kInfinity);
}

TEST(CurveText, WritesWhatIsNoNumberIntoCsvByName) {
    EXPECT_EQ(WriteCsv({MakeCurve("w", "s", {{0.0, kNaN}, {1.0, kInfinity}, {2.0, -kInfinity}})}),
              "curve,x,y\nw,0,nan\nw,1,inf\nw,2,-inf\n");
}

TEST(CurveText, EscapesNamesInJson) {
    const std::string text = WriteJson({MakeCurve("a\"b\\c", "\"", {})}, 8.0, 3);
    const CJson curve = ParseJson(text).At("curves").items.at(0);
    EXPECT_EQ(curve.At("name").text, "a\"b\\c");
    EXPECT_EQ(curve.At("unit_x").text, "\"");
}

TEST(CurveText, WritesRatesAndFramesAsWholeNumbers) {
    for (const double rate : {8.0, 100000.0, 200000.0, 384000.0, 1000000.0}) {
        const auto document = ReadJsonCurves(WriteJson({}, rate, 100000));
        EXPECT_EQ(document.rate, rate);
        EXPECT_EQ(document.frames, 100000.0);
    }
}

} // namespace
} // namespace Workbench
