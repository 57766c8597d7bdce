#pragma once

namespace Vorin::Audio::Plugin {

/// An entry of a list of presets. It belongs to the list, and lives until the list is refreshed.
class IPreset {
public:
    /// Never null.
    virtual const char* GetName() const = 0;

    /// Makes it the state of the plug-in, and its place in the list the current one. False when it
    /// cannot be: state, name and place are as they were. The lists may be refreshed meanwhile.
    virtual bool Apply() const = 0;

    virtual ~IPreset() = default;
};

} // namespace Vorin::Audio::Plugin
