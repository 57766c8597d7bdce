#pragma once

#include "audio/plugin/presets/AudioPluginFilePaths.h"
#include "audio/plugin/presets/PluginDefaultSettings.h"
#include "containers/DynamicCollection.h"
#include "datamodel/ParamInfo.h"
#include "serialization/Serializable.h"
#include "system/CriticalSection.h"

#include <memory>

namespace Vorin::Audio::Plugin {

/// The shared settings and their file, "global.pref".
///
/// Each of the sections, skin, MIDI input, MIDI output and refresh rate, has a lock of its own.
/// What is missing in the file, or cannot be meant, stays as it was; the rest is read.
class CAudioPluginDefaultSettings : public virtual IPluginDefaultSettings,
                                    public virtual Serialization::ISerializable {
public:
    using IConstParamInfos = Containers::IConstVector<DataModel::Objects::IConstParamInfo>;

    static constexpr double kMaximumRefreshRate = 1000.0; // Hz

    /// Starts with the defaults: the skin that came with the plug-in, and that rate. The paths are
    /// borrowed.
    CAudioPluginDefaultSettings(const CAudioPluginFilePathsBase& filePaths,
                                double defaultRefreshRate);
    CAudioPluginDefaultSettings(const CAudioPluginDefaultSettings&) = delete;
    CAudioPluginDefaultSettings& operator=(const CAudioPluginDefaultSettings&) = delete;

    /// Makes the MIDI settings, of which there are none before, for parameters of which the infos
    /// are copied. Once, before anybody else has the settings.
    void SetParams(const IConstParamInfos& inputs, const IConstParamInfos& outputs);

    /// Reads the file. False when there is none, or it is no settings file, or a part of it is
    /// missing or damaged.
    bool Load();

    Containers::CCharString GetSkinFile() const override;
    void SetSkinFile(const char* path) override;
    IMIDICCSettings& GetInputCCSettings() override { return *inputCCSettings; }
    IMIDICCSettings& GetOutputCCSettings() override { return *outputCCSettings; }
    double GetOutputRefreshRate() const override;
    bool SetOutputRefreshRate(double hz) override;
    bool Save() override;
    void NotifyIfKept() override;

    bool Serialize(Serialization::IWriteDataStream& stream) const override;
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

private:
    using CParamInfos = CoreUtilities::TDynamicCollection<DataModel::Objects::CParamInfo,
                                                          DataModel::Objects::IConstParamInfo>;

    bool WriteSkinFile(Serialization::IWriteDataStream& stream) const;
    bool ReadSkinFile(const Serialization::IReadDataStream& stream);
    bool ReadRefreshRate(const Serialization::IReadDataStream& stream);

    const CAudioPluginFilePathsBase& paths;

    // Constant after SetParams.
    CParamInfos inputInfos;
    CParamInfos outputInfos;

    System::CCriticalSection saveLock; // an older state never replaces the file of a newer one

    mutable System::CCriticalSection skinLock;
    Containers::CCharString skinFile; // absolute

    // The settings themselves may be used without the lock.
    mutable System::CCriticalSection inputCCLock;
    std::unique_ptr<CInputMIDICCSettings> inputCCSettings;

    mutable System::CCriticalSection outputCCLock;
    std::unique_ptr<COutputMIDICCSettings> outputCCSettings;

    mutable System::CCriticalSection refreshRateLock;
    double outputRefreshRate;
};

} // namespace Vorin::Audio::Plugin
