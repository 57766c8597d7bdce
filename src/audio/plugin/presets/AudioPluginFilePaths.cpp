#include "audio/plugin/presets/AudioPluginFilePaths.h"

#include "system/DataFolders.h"

namespace Vorin::Audio::Plugin {

namespace {

using Containers::CCharString;
using System::DataFolders;

constexpr char kAnchor = 0; // its address lies in the module that this code was linked into

CCharString Join(const char* folder, const char* first, const char* second) {
    return DataFolders::Join(DataFolders::Join(folder, first).Get(), second);
}

} // namespace

CAudioPluginFilePathsBase::CAudioPluginFilePathsBase(const char* shippedFolder,
                                                     const char* userFolder)
    : modelFile(Join(shippedFolder, "Model", "model.model")),
      sharedModelFile(Join(shippedFolder, "Model", "shared.model")),
      manualFile(DataFolders::Join(shippedFolder, "manual.pdf")),
      aboutFile(Join(shippedFolder, "About", "about.xml")),
      legalFolder(DataFolders::Join(shippedFolder, "Legal")),
      defaultSkinFile(Join(shippedFolder, "Skins", "default.xml")),
      factoryPresetsFolder(DataFolders::Join(shippedFolder, "Presets")), userDataFolder(userFolder),
      userSkinsFolder(DataFolders::Join(userFolder, "Skins")),
      userPresetsFolder(DataFolders::Join(userFolder, "Presets")),
      globalSettingsFile(DataFolders::Join(userFolder, "global.pref")) {}

CAudioPluginDllFilePaths::CAudioPluginDllFilePaths(const IPackageInfo& package)
    : CAudioPluginDllFilePaths(DataFolders::GetModuleFile(&kAnchor).Get(), package) {}

CAudioPluginDllFilePaths::CAudioPluginDllFilePaths(const char* moduleFile,
                                                   const IPackageInfo& package)
    : CAudioPluginFilePathsBase(
          DataFolders::GetShippedFolder(moduleFile, package.GetVendor()).Get(),
          DataFolders::GetUserFolder(moduleFile, package.GetVendor()).Get()) {}

} // namespace Vorin::Audio::Plugin
