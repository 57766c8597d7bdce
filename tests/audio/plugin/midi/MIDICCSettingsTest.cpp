#include "audio/plugin/midi/MIDICCSettings.h"

#include "audio/plugin/midi/MIDITestKit.h"
#include "serialization/IncrementalMemDataObject.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;
using Serialization::CIncrementalMemDataObject;
using Serialization::CMemDataObject;
using Serialization::CXmlDataObject;

class MIDICCSettings : public ::testing::Test {
protected:
    /// Three settings that differ from new ones and from each other.
    MIDICCSettings() {
        for (int index = 0; index < 3; ++index) {
            ChangeAll(written.Get(index), 10 + index);
        }
    }

    CInfos infos = MakeInfos(3);
    CInfos moreInfos = MakeInfos(4);
    CInputMIDICCSettings written{infos};
    CInputMIDICCSettings read{infos};
    const CInputMIDICCSettings fresh{infos};
};

TEST_F(MIDICCSettings, EachIsMadeOfTheInfoOfItsParameter) {
    CInfos some;
    some.Add(MakeInfo(1.0, 2.0));
    some.Add(MakeInfo(-3.0, 4.0));
    const CInputMIDICCSettings settings(some);
    ASSERT_EQ(settings.GetCount(), 2);
    EXPECT_EQ(settings.Get(0).GetMax(), 2.0);
    EXPECT_EQ(settings.Get(1).GetMin(), -3.0);
    EXPECT_EQ(&settings.Get(1).GetInfo(), &some.Get(1));
}

TEST_F(MIDICCSettings, StandInXmlAsItemsOfTheWord) {
    CInfos one = MakeInfos(1);
    const COutputMIDICCSettings settings(one);
    for (const std::string item : {"setting", "item"}) {
        CXmlDataObject document("Root", Serialization::kXmlAttributes);
        ASSERT_TRUE(WriteMIDICCSettings(document, "list", settings, item.c_str()));
        Containers::CCharString text;
        ASSERT_TRUE(document.SaveString(text));
        const std::string list = "<list " + item + "Count=\"1\">";
        const std::string first = "<" + item + "0 channel=\"1\" version=\"3\" number=\"0\"";
        EXPECT_NE(std::strstr(text.Get(), list.c_str()), nullptr) << text.Get();
        EXPECT_NE(std::strstr(text.Get(), first.c_str()), nullptr) << text.Get();
    }
}

TEST_F(MIDICCSettings, ComeBackFromXmlAndFromMemory) {
    CXmlDataObject xml("Root", Serialization::kXmlAttributes);
    ASSERT_TRUE(WriteMIDICCSettings(xml, "list", written, "setting"));
    Containers::CCharString text;
    ASSERT_TRUE(xml.SaveString(text));
    CXmlDataObject parsed("Root", Serialization::kXmlAttributes);
    ASSERT_TRUE(parsed.Parse(text.Get(), text.GetLength()));
    EXPECT_TRUE(ReadMIDICCSettings(parsed, "list", read, "setting"));
    CMemDataObject memory;
    ASSERT_TRUE(WriteMIDICCSettings(memory, "list", written, "item"));
    CInputMIDICCSettings fromMemory(infos);
    EXPECT_TRUE(ReadMIDICCSettings(memory, "list", fromMemory, "item"));
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(FieldsOf(read.Get(index)), FieldsOf(written.Get(index)));
        EXPECT_EQ(FieldsOf(fromMemory.Get(index)), FieldsOf(written.Get(index)));
    }
}

TEST_F(MIDICCSettings, AreNotWrittenWhenOneCannotBe) {
    written.Get(1).SetType(static_cast<EMIDICCType>(3));
    CMemDataObject document;
    EXPECT_FALSE(WriteMIDICCSettings(document, "list", written, "setting"));
    EXPECT_FALSE(document.Exists("list"));
}

