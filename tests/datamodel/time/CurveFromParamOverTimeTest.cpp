#include "datamodel/time/CurveFromParamOverTime.h"

#include "datamodel/time/OverTimeTestKit.h"
#include "system/RunLoopTimerProvider.h"

#include <cmath>
#include <limits>
#include <memory>

namespace Vorin::DataModel::Objects::Testing {
namespace {

constexpr int maxInt = std::numeric_limits<int>::max();
constexpr int minInt = std::numeric_limits<int>::min();

class CurveFromParamOverTimeTest : public COverTimeTest {
protected:
    void Sample(int afterMilliseconds, double value) {
        source.SetValue(value);
        TickAfter(afterMilliseconds);
    }

    double At(double x) const { return std::as_const(*curve).GetValue().Evaluate(x); }

    CCaptureParam source{MakeInfo("Level", 0.0, 10.0, 3.0, "dB")};
    std::unique_ptr<CCurveFromParamOverTime> curve =
        std::make_unique<CCurveFromParamOverTime>(&timers, clock);
};

TEST_F(CurveFromParamOverTimeTest, ANewOneTicksEvery50MsAndRemembers5Seconds) {
    EXPECT_EQ(timers.TakeLog(), "+50 ");
    EXPECT_EQ(curve->GetRefreshTime(), 50);
    EXPECT_TRUE(curve->IsEnabled());
    const IConstCurveInfo& info = curve->GetInfo();
    EXPECT_STREQ(info.GetXName(), "time");
    EXPECT_STREQ(info.GetXInfo().GetUnit(), "s");
    EXPECT_EQ(info.GetXInfo().GetType(), kParamReal);
    EXPECT_EQ(info.GetXInfo().GetMin(), -5.0);
    EXPECT_EQ(info.GetXInfo().GetMax(), 0.0);
    EXPECT_EQ(info.GetXInfo().GetDefault(), 0.0);
}

TEST_F(CurveFromParamOverTimeTest, BeforeTheFirstTickItIsTheDefaultOfTheSource) {
    EXPECT_EQ(At(0.0), 0.0);
    source.SetValue(7.0);
    curve->Connect(source);
    EXPECT_EQ(At(0.0), 3.0);
    EXPECT_EQ(At(-2.5), 3.0);
}

TEST_F(CurveFromParamOverTimeTest, WithoutASourceATickDoesNothing) {
    CEventCounter events(curve->GetValueChangedEvents());
    TickAfter(50);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(At(0.0), 0.0);
}

TEST_F(CurveFromParamOverTimeTest, EachTickAddsThePresentValueAndNotifies) {
    curve->Connect(source);
    CEventCounter events(curve->GetValueChangedEvents());
    Sample(250, 1.0);
    EXPECT_EQ(events.Take(), 1);
    Sample(250, 7.0);
    Sample(250, 9.0);
    EXPECT_EQ(events.Take(), 2);
    EXPECT_EQ(At(0.0), 9.0);
    EXPECT_EQ(At(-0.125), 8.0); // halfway between the last two
    EXPECT_EQ(At(-2.0), 3.0);   // older than everything
}

TEST_F(CurveFromParamOverTimeTest, TheFirstPointAfterADurationIsReadAtZero) {
    curve->Connect(source);
    clock.Advance(1750);
    curve->SetDuration(1000);
    Sample(250, 7.0);
    EXPECT_EQ(At(0.0), 7.0);
    EXPECT_EQ(At(-0.001), 3.0); // a single point is no line
}

TEST_F(CurveFromParamOverTimeTest, TimeRunsFromConstructionInSinglePrecision) {
    curve->Connect(source);
    clock.Advance(100'000'000); // 100,000 s, where single precision has steps of 1/128 s
    Sample(0, 1.0);
    Sample(1, 2.0); // the same time by those steps: refused
    EXPECT_EQ(At(0.0), 1.0);
    Sample(10, 4.0);
    EXPECT_EQ(At(0.0), 4.0);
}

TEST_F(CurveFromParamOverTimeTest, ASecondTickAtTheSameTimeIsToldOfButAddsNothing) {
    curve->Connect(source);
    Sample(50, 1.0);
    CEventCounter events(curve->GetValueChangedEvents());
    Sample(0, 2.0);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_EQ(At(0.0), 1.0);
}

TEST_F(CurveFromParamOverTimeTest, APauseShowsAsAGapInTime) {
    curve->Connect(source);
    Sample(100, 0.0);
    Sample(100, 1.0);
    curve->SetEnabled(false);
    EXPECT_FALSE(curve->IsEnabled());
    CEventCounter events(curve->GetValueChangedEvents());
    Sample(500, 9.0);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(At(0.0), 1.0);
    curve->SetEnabled(true);
    Sample(500, 2.0);
    EXPECT_EQ(events.Take(), 1);
    // A second lies between the two samples at the sides of the pause.
    EXPECT_NEAR(At(-0.5), 1.5, 1e-6);
    EXPECT_NEAR(At(-0.9), 1.1, 1e-6);
}

TEST_F(CurveFromParamOverTimeTest, ADurationMakesTheTimeAxisAndIsSilent) {
    curve->Connect(source);
    CEventCounter events(curve->GetValueChangedEvents());
    CEventCounter infoEvents(std::as_const(*curve).GetInfo().GetInfoChangedEvents());
    curve->SetDuration(2500);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(infoEvents.Take(), 1);
    EXPECT_EQ(curve->GetInfo().GetXInfo().GetMin(), -2.5);
    EXPECT_EQ(curve->GetInfo().GetXInfo().GetMax(), 0.0);
    EXPECT_STREQ(curve->GetInfo().GetXInfo().GetName(), "time");
}

TEST_F(CurveFromParamOverTimeTest, ADurationForgetsTheHistory) {
    curve->Connect(source);
    Sample(50, 8.0);
    curve->SetDuration(5000);
    EXPECT_EQ(At(0.0), 3.0);
}

TEST_F(CurveFromParamOverTimeTest, ARefreshTimeForgetsTheHistory) {
    curve->Connect(source);
    Sample(50, 8.0);
    timers.TakeLog();
    curve->SetRefreshTime(20);
    EXPECT_EQ(timers.TakeLog(), "- +20 ");
    EXPECT_EQ(timers.timers.size(), 1U);
    EXPECT_EQ(curve->GetRefreshTime(), 20);
    EXPECT_EQ(At(0.0), 3.0);
}

// 1 s of ticks every 250 ms: four points, of which the oldest is 750 ms old.
void ExpectFourPoints(const Math::IFunction& function) {
    EXPECT_EQ(function.Evaluate(0.0), 9.0);
    EXPECT_NEAR(function.Evaluate(-0.4), 9.0 - 1.6, 1e-6);
    EXPECT_EQ(function.Evaluate(-0.8), 3.0);
}

TEST_F(CurveFromParamOverTimeTest, ItHoldsAsManyPointsAsTicksFitIntoTheDuration) {
    curve->Connect(source);
    curve->SetDuration(1000);
    curve->SetRefreshTime(250);
    for (int i = 0; i < 10; ++i) {
        Sample(250, i);
    }
    ExpectFourPoints(std::as_const(*curve).GetValue());
}

TEST_F(CurveFromParamOverTimeTest, TheOrderOfDurationAndRefreshTimeDoesNotMatter) {
    curve->Connect(source);
    curve->SetRefreshTime(250);
    curve->SetDuration(1000);
    for (int i = 0; i < 10; ++i) {
        Sample(250, i);
    }
    ExpectFourPoints(std::as_const(*curve).GetValue());
}

TEST_F(CurveFromParamOverTimeTest, ARefreshTimeOf0CountsAs1ButReachesTheTimerAsItIs) {
    curve->Connect(source);
    timers.TakeLog();
    curve->SetRefreshTime(0);
    EXPECT_EQ(timers.TakeLog(), "- +0 ");
    EXPECT_EQ(curve->GetRefreshTime(), 1);
    Sample(1, 4.0);
    EXPECT_EQ(At(0.0), 4.0);
    // 5 s at 1 ms: far more points than at 50 ms.
    for (int i = 0; i < 1000; ++i) {
        Sample(1, 5.0);
    }
    EXPECT_NEAR(At(-0.9), 5.0, 1e-9);
}

TEST_F(CurveFromParamOverTimeTest, NegativeRefreshTimesCountAs1) {
    curve->Connect(source);
    for (const int milliseconds : {-1, -1000, minInt}) {
        timers.TakeLog();
        curve->SetRefreshTime(milliseconds);
        EXPECT_EQ(timers.TakeLog(), "- +" + std::to_string(milliseconds) + " ");
        EXPECT_EQ(curve->GetRefreshTime(), 1);
        Sample(1, 4.0);
        EXPECT_EQ(At(0.0), 4.0);
    }
}

TEST_F(CurveFromParamOverTimeTest, TheLongestRefreshTimeHoldsOnePoint) {
    curve->Connect(source);
    curve->SetRefreshTime(maxInt);
    EXPECT_EQ(curve->GetRefreshTime(), maxInt);
    Sample(1, 4.0);
    Sample(1, 6.0);
    EXPECT_EQ(At(0.0), 6.0);
    EXPECT_EQ(At(-0.0005), 3.0);
}

TEST_F(CurveFromParamOverTimeTest, DurationsOf0AndBelowGiveAnAxisOfOnePoint) {
    curve->Connect(source);
    for (const int milliseconds : {0, -1, minInt}) {
        curve->SetDuration(milliseconds);
        const IConstParamInfo& axis = curve->GetInfo().GetXInfo();
        EXPECT_EQ(axis.GetMin(), 0.0);
        EXPECT_FALSE(std::signbit(axis.GetMin()));
        EXPECT_EQ(axis.GetMax(), 0.0);
        Sample(50, 4.0);
        Sample(50, 6.0);
        EXPECT_EQ(At(0.0), 6.0);
        EXPECT_EQ(At(-0.01), 3.0);
    }
}

TEST_F(CurveFromParamOverTimeTest, TheLongestDurationIsBoundedInPoints) {
    curve->Connect(source);
    curve->SetRefreshTime(1);
    curve->SetDuration(maxInt); // two thousand million ticks
    EXPECT_EQ(curve->GetInfo().GetXInfo().GetMin(), -2147483.647);
    Sample(1, 4.0);
    EXPECT_EQ(At(0.0), 4.0);
    curve->SetRefreshTime(minInt);
    Sample(1, 5.0);
    EXPECT_EQ(At(0.0), 5.0);
}

TEST_F(CurveFromParamOverTimeTest, TheYAxisIsThatOfTheSource) {
    CEventCounter events(curve->GetValueChangedEvents());
    CEventCounter infoEvents(std::as_const(*curve).GetInfo().GetInfoChangedEvents());
    curve->Connect(source);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(infoEvents.Take(), 1);
    const IConstParamInfo& axis = curve->GetInfo().GetYInfo();
    EXPECT_STREQ(axis.GetName(), "Level");
    EXPECT_STREQ(axis.GetUnit(), "dB");
    EXPECT_EQ(axis.GetMax(), 10.0);
    EXPECT_EQ(curve->GetInfo().GetXInfo().GetMin(), -5.0);
}

TEST_F(CurveFromParamOverTimeTest, AChangeOfTheSourcesInfoFollows) {
    curve->Connect(source);
    CEventCounter infoEvents(std::as_const(*curve).GetInfo().GetInfoChangedEvents());
    source.GetInfo().SetMax(20.0);
    EXPECT_EQ(infoEvents.Take(), 1);
    EXPECT_EQ(curve->GetInfo().GetYInfo().GetMax(), 20.0);
    source.GetInfo().SetDefault(4.0);
    EXPECT_EQ(At(-1.0), 4.0);
}

TEST_F(CurveFromParamOverTimeTest, AnotherSourceTakesThePlaceOfTheFirst) {
    CCaptureParam other(MakeInfo("Other", -1.0, 1.0, 0.5));
    curve->Connect(source);
    Sample(50, 8.0);
    curve->Connect(other);
    EXPECT_STREQ(curve->GetInfo().GetYName(), "Other");
    EXPECT_EQ(At(0.0), 8.0); // what is remembered stays
    EXPECT_EQ(At(-3.0), 0.5);
    other.SetValue(-0.25);
    TickAfter(50);
    EXPECT_EQ(At(0.0), -0.25);
    source.GetInfo().SetName("Nobody listens");
    EXPECT_STREQ(curve->GetInfo().GetYName(), "Other");
    curve->Disconnect();
}

TEST_F(CurveFromParamOverTimeTest, DisconnectedItTicksOnAndDoesNothing) {
    {
        CCaptureParam shortLived(MakeInfo("Short", 0.0, 1.0, 0.5));
        curve->Connect(shortLived);
        shortLived.SetValue(0.75);
        TickAfter(50);
        curve->Disconnect();
        EXPECT_EQ(At(0.0), 0.75);
        EXPECT_EQ(At(-3.0), 0.0);
    }
    CEventCounter events(curve->GetValueChangedEvents());
    timers.TakeLog();
    TickAfter(50);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(timers.timers.size(), 1U);
    EXPECT_EQ(At(0.0), 0.75);
    curve->Disconnect();
    EXPECT_EQ(timers.TakeLog(), "");
}

TEST_F(CurveFromParamOverTimeTest, ItIsNeverCapturedAlsoWhileItsSourceIs) {
    curve->Connect(source);
    CEventCounter captures(curve->GetCaptureEvents());
    CEventCounter releases(curve->GetReleaseEvents());
    source.Capture();
    EXPECT_FALSE(curve->IsCaptured());
    TickAfter(50);
    EXPECT_FALSE(curve->IsCaptured());
    source.Release();
    EXPECT_EQ(captures.Take(), 0);
    EXPECT_EQ(releases.Take(), 0);
}

TEST_F(CurveFromParamOverTimeTest, TheDestructorRemovesTheTimerAndLetsGo) {
    curve->Connect(source);
    timers.TakeLog();
    curve.reset();
    EXPECT_EQ(timers.TakeLog(), "- ");
    EXPECT_TRUE(timers.timers.empty());
    source.GetInfo().SetMax(20.0);
}

TEST_F(CurveFromParamOverTimeTest, AListenerMayChangeTheRefreshTimeDuringATick) {
    curve->Connect(source);
    System::Testing::CFunctionCommand faster([this] { curve->SetRefreshTime(10); });
    curve->GetValueChangedEvents().Connect(faster);
    Sample(50, 8.0);
    curve->GetValueChangedEvents().Disconnect(faster);
    EXPECT_EQ(curve->GetRefreshTime(), 10);
    ASSERT_EQ(timers.timers.size(), 1U);
    EXPECT_EQ(timers.timers[0].period, 10);
    Sample(10, 9.0);
    EXPECT_EQ(At(0.0), 9.0);
}

TEST_F(CurveFromParamOverTimeTest, NotANumberIsASampleLikeAnyOther) {
    CAnyParam odd;
    curve->Connect(odd);
    odd.SetValue(std::numeric_limits<double>::quiet_NaN());
    TickAfter(50);
    EXPECT_TRUE(std::isnan(At(0.0)));
    odd.SetValue(2.0);
    TickAfter(50);
    TickAfter(50);
    EXPECT_EQ(At(0.0), 2.0);
    EXPECT_NEAR(At(-0.025), 2.0, 1e-9);
    // As a place to read at it must only end.
    At(std::numeric_limits<double>::quiet_NaN());
    At(-std::numeric_limits<double>::infinity());
    curve->Disconnect();
}

TEST_F(CurveFromParamOverTimeTest, OnARunLoopItSamplesAtItsPeriod) {
    System::CRunLoop loop(clock);
    System::CRunLoopTimerProvider provider(loop);
    CCurveFromParamOverTime sampled(&provider, clock);
    sampled.SetRefreshTime(20);
    sampled.Connect(source);
    CEventCounter events(sampled.GetValueChangedEvents());
    for (int i = 0; i < 100; ++i) {
        clock.Advance(10);
        source.SetValue(0.01 * i);
        loop.Pump();
    }
    EXPECT_EQ(events.Take(), 50);
    EXPECT_EQ(std::as_const(sampled).GetValue().Evaluate(0.0), 0.99);
    EXPECT_NEAR(std::as_const(sampled).GetValue().Evaluate(-0.5), 0.49, 1e-4);
}

} // namespace
} // namespace Vorin::DataModel::Objects::Testing
