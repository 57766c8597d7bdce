#pragma once

#include "audio/plugin/HostParam.h"
#include "vst/interface/AudioEffect.h"

namespace VorinExt::VSTPlugin {

/// A parameter of the plug-in as the host numbers it: what we write tells the host, what the host
/// writes never calls back into it. The value is in plain units; the host has it from 0 to 1.
/// [any, audio]
class CVSTParamAdapter : public Vorin::Audio::Plugin::CHostParam {
public:
    /// The effect is borrowed. The adapter `index` of a collection whose first one has the number
    /// `firstHostIndex` with the host.
    CVSTParamAdapter(const Vorin::DataModel::Objects::IConstParamInfo& source,
                     AudioEffectX& hostedEffect, int firstHostIndex, int index);

    /// From 0 to 1 by the info's position mapper; 0 for an empty range.
    float GetNormalised() const;

    /// Takes a value from the host, from 0 to 1; NaN and what the value is already are ignored.
    void TakeNormalised(float normalised);

    /// Tells the host: as automation while the parameter is held, else as a plain change.
    void SetValue(double newValue) override;

protected:
    /// Opens and closes the host's gesture.
    void OnCaptured() override { effect.beginEdit(hostIndex); }
    void OnReleased() override { effect.endEdit(hostIndex); }

private:
    AudioEffectX& effect;
    const int hostIndex;
};

/// The parameters of one direction.
using CVSTParamsAdapter = Vorin::Audio::Plugin::THostParams<CVSTParamAdapter>;

} // namespace VorinExt::VSTPlugin
