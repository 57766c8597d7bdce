#include "datamodel/links/MultipleCaptureStringLink.h"

#include "datamodel/links/CaptureObjectLink.h"
#include "datamodel/links/LinkTestTools.h"
#include "datamodel/objects/CaptureString.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace Vorin::DataModel::Objects {
namespace {

class MultipleCaptureStringLinkTest : public ::testing::Test {
protected:
    MultipleCaptureStringLinkTest() {
        a.SetValue("one");
        b.SetValue("two");
        link.AddSource(&a);
        link.AddSource(&b);
        link.SetTarget(&target);
    }

    CCaptureString a;
    CCaptureString b;
    CCaptureString target;
    CObjectLog log{target};
    CMultipleCaptureStringLink link;
};

TEST_F(MultipleCaptureStringLinkTest, TheTextThatChangedLastWins) {
    link.SetEnabled(true);
    EXPECT_STREQ(target.GetValue(), "two"); // at first the last one of the list
    a.SetValue("three");
    EXPECT_STREQ(target.GetValue(), "three");
    b.SetValue("four");
    EXPECT_STREQ(target.GetValue(), "four");
    EXPECT_EQ(log.Take(), "vvv");
}

TEST_F(MultipleCaptureStringLinkTest, ASeparatorStandsBetweenAllTexts) {
    link.SetEnabled(true);
    link.SetSeparator(", ");
    EXPECT_STREQ(target.GetValue(), "one, two");
    a.SetValue("");
    EXPECT_STREQ(target.GetValue(), ", two");
    link.SetSeparator("");
    a.SetValue("three");
    EXPECT_STREQ(target.GetValue(), "threetwo");
    link.SetSeparator(nullptr);
    EXPECT_STREQ(target.GetValue(), "three");
}

TEST_F(MultipleCaptureStringLinkTest, ATargetAmongTheSourcesIsNotJoined) {
    link.AddSource(&target);
    link.SetSeparator("+");
    link.SetEnabled(true);
    a.SetValue("x");
    EXPECT_STREQ(target.GetValue(), "x+two");
}

TEST_F(MultipleCaptureStringLinkTest, ARowThatLeadsBackIntoItselfStopsGrowing) {
    CCaptureString again;
    CCaptureStringLink toB;
    CCaptureStringLink toAgain;
    link.AddSource(&again);
    link.SetSeparator(",");
    link.SetEnabled(true);
    toB.SetSource(&target);
    toB.SetTarget(&b);
    toB.SetEnabled(true);
    toAgain.SetSource(&target);
    toAgain.SetTarget(&again);
    toAgain.SetEnabled(true);
    for (int i = 0; i < 60; ++i) { // would double each time
        a.SetValue(i % 2 == 0 ? "x" : "y");
    }
    EXPECT_LE(static_cast<int>(std::strlen(target.GetValue())),
              CMultipleCaptureStringLink::kMaxLength);
    link.Disconnect();
}

TEST_F(MultipleCaptureStringLinkTest, TheGestureIsForwarded) {
    link.SetEnabled(true);
    log.Take();
    a.Capture();
    b.Capture();
    a.Release();
    b.Release();
    EXPECT_EQ(log.Take(), "cr");
}

} // namespace
} // namespace Vorin::DataModel::Objects
