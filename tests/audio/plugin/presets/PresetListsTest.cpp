#include "audio/plugin/presets/PresetLists.h"

#include "PresetsTestKit.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace Vorin::Audio::Plugin {
namespace {

using Names = std::vector<std::string>;

/// What is found on the disk. The user's presets are in "user/Presets".
class PresetListsTest : public ::testing::Test {
protected:
    PresetListsTest() { Make("user/Presets"); }

    void Make(const std::string& name) const {
        std::filesystem::create_directories(folder.Path(name));
    }
    void MakePreset(const std::string& path) const {
        Make(std::filesystem::path(path).parent_path().string());
        folder.Write(path, "");
    }
    void Link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(folder.Path(target), folder.Path(name));
    }

    CPresetLists Find() { return {legacyPresets, paths, manager}; }

    TestFiles::CTemporaryFolder folder;
    const CAudioPluginFilePathsBase paths{folder.Path("shipped").c_str(),
                                          folder.Path("user").c_str()};
    CTestState state;
    DSP::CLegacyPresets legacyPresets;
    CPresetsManager manager{state, legacyPresets, paths};
};

TEST_F(PresetListsTest, FoldersAreSubListsAndAllIsSortedByTheBytesOfTheNames) {
    for (const char* name : {"b", "B", "a", "\xC3\xA4", "10", "9"}) {
        MakePreset("user/Presets/" + std::string(name) + ".preset");
    }
    MakePreset("user/Presets/aa/z.preset");
    MakePreset("user/Presets/aa/deep/er/x.preset");
    Make("user/Presets/C");
    const CPresetLists lists = Find();
    EXPECT_EQ(Outline(lists.GetUserPresets()),
              "User Presets[10 9 B a b \xC3\xA4 C[] aa[z deep[er[x]]]]");
    // The numbers go through files and folders as they stand in the listing.
    EXPECT_EQ(NamesOf(lists.GetFiles()), (Names{"10", "9", "B", "a", "x", "z", "b", "\xC3\xA4"}));
    EXPECT_EQ(lists.GetCount(), 8);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(lists.Find(i), &lists.GetFiles().Get(i));
        EXPECT_EQ(dynamic_cast<const CXMLPresetFile&>(*lists.Find(i)).GetIndex(), i);
    }
    EXPECT_EQ(lists.Find(-1), nullptr);
    EXPECT_EQ(lists.Find(8), nullptr);
}

TEST_F(PresetListsTest, AnEntryOfAFolderIsThatOfTheFlatList) {
    MakePreset("user/Presets/a/x.preset");
    const CPresetLists lists = Find();
    const auto& flat = dynamic_cast<const CXMLPresetFile&>(lists.GetFiles().Get(0));
    const auto& nested =
        dynamic_cast<const CXMLPresetFile&>(lists.GetUserPresets().GetFolder(0).GetItem(0));
    EXPECT_EQ(flat.GetPath(), folder.Path("user/Presets/a/x.preset"));
    EXPECT_STREQ(nested.GetPath(), flat.GetPath());
    EXPECT_EQ(nested.GetIndex(), 0);
}

TEST_F(PresetListsTest, OnlyRegularFilesWhoseNamesEndRightCount) {
    for (const char* name : {"a.preset", "b.PRESET", "c.preset~", "d.preset.xml", "preset", "e",
                             "f.xpreset", ".preset", ".hidden.preset", "g..preset"}) {
        MakePreset("user/Presets/" + std::string(name));
    }
    Make("user/Presets/x.preset");
    ASSERT_EQ(mkfifo(folder.Path("user/Presets/pipe.preset").c_str(), 0666), 0);
    std::filesystem::create_symlink("/dev/zero", folder.Path("user/Presets/zero.preset"));
    Link("nowhere", "user/Presets/broken.preset");
    Link("user/Presets/a.preset", "user/Presets/link.preset");
    const CPresetLists lists = Find();
    EXPECT_EQ(NamesOf(lists.GetFiles()), (Names{".hidden", "", "a", "g.", "link"}));
    EXPECT_EQ(Outline(lists.GetUserPresets()), "User Presets[.hidden  a g. link x.preset[]]");
}

TEST_F(PresetListsTest, DefaultIsListedNowhere) {
    MakePreset("shipped/Presets/Default.preset");
    MakePreset("user/Presets/Sub/Default.preset");
    MakePreset("user/Presets/default.preset");
    MakePreset("user/Presets/Default/x.preset");
    const CPresetLists lists = Find();
    EXPECT_EQ(Outline(lists.GetFactoryPresets()), "Factory Presets[]");
    EXPECT_EQ(Outline(lists.GetUserPresets()), "User Presets[default Default[x] Sub[]]");
    // Only the one that saving as default writes is the default preset.
    EXPECT_EQ(lists.GetDefaultPresetFile(), nullptr);
}

