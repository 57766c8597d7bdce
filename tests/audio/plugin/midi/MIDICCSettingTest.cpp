#include "audio/plugin/midi/MIDICCSetting.h"

#include "audio/plugin/midi/MIDITestKit.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <map>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;
using namespace DataModel::Objects;
using Serialization::CMemDataObject;
using Serialization::CXmlDataObject;

TEST(MIDICCSetting, ANewOneIsOffWithTheRangeOfItsParameter) {
    const CParamInfo info = MakeInfo(-3.5, 20.0);
    const CMIDICCSetting setting(info);
    EXPECT_EQ(FieldsOf(setting), CFieldsTuple(1, 0, false, false, -3.5, 20.0, 6, 0));
}

TEST(MIDICCSetting, ANewOneOfAnInputListensToAllChannelsAndAutomates) {
    const CParamInfo info = MakeInfo(0.0, 300.0);
    const CInputMIDICCSetting setting(info);
    EXPECT_EQ(FieldsOf(setting), CFieldsTuple(0, 0, false, true, 0.0, 300.0, 6, 0));
    EXPECT_EQ(&setting.GetInfo(), &info);
}

TEST(MIDICCSetting, ANewOneOfAParameterWithoutAFiniteRangeHasAFiniteOne) {
    const CMIDICCSetting setting(MakeInfo(kNaN, kInfinity));
    EXPECT_EQ(setting.GetMin(), 0.0);
    EXPECT_EQ(setting.GetMax(), 0.0);
}

TEST(MIDICCSetting, EachSetterStoresAndFiresOnce) {
    CMIDICCSetting setting(MakeInfo(0.0, 1.0));
    CListener changed(setting.GetChangedEvent());
    setting.SetMIDIEnabled(true);
    EXPECT_EQ(changed.Take(), 1);
    setting.SetType(kMIDICCTypeNoteOnOff);
    EXPECT_EQ(changed.Take(), 1);
    setting.SetChannel(9);
    EXPECT_EQ(changed.Take(), 1);
    setting.SetNumber(127);
    EXPECT_EQ(changed.Take(), 1);
    setting.SetAutomationEnabled(true);
    EXPECT_EQ(changed.Take(), 1);
    setting.SetCurve(kParamValueCurveExp3);
    EXPECT_EQ(changed.Take(), 1);
    setting.SetMin(0.25);
    EXPECT_EQ(changed.Take(), 1);
    setting.SetMax(-7.0);
    EXPECT_EQ(changed.Take(), 1);
    EXPECT_EQ(FieldsOf(setting), CFieldsTuple(9, 127, true, true, 0.25, -7.0, 12, 1));
}

TEST(MIDICCSetting, ASetterThatChangesNothingFiresNothing) {
    CMIDICCSetting setting(MakeInfo(0.0, 1.0));
    ChangeAll(setting);
    CListener changed(setting.GetChangedEvent());
    setting.SetMIDIEnabled(true);
    setting.SetType(kMIDICCTypeNote);
    setting.SetChannel(16);
    setting.SetNumber(74);
    setting.SetAutomationEnabled(true);
    setting.SetCurve(kParamValueCurveSquareRoot);
    setting.SetMin(75.5);
    setting.SetMax(-0.1);
    EXPECT_EQ(changed.Take(), 0);
}

TEST(MIDICCSetting, ASetterIgnoresWhatNoSettingCanHave) {
    CMIDICCSetting setting(MakeInfo(0.0, 1.0));
    CListener changed(setting.GetChangedEvent());
    for (const int number : {-1, 128, INT_MIN, INT_MAX}) {
        setting.SetNumber(number);
        setting.SetChannel(number);
    }
    setting.SetChannel(17);
    for (const double value : {kNaN, kInfinity, -kInfinity}) {
        setting.SetMin(value);
        setting.SetMax(value);
    }
    EXPECT_EQ(changed.Take(), 0);
    EXPECT_EQ(FieldsOf(setting), CFieldsTuple(1, 0, false, false, 0.0, 1.0, 6, 0));
}

TEST(MIDICCSetting, CopyingTakesAllFieldsAndFiresOnceIfAnyDiffers) {
    CMIDICCSetting source(MakeInfo(0.0, 1.0));
    CMIDICCSetting setting(MakeInfo(5.0, 6.0));
    ChangeAll(source);
    CListener changed(setting.GetChangedEvent());
    setting.CopyFrom(source);
    EXPECT_EQ(FieldsOf(setting), FieldsOf(source));
    EXPECT_EQ(changed.Take(), 1);
    setting.CopyFrom(source);
    setting.CopyFrom(setting);
    EXPECT_EQ(changed.Take(), 0);
}

