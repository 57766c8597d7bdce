#include "vst/VSTParamAdapter.h"

#include "core/Command.h"
#include "vst/VSTTestKit.h"

#include <cmath>
#include <limits>

namespace VorinExt::VSTPlugin::Testing {
namespace {

/// The effect that an adapter belongs to: it takes parameters back as the plug-in does.
class CEffect : public AudioEffectX {
public:
    CEffect() : AudioEffectX(&CFakeHost::Callback, 1, 10) {}
    void processReplacing(float**, float**, VstInt32) override {}
    void setParameter(VstInt32 index, float value) override {
        ++sets;
        if (adapter && index == 7) {
            adapter->TakeNormalised(value);
        }
    }

    CVSTParamAdapter* adapter = nullptr;
    int sets = 0;
};

class VSTParamAdapterTest : public testing::Test {
protected:
    VSTParamAdapterTest() {
        effect.adapter = &param;
        param.GetValueChangedEvents().Connect(changed);
        param.GetCaptureEvents().Connect(captured);
        param.GetReleaseEvents().Connect(released);
    }
    ~VSTParamAdapterTest() override {
        param.GetValueChangedEvents().Disconnect(changed);
        param.GetCaptureEvents().Disconnect(captured);
        param.GetReleaseEvents().Disconnect(released);
    }

    void OnChanged() { events += "changed;"; }
    void OnCaptured() { events += "captured;"; }
    void OnReleased() { events += "released;"; }
    std::string Take() { return std::exchange(events, std::string()); }

