#pragma once

#include "audio/plugin/presets/Preset.h"
#include "containers/CharString.h"

namespace Vorin::Audio::Plugin {

class IPresetsManager;

/// A preset file in a list. The manager is borrowed.
class CXMLPresetFile : public virtual IPreset {
public:
    static constexpr char kExtension[] = ".preset";

    CXMLPresetFile() = default;
    CXMLPresetFile(const char* filePath, int presetIndex, IPresetsManager& presetsManager)
        : path(filePath), name(GetNameOf(filePath)), index(presetIndex), manager(&presetsManager) {}

    const char* GetName() const override { return name.Get(); }
    bool Apply() const override;

    const char* GetPath() const { return path.Get(); }
    int GetIndex() const { return index; }

    /// Whether a file of that name counts as a preset.
    static bool IsPreset(const char* fileName);

    /// What a preset in that file is called: the file's name without the extension.
    static Containers::CCharString GetNameOf(const char* filePath);

private:
    Containers::CCharString path;
    Containers::CCharString name;
    int index = -1;
    IPresetsManager* manager = nullptr;
};

} // namespace Vorin::Audio::Plugin
