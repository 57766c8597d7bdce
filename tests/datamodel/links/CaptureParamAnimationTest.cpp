#include "datamodel/links/CaptureParamAnimation.h"

#include "core/EventCounter.h"
#include "core/NonFinite.h"
#include "datamodel/links/LinkTestTools.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace Vorin::DataModel::Objects {
namespace {

class CaptureParamAnimationTest : public ::testing::Test {
protected:
    CaptureParamAnimationTest() {
        animation->SetDuration(100.0);
        animation->SetRefreshTime(10);
        animation->Connect(param);
        log.Take();
    }

    double After(int milliseconds) {
        time.Wait(milliseconds);
        EXPECT_EQ(param.GetValue(), animation->GetValue());
        return animation->GetValue();
    }

    CTestTime time;
    CTestParam param{10, 20, 12};
    CObjectLog paramLog{param};
    std::unique_ptr<CCaptureParamAnimation> animation =
        std::make_unique<CCaptureParamAnimation>(&time.timers, time.clock);
    CObjectLog log{*animation};
};

TEST_F(CaptureParamAnimationTest, ANewOneIsDisabledAndWraps) {
    const CCaptureParamAnimation fresh(&time.timers, time.clock);
    EXPECT_FALSE(fresh.IsEnabled());
    EXPECT_FALSE(fresh.IsReversed());
    EXPECT_EQ(fresh.GetEnd(), kAnimationWrap);
    EXPECT_EQ(fresh.GetValue(), 0.0);
    EXPECT_EQ(fresh.GetInfo().GetMax(), 0.0);
    EXPECT_EQ(fresh.GetRefreshTime(), 50);
}

TEST_F(CaptureParamAnimationTest, TakesOverValueAndInfoOfTheParameter) {
    EXPECT_EQ(animation->GetValue(), 12.0);
    EXPECT_EQ(animation->GetInfo().GetMin(), 10.0);
    EXPECT_EQ(animation->GetInfo().GetMax(), 20.0);
    CEventCounter events(animation->GetInfo().GetInfoChangedEvents());
    param.GetInfo().SetMax(30.0);
    EXPECT_EQ(animation->GetInfo().GetMax(), 30.0);
    EXPECT_EQ(events.Take(), 1);
    param.GetInfo().SetMin(15.0); // moves the value
    EXPECT_EQ(animation->GetValue(), 15.0);
}

TEST_F(CaptureParamAnimationTest, RunsFromMinimumToMaximumAndBeginsAgain) {
    log.Take();
    animation->SetEnabled(true);
    EXPECT_EQ(animation->GetValue(), 12.0); // until the first tick
    EXPECT_NEAR(After(10), 11.0, 1e-9);
    EXPECT_NEAR(After(80), 19.0, 1e-9);
    EXPECT_EQ(After(10), 10.0);
    EXPECT_NEAR(After(250), 15.0, 1e-9);
    EXPECT_EQ(log.Take(), "vvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvvv");
}

TEST_F(CaptureParamAnimationTest, DisablingStopsAndEnablingBeginsAnew) {
    CEventCounter events(animation->GetEnableEvents());
    animation->SetEnabled(true);
    After(50);
    animation->SetEnabled(false);
    EXPECT_NEAR(After(100), 15.0, 1e-9);
    animation->SetEnabled(true);
    EXPECT_NEAR(After(20), 12.0, 1e-9);
    EXPECT_EQ(events.Take(), 3);
}

TEST_F(CaptureParamAnimationTest, APauseKeepsThePlace) {
    animation->SetEnabled(true);
    After(50);
    animation->SetPaused(true);
    EXPECT_NEAR(After(100), 15.0, 1e-9);
    animation->SetPaused(false);
    EXPECT_NEAR(After(20), 17.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, ReversedItRunsBackwards) {
    CEventCounter events(animation->GetReverseEvents());
    animation->SetReversed(true);
    animation->SetEnabled(true);
    EXPECT_NEAR(After(10), 19.0, 1e-9);
    EXPECT_NEAR(After(80), 11.0, 1e-9);
    EXPECT_EQ(After(10), 20.0);
    EXPECT_EQ(events.Take(), 1);
}

TEST_F(CaptureParamAnimationTest, TurningAroundKeepsThePlace) {
    animation->SetEnabled(true);
    After(30);
    animation->Reverse();
    EXPECT_NEAR(After(10), 12.0, 1e-9);
    animation->SetPaused(true);
    animation->Reverse();
    animation->SetPaused(false);
    EXPECT_NEAR(After(30), 15.0, 1e-9);
    EXPECT_NEAR(After(100), 15.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, MayStopAtTheEnd) {
    animation->SetEnd(kAnimationStop);
    animation->SetEnabled(true);
    EXPECT_EQ(After(150), 20.0);
    EXPECT_FALSE(animation->IsRunning());
    EXPECT_TRUE(animation->IsEnabled());
    animation->SetValue(13.0);
    animation->SetPaused(true);
    animation->SetPaused(false);
    EXPECT_EQ(After(100), 13.0);
    animation->SetEnabled(false);
    animation->SetEnabled(true);
    EXPECT_NEAR(After(10), 11.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, TurningAroundAtTheEndRunsBack) {
    animation->SetEnd(kAnimationStop);
    animation->SetEnabled(true);
    After(150);
    animation->Reverse();
    EXPECT_NEAR(After(10), 19.0, 1e-9);
    EXPECT_EQ(After(100), 10.0);
    EXPECT_FALSE(animation->IsRunning());
}

TEST_F(CaptureParamAnimationTest, WithoutADurationTheFirstTickIsTheEnd) {
    for (const double duration : {0.0, -1.0, kNaN}) {
        animation->SetEnabled(false);
        param.SetValue(12.0);
        animation->SetDuration(duration);
        animation->SetEnabled(true);
        EXPECT_EQ(After(10), 20.0);
        EXPECT_FALSE(animation->IsRunning());
    }
}

TEST_F(CaptureParamAnimationTest, AnotherDurationKeepsThePlace) {
    animation->SetEnabled(true);
    After(50);
    animation->SetDuration(1000.0);
    EXPECT_NEAR(After(100), 16.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, TheRefreshTimeIsThatOfTheTicks) {
    animation->SetEnabled(true);
    animation->SetRefreshTime(40);
    EXPECT_EQ(After(30), 12.0);
    EXPECT_NEAR(After(10), 14.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, SetValueWhileItRestsWritesTheParameter) {
    animation->SetValue(17.0);
    EXPECT_EQ(param.GetValue(), 17.0);
    EXPECT_EQ(log.Take(), "v");
    animation->SetValue(17.0);
    EXPECT_EQ(log.Take(), "");
    animation->SetValue(99.0);
    EXPECT_EQ(animation->GetValue(), 20.0);
    animation->SetValue(-99.0);
    EXPECT_EQ(animation->GetValue(), 10.0);
    EXPECT_EQ(param.GetValue(), 10.0);
    log.Take();
    animation->SetValue(kNaN);
    EXPECT_EQ(animation->GetValue(), 10.0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureParamAnimationTest, SetValueWhileItRunsDoesNothing) {
    animation->SetEnabled(true);
    After(10);
    animation->SetValue(17.0);
    EXPECT_NEAR(animation->GetValue(), 11.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, FollowsTheParameterWhenSomebodyElseWritesIt) {
    param.SetValue(18.0);
    EXPECT_EQ(animation->GetValue(), 18.0);
    EXPECT_EQ(log.Take(), "v");
    animation->SetEnabled(true);
    After(20);
    param.SetValue(18.0);
    EXPECT_EQ(animation->GetValue(), 18.0);
    EXPECT_NEAR(After(10), 13.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, HoldingItHoldsTheParameter) {
    paramLog.Take();
    animation->Capture();
    animation->Capture();
    EXPECT_TRUE(animation->IsCaptured());
    EXPECT_TRUE(param.IsCaptured());
    animation->Release();
    animation->Release();
    EXPECT_EQ(log.Take(), "cr");
    EXPECT_EQ(paramLog.Take(), "cr");
}

TEST_F(CaptureParamAnimationTest, DisconnectStopsReleasesAndKeepsTheValue) {
    animation->SetEnabled(true);
    After(50);
    animation->Capture();
    animation->Disconnect();
    EXPECT_FALSE(param.IsCaptured());
    EXPECT_FALSE(animation->IsCaptured());
    EXPECT_FALSE(animation->IsRunning());
    time.Wait(100);
    param.SetValue(11.0);
    EXPECT_NEAR(animation->GetValue(), 15.0, 1e-9);
    EXPECT_EQ(animation->GetInfo().GetMax(), 20.0);
    animation->Disconnect();
    CTestParam other(0, 1, 0.5);
    animation->Connect(other); // still enabled
    time.Wait(20);
    EXPECT_NEAR(other.GetValue(), 0.2, 1e-9);
    animation->Disconnect();
}

TEST_F(CaptureParamAnimationTest, ConnectingAnotherParameterLetsGoOfTheFirst) {
    CTestParam other(0, 1, 0.5);
    animation->Connect(other);
    EXPECT_EQ(animation->GetValue(), 0.5);
    param.SetValue(18.0);
    EXPECT_EQ(animation->GetValue(), 0.5);
    animation->Disconnect();
}

TEST_F(CaptureParamAnimationTest, DisablingItFromItsOwnTickIsAllowed) {
    animation->SetEnabled(true);
    const CReaction reaction(param.GetValueChangedEvents(),
                             [this] { animation->SetEnabled(false); });
    EXPECT_NEAR(After(100), 11.0, 1e-9);
}

TEST_F(CaptureParamAnimationTest, ADurationNextToNothingGivesNumbers) {
    animation->SetDuration(std::numeric_limits<double>::denorm_min());
    animation->SetEnabled(true);
    EXPECT_EQ(After(10), 10.0); // at the end of one run, and so the beginning of the next
    EXPECT_EQ(After(10), 10.0);
    animation->SetPaused(true);
    animation->SetDuration(100.0);
    animation->SetPaused(false);
    EXPECT_NEAR(After(30), 13.0, 1e-9); // nothing of it is left
}

TEST_F(CaptureParamAnimationTest, ARangeWithoutEndsGivesNumbers) {
    param.GetInfo().SetMin(-kInfinity);
    param.GetInfo().SetMax(kInfinity);
    animation->SetEnabled(true);
    EXPECT_EQ(After(10), kInfinity); // NaN, which a parameter takes for its maximum
}

TEST_F(CaptureParamAnimationTest, AListenerOfTheInfoMayDisconnectItWhileItConnects) {
    CTestParam other(0, 5, 3);
    const CReaction reaction(animation->GetInfo().GetInfoChangedEvents(),
                             [this] { animation->Disconnect(); });
    animation->Connect(other);
    other.SetValue(4.0);
    EXPECT_EQ(animation->GetValue(), 12.0);
}

TEST_F(CaptureParamAnimationTest, DeathStopsTheTimerAndLetsGo) {
    auto second = std::make_unique<CCaptureParamAnimation>(&time.timers, time.clock);
    second->SetDuration(100.0);
    second->SetRefreshTime(10);
    second->Connect(param);
    second->SetEnabled(true);
    time.Wait(20);
    second.reset();
    time.Wait(20);
    param.SetValue(19.0);
    EXPECT_EQ(param.GetValue(), 19.0);
}

TEST(AnimationEndTest, HasWords) {
    EAnimationEnd end = kAnimationWrap;
    EXPECT_TRUE(FindAnimationEnd("stop", end));
    EXPECT_EQ(end, kAnimationStop);
    EXPECT_FALSE(FindAnimationEnd("Wrap", end));
    EXPECT_FALSE(FindAnimationEnd(nullptr, end));
    EXPECT_EQ(end, kAnimationStop);
    EXPECT_TRUE(FindAnimationEnd("wrap", end));
    EXPECT_EQ(end, kAnimationWrap);
}

} // namespace
} // namespace Vorin::DataModel::Objects