    CFakeHost host;
    CEffect effect;
    CVSTParamAdapter param{MakeParam("Level", "dB", -10.0, 30.0, 10.0), effect, 5, 2};
    std::string events;
    Core::TCommand<VSTParamAdapterTest> changed{this, &VSTParamAdapterTest::OnChanged};
    Core::TCommand<VSTParamAdapterTest> captured{this, &VSTParamAdapterTest::OnCaptured};
    Core::TCommand<VSTParamAdapterTest> released{this, &VSTParamAdapterTest::OnReleased};
};

TEST_F(VSTParamAdapterTest, StartsAtTheDefaultInPlainUnits) {
    EXPECT_EQ(param.GetValue(), 10.0);
    EXPECT_EQ(param.GetNormalised(), 0.5F);
    EXPECT_FALSE(param.IsCaptured());
}

TEST_F(VSTParamAdapterTest, CopiesItsInfo) {
    auto info = std::make_unique<CParamInfo>(MakeParam("Gone"));
    const CVSTParamAdapter adapter(*info, effect, 0, 0);
    info.reset();
    EXPECT_STREQ(adapter.GetInfo().GetName(), "Gone");
}

TEST_F(VSTParamAdapterTest, WhatTheHostWritesNeverCallsBackIntoIt) {
    param.TakeNormalised(1.0F);
    EXPECT_EQ(param.GetValue(), 30.0);
    EXPECT_EQ(Take(), "changed;");
    param.Capture();
    host.Take();
    param.TakeNormalised(0.25F);
    EXPECT_EQ(param.GetValue(), 0.0);
    EXPECT_EQ(host.Take(), "");
    EXPECT_EQ(effect.sets, 0);
}

TEST_F(VSTParamAdapterTest, WhatTheHostWritesAgainChangesNothing) {
    param.SetValue(0.1); // no float gives this value
    Take();
    const double before = param.GetValue();
    param.TakeNormalised(param.GetNormalised());
    EXPECT_EQ(param.GetValue(), before);
    EXPECT_EQ(Take(), "");
}

TEST_F(VSTParamAdapterTest, WhatIsNoNumberIsNotTakenAndTheRestIsLimited) {
    param.TakeNormalised(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(Take(), "");
    param.TakeNormalised(std::numeric_limits<float>::infinity());
    EXPECT_EQ(param.GetValue(), 30.0);
    param.TakeNormalised(-5.0F);
    EXPECT_EQ(param.GetValue(), -10.0);
}

TEST_F(VSTParamAdapterTest, WhatWeSetReachesTheHostAsAutomationOnlyWhileHeld) {
    param.SetValue(20.0);
    EXPECT_EQ(host.Take(), "");
    EXPECT_EQ(effect.sets, 1);
    param.Capture();
    EXPECT_EQ(host.Take(), "begin 7;");
    param.SetValue(0.0);
    EXPECT_EQ(host.Take(), "automate 7 0.25;");
    param.Release();
    EXPECT_EQ(host.Take(), "end 7;");
    EXPECT_EQ(Take(), "changed;captured;changed;released;");
}

TEST_F(VSTParamAdapterTest, WhatWeSetIsKeptInFullPrecision) {
    param.SetValue(0.1);
    EXPECT_EQ(param.GetValue(), 0.1); // the way by the host's float does not come back
}

TEST_F(VSTParamAdapterTest, SettingTheSameValueTellsTheHostButFiresNothing) {
    param.Capture();
    param.SetValue(10.0);
    Take();
    host.Take();
    param.SetValue(10.0);
    EXPECT_EQ(host.Take(), "automate 7 0.5;");
    EXPECT_EQ(Take(), "");
}

TEST_F(VSTParamAdapterTest, AGestureIsOpenedAndClosedOnce) {
    param.Capture();
    param.Capture();
    EXPECT_TRUE(param.IsCaptured());
    param.Release();
    param.Release();
    EXPECT_FALSE(param.IsCaptured());
    EXPECT_EQ(host.Take(), "begin 7;end 7;");
    EXPECT_EQ(Take(), "captured;released;");
}

/// Looks at the parameter from within the host's brackets of a gesture.
class CGestureEffect : public AudioEffectX {
public:
    explicit CGestureEffect(std::string& eventsText)
        : AudioEffectX(&CFakeHost::Callback, 1, 10), events(eventsText) {}
    void processReplacing(float**, float**, VstInt32) override {}
    bool beginEdit(VstInt32) override { return Note("begin"); }
    bool endEdit(VstInt32) override { return Note("end"); }

    const CVSTParamAdapter* adapter = nullptr;

private:
    bool Note(const char* what) {
        events += std::string(what) + (adapter->IsCaptured() ? " held;" : " free;");
        return true;
    }

    std::string& events;
};

TEST_F(VSTParamAdapterTest, TheHostHearsOfAGestureBeforeTheListenersAndSeesItsState) {
    CGestureEffect gestures(events);
    CVSTParamAdapter other(MakeParam("Other"), gestures, 0, 0);
    gestures.adapter = &other;
    other.GetCaptureEvents().Connect(captured);
    other.GetReleaseEvents().Connect(released);
    other.Capture();
    other.Release();
    EXPECT_EQ(Take(), "begin held;captured;end free;released;");
    other.GetCaptureEvents().Disconnect(captured);
    other.GetReleaseEvents().Disconnect(released);
}

TEST_F(VSTParamAdapterTest, AnEmptyRangeStandsAtZero) {
    CVSTParamAdapter fixed(MakeParam("Fixed", "", 3.0, 3.0, 3.0), effect, 0, 0);
    EXPECT_EQ(fixed.GetNormalised(), 0.0F);
    fixed.TakeNormalised(1.0F);
    EXPECT_EQ(fixed.GetValue(), 3.0);
}

TEST(VSTParamsAdapterTest, NumbersUpwardFromTheFirst) {
    CFakeHost host;
    CEffect effect;
    CoreUtilities::TDynamicCollection<CParamInfo, IConstParamInfo> infos;
    infos.Add(MakeParam("A", "", 0.0, 1.0, 0.25));
    infos.Add(MakeParam("B", "", 0.0, 2.0, 2.0));
    CVSTParamsAdapter params(infos, effect, 3);
    ASSERT_EQ(params.GetCount(), 2);
    EXPECT_EQ(params.Get(0).GetValue(), 0.25);
    EXPECT_EQ(params.Get(1).GetValue(), 2.0);
    params.Get(0).Capture();
    params.Get(1).Capture();
    EXPECT_EQ(host.Take(), "begin 3;begin 4;");
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