TEST(MIDICCSetting, TypesHaveNames) {
    EXPECT_STREQ(GetMIDICCTypeName(kMIDICCTypeCC), "CC");
    EXPECT_STREQ(GetMIDICCTypeName(kMIDICCTypeNoteOnOff), "NoteOnOff");
    EXPECT_STREQ(GetMIDICCTypeName(kMIDICCTypeNote), "Note");
    EXPECT_EQ(GetMIDICCTypeName(static_cast<EMIDICCType>(3)), nullptr);
    EXPECT_EQ(GetMIDICCTypeName(static_cast<EMIDICCType>(-1)), nullptr);
    EMIDICCType type = kMIDICCTypeCC;
    EXPECT_TRUE(FindMIDICCType("NoteOnOff", type));
    EXPECT_EQ(type, kMIDICCTypeNoteOnOff);
    EXPECT_FALSE(FindMIDICCType("cc", type));
    EXPECT_FALSE(FindMIDICCType("", type));
    EXPECT_FALSE(FindMIDICCType(nullptr, type));
    EXPECT_EQ(type, kMIDICCTypeNoteOnOff);
}

TEST(MIDICCSetting, StandsInXmlInTheOrderOfItsKeys) {
    CMIDICCSetting setting(MakeInfo(0.0, 1.0));
    setting.SetChannel(16);
    setting.SetNumber(74);
    setting.SetMIDIEnabled(true);
    setting.SetCurve(kParamValueCurveSquareRoot);
    setting.SetMin(-0.5);
    setting.SetMax(300.25);
    setting.SetType(kMIDICCTypeNoteOnOff);
    CXmlDataObject document("Root", Serialization::kXmlAttributes);
    ASSERT_TRUE(document.WriteObject("setting0", setting));
    Containers::CCharString text;
    ASSERT_TRUE(document.SaveString(text));
    EXPECT_NE(std::strstr(text.Get(),
                          "<setting0 channel=\"16\" version=\"3\" number=\"74\" midiEnabled=\"1\" "
                          "automationEnabled=\"0\" curve=\"Square Root\" min=\"-0.5\" "
                          "max=\"300.25\" type=\"NoteOnOff\"/>"),
              nullptr)
        << text.Get();
}

template <class D>
void ExpectRoundTrip(D& document) {
    for (int curve = 0; curve < kParamValueCurvesCount; ++curve) {
        for (int type = 0; type < kMIDICCTypesCount; ++type) {
            CMIDICCSetting written(MakeInfo(0.0, 1.0));
            ChangeAll(written);
            written.SetCurve(static_cast<EParamValueCurve>(curve));
            written.SetType(static_cast<EMIDICCType>(type));
            ASSERT_TRUE(document.WriteObject("s", written));
            CMIDICCSetting read(MakeInfo(2.0, 3.0));
            CListener changed(read.GetChangedEvent());
            ASSERT_TRUE(document.ReadObject("s", read));
            EXPECT_EQ(FieldsOf(read), FieldsOf(written)) << curve << " " << type;
            EXPECT_EQ(changed.Take(), 1);
            EXPECT_TRUE(document.ReadObject("s", read));
            EXPECT_EQ(changed.Take(), 0);
        }
    }
}

TEST(MIDICCSetting, ComesBackFromXmlAsItWas) {
    CXmlDataObject document("Root", Serialization::kXmlAttributes);
    ExpectRoundTrip(document);
}

TEST(MIDICCSetting, ComesBackFromMemoryAsItWas) {
    CMemDataObject document;
    ExpectRoundTrip(document);
}

TEST(MIDICCSetting, IsNotWrittenWithACurveOrTypeOutsideTheTable) {
    for (const int number : {-1, 3, 13, INT_MIN, INT_MAX}) {
        CMIDICCSetting setting(MakeInfo(0.0, 1.0));
        CMemDataObject document;
        setting.SetType(static_cast<EMIDICCType>(number));
        EXPECT_FALSE(setting.Serialize(document));
        setting.SetType(kMIDICCTypeNote);
        EXPECT_TRUE(setting.Serialize(document));
        setting.SetCurve(static_cast<EParamValueCurve>(number));
        EXPECT_EQ(setting.Serialize(document), number == 3);
    }
}

/// A document with the keys of a setting that differs from a new one in each.
class MIDICCSettingDamage : public ::testing::Test {
protected:
    MIDICCSettingDamage() {
        CMIDICCSetting other(MakeInfo(0.0, 1.0));
        ChangeAll(other);
        EXPECT_TRUE(other.Serialize(document));
    }

    void ExpectRefused() {
        CMIDICCSetting setting(MakeInfo(0.0, 1.0));
        const CFieldsTuple before = FieldsOf(setting);
        CListener changed(setting.GetChangedEvent());
        EXPECT_FALSE(setting.DeSerialize(document));
        EXPECT_EQ(FieldsOf(setting), before);
        EXPECT_EQ(changed.Take(), 0);
    }

    CFieldsTuple Read() {
        CMIDICCSetting setting(MakeInfo(0.0, 1.0));
        EXPECT_TRUE(setting.DeSerialize(document));
        return FieldsOf(setting);
    }

    CMemDataObject document;
};

