#include "audio/plugin/presets/PresetLists.h"

#include "system/DataFolders.h"
#include "system/DirectoryWalker.h"

#include <algorithm>
#include <string>

#include <sys/stat.h>

namespace Vorin::Audio::Plugin {

using Containers::CCharString;
using System::DataFolders;

/// Walks one folder and those in it, by name.
class CPresetLists::CWalk {
public:
    CWalk(CPresetLists& filledLists, IPresetsManager& presetsManager)
        : lists(filledLists), manager(presetsManager) {}

    void Run(const char* path, CFolder& folder) {
        struct stat status {};
        if (stat(path, &status) == 0 && S_ISDIR(status.st_mode)) {
            Walk(path, status, folder);
        }
    }

private:
    /// A folder is known by this, whatever links lead to it.
    using Identity = std::pair<dev_t, ino_t>;

    void Walk(const char* path, const struct stat& status, CFolder& folder) {
        above.emplace_back(status.st_dev, status.st_ino);
        for (const std::string& name : ReadNames(path)) {
            Take(path, name.c_str(), folder);
        }
        above.pop_back();
    }

    std::vector<std::string> ReadNames(const char* path) {
        std::vector<std::string> names;
        for (System::CDirectoryWalker walker(path); !walker.IsAtEnd(); walker.Next()) {
            const std::string name = walker.GetValue();
            if (name == "." || name == "..") {
                continue;
            }
            if (entriesLeft == 0) {
                break;
            }
            --entriesLeft;
            names.push_back(name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    void Take(const char* parent, const char* name, CFolder& folder) {
        const CCharString path = DataFolders::Join(parent, name);
        struct stat status {};
        if (stat(path.Get(), &status) != 0) {
            return;
        }
        if (S_ISDIR(status.st_mode)) {
            const Identity identity(status.st_dev, status.st_ino);
            const bool isLoop = std::find(above.begin(), above.end(), identity) != above.end();
            if (!isLoop && above.size() <= std::size_t{CPresetsManager::kMaximumDepth}) {
                Walk(path.Get(), status, folder.AddFolder(name));
            }
        } else if (S_ISREG(status.st_mode) && CXMLPresetFile::IsPreset(name)) {
            lists.AddFile(path.Get(), folder, manager);
        }
    }

    CPresetLists& lists;
    IPresetsManager& manager;
    std::vector<Identity> above; // the folders around the place of the walk
    int entriesLeft = CPresetsManager::kMaximumEntries;
};

CPresetLists::CPresetLists(const DSP::ILegacyPresets& filterPresets,
                           const CAudioPluginFilePathsBase& paths, IPresetsManager& manager) {
    for (int i = 0; i < filterPresets.GetCount(); ++i) {
        legacyPresets.Add(CAudioPluginLegacyPreset(filterPresets, i, manager));
        presetNames.emplace_back(filterPresets.GetName(i));
    }
    CWalk(*this, manager).Run(paths.GetFactoryPresetsFolder(), factoryPresets);
    CWalk(*this, manager).Run(paths.GetUserPresetsFolder(), userPresets);
}

void CPresetLists::AddFile(const char* path, CFolder& folder, IPresetsManager& manager) {
    const CXMLPresetFile file(path, GetCount(), manager);
    if (file.GetName() != std::string_view("Default")) {
        files.Add(file);
        folder.AddItem(file);
        presetNames.emplace_back(file.GetName());
    } else if (&folder == &userPresets) {
        defaultPresetFile.emplace(path, -1, manager);
    }
}

const IPreset* CPresetLists::Find(int index) const {
    if (index < 0 || index >= GetCount()) {
        return nullptr;
    }
    const int legacyCount = legacyPresets.GetCount();
    return index < legacyCount ? &legacyPresets.Get(index) : &files.Get(index - legacyCount);
}

} // namespace Vorin::Audio::Plugin
