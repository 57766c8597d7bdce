#include "audio/plugin/presets/PresetsManager.h"

#include "PresetsTestKit.h"
#include "files/Locale.h"
#include "serialization/MemDataObject.h"

#include <gtest/gtest.h>

#include <atomic>

#include <memory>
#include <thread>

#include <sys/stat.h>

namespace Vorin::Audio::Plugin {
namespace {

using Names = std::vector<std::string>;

/// Folders for presets below a temporary one. There are two presets of the filter once the test
/// adds them, and files once it writes them and refreshes.
class PresetsManagerTest : public ::testing::Test {
protected:
    PresetsManagerTest() { Reopen(); }

    /// A fresh instance.
    void Reopen() {
        manager = std::make_unique<CPresetsManager>(state, legacyPresets, paths);
        state.manager = manager.get();
        state.number = 0.0;
        state.text.Clear();
    }

    void AddLegacyPresets() {
        const double values[] = {11.0, 12.0};
        legacyPresets.Add({"Old one", DSP::CDynamicParamsValues(2, values)});
        legacyPresets.Add({"Old two", DSP::CDynamicParamsValues()});
        manager->RefreshPresets();
    }

    void MakeFolder(const std::string& name) const {
        std::filesystem::create_directories(folder.Path(name));
    }
    /// A preset named for its file.
    void MakePreset(const std::string& path, double number = 1.0) const {
        const std::filesystem::path file(folder.Path(path));
        std::filesystem::create_directories(file.parent_path());
        folder.Write(path, PresetDocument(file.stem().string(), number));
    }
    void MakeThreeFiles() {
        MakePreset("shipped/Presets/A.preset", 1.0);
        MakePreset("user/Presets/B.preset", 2.0);
        MakePreset("user/Presets/C.preset", 3.0);
        manager->RefreshPresets();
    }

    std::string Name() const { return manager->GetCurrentPresetName().Get(); }
    bool Save(const std::string& path) { return manager->SavePreset(folder.Path(path).c_str()); }
    bool Load(const std::string& path) { return manager->LoadPreset(folder.Path(path).c_str()); }

    /// What the user sees of the state.
    std::string Now() const {
        return Name() + " " + std::to_string(state.number) + " " + state.text.Get() + " at " +
               std::to_string(manager->GetPresetIndex());
    }

