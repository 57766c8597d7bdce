#include "serialization/NumberText.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

template <class T>
std::string Streamed(T value, int precision) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.precision(precision);
    stream << value;
    return stream.str();
}

template <class T>
T ReadByStream(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    T value = 0;
    stream >> value;
    return value;
}

TEST(NumberTextTest, WrittenFormsAreTheTextsOfAPreset) {
    EXPECT_STREQ(NumberText::Write(true).Get(), "1");
    EXPECT_STREQ(NumberText::Write(false).Get(), "0");
    EXPECT_STREQ(NumberText::Write(-2147483647 - 1).Get(), "-2147483648");
    EXPECT_STREQ(NumberText::Write(0.5f).Get(), "0.5");
    EXPECT_STREQ(NumberText::Write(0.1f).Get(), "0.10000000149");
    EXPECT_STREQ(NumberText::Write(0.1).Get(), "0.10000000000000000555");
    EXPECT_STREQ(NumberText::Write(1e300).Get(), "1.0000000000000000525e+300");
    EXPECT_STREQ(NumberText::Write(-0.0).Get(), "-0");
}

TEST(NumberTextTest, WritesWhatAClassicStreamPrints) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        const double number = std::bit_cast<double>(bits);
        const float single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        const double plain = static_cast<double>(static_cast<std::int64_t>(bits) >> 40) / 1000;
        ASSERT_EQ(NumberText::Write(number).Get(), Streamed(number, 20));
        ASSERT_EQ(NumberText::Write(plain).Get(), Streamed(plain, 20));
        ASSERT_EQ(NumberText::Write(single).Get(), Streamed(single, 11));
        ASSERT_EQ(NumberText::Write(static_cast<int>(bits)).Get(),
                  Streamed(static_cast<int>(bits), 14));
    }
}

TEST(NumberTextTest, EveryFiniteValueComesBackToTheBit) {
    std::mt19937_64 random(2);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        const double number = std::bit_cast<double>(bits);
        const float single = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        if (std::isfinite(number)) {
            const double back = NumberText::ReadDouble(NumberText::Write(number).Get());
            ASSERT_EQ(std::bit_cast<std::uint64_t>(back), bits);
        }
        if (std::isfinite(single)) {
            const float back = NumberText::ReadFloat(NumberText::Write(single).Get());
            ASSERT_EQ(std::bit_cast<std::uint32_t>(back), static_cast<std::uint32_t>(bits));
        }
    }
    for (const double number : {0.0, -0.0, 5e-324, -5e-324, 2.2250738585072014e-308,
                                std::numeric_limits<double>::max()}) {
        const double back = NumberText::ReadDouble(NumberText::Write(number).Get());
        EXPECT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(number));
    }
}

TEST(NumberTextTest, NotANumberAndInfinitiesComeBackWithTheirSign) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_STREQ(NumberText::Write(infinity).Get(), "inf");
    EXPECT_STREQ(NumberText::Write(-infinity).Get(), "-inf");
    EXPECT_EQ(NumberText::ReadDouble("inf"), infinity);
    EXPECT_EQ(NumberText::ReadDouble("-inf"), -infinity);
    EXPECT_EQ(NumberText::ReadDouble(" -Infinity "), -infinity);
    EXPECT_EQ(NumberText::ReadFloat("INF"), std::numeric_limits<float>::infinity());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_STREQ(NumberText::Write(nan).Get(), "nan");
    EXPECT_STREQ(NumberText::Write(std::copysign(nan, -1.0)).Get(), "-nan");
    EXPECT_TRUE(std::isnan(NumberText::ReadDouble("nan")));
    EXPECT_FALSE(std::signbit(NumberText::ReadDouble("nan")));
    EXPECT_TRUE(std::isnan(NumberText::ReadDouble("-nan")));
    EXPECT_TRUE(std::signbit(NumberText::ReadDouble("-nan")));
    EXPECT_EQ(NumberText::ReadDouble("nano"), 0.0);
    EXPECT_EQ(NumberText::ReadInt("inf"), 0);
}

TEST(NumberTextTest, OverflowGivesTheOutermostFiniteValue) {
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(NumberText::ReadDouble("1e999"), largest);
    EXPECT_EQ(NumberText::ReadDouble("-1e999999999999999999999"), -largest);
    std::string digits(400, '9');
    EXPECT_EQ(NumberText::ReadDouble(digits.c_str()), largest);
    digits.assign(400, '0').replace(0, 2, "0.").append("1e800");
    EXPECT_EQ(NumberText::ReadDouble(digits.c_str()), largest);
    EXPECT_EQ(NumberText::ReadFloat("1e39"), std::numeric_limits<float>::max());
    EXPECT_EQ(NumberText::ReadFloat("-1e300"), std::numeric_limits<float>::lowest());
    EXPECT_EQ(NumberText::ReadInt("2147483648"), 2147483647);
    EXPECT_EQ(NumberText::ReadInt("-99999999999999999999"), -2147483647 - 1);
    EXPECT_TRUE(NumberText::ReadBool("99999999999999999999"));
}

TEST(NumberTextTest, UnderflowGivesZero) {
    EXPECT_EQ(NumberText::ReadDouble("1e-999"), 0.0);
    EXPECT_TRUE(std::signbit(NumberText::ReadDouble("-1e-99999999999999999999")));
    std::string digits(400, '9');
    EXPECT_EQ(NumberText::ReadDouble(digits.append("e-1000").c_str()), 0.0);
    EXPECT_EQ(NumberText::ReadFloat("1e-60"), 0.0f);
}

TEST(NumberTextTest, BadTextGivesZero) {
    for (const char* text : {"", " ", "abc", "-", "+", ".", "e5", "1e", "1e+", "-.", "+-1"}) {
        EXPECT_EQ(NumberText::ReadDouble(text), 0.0) << text;
    }
    for (const char* text : {"", " ", "abc", "-", ".5", "true"}) {
        EXPECT_EQ(NumberText::ReadInt(text), 0) << text;
        EXPECT_FALSE(NumberText::ReadBool(text)) << text;
    }
    EXPECT_EQ(NumberText::ReadInt(nullptr), 0);
    EXPECT_EQ(NumberText::ReadDouble(nullptr), 0.0);
}

TEST(NumberTextTest, ReadsWhatAClassicStreamReads) {
    static constexpr char alphabet[] = "0123456789.+-eE ,x";
    std::mt19937 random(3);
    std::uniform_int_distribution<int> length(0, 12);
    std::uniform_int_distribution<std::size_t> letter(0, sizeof(alphabet) - 2);
    for (int i = 0; i < 50000; ++i) {
        std::string text;
        for (int left = length(random); left > 0; --left) {
            text += alphabet[letter(random)];
        }
        ASSERT_EQ(NumberText::ReadInt(text.c_str()), ReadByStream<int>(text)) << text;
        const double expected = ReadByStream<double>(text);
        ASSERT_EQ(NumberText::ReadDouble(text.c_str()), expected) << text;
        const float expectedSingle = ReadByStream<float>(text);
        const float single = NumberText::ReadFloat(text.c_str());
        if (std::fabs(expectedSingle) > 1e-38f || expectedSingle == 0.0f) {
            ASSERT_EQ(single, expectedSingle) << text;
        }
    }
}

} // namespace
