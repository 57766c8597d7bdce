#include "datamodel/objects/CaptureValueWrapper.h"

#include "core/Enable.h"
#include "core/NonFinite.h"
#include "core/RefreshTime.h"
#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Vorin::DataModel::Objects {
namespace {

using Core::CEnable;
using Core::IEnable;
using Core::IRefreshTime;
using Testing::CEventLog;
using Testing::CListener;
using Testing::MakeInfo;

/// Without an event; takes nothing below 10.
class CPeriod : public virtual IRefreshTime {
public:
    void SetRefreshTime(int milliseconds) override {
        ++calls;
        period = std::max(milliseconds, 10);
    }
    int GetRefreshTime() const override { return period; }

    int period = 50;
    int calls = 0;
};

enum class EMode { kOff, kSlow, kFast };

/// All kinds of getters and setters, and an event of its own.
class CThing {
public:
    float GetGain() const { return gain; }
    void SetGain(float newGain) {
        gain = newGain;
        changed.Notify();
    }
    EMode GetMode() const { return mode; }
    bool SetMode(EMode newMode) {
        mode = newMode;
        changed.Notify();
        return true;
    }
    const char* GetName() const { return name.Get(); }
    void SetName(const char* newName) {
        name = newName;
        changed.Notify();
    }
    const Containers::CCharString& GetTitle() { return title; }
    void SetTitle(const Containers::CCharString& newTitle) { title = newTitle; }
    Core::IEventProvider& GetChangedEvents() const { return changed; }

