#pragma once

#include "audio/plugin/presets/AudioPluginLegacyPreset.h"
#include "audio/plugin/presets/XMLPresetFile.h"

#include <optional>

namespace Vorin::Audio::Plugin {

/// The presets of a plug-in as they were found at one moment; nothing changes later. The filter's
/// presets and the manager are borrowed.
class CPresetLists {
public:
    CPresetLists(const DSP::ILegacyPresets& filterPresets, const CAudioPluginFilePathsBase& paths,
                 IPresetsManager& manager);

    const IPresets& GetLegacyPresets() const { return legacyPresets; }
    const IPresetFolder& GetFactoryPresets() const { return factoryPresets; }
    const IPresetFolder& GetUserPresets() const { return userPresets; }
    const IPresets& GetFiles() const { return files; }

    /// Null when there is none.
    const CXMLPresetFile* GetDefaultPresetFile() const {
        return defaultPresetFile ? &*defaultPresetFile : nullptr;
    }

    int GetCount() const { return legacyPresets.GetCount() + files.GetCount(); }

    /// The preset of that number; null when there is none.
    const IPreset* Find(int index) const;

    const std::vector<Containers::CCharString>& GetNames() const { return presetNames; }

private:
    using CFolder = Containers::Folder<CXMLPresetFile, IPreset>;
    class CWalk;

    void AddFile(const char* path, CFolder& folder, IPresetsManager& manager);

    CAudioPluginLegacyPresets legacyPresets;
    CFolder factoryPresets{"Factory Presets"};
    CFolder userPresets{"User Presets"};
    CoreUtilities::TDynamicCollection<CXMLPresetFile, IPreset, IPresets> files;
    std::optional<CXMLPresetFile> defaultPresetFile;
    std::vector<Containers::CCharString> presetNames;
};

} // namespace Vorin::Audio::Plugin
