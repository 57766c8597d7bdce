#include "datamodel/NumberFormat.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace Vorin::DataModel::Objects {
namespace {

std::string Write(const char* format, double value) {
    CNumberFormat number;
    EXPECT_TRUE(number.Set(format)) << format;
    Containers::CCharString out("<");
    number.Write(value, out);
    return out.Get();
}

TEST(NumberFormatTest, AcceptsOneConversionWithFlagsWidthAndPrecision) {
    EXPECT_EQ(Write("%f", 1.5), "<1.500000");
    EXPECT_EQ(Write("%.0f", 2.75), "<3");
    EXPECT_EQ(Write("%.f", 2.75), "<3");
    EXPECT_EQ(Write("%+.1f", 2.75), "<+2.8");
    EXPECT_EQ(Write("%-6.1fx", 1.0), "<1.0   x");
    EXPECT_EQ(Write("%06.1f", 1.5), "<0001.5");
    EXPECT_EQ(Write("% g", 1.5), "< 1.5");
    EXPECT_EQ(Write("%#.0f", 3.0), "<3.");
    EXPECT_EQ(Write("%.2e", 1234.0), "<1.23e+03");
    EXPECT_EQ(Write("%.2E", 1234.0), "<1.23E+03");
    EXPECT_EQ(Write("%G", 1e-9), "<1E-09");
    EXPECT_EQ(Write("%F", 0.5), "<0.500000");
    EXPECT_EQ(Write("%a", 1.0), "<0x1p+0");
    EXPECT_EQ(Write("%A", 1.0), "<0X1P+0");
}

TEST(NumberFormatTest, TextAroundTheConversionStaysAndDoublePercentIsOne) {
    EXPECT_EQ(Write("about %.0f %%", 12.0), "<about 12 %");
    EXPECT_EQ(Write("%%%%%.0f", 12.0), "<%%12");
    EXPECT_EQ(Write("%.0f%%d", 12.0), "<12%d");
}

TEST(NumberFormatTest, RefusesWhateverIsNotOneDouble) {
    for (const char* format :
         {"",    "text",  "%%",     "%",   "%.2",   "%d",    "%s",      "%n",
          "%c",  "%p",    "%x",     "%u",  "%i",    "%*f",   "%.*f",    "%1$f",
          "%lf", "%Lf",   "%hf",    "%ld", "%f%f",  "%f%n",  "%f %s",   "%n%f",
          "%f%", "%100f", "%.100f", "%'f", "% 5 f", "%.-1f", "%5.5.5f", "%\xC2\xB5"}) {
        CNumberFormat number;
        ASSERT_TRUE(number.Set("%.1f"));
        EXPECT_FALSE(number.Set(format)) << format;
        EXPECT_STREQ(number.Get(), "%.1f");
    }
    CNumberFormat number;
    EXPECT_FALSE(number.Set(nullptr));
    EXPECT_STREQ(number.Get(), "%.2f");
}

TEST(NumberFormatTest, ARefusedFormatLeavesTheOutputOfThePreviousOne) {
    CNumberFormat number;
    ASSERT_TRUE(number.Set("a%.0fb"));
    ASSERT_FALSE(number.Set("c%.3fd%s"));
    Containers::CCharString out;
    number.Write(4.0, out);
    EXPECT_STREQ(out.Get(), "a4b");
}

TEST(NumberFormatTest, TheLongestNumberIsWrittenWhole) {
    const double largest = std::numeric_limits<double>::max();
    const std::string text = Write("%+#99.99f", -largest);
    // "<", the sign, 309 digits, the point and 99 decimals.
    EXPECT_EQ(text.size(), 1U + 1U + 309U + 1U + 99U);
    EXPECT_EQ(text.substr(0, 12), "<-1797693134");
    EXPECT_EQ(text.substr(text.size() - 4), "0000");
    EXPECT_EQ(Write("%99.0f", 1.0).size(), 1U + 99U);
}

TEST(NumberFormatTest, NotFiniteNumbersAreWords) {
    EXPECT_EQ(Write("%.2f", std::numeric_limits<double>::infinity()), "<inf");
    EXPECT_EQ(Write("%.2f", -std::numeric_limits<double>::infinity()), "<-inf");
    EXPECT_EQ(Write("%.2f", std::numeric_limits<double>::quiet_NaN()), "<nan");
}

TEST(NumberFormatTest, LongTextAroundTheConversionIsNotCut) {
    const std::string before(5000, 'x');
    EXPECT_EQ(Write((before + "%.0f").c_str(), 7.0), "<" + before + "7");
}

} // namespace
} // namespace Vorin::DataModel::Objects
