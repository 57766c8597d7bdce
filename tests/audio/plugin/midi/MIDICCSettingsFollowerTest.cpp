#include "audio/plugin/midi/MIDICCSettingsFollower.h"

#include "audio/plugin/midi/MIDITestKit.h"
#include "serialization/IncrementalMemDataObject.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

using namespace Testing;
using Serialization::CIncrementalMemDataObject;
using Serialization::CMemDataObject;
using Serialization::CXmlDataObject;

constexpr CMIDICCSettingsKeys kKeys{"MIDIInputDefault", "MIDIInputSettings", "setting"};

class MIDICCSettingsFollower : public ::testing::Test {
protected:
    MIDICCSettingsFollower() {
        global.Get(0).SetNumber(30);
        follower.emplace(own, global);
    }

    void ExpectSame() {
        for (int index = 0; index < own.GetCount(); ++index) {
            EXPECT_EQ(FieldsOf(own.Get(index)), FieldsOf(global.Get(index))) << index;
        }
    }

    CInfos infos = MakeInfos(3);
    CInputMIDICCSettings global{infos};
    CInputMIDICCSettings own{infos};
    std::optional<CMIDICCSettingsFollower> follower;
};

TEST_F(MIDICCSettingsFollower, StartsFollowing) {
    EXPECT_TRUE(follower->GetValue());
    EXPECT_EQ(own.Get(0).GetNumber(), 30);
    ExpectSame();
}

TEST_F(MIDICCSettingsFollower, CopiesTheGlobalSettingOfAParameterAtEachChange) {
    CListener first(own.Get(0).GetChangedEvent());
    CListener second(own.Get(1).GetChangedEvent());
    ChangeAll(global.Get(1));
    EXPECT_EQ(second.Take(), 8);
    EXPECT_EQ(first.Take(), 0);
    ExpectSame();
}

TEST_F(MIDICCSettingsFollower, KeepsItsOwnWhileTheFlagIsFalse) {
    follower->SetValue(false);
    own.Get(1).SetNumber(55);
    ChangeAll(global.Get(1));
    ChangeAll(global.Get(2));
    EXPECT_EQ(own.Get(1).GetNumber(), 55);
    EXPECT_EQ(own.Get(2).GetNumber(), 0);
}

TEST_F(MIDICCSettingsFollower, CopiesAllWhenTheFlagTurnsTrueAndFollowsFromThereOn) {
    follower->SetValue(false);
    for (int index = 0; index < 3; ++index) {
        ChangeAll(own.Get(index), 50 + index);
    }
    follower->SetValue(true);
    ExpectSame();
    global.Get(2).SetNumber(77);
    ExpectSame();
}

TEST_F(MIDICCSettingsFollower, TheFlagFiresWhenItChanges) {
    CListener flag(follower->GetValueChangedEvents());
    follower->SetValue(true);
    EXPECT_EQ(flag.Take(), 0);
    follower->SetValue(false);
    EXPECT_EQ(flag.Take(), 1);
    EXPECT_FALSE(follower->GetValue());
    follower->SetValue(false);
    EXPECT_EQ(flag.Take(), 0);
    CListener copied(own.Get(0).GetChangedEvent());
    own.Get(0).SetNumber(3);
    copied.Take();
    CListener late(follower->GetValueChangedEvents(), [&] { ExpectSame(); });
    follower->SetValue(true);
    EXPECT_EQ(flag.Take(), 1);
    EXPECT_EQ(copied.Take(), 1);
}

TEST_F(MIDICCSettingsFollower, ResettingCopiesWhateverTheFlagSays) {
    own.Get(0).SetNumber(1);
    follower->CopyGlobalSettings();
    ExpectSame();
    follower->SetValue(false);
    own.Get(0).SetNumber(1);
    follower->CopyGlobalSettings();
    ExpectSame();
    EXPECT_FALSE(follower->GetValue());
}

TEST_F(MIDICCSettingsFollower, SettingsWithoutAGlobalOneFollowNothing) {
    CInfos moreInfos = MakeInfos(5);
    CInputMIDICCSettings more(moreInfos);
    more.Get(4).SetNumber(9);
    CMIDICCSettingsFollower other(more, global);
    EXPECT_EQ(more.Get(0).GetNumber(), 30);
    EXPECT_EQ(more.Get(4).GetNumber(), 9);
}

TEST_F(MIDICCSettingsFollower, LeavesTheGlobalSettingsWhenItDies) {
    follower.reset();
    ChangeAll(global.Get(0)); // a listener left behind would be found by the sanitizers
    EXPECT_EQ(own.Get(0).GetNumber(), 30);
}

