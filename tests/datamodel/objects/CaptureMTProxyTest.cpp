#include "datamodel/objects/CaptureMTProxy.h"

#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/CaptureString.h"
#include "datamodel/objects/CaptureSurface.h"
#include "datamodel/objects/ObjectsTestTools.h"
#include "system/MessageLoop.h"
#include "system/RunLoop.h"
#include "system/RunLoopThreadInvoker.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Vorin::DataModel::Objects {
namespace {

using System::CMessageLoopThread;
using System::Testing::CFakeInvoker;
using System::Testing::CFakeTimerProvider;
using System::Testing::CFunctionCommand;
using Testing::CEventLog;
using Testing::CListener;
using Testing::MakeInfo;

using CParamProxy = TCaptureValueMTProxy<double, IConstParamInfo>;
using CConstParamProxy = TConstCaptureValueMTProxy<double, IConstParamInfo>;
using CStringProxy = TCaptureValueMTProxy<const char*, IConstStringInfo>;
using CCurveProxy = TObjectMTProxy<const Math::IFunction&, IConstCurveInfo>;
using CConstSurfaceProxy = TConstObjectMTProxy<const Math::IBinaryFunction&, IConstSurfaceInfo>;

/// With an invoker that the test runs, so that each state in between can be seen.
class CaptureMTProxyTest : public ::testing::Test {
protected:
    void RunThere() {
        while (!invoker.queue.empty()) {
            invoker.RunOne();
        }
    }

