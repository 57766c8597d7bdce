#include "datamodel/StringInfo.h"

#include "core/EventCounter.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

TEST(StringInfoTest, KeepsItsFields) {
    const CStringInfo info("Title", "what stands above", true, "untitled");
    EXPECT_STREQ(info.GetName(), "Title");
    EXPECT_STREQ(info.GetComment(), "what stands above");
    EXPECT_TRUE(info.GetFlag());
    EXPECT_STREQ(info.GetDefaultText(), "untitled");
    EXPECT_FALSE(CStringInfo().GetFlag());
    EXPECT_STREQ(CStringInfo().GetDefaultText(), "");
}

TEST(StringInfoTest, EverySetterFires) {
    CStringInfo info("a", "b", true, "c");
    CEventCounter events(info.GetInfoChangedEvents());
    info.SetDefaultText("c");
    EXPECT_EQ(events.Take(), 1);
    info.SetFlag(true);
    EXPECT_EQ(events.Take(), 1);
    info.SetName("a");
    EXPECT_EQ(events.Take(), 1);
}

TEST(StringInfoTest, CopiesTakeAllFieldsAndFireOnce) {
    const CStringInfo source("a", "b", true, "c");
    CStringInfo info;
    CEventCounter events(info.GetInfoChangedEvents());
    const IConstStringInfo& reader = source;
    info.CopyFrom(reader);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "a");
    EXPECT_STREQ(info.GetComment(), "b");
    EXPECT_TRUE(info.GetFlag());
    EXPECT_STREQ(info.GetDefaultText(), "c");

    CStringInfo copy(info);
    copy.SetName("a (L)");
    copy.SetDefaultText("d");
    EXPECT_EQ(events.Take(), 0);
    EXPECT_STREQ(info.GetName(), "a");
    EXPECT_STREQ(info.GetDefaultText(), "c");
    info = copy;
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "a (L)");
    EXPECT_STREQ(info.GetDefaultText(), "d");
}

TEST(StringInfoTest, CopyingAPlainInfoLeavesTheRest) {
    CStringInfo info("a", "b", true, "c");
    info.CopyFrom(CObjectInfo("x", "y"));
    EXPECT_STREQ(info.GetName(), "x");
    EXPECT_STREQ(info.GetDefaultText(), "c");
}

} // namespace
} // namespace Vorin::DataModel::Objects
