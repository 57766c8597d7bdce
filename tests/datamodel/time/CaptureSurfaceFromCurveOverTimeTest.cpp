#include "datamodel/time/CaptureSurfaceFromCurveOverTime.h"

#include "datamodel/time/OverTimeTestKit.h"
#include "math/Constant.h"

#include <cmath>
#include <limits>
#include <memory>

namespace Vorin::DataModel::Objects::Testing {
namespace {

/// A constant curve that counts how many of its kind there are.
class CCountedCurve : public Math::CConstantFunction {
public:
    CCountedCurve(double height, int& aliveCount) : CConstantFunction(height), alive(aliveCount) {
        ++alive;
    }
    CCountedCurve(const CCountedCurve& other) : CCountedCurve(other.GetValue(), other.alive) {}
    CCountedCurve& operator=(const CCountedCurve&) = delete;
    ~CCountedCurve() override { --alive; }

    IFunction* Clone() const override { return new CCountedCurve(*this); }

private:
    int& alive;
};

/// A curve that cannot be copied.
class CSingleCurve : public Math::CConstantFunction {
public:
    IFunction* Clone() const override { return nullptr; }
};

class CaptureSurfaceFromCurveOverTimeTest : public COverTimeTest {
protected:
    CaptureSurfaceFromCurveOverTimeTest() {
        source.GetInfo().SetDefaultValue(new Negate, Core::kOwn);
    }

    void Sample(int afterMilliseconds, const Math::IFunction& curve) {
        source.SetValue(curve);
        TickAfter(afterMilliseconds);
    }

    double At(double x, double y) const {
        return std::as_const(*surface).GetValue().Evaluate(x, y);
    }