    CFakeInvoker invoker;
    CFakeTimerProvider timer;
    CCaptureParam target{MakeInfo(0.0, 10.0, 1.0)};
    CParamProxy proxy{target, &invoker, &timer};
    CEventLog log{proxy};
};

TEST_F(CaptureMTProxyTest, StartsWithValueGestureAndInfoOfTheTarget) {
    EXPECT_EQ(proxy.GetValue(), 1.0);
    EXPECT_STREQ(proxy.GetInfo().GetName(), "Level");
    EXPECT_NE(&proxy.GetInfo(), &std::as_const(target).GetInfo());
    target.Capture();
    CConstParamProxy late(target, &invoker, &timer, 20);
    EXPECT_TRUE(late.IsCaptured());
    EXPECT_EQ(late.GetRefreshTime(), 20);
}

TEST_F(CaptureMTProxyTest, ConnectsOnTheTargetsThread) {
    EXPECT_EQ(invoker.syncCalls, 1);
    proxy.Disconnect();
    EXPECT_EQ(invoker.syncCalls, 2);
    proxy.Disconnect();
    EXPECT_EQ(invoker.syncCalls, 2);
}

TEST_F(CaptureMTProxyTest, ChangesOfTheTargetAreShownAtTheTick) {
    target.Capture();
    target.SetValue(2.0);
    target.SetValue(3.0);
    EXPECT_EQ(proxy.GetValue(), 1.0);
    timer.Tick();
    EXPECT_EQ(proxy.GetValue(), 3.0);
    EXPECT_EQ(log.Take(), "capture value ");
    target.SetValue(4.0);
    target.Release();
    timer.Tick();
    EXPECT_EQ(log.Take(), "value release ");
}

TEST_F(CaptureMTProxyTest, AValueThatCameBackIsNoChange) {
    target.SetValue(2.0);
    target.SetValue(1.0);
    timer.Tick();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureMTProxyTest, AWriteIsSeenAtOnceAndReachesTheTargetOnItsThread) {
    proxy.SetValue(5.0);
    EXPECT_EQ(proxy.GetValue(), 5.0);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(target.GetValue(), 1.0);
    RunThere();
    EXPECT_EQ(target.GetValue(), 5.0);
    timer.Tick();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureMTProxyTest, AnEqualValueIsPostedAllTheSameAndNotToldOf) {
    int set = 0;
    const CListener valueSet(target.GetValueSetEvents(), [&] { ++set; });
    proxy.SetValue(1.0);
    EXPECT_EQ(log.Take(), "");
    RunThere();
    EXPECT_EQ(set, 1);
}

TEST_F(CaptureMTProxyTest, AWriteClampsToTheRange) {
    proxy.SetValue(50.0);
    EXPECT_EQ(proxy.GetValue(), 10.0);
    proxy.SetValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(proxy.GetValue(), 10.0);
    RunThere();
    EXPECT_EQ(target.GetValue(), 10.0);
}

TEST_F(CaptureMTProxyTest, WhileAWriteIsOnItsWayTheOldValueDoesNotComeBack) {
    proxy.SetValue(5.0);
    timer.Tick();
    proxy.UpdateValue();
    EXPECT_EQ(proxy.GetValue(), 5.0);
    EXPECT_EQ(log.Take(), "value ");
    RunThere();
    timer.Tick();
    EXPECT_EQ(proxy.GetValue(), 5.0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureMTProxyTest, WhatTheTargetMadeOfAWriteFollowsAtTheTick) {
    target.GetInfo().SetMax(4.0); // the proxy's info is older
    proxy.SetValue(5.0);
    RunThere();
    timer.Tick();
    EXPECT_EQ(proxy.GetValue(), 4.0);
    EXPECT_EQ(log.Take(), "value value ");
}

TEST_F(CaptureMTProxyTest, ADroppedWriteIsNoLongerWaitedFor) {
    proxy.SetValue(5.0);
    invoker.RunOne(false);
    timer.Tick();
    EXPECT_EQ(proxy.GetValue(), 1.0);
}

TEST_F(CaptureMTProxyTest, GesturesArePostedInOrderAndDoNotFlicker) {
    std::string there;
    const CListener held(target.GetCaptureEvents(), [&] { there += "capture "; });
    const CListener let(target.GetReleaseEvents(), [&] { there += "release "; });
    const CListener changed(target.GetValueChangedEvents(), [&] { there += "value "; });
    proxy.Capture();
    proxy.Capture();
    EXPECT_TRUE(proxy.IsCaptured());
    timer.Tick();
    EXPECT_TRUE(proxy.IsCaptured());
    proxy.SetValue(2.0);
    proxy.Release();
    proxy.Release();
    EXPECT_EQ(log.Take(), "capture value release ");
    EXPECT_EQ(there, "");
    RunThere();
    EXPECT_EQ(there, "capture value release ");
    timer.Tick();
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureMTProxyTest, WhileUpdatesAreOffOrPausedTheValueWaits) {
    proxy.SetUpdateEnabled(false);
    target.SetValue(2.0);
    timer.Tick();
    EXPECT_EQ(proxy.GetValue(), 1.0);
    proxy.SetUpdateEnabled(true);
    proxy.SetPaused(true);
    timer.Tick();
    EXPECT_EQ(proxy.GetValue(), 1.0);
    proxy.UpdateValue();
    EXPECT_EQ(proxy.GetValue(), 2.0);
}

TEST_F(CaptureMTProxyTest, AfterDisconnectNothingIsPostedAndNothingArrives) {
    proxy.Disconnect();
    target.SetValue(2.0);
    proxy.SetValue(5.0);
    EXPECT_TRUE(invoker.queue.empty());
    EXPECT_EQ(target.GetValue(), 2.0);
}

TEST_F(CaptureMTProxyTest, WhatIsPostedOutlivesTheProxy) {
    {
        CParamProxy brief(target, &invoker, &timer);
        brief.Capture();
        brief.SetValue(7.0);
        brief.Release();
    }
    RunThere();
    EXPECT_EQ(target.GetValue(), 7.0);
    EXPECT_FALSE(target.IsCaptured());
    target.SetValue(8.0); // would run a command that is gone
    EXPECT_EQ(timer.timers.size(), 1u);
}

TEST_F(CaptureMTProxyTest, WithoutAThreadTheWorkIsDoneOnTheSpotAndWritesAreDropped) {
    auto loop = std::make_unique<System::CRunLoop>();
    System::CRunLoopThreadInvoker gone(*loop);
    loop.reset();
    {
        CParamProxy alone(target, &gone, &timer);
        EXPECT_EQ(alone.GetValue(), 1.0);
        alone.SetValue(5.0);
        EXPECT_EQ(target.GetValue(), 1.0);
    }
    target.SetValue(2.0); // would run a command that is gone
    EXPECT_EQ(target.GetValue(), 2.0);
}

TEST_F(CaptureMTProxyTest, StringsAreCopiedBothWays) {
    CCaptureString text(CStringInfo("Name", "", false, "first"));
    CStringProxy there(text, &invoker, &timer);
    CEventLog events(there);
    text.SetValue("second");
    there.UpdateValue();
    EXPECT_STREQ(there.GetValue(), "second");
    there.SetValue(there.GetValue() + 3);
    EXPECT_STREQ(there.GetValue(), "ond");
    there.SetValue("");
    there.SetValue(nullptr);
    RunThere();
    EXPECT_STREQ(text.GetValue(), "");
    EXPECT_EQ(events.Take(), "value value value ");
}

TEST_F(CaptureMTProxyTest, CurvesAreClonedBothWays) {
    int living = 0;
    CCaptureCurve curve;
    CCurveProxy there(curve, &invoker, &timer);
    CEventLog events(there);
    EXPECT_EQ(there.GetValue().Evaluate(0.0), 0.0);
    curve.SetValue(Testing::CCountedFunction(2.0, living));
    there.UpdateValue();
    there.UpdateValue();
    EXPECT_EQ(events.Take(), "value ");
    EXPECT_EQ(there.GetValue().Evaluate(0.0), 2.0);
    EXPECT_EQ(living, 2);
    there.SetValue(Math::CConstantFunction(3.0));
    EXPECT_EQ(there.GetValue().Evaluate(0.0), 3.0);
    RunThere();
    EXPECT_EQ(curve.GetValue().Evaluate(0.0), 3.0);
    EXPECT_EQ(living, 0);
}

/// With the target on a thread of its own.
class CaptureMTProxyThreadsTest : public ::testing::Test {
protected:
    /// Returns when the loop has done all that was posted up to here.
    void Settle() {
        std::atomic<bool> done{false};
        CFunctionCommand note([&] { done = true; });
        loop.InvokeAsync(&note, Core::kDontOwn);
        while (!done) {
            RunThere([] {}); // overtakes what is queued, and so waits for the loop only
        }
    }
    void RunThere(std::function<void()> function) {
        CFunctionCommand command(std::move(function));
        loop.InvokeSync(&command, Core::kDontOwn);
    }

    CFakeTimerProvider timer;
    CMessageLoopThread loop;
};

TEST_F(CaptureMTProxyThreadsTest, BothThreadsChangeAPlainParameter) {
    CCaptureParam target(MakeInfo(0.0, 100000.0));
    CParamProxy proxy(target, &loop, &timer);
    // On the target's thread: it counts up by itself while the proxy writes.
    CFunctionCommand count([&] { target.SetValue(target.GetValue() + 1.0); });
    for (int i = 1; i <= 500; ++i) {
        loop.InvokeAsync(&count, Core::kDontOwn);
        proxy.Capture();
        proxy.SetValue(i * 10.0);
        proxy.Release();
        timer.Tick();
        EXPECT_FALSE(proxy.IsCaptured());
    }
    Settle();
    timer.Tick();
    timer.Tick();
    double there = 0.0;
    RunThere([&] { there = target.GetValue(); });
    EXPECT_EQ(there, 5000.0);
    EXPECT_EQ(proxy.GetValue(), 5000.0);
    EXPECT_FALSE(proxy.IsCaptured());
}

TEST_F(CaptureMTProxyThreadsTest, AProxyMayDieWhileItsTargetNotifies) {
    CCaptureParam target(MakeInfo(0.0, 100000.0));
    std::atomic<bool> stop{false};
    CFunctionCommand count([&] {
        target.SetValue(std::fmod(target.GetValue() + 1.0, 1000.0));
        if (!stop) {
            loop.InvokeAsync(&count, Core::kDontOwn);
        }
    });
    loop.InvokeAsync(&count, Core::kDontOwn);
    for (int i = 0; i < 200; ++i) {
        CParamProxy proxy(target, &loop, &timer);
        proxy.SetValue(i);
        timer.Tick();
    }
    stop = true;
    Settle();
    EXPECT_TRUE(timer.timers.empty());
}

TEST_F(CaptureMTProxyThreadsTest, CurvesAndTextsCrossThreads) {
    CCaptureCurve curve;
    CCaptureString text;
    CCurveProxy curveProxy(curve, &loop, &timer);
    CStringProxy textProxy(text, &loop, &timer);
    int number = 0;
    CFunctionCommand change([&] {
        ++number;
        curve.SetValue(Math::CConstantFunction(number));
        text.SetValue(std::to_string(number).c_str());
    });
    for (int i = 1; i <= 300; ++i) {
        loop.InvokeAsync(&change, Core::kDontOwn);
        curveProxy.UpdateValue();
        textProxy.UpdateValue();
        EXPECT_LE(curveProxy.GetValue().Evaluate(0.0), 300.0);
        EXPECT_LE(std::string(textProxy.GetValue()).size(), 3u);
    }
    Settle();
    curveProxy.UpdateValue();
    textProxy.UpdateValue();
    EXPECT_EQ(curveProxy.GetValue().Evaluate(0.0), 300.0);
    EXPECT_STREQ(textProxy.GetValue(), "300");
    curveProxy.SetValue(Math::CConstantFunction(7.0));
    textProxy.SetValue("seven");
    Settle();
    RunThere([&] {
        EXPECT_EQ(curve.GetValue().Evaluate(0.0), 7.0);
        EXPECT_STREQ(text.GetValue(), "seven");
    });
}

TEST_F(CaptureMTProxyThreadsTest, ASurfaceIsShownOnAnotherThread) {
    CCaptureSurface surface;
    CConstSurfaceProxy proxy(surface, &loop, &timer);
    RunThere([&] { surface.SetValue(Math::CConstantBinaryFunction(4.0)); });
    timer.Tick();
    EXPECT_EQ(proxy.GetValue().Evaluate(0.0, 0.0), 4.0);
    proxy.Disconnect();
    RunThere([&] { surface.SetValue(Math::CConstantBinaryFunction(5.0)); });
}

} // namespace
} // namespace Vorin::DataModel::Objects
