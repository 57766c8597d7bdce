#include "filters/OndaraFilter.h"

namespace PluginsFilters {

std::unique_ptr<Vorin::Audio::DSP::IFilter> CreateOndaraFilter() {
    constexpr double creationRate = 44100.0;
    auto filter = std::make_unique<COndaraFilter>();
    filter->Init({.applyDefaults = true, .blockSize = -1, .mode = 2, .configuration = -1},
                 creationRate);
    return filter;
}

} // namespace PluginsFilters
