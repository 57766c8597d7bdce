#include "datamodel/ObjectInfo.h"

#include "core/EventCounter.h"
#include "datamodel/ActionInfo.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects {
namespace {

TEST(ObjectInfoTest, ANewOneHasEmptyTexts) {
    const CObjectInfo info;
    EXPECT_STREQ(info.GetName(), "");
    EXPECT_STREQ(info.GetComment(), "");
}

TEST(ObjectInfoTest, KeepsCopiesOfItsTexts) {
    char name[] = "Gain";
    CObjectInfo info(name, "how loud");
    name[0] = 'P';
    EXPECT_STREQ(info.GetName(), "Gain");
    EXPECT_STREQ(info.GetComment(), "how loud");
}

TEST(ObjectInfoTest, NullTextsAreEmpty) {
    CObjectInfo info(nullptr, nullptr);
    info.SetName(nullptr);
    info.SetComment(nullptr);
    EXPECT_STREQ(info.GetName(), "");
    EXPECT_STREQ(info.GetComment(), "");
}

TEST(ObjectInfoTest, SettersFireEvenWhenTheTextIsTheSame) {
    CObjectInfo info("a", "b");
    CEventCounter events(info.GetInfoChangedEvents());
    info.SetName("a");
    EXPECT_EQ(events.Take(), 1);
    info.SetComment("b");
    EXPECT_EQ(events.Take(), 1);
}

TEST(ObjectInfoTest, CopyFromTakesBothTextsAndFiresOnce) {
    const CObjectInfo source("a", "b");
    CObjectInfo info;
    CEventCounter events(info.GetInfoChangedEvents());
    info.CopyFrom(source);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "a");
    EXPECT_STREQ(info.GetComment(), "b");

    info.CopyFrom(info);
    EXPECT_STREQ(info.GetName(), "a");
    EXPECT_STREQ(info.GetComment(), "b");
}

TEST(ObjectInfoTest, ACopyHasNoListenersAndAnAssignmentKeepsThoseOfTheTarget) {
    CObjectInfo info("a", "b");
    CEventCounter events(info.GetInfoChangedEvents());
    CObjectInfo copy(info);
    copy.SetName("c");
    EXPECT_EQ(events.Take(), 0);
    EXPECT_STREQ(info.GetName(), "a");

    info = copy;
    EXPECT_EQ(events.Take(), 1);
    EXPECT_STREQ(info.GetName(), "c");
}

TEST(ObjectInfoTest, TheListenerSeesTheNewText) {
    class CReader {
    public:
        explicit CReader(CObjectInfo& source) : info(source) {
            info.GetInfoChangedEvents().Connect(command);
        }
        ~CReader() { info.GetInfoChangedEvents().Disconnect(command); }
        Containers::CCharString seen;

    private:
        void Read() { seen = info.GetName(); }
        CObjectInfo& info;
        Core::TCommand<CReader> command{this, &CReader::Read};
    };
    CObjectInfo info("a", "b");
    CReader reader(info);
    info.SetName("new");
    EXPECT_STREQ(reader.seen.Get(), "new");
}

TEST(ObjectInfoTest, AnActionInfoIsAnObjectInfo) {
    CActionInfo info("Save", "writes the file");
    IActionInfo& action = info;
    action.SetName("Load");
    const IConstActionInfo& reader = info;
    EXPECT_STREQ(reader.GetName(), "Load");
    EXPECT_STREQ(CActionInfo(info).GetComment(), "writes the file");
}

} // namespace
} // namespace Vorin::DataModel::Objects
