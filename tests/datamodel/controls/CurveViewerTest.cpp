#include "datamodel/controls/CurveViewer.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/controls/Params.h"
#include "datamodel/objects/CaptureCurve.h"
#include "math/Constant.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;
using CSquare = Math::TFunction<&Math::FunctionsLibrary::Square>;
using CLog = Math::TFunction<&Math::FunctionsLibrary::Log>;

/// y = x squared over -2 to 2, shown from 0 to 4.
struct CCurveFixture {
    CCurveFixture()
        : curve(CCurveInfo("Parabola", "", MakeInfo(kParamReal, -2.0, 2.0),
                           MakeInfo(kParamReal, 0.0, 4.0))),
          viewer(curve) {
        curve.SetValue(CSquare());
        log.Listen(viewer.GetChangedEvents(), "changed");
        log.Listen(viewer.GetConfigEvents(), "config");
        log.Listen(viewer.GetZoomEvents(), "zoom");
    }

    CCaptureCurve curve;
    CCurveViewer viewer;
    CEventLog log;
};

TEST(CurveViewerTest, GivesThePositionOfTheValueAtAPosition) {
    CCurveFixture f;
    EXPECT_EQ(f.viewer.GetValue(true, 0.0), 1.0);
    EXPECT_EQ(f.viewer.GetValue(true, 0.25), 0.25);
    EXPECT_EQ(f.viewer.GetValue(true, 0.5), 0.0);
    EXPECT_EQ(f.viewer.GetValue(true, 1.0), 1.0);
    EXPECT_EQ(&f.viewer.GetObject(), &f.curve);
}

TEST(CurveViewerTest, OnlyTheValueIsClamped) {
    CCurveFixture f;
    EXPECT_EQ(f.viewer.GetValue(false, 1.5), 4.0) << "16 of 4";
    EXPECT_EQ(f.viewer.GetValue(true, 1.5), 1.0);
}

TEST(CurveViewerTest, BothConfigsTakePart) {
    CCurveFixture f;
    f.viewer.GetXConfig().SetReversed(true);
    f.viewer.GetXConfig().SetZoom(2.0); // x from 2 to 0
    f.viewer.GetYConfig().SetZoom(2.0); // y from 0 to 2
    EXPECT_EQ(f.viewer.GetValue(false, 0.5), 0.5) << "1 of 2";
    EXPECT_EQ(f.viewer.GetValue(false, 0.0), 2.0) << "4 of 2";
    f.viewer.GetXConfig().SetPositionsCount(3); // at 2, 0 and -2
    EXPECT_EQ(f.viewer.GetValue(true, 0.4), 1.0) << "the first step";
    EXPECT_EQ(f.viewer.GetValue(true, 0.6), 0.0) << "the second step";
}

TEST(CurveViewerTest, NumbersThatAreNoneStayWithinZeroToOneWhenClamped) {
    CCurveFixture f;
    f.curve.SetValue(CLog()); // -inf at 0, NaN below
    EXPECT_EQ(f.viewer.GetValue(true, 0.5), 0.0);
    EXPECT_EQ(f.viewer.GetValue(true, 0.25), 0.0);
    EXPECT_EQ(f.viewer.GetValue(true, kNaN), 0.0);
    EXPECT_EQ(f.viewer.GetValue(true, kInfinity), 1.0);
    EXPECT_EQ(f.viewer.GetValue(false, 0.5), -kInfinity);
}

TEST(CurveViewerTest, AConfigEventOfAnAxisIsAConfigEventThenAChange) {
    CCurveFixture f;
    f.viewer.GetXConfig().SetReversed(true);
    EXPECT_EQ(f.log.Take(), "config changed");
    f.viewer.GetYConfig().SetPositionsCount(7);
    EXPECT_EQ(f.log.Take(), "config changed");
    f.curve.GetInfo().GetYInfo().SetMax(8.0);
    EXPECT_EQ(f.viewer.GetValue(true, 1.0), 0.5);
}

TEST(CurveViewerTest, AZoomEventComesAheadOfTheConfigEvent) {
    CCurveFixture f;
    f.viewer.GetYConfig().SetZoom(2.0);
    EXPECT_EQ(f.log.Take(), "zoom config changed");
    f.viewer.GetYConfig().SetZoomPosition(0.5);
    EXPECT_EQ(f.log.Take(), "config changed");
}

