#pragma once

#include "audio/plugin/presets/PackageInfo.h"
#include "containers/CharString.h"

namespace Vorin::Audio::Plugin {

/// Where the files of the plug-in are: those that were installed with it, and those of its user.
/// Constant after construction. [any]
///
/// All paths are absolute; one is empty when the platform gave no folder for it. Nothing need be
/// there.
class CAudioPluginFilePathsBase {
public:
    CAudioPluginFilePathsBase(const char* shippedFolder, const char* userFolder);
    virtual ~CAudioPluginFilePathsBase() = default;

    // Installed with the plug-in.
    const char* GetModelFile() const { return modelFile.Get(); }
    const char* GetSharedModelFile() const { return sharedModelFile.Get(); }
    const char* GetManualFile() const { return manualFile.Get(); }
    const char* GetAboutFile() const { return aboutFile.Get(); }
    const char* GetLegalFolder() const { return legalFolder.Get(); }
    const char* GetDefaultSkinFile() const { return defaultSkinFile.Get(); }
    const char* GetFactoryPresetsFolder() const { return factoryPresetsFolder.Get(); }

    // The user's own.
    const char* GetUserDataFolder() const { return userDataFolder.Get(); }
    const char* GetUserSkinsFolder() const { return userSkinsFolder.Get(); }
    const char* GetUserPresetsFolder() const { return userPresetsFolder.Get(); }
    const char* GetGlobalSettingsFile() const { return globalSettingsFile.Get(); }

private:
    Containers::CCharString modelFile;
    Containers::CCharString sharedModelFile;
    Containers::CCharString manualFile;
    Containers::CCharString aboutFile;
    Containers::CCharString legalFolder;
    Containers::CCharString defaultSkinFile;
    Containers::CCharString factoryPresetsFolder;
    Containers::CCharString userDataFolder;
    Containers::CCharString userSkinsFolder;
    Containers::CCharString userPresetsFolder;
    Containers::CCharString globalSettingsFile;
};

/// The paths for a library: the module whose name and place count is the one that this code was
/// linked into, not the host's program.
class CAudioPluginDllFilePaths : public CAudioPluginFilePathsBase {
public:
    explicit CAudioPluginDllFilePaths(const IPackageInfo& package);

private:
    CAudioPluginDllFilePaths(const char* moduleFile, const IPackageInfo& package);
};

} // namespace Vorin::Audio::Plugin
