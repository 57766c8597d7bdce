#include "containers/MemMessageLog.h"

#include <gtest/gtest.h>

namespace {

using namespace Vorin;
using CoreUtilities::CMemMessageLog;

TEST(MemMessageLogTest, KeepsMessagesInOrder) {
    CMemMessageLog log;
    log.Log(Core::kWarningMessage, "a", 0);
    log.Log(Core::kErrorMessage, nullptr, 0);
    ASSERT_EQ(log.GetRecords().size(), 2U);
    EXPECT_EQ(log.GetRecords()[0].type, Core::kWarningMessage);
    EXPECT_EQ(log.GetRecords()[0].text, "a");
    EXPECT_EQ(log.GetRecords()[1].text, "");
}

TEST(MemMessageLogTest, LeavesOutWhatIsAboveTheThreshold) {
    CMemMessageLog log(2);
    log.Log(Core::kErrorMessage, "a", 3);
    log.Log(Core::kErrorMessage, "b", 1);
    ASSERT_EQ(log.GetRecords().size(), 1U);
    EXPECT_EQ(log.GetRecords()[0].level, 2U) << "a record has the threshold as its level";
}

TEST(MemMessageLogTest, CountsWhatIsWithinTheThreshold) {
    CMemMessageLog log(2);
    log.Log(Core::kErrorMessage, "a", 0);
    log.SetLevel(0);
    log.Log(Core::kErrorMessage, "b", 0);
    log.Log(Core::kInfoMessage, "c", 0);
    EXPECT_EQ(log.GetCount(), 2);
    EXPECT_EQ(log.GetCount(Core::kErrorMessage), 1);
    log.SetLevel(2);
    EXPECT_EQ(log.GetCount(), 3);
    EXPECT_EQ(log.GetCount(Core::kErrorMessage), 2);
}

TEST(MemMessageLogTest, RemovesATypeAndKeepsTheOrderOfTheRest) {
    CMemMessageLog log;
    for (const char* text : {"a", "b", "c", "d"}) {
        log.Log(*text == 'b' || *text == 'd' ? Core::kErrorMessage : Core::kInfoMessage, text, 0);
    }
    log.Remove(Core::kErrorMessage);
    ASSERT_EQ(log.GetCount(), 2);
    EXPECT_EQ(log.GetRecords()[0].text, "a");
    EXPECT_EQ(log.GetRecords()[1].text, "c");
    log.Clear();
    EXPECT_EQ(log.GetCount(), 0);
}

TEST(MemMessageLogTest, StaysWithinMemory) {
    CMemMessageLog log;
    for (int i = 0; i < CMemMessageLog::kMaximumOfType + 100; ++i) {
        log.Log(Core::kInfoMessage, "again", 0);
    }
    EXPECT_EQ(log.GetCount(), CMemMessageLog::kMaximumOfType + 1);
    EXPECT_EQ(log.GetRecords().back().text,
              "there are more messages of this kind; the rest is left out");
    log.Log(Core::kErrorMessage, "still heard", 0);
    EXPECT_EQ(log.GetRecords().back().text, "still heard");
    log.Remove(Core::kInfoMessage);
    log.Log(Core::kInfoMessage, "anew", 0);
    EXPECT_EQ(log.GetRecords().back().text, "anew");
}

TEST(MemMessageLogTest, GivesEachMessageThePlace) {
    CMemMessageLog log;
    const auto file = std::make_shared<const std::string>("a.xml");
    log.Log(Core::kErrorMessage, "nowhere", 0);
    log.SetPlace(Core::CDocumentPlace(file, 3));
    {
        const Core::CPlaceScope scope(log, Core::CDocumentPlace(file, 7));
        log.Log(Core::kErrorMessage, "inside", 0);
    }
    log.Log(Core::kErrorMessage, "behind", 0);
    ASSERT_EQ(log.GetCount(), 3);
    EXPECT_TRUE(log.GetRecords()[0].place.IsNowhere());
    EXPECT_EQ(log.GetRecords()[1].place.GetLine(), 7);
    EXPECT_EQ(log.GetRecords()[2].place.GetLine(), 3);
    EXPECT_STREQ(log.GetRecords()[2].place.GetFile(), "a.xml");
}

} // namespace
