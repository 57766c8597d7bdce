#include "datamodel/controls/ParamTextControl.h"

#include "datamodel/EnumToText.h"
#include "datamodel/controls/EventLog.h"
#include "datamodel/controls/Params.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

struct CTextFixture {
    CTextFixture() : param(MakeInfo(kParamReal, -10.0, 1000.0, 440.0)), control(param) {
        log.Listen(control.GetValueChangedEvents(), "text");
        log.Listen(param.GetValueSetEvents(), "set");
    }

    CCaptureParam param;
    CParamTextControl control;
    CEventLog log;
};

TEST(ParamTextControlTest, ATypedNumberSetsTheParameter) {
    CTextFixture f;
    f.control.SetValue("12 dB");
    EXPECT_EQ(f.param.GetValue(), 12.0);
    EXPECT_STREQ(f.control.GetValue(), "12.00 Hz") << "as the value reads";
    EXPECT_EQ(f.log.Take(), "text set text") << "the new value; what was typed; no more to change";
    EXPECT_EQ(&f.control.GetTarget(), &f.param);
}

TEST(ParamTextControlTest, ATypedNumberThatChangesNothingIsStillWrittenAnew) {
    CTextFixture f;
    f.control.SetValue("440");
    EXPECT_STREQ(f.control.GetValue(), "440.00 Hz");
    EXPECT_EQ(f.log.Take(), "set text text") << "as typed, then as written";
}

TEST(ParamTextControlTest, ATextThatIsNoNumberStaysUpToTheNextUpdate) {
    CTextFixture f;
    f.control.SetValue("abc");
    EXPECT_EQ(f.param.GetValue(), 440.0);
    EXPECT_STREQ(f.control.GetValue(), "abc");
    EXPECT_EQ(f.log.Take(), "text") << "no write to the target";
    f.control.Update();
    EXPECT_STREQ(f.control.GetValue(), "440.00 Hz");
    EXPECT_EQ(f.log.Take(), "text");
}

TEST(ParamTextControlTest, ATextThatIsNoNumberGivesWayToANewValue) {
    CTextFixture f;
    f.control.SetValue("abc");
    f.param.SetValue(1.0);
    EXPECT_STREQ(f.control.GetValue(), "1.00 Hz");
}

TEST(ParamTextControlTest, NumbersOutsideTheRangeAreItsEnds) {
    CTextFixture f;
    f.control.SetValue("1e999");
    EXPECT_EQ(f.param.GetValue(), 1000.0);
    f.control.SetValue("-inf");
    EXPECT_EQ(f.param.GetValue(), -10.0);
    f.control.SetValue("1001");
    EXPECT_EQ(f.param.GetValue(), 1000.0);
    f.control.SetValue("-1e999");
    EXPECT_EQ(f.param.GetValue(), -10.0);
}

TEST(ParamTextControlTest, NaNIsNoNumber) {
    for (const char* text : {"nan", "NAN", "-nan", "nan(7)"}) {
        CTextFixture f;
        f.control.SetValue(text);
        EXPECT_EQ(f.param.GetValue(), 440.0);
        EXPECT_STREQ(f.control.GetValue(), text);
        EXPECT_EQ(f.log.Take(), "text");
    }
}

TEST(ParamTextControlTest, AnyTextIsTakenOrRefusedButNothingElse) {
    const std::string longText(100000, 'x');
    const std::string longNumber = std::string(100000, '9');
    const std::string invalid = "\xFF\xC0\xAF\x80 12";
    const char* const refused[] = {"",  " ",      "%n%n%s", nullptr,          "+",
                                   "{", "{value", "e5",     longText.c_str(), invalid.c_str()};
    for (const char* text : refused) {
        CTextFixture f;
        f.control.SetValue(text);
        EXPECT_EQ(f.param.GetValue(), 440.0);
        EXPECT_STREQ(f.control.GetValue(), text ? text : "");
        f.control.Update();
        EXPECT_STREQ(f.control.GetValue(), "440.00 Hz");
    }
    CTextFixture f;
    f.control.SetValue(longNumber.c_str());
    EXPECT_EQ(f.param.GetValue(), 1000.0);
    f.control.SetValue("0x10%n");
    EXPECT_EQ(f.param.GetValue(), 16.0);
    EXPECT_STREQ(f.control.GetValue(), "16.00 Hz");
}

TEST(ParamTextControlTest, TheControlsOwnTextMayBeTyped) {
    CTextFixture f;
    f.control.SetValue(f.control.GetValue());
    EXPECT_EQ(f.param.GetValue(), 440.0);
    f.control.SetValue(f.control.GetValue() + 1);
    EXPECT_EQ(f.param.GetValue(), 40.0);
}

TEST(ParamTextControlTest, AWordOfTheInfoIsItsValue) {
    auto* words = new CEnumToText;
    words->AddLabel("Flow");
    words->AddLabel("Loop");
    CCaptureParam param(CParamInfo(kParamInteger, "View", "", "", words, nullptr, 0.0, 1.0, 0.0));
    CParamTextControl control(param);
    control.SetValue("Loop");
    EXPECT_EQ(param.GetValue(), 1.0);
    control.SetValue("7");
    EXPECT_EQ(param.GetValue(), 1.0) << "clamped";
    control.SetValue("0");
    EXPECT_EQ(param.GetValue(), 0.0);
}

TEST(ParamTextControlTest, AnInvertedRangeTakesNothingButMax) {
    CCaptureParam param(MakeInfo(kParamReal, 5.0, 1.0));
    CParamTextControl control(param);
    control.SetValue("3");
    EXPECT_EQ(param.GetValue(), 1.0);
}

TEST(ParamTextControlTest, CaptureHoldsTheTarget) {
    CCaptureParam first(MakeInfo(kParamReal, 0.0, 1.0));
    CCaptureParam second(MakeInfo(kParamReal, 0.0, 1.0));
    {
        CParamTextControl control(first);
        CEventLog log;
        log.Listen(control.GetCaptureEvents(), "capture");
        log.Listen(control.GetReleaseEvents(), "release");
        control.Capture();
        control.Capture();
        EXPECT_TRUE(first.IsCaptured());
        control.Release();
        EXPECT_FALSE(first.IsCaptured());
        EXPECT_EQ(log.Take(), "capture release");
        control.Capture();
        control.Connect(second);
        EXPECT_FALSE(first.IsCaptured());
        EXPECT_TRUE(second.IsCaptured());
        EXPECT_EQ(&control.GetTarget(), &second);
    }
    EXPECT_FALSE(second.IsCaptured()) << "a gesture ends with the control";
}

TEST(ParamTextControlTest, ConnectWritesAnotherTarget) {
    CTextFixture f;
    CCaptureParam other(MakeInfo(kParamReal, 0.0, 5.0, 1.0));
    f.control.Connect(other);
    EXPECT_STREQ(f.control.GetValue(), "1.00 Hz");
    f.control.SetValue("7");
    EXPECT_EQ(other.GetValue(), 5.0);
    EXPECT_EQ(f.param.GetValue(), 440.0);
    f.control.Connect(f.param); // `other` dies first
}

} // namespace
} // namespace Vorin::DataModel::Controls
