#include "audio/plugin/presets/XMLPresetFile.h"

#include "audio/plugin/presets/PresetsManager.h"

#include <string_view>

namespace Vorin::Audio::Plugin {

using Containers::CCharString;

bool CXMLPresetFile::Apply() const {
    if (!manager) {
        return false;
    }
    // Whoever hears of the load may refresh the lists, and this entry is gone.
    IPresetsManager& target = *manager;
    const CCharString file(path);
    const int indexBefore = target.GetPresetIndex();
    target.SetPresetIndex(index);
    if (target.LoadPreset(file.Get())) {
        return true;
    }
    target.SetPresetIndex(indexBefore);
    return false;
}

bool CXMLPresetFile::IsPreset(const char* fileName) {
    return fileName && std::string_view(fileName).ends_with(kExtension);
}

CCharString CXMLPresetFile::GetNameOf(const char* filePath) {
    std::string_view name(filePath ? filePath : "");
    name.remove_prefix(name.rfind('/') + 1); // npos + 1 is 0
    name = name.substr(0, name.rfind('.'));
    CCharString text;
    text.Append(name.data(), static_cast<int>(name.size()));
    return text;
}

} // namespace Vorin::Audio::Plugin
