#pragma once

#include "audio/dsp/Filter.h"

/// What the oscilloscope declares: constant tables, shared by all its instances. [any]
namespace PluginsFilters::OscilloscopeInfos {

/// "View Mode", "Sync", "Delay", "Trigger Value", "Trigger Direction", in this order.
const Vorin::Audio::DSP::IConstParamInfos& GetInputParams();

/// "Waveform", "Histogram".
const Vorin::Audio::DSP::IConstCurveInfos& GetOutputCurves();

/// One input "In", no output.
const Vorin::Audio::DSP::IProcessInfo& GetIOConfigurations();

const Vorin::Audio::DSP::IConstFilterProductInfo& GetProduct();

} // namespace PluginsFilters::OscilloscopeInfos
