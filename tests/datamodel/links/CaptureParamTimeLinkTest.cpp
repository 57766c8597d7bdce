#include "datamodel/links/CaptureParamTimeLink.h"

#include "datamodel/links/CaptureParamLink.h"
#include "datamodel/links/LinkTestTools.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace Vorin::DataModel::Objects {
namespace {

class CaptureParamTimeLinkTest : public ::testing::Test {
protected:
    CaptureParamTimeLinkTest() {
        link->SetDuration(100.0);
        link->SetRefreshTime(20);
        link->SetSource(&source);
        link->SetTarget(&target);
        link->SetEnabled(true);
        log.Take();
    }

    CTestTime time;
    CTestParam source;
    CTestParam target;
    CObjectLog log{target};
    std::unique_ptr<CCaptureParamTimeLink> link =
        std::make_unique<CCaptureParamTimeLink>(&time.timers, time.clock);
};

TEST_F(CaptureParamTimeLinkTest, TheTargetGoesInAStraightLine) {
    source.SetValue(1.0);
    EXPECT_EQ(target.GetValue(), 0.0);
    time.Wait(20);
    EXPECT_NEAR(target.GetValue(), 0.2, 1e-12);
    time.Wait(20);
    EXPECT_NEAR(target.GetValue(), 0.4, 1e-12);
    time.Wait(60);
    EXPECT_EQ(target.GetValue(), 1.0);
    EXPECT_FALSE(link->IsRunning());
    log.Take();
    target.SetValue(0.5); // nothing pulls it any more
    time.Wait(200);
    EXPECT_EQ(target.GetValue(), 0.5);
}

TEST_F(CaptureParamTimeLinkTest, ARunIsOneGestureAtTheTarget) {
    source.SetValue(1.0);
    EXPECT_EQ(log.Take(), "c");
    time.Wait(100);
    EXPECT_EQ(log.Take(), "vvvvvr");
}

TEST_F(CaptureParamTimeLinkTest, WithoutADurationTheFirstTickWritesTheTarget) {
    for (const double duration : {0.0, -5.0, std::numeric_limits<double>::quiet_NaN()}) {
        link->SetDuration(duration);
        source.SetValue(source.GetValue() < 0.5 ? 1.0 : 0.0);
        EXPECT_NE(target.GetValue(), source.GetValue());
        time.Wait(20);
        EXPECT_EQ(target.GetValue(), source.GetValue());
        EXPECT_FALSE(link->IsRunning());
        EXPECT_EQ(log.Take(), "cvr");
    }
}

TEST_F(CaptureParamTimeLinkTest, EndsAtExactlyTheValueOfTheSource) {
    target.SetValue(0.1);
    source.SetValue(0.7);
    time.Wait(100);
    EXPECT_EQ(target.GetValue(), 0.7);
}

TEST_F(CaptureParamTimeLinkTest, ALateTickEndsTheRun) {
    source.SetValue(1.0);
    time.Wait(1000, 1000);
    EXPECT_EQ(target.GetValue(), 1.0);
    EXPECT_EQ(log.Take(), "cvr");
}

TEST_F(CaptureParamTimeLinkTest, NothingStartsWhereThereIsNoWayToGo) {
    target.SetValue(0.5);
    log.Take();
    source.SetValue(0.5);
    EXPECT_FALSE(link->IsRunning());
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureParamTimeLinkTest, TheGoalIsClampedToTheRangeOfTheTarget) {
    CTestParam wide(-10, 10, 5.0);
    link->SetSource(&wide);
    time.Wait(20);
    EXPECT_NEAR(target.GetValue(), 0.2, 1e-12); // on the way to 1, not to 5
    time.Wait(80);
    EXPECT_EQ(target.GetValue(), 1.0);
    wide.SetValue(7.0); // no way to go from the maximum
    EXPECT_FALSE(link->IsRunning());
    wide.SetValue(-5.0);
    time.Wait(100);
    EXPECT_EQ(target.GetValue(), 0.0);
    link->Disconnect();
}

TEST_F(CaptureParamTimeLinkTest, EnablingStartsARun) {
    link->SetEnabled(false);
    source.SetValue(1.0);
    time.Wait(100);
    EXPECT_EQ(target.GetValue(), 0.0);
    link->SetEnabled(true);
    time.Wait(40);
    EXPECT_NEAR(target.GetValue(), 0.4, 1e-12);
}

TEST_F(CaptureParamTimeLinkTest, AChangeDuringARunStartsFromWhereTheTargetIs) {
    source.SetValue(1.0);
    time.Wait(40);
    EXPECT_NEAR(target.GetValue(), 0.4, 1e-12);
    time.Wait(10);
    source.SetValue(0.0); // at 50 ms, from 0.4
    time.Wait(10);
    EXPECT_NEAR(target.GetValue(), 0.36, 1e-12);
    time.Wait(100);
    EXPECT_EQ(target.GetValue(), 0.0);
    EXPECT_EQ(log.Take(), "cvvvvvvvvr"); // one gesture
}

TEST_F(CaptureParamTimeLinkTest, AChangeWithEachTickCannotStopTheRun) {
    source.SetValue(1.0);
    for (int i = 0; i < 50; ++i) {
        time.clock.Advance(20);
        source.SetValue(i % 2 == 0 ? 0.9 : 1.0); // just before the tick
        time.loop.Pump();
    }
    EXPECT_GT(target.GetValue(), 0.5);
}

TEST_F(CaptureParamTimeLinkTest, ASourceThatComesToTheTargetEndsTheRun) {
    source.SetValue(1.0);
    time.Wait(40);
    source.SetValue(target.GetValue());
    EXPECT_FALSE(link->IsRunning());
    EXPECT_EQ(log.Take(), "cvvr");
}

TEST_F(CaptureParamTimeLinkTest, DisablingDuringARunStopsAndReleasesOnce) {
    source.SetValue(1.0);
    time.Wait(40);
    link->SetEnabled(false);
    time.Wait(100);
    EXPECT_EQ(log.Take(), "cvvr");
    EXPECT_NEAR(target.GetValue(), 0.4, 1e-12);
}

TEST_F(CaptureParamTimeLinkTest, APauseEndsTheRunAndItsEndBeginsAnother) {
    source.SetValue(1.0);
    time.Wait(40);
    link->SetPaused(true);
    EXPECT_EQ(log.Take(), "cvvr");
    time.Wait(100);
    EXPECT_NEAR(target.GetValue(), 0.4, 1e-12);
    link->SetPaused(false);
    time.Wait(20);
    EXPECT_NEAR(target.GetValue(), 0.52, 1e-12); // 0.4 + 0.6 * 0.2
}

TEST_F(CaptureParamTimeLinkTest, AnotherTargetIsGoneToFromWhereItStands) {
    source.SetValue(1.0);
    time.Wait(40);
    CTestParam other(0, 1, 0.5);
    CObjectLog otherLog(other);
    link->SetTarget(&other);
    EXPECT_EQ(log.Take(), "cvvr");
    time.Wait(20);
    EXPECT_NEAR(other.GetValue(), 0.6, 1e-12);
    EXPECT_NEAR(target.GetValue(), 0.4, 1e-12);
    link->Disconnect();
    EXPECT_EQ(otherLog.Take(), "cvr");
}

TEST_F(CaptureParamTimeLinkTest, AHeldSourceKeepsTheGestureBeyondTheRun) {
    source.Capture();
    source.SetValue(1.0);
    time.Wait(100);
    EXPECT_EQ(log.Take(), "cvvvvv");
    source.Release();
    EXPECT_EQ(log.Take(), "r");
}

TEST_F(CaptureParamTimeLinkTest, ASourceReleasedEarlyLeavesTheGestureToTheRun) {
    source.Capture();
    source.SetValue(1.0);
    time.Wait(40);
    source.Release();
    EXPECT_EQ(log.Take(), "cvv");
    time.Wait(60);
    EXPECT_EQ(log.Take(), "vvvr");
}

TEST_F(CaptureParamTimeLinkTest, ASourceHeldLateTakesTheGestureOver) {
    source.SetValue(1.0);
    time.Wait(40);
    source.Capture();
    time.Wait(60);
    EXPECT_EQ(log.Take(), "cvvvvv");
    EXPECT_TRUE(target.IsCaptured());
    link->SetEnabled(false);
    EXPECT_EQ(log.Take(), "r");
}

TEST_F(CaptureParamTimeLinkTest, TheRefreshTimeIsThatOfTheTicks) {
    EXPECT_EQ(link->GetRefreshTime(), 20);
    source.SetValue(1.0);
    link->SetRefreshTime(50);
    EXPECT_EQ(link->GetRefreshTime(), 50);
    time.Wait(40);
    EXPECT_EQ(target.GetValue(), 0.0);
    time.Wait(10);
    EXPECT_NEAR(target.GetValue(), 0.5, 1e-12);
    link->SetRefreshTime(-1); // as fast as the loop is pumped
    time.Wait(10);
    EXPECT_NEAR(target.GetValue(), 0.6, 1e-12);
}

TEST_F(CaptureParamTimeLinkTest, ARingWithALinkBackArrives) {
    CCaptureParamLink back;
    back.SetSource(&target);
    back.SetTarget(&source);
    back.SetEnabled(true);
    source.SetValue(1.0);
    time.Wait(200);
    EXPECT_EQ(target.GetValue(), 1.0);
    EXPECT_EQ(source.GetValue(), 1.0);
    EXPECT_FALSE(target.IsCaptured());
    EXPECT_FALSE(source.IsCaptured());
}

TEST_F(CaptureParamTimeLinkTest, DisconnectingItFromItsOwnTickIsAllowed) {
    source.SetValue(1.0);
    {
        const CReaction reaction(target.GetValueChangedEvents(), [this] { link->Disconnect(); });
        time.Wait(100);
    }
    EXPECT_NEAR(target.GetValue(), 0.2, 1e-12);
    EXPECT_EQ(log.Take(), "cvr");
}

TEST_F(CaptureParamTimeLinkTest, DeathDuringARunStopsTheTimerAndReleases) {
    source.SetValue(1.0);
    time.Wait(20);
    link.reset();
    EXPECT_EQ(log.Take(), "cvr");
    time.Wait(100);
    EXPECT_EQ(log.Take(), "");
}

} // namespace
} // namespace Vorin::DataModel::Objects
