#include "datamodel/objects/CaptureText.h"

#include "core/Holder.h"
#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using Testing::CEventLog;

TEST(CaptureTextTest, StoresAndNotifiesAlways) {
    CCaptureText text;
    EXPECT_STREQ(text.GetValue(), "");
    CEventLog log(text);
    text.SetValue("a");
    text.SetValue("a");
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_STREQ(text.GetValue(), "a");
    text.SetValue(nullptr);
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_STREQ(text.GetValue(), "");
}

TEST(CaptureTextTest, CanBeHeld) {
    CCaptureText text("a");
    CEventLog log(text);
    DataModel::TICaptureValue<const char*>& value = text;
    value.Capture();
    EXPECT_TRUE(value.IsCaptured());
    value.Release();
    EXPECT_EQ(log.Take(), "capture release ");
}

TEST(CaptureTextTest, FitsIntoAHolder) {
    Core::THolder<CCaptureText, 0> holder("b");
    EXPECT_STREQ(holder.GetHeld().GetValue(), "b");
}

} // namespace
} // namespace Vorin::DataModel::Objects
