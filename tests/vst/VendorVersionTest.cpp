#include "vst/VendorVersion.h"

#include <gtest/gtest.h>

namespace VorinExt::VSTPlugin {
namespace {

TEST(VendorVersionTest, ThousandsStandForTheFirstPartAndHundredsForTheSecond) {
    EXPECT_EQ(ToVendorVersion("2.0"), 2000);
    EXPECT_EQ(ToVendorVersion("2.1"), 2100);
    EXPECT_EQ(ToVendorVersion("1.2.3"), 1230);
    EXPECT_EQ(ToVendorVersion("1.2.3.4"), 1234);
    EXPECT_EQ(ToVendorVersion("1.2.3.4.5"), 1234);
    EXPECT_EQ(ToVendorVersion("7"), 7000);
}

TEST(VendorVersionTest, PartsOfSeveralDigitsTakeThePlacesBehindThem) {
    EXPECT_EQ(ToVendorVersion("2.0.1"), 2001);
    EXPECT_EQ(ToVendorVersion("2.10"), 2100);
    EXPECT_EQ(ToVendorVersion("2.15.3"), 2153);
    EXPECT_EQ(ToVendorVersion("2.05"), 2050);
    EXPECT_EQ(ToVendorVersion("2.05.7"), 2057);
    EXPECT_EQ(ToVendorVersion("2.005"), 2005);
}

TEST(VendorVersionTest, TextsThatAreNoVersionsHaveANumberToo) {
    EXPECT_EQ(ToVendorVersion(nullptr), 0);
    EXPECT_EQ(ToVendorVersion(""), 0);
    EXPECT_EQ(ToVendorVersion("."), 0);
    EXPECT_EQ(ToVendorVersion("beta"), 0);
    EXPECT_EQ(ToVendorVersion("3.x"), 3000);
    EXPECT_EQ(ToVendorVersion("-1.2"), 200);
    EXPECT_GE(ToVendorVersion("99999999999999999999.99999999999999999999"), 0);
    EXPECT_GE(ToVendorVersion("1.00000000000000000000000000000000000000001"), 1000);
    EXPECT_EQ(ToVendorVersion("999999"), 999999000);
}

} // namespace
} // namespace VorinExt::VSTPlugin
