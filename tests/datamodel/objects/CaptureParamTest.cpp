#include "datamodel/objects/CaptureParam.h"

#include "core/EventCounter.h"
#include "core/NonFinite.h"
#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

#include <barrier>
#include <thread>

namespace Vorin::DataModel::Objects {
namespace {

using Testing::CEventLog;
using Testing::CListener;
using Testing::MakeInfo;

TEST(CaptureParamTest, ANewOneIsZeroWithADefaultInfo) {
    CCaptureParam param;
    EXPECT_EQ(param.GetValue(), 0.0);
    EXPECT_FALSE(param.IsCaptured());
    EXPECT_EQ(param.GetInfo().GetType(), kParamReal);
    EXPECT_EQ(param.GetInfo().GetMax(), 0.0);
}

TEST(CaptureParamTest, StartsAtTheClampedDefaultOfItsOwnCopyOfTheInfo) {
    CParamInfo info = MakeInfo(1.0, 4.0, 3.0);
    const CCaptureParam param(info);
    info.SetMax(2.0);
    EXPECT_EQ(param.GetValue(), 3.0);
    EXPECT_EQ(param.GetInfo().GetMax(), 4.0);
    EXPECT_STREQ(param.GetInfo().GetName(), "Level");

    EXPECT_EQ(CCaptureParam(MakeInfo(1.0, 4.0, 9.0)).GetValue(), 4.0);
    EXPECT_EQ(CCaptureParam(MakeInfo(1.0, 4.0, kNaN)).GetValue(), 4.0);
}

TEST(CaptureParamTest, StoresBeforeItNotifiesAndNotifiesValueSetInTheEnd) {
    CCaptureParam param(MakeInfo(0.0, 10.0));
    CEventLog log(param);
    const CListener set(param.GetValueSetEvents(), [&] { log.Note("set "); });
    double seen = -1.0;
    const CListener changed(param.GetValueChangedEvents(), [&] { seen = param.GetValue(); });
    param.SetValue(5.0);
    EXPECT_EQ(log.Take(), "value set ");
    EXPECT_EQ(seen, 5.0);
}

TEST(CaptureParamTest, AnEqualValueGivesNoChangeEventAndOneValueSetEvent) {
    CCaptureParam param(MakeInfo(0.0, 10.0, 5.0));
    CEventLog log(param);
    const CListener set(param.GetValueSetEvents(), [&] { log.Note("set "); });
    param.SetValue(5.0);
    EXPECT_EQ(log.Take(), "set ");
    param.SetValue(50.0);
    EXPECT_EQ(log.Take(), "value set ");
    param.SetValue(60.0);
    EXPECT_EQ(log.Take(), "set ");
}

TEST(CaptureParamTest, ClampsToTheRange) {
    CCaptureParam param(MakeInfo(-2.0, 10.0));
    param.SetValue(-3.0);
    EXPECT_EQ(param.GetValue(), -2.0);
    param.SetValue(11.0);
    EXPECT_EQ(param.GetValue(), 10.0);
    param.SetValue(-kInfinity);
    EXPECT_EQ(param.GetValue(), -2.0);
    param.SetValue(kInfinity);
    EXPECT_EQ(param.GetValue(), 10.0);
}

TEST(CaptureParamTest, NaNEndsAsTheMaximumWithAChangeEventWhenThatDiffers) {
    CCaptureParam param(MakeInfo(0.0, 10.0, 4.0));
    CEventCounter changed(param.GetValueChangedEvents());
    param.SetValue(kNaN);
    EXPECT_EQ(param.GetValue(), 10.0);
    EXPECT_EQ(changed.Take(), 1);
    param.SetValue(kNaN);
    EXPECT_EQ(changed.Take(), 0);
}

TEST(CaptureParamTest, InAnInvertedRangeTheMaximumWins) {
    CCaptureParam param(MakeInfo(10.0, 0.0));
    for (const double value : {-5.0, 0.0, 5.0, 10.0, 20.0, kNaN}) {
        param.SetValue(value);
        EXPECT_EQ(param.GetValue(), 0.0) << value;
    }
}

TEST(CaptureParamTest, AnInfiniteRangeTakesAllNumbers) {
    CCaptureParam param(MakeInfo(-kInfinity, kInfinity));
    param.SetValue(-1e300);
    EXPECT_EQ(param.GetValue(), -1e300);
    param.SetValue(kInfinity);
    EXPECT_EQ(param.GetValue(), kInfinity);
}

TEST(CaptureParamTest, ARangeOfNaNNeverMakesTheValueNaN) {
    CCaptureParam noMax(MakeInfo(0.0, kNaN, 3.0));
    EXPECT_EQ(noMax.GetValue(), 0.0);
    noMax.SetValue(5.0);
    EXPECT_EQ(noMax.GetValue(), 0.0);
    CCaptureParam noMin(MakeInfo(kNaN, 10.0));
    noMin.SetValue(-5.0);
    EXPECT_EQ(noMin.GetValue(), -5.0);
}

TEST(CaptureParamTest, ARangeThatShrinksMovesTheValueAndFiresNoValueSet) {
    CCaptureParam param(MakeInfo(0.0, 10.0, 8.0));
    CEventLog log(param);
    const CListener set(param.GetValueSetEvents(), [&] { log.Note("set "); });
    param.GetInfo().SetMax(9.0);
    EXPECT_EQ(log.Take(), "");
    param.GetInfo().SetMax(6.0);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(param.GetValue(), 6.0);
    param.GetInfo().SetMin(7.0); // inverted for the moment
    EXPECT_EQ(log.Take(), "");
    param.GetInfo().SetMax(10.0);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(param.GetValue(), 7.0);
}

TEST(CaptureParamTest, TheGestureStoresFirstAndIsSilentWhenRepeated) {
    CCaptureParam param(MakeInfo(0.0, 10.0));
    CEventLog log(param);
    bool heldAtEvent = false;
    const CListener capture(param.GetCaptureEvents(), [&] { heldAtEvent = param.IsCaptured(); });
    param.Capture();
    param.Capture();
    EXPECT_TRUE(heldAtEvent);
    EXPECT_TRUE(param.IsCaptured());
    EXPECT_EQ(log.Take(), "capture ");
    param.Release();
    param.Release();
    EXPECT_FALSE(param.IsCaptured());
    EXPECT_EQ(log.Take(), "release ");
}

TEST(CaptureParamTest, HoldingStopsNeitherWritesNorEvents) {
    CCaptureParam param(MakeInfo(0.0, 10.0));
    param.Capture();
    CEventLog log(param);
    param.SetValue(1.0);
    EXPECT_EQ(param.GetValue(), 1.0);
    EXPECT_EQ(log.Take(), "value ");
}

TEST(CaptureParamTest, AListenerMaySetTheValueItHearsOf) {
    CCaptureParam param(MakeInfo(0.0, 10.0));
    int runs = 0;
    const CListener doubling(param.GetValueChangedEvents(), [&] {
        ++runs;
        param.SetValue(param.GetValue() * 2.0);
    });
    param.SetValue(3.0);
    EXPECT_EQ(param.GetValue(), 6.0);
    EXPECT_EQ(runs, 1);
}

TEST(CaptureParamTest, AllIsReachedThroughTheInterfaces) {
    CCaptureParam param(MakeInfo(0.0, 10.0));
    ICaptureParam& object = param;
    IConstCaptureParam& readOnly = object;
    object.SetValue(2.0);
    object.Capture();
    EXPECT_EQ(readOnly.GetValue(), 2.0);
    EXPECT_TRUE(readOnly.IsCaptured());
    EXPECT_EQ(readOnly.GetInfo().GetMax(), 10.0);
}

TEST(MTCaptureParamTest, ClampsAndComparesLikeThePlainOne) {
    CMTCaptureParam param(MakeInfo(0.0, 10.0, 2.0));
    CEventLog log(param);
    param.SetValue(2.0);
    EXPECT_EQ(log.Take(), "");
    param.SetValue(kNaN);
    EXPECT_EQ(param.GetValue(), 10.0);
    EXPECT_EQ(log.Take(), "value ");
    param.GetInfo().SetMax(5.0);
    EXPECT_EQ(param.GetValue(), 5.0);
    EXPECT_EQ(log.Take(), "value ");
    param.Capture();
    param.Capture();
    param.Release();
    EXPECT_EQ(log.Take(), "capture release ");
}

TEST(MTCaptureParamTest, TwoThreadsWriteHoldAndRead) {
    CMTCaptureParam param(MakeInfo(0.0, 1000.0));
    int events = 0; // under the lock of the event
    const CListener changed(param.GetValueChangedEvents(), [&] { ++events; });
    std::barrier start(2);
    const auto write = [&](double offset) {
        start.arrive_and_wait();
        for (int i = 1; i <= 400; ++i) {
            param.SetValue(i + offset);
            param.Capture();
            param.Release();
            const double value = param.GetValue();
            EXPECT_TRUE(value >= 1.0 && value <= 900.0);
        }
    };
    std::thread other(write, 500.0);
    write(0.0);
    other.join();
    EXPECT_TRUE(param.GetValue() == 400.0 || param.GetValue() == 900.0);
    EXPECT_GE(events, 400);
    EXPECT_FALSE(param.IsCaptured());
}

} // namespace
} // namespace Vorin::DataModel::Objects
