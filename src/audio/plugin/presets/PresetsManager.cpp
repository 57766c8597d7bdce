#include "audio/plugin/presets/PresetsManager.h"

#include "audio/plugin/presets/PresetLists.h"
#include "core/Lock.h"
#include "serialization/ItemSerialization.h"
#include "serialization/XmlDataObject.h"
#include "system/DataFolders.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <string_view>

#include <unistd.h>

namespace Vorin::Audio::Plugin {

namespace {

using Containers::CCharString;
using Core::CAutoLock;
using Serialization::CXmlDataObject;
using System::DataFolders;

constexpr char kFreshName[] = "Default Settings";
constexpr char kUnnamed[] = "Default";
constexpr char kNameKey[] = "progName";
constexpr char kPresetRoot[] = "Preset";

bool IsAbsolute(const char* path) { return path && *path == '/'; }

bool IsDirectlyIn(std::string_view folder, std::string_view path) {
    return !folder.empty() && path.substr(0, path.rfind('/')) == folder;
}

} // namespace

CPresetsManager::CPresetsManager(IPresetState& managedState,
                                 const DSP::ILegacyPresets& filterPresets,
                                 const CAudioPluginFilePathsBase& filePaths)
    : state(managedState), legacyPresets(filterPresets), paths(filePaths), programName(kFreshName) {
    CPresetsManager::RefreshPresets();
}

CPresetsManager::~CPresetsManager() = default;

const IPresets& CPresetsManager::GetLegacyPresets() const { return lists->GetLegacyPresets(); }
const IPresetFolder& CPresetsManager::GetFactoryPresets() const {
    return lists->GetFactoryPresets();
}
const IPresets& CPresetsManager::GetPresetFiles() const { return lists->GetFiles(); }
const IPresetFolder& CPresetsManager::GetUserPresets() const { return lists->GetUserPresets(); }

void CPresetsManager::RefreshPresets() {
    // The disk may be slow: whoever waits for the lock waits for an exchange of pointers alone.
    auto found = std::make_unique<CPresetLists>(legacyPresets, paths, *this);
    const CAutoLock held(presetLock);
    lists.swap(found);
}

CCharString CPresetsManager::GetCurrentPresetName() const {
    const CAutoLock held(presetLock);
    return programName;
}

std::vector<CCharString> CPresetsManager::GetPresetNames() const {
    const CAutoLock held(presetLock);
    return lists->GetNames();
}

int CPresetsManager::GetPresetIndex() const {
    const CAutoLock held(presetLock);
    return presetIndex;
}

void CPresetsManager::SetPresetIndex(int index) {
    const CAutoLock held(presetLock);
    presetIndex = index;
}

void CPresetsManager::SetName(const CCharString& name) {
    const CAutoLock held(presetLock);
    programName = name;
}

bool CPresetsManager::LoadPreviousPreset() { return ApplyCurrent(-1); }
bool CPresetsManager::LoadNextPreset() { return ApplyCurrent(1); }

bool CPresetsManager::ApplyCurrent(int step) {
    const IPreset* preset = nullptr;
    {
        const CAutoLock held(presetLock);
        const int total = lists->GetCount();
        const std::int64_t next = std::int64_t{presetIndex} + step;
        if (next >= total) {
            presetIndex = 0;
        } else if (next < 0) {
            presetIndex = std::max(total - 1, 0);
        } else {
            presetIndex = static_cast<int>(next);
        }
        preset = lists->Find(presetIndex);
    }
    return preset && preset->Apply();
}

bool CPresetsManager::ApplyLegacyPreset(int index) {
    if (index < 0 || index >= legacyPresets.GetCount()) {
        return false;
    }
    const CAutoLock held(state.GetStateLock());
    SetPresetIndex(index);
    SetName(legacyPresets.GetName(index));
    state.ApplyValues(legacyPresets.GetValues(index));
    presetChanged.Notify();
    return true;
}

bool CPresetsManager::SavePreset(const char* path) {
    if (!IsAbsolute(path)) {
        return false;
    }
    const CAutoLock held(state.GetStateLock());
    const CCharString nameBefore = GetCurrentPresetName();
    SetName(CXMLPresetFile::GetNameOf(path));
    const bool isSaved = WriteState(path);
    if (!isSaved) {
        SetName(nameBefore);
        return false;
    }
    RefreshPresets();
    presetChanged.Notify();
    return true;
}

bool CPresetsManager::WriteState(const char* path) const {
    CXmlDataObject document(kPresetRoot, Serialization::kXmlAttributes);
    if (!state.Serialize(document)) {
        return false;
    }
    const char* folder = paths.GetUserPresetsFolder();
    if (IsDirectlyIn(folder, path) && !DataFolders::Create(folder)) {
        return false;
    }
    return document.SaveFile(path);
}

bool CPresetsManager::LoadPreset(const char* path) {
    CXmlDataObject document(kPresetRoot, Serialization::kXmlAttributes);
    return IsAbsolute(path) && document.LoadFile(path) && state.DeSerialize(document);
}

bool CPresetsManager::WriteName(Serialization::IWriteDataStream& stream) const {
    return stream.WriteString(kNameKey, GetCurrentPresetName().Get());
}

void CPresetsManager::ReadName(const Serialization::IReadDataStream& stream) {
    CCharString name;
    if (ReadItem(stream, kNameKey, name)) {
        SetName(name);
    } else if (!stream.IsTolerant()) {
        SetName(kUnnamed);
    }
    presetChanged.Notify();
}

CCharString CPresetsManager::GetDefaultPresetPath() const {
    return DataFolders::Join(paths.GetUserPresetsFolder(), "Default.preset");
}

bool CPresetsManager::SaveAsDefaultPreset() { return SavePreset(GetDefaultPresetPath().Get()); }

bool CPresetsManager::LoadDefaultPreset() {
    RefreshPresets(); // another instance may have saved or deleted it
    if (const CXMLPresetFile* file = lists->GetDefaultPresetFile()) {
        file->Apply();
        return true;
    }
    const CAutoLock held(state.GetStateLock());
    state.ResetToDefaults();
    SetPresetIndex(-1);
    SetName(kFreshName);
    presetChanged.Notify();
    return true;
}

bool CPresetsManager::DeleteDefaultPreset() {
    const CCharString path = GetDefaultPresetPath();
    const bool isGone =
        path.IsEmpty() || unlink(path.Get()) == 0 || errno == ENOENT || errno == ENOTDIR;
    RefreshPresets();
    return isGone;
}

} // namespace Vorin::Audio::Plugin
