#include "datamodel/objects/ValueConversion.h"

#include "core/NonFinite.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdint>

namespace Vorin::DataModel::Objects {
namespace {

TEST(ValueConversionTest, ABoolIsTrueAboveOneHalf) {
    EXPECT_FALSE(FromNumber<bool>(0.0));
    EXPECT_FALSE(FromNumber<bool>(0.5));
    EXPECT_TRUE(FromNumber<bool>(0.51));
    EXPECT_TRUE(FromNumber<bool>(kInfinity));
    EXPECT_FALSE(FromNumber<bool>(-3.0));
    EXPECT_FALSE(FromNumber<bool>(kNaN));
}

TEST(ValueConversionTest, AnIntegerIsTheNearestWithHalvesAwayFromZero) {
    EXPECT_EQ(FromNumber<int>(2.4), 2);
    EXPECT_EQ(FromNumber<int>(2.5), 3);
    EXPECT_EQ(FromNumber<int>(-2.5), -3);
    EXPECT_EQ(FromNumber<int>(-0.2), 0);
    EXPECT_EQ(FromNumber<int>(kNaN), 0);
}

TEST(ValueConversionTest, WhatNoIntegerHoldsIsAnEndOfItsRange) {
    EXPECT_EQ(FromNumber<int>(3e9), 2147483647);
    EXPECT_EQ(FromNumber<int>(2147483646.9), 2147483647);
    EXPECT_EQ(FromNumber<int>(kInfinity), 2147483647);
    EXPECT_EQ(FromNumber<int>(-3e9), std::numeric_limits<int>::min());
    EXPECT_EQ(FromNumber<int>(-kInfinity), std::numeric_limits<int>::min());
    EXPECT_EQ(FromNumber<std::uint8_t>(300.0), 255);
    EXPECT_EQ(FromNumber<std::uint8_t>(-1.0), 0);
    EXPECT_EQ(FromNumber<std::int64_t>(1e30), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(FromNumber<std::int64_t>(9223372036854774784.0), 9223372036854774784LL);
    EXPECT_EQ(FromNumber<std::uint64_t>(1e30), std::numeric_limits<std::uint64_t>::max());
}

enum EPlainMode : int { kFirst = 1, kSecond = 2 };
enum class EPlace : std::uint8_t { kLeft = 0, kRight = 1 };

TEST(ValueConversionTest, AnEnumIsItsNumber) {
    EXPECT_EQ(FromNumber<EPlainMode>(1.6), kSecond);
    EXPECT_EQ(FromNumber<EPlace>(0.5), EPlace::kRight);
    EXPECT_EQ(ToNumber(kSecond), 2.0);
    EXPECT_EQ(ToNumber(EPlace::kRight), 1.0);
}

TEST(ValueConversionTest, AFloatIsTheNearestAndStaysFinite) {
    EXPECT_EQ(FromNumber<float>(0.1), 0.1f);
    EXPECT_EQ(FromNumber<float>(1e300), FLT_MAX);
    EXPECT_EQ(FromNumber<float>(-1e300), -FLT_MAX);
    EXPECT_EQ(FromNumber<float>(kInfinity), std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(FromNumber<float>(kNaN)));
    EXPECT_EQ(FromNumber<double>(1e300), 1e300);
}

TEST(ValueConversionTest, PlainValuesBecomeNumbersAndTextsStayTexts) {
    EXPECT_EQ(ToNumber(true), 1.0);
    EXPECT_EQ(ToNumber(0.5f), 0.5);
    EXPECT_EQ(ToNumber(-3), -3.0);
    EXPECT_STREQ(ToText("a"), "a");
    const Containers::CCharString text("b");
    EXPECT_EQ(ToText(text), text.Get());
}

} // namespace
} // namespace Vorin::DataModel::Objects