TEST_F(MIDICCSettings, ADamagedOneStaysAsItWasAndTheRestIsRead) {
    const char* const text =
        "<Root><list settingCount=\"3\">"
        "<setting0 channel=\"2\" version=\"3\" number=\"5\" midiEnabled=\"1\" "
        "automationEnabled=\"1\" curve=\"Exp\" min=\"0\" max=\"1\" type=\"CC\"/>"
        "<setting1 channel=\"2\" version=\"3\" number=\"128\" midiEnabled=\"1\" "
        "automationEnabled=\"1\" curve=\"Exp\" min=\"0\" max=\"1\" type=\"CC\"/>"
        "<setting2 channel=\"3\" version=\"3\" number=\"6\" midiEnabled=\"1\" "
        "automationEnabled=\"1\" curve=\"Exp\" min=\"0\" max=\"1\" type=\"CC\"/>"
        "</list></Root>";
    CXmlDataObject document("Root", Serialization::kXmlAttributes);
    ASSERT_TRUE(document.Parse(text, static_cast<int>(std::strlen(text))));
    EXPECT_FALSE(ReadMIDICCSettings(document, "list", read, "setting"));
    EXPECT_EQ(FieldsOf(read.Get(0)), CFieldsTuple(2, 5, true, true, 0.0, 1.0, 7, 0));
    EXPECT_EQ(FieldsOf(read.Get(1)), FieldsOf(fresh.Get(1)));
    EXPECT_EQ(FieldsOf(read.Get(2)), CFieldsTuple(3, 6, true, true, 0.0, 1.0, 7, 0));
}

TEST_F(MIDICCSettings, OfFewerParametersAreReadAndTheRestStays) {
    CMemDataObject document;
    ASSERT_TRUE(WriteMIDICCSettings(document, "list", written, "setting"));
    CInputMIDICCSettings more(moreInfos);
    EXPECT_FALSE(ReadMIDICCSettings(document, "list", more, "setting"));
    EXPECT_EQ(FieldsOf(more.Get(2)), FieldsOf(written.Get(2)));
    EXPECT_EQ(FieldsOf(more.Get(3)), FieldsOf(fresh.Get(0)));
}

TEST_F(MIDICCSettings, OfMoreParametersAreReadAsFarAsTheyFit) {
    CInputMIDICCSettings more(moreInfos);
    ChangeAll(more.Get(2));
    CMemDataObject document;
    ASSERT_TRUE(WriteMIDICCSettings(document, "list", more, "setting"));
    EXPECT_TRUE(ReadMIDICCSettings(document, "list", read, "setting"));
    EXPECT_EQ(FieldsOf(read.Get(2)), FieldsOf(more.Get(2)));
}

/// A list that holds a count and nothing else.
class CCountOnly : public virtual Serialization::ISerialize {
public:
    explicit CCountOnly(int itemCount) : count(itemCount) {}
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteInt("settingCount", count);
    }

private:
    int count;
};

TEST_F(MIDICCSettings, ACountAloneOrNoneChangesNothing) {
    for (const int count : {INT_MIN, -1, 0, 3, INT_MAX}) {
        CMemDataObject document;
        ASSERT_TRUE(document.WriteObject("list", CCountOnly(count)));
        EXPECT_FALSE(ReadMIDICCSettings(document, "list", read, "setting")) << count;
        EXPECT_FALSE(ReadMIDICCSettings(document, "list", read, "item"));
        EXPECT_FALSE(ReadMIDICCSettings(document, "nothing", read, "setting"));
    }
    for (int index = 0; index < 3; ++index) {
        EXPECT_EQ(FieldsOf(read.Get(index)), FieldsOf(fresh.Get(index)));
    }
}

TEST_F(MIDICCSettings, TakeOutOfADifferenceWhatItHoldsAndKeepTheRest) {
    CIncrementalMemDataObject before;
    ASSERT_TRUE(WriteMIDICCSettings(before, "list", read, "setting"));
    CIncrementalMemDataObject after(&before);
    read.Get(1).SetMIDIEnabled(true);
    read.Get(1).SetNumber(99);
    ASSERT_TRUE(WriteMIDICCSettings(after, "list", read, "setting"));
    CIncrementalMemDataObject difference;
    ASSERT_TRUE(difference.SetDifference(before, after));
    EXPECT_TRUE(ReadMIDICCSettings(difference, "list", written, "setting"));
    EXPECT_EQ(written.Get(1).GetNumber(), 99);
    EXPECT_TRUE(written.Get(1).IsMIDIEnabled());
    EXPECT_EQ(written.Get(1).GetChannel(), 16); // was not part of the step
    EXPECT_EQ(written.Get(0).GetNumber(), 10);
    EXPECT_EQ(written.Get(2).GetNumber(), 12);
}

} // namespace
} // namespace Vorin::Audio::Plugin
