#include "audio/dsp/FilterProductInfo.h"

#include <gtest/gtest.h>

namespace Vorin::Audio::DSP {
namespace {

TEST(FilterProductInfoTest, GivesWhatItWasBuiltWith) {
    const CFilterProductInfo info("Halvane", "Ondara", "2.0", "(c)", "words", 4, "Ondara Mini");
    EXPECT_STREQ(info.GetVendor(), "Halvane");
    EXPECT_STREQ(info.GetName(), "Ondara");
    EXPECT_STREQ(info.GetVersion(), "2.0");
    EXPECT_STREQ(info.GetCopyright(), "(c)");
    EXPECT_STREQ(info.GetDescription(), "words");
    EXPECT_EQ(info.GetCategory(), 4);
    EXPECT_STREQ(info.GetEffectName(), "Ondara Mini");
}

TEST(FilterProductInfoTest, GivesItsNameForAnEmptyEffectName) {
    const CFilterProductInfo info("Halvane", "Oscilloscope", "2.0", "", "", 7, "");
    EXPECT_STREQ(info.GetEffectName(), "Oscilloscope");
}

TEST(FilterProductInfoTest, EmbedsAProductInfo) {
    const CFilterProductInfo info("Halvane", "Ondara", "2.0", "(c)", "words", 4, "Mini");
    EXPECT_STREQ(info.GetProductInfo().GetVendor(), "Halvane");
    EXPECT_STREQ(info.GetProductInfo().GetName(), "Ondara");
    EXPECT_STREQ(info.GetProductInfo().GetVersion(), "2.0");
    EXPECT_STREQ(info.GetProductInfo().GetShortName(), "Mini");
}

} // namespace
} // namespace Vorin::Audio::DSP
