#include "datamodel/controls/StringControl.h"

#include "datamodel/controls/EventLog.h"
#include "datamodel/objects/CaptureString.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Vorin::DataModel::Controls {
namespace {

using namespace Objects;

TEST(StringControlTest, WritesItsTarget) {
    CCaptureString string;
    CStringControl control(string);
    CEventLog log;
    log.Listen(control.GetValueChangedEvents(), "text");
    control.SetValue("one");
    EXPECT_STREQ(string.GetValue(), "one");
    EXPECT_STREQ(control.GetValue(), "one");
    control.SetValue("one");
    EXPECT_EQ(log.Take(), "text");
    EXPECT_EQ(&control.GetTarget(), &string);
}

TEST(StringControlTest, TakesAnyText) {
    CCaptureString string;
    CStringControl control(string);
    const std::string longText(100000, 'x');
    for (const char* text : {"%n%s", "\xFF\xC0", "", longText.c_str()}) {
        control.SetValue(text);
        EXPECT_STREQ(control.GetValue(), text);
    }
    control.SetValue(nullptr);
    EXPECT_STREQ(control.GetValue(), "");
}

TEST(StringControlTest, CaptureTellsFirstAndHoldsTheTargetThen) {
    CCaptureString string;
    CStringControl control(string);
    CEventLog log;
    log.Listen(control.GetCaptureEvents(), "capture");
    log.Listen(control.GetReleaseEvents(), "release");
    log.Listen(string.GetCaptureEvents(), "targetCapture");
    log.Listen(string.GetReleaseEvents(), "targetRelease");
    control.Capture();
    control.Capture();
    EXPECT_EQ(log.Take(), "capture targetCapture");
    EXPECT_TRUE(string.IsCaptured());
    control.Release();
    control.Release();
    EXPECT_EQ(log.Take(), "release targetRelease");
    EXPECT_FALSE(control.IsCaptured());
}

TEST(StringControlTest, ReleaseLeavesTheGestureOfAnotherControlAlone) {
    CCaptureString string;
    CStringControl control(string);
    string.Capture();
    EXPECT_TRUE(control.IsCaptured());
    control.Release();
    EXPECT_TRUE(string.IsCaptured());
    EXPECT_TRUE(control.IsCaptured());
}

TEST(StringControlTest, AGestureMovesAlongToAnotherTargetAndEndsWithTheControl) {
    CCaptureString first;
    CCaptureString second;
    auto control = std::make_unique<CStringControl>(first);
    control->Capture();
    control->Connect(second);
    EXPECT_FALSE(first.IsCaptured());
    EXPECT_TRUE(second.IsCaptured());
    EXPECT_TRUE(control->IsCaptured());
    control->SetValue("two");
    EXPECT_STREQ(second.GetValue(), "two");
    EXPECT_STREQ(first.GetValue(), "");
    control.reset();
    EXPECT_FALSE(second.IsCaptured());
}

} // namespace
} // namespace Vorin::DataModel::Controls