TEST_F(MIDICCSettingsFollower, EndsEqualWhileAnotherThreadChangesTheGlobalSettings) {
    constexpr int kChanges = 20'000;
    std::thread audio([&] {
        for (int i = 0; i < kChanges; ++i) {
            global.Get(i % 3).SetNumber(i % 127);
            global.Get(i % 3).SetMin(i);
        }
    });
    for (int i = 0; i < 300; ++i) {
        follower->SetValue(false);
        own.Get(1).SetChannel(5);
        const CFieldsTuple kept = FieldsOf(own.Get(1));
        std::this_thread::yield();
        EXPECT_EQ(FieldsOf(own.Get(1)), kept); // nothing is copied any more
        follower->SetValue(true);
    }
    audio.join();
    global.NotifyIfKept();
    follower->NotifyIfKept();
    ExpectSame();
}

TEST_F(MIDICCSettingsFollower, WhileFollowingAPresetHoldsTheFlagAlone) {
    CMemDataObject document;
    EXPECT_TRUE(WriteFollowingSettings(document, kKeys, own, *follower));
    EXPECT_EQ(document.GetCount(), 1);
    bool flag = false;
    EXPECT_TRUE(document.ReadBool("MIDIInputDefault", flag));
    EXPECT_TRUE(flag);
}

TEST_F(MIDICCSettingsFollower, ReadingAPresetThatFollowsReturnsToTheGlobalSettings) {
    CMemDataObject document;
    ASSERT_TRUE(WriteFollowingSettings(document, kKeys, own, *follower));
    follower->SetValue(false);
    ChangeAll(own.Get(2));
    CListener flag(follower->GetValueChangedEvents());
    EXPECT_TRUE(ReadFollowingSettings(document, kKeys, own, *follower));
    EXPECT_TRUE(follower->GetValue());
    EXPECT_EQ(flag.Take(), 1);
    ExpectSame();
}

TEST_F(MIDICCSettingsFollower, APresetOfItsOwnComesBackFromXml) {
    follower->SetValue(false);
    ChangeAll(own.Get(2), 99);
    const CFieldsTuple written = FieldsOf(own.Get(2));
    CXmlDataObject document("Preset", Serialization::kXmlAttributes);
    ASSERT_TRUE(WriteFollowingSettings(document, kKeys, own, *follower));
    follower->SetValue(true);
    EXPECT_TRUE(ReadFollowingSettings(document, kKeys, own, *follower));
    EXPECT_FALSE(follower->GetValue());
    EXPECT_EQ(FieldsOf(own.Get(2)), written);
    EXPECT_EQ(own.Get(0).GetNumber(), 30);
}

TEST_F(MIDICCSettingsFollower, WhatAPresetLacksIsAsInTheGlobalSettings) {
    follower->SetValue(false);
    ChangeAll(own.Get(2));
    CMemDataObject document;
    EXPECT_FALSE(ReadFollowingSettings(document, kKeys, own, *follower));
    EXPECT_FALSE(follower->GetValue());
    ExpectSame();
    follower->SetValue(true);
    document.WriteBool("MIDIInputDefault", false);
    EXPECT_FALSE(ReadFollowingSettings(document, kKeys, own, *follower));
    EXPECT_FALSE(follower->GetValue());
    ExpectSame();
}

TEST_F(MIDICCSettingsFollower, ASettingThatCannotBeWrittenFailsButTheFlagStands) {
    follower->SetValue(false);
    own.Get(1).SetCurve(static_cast<DataModel::Objects::EParamValueCurve>(13));
    CMemDataObject document;
    EXPECT_FALSE(WriteFollowingSettings(document, kKeys, own, *follower));
    EXPECT_TRUE(document.Exists("MIDIInputDefault"));
    EXPECT_FALSE(document.Exists("MIDIInputSettings"));
}

TEST_F(MIDICCSettingsFollower, ADifferenceChangesWhatItHoldsAlone) {
    follower->SetValue(false);
    own.Get(0).SetNumber(1);
    CIncrementalMemDataObject before;
    ASSERT_TRUE(WriteFollowingSettings(before, kKeys, own, *follower));
    own.Get(1).SetNumber(2);
    CIncrementalMemDataObject after(&before);
    ASSERT_TRUE(WriteFollowingSettings(after, kKeys, own, *follower));
    CIncrementalMemDataObject undo;
    ASSERT_TRUE(undo.SetDifference(after, before));
    EXPECT_TRUE(ReadFollowingSettings(undo, kKeys, own, *follower));
    EXPECT_FALSE(follower->GetValue());
    EXPECT_EQ(own.Get(0).GetNumber(), 1);
    EXPECT_EQ(own.Get(1).GetNumber(), 0);
    CIncrementalMemDataObject nothing(nullptr, true);
    EXPECT_TRUE(ReadFollowingSettings(nothing, kKeys, own, *follower));
    EXPECT_EQ(own.Get(0).GetNumber(), 1);
}

} // namespace
} // namespace Vorin::Audio::Plugin
