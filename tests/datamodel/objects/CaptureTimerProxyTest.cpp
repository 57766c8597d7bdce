#include "datamodel/objects/CaptureTimerProxy.h"

#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/CaptureString.h"
#include "datamodel/objects/CaptureValueWrapper.h"
#include "datamodel/objects/ObjectsTestTools.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <limits>
#include <thread>

namespace Vorin::DataModel::Objects {
namespace {

using System::CManualClock;
using System::CRunLoop;
using System::CRunLoopTimerProvider;
using System::Testing::CFakeTimerProvider;
using Testing::CEventLog;
using Testing::CListener;
using Testing::MakeInfo;

class CaptureTimerProxyTest : public ::testing::Test {
protected:
    void Tick() { timer.Tick(); }

    CFakeTimerProvider timer;
    CCaptureParam target{MakeInfo(0.0, 10.0, 1.0)};
    CCaptureParamTimerProxy proxy{target, &timer};
    CEventLog log{proxy};
};

TEST_F(CaptureTimerProxyTest, StartsWithTheTargetsValueAndRegistersItsTimer) {
    EXPECT_EQ(proxy.GetValue(), 1.0);
    EXPECT_EQ(&proxy.GetInfo(), &std::as_const(target).GetInfo());
    ASSERT_EQ(timer.timers.size(), 1u);
    EXPECT_EQ(timer.timers[0].period, 50);
    EXPECT_EQ(proxy.GetRefreshTime(), 50);
}

TEST_F(CaptureTimerProxyTest, ChangesAreShownAtTheTickOnceForAll) {
    target.SetValue(2.0);
    target.SetValue(3.0);
    EXPECT_EQ(proxy.GetValue(), 1.0);
    EXPECT_EQ(log.Take(), "");
    Tick();
    EXPECT_EQ(proxy.GetValue(), 3.0);
    EXPECT_EQ(log.Take(), "value ");
    Tick();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureTimerProxyTest, AValueThatCameBackStillNotifiesOnce) {
    target.SetValue(2.0);
    target.SetValue(1.0);
    Tick();
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(proxy.GetValue(), 1.0);
}

TEST_F(CaptureTimerProxyTest, AGestureEnclosesTheChangesThatItBrought) {
    target.Capture();
    target.SetValue(2.0);
    EXPECT_FALSE(proxy.IsCaptured());
    Tick();
    EXPECT_TRUE(proxy.IsCaptured());
    EXPECT_EQ(log.Take(), "capture value ");
    target.SetValue(3.0);
    target.Release();
    EXPECT_TRUE(proxy.IsCaptured());
    Tick();
    EXPECT_EQ(log.Take(), "value release ");
    EXPECT_FALSE(proxy.IsCaptured());
}

TEST_F(CaptureTimerProxyTest, AGestureBetweenTwoTicksGivesNoEvents) {
    target.Capture();
    target.Release();
    Tick();
    EXPECT_EQ(log.Take(), "");
    EXPECT_FALSE(proxy.IsCaptured());
}

TEST_F(CaptureTimerProxyTest, AGestureThatAListenerEndsIsReleasedAgainBehindTheValue) {
    const CListener ending(proxy.GetCaptureEvents(), [&] { proxy.Release(); });
    target.Capture();
    target.SetValue(2.0);
    Tick();
    EXPECT_EQ(log.Take(), "capture release value release ");
    EXPECT_FALSE(proxy.IsCaptured());
    EXPECT_FALSE(target.IsCaptured());
}

TEST_F(CaptureTimerProxyTest, AGestureThatBeginsAgainDuringTheUpdateIsNotReleased) {
    target.Capture();
    Tick();
    log.Take();
    const CListener holding(proxy.GetValueChangedEvents(), [&] { proxy.Capture(); });
    target.SetValue(4.0);
    target.Release();
    Tick();
    EXPECT_EQ(log.Take(), "value capture ");
    EXPECT_TRUE(proxy.IsCaptured());
}

TEST_F(CaptureTimerProxyTest, ShowsAGestureThatWasGoingOnWhenItWasMade) {
    target.Capture();
    CCaptureParamTimerProxy late(target, &timer);
    EXPECT_TRUE(late.IsCaptured());
}

TEST_F(CaptureTimerProxyTest, WhilePausedTheCacheIsFrozenAndTheChangeWaits) {
    proxy.SetPaused(true);
    EXPECT_TRUE(proxy.IsPaused());
    target.Capture();
    target.SetValue(5.0);
    Tick();
    Tick();
    EXPECT_EQ(proxy.GetValue(), 1.0);
    EXPECT_EQ(log.Take(), "");
    proxy.SetPaused(false);
    EXPECT_EQ(log.Take(), "");
    Tick();
    EXPECT_EQ(log.Take(), "capture value ");
    EXPECT_EQ(proxy.GetValue(), 5.0);
}

TEST_F(CaptureTimerProxyTest, ThePauseIsAParameterInOneLine) {
    TCaptureValueWrapper paused(proxy, &CCaptureParamTimerProxy::IsPaused,
                                &CCaptureParamTimerProxy::SetPaused,
                                MakeInfo(0.0, 1.0, 0.0, kParamSwitch));
    paused.SetValue(1.0);
    EXPECT_TRUE(proxy.IsPaused());
    EXPECT_EQ(paused.GetValue(), 1.0);
    TCaptureValueWrapper refreshTime(proxy, &Core::IRefreshTime::GetRefreshTime,
                                     &Core::IRefreshTime::SetRefreshTime,
                                     MakeInfo(1.0, 1000.0, 50.0, kParamInteger));
    refreshTime.SetValue(20.0);
    EXPECT_EQ(timer.timers.at(0).period, 20);
}

TEST_F(CaptureTimerProxyTest, WhileUpdatesAreOffGesturesGoOnAndTheValueWaits) {
    proxy.SetUpdateEnabled(false);
    target.Capture();
    target.SetValue(5.0);
    Tick();
    EXPECT_EQ(log.Take(), "capture ");
    proxy.UpdateValue();
    EXPECT_EQ(proxy.GetValue(), 1.0);
    proxy.SetUpdateEnabled(true);
    proxy.UpdateValue();
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(proxy.GetValue(), 5.0);
}

TEST_F(CaptureTimerProxyTest, AnUpdateNeedNotWaitForTheTickAndIsDoneThen) {
    target.SetValue(5.0);
    proxy.UpdateValue();
    EXPECT_EQ(log.Take(), "value ");
    Tick();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureTimerProxyTest, AWriteGoesToTheTargetAtOnceAndIsSeenAtOnce) {
    proxy.SetValue(7.0);
    EXPECT_EQ(target.GetValue(), 7.0);
    EXPECT_EQ(proxy.GetValue(), 7.0);
    EXPECT_EQ(log.Take(), "value ");
    Tick();
    EXPECT_EQ(log.Take(), "");
    proxy.SetValue(7.0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureTimerProxyTest, TheTargetIsWrittenBeforeListenersHereAreTold) {
    const CListener there(target.GetValueChangedEvents(), [&] { log.Note("target "); });
    proxy.SetValue(7.0);
    EXPECT_EQ(log.Take(), "target value ");
}

TEST_F(CaptureTimerProxyTest, AWriteOfTheShownValueTellsOfAChangeThatWasStillToBeTold) {
    target.SetValue(5.0);
    proxy.SetValue(1.0); // what is shown here
    EXPECT_EQ(target.GetValue(), 1.0);
    EXPECT_EQ(log.Take(), "value ");
    Tick();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureTimerProxyTest, AWriteClampsToTheRange) {
    proxy.SetValue(50.0);
    EXPECT_EQ(proxy.GetValue(), 10.0);
    EXPECT_EQ(target.GetValue(), 10.0);
    proxy.SetValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(proxy.GetValue(), 10.0);
    EXPECT_EQ(log.Take(), "value ");
}

TEST_F(CaptureTimerProxyTest, WhatTheTargetMadeOfAWriteFollowsAtTheTick) {
    // A listener of the target that changes the value again, as another thread could.
    const CListener halving(target.GetValueChangedEvents(),
                            [&] { target.SetValue(target.GetValue() / 2.0); });
    proxy.SetValue(8.0);
    EXPECT_EQ(proxy.GetValue(), 8.0);
    EXPECT_EQ(log.Take(), "value ");
    Tick();
    EXPECT_EQ(proxy.GetValue(), 4.0);
    EXPECT_EQ(log.Take(), "value ");
}

TEST_F(CaptureTimerProxyTest, GesturesGoToTheTargetAtOnce) {
    const CListener held(target.GetCaptureEvents(), [&] { log.Note("target "); });
    const CListener let(target.GetReleaseEvents(), [&] { log.Note("target "); });
    proxy.Capture();
    EXPECT_TRUE(target.IsCaptured());
    EXPECT_TRUE(proxy.IsCaptured());
    EXPECT_EQ(log.Take(), "target capture ");
    proxy.Capture();
    Tick();
    EXPECT_EQ(log.Take(), "");
    proxy.Release();
    EXPECT_FALSE(target.IsCaptured());
    EXPECT_EQ(log.Take(), "target release ");
    proxy.Release();
    Tick();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureTimerProxyTest, ANewRefreshTimeIsANewTimer) {
    timer.TakeLog();
    proxy.SetRefreshTime(20);
    EXPECT_EQ(timer.TakeLog(), "- +20 ");
    EXPECT_EQ(proxy.GetRefreshTime(), 20);
    target.SetValue(2.0);
    Tick();
    EXPECT_EQ(log.Take(), "value ");
}

TEST_F(CaptureTimerProxyTest, AListenerMayChangeTheRefreshTime) {
    const CListener changing(proxy.GetValueChangedEvents(), [&] { proxy.SetRefreshTime(20); });
    target.SetValue(2.0);
    Tick();
    EXPECT_EQ(timer.timers.at(0).period, 20);
}

TEST_F(CaptureTimerProxyTest, DisconnectLetsGoOfTheTargetAndTheDestructorOfTheTimer) {
    auto other = std::make_unique<CCaptureParam>(MakeInfo(0.0, 10.0, 2.0));
    {
        CConstCaptureParamTimerProxy shown(*other, &timer, 20);
        EXPECT_EQ(timer.timers.size(), 2u);
        EXPECT_EQ(shown.GetRefreshTime(), 20);
        shown.Disconnect();
        other->SetValue(3.0);
        other->Capture();
        other.reset();
        timer.timers.at(1).command->Execute();
        EXPECT_FALSE(shown.IsCaptured());
    }
    EXPECT_EQ(timer.timers.size(), 1u);
}

TEST_F(CaptureTimerProxyTest, DisconnectedByAListenerOfItsWriteItReadsTheTargetNoMore) {
    const CListener listener(target.GetValueChangedEvents(), [this] {
        proxy.Disconnect();
        target.SetValue(7.0);
    });
    proxy.SetValue(5.0);
    EXPECT_EQ(target.GetValue(), 7.0);
    EXPECT_EQ(log.Take(), "value ");
    Tick();
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(proxy.GetValue(), 5.0);
}

TEST_F(CaptureTimerProxyTest, ADestroyedProxyIsUnknownToItsTarget) {
    { const CConstCaptureParamTimerProxy shown(target, &timer); }
    target.SetValue(9.0);
    target.Capture();
    target.Release();
    EXPECT_EQ(timer.timers.size(), 1u);
}

TEST_F(CaptureTimerProxyTest, IsAllThatItsInterfacesSay) {
    TICaptureObjectTimerProxy<IConstCaptureParam, ICaptureParam>& both = proxy;
    IProxyValueUpdate& update = both;
    ICaptureParam& param = both;
    TIConstCaptureObjectProxy<IConstCaptureParam>& readOnly = both;
    param.SetValue(2.0);
    update.UpdateValue();
    both.OnTimer();
    EXPECT_EQ(readOnly.GetValue(), 2.0);
}

TEST(CaptureTimerProxyClockTest, KeepsToItsRefreshTimeOnARunLoop) {
    CManualClock clock;
    CRunLoop loop(clock);
    CRunLoopTimerProvider timers(loop);
    CCaptureParam target(MakeInfo(0.0, 10.0));
    CConstCaptureParamTimerProxy proxy(target, &timers, 40);
    target.SetValue(3.0);
    clock.Advance(39);
    loop.Pump();
    EXPECT_EQ(proxy.GetValue(), 0.0);
    clock.Advance(1);
    loop.Pump();
    EXPECT_EQ(proxy.GetValue(), 3.0);
    proxy.SetRefreshTime(10);
    target.SetValue(4.0);
    clock.Advance(10);
    loop.Pump();
    EXPECT_EQ(proxy.GetValue(), 4.0);
}

using CCurveTimerProxy = TCaptureObjectTimerProxy<const Math::IFunction&, IConstCurveInfo>;
using CStringTimerProxy = TCaptureObjectTimerProxy<const char*, IConstStringInfo>;

TEST(CaptureObjectTimerProxyTest, ACurveIsACloneOfTheTargets) {
    CFakeTimerProvider timer;
    int living = 0;
    CCaptureCurve target;
    target.SetValue(Testing::CCountedFunction(1.0, living));
    CCurveTimerProxy proxy(target, &timer);
    CEventLog log(proxy);
    EXPECT_EQ(living, 2);
    target.SetValue(Testing::CCountedFunction(2.0, living));
    EXPECT_EQ(proxy.GetValue().Evaluate(0.0), 1.0);
    timer.Tick();
    EXPECT_EQ(proxy.GetValue().Evaluate(0.0), 2.0);
    EXPECT_EQ(log.Take(), "value ");
    proxy.SetValue(proxy.GetValue());
    proxy.SetValue(Math::CConstantFunction(3.0));
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_EQ(target.GetValue().Evaluate(0.0), 3.0);
    EXPECT_EQ(proxy.GetValue().Evaluate(0.0), 3.0);
    EXPECT_EQ(living, 0);
}

TEST(CaptureObjectTimerProxyTest, AStringIsACopyOfTheTargets) {
    CFakeTimerProvider timer;
    CCaptureString target(CStringInfo("Name", "", false, "first"));
    CStringTimerProxy proxy(target, &timer);
    CEventLog log(proxy);
    target.SetValue("second");
    EXPECT_STREQ(proxy.GetValue(), "first");
    timer.Tick();
    EXPECT_STREQ(proxy.GetValue(), "second");
    proxy.SetValue(proxy.GetValue() + 3);
    EXPECT_STREQ(target.GetValue(), "ond");
    EXPECT_STREQ(proxy.GetValue(), "ond");
    EXPECT_EQ(log.Take(), "value value ");
}

/// A curve with a lock, of which each reader gets a copy.
class CLockedCurve : public virtual TICaptureObjectFactory<const Math::IFunction&, IConstCurveInfo>,
                     public TCapturable<TCaptureState<System::CMTEventProvider>> {
public:
    const IConstCurveInfo& GetInfo() const override { return info; }
    Math::IFunction* CreateValue() const override {
        const Core::CAutoLock held(lock);
        return value ? value->Clone() : nullptr;
    }
    void SetValue(const Math::IFunction& function) override {
        {
            const Core::CAutoLock held(lock);
            value.reset(function.Clone());
        }
        NotifyValueChanged();
    }

private:
    CCurveInfo info;
    mutable System::CCriticalSection lock;
    std::unique_ptr<Math::IFunction> value;
};

TEST(CaptureObjectTimerProxyTest, AFactoryGivesCopiesAndWithoutAValueTheDefault) {
    CFakeTimerProvider timer;
    CLockedCurve target;
    CCurveTimerProxy proxy(target, &timer);
    EXPECT_EQ(proxy.GetValue().Evaluate(0.5), 0.0);
    target.SetValue(Math::CConstantFunction(2.0));
    timer.Tick();
    EXPECT_EQ(proxy.GetValue().Evaluate(0.5), 2.0);
    proxy.SetValue(Math::CConstantFunction(4.0));
    const std::unique_ptr<Math::IFunction> there(target.CreateValue());
    EXPECT_EQ(there->Evaluate(0.0), 4.0);
    proxy.Capture();
    EXPECT_TRUE(target.IsCaptured());
}

TEST(CaptureTimerProxyThreadsTest, FollowsAParameterThatAnotherThreadWrites) {
    CFakeTimerProvider timer;
    CMTCaptureParam target(MakeInfo(0.0, 100000.0));
    CCaptureParamTimerProxy proxy(target, &timer);
    std::barrier start(2);
    std::atomic<bool> done{false};
    std::thread writer([&] {
        start.arrive_and_wait();
        for (int i = 1; i <= 2000; ++i) {
            target.Capture();
            target.SetValue(i);
            target.Release();
        }
        done = true;
    });
    start.arrive_and_wait();
    double last = 0.0;
    while (!done) {
        timer.Tick();
        EXPECT_GE(proxy.GetValue(), last);
        last = proxy.GetValue();
    }
    writer.join();
    timer.Tick();
    timer.Tick();
    EXPECT_EQ(proxy.GetValue(), 2000.0);
    EXPECT_FALSE(proxy.IsCaptured());
}

TEST(CaptureTimerProxyThreadsTest, BothSidesWriteAndTheProxyEndsWithWhatTheTargetHas) {
    CFakeTimerProvider timer;
    CMTCaptureParam target(MakeInfo(0.0, 100000.0));
    CCaptureParamTimerProxy proxy(target, &timer);
    for (int round = 0; round < 200; ++round) {
        std::barrier start(2);
        std::thread writer([&] {
            start.arrive_and_wait();
            target.SetValue(round * 2 + 1);
        });
        start.arrive_and_wait();
        proxy.SetValue(round * 2 + 2);
        writer.join();
        timer.Tick();
        ASSERT_EQ(proxy.GetValue(), target.GetValue()) << round;
    }
}

TEST(CaptureTimerProxyThreadsTest, AProxyMayDieWhileItsTargetNotifies) {
    CFakeTimerProvider timer;
    CMTCaptureParam target(MakeInfo(0.0, 100000.0));
    std::barrier start(2);
    std::atomic<bool> done{false};
    std::thread writer([&] {
        start.arrive_and_wait();
        for (int i = 0; !done; ++i) {
            target.SetValue(i % 1000);
            target.Capture();
            target.Release();
        }
    });
    start.arrive_and_wait();
    for (int i = 0; i < 300; ++i) {
        const CConstCaptureParamTimerProxy proxy(target, &timer);
        timer.Tick();
    }
    done = true;
    writer.join();
    EXPECT_TRUE(timer.timers.empty());
}

TEST(CaptureTimerProxyThreadsTest, CurvesCrossThreadsAsCopies) {
    CFakeTimerProvider timer;
    CLockedCurve target;
    CCurveTimerProxy proxy(target, &timer);
    std::barrier start(2);
    std::atomic<bool> done{false};
    std::thread writer([&] {
        start.arrive_and_wait();
        for (int i = 1; i <= 500; ++i) {
            target.SetValue(Math::CConstantFunction(i));
        }
        done = true;
    });
    start.arrive_and_wait();
    double last = 0.0;
    while (!done) {
        timer.Tick();
        const double now = proxy.GetValue().Evaluate(0.0);
        EXPECT_GE(now, last);
        last = now;
    }
    writer.join();
    timer.Tick();
    EXPECT_EQ(proxy.GetValue().Evaluate(0.0), 500.0);
}

} // namespace
} // namespace Vorin::DataModel::Objects
