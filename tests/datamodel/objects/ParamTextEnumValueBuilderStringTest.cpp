#include "datamodel/objects/ParamTextEnumValueBuilderString.h"

#include "core/EventCounter.h"
#include "datamodel/EnumToText.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/ObjectsTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

using Testing::MakeInfo;

class ParamTextEnumValueBuilderStringTest : public ::testing::Test {
protected:
    ParamTextEnumValueBuilderStringTest() {
        param.GetInfo().SetValueToText(new CEnumToText("one;two;three", 1), Core::kOwn);
    }

    std::string LabelOf(double value) {
        Containers::CCharString text;
        param.GetInfo().GetValueToText().ValueToText(value, text);
        return text.Get();
    }

    CCaptureParam param{MakeInfo(-10.0, 10.0, 0.0, kParamInteger)};
    CParamTextEnumValueBuilderString label{param, param.GetInfo()};
};

TEST_F(ParamTextEnumValueBuilderStringTest, TheTextBecomesTheLabelOfThePresentValue) {
    param.SetValue(2.4);
    label.SetValue("zwei");
    EXPECT_STREQ(label.GetValue(), "zwei");
    EXPECT_EQ(LabelOf(1.0), "one");
    EXPECT_EQ(LabelOf(2.0), "zwei");
    EXPECT_EQ(LabelOf(3.0), "three");
    param.SetValue(2.5); // rounds up
    label.SetValue("drei");
    EXPECT_EQ(LabelOf(2.0), "zwei");
    EXPECT_EQ(LabelOf(3.0), "drei");
}

TEST_F(ParamTextEnumValueBuilderStringTest, TheInfoHasTheLabelBeforeListenersHearOfTheText) {
    param.SetValue(1.0);
    std::string seen;
    const Testing::CListener changed(label.GetValueChangedEvents(), [&] { seen = LabelOf(1.0); });
    CEventCounter infoEvents(param.GetInfo().GetInfoChangedEvents());
    label.SetValue("eins");
    EXPECT_EQ(seen, "eins");
    EXPECT_EQ(infoEvents.Take(), 1);
    label.SetValue("eins");
    EXPECT_EQ(infoEvents.Take(), 0);
}

TEST_F(ParamTextEnumValueBuilderStringTest, ALabelMayHoldTheSeparator) {
    param.SetValue(1.0);
    label.SetValue("a;b");
    EXPECT_EQ(LabelOf(1.0), "a;b");
    EXPECT_EQ(LabelOf(2.0), "two");
}

TEST_F(ParamTextEnumValueBuilderStringTest, AValueWithoutALabelKeepsTheTextAlone) {
    CEventCounter infoEvents(param.GetInfo().GetInfoChangedEvents());
    for (const double value : {0.0, 4.0, -9.0}) {
        param.SetValue(value);
        label.SetValue(std::to_string(value).c_str());
    }
    EXPECT_EQ(infoEvents.Take(), 0);
    EXPECT_STREQ(label.GetValue(), "-9.000000");
}

TEST_F(ParamTextEnumValueBuilderStringTest, AnotherValueTextIsLeftAlone) {
    param.GetInfo().SetValueToText(nullptr, Core::kOwn);
    param.SetValue(2.0);
    label.SetValue("zwei");
    EXPECT_EQ(LabelOf(2.0), "2");
    EXPECT_STREQ(label.GetValue(), "zwei");
}

} // namespace
} // namespace Vorin::DataModel::Objects
