#include "datamodel/time/CaptureSurfaceValueParam.h"

#include "datamodel/objects/CaptureSurface.h"
#include "datamodel/time/OverTimeTestKit.h"

#include <cmath>
#include <limits>
#include <memory>

namespace Vorin::DataModel::Objects::Testing {
namespace {

using Difference = Math::TBinaryFunction<&Math::FunctionsLibrary::Difference>;
using Product = Math::TBinaryFunction<&Math::FunctionsLibrary::Product>;

class CaptureSurfaceValueParamTest : public testing::Test {
protected:
    CaptureSurfaceValueParamTest() { surface.SetValue(Difference()); }

    void Connect() {
        param->SetSurface(&surface);
        param->SetXParam(&x);
        param->SetYParam(&y);
    }

    CCaptureSurface surface{CSurfaceInfo("Map", "", MakeInfo("In", 0.0, 9.0, 0.0),
                                         MakeInfo("Row", 0.0, 9.0, 7.0),
                                         MakeInfo("Out", -9.0, 81.0, 2.0, "dB"))};
    CCaptureParam x{MakeInfo("X", 0.0, 9.0, 5.0)};
    CCaptureParam y{MakeInfo("Y", 0.0, 9.0, 3.0)};
    std::unique_ptr<CCaptureSurfaceValueParam> param =
        std::make_unique<CCaptureSurfaceValueParam>();
};

TEST_F(CaptureSurfaceValueParamTest, ItIsTheSurfaceAtTheTwoParameters) {
    Connect();
    EXPECT_EQ(param->GetValue(), 2.0);
    x.SetValue(9.0);
    EXPECT_EQ(param->GetValue(), 6.0);
    y.SetValue(4.0);
    EXPECT_EQ(param->GetValue(), 5.0);
    surface.SetValue(Product());
    EXPECT_EQ(param->GetValue(), 36.0);
}

TEST_F(CaptureSurfaceValueParamTest, WhileAnEndIsMissingItIsTheDefaultOfTheInfo) {
    EXPECT_EQ(param->GetValue(), 0.0);
    x.SetValue(9.0);
    Connect();
    EXPECT_EQ(param->GetValue(), 6.0);
    param->SetYParam(nullptr);
    EXPECT_EQ(param->GetValue(), 2.0);
    Connect();
    param->SetXParam(nullptr);
    EXPECT_EQ(param->GetValue(), 2.0);
    Connect();
    param->SetSurface(nullptr);
    EXPECT_EQ(param->GetValue(), 2.0);
}

TEST_F(CaptureSurfaceValueParamTest, ItsInfoIsThatOfTheZAxisAndFollowsIt) {
    param->SetSurface(&surface);
    const IConstParamInfo& info = std::as_const(*param).GetInfo();
    EXPECT_STREQ(info.GetName(), "Out");
    EXPECT_EQ(info.GetMax(), 81.0);
    surface.GetInfo().GetZInfo().SetMax(100.0);
    EXPECT_EQ(info.GetMax(), 100.0);
    surface.GetInfo().GetYInfo().SetMax(50.0);
    EXPECT_EQ(info.GetMax(), 100.0);
}

TEST_F(CaptureSurfaceValueParamTest, AChangeOfAnyEndNotifies) {
    Connect();
    CEventCounter events(param->GetValueChangedEvents());
    x.SetValue(1.0);
    EXPECT_EQ(events.Take(), 1);
    y.SetValue(1.0);
    EXPECT_EQ(events.Take(), 1);
    surface.SetValue(Product());
    EXPECT_EQ(events.Take(), 1);
}

TEST_F(CaptureSurfaceValueParamTest, ThreeEndsMakeOneCaptureAndOneRelease) {
    Connect();
    CEventCounter captures(param->GetCaptureEvents());
    CEventCounter releases(param->GetReleaseEvents());
    y.Capture();
    x.Capture();
    surface.Capture();
    EXPECT_EQ(captures.Take(), 1);
    y.Release();
    surface.Release();
    EXPECT_TRUE(param->IsCaptured());
    EXPECT_EQ(releases.Take(), 0);
    x.Release();
    EXPECT_EQ(releases.Take(), 1);
    EXPECT_FALSE(param->IsCaptured());
}

TEST_F(CaptureSurfaceValueParamTest, OneParameterMayStandAtBothPlaces) {
    param->SetSurface(&surface);
    param->SetXParam(&x);
    param->SetYParam(&x);
    surface.SetValue(Product());
    x.SetValue(6.0);
    EXPECT_EQ(param->GetValue(), 36.0);
    CEventCounter captures(param->GetCaptureEvents());
    CEventCounter releases(param->GetReleaseEvents());
    x.Capture();
    x.Release();
    EXPECT_EQ(captures.Take(), 1);
    EXPECT_EQ(releases.Take(), 1);
    EXPECT_FALSE(param->IsCaptured());
}

TEST_F(CaptureSurfaceValueParamTest, DisconnectReleasesOnceAndHearsNothingMore) {
    Connect();
    x.Capture();
    y.Capture();
    CEventCounter events(param->GetValueChangedEvents());
    CEventCounter releases(param->GetReleaseEvents());
    param->Disconnect();
    EXPECT_EQ(releases.Take(), 1);
    x.SetValue(1.0);
    y.SetValue(1.0);
    surface.SetValue(Product());
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(param->GetValue(), 2.0);
}

TEST_F(CaptureSurfaceValueParamTest, TheDestructorLetsGoOfAllEnds) {
    Connect();
    param.reset();
    x.SetValue(1.0);
    y.SetValue(1.0);
    surface.SetValue(Product());
    surface.GetInfo().GetZInfo().SetMax(1.0);
    x.Capture();
}

TEST_F(CaptureSurfaceValueParamTest, AListenerOfTheGestureMayDisconnectItWhileASurfaceIsSet) {
    surface.Capture();
    Core::TCommand<CCaptureSurfaceValueParam> disconnect(param.get(),
                                                         &CCaptureSurfaceValueParam::Disconnect);
    param->GetCaptureEvents().Connect(disconnect);
    param->SetSurface(&surface);
    param->GetCaptureEvents().Disconnect(disconnect);
    EXPECT_FALSE(param->IsCaptured());
    surface.GetInfo().GetZInfo().SetMax(32.0); // nobody listens any more
    EXPECT_EQ(std::as_const(*param).GetInfo().GetMax(), 0.0);
}

TEST_F(CaptureSurfaceValueParamTest, NotANumberGoesThrough) {
    CAnyParam odd;
    Connect();
    param->SetYParam(&odd);
    odd.SetValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan(param->GetValue()));
    odd.SetValue(1.0);
    EXPECT_EQ(param->GetValue(), 4.0);
    param->Disconnect();
}

} // namespace
} // namespace Vorin::DataModel::Objects::Testing