TEST_F(MIDICCSettingDamage, AChannelOutOfRangeIsRefused) {
    for (const int channel : {-1, 17, INT_MIN, INT_MAX}) {
        document.WriteInt("channel", channel);
        ExpectRefused();
    }
    for (const int channel : {0, 16}) {
        document.WriteInt("channel", channel);
        EXPECT_EQ(std::get<0>(Read()), channel);
    }
}

TEST_F(MIDICCSettingDamage, AControllerOutOfRangeIsRefused) {
    for (const int number : {-1, 128, INT_MIN, INT_MAX}) {
        document.WriteInt("number", number);
        ExpectRefused();
    }
    for (const int number : {0, 127}) {
        document.WriteInt("number", number);
        EXPECT_EQ(std::get<1>(Read()), number);
    }
}

TEST_F(MIDICCSettingDamage, ARangeThatIsNotFiniteIsRefused) {
    for (const char* key : {"min", "max"}) {
        for (const double value : {kNaN, kInfinity, -kInfinity}) {
            document.WriteDouble(key, value);
            ExpectRefused();
        }
        document.WriteDouble(key, 1.0);
    }
    EXPECT_EQ(std::get<4>(Read()), 1.0);
}

TEST_F(MIDICCSettingDamage, AMissingValueIsRefused) {
    for (const char* key :
         {"channel", "number", "midiEnabled", "automationEnabled", "min", "max"}) {
        CMIDICCSetting other(MakeInfo(0.0, 1.0));
        ChangeAll(other);
        ASSERT_TRUE(other.Serialize(document));
        document.Remove(key);
        ExpectRefused();
        document.WriteString(key, "a value of another type");
        ExpectRefused();
    }
}

TEST_F(MIDICCSettingDamage, AnEmptyObjectIsRefused) {
    document.Clear();
    ExpectRefused();
}

TEST_F(MIDICCSettingDamage, AnUnknownCurveOrTypeKeepsTheValueAndTheRestIsRead) {
    document.WriteString("curve", "Linear2");
    document.WriteString("type", "");
    EXPECT_EQ(Read(), CFieldsTuple(16, 74, true, true, 75.5, -0.1, 6, 0));
    document.Remove("curve");
    document.WriteInt("type", 2);
    EXPECT_EQ(Read(), CFieldsTuple(16, 74, true, true, 75.5, -0.1, 6, 0));
    document.WriteString("curve", nullptr);
    EXPECT_EQ(Read(), CFieldsTuple(16, 74, true, true, 75.5, -0.1, 6, 0));
}

TEST_F(MIDICCSettingDamage, AnOlderFileHasEnabledForMidiEnabled) {
    document.Remove("midiEnabled");
    document.Remove("automationEnabled");
    document.WriteBool("enabled", true);
    ExpectRefused(); // not in a file of this version
    document.WriteInt("version", 2);
    EXPECT_EQ(Read(), CFieldsTuple(16, 74, true, false, 75.5, -0.1, 4, 2));
    document.Remove("version");
    EXPECT_EQ(Read(), CFieldsTuple(16, 74, true, false, 75.5, -0.1, 4, 2));
    document.WriteBool("midiEnabled", true);
    document.WriteBool("enabled", false);
    EXPECT_FALSE(std::get<2>(Read()));
    document.WriteInt("version", 4);
    document.WriteBool("automationEnabled", true);
    EXPECT_TRUE(std::get<2>(Read()));
}

TEST_F(MIDICCSettingDamage, HostileXmlNumbersAreRefusedOrReadAsTheirDigits) {
    const char* const text = "<Root><a channel=\"99999999999\" version=\"3\" number=\"1\" "
                             "midiEnabled=\"1\" automationEnabled=\"1\" min=\"0\" max=\"1\"/>"
                             "<b channel=\"x\" version=\"y\" number=\"7up\" midiEnabled=\"2\" "
                             "automationEnabled=\"\" min=\"nan\" max=\"1\"/>"
                             "<c channel=\"x\" version=\"y\" number=\"7up\" midiEnabled=\"2\" "
                             "automationEnabled=\"\" min=\"1e999\" max=\"-1\"/></Root>";
    CXmlDataObject xml("Root", Serialization::kXmlAttributes);
    ASSERT_TRUE(xml.Parse(text, static_cast<int>(std::strlen(text))));
    CMIDICCSetting setting(MakeInfo(0.0, 1.0));
    const CFieldsTuple before = FieldsOf(setting);
    EXPECT_FALSE(xml.ReadObject("a", setting));
    EXPECT_FALSE(xml.ReadObject("b", setting));
    EXPECT_EQ(FieldsOf(setting), before);
    EXPECT_TRUE(xml.ReadObject("c", setting));
    EXPECT_EQ(FieldsOf(setting),
              CFieldsTuple(0, 7, true, false, std::numeric_limits<double>::max(), -1.0, 6, 0));
}

} // namespace
} // namespace Vorin::Audio::Plugin
