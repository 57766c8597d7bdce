#pragma once

#include "audio/dsp/LegacyPresets.h"
#include "audio/plugin/presets/Preset.h"
#include "audio/plugin/presets/PresetsManager.h"
#include "containers/DynamicCollection.h"

namespace Vorin::Audio::Plugin {

/// A preset that the filter brings along, in a list. Both arguments are borrowed. Without a name,
/// and not to be applied, when the filter has no preset `index`.
class CAudioPluginLegacyPreset : public virtual IPreset {
public:
    CAudioPluginLegacyPreset() = default;
    CAudioPluginLegacyPreset(const DSP::ILegacyPresets& filterPresets, int presetIndex,
                             IPresetsManager& presetsManager)
        : presets(&filterPresets), index(presetIndex), manager(&presetsManager) {}

    const char* GetName() const override {
        return presets && 0 <= index && index < presets->GetCount() ? presets->GetName(index) : "";
    }

    bool Apply() const override { return manager && manager->ApplyLegacyPreset(index); }

private:
    const DSP::ILegacyPresets* presets = nullptr;
    int index = -1;
    IPresetsManager* manager = nullptr;
};

class CAudioPluginLegacyPresets
    : public CoreUtilities::TDynamicCollection<CAudioPluginLegacyPreset, IPreset, IPresets> {};

} // namespace Vorin::Audio::Plugin
