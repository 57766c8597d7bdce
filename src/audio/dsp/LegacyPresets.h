#pragma once

#include "audio/dsp/ParamsValues.h"
#include "containers/CharString.h"

#include <vector>

namespace Vorin::Audio::DSP {

/// Presets that a filter brings along in its code: a name and the values of the input parameters.
class ILegacyPresets : public virtual Containers::IConstCount {
public:
    virtual const char* GetName(int index) const = 0;
    virtual const IConstParamsValues& GetValues(int index) const = 0;
};

struct CLegacyPreset {
    Containers::CCharString name;
    CDynamicParamsValues values;
};

class CLegacyPresets : public ILegacyPresets {
public:
    void Add(const CLegacyPreset& preset) { presets.push_back(preset); }

    int GetCount() const override { return static_cast<int>(presets.size()); }
    const char* GetName(int index) const override { return At(index).name.Get(); }
    const IConstParamsValues& GetValues(int index) const override { return At(index).values; }

private:
    const CLegacyPreset& At(int index) const { return presets[static_cast<std::size_t>(index)]; }

    std::vector<CLegacyPreset> presets;
};

} // namespace Vorin::Audio::DSP