    TestFiles::CTemporaryFolder folder;
    const CAudioPluginFilePathsBase paths{folder.Path("shipped").c_str(),
                                          folder.Path("user").c_str()};
    CTestState state;
    DSP::CLegacyPresets legacyPresets;
    std::unique_ptr<CPresetsManager> manager;
};

TEST_F(PresetsManagerTest, AFreshInstanceHasANameAndNoPlace) {
    EXPECT_EQ(Name(), "Default Settings");
    EXPECT_EQ(manager->GetPresetIndex(), -1);
    EXPECT_EQ(Outline(manager->GetFactoryPresets()), "Factory Presets[]");
    EXPECT_EQ(Outline(manager->GetUserPresets()), "User Presets[]");
    EXPECT_EQ(manager->GetLegacyPresets().GetCount(), 0);
    EXPECT_EQ(manager->GetPresetFiles().GetCount(), 0);
    EXPECT_TRUE(folder.List().empty()); // no folder is made for looking
}

TEST_F(PresetsManagerTest, ListsThePresetsOfTheFilterThenTheShippedThenTheUsers) {
    MakeThreeFiles();
    AddLegacyPresets();
    EXPECT_EQ(NamesOf(manager->GetLegacyPresets()), (Names{"Old one", "Old two"}));
    EXPECT_EQ(NamesOf(manager->GetPresetFiles()), (Names{"A", "B", "C"}));
    EXPECT_EQ(Outline(manager->GetFactoryPresets()), "Factory Presets[A]");
    EXPECT_EQ(Outline(manager->GetUserPresets()), "User Presets[B C]");
    const std::vector<Containers::CCharString> names = manager->GetPresetNames();
    ASSERT_EQ(names.size(), 5U);
    EXPECT_STREQ(names[0].Get(), "Old one");
    EXPECT_STREQ(names[2].Get(), "A");
    EXPECT_STREQ(names[4].Get(), "C");
}

TEST_F(PresetsManagerTest, RefreshFindsWhatCameAndForgetsWhatWent) {
    MakeThreeFiles();
    std::filesystem::remove(folder.Path("user/Presets/B.preset"));
    MakePreset("user/Presets/D.preset");
    EXPECT_EQ(NamesOf(manager->GetPresetFiles()), (Names{"A", "B", "C"}));
    manager->RefreshPresets();
    EXPECT_EQ(NamesOf(manager->GetPresetFiles()), (Names{"A", "C", "D"}));
}

TEST_F(PresetsManagerTest, NextAtTheLastGoesToTheFirstAndPreviousAtTheFirstToTheLast) {
    MakeThreeFiles();
    for (const char* expected : {"A", "B", "C", "A"}) {
        EXPECT_TRUE(manager->LoadNextPreset());
        EXPECT_EQ(Name(), expected);
    }
    EXPECT_EQ(manager->GetPresetIndex(), 0);
    for (const char* expected : {"C", "B", "A", "C"}) {
        EXPECT_TRUE(manager->LoadPreviousPreset());
        EXPECT_EQ(Name(), expected);
    }
    EXPECT_EQ(manager->GetPresetIndex(), 2);
    EXPECT_EQ(state.number, 3.0);
}

TEST_F(PresetsManagerTest, PreviousInAFreshInstanceGoesToTheLast) {
    MakeThreeFiles();
    EXPECT_TRUE(manager->LoadPreviousPreset());
    EXPECT_EQ(Now(), "C 3.000000  at 2");
}

TEST_F(PresetsManagerTest, WithoutPresetsBothStayAtTheFirstPlaceAndApplyNothing) {
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_FALSE(manager->LoadNextPreset());
        EXPECT_EQ(manager->GetPresetIndex(), 0);
        EXPECT_FALSE(manager->LoadPreviousPreset());
        EXPECT_EQ(manager->GetPresetIndex(), 0);
    }
    EXPECT_EQ(state.read + state.resets, 0);
    EXPECT_EQ(Name(), "Default Settings");
}

TEST_F(PresetsManagerTest, WithOnePresetBothLoadItAgain) {
    MakePreset("user/Presets/A.preset", 5.0);
    manager->RefreshPresets();
    EXPECT_TRUE(manager->LoadNextPreset());
    state.number = 6.0;
    EXPECT_TRUE(manager->LoadNextPreset());
    EXPECT_EQ(Now(), "A 5.000000  at 0");
    EXPECT_TRUE(manager->LoadPreviousPreset());
    EXPECT_EQ(state.read, 3);
}

TEST_F(PresetsManagerTest, APlaceBehindTheEndGoesToTheFirst) {
    MakeThreeFiles();
    for (const int index : {3, 1000, 2147483647}) {
        manager->SetPresetIndex(index);
        EXPECT_TRUE(manager->LoadNextPreset());
        EXPECT_EQ(manager->GetPresetIndex(), 0);
    }
    for (const int index : {-2, -1000, -2147483647 - 1}) {
        manager->SetPresetIndex(index);
        EXPECT_TRUE(manager->LoadPreviousPreset());
        EXPECT_EQ(manager->GetPresetIndex(), 2);
    }
    manager->SetPresetIndex(10);
    EXPECT_TRUE(manager->LoadPreviousPreset());
    EXPECT_EQ(manager->GetPresetIndex(), 0);
}

TEST_F(PresetsManagerTest, StepsThroughThePresetsOfTheFilterToo) {
    AddLegacyPresets();
    MakeThreeFiles();
    state.text = "x";
    EXPECT_TRUE(manager->LoadNextPreset());
    EXPECT_EQ(Now(), "Old one 11.000000  at 0");
    EXPECT_TRUE(manager->LoadNextPreset());
    EXPECT_EQ(Now(), "Old two 0.000000  at 1");
    EXPECT_TRUE(manager->LoadNextPreset());
    EXPECT_EQ(Now(), "A 1.000000  at 2");
    EXPECT_TRUE(manager->LoadPreviousPreset());
    EXPECT_EQ(Now(), "Old two 0.000000  at 1");
}

TEST_F(PresetsManagerTest, APresetOfTheFilterGivesPlaceNameAndEvent) {
    AddLegacyPresets();
    CEventCounter events(manager->GetPresetChangedEvent());
    EXPECT_TRUE(manager->GetLegacyPresets().Get(0).Apply());
    EXPECT_EQ(Now(), "Old one 11.000000  at 0");
    EXPECT_EQ(events.Take(), 1);
    for (const int index : {-1, 2, 2147483647}) {
        EXPECT_FALSE(manager->ApplyLegacyPreset(index));
    }
    EXPECT_EQ(Now(), "Old one 11.000000  at 0");
    EXPECT_EQ(events.Take(), 0);
}

TEST_F(PresetsManagerTest, NextPassesAFileThatCannotBeLoaded) {
    MakeThreeFiles();
    ASSERT_TRUE(manager->LoadNextPreset());
    folder.Write("user/Presets/B.preset", "no preset");
    EXPECT_FALSE(manager->LoadNextPreset());
    EXPECT_EQ(Now(), "A 1.000000  at 1");
    EXPECT_TRUE(manager->LoadNextPreset());
    EXPECT_EQ(Now(), "C 3.000000  at 2");
    EXPECT_FALSE(manager->LoadPreviousPreset());
    EXPECT_TRUE(manager->LoadPreviousPreset());
    EXPECT_EQ(Now(), "A 1.000000  at 0");
}

TEST_F(PresetsManagerTest, AnEntryOfAListIsLoadedAndTakesItsPlace) {
    MakeThreeFiles();
    EXPECT_TRUE(manager->GetUserPresets().GetItem(1).Apply());
    EXPECT_EQ(Now(), "C 3.000000  at 2");
    EXPECT_TRUE(manager->GetPresetFiles().Get(0).Apply());
    EXPECT_EQ(Now(), "A 1.000000  at 0");
}

TEST_F(PresetsManagerTest, AnEntryThatCannotBeLoadedChangesNothing) {
    MakeThreeFiles();
    ASSERT_TRUE(manager->GetPresetFiles().Get(0).Apply());
    folder.Write("user/Presets/B.preset", "<Other/>");
    std::filesystem::remove(folder.Path("user/Presets/C.preset"));
    CEventCounter events(manager->GetPresetChangedEvent());
    EXPECT_FALSE(manager->GetPresetFiles().Get(1).Apply());
    EXPECT_FALSE(manager->GetPresetFiles().Get(2).Apply());
    EXPECT_EQ(Now(), "A 1.000000  at 0");
    EXPECT_EQ(events.Take(), 0);
}

TEST_F(PresetsManagerTest, TheListsMayBeRefreshedWhileAnEntryIsLoaded) {
    MakeThreeFiles();
    state.whileReading = [this] { manager->RefreshPresets(); };
    EXPECT_TRUE(manager->GetPresetFiles().Get(1).Apply());
    EXPECT_EQ(Now(), "B 2.000000  at 1");
    EXPECT_TRUE(manager->LoadNextPreset());
    EXPECT_EQ(Now(), "C 3.000000  at 2");
}

TEST_F(PresetsManagerTest, SavedStateComesBack) {
    MakeFolder("any");
    state.number = 0.1;
    state.text = "a < b & \"c\"\n";
    {
        CEventCounter events(manager->GetPresetChangedEvent());
        ASSERT_TRUE(Save("any/My sound.preset"));
        EXPECT_EQ(Name(), "My sound");
        EXPECT_EQ(events.Take(), 1);
    }
    Reopen();
    CEventCounter eventsAfter(manager->GetPresetChangedEvent());
    ASSERT_TRUE(Load("any/My sound.preset"));
    EXPECT_EQ(Name(), "My sound");
    EXPECT_EQ(state.number, 0.1);
    EXPECT_STREQ(state.text.Get(), "a < b & \"c\"\n");
    EXPECT_EQ(manager->GetPresetIndex(), -1);
    EXPECT_EQ(eventsAfter.Take(), 1);
}

TEST_F(PresetsManagerTest, APresetIsAnXmlDocumentWithItsValuesAsAttributes) {
    MakeFolder("any");
    state.number = 1.5;
    state.text = "t";
    ASSERT_TRUE(Save("any/P.preset"));
    EXPECT_EQ(folder.Read("any/P.preset"), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                           "<Preset progName=\"P\" number=\"1.5\" text=\"t\"/>\n");
}

TEST_F(PresetsManagerTest, IsNamedForTheFileWithoutTheExtension) {
    MakeFolder("a.b");
    const std::pair<const char*, const char*> cases[] = {
        {"a.b/Plain.preset", "Plain"}, {"a.b/Bass 1.2.preset", "Bass 1.2"}, {"a.b/none", "none"},
        {"a.b/other.xml", "other"},    {"a.b/\xC3\xA4.preset", "\xC3\xA4"}, {"a.b/.preset", ""},
    };
    for (const auto& [file, name] : cases) {
        EXPECT_TRUE(Save(file));
        EXPECT_EQ(Name(), name);
        EXPECT_TRUE(folder.Has(file));
    }
}

TEST_F(PresetsManagerTest, ASavedPresetIsListedAtOnce) {
    EXPECT_TRUE(Save("user/Presets/New.preset"));
    EXPECT_EQ(Outline(manager->GetUserPresets()), "User Presets[New]");
    EXPECT_EQ(manager->GetPresetIndex(), -1); // saving is not moving
}

TEST_F(PresetsManagerTest, SavingReplacesAFile) {
    ASSERT_TRUE(Save("user/Presets/P.preset"));
    state.number = 7.0;
    ASSERT_TRUE(Save("user/Presets/P.preset"));
    state.number = 8.0;
    ASSERT_TRUE(Load("user/Presets/P.preset"));
    EXPECT_EQ(state.number, 7.0);
    EXPECT_EQ(folder.List().size(), 3U); // two folders and the file
}

TEST_F(PresetsManagerTest, WhatCannotBeSavedLeavesNoFileAndTheName) {
    MakeFolder("any");
    MakePreset("any/Old.preset", 4.0);
    ASSERT_TRUE(Load("any/Old.preset"));
    const auto before = folder.List();
    const std::string nowBefore = Now();
    CEventCounter events(manager->GetPresetChangedEvent());

    state.isBroken = true;
    EXPECT_FALSE(Save("any/Old.preset"));
    EXPECT_FALSE(Save("any/New.preset"));
    EXPECT_FALSE(Save("user/Presets/New.preset"));
    EXPECT_FALSE(manager->SaveAsDefaultPreset());
    state.isBroken = false;

    EXPECT_FALSE(Save("missing/New.preset"));
    EXPECT_FALSE(Save("any"));
    EXPECT_FALSE(Save("any/"));
    EXPECT_FALSE(Save("any/Old.preset/New.preset"));
    EXPECT_FALSE(Save("any/" + std::string(300, 'n') + ".preset"));
    EXPECT_FALSE(manager->SavePreset("/dev/full"));
    EXPECT_FALSE(manager->SavePreset("relative.preset"));
    EXPECT_FALSE(manager->SavePreset(""));
    EXPECT_FALSE(manager->SavePreset(nullptr));

    EXPECT_TRUE(folder.List() == before);
    EXPECT_FALSE(std::filesystem::exists("relative.preset"));
    EXPECT_EQ(Now(), nowBefore);
    EXPECT_EQ(events.Take(), 0);
}

TEST_F(PresetsManagerTest, AFullDiskLeavesTheOldPreset) {
    MakePreset("user/Presets/Old.preset", 4.0);
    const auto before = folder.List();
    state.text = std::string(200, 'x').c_str();
    {
        const TestFiles::CFullDisk full(100);
        EXPECT_FALSE(Save("user/Presets/Old.preset"));
        EXPECT_FALSE(Save("user/Presets/New.preset"));
        EXPECT_FALSE(manager->SaveAsDefaultPreset());
    }
    EXPECT_TRUE(folder.List() == before);
    EXPECT_EQ(Name(), "Default Settings");
    EXPECT_TRUE(Save("user/Presets/Old.preset"));
}

TEST_F(PresetsManagerTest, AProtectedFolderTakesNoPreset) {
    MakePreset("user/Presets/Old.preset", 4.0);
    const auto before = folder.List();
    std::filesystem::permissions(folder.Path("user/Presets"), std::filesystem::perms(0555));
    {
        const TestFiles::CWithoutRights anybody;
        EXPECT_FALSE(Save("user/Presets/New.preset"));
        EXPECT_FALSE(manager->SaveAsDefaultPreset());
    }
    std::filesystem::permissions(folder.Path("user/Presets"), std::filesystem::perms(0755));
    EXPECT_TRUE(folder.List() == before);
}

TEST_F(PresetsManagerTest, AStateThatIsNotKeptIsSavedAsAnEmptyDocument) {
    state.isKept = false;
    ASSERT_TRUE(Save("user/Presets/P.preset"));
    EXPECT_EQ(folder.Read("user/Presets/P.preset"),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Preset/>\n");
}

TEST_F(PresetsManagerTest, WhatIsNoPresetIsNotLoaded) {
    MakePreset("any/good.preset", 4.0);
    ASSERT_TRUE(Load("any/good.preset"));
    MakeFolder("any/folder.preset");
    ASSERT_EQ(mkfifo(folder.Path("any/pipe.preset").c_str(), 0666), 0);
    const std::pair<const char*, std::string> files[] = {
        {"any/empty.preset", ""},
        {"any/text.preset", "some text"},
        {"any/root.preset", "<Root number=\"3\"/>"},
        {"any/open.preset", "<Preset number=\"3\">"},
        {"any/two.preset", "<Preset number=\"3\"/><Preset/>"},
        {"any/type.preset", "<!DOCTYPE Preset><Preset number=\"3\"/>"},
        {"any/zero.preset", std::string("<Preset number=\"3\"\0/>", 21)},
    };
    for (const auto& [name, bytes] : files) {
        folder.Write(name, bytes);
        EXPECT_FALSE(Load(name)) << name;
    }
    CEventCounter events(manager->GetPresetChangedEvent());
    EXPECT_FALSE(Load("any/folder.preset"));
    EXPECT_FALSE(Load("any/pipe.preset")); // opening it would wait for a writer
    EXPECT_FALSE(Load("any/missing.preset"));
    EXPECT_FALSE(Load("any"));
    EXPECT_FALSE(manager->LoadPreset("/dev/zero"));
    EXPECT_FALSE(manager->LoadPreset("relative.preset"));
    EXPECT_FALSE(manager->LoadPreset(""));
    EXPECT_FALSE(manager->LoadPreset(nullptr));
    EXPECT_EQ(Now(), "good 4.000000  at -1");
    EXPECT_EQ(state.read, 1);
    EXPECT_EQ(events.Take(), 0);
}

TEST_F(PresetsManagerTest, AFileThatMayNotBeReadIsNotLoaded) {
    MakePreset("any/secret.preset");
    std::filesystem::permissions(folder.Path("any/secret.preset"), std::filesystem::perms(0));
    const TestFiles::CWithoutRights anybody;
    EXPECT_FALSE(Load("any/secret.preset"));
    EXPECT_EQ(Now(), "Default Settings 0.000000  at -1");
}

TEST_F(PresetsManagerTest, APresetCutAnywhereChangesNothing) {
    MakeFolder("any");
    state.number = 2.0;
    state.text = "text";
    ASSERT_TRUE(Save("any/whole.preset"));
    const std::string whole = folder.Read("any/whole.preset");
    const std::size_t end = whole.rfind('>');
    for (std::size_t size = 0; size <= end; ++size) {
        folder.Write("any/cut.preset", whole.substr(0, size));
        EXPECT_FALSE(Load("any/cut.preset")) << size;
    }
    EXPECT_EQ(Now(), "whole 2.000000 text at -1");
    EXPECT_EQ(state.read, 0);
}

TEST_F(PresetsManagerTest, ADocumentThatIsRefusedLeavesStateNameAndPlace) {
    MakePreset("user/Presets/Good.preset");
    manager->RefreshPresets();
    ASSERT_TRUE(manager->LoadNextPreset());
    state.number = 0.1;
    state.text = "mine";
    folder.Write("user/Presets/Good.preset",
                 "<Preset progName=\"Bad\" number=\"3\" text=\"theirs\" refused=\"1\"/>");
    const std::string before = Now();
    EXPECT_FALSE(Load("user/Presets/Good.preset"));
    EXPECT_EQ(Now(), before);
    EXPECT_EQ(state.number, 0.1);
    EXPECT_FALSE(manager->GetPresetFiles().Get(0).Apply());
    EXPECT_EQ(Now(), before);
}

TEST_F(PresetsManagerTest, MissingAndUnknownKeysAreNoFailure) {
    MakeFolder("any");
    folder.Write("any/few.preset", "<Preset unknown=\"1\" number=\"2\"><More a=\"b\"/></Preset>");
    state.text = "x";
    EXPECT_TRUE(Load("any/few.preset"));
    EXPECT_EQ(state.number, 2.0);
    EXPECT_STREQ(state.text.Get(), "");
}

TEST_F(PresetsManagerTest, APresetWithoutANameIsCalledDefault) {
    MakeFolder("any");
    folder.Write("any/nameless.preset", "<Preset number=\"2\"/>");
    CEventCounter events(manager->GetPresetChangedEvent());
    ASSERT_TRUE(Load("any/nameless.preset"));
    EXPECT_EQ(Name(), "Default");
    EXPECT_EQ(events.Take(), 1);
}

TEST_F(PresetsManagerTest, AnEmptyNameIsAName) {
    MakeFolder("any");
    folder.Write("any/P.preset", "<Preset progName=\"\"/>");
    ASSERT_TRUE(Load("any/P.preset"));
    EXPECT_EQ(Name(), "");
}

TEST_F(PresetsManagerTest, ATolerantStreamWithoutANameKeepsIt) {
    class CTolerant : public Serialization::CMemDataObject {
    public:
        bool IsTolerant() const override { return true; }
    } stream;
    manager->ReadName(stream);
    EXPECT_EQ(Name(), "Default Settings");
    EXPECT_TRUE(stream.WriteString("progName", "other"));
    manager->ReadName(stream);
    EXPECT_EQ(Name(), "other");
}

TEST_F(PresetsManagerTest, TheDefaultPresetIsWhatLoadingTheDefaultMeans) {
    state.number = 5.0;
    ASSERT_TRUE(manager->SaveAsDefaultPreset());
    EXPECT_TRUE(folder.Has("user/Presets/Default.preset"));
    EXPECT_EQ(Name(), "Default");
    EXPECT_EQ(Outline(manager->GetUserPresets()), "User Presets[]");
    Reopen();
    EXPECT_TRUE(manager->LoadDefaultPreset());
    EXPECT_EQ(Now(), "Default 5.000000  at -1");
    EXPECT_EQ(state.resets, 0);
}

TEST_F(PresetsManagerTest, LoadingTheDefaultAfterItWasDeletedResetsToDefaults) {
    state.number = 5.0;
    ASSERT_TRUE(manager->SaveAsDefaultPreset());
    manager->SetPresetIndex(2);
    EXPECT_TRUE(manager->DeleteDefaultPreset());
    EXPECT_FALSE(folder.Has("user/Presets/Default.preset"));
    CEventCounter events(manager->GetPresetChangedEvent());
    EXPECT_TRUE(manager->LoadDefaultPreset());
    EXPECT_EQ(Now(), "Default Settings 0.000000  at -1");
    EXPECT_EQ(state.resets, 1);
    EXPECT_EQ(state.read, 0);
    EXPECT_EQ(events.Take(), 1);
    EXPECT_TRUE(manager->DeleteDefaultPreset()); // it is not there: nothing stands against that
}

TEST_F(PresetsManagerTest, ADefaultPresetSavedByAnotherInstanceCounts) {
    CTestState other;
    CPresetsManager otherManager(other, legacyPresets, paths);
    other.manager = &otherManager;
    other.number = 9.0;
    ASSERT_TRUE(otherManager.SaveAsDefaultPreset());
    EXPECT_TRUE(manager->LoadDefaultPreset());
    EXPECT_EQ(state.number, 9.0);
    ASSERT_TRUE(otherManager.DeleteDefaultPreset());
    EXPECT_TRUE(manager->LoadDefaultPreset());
    EXPECT_EQ(Now(), "Default Settings 0.000000  at -1");
}

TEST_F(PresetsManagerTest, ADamagedDefaultPresetLeavesTheStateAndIsNoFailure) {
    MakeFolder("user/Presets");
    folder.Write("user/Presets/Default.preset", "no preset");
    state.number = 3.0;
    manager->SetPresetIndex(4);
    EXPECT_TRUE(manager->LoadDefaultPreset());
    EXPECT_EQ(Now(), "Default Settings 3.000000  at 4");
    EXPECT_EQ(state.resets + state.read, 0);
}

TEST_F(PresetsManagerTest, AFolderNamedLikeTheDefaultPresetIsNoneAndStays) {
    MakeFolder("user/Presets/Default.preset");
    manager->RefreshPresets();
    EXPECT_EQ(Outline(manager->GetUserPresets()), "User Presets[Default.preset[]]");
    EXPECT_TRUE(manager->LoadDefaultPreset());
    EXPECT_EQ(state.resets, 1);
    EXPECT_FALSE(manager->SaveAsDefaultPreset());
    EXPECT_FALSE(manager->DeleteDefaultPreset());
    EXPECT_TRUE(folder.Has("user/Presets/Default.preset"));
}

TEST_F(PresetsManagerTest, TheDefaultPresetMayBeUndeletable) {
    ASSERT_TRUE(manager->SaveAsDefaultPreset());
    std::filesystem::permissions(folder.Path("user/Presets"), std::filesystem::perms(0555));
    {
        const TestFiles::CWithoutRights anybody;
        EXPECT_FALSE(manager->DeleteDefaultPreset());
    }
    std::filesystem::permissions(folder.Path("user/Presets"), std::filesystem::perms(0755));
    EXPECT_TRUE(folder.Has("user/Presets/Default.preset"));
}

TEST_F(PresetsManagerTest, WithoutFoldersThereIsNoPresetAndNoDefault) {
    const CAudioPluginFilePathsBase nowhere("", "");
    CPresetsManager homeless(state, legacyPresets, nowhere);
    state.manager = &homeless;
    EXPECT_EQ(homeless.GetPresetFiles().GetCount(), 0);
    EXPECT_FALSE(homeless.SaveAsDefaultPreset());
    EXPECT_TRUE(homeless.DeleteDefaultPreset());
    EXPECT_TRUE(homeless.LoadDefaultPreset());
    EXPECT_EQ(state.resets, 1);
}

TEST_F(PresetsManagerTest, TheUsersFolderIsMadeForTheFirstPresetInIt) {
    EXPECT_TRUE(manager->SaveAsDefaultPreset());
    std::filesystem::remove_all(folder.Path("user"));
    EXPECT_TRUE(Save("user/Presets/P.preset"));
    EXPECT_FALSE(Save("user/Presets/Sub/P.preset"));
    EXPECT_FALSE(Save("shipped/Presets/P.preset"));
    EXPECT_FALSE(folder.Has("shipped"));
}

TEST_F(PresetsManagerTest, NumbersAreWrittenAndReadWhateverTheLocaleIs) {
    const TestFiles::CLocale locale("de_DE.UTF-8");
    ASSERT_TRUE(locale.isThere) << "localedef and the locales package are needed";
    state.number = 1.5;
    EXPECT_TRUE(Save("user/Presets/P.preset"));
    state.number = 0.0;
    EXPECT_TRUE(Load("user/Presets/P.preset"));
    EXPECT_EQ(state.number, 1.5);
    EXPECT_NE(folder.Read("user/Presets/P.preset").find("\"1.5\""), std::string::npos);
}

TEST_F(PresetsManagerTest, OtherThreadsReadWholeNamesAlone) {
    const std::string one(100, '1');
    const std::string two(150, '2');
    ASSERT_TRUE(Save("user/Presets/" + one + ".preset"));
    bool isWhole = true;
    std::atomic<bool> isDone{false};
    std::thread reader([&] {
        while (!isDone) {
            const std::string name = Name();
            isWhole = isWhole && (name == one || name == two);
        }
    });
    for (int turn = 0; turn < 20; ++turn) {
        EXPECT_TRUE(Save("user/Presets/" + (turn % 2 == 0 ? two : one) + ".preset"));
    }
    isDone = true;
    reader.join();
    EXPECT_TRUE(isWhole);
}

} // namespace
} // namespace Vorin::Audio::Plugin
