#pragma once

#include "audio/dsp/LegacyPresets.h"
#include "audio/plugin/presets/AudioPluginFilePaths.h"
#include "audio/plugin/presets/Preset.h"
#include "audio/plugin/presets/PresetState.h"
#include "containers/CharString.h"
#include "containers/Folder.h"
#include "containers/Vector.h"
#include "core/EventProvider.h"
#include "serialization/DataStream.h"
#include "system/CriticalSection.h"
#include "system/MTEventProvider.h"

#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

class CPresetLists;

using IPresets = Containers::IConstVector<IPreset>;
using IPresetFolder = Containers::IFolder<IPreset>;

/// Lists the presets and moves between them.
///
/// The presets are numbered: first those that the filter brings along, then all files in the order
/// of the flat list. A path is absolute, or refused. What is false has changed nothing but, where
/// that is said, the current place. [gui]
class IPresetsManager {
public:
    /// The lists live until the next RefreshPresets, which saving and deleting do too.
    virtual const IPresets& GetLegacyPresets() const = 0;
    virtual const IPresetFolder& GetFactoryPresets() const = 0;
    virtual const IPresets& GetPresetFiles() const = 0;
    virtual const IPresetFolder& GetUserPresets() const = 0;

    /// Reads the lists anew from the disk. The current place stays a number, even when another
    /// file, or none, has it now.
    virtual void RefreshPresets() = 0;

    /// [any]
    virtual Containers::CCharString GetCurrentPresetName() const = 0;

    /// Go round at the ends. What cannot be loaded is passed: false, but the place has moved, so
    /// that the next call comes to its neighbour. False too when there are no presets.
    virtual bool LoadPreviousPreset() = 0;
    virtual bool LoadNextPreset() = 0;

    /// Fires when there is another name, or the same one again, under the lock of the state.
    virtual Core::IEventProvider& GetPresetChangedEvent() = 0;

    /// Writes the state, named for the file. A file that is there is replaced as a whole or not at
    /// all. Of the folders only the user's own one for presets is made.
    virtual bool SavePreset(const char* path) = 0;

    /// Reads the state; the current place stays.
    virtual bool LoadPreset(const char* path) = 0;

    virtual bool SaveAsDefaultPreset() = 0;

    /// Without a default preset everything goes to its defaults. Always true, even when the default
    /// preset cannot be read, which leaves the state as it was.
    virtual bool LoadDefaultPreset() = 0;

    /// False when there is one that cannot be deleted.
    virtual bool DeleteDefaultPreset() = 0;

    /// The place of the preset loaded last; -1 in a fresh instance. Setting it loads nothing.
    virtual int GetPresetIndex() const = 0;
    virtual void SetPresetIndex(int index) = 0;

    /// Applies one of the presets that the filter brings along; false when there is no such.
    virtual bool ApplyLegacyPreset(int index) = 0;

    virtual ~IPresetsManager() = default;
};

/// The presets of one instance of the plug-in: the filter's, and the files in two folders and the
/// folders in these.
///
/// A file whose name ends in ".preset" is a preset, named by the rest. Entries are sorted by the
/// bytes of their names. "Default" is not listed: the file of that name in the user's folder itself
/// is the default preset. A folder that leads back into itself is left out; folders more than
/// `kMaximumDepth` deep, and what comes behind `kMaximumEntries` entries, are too.
///
/// State, filter presets and paths are borrowed.
class CPresetsManager : public virtual IPresetsManager {
public:
    static constexpr int kMaximumDepth = 16;
    static constexpr int kMaximumEntries = 20'000; // looked at below one of the two folders

    CPresetsManager(IPresetState& managedState, const DSP::ILegacyPresets& filterPresets,
                    const CAudioPluginFilePathsBase& filePaths);
    CPresetsManager(const CPresetsManager&) = delete;
    CPresetsManager& operator=(const CPresetsManager&) = delete;
    ~CPresetsManager() override;

    const IPresets& GetLegacyPresets() const override;
    const IPresetFolder& GetFactoryPresets() const override;
    const IPresets& GetPresetFiles() const override;
    const IPresetFolder& GetUserPresets() const override;
    void RefreshPresets() override;
    Containers::CCharString GetCurrentPresetName() const override;
    bool LoadPreviousPreset() override;
    bool LoadNextPreset() override;
    Core::IEventProvider& GetPresetChangedEvent() override { return presetChanged; }
    bool SavePreset(const char* path) override;
    bool LoadPreset(const char* path) override;
    bool SaveAsDefaultPreset() override;
    bool LoadDefaultPreset() override;
    bool DeleteDefaultPreset() override;
    int GetPresetIndex() const override;
    void SetPresetIndex(int index) override;
    bool ApplyLegacyPreset(int index) override;

    /// Of all presets, in the order of their numbers.
    std::vector<Containers::CCharString> GetPresetNames() const;

    /// The current name as "progName", for the state to call while it is written or read. Read: a
    /// missing one becomes "Default", but on a tolerant stream stays what it was. Fires.
    bool WriteName(Serialization::IWriteDataStream& stream) const;
    void ReadName(const Serialization::IReadDataStream& stream);

private:
    bool ApplyCurrent(int step);
    bool WriteState(const char* path) const;
    void SetName(const Containers::CCharString& name);
    Containers::CCharString GetDefaultPresetPath() const;

    IPresetState& state;
    const DSP::ILegacyPresets& legacyPresets;
    const CAudioPluginFilePathsBase& paths;
    System::CMTEventProvider presetChanged;

    // Guarded by presetLock.
    mutable System::CCriticalSection presetLock;
    Containers::CCharString programName;
    int presetIndex = -1;
    std::unique_ptr<CPresetLists> lists;
};

} // namespace Vorin::Audio::Plugin
