#pragma once

#include "audio/dsp/ParamsValues.h"
#include "core/Lock.h"
#include "serialization/Serializable.h"

namespace Vorin::Audio::Plugin {

/// What a preset holds: the whole state of an instance of the plug-in, as its manager sees it.
///
/// Serialize and DeSerialize write and read all of it, the preset's name by the manager's WriteName
/// and ReadName. Whoever keeps no state writes nothing, which is a success. Missing values are no
/// failure of DeSerialize; a failure has changed nothing.
class IPresetState : public virtual Serialization::ISerializable {
public:
    /// Recursive. Held by whoever reads or writes the state as a whole, so that nobody sees half of
    /// it.
    virtual Core::ILock& GetStateLock() const = 0;

    /// Makes everything what it is in a fresh instance.
    virtual void ResetToDefaults() = 0;

    /// Sets the input values; those that `values` has none for go to their defaults.
    virtual void ApplyValues(const DSP::IConstParamsValues& values) = 0;
};

} // namespace Vorin::Audio::Plugin
