#include "datamodel/links/CaptureParamToStringLink.h"

#include "datamodel/EnumToText.h"
#include "datamodel/links/LinkTestTools.h"
#include "datamodel/objects/CaptureString.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::DataModel::Objects {
namespace {

class CaptureParamToStringLinkTest : public ::testing::Test {
protected:
    CaptureParamToStringLinkTest() {
        param.SetValue(12.5);
        link->SetSource(&param);
        link->SetTarget(&text);
    }

    CCaptureParam param{CParamInfo(kParamReal, "Delay", "ms", "", nullptr, nullptr, 0, 300, 0)};
    CCaptureString text;
    CObjectLog log{text};
    std::unique_ptr<CCaptureParamToStringLink> link = std::make_unique<CCaptureParamToStringLink>();
};

TEST_F(CaptureParamToStringLinkTest, ShowsTheValueTextAndTheUnit) {
    link->SetEnabled(true);
    EXPECT_STREQ(text.GetValue(), "12.50 ms");
    EXPECT_EQ(log.Take(), "v");
    param.SetValue(20.0);
    EXPECT_STREQ(text.GetValue(), "20.00 ms");
    EXPECT_EQ(log.Take(), "v");
}

TEST_F(CaptureParamToStringLinkTest, FollowsTheInfoOfTheSource) {
    link->SetEnabled(true);
    param.GetInfo().SetUnit("s");
    EXPECT_STREQ(text.GetValue(), "12.50 s");
    param.GetInfo().SetValueToText(new CEnumToText("off;on"), Core::kOwn);
    EXPECT_STREQ(text.GetValue(), "Out Of Bounds s");
    param.GetInfo().SetMax(1.0); // clamps the value
    EXPECT_STREQ(text.GetValue(), "on s");
}

TEST_F(CaptureParamToStringLinkTest, ADisabledLinkCatchesUpWithTheInfo) {
    link->SetEnabled(true);
    link->SetEnabled(false);
    param.GetInfo().SetUnit("s");
    EXPECT_STREQ(text.GetValue(), "12.50 ms");
    link->SetEnabled(true);
    EXPECT_STREQ(text.GetValue(), "12.50 s");
}

TEST_F(CaptureParamToStringLinkTest, APausedLinkCatchesUpWithTheInfo) {
    link->SetEnabled(true);
    link->SetPaused(true);
    param.GetInfo().SetUnit("s");
    EXPECT_STREQ(text.GetValue(), "12.50 ms");
    link->SetPaused(false);
    EXPECT_STREQ(text.GetValue(), "12.50 s");
}

TEST_F(CaptureParamToStringLinkTest, TheValueTextMayBeAnother) {
    link->GetValueToText().SetPattern("{value}");
    link->SetEnabled(true);
    EXPECT_STREQ(text.GetValue(), "12.5"); // in the format of the link
    ASSERT_TRUE(link->GetValueToText().SetFormat("%.3f"));
    EXPECT_STREQ(text.GetValue(), "12.500");
    link->SetEnabled(false);
    link->GetValueToText().SetPattern("<{value}>");
    EXPECT_STREQ(text.GetValue(), "12.500");
    link->SetEnabled(true);
    EXPECT_STREQ(text.GetValue(), "<12.500>");
}

TEST_F(CaptureParamToStringLinkTest, ATriggerOnChangesHoldsForTheInfoToo) {
    link->SetTrigger(kLinkTriggerModify);
    link->SetEnabled(true);
    EXPECT_STREQ(text.GetValue(), "");
    param.GetInfo().SetUnit("s");
    EXPECT_STREQ(text.GetValue(), "");
    param.SetValue(1.0);
    EXPECT_STREQ(text.GetValue(), "1.00 s");
}

TEST_F(CaptureParamToStringLinkTest, TheGestureIsForwarded) {
    link->SetEnabled(true);
    log.Take();
    param.Capture();
    param.SetValue(1.0);
    param.Release();
    EXPECT_EQ(log.Take(), "cvr");
}

TEST_F(CaptureParamToStringLinkTest, DeathLetsGoOfTheInfo) {
    link->SetEnabled(true);
    link.reset();
    param.GetInfo().SetUnit("s");
    EXPECT_STREQ(text.GetValue(), "12.50 ms");
}

} // namespace
} // namespace Vorin::DataModel::Objects
