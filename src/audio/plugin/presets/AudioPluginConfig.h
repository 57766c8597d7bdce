#pragma once

#include "audio/plugin/presets/AudioPluginDefaultSettings.h"
#include "core/Lock.h"

namespace Vorin::Audio::Plugin {

/// What all instances of the plug-in in a process share: the global settings, and where the files
/// are. It outlives the instances. [any]
class IStaticSettings {
public:
    /// The first call makes the settings for the parameters and reads their file; further ones do
    /// nothing. When it returns, whoever made the first one, the settings are ready.
    virtual void Init(const CAudioPluginDefaultSettings::IConstParamInfos& inputInfos,
                      const CAudioPluginDefaultSettings::IConstParamInfos& outputInfos) = 0;

    /// After Init.
    virtual IPluginDefaultSettings& GetSettings() = 0;
    virtual const CAudioPluginFilePathsBase& GetPaths() const = 0;
    virtual ~IStaticSettings() = default;
};

/// The paths are a `P`, made from whose package it is.
template <class P>
class TAudioPluginConfig : public virtual IStaticSettings {
public:
    static constexpr double kDefaultRefreshRate = 50.0; // Hz

    explicit TAudioPluginConfig(const IPackageInfo& package,
                                double defaultRefreshRate = kDefaultRefreshRate)
        : paths(package), settings(paths, defaultRefreshRate) {}
    TAudioPluginConfig(const TAudioPluginConfig&) = delete;
    TAudioPluginConfig& operator=(const TAudioPluginConfig&) = delete;

    void Init(const CAudioPluginDefaultSettings::IConstParamInfos& inputInfos,
              const CAudioPluginDefaultSettings::IConstParamInfos& outputInfos) override {
        const Core::CAutoLock held(initLock);
        if (!isInitialised) {
            isInitialised = true;
            settings.SetParams(inputInfos, outputInfos);
            static_cast<void>(settings.Load()); // what cannot be read has its default
        }
    }

    IPluginDefaultSettings& GetSettings() override { return settings; }
    const CAudioPluginFilePathsBase& GetPaths() const override { return paths; }

private:
    const P paths;
    CAudioPluginDefaultSettings settings;
    System::CCriticalSection initLock;
    bool isInitialised = false;
};

} // namespace Vorin::Audio::Plugin
