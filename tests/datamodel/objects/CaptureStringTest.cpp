#include "datamodel/objects/CaptureString.h"

#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

#include <string>

namespace Vorin::DataModel::Objects {
namespace {

using Testing::CEventLog;
using Testing::CListener;

TEST(CaptureStringTest, StartsEmptyOrAtTheDefaultText) {
    EXPECT_STREQ(CCaptureString().GetValue(), "");
    const CCaptureString named(CStringInfo("Name", "of it", true, "untitled"));
    EXPECT_STREQ(named.GetValue(), "untitled");
    EXPECT_STREQ(named.GetInfo().GetComment(), "of it");
    EXPECT_TRUE(named.GetInfo().GetFlag());
}

TEST(CaptureStringTest, NotifiesWhenTheTextDiffers) {
    CCaptureString text;
    CEventLog log(text);
    text.SetValue("a");
    EXPECT_EQ(log.Take(), "value ");
    EXPECT_STREQ(text.GetValue(), "a");
    text.SetValue("a");
    EXPECT_EQ(log.Take(), "");
}

TEST(CaptureStringTest, NullIsTheEmptyText) {
    CCaptureString text;
    CEventLog log(text);
    text.SetValue(nullptr);
    EXPECT_EQ(log.Take(), "");
    text.SetValue("a");
    text.SetValue(nullptr);
    EXPECT_EQ(log.Take(), "value value ");
    EXPECT_STREQ(text.GetValue(), "");
}

TEST(CaptureStringTest, TakesAPartOfItsOwnText) {
    CCaptureString text;
    text.SetValue("left right");
    text.SetValue(text.GetValue() + 5);
    EXPECT_STREQ(text.GetValue(), "right");
}

/// Writes down what it is told, and in what state.
class CWatchedString : public CCaptureString {
public:
    void OnValueChanged(const char* text) override {
        told += std::string(GetValue()) + ">" + text + " ";
        CCaptureString::OnValueChanged(text);
    }

    std::string told;
};

TEST(CaptureStringTest, ADerivedClassHearsOfAChangeBeforeTheListenersAndOfNothingElse) {
    CWatchedString text;
    const CListener changed(text.GetValueChangedEvents(), [&] { text.told += "event "; });
    text.SetValue("a");
    text.SetValue("a");
    text.SetValue("b");
    EXPECT_EQ(text.told, ">a event a>b event ");
}

TEST(CaptureStringTest, CanBeHeldThroughItsInterface) {
    CCaptureString text;
    CEventLog log(text);
    ICaptureString& object = text;
    object.Capture();
    EXPECT_TRUE(object.IsCaptured());
    object.Release();
    EXPECT_EQ(log.Take(), "capture release ");
}

} // namespace
} // namespace Vorin::DataModel::Objects
