#include "datamodel/ParamDataToText.h"

#include "core/EventCounter.h"
#include "datamodel/EnumToText.h"
#include "datamodel/TextOfValue.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace Vorin::DataModel::Objects {
namespace {

CParamInfo MakeMode() {
    return CParamInfo(kParamInteger, "Mode", "u", "which", new CEnumToText("Flow;Loop;Trigger"),
                      nullptr, 0.0, 2.0, 1.0);
}

TEST(ParamDataToTextTest, EveryTokenHasItsField) {
    CParamDataToText text(
        "%.1f", false,
        "{value}|{unit}|{min}|{max}|{default}|{comment}|{name}|{text_value}|{other}|{{name}");
    text.SetInfo(MakeMode());
    EXPECT_EQ(TextOf(text, 2.0), "2.0|u|0.0|2.0|1.0|which|Mode|Trigger|{other}|{name}");
}

TEST(ParamDataToTextTest, NumericTokensGoThroughTheSameFormatting) {
    CParamDataToText text("%.1f", true, "{min} {max} {default}");
    text.SetInfo(CParamInfo(kParamReal, "", "Hz", "", nullptr, nullptr, 0.002, 20000.0, 2500.0));
    EXPECT_EQ(TextOf(text, 0.0), "2.0m 20.0k 2.5k");
}

TEST(ParamDataToTextTest, ATokenInsideAFieldIsNotExpanded) {
    CParamDataToText text("%.1f", false, "{name}");
    CParamInfo info = MakeMode();
    info.SetName("{value}");
    text.SetInfo(info);
    EXPECT_EQ(TextOf(text, 2.0), "{value}");
}

TEST(ParamDataToTextTest, TheInfoIsAPrivateCopy) {
    CParamDataToText text("%.1f", false, "{name}");
    CParamInfo info = MakeMode();
    text.SetInfo(info);
    info.SetName("Other");
    EXPECT_EQ(TextOf(text, 0.0), "Mode");
    EXPECT_STREQ(text.GetInfo().GetName(), "Mode");
}

TEST(ParamDataToTextTest, AnotherInfoFiresTheChangeEvent) {
    CParamDataToText text;
    CEventCounter events(text.GetChangedEvents());
    text.SetInfo(MakeMode());
    EXPECT_EQ(events.Take(), 1);
}

TEST(ParamDataToTextTest, TextIsReadByTheInfosOwnValueTextFirst) {
    CParamDataToText text;
    text.SetInfo(MakeMode());
    double value = -1.0;
    EXPECT_TRUE(text.TextToValue("Loop", value));
    EXPECT_EQ(value, 1.0);
}

TEST(ParamDataToTextTest, AndByTheTypeWhenThatFails) {
    CParamDataToText text;
    text.SetInfo(CParamInfo(kParamBoolean, "", "", "", nullptr, nullptr, 0.0, 1.0, 0.0));
    double value = -1.0;
    EXPECT_TRUE(text.TextToValue("false", value));
    EXPECT_EQ(value, 1.0); // deliberately
    EXPECT_TRUE(text.TextToValue("0", value));
    EXPECT_EQ(value, 0.0);
    EXPECT_FALSE(text.TextToValue("maybe", value));
    EXPECT_EQ(value, 0.0);
}

TEST(ParamDataToTextTest, ACloneHasTheInfo) {
    CParamDataToText text("%.1f", false, "{name} {value}");
    text.SetInfo(MakeMode());
    const std::unique_ptr<IParamValueToText> clone(text.Clone());
    text.SetInfo(CParamInfo());
    EXPECT_EQ(TextOf(*clone, 2.0), "Mode 2.0");
}

TEST(ParamDataToTextTest, MayItselfBeTheValueTextOfAnInfo) {
    auto inner = std::make_unique<CParamDataToText>("%.0f", false, "<{value} {unit}>");
    inner->SetInfo(MakeMode());
    CParamInfo info;
    info.SetValueToText(inner.release(), Core::kOwn);
    CParamDataToText outer("%.1f", false, "{text_value}!");
    outer.SetInfo(info);
    EXPECT_EQ(TextOf(outer, 3.0), "<3 u>!");
}

} // namespace
} // namespace Vorin::DataModel::Objects
