#include "datamodel/controls/ParamControl.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/controls/Params.h"
#include "math/Constant.h"

#include <gtest/gtest.h>

#include <climits>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

TEST(ParamControlTest, SetPositionWritesTheValue) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 10.0));
    CParamControl control(param);
    control.SetPosition(0.25);
    EXPECT_EQ(param.GetValue(), 2.5);
    EXPECT_EQ(control.GetPosition(), 0.25);
    EXPECT_EQ(&control.GetTarget(), &param);
    EXPECT_EQ(&control.GetObject(), &param);
}

TEST(ParamControlTest, SetPositionIsLimitedToZeroToOne) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 10.0));
    CParamControl control(param);
    control.SetPosition(7.0);
    EXPECT_EQ(param.GetValue(), 10.0);
    control.SetPosition(-kInfinity);
    EXPECT_EQ(param.GetValue(), 0.0);
    control.SetZoom(2.0);
    control.SetPosition(kInfinity);
    EXPECT_EQ(param.GetValue(), 5.0) << "the end of what is visible";
}

TEST(ParamControlTest, NaNIsNoPosition) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 10.0, 3.0));
    CParamControl control(param);
    CEventLog log;
    log.Listen(param.GetValueSetEvents(), "set");
    control.SetPosition(kNaN);
    EXPECT_EQ(param.GetValue(), 3.0);
    EXPECT_EQ(log.Take(), "");
}

TEST(ParamControlTest, ACurveWithoutAValueWritesNothing) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 10.0, 3.0));
    CParamControl control(param);
    const Math::CConstantFunction nowhere(kNaN);
    control.SetResponseFunctions(&nowhere, &nowhere);
    CEventLog log;
    log.Listen(param.GetValueSetEvents(), "set");
    control.SetPosition(0.5);
    EXPECT_EQ(param.GetValue(), 3.0);
    EXPECT_EQ(log.Take(), "");
}

TEST(ParamControlTest, ABooleanTakesMinBelowTheMiddleAndMaxAboveIt) {
    CCaptureParam param(MakeInfo(kParamBoolean, 0.0, 1.0));
    CParamControl control(param);
    EXPECT_EQ(control.GetPositionsCount(), 2);
    control.SetPosition(0.6);
    EXPECT_EQ(param.GetValue(), 1.0);
    control.SetPosition(0.4);
    EXPECT_EQ(param.GetValue(), 0.0);
}

TEST(ParamControlTest, ADisabledControlIgnoresPositionAndDefault) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0, 0.5));
    CParamControl control(param);
    CEventLog log;
    log.Listen(control.GetEnableEvents(), "enable");
    EXPECT_TRUE(control.IsEnabled());
    control.SetEnabled(false);
    control.SetEnabled(false);
    EXPECT_EQ(log.Take(), "enable");
    control.SetPosition(0.75);
    EXPECT_EQ(param.GetValue(), 0.5);
    param.SetValue(0.25);
    control.SetToDefault();
    EXPECT_EQ(param.GetValue(), 0.25);
    EXPECT_EQ(control.GetPosition(), 0.25) << "it still shows";
    control.SetEnabled(true);
    EXPECT_EQ(log.Take(), "enable");
    control.SetToDefault();
    EXPECT_EQ(param.GetValue(), 0.5);
}

TEST(ParamControlTest, CaptureTellsFirstAndHoldsTheTargetThen) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    CEventLog log;
    log.Listen(control.GetCaptureEvents(), "capture");
    log.Listen(control.GetReleaseEvents(), "release");
    log.Listen(param.GetCaptureEvents(), "targetCapture");
    log.Listen(param.GetReleaseEvents(), "targetRelease");
    control.Release();
    EXPECT_EQ(log.Take(), "");
    control.Capture();
    control.Capture();
    EXPECT_EQ(log.Take(), "capture targetCapture");
    EXPECT_TRUE(control.IsCaptured());
    EXPECT_TRUE(param.IsCaptured());
    EXPECT_TRUE(control.GetSourceCapture().IsCaptured());
    control.Release();
    control.Release();
    EXPECT_EQ(log.Take(), "release targetRelease");
    EXPECT_FALSE(control.IsCaptured());
    EXPECT_FALSE(param.IsCaptured());
}

TEST(ParamControlTest, ADisabledControlCapturesAndReleases) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    control.SetEnabled(false);
    control.Capture();
    EXPECT_TRUE(param.IsCaptured());
    control.Release();
    EXPECT_FALSE(param.IsCaptured());
}

TEST(ParamControlTest, AGestureOfAnotherControlIsNotThisOnes) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    param.Capture();
    EXPECT_FALSE(control.IsCaptured());
    control.Release();
    EXPECT_TRUE(param.IsCaptured());
}

TEST(ParamControlTest, BothSourceOperationsShowTheSourceAsCaptured) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    for (void (CParamControl::*operation)() :
         {&CParamControl::CaptureSource, &CParamControl::HoldSource}) {
        (control.*operation)();
        EXPECT_TRUE(control.GetSourceCapture().IsCaptured());
        EXPECT_FALSE(param.IsCaptured());
        param.Capture();
        param.Release();
        EXPECT_FALSE(control.GetSourceCapture().IsCaptured());
    }
}

