#include "serialization/KeyText.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

TEST(KeyTextTest, NamesStandAsTheyAre) {
    for (const char* key : {"a", "_x", "max_x", "p0", "dsp.output-1", "\xc3\xa4rger", "a:b"}) {
        EXPECT_STREQ(CKeyText(key, kXmlNameKey).Get(), key);
        EXPECT_STREQ(CKeyText(key, kIniKey).Get(), key);
    }
}

TEST(KeyTextTest, WhatIsNoNameIsEscapedByteByByte) {
    EXPECT_STREQ(CKeyText("a b", kXmlNameKey).Get(), "a_x20_b");
    EXPECT_STREQ(CKeyText("1x", kXmlNameKey).Get(), "_x31_x");
    EXPECT_STREQ(CKeyText("", kXmlNameKey).Get(), "_x00_");
    EXPECT_STREQ(CKeyText("a<b", kXmlNameKey).Get(), "a_x3C_b");
    EXPECT_STREQ(CKeyText("Zg==", kXmlNameKey).Get(), "Zg_x3D__x3D_");
    EXPECT_STREQ(CKeyText("\xc3\x97", kXmlNameKey).Get(), "_xC3__x97_"); // a cross
    EXPECT_STREQ(CKeyText("\xff", kXmlNameKey).Get(), "_xFF_");
    EXPECT_STREQ(CKeyText("", kXmlTextKey).Get(), "");
    EXPECT_STREQ(CKeyText("a b<\x01", kXmlTextKey).Get(), "a b<_x01_");
}

TEST(KeyTextTest, IniKeysEscapeWhatEndsAKeyOrASection) {
    EXPECT_STREQ(CKeyText("a=b", kIniKey).Get(), "a_x3D_b");
    EXPECT_STREQ(CKeyText("a]b", kIniKey).Get(), "a_x5D_b");
    EXPECT_STREQ(CKeyText("a/b", kIniKey).Get(), "a_x2F_b");
    EXPECT_STREQ(CKeyText("[a[", kIniKey).Get(), "_x5B_a[");
    EXPECT_STREQ(CKeyText(";a;", kIniKey).Get(), "_x3B_a;");
    EXPECT_STREQ(CKeyText("#a#", kIniKey).Get(), "_x23_a#");
    EXPECT_STREQ(CKeyText(" a b ", kIniKey).Get(), "_x20_a b_x20_");
    EXPECT_STREQ(CKeyText("a\nb", kIniKey).Get(), "a_x0A_b");
    EXPECT_STREQ(CKeyText("\xef\xbb\xbf", kIniKey).Get(), "_xEF__xBB__xBF_");
    EXPECT_STREQ(CKeyText("", kIniKey).Get(), "_x00_");
}

TEST(KeyTextTest, DifferentKeysStayDifferent) {
    // All texts of up to six letters out of those that escapes are made of.
    static constexpr char letters[] = "_x20 ";
    for (const EKeyForm form : {kXmlNameKey, kXmlTextKey, kIniKey}) {
        std::map<std::string, std::string> seen;
        for (int number = 0; number < 6 * 6 * 6 * 6 * 6 * 6; ++number) {
            std::string key;
            for (int left = number; left > 0; left /= 6) {
                key += left % 6 == 5 ? std::string("\x01") : std::string(1, letters[left % 6]);
            }
            const auto [at, isNew] = seen.emplace(CKeyText(key.c_str(), form).Get(), key);
            ASSERT_TRUE(isNew || at->second == key) << at->second << " and " << key;
        }
    }
}

} // namespace
