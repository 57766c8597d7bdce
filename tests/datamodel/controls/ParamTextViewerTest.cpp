#include "datamodel/controls/ParamTextViewer.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/controls/Params.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

TEST(ParamTextViewerTest, ShowsTheValueAsTheInfoHasItWithTheUnit) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1000.0, 440.0));
    CParamTextViewer viewer(param);
    EXPECT_STREQ(viewer.GetValue(), "440.00 Hz");
    EXPECT_STREQ(viewer.GetDataToText().GetFormat(), "%.1f");
    EXPECT_STREQ(viewer.GetDataToText().GetPattern(), "{text_value} {unit}");
    EXPECT_EQ(&viewer.GetObject(), &param);
}

TEST(ParamTextViewerTest, WholeTypesAreFormattedWithoutDecimals) {
    for (const EParamType type : {kParamBoolean, kParamInteger, kParamSwitch}) {
        CCaptureParam param(MakeInfo(type, 0.0, 1.0, 1.0));
        CParamTextViewer viewer(param);
        EXPECT_STREQ(viewer.GetDataToText().GetFormat(), "%.0f");
        viewer.GetDataToText().SetPattern("{value}");
        EXPECT_STREQ(viewer.GetValue(), "1");
    }
}

TEST(ParamTextViewerTest, FollowsTheValueAndTellsOnlyWhenTheTextDiffers) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1000.0, 440.0));
    CParamTextViewer viewer(param);
    CEventLog log;
    log.Listen(viewer.GetValueChangedEvents(), "text");
    param.SetValue(441.0);
    EXPECT_STREQ(viewer.GetValue(), "441.00 Hz");
    EXPECT_EQ(log.Take(), "text");
    param.SetValue(441.001);
    EXPECT_EQ(log.Take(), "");
    viewer.Update();
    EXPECT_EQ(log.Take(), "");
}

TEST(ParamTextViewerTest, AChangeOfTheInfoIsRead) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1000.0, 440.0));
    CParamTextViewer viewer(param);
    CEventLog log;
    log.Listen(viewer.GetValueChangedEvents(), "text");
    param.GetInfo().SetUnit("kHz");
    EXPECT_STREQ(viewer.GetValue(), "440.00 kHz");
    EXPECT_EQ(log.Take(), "text");
}

TEST(ParamTextViewerTest, AFormatThatWasChosenOutlastsAChangeOfTheInfo) {
    CCaptureParam param(MakeInfo(kParamInteger, 0.0, 9.0, 5.0));
    CParamTextViewer viewer(param);
    viewer.GetDataToText().SetPattern("{value}");
    viewer.GetDataToText().SetFormat("%.3f");
    param.GetInfo().SetMax(8.0);
    EXPECT_STREQ(viewer.GetValue(), "5.000");
}

TEST(ParamTextViewerTest, AChangeOfTheConverterIsAnUpdate) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1000.0, 440.0));
    CParamTextViewer viewer(param);
    CEventLog log;
    log.Listen(viewer.GetValueChangedEvents(), "text");
    viewer.GetDataToText().SetPattern("{name}: {value}");
    EXPECT_STREQ(viewer.GetValue(), "Cutoff: 440.0");
    viewer.GetDataToText().SetFormat("%.2f");
    EXPECT_STREQ(viewer.GetValue(), "Cutoff: 440.00");
    EXPECT_EQ(log.Take(), "text text");
}

TEST(ParamTextViewerTest, AnotherObjectIsOneTextEvent) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1000.0, 440.0));
    CCaptureParam second(MakeInfo(kParamInteger, 0.0, 9.0, 5.0));
    second.GetInfo().SetUnit("st");
    CParamTextViewer viewer(first);
    CEventLog log;
    log.Listen(viewer.GetValueChangedEvents(), "text");
    viewer.Connect(second);
    EXPECT_STREQ(viewer.GetValue(), "5 st");
    EXPECT_EQ(log.Take(), "text");
    viewer.Connect(second);
    first.SetValue(1.0);
    first.GetInfo().SetUnit("Q");
    EXPECT_EQ(log.Take(), "");
    second.SetValue(6.0);
    EXPECT_STREQ(viewer.GetValue(), "6 st");
    EXPECT_EQ(log.Take(), "text");
}

TEST(ParamTextViewerTest, CapturedIsWhatTheParameterIs) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamTextViewer viewer(param);
    CEventLog log;
    log.Listen(viewer.GetCaptureEvents(), "capture");
    log.Listen(viewer.GetReleaseEvents(), "release");
    param.Capture();
    EXPECT_TRUE(viewer.IsCaptured());
    param.Release();
    EXPECT_FALSE(viewer.IsCaptured());
    EXPECT_EQ(log.Take(), "capture release");
}

TEST(ParamTextViewerTest, TheInfoMayChangeWhileAChangeOfTheConverterIsTold) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1000.0, 440.0));
    CParamTextViewer viewer(param);
    const CEventHook hook(viewer.GetValueChangedEvents(), [&] { param.GetInfo().SetUnit("cps"); });
    viewer.GetDataToText().SetPattern("{value} {unit}");
    EXPECT_STREQ(viewer.GetValue(), "440.0 cps");
}

TEST(ParamTextViewerTest, TheDestructorLetsGoOfTheObject) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    { const CParamTextViewer viewer(param); }
    param.SetValue(0.5); // would run commands that are gone
    param.Capture();
    param.Release();
    param.GetInfo().SetMax(2.0);
    EXPECT_EQ(param.GetValue(), 0.5);
}

} // namespace
} // namespace Vorin::DataModel::Controls
