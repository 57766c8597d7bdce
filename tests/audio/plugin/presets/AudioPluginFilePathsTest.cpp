#include "audio/plugin/presets/AudioPluginFilePaths.h"

#include "files/Obstacles.h"
#include "files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace Vorin::Audio::Plugin {
namespace {

TEST(AudioPluginFilePathsTest, EveryFileHasItsPlaceInOneOfTheTwoFolders) {
    const CAudioPluginFilePathsBase paths("/s h", "/u");
    EXPECT_STREQ(paths.GetModelFile(), "/s h/Model/model.model");
    EXPECT_STREQ(paths.GetSharedModelFile(), "/s h/Model/shared.model");
    EXPECT_STREQ(paths.GetManualFile(), "/s h/manual.pdf");
    EXPECT_STREQ(paths.GetAboutFile(), "/s h/About/about.xml");
    EXPECT_STREQ(paths.GetLegalFolder(), "/s h/Legal");
    EXPECT_STREQ(paths.GetDefaultSkinFile(), "/s h/Skins/default.xml");
    EXPECT_STREQ(paths.GetFactoryPresetsFolder(), "/s h/Presets");
    EXPECT_STREQ(paths.GetUserDataFolder(), "/u");
    EXPECT_STREQ(paths.GetUserSkinsFolder(), "/u/Skins");
    EXPECT_STREQ(paths.GetUserPresetsFolder(), "/u/Presets");
    EXPECT_STREQ(paths.GetGlobalSettingsFile(), "/u/global.pref");
}

TEST(AudioPluginFilePathsTest, WhatIsInNoFolderHasNoPath) {
    const CAudioPluginFilePathsBase paths("", nullptr);
    for (const char* path :
         {paths.GetModelFile(), paths.GetManualFile(), paths.GetDefaultSkinFile(),
          paths.GetFactoryPresetsFolder(), paths.GetUserDataFolder(), paths.GetUserSkinsFolder(),
          paths.GetUserPresetsFolder(), paths.GetGlobalSettingsFile()}) {
        EXPECT_STREQ(path, "");
    }
}

TEST(AudioPluginFilePathsTest, OfALibraryAreNamedForTheModuleThatHoldsTheCode) {
    const TestFiles::CTemporaryFolder folder;
    const TestFiles::CEnvironment dataHome("XDG_DATA_HOME", folder.GetPath());
    const TestFiles::CEnvironment dataDirs("XDG_DATA_DIRS", folder.Path("system"));
    const CAudioPluginDllFilePaths paths(CPackageInfo("Halvane", "Ondara"));
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    const std::string name = program.stem().string() + " data";
    EXPECT_EQ(paths.GetUserDataFolder(), folder.Path("Halvane/" + name));
    EXPECT_EQ(paths.GetManualFile(), (program.parent_path() / name / "manual.pdf").string());

    std::filesystem::create_directories(folder.Path("system/Halvane/" + name));
    const CAudioPluginDllFilePaths installed(CPackageInfo("Halvane", "Ondara"));
    EXPECT_EQ(installed.GetManualFile(), folder.Path("system/Halvane/" + name + "/manual.pdf"));
}

TEST(PackageInfoTest, SaysWhoseProductItIs) {
    const CPackageInfo package("Halvane", "Ondara");
    EXPECT_STREQ(package.GetVendor(), "Halvane");
    EXPECT_STREQ(package.GetProduct(), "Ondara");
    EXPECT_STREQ(package.GetSubPath(), "");
    EXPECT_STREQ(CPackageInfo(nullptr, "", "sub").GetVendor(), "");
    EXPECT_STREQ(CPackageInfo(nullptr, "", "sub").GetSubPath(), "sub");
}

} // namespace
} // namespace Vorin::Audio::Plugin
