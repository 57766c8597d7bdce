#pragma once

#include "audio/dsp/FilterPropertiesVariations.h"
#include "audio/plugin/InputObjects.h"

namespace Vorin::Audio::Plugin {

/// The input values of a filter at one end of a block: parameters of its own, and references to the
/// values of the other groups.
class CInputValues : public DSP::IConstFilterProperties {
public:
    const DSP::IConstParamsValues& GetInputParams() const override { return params; }
    const DSP::IConstStrings& GetInputStrings() const override { return shared.strings; }
    const DSP::IConstCurves& GetInputCurves() const override { return shared.curves; }
    const DSP::IConstSurfaces& GetInputSurfaces() const override { return shared.surfaces; }
    const DSP::IConstPropertyValues& GetInputProperties() const override {
        return shared.properties;
    }
    int GetIOConfiguration() const override { return -1; }

    DSP::CDynamicParamsValues params;
    CSharedInputs shared;
};

/// The input values of a filter across one block: what it had at the start, and what it has at the
/// end. The audio thread uses it, or whoever holds the processing off.
///
/// What the filter is given by reference lives until the ramp that replaces it is finished.
class CInputParamsRamp : public DSP::IConstInputRamp {
public:
    /// Both ends at the filter's defaults, and at what `objects` hold. Allocates.
    void Init(const DSP::IFilter& filter, const CInputObjects& objects) {
        const auto& infos = filter.GetInputParamInfos();
        end.params.SetCount(infos.GetCount());
        for (int i = 0; i < infos.GetCount(); ++i) {
            end.params.SetValue(i, infos.Get(i).GetDefault());
        }
        end.shared = objects.GetItems();
        start.params = end.params;
        start.shared = end.shared;
    }

    /// The values that the filter has, or will have at the block's end.
    const DSP::IConstParamsValues& GetParams() const { return end.params; }
    void SetParam(int index, double value) { end.params.SetValue(index, value); }
    CSharedInputs& GetShared() { return end.shared; }

    /// Lets the end become the start of the next block. [audio]
    void Finish() {
        for (int i = 0; i < end.params.GetCount(); ++i) {
            start.params.SetValue(i, end.params.GetValue(i));
        }
        FinishGroup(start.shared.strings.items, end.shared.strings.items);
        FinishGroup(start.shared.curves.items, end.shared.curves.items);
        FinishGroup(start.shared.surfaces.items, end.shared.surfaces.items);
        FinishGroup(start.shared.properties.items, end.shared.properties.items);
    }

    const DSP::IConstFilterPropertiesVariations& GetAtStart() const override { return atStart; }
    const DSP::IConstFilterPropertiesVariations& GetAtEnd() const override { return atEnd; }

private:
    /// What differs is what changed; its references alone are counted.
    template <class Items>
    static void FinishGroup(Items& startItems, const Items& endItems) {
        for (std::size_t i = 0; i < endItems.size(); ++i) {
            if (startItems[i].Get() != endItems[i].Get()) {
                startItems[i] = endItems[i];
            }
        }
    }

    CInputValues start;
    CInputValues end;
    DSP::CFilterPropertiesVariations atStart{start};
    DSP::CFilterPropertiesVariations atEnd{end};
};

} // namespace Vorin::Audio::Plugin
