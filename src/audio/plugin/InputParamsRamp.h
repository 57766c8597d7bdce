#pragma once

#include "audio/dsp/FilterPropertiesVariations.h"

namespace Vorin::Audio::Plugin {

/// The input values of a filter across one block: what it had at the start, and what it has at the
/// end. The audio thread uses it, or whoever holds the processing off.
class CInputParamsRamp : public DSP::IConstInputRamp {
public:
    /// Both ends at the filter's defaults. Allocates.
    void Init(const DSP::IFilter& filter) {
        start.Fill(filter);
        end.Fill(filter);
    }

    /// The values that the filter has, or will have at the block's end.
    const DSP::IConstParamsValues& GetParams() const { return end.GetInputParams(); }
    void SetParam(int index, double value) { end.GetInputParams().SetValue(index, value); }

    /// Lets the end become the start of the next block. [audio]
    void Finish() {
        for (int i = 0; i < end.GetInputParams().GetCount(); ++i) {
            start.GetInputParams().SetValue(i, GetParams().GetValue(i));
        }
    }

    const DSP::IConstFilterPropertiesVariations& GetAtStart() const override { return atStart; }
    const DSP::IConstFilterPropertiesVariations& GetAtEnd() const override { return atEnd; }

private:
    DSP::CFilterProperties start;
    DSP::CFilterProperties end;
    DSP::CFilterPropertiesVariations atStart{start};
    DSP::CFilterPropertiesVariations atEnd{end};
};

} // namespace Vorin::Audio::Plugin
