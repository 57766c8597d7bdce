#include "datamodel/links/MultipleCaptureParamLink.h"

#include "core/EventCounter.h"
#include "datamodel/links/CaptureParamLink.h"
#include "datamodel/links/LinkTestTools.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::DataModel::Objects {
namespace {

class MultipleCaptureParamLinkTest : public ::testing::Test {
protected:
    void Enable() {
        for (CTestParam* source : {&a, &b, &c}) {
            link->AddSource(source);
        }
        link->SetTarget(&target);
        link->SetEnabled(true);
        log.Take();
    }

    CTestParam a{0, 10, 1};
    CTestParam b{0, 10, 2};
    CTestParam c{0, 10, 6};
    CTestParam target{-100, 100, 0};
    CObjectLog log{target};
    std::unique_ptr<CMultipleCaptureParamLink> link = std::make_unique<CMultipleCaptureParamLink>();
};

TEST_F(MultipleCaptureParamLinkTest, ANewOneGivesTheMean) {
    Enable();
    EXPECT_EQ(target.GetValue(), 3.0);
    b.SetValue(5.0);
    EXPECT_EQ(target.GetValue(), 4.0);
    EXPECT_EQ(log.Take(), "v");
}

TEST_F(MultipleCaptureParamLinkTest, AnotherMuxFunctionWritesAnew) {
    Enable();
    link->SetMuxFunction("-max");
    EXPECT_EQ(target.GetValue(), -6.0);
    link->SetMuxFunction("<");
    EXPECT_EQ(target.GetValue(), 1.0);
    b.SetValue(6.0);
    EXPECT_EQ(target.GetValue(), 0.0);
    link->SetMuxFunction("<=");
    EXPECT_EQ(target.GetValue(), 1.0);
}

TEST_F(MultipleCaptureParamLinkTest, TheOrderIsThatOfTheSources) {
    link->SetMuxFunction("-");
    Enable();
    EXPECT_EQ(target.GetValue(), 1.0 - 2.0 - 6.0);
}

TEST_F(MultipleCaptureParamLinkTest, WhatTheMuxFunctionGivesIsTransformed) {
    link->SetFunction(MakeFunction<&Library::Square>(), Core::kOwn);
    Enable();
    EXPECT_EQ(target.GetValue(), 9.0);
    CEventCounter events(link->GetReverseEvents());
    link->SetReversed(true);
    EXPECT_EQ(target.GetValue(), -9.0); // -100 + 100 - 9
    EXPECT_EQ(events.Take(), 1);
}

TEST_F(MultipleCaptureParamLinkTest, NormalizedSourcesAreMuxedByPosition) {
    CTestParam wide(0, 1000, 500);
    link->SetNormalized(true);
    link->SetMuxFunction("max");
    link->AddSource(&wide);
    Enable();
    EXPECT_NEAR(target.GetValue(), 20.0, 1e-9); // 6 of 10 is more than 500 of 1000
    link->SetReversed(true);
    EXPECT_NEAR(target.GetValue(), -20.0, 1e-9);
    link->Disconnect();
}

TEST_F(MultipleCaptureParamLinkTest, ADifferentialLinkAddsTheMoveOfTheMux) {
    link->SetDifferential(true);
    target.SetValue(50.0);
    Enable();
    EXPECT_EQ(target.GetValue(), 50.0);
    c.SetValue(9.0); // the mean goes from 3 to 4
    EXPECT_NEAR(target.GetValue(), 51.0, 1e-12);
}

TEST_F(MultipleCaptureParamLinkTest, ADifferentialLinkTakesAChangeOfItsWayForNoMove) {
    Enable(); // the mean is 3
    link->SetDifferential(true);
    link->SetMuxFunction("max");
    EXPECT_EQ(target.GetValue(), 3.0);
    a.SetValue(8.0); // the max goes from 6 to 8
    EXPECT_EQ(target.GetValue(), 5.0);
    link->SetNormalized(true);
    EXPECT_EQ(target.GetValue(), 5.0);
    a.SetValue(9.0); // from position 0.8 to 0.9, of 200
    EXPECT_NEAR(target.GetValue(), 25.0, 1e-9);
}

TEST_F(MultipleCaptureParamLinkTest, WithoutSourcesNothingIsWritten) {
    target.SetValue(5.0);
    link->SetTarget(&target);
    link->SetEnabled(true);
    link->SetReversed(true);
    link->AddSource(nullptr);
    EXPECT_EQ(link->GetSourcesCount(), 0);
    EXPECT_EQ(target.GetValue(), 5.0);
}

TEST_F(MultipleCaptureParamLinkTest, ASourceMayComeWhileItRuns) {
    Enable();
    CTestParam more(0, 100, 31);
    link->AddSource(&more);
    EXPECT_EQ(target.GetValue(), 10.0);
    more.SetValue(71.0);
    EXPECT_EQ(target.GetValue(), 20.0);
    link->RemoveSources();
    more.SetValue(0.0);
    EXPECT_EQ(target.GetValue(), 20.0);
}

TEST_F(MultipleCaptureParamLinkTest, PausesAndDisablesLikeALink) {
    Enable();
    link->SetPaused(true);
    a.SetValue(4.0);
    EXPECT_EQ(target.GetValue(), 3.0);
    link->SetPaused(false);
    EXPECT_EQ(target.GetValue(), 4.0);
    CEventCounter events(link->GetEnableEvents());
    link->SetEnabled(false);
    a.SetValue(1.0);
    EXPECT_EQ(target.GetValue(), 4.0);
    link->SetTrigger(kLinkTriggerModify);
    link->SetEnabled(true);
    EXPECT_EQ(target.GetValue(), 4.0);
    EXPECT_EQ(events.Take(), 2);
    b.SetValue(5.0);
    EXPECT_EQ(target.GetValue(), 4.0); // 1, 5 and 6
}

TEST_F(MultipleCaptureParamLinkTest, ATriggerRangeKeepsWhatLiesOutside) {
    Enable();
    link->SetTriggerRange(2.5, 3.5);
    a.SetValue(4.0);
    EXPECT_EQ(target.GetValue(), 3.0);
    b.SetValue(0.5);
    EXPECT_EQ(target.GetValue(), 3.5); // the bound is inside
    c.SetValue(0.0);
    EXPECT_EQ(target.GetValue(), 3.5);
}

TEST_F(MultipleCaptureParamLinkTest, TheTargetIsHeldFromTheFirstCaptureToTheLastRelease) {
    Enable();
    a.Capture();
    EXPECT_EQ(log.Take(), "c");
    b.Capture();
    a.Release();
    EXPECT_EQ(log.Take(), "");
    EXPECT_TRUE(target.IsCaptured());
    b.Release();
    EXPECT_EQ(log.Take(), "r");
}

TEST_F(MultipleCaptureParamLinkTest, DisablingDuringAForwardedCaptureReleasesTheTargetOnce) {
    a.Capture();
    b.Capture();
    Enable();
    EXPECT_TRUE(target.IsCaptured());
    link->SetEnabled(false);
    EXPECT_EQ(log.Take(), "r");
    a.Release();
    b.Release();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(MultipleCaptureParamLinkTest, AGestureEndsThoughTheLinkIsPausedMeanwhile) {
    Enable();
    a.Capture();
    link->SetPaused(true);
    b.Capture();
    a.Release();
    EXPECT_TRUE(target.IsCaptured());
    b.Release();
    EXPECT_EQ(log.Take(), "cr");
}

TEST_F(MultipleCaptureParamLinkTest, AnotherTargetTakesTheGestureOver) {
    Enable();
    a.Capture();
    CTestParam other(-100, 100);
    link->SetTarget(&other);
    EXPECT_FALSE(target.IsCaptured());
    EXPECT_TRUE(other.IsCaptured());
    EXPECT_EQ(other.GetValue(), 3.0);
    link->Disconnect();
    EXPECT_FALSE(other.IsCaptured());
}

TEST_F(MultipleCaptureParamLinkTest, ARingDoesNotHoldItself) {
    Enable();
    CCaptureParamLink back;
    back.SetSource(&target);
    back.SetTarget(&b);
    back.SetEnabled(true);
    a.Capture();
    EXPECT_TRUE(b.IsCaptured());
    back.SetEnabled(false); // and anew, in the midst of the gesture
    back.SetEnabled(true);
    EXPECT_TRUE(b.IsCaptured());
    a.Release();
    EXPECT_FALSE(target.IsCaptured());
    EXPECT_FALSE(b.IsCaptured());
}

TEST_F(MultipleCaptureParamLinkTest, ATargetAmongTheSourcesIsHeldByOthersOnly) {
    link->AddSource(&target);
    Enable();
    a.Capture();
    a.Release();
    EXPECT_EQ(log.Take(), "cr");
    target.Capture();
    link->SetEnabled(false);
    EXPECT_EQ(log.Take(), "c");
}

TEST_F(MultipleCaptureParamLinkTest, AFeedbackIsMuxedIn) {
    CCaptureParamLink back;
    Enable();
    back.SetSource(&target);
    back.SetTarget(&c);
    back.SetEnabled(true);
    EXPECT_EQ(c.GetValue(), 2.0); // 3, of which the mean with 1 and 2 is 2, and that once more
    EXPECT_EQ(target.GetValue(), 2.0);
    a.SetValue(0.0); // the mean of 0, 2 and 2 goes back, and is muxed in once
    EXPECT_NEAR(c.GetValue(), 4.0 / 3.0, 1e-12);
    EXPECT_NEAR(target.GetValue(), 10.0 / 9.0, 1e-12);
}

TEST_F(MultipleCaptureParamLinkTest, TheSameSourceMayCountTwice) {
    link->AddSource(&c);
    Enable(); // 6, 1, 2, 6
    EXPECT_EQ(target.GetValue(), 3.75);
    c.SetValue(2.0);
    EXPECT_EQ(target.GetValue(), 1.75);
    c.Capture();
    EXPECT_TRUE(target.IsCaptured());
    c.Release();
    EXPECT_FALSE(target.IsCaptured());
}

TEST_F(MultipleCaptureParamLinkTest, DeathReleasesAndDisconnects) {
    Enable();
    a.Capture();
    link.reset();
    EXPECT_EQ(log.Take(), "cr");
    b.SetValue(0.0);
    EXPECT_EQ(target.GetValue(), 3.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects
