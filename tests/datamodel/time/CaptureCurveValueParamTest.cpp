#include "datamodel/time/CaptureCurveValueParam.h"

#include "datamodel/time/OverTimeTestKit.h"

#include <cmath>
#include <limits>
#include <memory>

namespace Vorin::DataModel::Objects::Testing {
namespace {

class CaptureCurveValueParamTest : public testing::Test {
protected:
    CaptureCurveValueParamTest() { curve.SetValue(Square()); }

    void Connect() {
        param->SetCurve(&curve);
        param->SetXParam(&x);
    }

    CCaptureCurve curve{CCurveInfo("Gain", "", MakeInfo("In", -4.0, 4.0, 0.0),
                                   MakeInfo("Out", 0.0, 16.0, 2.0, "dB"))};
    CCaptureParam x{MakeInfo("X", -4.0, 4.0, 3.0)};
    std::unique_ptr<CCaptureCurveValueParam> param = std::make_unique<CCaptureCurveValueParam>();
};

TEST_F(CaptureCurveValueParamTest, ItIsTheCurveAtTheParameter) {
    Connect();
    EXPECT_EQ(param->GetValue(), 9.0);
    x.SetValue(-2.0);
    EXPECT_EQ(param->GetValue(), 4.0);
    curve.SetValue(Negate());
    EXPECT_EQ(param->GetValue(), 2.0);
}

TEST_F(CaptureCurveValueParamTest, WithoutACurveItIsTheDefaultOfTheInfo) {
    EXPECT_EQ(param->GetValue(), 0.0);
    param->SetXParam(&x);
    EXPECT_EQ(param->GetValue(), 0.0);
    param->SetCurve(&curve);
    EXPECT_EQ(param->GetValue(), 9.0);
    param->SetCurve(nullptr);
    EXPECT_EQ(param->GetValue(), 2.0); // the info is still that of the curve
}

TEST_F(CaptureCurveValueParamTest, WithoutAParameterItIsTheDefaultOfTheInfoToo) {
    param->SetCurve(&curve);
    EXPECT_EQ(param->GetValue(), 2.0);
}

TEST_F(CaptureCurveValueParamTest, ItsInfoIsThatOfTheYAxis) {
    CEventCounter infoEvents(std::as_const(*param).GetInfo().GetInfoChangedEvents());
    param->SetCurve(&curve);
    EXPECT_EQ(infoEvents.Take(), 1);
    const IConstParamInfo& info = std::as_const(*param).GetInfo();
    EXPECT_STREQ(info.GetName(), "Out");
    EXPECT_STREQ(info.GetUnit(), "dB");
    EXPECT_EQ(info.GetMin(), 0.0);
    EXPECT_EQ(info.GetMax(), 16.0);
}

TEST_F(CaptureCurveValueParamTest, AChangeOfTheAxisFollows) {
    param->SetCurve(&curve);
    CEventCounter infoEvents(std::as_const(*param).GetInfo().GetInfoChangedEvents());
    curve.GetInfo().GetYInfo().SetMax(32.0);
    EXPECT_EQ(infoEvents.Take(), 1);
    EXPECT_EQ(std::as_const(*param).GetInfo().GetMax(), 32.0);
    curve.GetInfo().GetXInfo().SetMax(8.0); // no business of ours
    EXPECT_EQ(infoEvents.Take(), 0);
    param->SetCurve(nullptr);
    curve.GetInfo().GetYInfo().SetMax(64.0);
    EXPECT_EQ(infoEvents.Take(), 0);
    EXPECT_EQ(std::as_const(*param).GetInfo().GetMax(), 32.0);
}

TEST_F(CaptureCurveValueParamTest, AnotherCurveBringsItsInfo) {
    CCaptureCurve other(
        CCurveInfo("Other", "", MakeInfo("In", 0.0, 1.0, 0.0), MakeInfo("Else", 0.0, 1.0, 0.5)));
    Connect();
    param->SetCurve(&other);
    EXPECT_STREQ(std::as_const(*param).GetInfo().GetName(), "Else");
    EXPECT_EQ(param->GetValue(), 0.5); // the constant of the y axis
    CEventCounter events(param->GetValueChangedEvents());
    curve.SetValue(Negate());
    EXPECT_EQ(events.Take(), 0);
    param->Disconnect();
}

TEST_F(CaptureCurveValueParamTest, AChangeOfEitherEndNotifies) {
    Connect();
    CEventCounter events(param->GetValueChangedEvents());
    x.SetValue(1.0);
    EXPECT_EQ(events.Take(), 1);
    x.SetValue(1.0);
    EXPECT_EQ(events.Take(), 0);
    curve.SetValue(Negate());
    EXPECT_EQ(events.Take(), 1);
}

TEST_F(CaptureCurveValueParamTest, SettingTheEndsDoesNotNotifyTheValue) {
    CEventCounter events(param->GetValueChangedEvents());
    Connect();
    param->Disconnect();
    EXPECT_EQ(events.Take(), 0);
}

TEST_F(CaptureCurveValueParamTest, OfTwoCapturedEndsOneReleasedIsNoRelease) {
    Connect();
    CEventCounter captures(param->GetCaptureEvents());
    CEventCounter releases(param->GetReleaseEvents());
    curve.Capture();
    EXPECT_EQ(captures.Take(), 1);
    EXPECT_TRUE(param->IsCaptured());
    x.Capture();
    EXPECT_EQ(captures.Take(), 0);
    curve.Release();
    EXPECT_EQ(releases.Take(), 0);
    EXPECT_TRUE(param->IsCaptured());
    x.Release();
    EXPECT_EQ(releases.Take(), 1);
    EXPECT_FALSE(param->IsCaptured());
}

TEST_F(CaptureCurveValueParamTest, ItIsCapturedBeforeItTellsAndReleasedToo) {
    Connect();
    bool seen = false;
    System::Testing::CFunctionCommand look([&] { seen = param->IsCaptured(); });
    param->GetCaptureEvents().Connect(look);
    param->GetReleaseEvents().Connect(look);
    x.Capture();
    EXPECT_TRUE(seen);
    x.Release();
    EXPECT_FALSE(seen);
    param->GetCaptureEvents().Disconnect(look);
    param->GetReleaseEvents().Disconnect(look);
}

TEST_F(CaptureCurveValueParamTest, AnEndThatIsHeldAlreadyCountsOnceItIsSet) {
    x.Capture();
    CEventCounter captures(param->GetCaptureEvents());
    CEventCounter releases(param->GetReleaseEvents());
    Connect();
    EXPECT_EQ(captures.Take(), 1);
    EXPECT_TRUE(param->IsCaptured());
    x.Release();
    EXPECT_EQ(releases.Take(), 1);
}

TEST_F(CaptureCurveValueParamTest, AHeldEndThatGoesIsReleased) {
    Connect();
    curve.Capture();
    x.Capture();
    CEventCounter releases(param->GetReleaseEvents());
    param->SetCurve(nullptr);
    EXPECT_EQ(releases.Take(), 0);
    EXPECT_TRUE(param->IsCaptured());
    param->SetXParam(nullptr);
    EXPECT_EQ(releases.Take(), 1);
    EXPECT_FALSE(param->IsCaptured());
    curve.Release();
    x.Release();
    EXPECT_EQ(releases.Take(), 0);
}

TEST_F(CaptureCurveValueParamTest, AHeldEndReplacedByAHeldOneTellsNothing) {
    CCaptureParam other(MakeInfo("Other", -4.0, 4.0, 1.0));
    Connect();
    x.Capture();
    other.Capture();
    CEventCounter captures(param->GetCaptureEvents());
    CEventCounter releases(param->GetReleaseEvents());
    param->SetXParam(&other);
    EXPECT_EQ(captures.Take(), 0);
    EXPECT_EQ(releases.Take(), 0);
    EXPECT_TRUE(param->IsCaptured());
    other.Release();
    EXPECT_EQ(releases.Take(), 1);
    param->Disconnect();
}

TEST_F(CaptureCurveValueParamTest, SettingTheSameEndAgainChangesNothing) {
    Connect();
    x.Capture();
    CEventCounter releases(param->GetReleaseEvents());
    Connect();
    EXPECT_EQ(releases.Take(), 0);
    CEventCounter events(param->GetValueChangedEvents());
    x.SetValue(1.0);
    EXPECT_EQ(events.Take(), 1);
}

TEST_F(CaptureCurveValueParamTest, DisconnectedItHearsNothing) {
    Connect();
    CEventCounter events(param->GetValueChangedEvents());
    CEventCounter captures(param->GetCaptureEvents());
    param->Disconnect();
    curve.SetValue(Negate());
    x.SetValue(1.0);
    curve.Capture();
    x.Capture();
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(captures.Take(), 0);
    EXPECT_EQ(param->GetValue(), 2.0);
}

TEST_F(CaptureCurveValueParamTest, TheDestructorLetsGoOfBothEnds) {
    Connect();
    x.Capture();
    param.reset();
    x.Release();
    x.SetValue(1.0);
    curve.SetValue(Negate());
    curve.GetInfo().GetYInfo().SetMax(1.0);
}

TEST_F(CaptureCurveValueParamTest, EndsMayGoBeforeItOnceItLetGoOfThem) {
    {
        CCaptureParam shortLived(MakeInfo("Short", 0.0, 4.0, 2.0));
        param->SetCurve(&curve);
        param->SetXParam(&shortLived);
        EXPECT_EQ(param->GetValue(), 4.0);
        param->Disconnect();
    }
    EXPECT_EQ(param->GetValue(), 2.0);
}

TEST_F(CaptureCurveValueParamTest, AListenerOfTheGestureMayDisconnectItWhileACurveIsSet) {
    curve.Capture();
    Core::TCommand<CCaptureCurveValueParam> disconnect(param.get(),
                                                       &CCaptureCurveValueParam::Disconnect);
    param->GetCaptureEvents().Connect(disconnect);
    param->SetCurve(&curve);
    param->GetCaptureEvents().Disconnect(disconnect);
    EXPECT_FALSE(param->IsCaptured());
    curve.GetInfo().GetYInfo().SetMax(32.0); // nobody listens any more
    EXPECT_EQ(std::as_const(*param).GetInfo().GetMax(), 0.0);
}

TEST_F(CaptureCurveValueParamTest, NotANumberGoesThrough) {
    CAnyParam odd;
    param->SetCurve(&curve);
    param->SetXParam(&odd);
    odd.SetValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(std::isnan(param->GetValue()));
    odd.SetValue(2.0);
    EXPECT_EQ(param->GetValue(), 4.0);
    param->Disconnect();
}

TEST_F(CaptureCurveValueParamTest, ReadAtItselfItIsTheCurveAtItsDefault) {
    param->SetCurve(&curve);
    param->SetXParam(param.get());
    EXPECT_EQ(param->GetValue(), 4.0);
    CEventCounter events(param->GetValueChangedEvents());
    curve.SetValue(Negate());
    EXPECT_GE(events.Take(), 1);
    curve.Capture();
    EXPECT_TRUE(param->IsCaptured());
    param->Disconnect();
}

} // namespace
} // namespace Vorin::DataModel::Objects::Testing