TEST(CurveViewerTest, AnotherValueIsAChange) {
    CCurveFixture f;
    f.curve.SetValue(Math::CConstantFunction(1.0));
    EXPECT_EQ(f.log.Take(), "changed");
    EXPECT_EQ(f.viewer.GetValue(true, 0.9), 0.25);
    f.viewer.Update();
    EXPECT_EQ(f.log.Take(), "changed");
}

TEST(CurveViewerTest, SwappingIsAConfigEventThenAChange) {
    CCurveFixture f;
    EXPECT_FALSE(f.viewer.IsSwapped());
    f.viewer.SetSwapped(true);
    EXPECT_TRUE(f.viewer.IsSwapped());
    EXPECT_EQ(f.log.Take(), "config changed");
    f.viewer.SetSwapped(true);
    EXPECT_EQ(f.log.Take(), "");
}

TEST(CurveViewerTest, AnotherCurveBringsItsAxes) {
    CCurveFixture f;
    CCaptureCurve other(
        CCurveInfo("Line", "", MakeInfo(kParamReal, 0.0, 1.0), MakeInfo(kParamReal, 0.0, 2.0)));
    other.SetValue(Math::CConstantFunction(1.0));
    f.viewer.Connect(other);
    EXPECT_EQ(f.log.Take(), "config changed config changed changed") << "x, y, object";
    EXPECT_EQ(f.viewer.GetValue(true, 0.5), 0.5);
    EXPECT_EQ(f.viewer.GetXConfig().GetInfo().GetMax(), 1.0);
    EXPECT_EQ(f.viewer.GetYConfig().GetInfo().GetMax(), 2.0);

    f.curve.SetValue(CLog());
    f.curve.GetInfo().GetXInfo().SetMax(9.0);
    EXPECT_EQ(f.log.Take(), "") << "the curve before is let go of";
    other.SetValue(CSquare());
    EXPECT_EQ(f.log.Take(), "changed");
    f.viewer.Connect(f.curve); // `other` dies first
}

TEST(CurveViewerTest, ResetGivesEveryAxisItsNaturalCount) {
    CCaptureCurve curve(
        CCurveInfo("Steps", "", MakeInfo(kParamInteger, 0.0, 9.0), MakeInfo(kParamReal, 0.0, 1.0)));
    CCurveViewer viewer(curve);
    EXPECT_EQ(viewer.GetXConfig().GetVisiblePositionsCount(), 10.0);
    viewer.GetXConfig().SetPositionsCount(3);
    viewer.GetYConfig().SetPositionsCount(3);
    viewer.ResetPositionsCount();
    EXPECT_EQ(viewer.GetXConfig().GetPositionsCount(), 10);
    EXPECT_EQ(viewer.GetYConfig().GetPositionsCount(), -1);
}

TEST(CurveViewerTest, CapturedIsWhatTheCurveIs) {
    CCurveFixture f;
    CEventLog log;
    log.Listen(f.viewer.GetCaptureEvents(), "capture");
    log.Listen(f.viewer.GetReleaseEvents(), "release");
    f.curve.Capture();
    EXPECT_TRUE(f.viewer.IsCaptured());
    f.curve.Release();
    EXPECT_FALSE(f.viewer.IsCaptured());
    EXPECT_EQ(log.Take(), "capture release");
}

TEST(CurveViewerTest, ACurveThatWasNeverSetIsAFlatLine) {
    CCaptureCurve curve;
    const CCurveViewer viewer(curve);
    EXPECT_EQ(viewer.GetValue(true, 0.5), 0.0);
    EXPECT_EQ(viewer.GetValue(false, kInfinity), 0.0);
}

TEST(CurveViewerTest, TheDestructorLetsGoOfTheCurve) {
    CCaptureCurve curve;
    { const CCurveViewer viewer(curve); }
    curve.SetValue(CSquare()); // would run commands that are gone
    curve.Capture();
    curve.Release();
    curve.GetInfo().GetXInfo().SetMax(2.0);
    EXPECT_EQ(curve.GetValue().Evaluate(3.0), 9.0);
}

} // namespace
} // namespace Vorin::DataModel::Controls