    float gain = 0.5f;
    EMode mode = EMode::kSlow;
    Containers::CCharString name{"thing"};
    Containers::CCharString title{"title"};
    mutable Core::CEventProvider changed;
};

class CaptureValueWrapperTest : public ::testing::Test {
protected:
    CPeriod period;
    CEnable enable;
    CThing thing;
    CParamInfo periodInfo = MakeInfo(0.0, 1000.0, 0.0, kParamInteger);
    CParamInfo switchInfo = MakeInfo(0.0, 1.0, 0.0, kParamSwitch);
    TCaptureValueWrapper<IRefreshTime, IConstParamInfo, CParamInfo, double, int> refreshTime{
        period, &IRefreshTime::GetRefreshTime, &IRefreshTime::SetRefreshTime, periodInfo};
};

TEST_F(CaptureValueWrapperTest, OneLineMakesAPropertyAParameter) {
    TCaptureValueWrapper enabled(enable, &IEnable::IsEnabled, &IEnable::SetEnabled,
                                 &IEnable::GetEnableEvents, switchInfo);
    ICaptureParam& param = enabled;
    EXPECT_EQ(param.GetValue(), 1.0);
    EXPECT_STREQ(param.GetInfo().GetName(), "Level");
    param.SetValue(0.0);
    EXPECT_FALSE(enable.IsEnabled());
    EXPECT_EQ(param.GetValue(), 0.0);
}

TEST_F(CaptureValueWrapperTest, ATargetWithoutAnEventNotifiesFromHere) {
    CEventLog log(refreshTime);
    refreshTime.SetValue(20.0);
    EXPECT_EQ(period.period, 20);
    EXPECT_EQ(log.Take(), "value ");
    refreshTime.SetValue(20.0);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(period.calls, 1);
}

TEST_F(CaptureValueWrapperTest, ATargetWithAnEventIsToldOfOnceThroughThatEvent) {
    TCaptureValueWrapper enabled(enable, &IEnable::IsEnabled, &IEnable::SetEnabled,
                                 &IEnable::GetEnableEvents, switchInfo);
    CEventLog log(enabled);
    enabled.SetValue(0.0);
    EXPECT_EQ(log.Take(), "value ");
    enable.SetEnabled(true);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(enabled.GetValue(), 1.0);
    enabled.SetValue(1.0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(CaptureValueWrapperTest, ShowsWhatTheTargetMadeOfTheValue) {
    refreshTime.SetValue(3.0);
    EXPECT_EQ(refreshTime.GetValue(), 10.0);
    refreshTime.SetValue(44.6);
    EXPECT_EQ(refreshTime.GetValue(), 45.0);
}

TEST_F(CaptureValueWrapperTest, FollowsATargetThatChangesWithoutAnEvent) {
    period.SetRefreshTime(70);
    EXPECT_EQ(refreshTime.GetValue(), 70.0);
    refreshTime.SetValue(50.0); // what it was in the beginning, and is no longer
    EXPECT_EQ(period.period, 50);
}

TEST_F(CaptureValueWrapperTest, ClampsToTheRange) {
    refreshTime.SetValue(5000.0);
    EXPECT_EQ(period.period, 1000);
    refreshTime.SetValue(-5.0);
    EXPECT_EQ(period.period, 10);
    refreshTime.SetValue(kNaN);
    EXPECT_EQ(period.period, 1000);
}

TEST_F(CaptureValueWrapperTest, ARangeThatShrinksLeavesTheTargetAsItIs) {
    CEventLog log(refreshTime);
    refreshTime.GetInfo().SetMax(20.0);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(period.calls, 0);
    EXPECT_EQ(refreshTime.GetValue(), 50.0);
    refreshTime.SetValue(30.0);
    EXPECT_EQ(period.period, 20);
}

TEST_F(CaptureValueWrapperTest, ConvertsToTheSettersType) {
    TCaptureValueWrapper gain(thing, &CThing::GetGain, &CThing::SetGain, &CThing::GetChangedEvents,
                              MakeInfo(0.0, 1.0));
    gain.SetValue(0.1);
    EXPECT_EQ(thing.gain, 0.1f);
    EXPECT_EQ(gain.GetValue(), static_cast<double>(0.1f));

    TCaptureValueWrapper mode(thing, &CThing::GetMode, &CThing::SetMode, MakeInfo(0.0, 2.0));
    EXPECT_EQ(mode.GetValue(), 1.0);
    mode.SetValue(1.7);
    EXPECT_EQ(thing.mode, EMode::kFast);
}

TEST_F(CaptureValueWrapperTest, ATextPropertyIsAString) {
    TCaptureValueWrapper name(thing, &CThing::GetName, &CThing::SetName, &CThing::GetChangedEvents,
                              CStringInfo("Name", ""));
    ICaptureString& text = name;
    CEventLog log(name);
    EXPECT_STREQ(text.GetValue(), "thing");
    text.SetValue("other");
    EXPECT_EQ(thing.name, "other");
    EXPECT_EQ(log.Take(), "value ");
    text.SetValue("other");
    EXPECT_EQ(log.Take(), "");
    text.SetValue(text.GetValue() + 2);
    EXPECT_EQ(thing.name, "her");

    TCaptureValueWrapper title(thing, &CThing::GetTitle, &CThing::SetTitle, CStringInfo());
    title.SetValue("new");
    EXPECT_EQ(thing.title, "new");
}

TEST_F(CaptureValueWrapperTest, WithoutASetterTheValueStaysHereUntilTheTargetsNextEvent) {
    TCaptureValueWrapper enabled(enable, &IEnable::IsEnabled, nullptr, &IEnable::GetEnableEvents,
                                 switchInfo);
    CEventLog log(enabled);
    EXPECT_EQ(enabled.GetValue(), 1.0);
    enabled.SetValue(0.25);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(enabled.GetValue(), 0.25);
    EXPECT_TRUE(enable.IsEnabled());
    enable.SetEnabled(false);
    enable.SetEnabled(true);
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_EQ(enabled.GetValue(), 1.0);

    TCaptureValueWrapper silent(enable, &IEnable::IsEnabled, nullptr, switchInfo);
    silent.SetValue(0.75);
    EXPECT_EQ(silent.GetValue(), 0.75);
}

TEST_F(CaptureValueWrapperTest, AListenerSeesTheNewValue) {
    double seen = -1.0;
    const CListener changed(refreshTime.GetValueChangedEvents(),
                            [&] { seen = refreshTime.GetValue(); });
    refreshTime.SetValue(30.0);
    EXPECT_EQ(seen, 30.0);
}

TEST_F(CaptureValueWrapperTest, DisconnectLetsGoOfTheTarget) {
    auto target = std::make_unique<CEnable>();
    TCaptureValueWrapper enabled(*target, &IEnable::IsEnabled, &IEnable::SetEnabled,
                                 &IEnable::GetEnableEvents, switchInfo);
    CEventLog log(enabled);
    enabled.Disconnect();
    target->SetEnabled(false);
    EXPECT_EQ(log.Take(), "");
    target.reset();
    EXPECT_EQ(enabled.GetValue(), 1.0);
    enabled.SetValue(0.5);
    EXPECT_EQ(enabled.GetValue(), 0.5);
    EXPECT_EQ(log.Take(), "value ");
    enabled.Disconnect();
}

TEST_F(CaptureValueWrapperTest, AListenerMayDisconnectAndIsToldOnce) {
    TCaptureValueWrapper enabled(enable, &IEnable::IsEnabled, &IEnable::SetEnabled,
                                 &IEnable::GetEnableEvents, switchInfo);
    int told = 0;
    const CListener listener(enabled.GetValueChangedEvents(), [&enabled, &told] {
        ++told;
        enabled.Disconnect();
    });
    enabled.SetValue(0.0);
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(enable.IsEnabled());
    EXPECT_EQ(enabled.GetValue(), 0.0);
}

TEST_F(CaptureValueWrapperTest, TheDestructorDisconnects) {
    {
        const TCaptureValueWrapper enabled(enable, &IEnable::IsEnabled, &IEnable::SetEnabled,
                                           &IEnable::GetEnableEvents, switchInfo);
    }
    enable.SetEnabled(false); // would run a command that is gone
    EXPECT_FALSE(enable.IsEnabled());
}

TEST_F(CaptureValueWrapperTest, CanBeHeld) {
    CEventLog log(refreshTime);
    refreshTime.Capture();
    refreshTime.Release();
    EXPECT_EQ(log.Take(), "capture release ");
}

TEST_F(CaptureValueWrapperTest, TheReadOnlyFormFollowsTheTarget) {
    TConstCaptureValueWrapper enabled(enable, &IEnable::IsEnabled, &IEnable::GetEnableEvents,
                                      switchInfo);
    IConstCaptureParam& param = enabled;
    CEventLog log(enabled);
    enable.SetEnabled(false);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_EQ(param.GetValue(), 0.0);
    enabled.Disconnect();
    enable.SetEnabled(true);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(param.GetValue(), 0.0); // what was told last
}

TEST_F(CaptureValueWrapperTest, TheReadOnlyFormReadsAConstObjectWithoutAnEvent) {
    const CThing& constThing = thing;
    const TConstCaptureValueWrapper gain(constThing, &CThing::GetGain, MakeInfo(0.0, 1.0));
    thing.gain = 0.25f;
    EXPECT_EQ(gain.GetValue(), 0.25);
    const TConstCaptureValueWrapper name(constThing, &CThing::GetName, CStringInfo());
    EXPECT_STREQ(name.GetValue(), "thing");
}

} // namespace
} // namespace Vorin::DataModel::Objects
