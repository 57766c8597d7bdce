#include "datamodel/controls/ParamViewer.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/controls/Params.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

TEST(ParamViewerTest, ANewViewerShowsTheValue) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 10.0, 2.5));
    const CParamViewer viewer(param);
    EXPECT_EQ(viewer.GetPosition(), 0.25);
    EXPECT_EQ(&viewer.GetObject(), &param);
    EXPECT_FALSE(viewer.IsCaptured());
}

TEST(ParamViewerTest, FollowsTheValueAndTellsOnlyWhenThePositionMoves) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamViewer viewer(param);
    CEventLog log;
    log.Listen(viewer.GetPositionEvents(), "position");
    param.SetValue(0.5);
    EXPECT_EQ(viewer.GetPosition(), 0.5);
    EXPECT_EQ(log.Take(), "position");

    viewer.SetPositionsCount(3);
    EXPECT_EQ(log.Take(), "") << "0.5 is a step";
    param.SetValue(0.6);
    EXPECT_EQ(log.Take(), "") << "the nearest step is the same";
    viewer.Update();
    viewer.Refresh();
    EXPECT_EQ(log.Take(), "");
    param.SetValue(0.8);
    EXPECT_EQ(viewer.GetPosition(), 1.0);
    EXPECT_EQ(log.Take(), "position");
}

TEST(ParamViewerTest, AnyChangeOfTheMappingReachesThePosition) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0, 0.25));
    CParamViewer viewer(param);
    CEventLog log;
    log.Listen(viewer.GetPositionEvents(), "position");
    viewer.SetZoom(2.0);
    EXPECT_EQ(viewer.GetPosition(), 0.5);
    viewer.SetZoomPosition(0.25);
    EXPECT_EQ(viewer.GetPosition(), 0.25);
    viewer.SetZoom(1.0);
    EXPECT_EQ(viewer.GetPosition(), 0.25);
    viewer.SetReversed(true);
    EXPECT_EQ(viewer.GetPosition(), 0.75);
    viewer.SetReversed(false);
    viewer.SetResponseCurve(kParamValueCurveSquare);
    EXPECT_EQ(viewer.GetPosition(), 0.5);
    EXPECT_EQ(log.Take(), "position position position position position");
}

TEST(ParamViewerTest, AChangeOfTheRangeReachesThePosition) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0, 0.5));
    const CParamViewer viewer(param);
    param.GetInfo().SetMax(2.0);
    EXPECT_EQ(viewer.GetPosition(), 0.25);
    param.GetInfo().SetMax(0.25);
    EXPECT_EQ(param.GetValue(), 0.25);
    EXPECT_EQ(viewer.GetPosition(), 1.0);
}

TEST(ParamViewerTest, ThePositionIsClamped) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0, 1.0));
    CParamViewer viewer(param);
    viewer.SetZoom(4.0);
    EXPECT_EQ(viewer.GetPosition(), 1.0);
    param.SetValue(0.0);
    viewer.SetZoomPosition(1.0);
    EXPECT_EQ(viewer.GetPosition(), 0.0);
}

TEST(ParamViewerTest, AnotherObjectIsOnePositionEvent) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0, 0.5));
    CCaptureParam second(MakeInfo(kParamInteger, 0.0, 4.0, 3.0));
    CParamViewer viewer(first);
    CEventLog log;
    log.Listen(viewer.GetPositionEvents(), "position");
    log.Listen(viewer.GetConfigEvents(), "config");
    log.Listen(viewer.GetInfoEvents(), "info");
    viewer.Connect(second);
    EXPECT_EQ(log.Take(), "position config config info");
    EXPECT_EQ(viewer.GetPosition(), 0.75);
    EXPECT_EQ(viewer.GetPositionsCount(), 5);
    EXPECT_EQ(&viewer.GetInfo(), &static_cast<const CCaptureParam&>(second).GetInfo());

    first.SetValue(0.9);
    first.GetInfo().SetMax(7.0);
    EXPECT_EQ(log.Take(), "") << "the object before is let go of";
    second.SetValue(4.0);
    EXPECT_EQ(log.Take(), "position");
    EXPECT_EQ(viewer.GetPosition(), 1.0);
}

TEST(ParamViewerTest, AnObjectAtTheSamePositionIsNoPositionEvent) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0, 0.5));
    CCaptureParam second(MakeInfo(kParamReal, 0.0, 8.0, 4.0));
    CParamViewer viewer(first);
    CEventLog log;
    log.Listen(viewer.GetPositionEvents(), "position");
    viewer.Connect(second);
    viewer.Connect(second);
    EXPECT_EQ(log.Take(), "");
}

TEST(ParamViewerTest, MirrorsTheCaptureOfItsObjectApartFromItsOwn) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0));
    CCaptureParam second(MakeInfo(kParamReal, 0.0, 1.0));
    CParamViewer viewer(first);
    CEventLog log;
    log.Listen(viewer.GetCaptureEvents(), "capture");
    log.Listen(viewer.GetSourceCapture().GetCaptureEvents(), "sourceCapture");
    log.Listen(viewer.GetSourceCapture().GetReleaseEvents(), "sourceRelease");
    first.Capture();
    EXPECT_TRUE(viewer.GetSourceCapture().IsCaptured());
    EXPECT_FALSE(viewer.IsCaptured());
    first.Release();
    first.Capture();
    EXPECT_EQ(log.Take(), "sourceCapture sourceRelease sourceCapture");

    viewer.Connect(second);
    EXPECT_FALSE(viewer.GetSourceCapture().IsCaptured()) << "nobody holds this one";
    EXPECT_EQ(log.Take(), "sourceRelease");
    viewer.Connect(first);
    EXPECT_EQ(log.Take(), "sourceCapture");
    EXPECT_TRUE(CParamViewer(first).GetSourceCapture().IsCaptured());
}

TEST(ParamViewerTest, TheDestructorLetsGoOfTheObject) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    { const CParamViewer viewer(param); }
    param.SetValue(0.5); // would run commands that are gone
    param.Capture();
    param.Release();
    param.GetInfo().SetMax(2.0);
    EXPECT_EQ(param.GetValue(), 0.5);
}

TEST(ParamViewerTest, AListenerMayConnectAnotherObject) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0));
    CCaptureParam second(MakeInfo(kParamReal, 0.0, 1.0, 0.75));
    CParamViewer viewer(first);
    const CEventHook hook(viewer.GetPositionEvents(), [&] { viewer.Connect(second); });
    first.SetValue(0.5);
    EXPECT_EQ(viewer.GetPosition(), 0.75);
}

TEST(ParamViewerTest, ManyViewersOfOneObjectHaveMappingsOfTheirOwn) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0, 0.25));
    CParamViewer plain(param);
    CParamViewer reversed(param);
    reversed.SetReversed(true);
    EXPECT_EQ(plain.GetPosition(), 0.25);
    EXPECT_EQ(reversed.GetPosition(), 0.75);
}

} // namespace
} // namespace Vorin::DataModel::Controls
