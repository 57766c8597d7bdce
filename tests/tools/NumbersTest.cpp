#include "Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

namespace Workbench {
namespace {

using Limits = std::numeric_limits<double>;

std::string Written(double value) {
    std::string text;
    AppendNumber(text, value);
    return text;
}

TEST(AppendNumber, WritesTheShortestText) {
    EXPECT_EQ(Written(0.0), "0");
    EXPECT_EQ(Written(-0.0), "-0");
    EXPECT_EQ(Written(1.0), "1");
    EXPECT_EQ(Written(-1.0), "-1");
    EXPECT_EQ(Written(0.1), "0.1");
    EXPECT_EQ(Written(0.25), "0.25");
    EXPECT_EQ(Written(48000.0), "48000");
    EXPECT_EQ(Written(1.0 / 3.0), "0.3333333333333333");
}

TEST(AppendNumber, WritesWhatIsNoNumber) {
    EXPECT_EQ(Written(Limits::quiet_NaN()), "nan");
    EXPECT_EQ(Written(-Limits::quiet_NaN()), "nan");
    EXPECT_EQ(Written(Limits::infinity()), "inf");
    EXPECT_EQ(Written(-Limits::infinity()), "-inf");
}

TEST(AppendNumber, AppendsToWhatIsThere) {
    std::string text = "a,";
    AppendNumber(text, 2.5);
    EXPECT_EQ(text, "a,2.5");
}

TEST(AppendNumber, ReadsBackExactly) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) {
            continue;
        }
        const std::string text = Written(value);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)),
                  std::bit_cast<std::uint64_t>(value))
            << text;
    }
}

TEST(AppendNumber, ReadsBackExactlyAtTheEdges) {
    for (const double value : {Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min(),
                               Limits::epsilon(), -Limits::denorm_min()}) {
        const std::string text = Written(value);
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
    }
}

TEST(ParseNumber, TakesFiniteNumbers) {
    const std::pair<const char*, double> cases[] = {
        {"0", 0.0},     {"1", 1.0},    {"-1", -1.0},          {"0.5", 0.5}, {".5", 0.5},
        {"-2.5", -2.5}, {"1e3", 1e3},  {"1E-3", 1e-3},        {"7.", 7.0},  {"007", 7.0},
        {"0.1", 0.1},   {"1e+2", 1e2}, {"4.9e-324", 4.9e-324}};
    for (const auto& [text, expected] : cases) {
        double value = -99.0;
        EXPECT_TRUE(ParseNumber(text, value)) << text;
        EXPECT_EQ(value, expected) << text;
    }
}

TEST(ParseNumber, RefusesTheRestAndLeavesTheValue) {
    for (const char* text :
         {"",  " ",    "x",   "1x",  "1 ",   " 1",       "1,5",   "--1",    "1e",  "e1", ".",
          "-", "0x10", "nan", "inf", "-inf", "infinity", "1e400", "-1e400", "5ms", "1 2"}) {
        double value = -99.0;
        EXPECT_FALSE(ParseNumber(text, value)) << text;
        EXPECT_EQ(value, -99.0) << text;
    }
}

TEST(ParseNumber, TakesTheWholeTextWithItsZeros) {
    double value = -99.0;
    EXPECT_FALSE(ParseNumber(std::string("1\0", 2), value));
    EXPECT_EQ(value, -99.0);
}

} // namespace
} // namespace Workbench
