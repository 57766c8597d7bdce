#pragma once

#include "Outcome.h"

#include "audio/plugin/AudioPluginInternals.h"

#include <memory>
#include <string>

namespace Workbench {

/// An instance of the plug-in that has a preset file, or the state that a host keeps, as its state.
/// The settings and presets of the machine play no part.
class CPresetFile {
public:
    CPresetFile();
    ~CPresetFile();

    /// Loads the file as the plug-in would: all of it, or the reason why not.
    COutcome Load(const std::string& path);

    /// What the file says, 0 where it says nothing.
    int GetVersion() const { return version; }
    std::string GetName();

    const Vorin::Audio::Plugin::IHostParams& GetInputs() const { return inputs; }
    Vorin::Audio::Plugin::CMIDIController& GetMIDI() { return internals.GetMIDIController(); }

private:
    const std::unique_ptr<Vorin::Audio::Plugin::IStaticSettings> settings;
    Vorin::Audio::Plugin::CAudioPluginInternals internals;
    Vorin::Audio::Plugin::CHostParams inputs;
    Vorin::Audio::Plugin::CHostParams outputs;
    int version = 0;
};

} // namespace Workbench