    int alive = 0; // counted curves; outlives those who hold them
    CCaptureCurve source{CCurveInfo("Spectrum", "", MakeInfo("Frequency", 20.0, 2e4, 1e3, "Hz"),
                                    MakeInfo("Level", -90.0, 0.0, -60.0, "dB"))};
    std::unique_ptr<CCaptureSurfaceFromCurveOverTime> surface =
        std::make_unique<CCaptureSurfaceFromCurveOverTime>(&timers, clock);
};

TEST_F(CaptureSurfaceFromCurveOverTimeTest, TimeIsItsYAxis) {
    EXPECT_EQ(timers.TakeLog(), "+50 ");
    const IConstSurfaceInfo& info = surface->GetInfo();
    EXPECT_STREQ(info.GetYName(), "time");
    EXPECT_STREQ(info.GetYInfo().GetUnit(), "s");
    EXPECT_EQ(info.GetYInfo().GetMin(), -5.0);
    EXPECT_EQ(info.GetYInfo().GetMax(), 0.0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, ItsOtherAxesAreThoseOfTheCurve) {
    surface->Connect(source);
    const IConstSurfaceInfo& info = surface->GetInfo();
    EXPECT_STREQ(info.GetXName(), "Frequency");
    EXPECT_EQ(info.GetXInfo().GetMax(), 2e4);
    EXPECT_STREQ(info.GetYName(), "time");
    EXPECT_STREQ(info.GetZName(), "Level");
    EXPECT_STREQ(info.GetZInfo().GetUnit(), "dB");
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, AChangeOfTheSourcesInfoFollows) {
    surface->Connect(source);
    source.GetInfo().GetXInfo().SetMax(4e4);
    source.GetInfo().GetYInfo().SetMin(-120.0);
    EXPECT_EQ(surface->GetInfo().GetXInfo().GetMax(), 4e4);
    EXPECT_EQ(surface->GetInfo().GetZInfo().GetMin(), -120.0);
    EXPECT_EQ(surface->GetInfo().GetYInfo().GetMin(), -5.0);
    source.GetInfo().SetDefaultValue(new Square, Core::kOwn);
    EXPECT_EQ(At(3.0, -1.0), 9.0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, BeforeTheFirstTickItIsTheDefaultOfTheSource) {
    EXPECT_EQ(At(3.0, 0.0), 0.0);
    source.SetValue(Square());
    surface->Connect(source);
    EXPECT_EQ(At(3.0, 0.0), -3.0);
    EXPECT_EQ(At(3.0, -4.0), -3.0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, EachTickKeepsACopyOfThePresentCurve) {
    surface->Connect(source);
    CEventCounter events(surface->GetValueChangedEvents());
    Sample(250, Math::CConstantFunction(1.0));
    EXPECT_EQ(events.Take(), 1);
    Sample(250, Math::CConstantFunction(5.0));
    Sample(250, Square());
    EXPECT_EQ(events.Take(), 2);
    source.SetValue(Math::CConstantFunction(100.0)); // not sampled
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(At(3.0, 0.0), 9.0);
    EXPECT_EQ(At(3.0, -0.125), 7.0); // halfway between 5 and 9
    EXPECT_EQ(At(1.0, -0.125), 3.0);
    EXPECT_EQ(At(3.0, -4.0), -3.0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, ADurationForgetsTheHistoryAndNotifiesOnce) {
    surface->Connect(source);
    Sample(50, Square());
    CEventCounter events(surface->GetValueChangedEvents());
    surface->SetDuration(2500);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_EQ(surface->GetInfo().GetYInfo().GetMin(), -2.5);
    EXPECT_EQ(At(3.0, 0.0), -3.0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, ARefreshTimeForgetsTheHistory) {
    surface->Connect(source);
    Sample(50, Square());
    timers.TakeLog();
    CEventCounter events(surface->GetValueChangedEvents());
    surface->SetRefreshTime(0);
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(timers.TakeLog(), "- +0 ");
    EXPECT_EQ(surface->GetRefreshTime(), 1);
    EXPECT_EQ(At(3.0, 0.0), -3.0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, ItHoldsAsManyCurvesAsTicksFitIntoTheDuration) {
    surface->Connect(source);
    surface->SetDuration(1000);
    surface->SetRefreshTime(250);
    for (int i = 0; i < 10; ++i) {
        Sample(250, CCountedCurve(i, alive));
    }
    EXPECT_EQ(alive, 5); // four in the history, and the source's
    surface->SetDuration(1000);
    EXPECT_EQ(alive, 1);
    TickAfter(250);
    TickAfter(0); // refused: the same time
    EXPECT_EQ(alive, 2);
    surface.reset();
    EXPECT_EQ(alive, 1);
    source.SetValue(Square());
    EXPECT_EQ(alive, 0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, ExtremeDurationsAndPeriodsAreBounded) {
    constexpr int maxInt = std::numeric_limits<int>::max();
    constexpr int minInt = std::numeric_limits<int>::min();
    surface->Connect(source);
    source.SetValue(CCountedCurve(2.0, alive));
    for (const int refreshTime : {minInt, -1, 0, 1, maxInt}) {
        for (const int duration : {minInt, -1, 0, 1, maxInt}) {
            surface->SetRefreshTime(refreshTime);
            surface->SetDuration(duration);
            EXPECT_EQ(surface->GetInfo().GetYInfo().GetMin(), -0.001 * std::max(duration, 0));
            TickAfter(1);
            EXPECT_EQ(At(0.0, 0.0), 2.0);
        }
    }
    surface->SetRefreshTime(1);
    surface->SetDuration(maxInt);
    for (int i = 0; i < 20'000; ++i) {
        TickAfter(10);
    }
    EXPECT_EQ(alive, 16'384 + 1);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, APauseShowsAsAGapInTime) {
    surface->Connect(source);
    Sample(100, Math::CConstantFunction(0.0));
    Sample(100, Math::CConstantFunction(1.0));
    surface->SetEnabled(false);
    Sample(500, Math::CConstantFunction(9.0));
    surface->SetEnabled(true);
    Sample(500, Math::CConstantFunction(2.0));
    EXPECT_NEAR(At(0.0, -0.5), 1.5, 1e-6);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, DisconnectedItKeepsItsHistoryAndAddsNothing) {
    surface->Connect(source);
    Sample(50, Square());
    surface->Disconnect();
    CEventCounter events(surface->GetValueChangedEvents());
    Sample(50, Math::CConstantFunction(100.0));
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(At(3.0, 0.0), 9.0);
    EXPECT_EQ(At(3.0, -4.0), 0.0);
    source.GetInfo().GetXInfo().SetName("Nobody listens");
    EXPECT_STREQ(surface->GetInfo().GetXName(), "Frequency");
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, ItIsNeverCaptured) {
    surface->Connect(source);
    CEventCounter captures(surface->GetCaptureEvents());
    source.Capture();
    TickAfter(50);
    EXPECT_FALSE(surface->IsCaptured());
    EXPECT_EQ(captures.Take(), 0);
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, ACurveThatGivesNoCopyLeavesTheDefaultInItsPlace) {
    class CSingleCapture : public CConstCaptureCurve {
    public:
        CSingleCapture() { HoldValue(new CSingleCurve, Core::kOwn); }
    } single;
    single.GetInfo().SetDefaultValue(new Negate, Core::kOwn);
    surface->Connect(single);
    TickAfter(50);
    EXPECT_EQ(At(3.0, 0.0), -3.0);
    surface->Disconnect();
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, NotANumberIsAValueLikeAnyOther) {
    surface->Connect(source);
    Sample(50, Math::CConstantFunction(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(std::isnan(At(0.0, 0.0)));
    Sample(50, Square());
    EXPECT_EQ(At(3.0, 0.0), 9.0);
    At(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN());
}

TEST_F(CaptureSurfaceFromCurveOverTimeTest, TheDestructorRemovesTheTimerAndLetsGo) {
    surface->Connect(source);
    timers.TakeLog();
    surface.reset();
    EXPECT_EQ(timers.TakeLog(), "- ");
    EXPECT_TRUE(timers.timers.empty());
    source.GetInfo().SetName("alone");
}

} // namespace
} // namespace Vorin::DataModel::Objects::Testing
