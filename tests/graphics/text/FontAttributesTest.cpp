#include "graphics/text/FontAttributes.h"

#include <gtest/gtest.h>

namespace Vorin::Graphics {
namespace {

int SizeOf(const char* text, int current) {
    int size = -99;
    return ParseFontSize(text, current, size) ? size : -1;
}

TEST(FontAttributesTest, SizesAreAbsoluteRelativeOrParts) {
    EXPECT_EQ(SizeOf("17", 10), 17);
    EXPECT_EQ(SizeOf("150%", 10), 15);
    EXPECT_EQ(SizeOf("33%", 10), 3);
    EXPECT_EQ(SizeOf("+2", 10), 12);
    EXPECT_EQ(SizeOf("-3", 10), 7);
    EXPECT_EQ(SizeOf("-20", 10), 0);
    EXPECT_EQ(SizeOf("-50%", 10), 0);
    EXPECT_EQ(SizeOf("0", 10), 0);
    EXPECT_EQ(SizeOf("2147483647%", 2147483647), 2147483647);
    EXPECT_EQ(SizeOf("+2147483647", 2147483647), 2147483647);
}

TEST(FontAttributesTest, WhatIsNoSizeIsRefused) {
    for (const char* text :
         {"", " 12", "12px", "big", "%", "+", "-", "+-2", "1.5", "99999999999"}) {
        EXPECT_EQ(SizeOf(text, 10), -1) << text;
    }
    EXPECT_EQ(SizeOf(nullptr, 10), -1);
}

TEST(FontAttributesTest, WidthsAndHeightsTakePartsAndNoDifferences) {
    int extent = 0;
    EXPECT_TRUE(ParseFontExtent("50%", 30, extent));
    EXPECT_EQ(extent, 15);
    EXPECT_TRUE(ParseFontExtent("+2", 30, extent));
    EXPECT_EQ(extent, 2);
}

TEST(FontAttributesTest, EachAttributeSetsItsProperty) {
    CFontDescription font;
    font.SetHeight(10);
    font.SetWidth(8);
    const char* const attributes[][2] = {
        {"font_face", "DejaVu Sans"},      {"font_size", "+2"},       {"font_width", "50%"},
        {"font_quality", "no_anti_alias"}, {"font_weight", "bold"},   {"font_style", "italic"},
        {"text_decoration", "underline"},  {"font_escapement", "-90"}};
    for (const auto& [name, value] : attributes) {
        EXPECT_TRUE(ApplyFontAttribute(font, name, value)) << name;
    }
    CFontValues expected;
    expected.face = "DejaVu Sans";
    expected.height = 12;
    expected.width = 4;
    expected.quality = 3;
    expected.weight = 700;
    expected.italic = true;
    expected.underline = true;
    expected.escapement = -90.0F;
    EXPECT_EQ(font.GetValues(), expected);
    EXPECT_TRUE(ApplyFontAttribute(font, "font_height", "200%"));
    EXPECT_TRUE(ApplyFontAttribute(font, "font_weight", "normal"));
    EXPECT_TRUE(ApplyFontAttribute(font, "font_style", "normal"));
    EXPECT_TRUE(ApplyFontAttribute(font, "text_decoration", "none"));
    EXPECT_EQ(font.GetHeight(), 24);
    EXPECT_EQ(font.GetWeight(), 400);
    EXPECT_FALSE(font.IsItalic());
    EXPECT_FALSE(font.IsUnderline());
}

TEST(FontAttributesTest, UnknownNamesAndValuesChangeNothing) {
    CFontDescription font;
    const CFontValues before = font.GetValues();
    const char* const attributes[][2] = {{"font_colour", "red"},     {"font_size", "huge"},
                                         {"font_quality", "bold"},   {"font_weight", "heavy"},
                                         {"font_style", "oblique"},  {"text_decoration", "x"},
                                         {"font_escapement", "nan"}, {"font_escapement", "inf"},
                                         {"font_escapement", ""},    {nullptr, nullptr}};
    for (const auto& [name, value] : attributes) {
        EXPECT_FALSE(ApplyFontAttribute(font, name, value)) << (name ? name : "null");
    }
    EXPECT_EQ(font.GetValues(), before);
}

} // namespace
} // namespace Vorin::Graphics