TEST(ParamControlTest, ConnectShowsAndWritesAnotherTarget) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0));
    CCaptureParam second(MakeInfo(kParamReal, 0.0, 10.0, 5.0));
    CParamControl control(first);
    CEventLog log;
    log.Listen(control.GetPositionEvents(), "position");
    control.Connect(second);
    EXPECT_EQ(log.Take(), "position");
    EXPECT_EQ(control.GetPosition(), 0.5);
    control.SetPosition(0.25);
    EXPECT_EQ(second.GetValue(), 2.5);
    EXPECT_EQ(first.GetValue(), 0.0);
}

TEST(ParamControlTest, AGestureMovesAlongToAnotherTarget) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0));
    CCaptureParam second(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(first);
    control.Capture();
    control.Connect(second);
    EXPECT_FALSE(first.IsCaptured());
    EXPECT_TRUE(second.IsCaptured());
    EXPECT_TRUE(control.IsCaptured());
    control.Release();
    EXPECT_FALSE(second.IsCaptured());
}

TEST(ParamControlTest, AGestureEndsWithTheControl) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    {
        CParamControl control(param);
        control.Capture();
        EXPECT_TRUE(param.IsCaptured());
    }
    EXPECT_FALSE(param.IsCaptured());
}

// Fine mode

TEST(ParamControlTest, FineModeMultipliesTheSteps) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    EXPECT_EQ(control.GetFineRatio(), 10);
    EXPECT_EQ(control.GetStep(), 5.0);
    control.SetPositionsCount(5);
    control.SetFineMode(true);
    EXPECT_TRUE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 41);
    control.SetFineMode(true);
    EXPECT_EQ(control.GetPositionsCount(), 41);
    control.SetFineMode(false);
    EXPECT_FALSE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 5);
}

TEST(ParamControlTest, AParameterWithoutSoManyValuesRefusesFineMode) {
    CCaptureParam param(MakeInfo(kParamInteger, 1.0, 5.0));
    CParamControl control(param);
    CEventLog log;
    log.Listen(control.GetConfigEvents(), "config");
    control.SetFineMode(true);
    EXPECT_FALSE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 5);
    EXPECT_EQ(log.Take(), "");

    control.SetPositionsCount(3);
    control.SetFineMode(true);
    EXPECT_FALSE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 3) << "back from the five that it has";
}

TEST(ParamControlTest, AParameterWithEnoughValuesTakesFineMode) {
    CCaptureParam param(MakeInfo(kParamInteger, 0.0, 40.0));
    CParamControl control(param);
    control.SetPositionsCount(5);
    control.SetFineMode(true);
    EXPECT_TRUE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 41);
}

TEST(ParamControlTest, AContinuumOnlyKeepsTheFlag) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    CEventLog log;
    log.Listen(control.GetConfigEvents(), "config");
    control.SetFineMode(true);
    EXPECT_TRUE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), -1);
    control.SetFineMode(false);
    EXPECT_FALSE(control.GetFineMode());
    EXPECT_EQ(log.Take(), "");
}

TEST(ParamControlTest, TheFineRatioIsAtLeastOne) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    for (const int ratio : {0, -1, INT_MIN}) {
        control.SetFineRatio(ratio);
        EXPECT_EQ(control.GetFineRatio(), 1);
    }
    control.SetPositionsCount(5);
    control.SetFineMode(true);
    EXPECT_TRUE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 5);
}

TEST(ParamControlTest, AnotherFineRatioInFineModeStartsFromThePlainSteps) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    control.SetPositionsCount(5);
    control.SetFineMode(true);
    control.SetFineRatio(3);
    EXPECT_EQ(control.GetFineRatio(), 3);
    EXPECT_TRUE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 13);
    control.SetFineMode(false);
    EXPECT_EQ(control.GetPositionsCount(), 5);
}

TEST(ParamControlTest, MoreFineStepsThanAnIntCountsAreRefused) {
    CCaptureParam param(MakeInfo(kParamReal, 0.0, 1.0));
    CParamControl control(param);
    control.SetFineRatio(INT_MAX);
    control.SetPositionsCount(INT_MAX);
    control.SetFineMode(true);
    EXPECT_FALSE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), INT_MAX);
    control.SetPositionsCount(1);
    control.SetFineMode(true);
    EXPECT_TRUE(control.GetFineMode()) << "no step, nothing to multiply";
    EXPECT_EQ(control.GetPositionsCount(), 1);
}

TEST(ParamControlTest, AnotherTargetEndsFineMode) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0));
    CCaptureParam second(MakeInfo(kParamInteger, 0.0, 4.0));
    CParamControl control(first);
    control.SetPositionsCount(5);
    control.SetFineMode(true);
    control.Connect(second);
    EXPECT_FALSE(control.GetFineMode());
    EXPECT_EQ(control.GetPositionsCount(), 5);
    control.SetFineMode(false);
    EXPECT_EQ(control.GetPositionsCount(), 5);
}

} // namespace
} // namespace Vorin::DataModel::Controls