TEST_F(PresetListsTest, TheDefaultPresetIsTheOneInTheUsersFolder) {
    MakePreset("user/Presets/Default.preset");
    const CPresetLists lists = Find();
    EXPECT_EQ(lists.GetCount(), 0);
    ASSERT_NE(lists.GetDefaultPresetFile(), nullptr);
    EXPECT_EQ(lists.GetDefaultPresetFile()->GetPath(), folder.Path("user/Presets/Default.preset"));
    EXPECT_EQ(lists.GetDefaultPresetFile()->GetIndex(), -1);
}

TEST_F(PresetListsTest, LinksThatLeadBackAreLeftOut) {
    MakePreset("user/Presets/a/x.preset");
    Link("user/Presets", "user/Presets/a/up");
    Link("user/Presets/a", "user/Presets/a/self");
    const CPresetLists lists = Find();
    EXPECT_EQ(Outline(lists.GetUserPresets()), "User Presets[a[x]]");
}

TEST_F(PresetListsTest, LinksThatLeadElsewhereAreFollowed) {
    MakePreset("other/x.preset");
    Link("other", "user/Presets/one");
    Link("other", "user/Presets/two");
    const CPresetLists lists = Find();
    EXPECT_EQ(Outline(lists.GetUserPresets()), "User Presets[one[x] two[x]]");
}

TEST_F(PresetListsTest, LinksThatLeadToEachOtherEnd) {
    for (int i = 0; i < 12; ++i) {
        Make("user/Presets/" + std::to_string(i));
    }
    for (int i = 0; i < 12; ++i) {
        for (int j = 0; j < 12; ++j) {
            Link("user/Presets/" + std::to_string(j),
                 "user/Presets/" + std::to_string(i) + "/to" + std::to_string(j));
        }
    }
    const CPresetLists lists = Find(); // of the 12! ways only so many are gone
    EXPECT_EQ(lists.GetUserPresets().GetFolderCount(), 12);
}

TEST_F(PresetListsTest, DeeperFoldersAreLeftOut) {
    std::string path = "user/Presets";
    for (int depth = 1; depth <= CPresetsManager::kMaximumDepth + 2; ++depth) {
        path += "/d";
        MakePreset(path + "/" + std::to_string(depth) + ".preset");
    }
    const CPresetLists lists = Find();
    EXPECT_EQ(lists.GetFiles().GetCount(), CPresetsManager::kMaximumDepth);
    EXPECT_STREQ(lists.GetFiles().Get(0).GetName(), "1");
    // Each number stands before the folder below it.
    EXPECT_STREQ(lists.GetFiles().Get(CPresetsManager::kMaximumDepth - 1).GetName(), "16");
}

TEST_F(PresetListsTest, MissingAndUnreadableFoldersAreEmpty) {
    std::filesystem::remove_all(folder.Path("user"));
    EXPECT_EQ(Find().GetCount(), 0);
    folder.Write("user", "a file");
    EXPECT_EQ(Find().GetCount(), 0);
    std::filesystem::remove(folder.Path("user"));
    MakePreset("user/Presets/a.preset");
    MakePreset("user/Presets/closed/b.preset");
    std::filesystem::permissions(folder.Path("user/Presets/closed"), std::filesystem::perms(0));
    {
        const TestFiles::CWithoutRights anybody;
        EXPECT_EQ(Outline(Find().GetUserPresets()), "User Presets[a closed[]]");
    }
    std::filesystem::permissions(folder.Path("user/Presets/closed"), std::filesystem::perms(0755));
}

TEST_F(PresetListsTest, ThePresetsOfTheFilterComeFirst) {
    MakePreset("user/Presets/a.preset");
    legacyPresets.Add({"one", {}});
    legacyPresets.Add({"two", {}});
    const CPresetLists lists = Find();
    EXPECT_EQ(lists.GetCount(), 3);
    EXPECT_STREQ(lists.Find(0)->GetName(), "one");
    EXPECT_STREQ(lists.Find(1)->GetName(), "two");
    EXPECT_STREQ(lists.Find(2)->GetName(), "a");
    EXPECT_EQ(lists.GetNames().size(), 3U);
}

TEST_F(PresetListsTest, APresetOfTheFilterThatIsNotThereHasNoName) {
    legacyPresets.Add({"one", {}});
    EXPECT_STREQ(CAudioPluginLegacyPreset(legacyPresets, 0, manager).GetName(), "one");
    for (const int index : {-1, 1, 2147483647}) {
        const CAudioPluginLegacyPreset preset(legacyPresets, index, manager);
        EXPECT_STREQ(preset.GetName(), "");
        EXPECT_FALSE(preset.Apply());
    }
    EXPECT_STREQ(CAudioPluginLegacyPreset().GetName(), "");
    EXPECT_FALSE(CAudioPluginLegacyPreset().Apply());
    EXPECT_FALSE(CXMLPresetFile().Apply());
}

} // namespace
} // namespace Vorin::Audio::Plugin
