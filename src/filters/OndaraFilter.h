#pragma once

#include "audio/dsp/MidSideFromStereoFilter.h"
#include "audio/dsp/StereoFromMonoFilter.h"
#include "filters/Oscilloscope.h"

#include <memory>

namespace PluginsFilters {

/// The product's filter tree: two oscilloscopes, over Left and Right or over Mid and Side.
using COndaraFilter = Vorin::Audio::DSP::TMSLRFromStereoFilter<
    Vorin::Audio::DSP::TStereoFromMonoFilter<COscilloscope>>;

/// A new tree that has been through Init with its defaults.
std::unique_ptr<Vorin::Audio::DSP::IFilter> CreateOndaraFilter();

} // namespace PluginsFilters
