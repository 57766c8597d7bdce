#include "datamodel/controls/SurfaceViewer.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/controls/Params.h"
#include "datamodel/objects/CaptureSurface.h"
#include "math/Constant.h"
#include "math/LibraryFunction.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;
using CDifference = Math::TBinaryFunction<&Math::FunctionsLibrary::Difference>;

/// z = x - y for x from 0 to 2 and y from 0 to 4, shown from -4 to 4.
struct CSurfaceFixture {
    CSurfaceFixture()
        : surface(CSurfaceInfo("Plane", "", MakeInfo(kParamReal, 0.0, 2.0),
                               MakeInfo(kParamReal, 0.0, 4.0), MakeInfo(kParamReal, -4.0, 4.0))),
          viewer(surface) {
        surface.SetValue(CDifference());
        log.Listen(viewer.GetChangedEvents(), "changed");
        log.Listen(viewer.GetConfigEvents(), "config");
        log.Listen(viewer.GetZoomEvents(), "zoom");
    }

    CCaptureSurface surface;
    CSurfaceViewer viewer;
    CEventLog log;
};

TEST(SurfaceViewerTest, GivesThePositionOfTheValueAtTwoPositions) {
    CSurfaceFixture f;
    EXPECT_EQ(f.viewer.GetValue(true, 0.0, 0.0), 0.5);
    EXPECT_EQ(f.viewer.GetValue(true, 1.0, 0.0), 0.75);
    EXPECT_EQ(f.viewer.GetValue(true, 0.0, 1.0), 0.0);
    EXPECT_EQ(f.viewer.GetValue(false, 0.0, 2.0), -0.5);
    EXPECT_EQ(f.viewer.GetValue(true, 0.0, 2.0), 0.0);
    EXPECT_EQ(f.viewer.GetValue(true, kNaN, 0.0), 0.0);
}

TEST(SurfaceViewerTest, AllThreeConfigsTakePart) {
    CSurfaceFixture f;
    f.viewer.GetXConfig().SetReversed(true);
    EXPECT_EQ(f.viewer.GetValue(true, 0.0, 0.0), 0.75);
    f.viewer.GetYConfig().SetReversed(true);
    EXPECT_EQ(f.viewer.GetValue(true, 0.0, 0.0), 0.25);
    f.viewer.GetZConfig().SetReversed(true);
    EXPECT_EQ(f.viewer.GetValue(true, 0.0, 0.0), 0.75);
    EXPECT_EQ(f.log.Take(), "config changed config changed config changed");
    f.viewer.GetZConfig().SetZoom(2.0);
    EXPECT_EQ(f.log.Take(), "zoom config changed");
}

TEST(SurfaceViewerTest, AnotherSurfaceBringsItsAxes) {
    CSurfaceFixture f;
    CCaptureSurface other(CSurfaceInfo("Flat", "", MakeInfo(kParamReal, 0.0, 1.0),
                                       MakeInfo(kParamReal, 0.0, 1.0),
                                       MakeInfo(kParamReal, 0.0, 2.0)));
    other.SetValue(Math::CConstantBinaryFunction(1.0));
    f.viewer.Connect(other);
    EXPECT_EQ(f.log.Take(), "config changed config changed config changed changed");
    EXPECT_EQ(f.viewer.GetValue(true, 0.3, 0.6), 0.5);
    EXPECT_EQ(&f.viewer.GetObject(), &other);
    f.viewer.Connect(f.surface); // `other` dies first
}

TEST(SurfaceViewerTest, ResetGivesEveryAxisItsNaturalCount) {
    CSurfaceFixture f;
    f.viewer.GetXConfig().SetPositionsCount(3);
    f.viewer.GetYConfig().SetPositionsCount(3);
    f.viewer.GetZConfig().SetPositionsCount(3);
    f.viewer.ResetPositionsCount();
    EXPECT_EQ(f.viewer.GetXConfig().GetPositionsCount(), -1);
    EXPECT_EQ(f.viewer.GetYConfig().GetPositionsCount(), -1);
    EXPECT_EQ(f.viewer.GetZConfig().GetPositionsCount(), -1);
}

TEST(SurfaceViewerTest, FollowsValueAndCapture) {
    CSurfaceFixture f;
    f.log.Listen(f.viewer.GetCaptureEvents(), "capture");
    f.log.Listen(f.viewer.GetReleaseEvents(), "release");
    f.surface.SetValue(Math::CConstantBinaryFunction(0.0));
    f.surface.Capture();
    EXPECT_TRUE(f.viewer.IsCaptured());
    f.surface.Release();
    EXPECT_EQ(f.log.Take(), "changed capture release");
}

} // namespace
} // namespace Vorin::DataModel::Controls
