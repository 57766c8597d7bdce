#include "datamodel/EnumToText.h"

#include "datamodel/TextOfValue.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace Vorin::DataModel::Objects {
namespace {

constexpr double kUntouched = -12345.0;

double Parsed(const CEnumToText& labels, const char* text) {
    double value = kUntouched;
    EXPECT_TRUE(labels.TextToValue(text, value)) << text;
    return value;
}

TEST(EnumToTextTest, GivesTheLabelOfTheRoundedValue) {
    const CEnumToText labels("Flow;Loop;Trigger");
    EXPECT_EQ(TextOf(labels, 0.0), "Flow");
    EXPECT_EQ(TextOf(labels, 0.49), "Flow");
    EXPECT_EQ(TextOf(labels, 0.5), "Loop");
    EXPECT_EQ(TextOf(labels, 2.0), "Trigger");
}

TEST(EnumToTextTest, AValueBeyondTheLabelsIsOutOfBounds) {
    const CEnumToText labels("Flow;Loop;Trigger");
    EXPECT_EQ(TextOf(labels, 7.0), "Out Of Bounds");
    EXPECT_EQ(TextOf(labels, 2.5), "Out Of Bounds");
    EXPECT_EQ(TextOf(labels, -2.0), "Out Of Bounds");
    EXPECT_EQ(TextOf(CEnumToText(), 0.0), "Out Of Bounds");
}

TEST(EnumToTextTest, RoundingOfNegativesGoesTowardZero) {
    // -0.9 after adding a half is cut to 0.
    EXPECT_EQ(TextOf(CEnumToText("Flow;Loop"), -1.4), "Flow");
    EXPECT_EQ(TextOf(CEnumToText("Flow;Loop"), -1.5), "Out Of Bounds");
}

TEST(EnumToTextTest, NumbersThatNoIntHoldsAreOutOfBounds) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value :
         {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity, 1e300, -1e300, 3e9}) {
        EXPECT_EQ(TextOf(CEnumToText("a;b"), value), "Out Of Bounds");
        EXPECT_EQ(TextOf(CEnumToText("a;b", std::numeric_limits<int>::min()), value),
                  "Out Of Bounds");
    }
}

TEST(EnumToTextTest, TheFirstValueMovesTheLabels) {
    const CEnumToText labels("a;b", 5);
    EXPECT_EQ(TextOf(labels, 5.0), "a");
    EXPECT_EQ(TextOf(labels, 6.0), "b");
    EXPECT_EQ(TextOf(labels, 4.0), "Out Of Bounds");
    EXPECT_EQ(Parsed(labels, "b"), 6.0);

    const CEnumToText last("a;b", std::numeric_limits<int>::max());
    EXPECT_EQ(TextOf(last, 2147483648.0), "b");
    EXPECT_EQ(Parsed(last, "b"), 2147483648.0);
}

TEST(EnumToTextTest, ReadsALabelExactlyOrElseAnInteger) {
    const CEnumToText labels("Flow;Loop;Trigger");
    EXPECT_EQ(Parsed(labels, "Loop"), 1.0);
    EXPECT_EQ(Parsed(labels, "2"), 2.0);
    EXPECT_EQ(Parsed(labels, "9 lives"), 9.0);
}

TEST(EnumToTextTest, TheFirstOfEqualLabelsWins) {
    EXPECT_EQ(Parsed(CEnumToText("a;b;a;b"), "b"), 1.0);
}

TEST(EnumToTextTest, ALabelThatLooksLikeANumberIsALabelFirst) {
    EXPECT_EQ(Parsed(CEnumToText("16;8;4"), "8"), 1.0);
}

TEST(EnumToTextTest, AFailureLeavesTheNumberOfTheLastLabelBehind) {
    const CEnumToText labels("Flow;Loop;Trigger", 10);
    for (const char* text : {"loop", "Loo", "", static_cast<const char*>(nullptr)}) {
        double value = kUntouched;
        EXPECT_FALSE(labels.TextToValue(text, value));
        EXPECT_EQ(value, 12.0);
    }
}

TEST(EnumToTextTest, WithoutLabelsTextIsAnInteger) {
    const CEnumToText labels;
    EXPECT_EQ(Parsed(labels, "-4"), -4.0);
    double value = kUntouched;
    EXPECT_FALSE(labels.TextToValue("x", value));
    EXPECT_EQ(value, kUntouched);
}

TEST(EnumToTextTest, AListHasOneLabelMoreThanSeparators) {
    const CEnumToText labels(";b;");
    ASSERT_EQ(labels.GetCount(), 3);
    EXPECT_STREQ(labels.GetLabel(0), "");
    EXPECT_STREQ(labels.GetLabel(1), "b");
    EXPECT_STREQ(labels.GetLabel(2), "");
    EXPECT_EQ(CEnumToText("").GetCount(), 0);
    EXPECT_EQ(CEnumToText(nullptr).GetCount(), 0);
}

TEST(EnumToTextTest, LabelsCanBeAddedAndReplaced) {
    CEnumToText labels;
    labels.AddLabel("a");
    labels.AddLabel("b");
    labels.SetLabel(0, "c");
    labels.SetFirstValue(3);
    EXPECT_EQ(TextOf(labels, 3.0), "c");
    EXPECT_EQ(labels.GetFirstValue(), 3);
}

TEST(EnumToTextTest, ACloneHasItsOwnLabels) {
    CEnumToText labels("a;b", 1);
    const std::unique_ptr<IParamValueToText> clone(labels.Clone());
    labels.SetLabel(0, "changed");
    EXPECT_EQ(TextOf(*clone, 1.0), "a");
}

} // namespace
} // namespace Vorin::DataModel::Objects
