#include "datamodel/ValueParsing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Vorin::DataModel::Objects {
namespace {

constexpr double kUnparsed = -12345.0;

double Parsed(EParamType type, const char* text) {
    double value = kUnparsed;
    EXPECT_TRUE(ParseByType(type, text, value)) << text;
    return value;
}

void ExpectRefused(EParamType type, const char* text) {
    double value = kUnparsed;
    EXPECT_FALSE(ParseByType(type, text, value));
    EXPECT_EQ(value, kUnparsed);
}

TEST(ValueParsingTest, RealsIgnoreWhatFollows) {
    EXPECT_EQ(Parsed(kParamReal, "12 dB"), 12.0);
    EXPECT_EQ(Parsed(kParamReal, "  -1.5e2x"), -150.0);
    EXPECT_EQ(Parsed(kParamReal, ".5"), 0.5);
    ExpectRefused(kParamReal, "dB 12");
    ExpectRefused(kParamReal, "");
    ExpectRefused(kParamReal, nullptr);
}

TEST(ValueParsingTest, AnUnknownTypeParsesAsReal) {
    EXPECT_EQ(Parsed(static_cast<EParamType>(42), "1.5"), 1.5);
}

TEST(ValueParsingTest, IntegersStopAtThePoint) {
    EXPECT_EQ(Parsed(kParamInteger, "7.9"), 7.0);
    EXPECT_EQ(Parsed(kParamInteger, " -3 items"), -3.0);
    EXPECT_EQ(Parsed(kParamInteger, "0x10"), 0.0); // base 10 ends at the x
    ExpectRefused(kParamInteger, ".5");
    ExpectRefused(kParamInteger, "true");
    ExpectRefused(kParamInteger, "");
    ExpectRefused(kParamInteger, nullptr);
}

TEST(ValueParsingTest, AnIntegerTooLargeIsTheEndOfTheRange) {
    EXPECT_EQ(Parsed(kParamInteger, "99999999999999999999999999"), std::ldexp(1.0, 63));
    EXPECT_EQ(Parsed(kParamInteger, "-99999999999999999999999999"), -std::ldexp(1.0, 63));
}

TEST(ValueParsingTest, ARealTooLargeIsInfinite) {
    EXPECT_EQ(Parsed(kParamReal, "1e999"), std::numeric_limits<double>::infinity());
}

TEST(ValueParsingTest, FalseTypedIntoABooleanIsDeliberatelyOne) {
    for (const EParamType type : {kParamBoolean, kParamSwitch}) {
        EXPECT_EQ(Parsed(type, "true"), 1.0);
        EXPECT_EQ(Parsed(type, "yes"), 1.0);
        EXPECT_EQ(Parsed(type, "false"), 1.0);
        EXPECT_EQ(Parsed(type, "no"), 1.0);
        EXPECT_EQ(Parsed(type, "0"), 0.0);
        EXPECT_EQ(Parsed(type, "1"), 1.0);
        EXPECT_EQ(Parsed(type, "25 off"), 25.0);
    }
}

TEST(ValueParsingTest, OtherWordsAreNoBoolean) {
    for (const char* text : {"True", "yes ", " yes", "on", "falsely", ""}) {
        ExpectRefused(kParamBoolean, text);
    }
    ExpectRefused(kParamSwitch, nullptr);
}

} // namespace
} // namespace Vorin::DataModel::Objects
