#include "datamodel/ProductInfo.h"

#include "core/EventCounter.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

TEST(ProductInfoTest, KeepsItsFields) {
    const CProductInfo info("Ondara Mini", "Ondara", "2.0", "Halvane");
    EXPECT_STREQ(info.GetName(), "Ondara Mini");
    EXPECT_STREQ(info.GetShortName(), "Ondara");
    EXPECT_STREQ(info.GetVersion(), "2.0");
    EXPECT_STREQ(info.GetVendor(), "Halvane");
    EXPECT_STREQ(CProductInfo().GetVendor(), "");
}

TEST(ProductInfoTest, EverySetterStoresACopyAndFires) {
    CProductInfo info("a", "b", "c", "d");
    CEventCounter events(info.GetInfoChangedEvents());
    char text[] = "e";
    info.SetName(text);
    text[0] = 'x';
    EXPECT_EQ(events.Take(), 1);
    info.SetShortName("b");
    EXPECT_EQ(events.Take(), 1);
    info.SetVersion("c");
    EXPECT_EQ(events.Take(), 1);
    info.SetVendor(nullptr);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "e");
    EXPECT_STREQ(info.GetShortName(), "b");
    EXPECT_STREQ(info.GetVersion(), "c");
    EXPECT_STREQ(info.GetVendor(), "");
}

TEST(ProductInfoTest, CopiesTakeAllFieldsAndFireOnce) {
    const CProductInfo source("a", "b", "c", "d");
    CProductInfo info;
    CEventCounter events(info.GetInfoChangedEvents());
    info.CopyFrom(source);
    EXPECT_EQ(events.Take(), 1);
    CProductInfo copy(info);
    copy.SetName("x");
    EXPECT_EQ(events.Take(), 0);
    EXPECT_STREQ(info.GetName(), "a");
    EXPECT_STREQ(info.GetShortName(), "b");
    EXPECT_STREQ(info.GetVersion(), "c");
    EXPECT_STREQ(info.GetVendor(), "d");
    info = copy;
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "x");
}

} // namespace
} // namespace Vorin::DataModel::Objects
