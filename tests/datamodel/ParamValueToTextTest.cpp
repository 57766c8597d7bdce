#include "datamodel/ParamValueToText.h"

#include "core/EventCounter.h"
#include "core/NonFinite.h"
#include "datamodel/TextOfValue.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace Vorin::DataModel::Objects {
namespace {

std::string WithPattern(const char* pattern) {
    return TextOf(CParamValueToText("%.1f", false, pattern), 2.5);
}

std::string WithPrefix(double value) {
    return TextOf(CParamValueToText("%.1f", true, "{value}"), value);
}

std::string WithDigits(int digits, double value, const char* format = "%.10g") {
    CParamValueToText valueToText(format, false, "{value}");
    valueToText.SetSignificantDigits(digits);
    return TextOf(valueToText, value);
}

std::string WithoutZeros(const char* format, double value) {
    CParamValueToText valueToText(format, false, "{value}");
    valueToText.SetDropTrailingZeros(true);
    return TextOf(valueToText, value);
}

TEST(ParamValueToTextTest, ThePatternHoldsTheNumber) {
    EXPECT_EQ(WithPattern("{value}"), "2.5");
    EXPECT_EQ(WithPattern("about {value} dB"), "about 2.5 dB");
    EXPECT_EQ(WithPattern("{value}/{value}"), "2.5/2.5");
    EXPECT_EQ(WithPattern(""), "");
    EXPECT_EQ(WithPattern("no number"), "no number");
}

TEST(ParamValueToTextTest, ADoubledBraceIsOneBraceLiterally) {
    EXPECT_EQ(WithPattern("{{value}"), "{value}");
    EXPECT_EQ(WithPattern("{{{value}}"), "{2.5}");
    EXPECT_EQ(WithPattern("{{{{"), "{{");
    EXPECT_EQ(WithPattern("a{{"), "a{");
}

TEST(ParamValueToTextTest, AnUnknownTokenStandsForItself) {
    EXPECT_EQ(WithPattern("{foo} dB"), "{foo} dB");
    EXPECT_EQ(WithPattern("{unit}"), "{unit}");
    EXPECT_EQ(WithPattern("{}"), "{}");
    EXPECT_EQ(WithPattern("{Value}"), "{Value}");
    // The token reaches from the first brace to the next closing one.
    EXPECT_EQ(WithPattern("{a{value}"), "{a{value}");
}

TEST(ParamValueToTextTest, WithoutAClosingBraceTheTailIsCopied) {
    EXPECT_EQ(WithPattern("x {value"), "x {value");
    EXPECT_EQ(WithPattern("{value} {"), "2.5 {");
    EXPECT_EQ(WithPattern("} {a {{ b"), "} {a { b");
}

TEST(ParamValueToTextTest, ALongPatternOfOpenBracesIsReadInOnePass) {
    // Searching for the missing closing brace at each opening one would take minutes.
    std::string pattern;
    for (int i = 0; i < 400000; ++i) {
        pattern += "{a";
    }
    EXPECT_EQ(WithPattern(pattern.c_str()), pattern);
}

TEST(ParamValueToTextTest, SignificantDigitsRoundBeforeTheFormat) {
    EXPECT_EQ(WithDigits(3, 1234.5), "1230");
    EXPECT_EQ(WithDigits(3, 0.0), "0");
    EXPECT_EQ(WithDigits(3, -1234.5), "-1230");
    EXPECT_EQ(WithDigits(3, 1235.0), "1240");
    EXPECT_EQ(WithDigits(1, 96.0), "100");
    EXPECT_EQ(WithDigits(2, 0.4567), "0.46");
    EXPECT_EQ(WithDigits(4, 1.0), "1");
    EXPECT_EQ(WithDigits(3, 1234.5, "%.1f"), "1230.0");
}

TEST(ParamValueToTextTest, BelowOneSignificantDigitsAreOff) {
    for (const int digits : {0, -1, -2, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(WithDigits(digits, 1234.5), "1234.5");
    }
}

TEST(ParamValueToTextTest, SignificantDigitsOfHostileNumbers) {
    EXPECT_EQ(WithDigits(std::numeric_limits<int>::max(), 1234.5), "1234.5");
    EXPECT_EQ(WithDigits(400, 1234.5), "1234.5");
    EXPECT_EQ(WithDigits(3, kInfinity), "inf");
    EXPECT_EQ(WithDigits(3, -kInfinity), "-inf");
    EXPECT_EQ(WithDigits(3, kNaN), "nan");
    EXPECT_EQ(WithDigits(3, 5e-324), "4.940656458e-324");
    EXPECT_EQ(WithDigits(1, 1.7e308, "%.1e"), "1.7e+308"); // 2e308 is none
}

TEST(ParamValueToTextTest, UnitPrefixes) {
    EXPECT_EQ(WithPrefix(2500.0), "2.5k");
    EXPECT_EQ(WithPrefix(0.002), "2.0m");
    EXPECT_EQ(WithPrefix(1.0), "1.0");
    EXPECT_EQ(WithPrefix(999.0), "999.0");
    EXPECT_EQ(WithPrefix(1000.0), "1.0k");
    EXPECT_EQ(WithPrefix(2.5e6), "2.5M");
    EXPECT_EQ(WithPrefix(2.5e9), "2.5G");
    EXPECT_EQ(WithPrefix(2.5e12), "2.5T");
    EXPECT_EQ(WithPrefix(2.5e-6), "2.5\xC2\xB5");
    EXPECT_EQ(WithPrefix(2.5e-9), "2.5p"); // the group of -9 is called p here
}

TEST(ParamValueToTextTest, APrefixChangesOnlyWhenAWholeGroupIsPassed) {
    EXPECT_EQ(WithPrefix(0.9), "0.9");
    EXPECT_EQ(WithPrefix(0.25), "0.2"); // a tie, to even
    EXPECT_EQ(WithPrefix(0.06), "0.1");
    EXPECT_EQ(WithPrefix(0.0099), "9.9m");
    EXPECT_EQ(WithPrefix(0.0005), "0.5m");
}

TEST(ParamValueToTextTest, BeyondTheLastPrefixThereIsNone) {
    EXPECT_EQ(WithPrefix(1e15), "1000000000000000.0");
    EXPECT_EQ(WithPrefix(1e-13), "0.0");
}

TEST(ParamValueToTextTest, WhatHasNoLogarithmHasNoPrefix) {
    EXPECT_EQ(WithPrefix(0.0), "0.0");
    EXPECT_EQ(WithPrefix(-2500.0), "-2500.0");
    EXPECT_EQ(WithPrefix(kInfinity), "inf");
    EXPECT_EQ(WithPrefix(-kInfinity), "-inf");
    EXPECT_EQ(WithPrefix(kNaN), "nan");
    EXPECT_EQ(WithPrefix(5e-324), "0.0");
}

TEST(ParamValueToTextTest, TheRoundedValueChoosesThePrefix) {
    CParamValueToText valueToText("%.2f", true, "{value}");
    valueToText.SetSignificantDigits(3);
    EXPECT_EQ(TextOf(valueToText, 999.9), "1.00k");
}

TEST(ParamValueToTextTest, ABlankStandsInFrontOfThePrefixAlsoWhenThereIsNone) {
    CParamValueToText valueToText("%.1f", true, "[{value}Hz]");
    valueToText.SetPrefixSpace(true);
    EXPECT_EQ(TextOf(valueToText, 2500.0), "[2.5 kHz]");
    EXPECT_EQ(TextOf(valueToText, 25.0), "[25.0 Hz]");
}

TEST(ParamValueToTextTest, TrailingZerosAndThePointAreDropped) {
    EXPECT_EQ(WithoutZeros("%.3f", 1.5), "1.5");
    EXPECT_EQ(WithoutZeros("%.3f", 2.0), "2");
    EXPECT_EQ(WithoutZeros("%.3f", 10.0), "10");
    EXPECT_EQ(WithoutZeros("%.3f", 0.125), "0.125");
    EXPECT_EQ(WithoutZeros("%.3f", 0.0), "0");
    EXPECT_EQ(WithoutZeros("%.1f s", 2.0), "2.0 s"); // not at the end
}

TEST(ParamValueToTextTest, DroppingZerosDoesNotAskWhetherTheyAreDecimals) {
    EXPECT_EQ(WithoutZeros("%.0f", 100.0), "1");
    EXPECT_EQ(WithoutZeros("%.0f", 0.0), "");
}

TEST(ParamValueToTextTest, OnePointOrCommaGoes) {
    EXPECT_EQ(WithoutZeros("%.0f,00", 3.0), "3");
    EXPECT_EQ(WithoutZeros("%.0f..", 3.0), "3.");
}

TEST(ParamValueToTextTest, ZerosAreDroppedInFrontOfThePrefix) {
    CParamValueToText valueToText("%.3f", true, "{value}");
    valueToText.SetDropTrailingZeros(true);
    EXPECT_EQ(TextOf(valueToText, 2500.0), "2.5k");
}

TEST(ParamValueToTextTest, ReadsARealWhateverThePatternIs) {
    const CParamValueToText valueToText("%.0f", false, "{foo}");
    double value = -1.0;
    EXPECT_TRUE(valueToText.TextToValue("12.5 dB", value));
    EXPECT_EQ(value, 12.5);
    EXPECT_FALSE(valueToText.TextToValue("dB", value));
    EXPECT_FALSE(valueToText.TextToValue(nullptr, value));
    EXPECT_EQ(value, 12.5);
}

TEST(ParamValueToTextTest, EachSetterFiresOnlyWhenSomethingChanges) {
    CParamValueToText valueToText("%.1f", false, "{value}");
    CEventCounter events(valueToText.GetChangedEvents());
    const auto expectOnce = [&events](auto set) {
        set();
        EXPECT_EQ(events.Take(), 1);
        set();
        EXPECT_EQ(events.Take(), 0);
    };
    expectOnce([&] { valueToText.SetPattern("{value} s"); });
    expectOnce([&] { EXPECT_TRUE(valueToText.SetFormat("%.2f")); });
    expectOnce([&] { valueToText.SetUseUnitPrefix(true); });
    expectOnce([&] { valueToText.SetSignificantDigits(4); });
    expectOnce([&] { valueToText.SetDropTrailingZeros(true); });
    expectOnce([&] { valueToText.SetPrefixSpace(true); });
    EXPECT_STREQ(valueToText.GetPattern(), "{value} s");
    EXPECT_STREQ(valueToText.GetFormat(), "%.2f");
    EXPECT_TRUE(valueToText.GetUseUnitPrefix());
    EXPECT_EQ(valueToText.GetSignificantDigits(), 4);
    EXPECT_TRUE(valueToText.GetDropTrailingZeros());
    EXPECT_TRUE(valueToText.GetPrefixSpace());
}

TEST(ParamValueToTextTest, ARefusedFormatKeepsThePreviousOneInSilence) {
    CParamValueToText valueToText("%.1f", false, "{value}");
    CEventCounter events(valueToText.GetChangedEvents());
    EXPECT_FALSE(valueToText.SetFormat("%s"));
    EXPECT_FALSE(valueToText.SetFormat(nullptr));
    EXPECT_EQ(events.Take(), 0);
    EXPECT_EQ(TextOf(valueToText, 2.5), "2.5");
}

TEST(ParamValueToTextTest, AConstructorWithARefusedFormatHasTwoDecimals) {
    EXPECT_EQ(TextOf(CParamValueToText("%n%n%n", false, "{value}"), 2.5), "2.50");
    EXPECT_EQ(TextOf(CParamValueToText(nullptr, false, "{value}"), 2.5), "2.50");
}

TEST(ParamValueToTextTest, ANewOneHasAllExtrasOff) {
    const CParamValueToText valueToText;
    EXPECT_EQ(valueToText.GetSignificantDigits(), -1);
    EXPECT_FALSE(valueToText.GetUseUnitPrefix());
    EXPECT_FALSE(valueToText.GetDropTrailingZeros());
    EXPECT_FALSE(valueToText.GetPrefixSpace());
}

TEST(ParamValueToTextTest, ACloneHasAllSettingsAndNoListeners) {
    CParamValueToText valueToText("%.3f", true, "<{value}>");
    valueToText.SetSignificantDigits(3);
    valueToText.SetDropTrailingZeros(true);
    valueToText.SetPrefixSpace(true);
    CEventCounter events(valueToText.GetChangedEvents());

    const std::unique_ptr<IParamValueToText> clone(valueToText.Clone());
    EXPECT_EQ(TextOf(*clone, 1234.0), "<1.23 k>");
    auto* concrete = dynamic_cast<CParamValueToText*>(clone.get());
    ASSERT_TRUE(concrete);
    concrete->SetPattern("changed");
    EXPECT_EQ(events.Take(), 0);
    EXPECT_STREQ(valueToText.GetPattern(), "<{value}>");
}

} // namespace
} // namespace Vorin::DataModel::Objects
