#pragma once

#include "audio/plugin/midi/MIDICCSettings.h"
#include "containers/CharString.h"

namespace Vorin::Audio::Plugin {

/// The settings that all instances of the plug-in share. What one instance changes the others see
/// when they read it next. [any]
class IPluginDefaultSettings {
public:
    /// The absolute path of the skin that instances without one of their own have.
    virtual Containers::CCharString GetSkinFile() const = 0;
    /// A path that is not absolute lies in the user's folder for skins; null or empty takes back
    /// the skin that came with the plug-in.
    virtual void SetSkinFile(const char* path) = 0;

    /// What MIDI settings of a new instance are, one per parameter.
    virtual IMIDICCSettings& GetInputCCSettings() = 0;
    virtual IMIDICCSettings& GetOutputCCSettings() = 0;

    /// In Hz.
    virtual double GetOutputRefreshRate() const = 0;
    /// False, with nothing changed, for what is no rate: it is above 0, and 1000 at most.
    virtual bool SetOutputRefreshRate(double hz) = 0;

    /// Writes the file of the settings, as a whole or not at all; its folder is made.
    virtual bool Save() = 0;

    /// Delivers change events of MIDI settings that could not be delivered at once.
    virtual void NotifyIfKept() = 0;

    virtual ~IPluginDefaultSettings() = default;
};

} // namespace Vorin::Audio::Plugin
