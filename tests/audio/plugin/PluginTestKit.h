#pragma once

#include "audio/dsp/AudioStreams.h"
#include "audio/plugin/BlockProcessor.h"
#include "audio/plugin/FilterHost.h"
#include "audio/plugin/HostParam.h"
#include "core/Command.h"
#include "filters/OndaraFilter.h"

#include <atomic>
#include <memory>
#include <utility>

namespace Vorin::Audio::Plugin {

/// Counts the notifications that reach it, on any thread.
class CCounter {
public:
    void Count() { ++count; }

    Core::TCommand<CCounter> command{this, &CCounter::Count};
    std::atomic<int> count{0};
};

/// The product's plug-in as a host adapter holds it.
class CTestPlugin {
public:
    enum EParam {
        kBypass,
        kStereoMode,
        kViewMode,
        kSync,
        kDelay,
        kTriggerValue,
        kTriggerDirection,
        kParamsCount
    };

    CTestPlugin() : CTestPlugin(PluginsFilters::CreateOndaraFilter()) {}
    explicit CTestPlugin(std::unique_ptr<DSP::IFilter> filter)
        : internals({.filter = std::move(filter)}) {
        internals.Connect(values);
    }

    [[nodiscard]] bool Configure(double rate, int blockSize) {
        return internals.Configure({.blockSize = blockSize}, rate);
    }

    void Set(int param, double value) { values.Get(param).SetValue(value); }
    double Get(int param) const { return values.Get(param).GetValue(); }

    /// A block of two channels, with bypass as its parameter says.
    void Process(float* left, float* right, int frames, bool silent = false) {
        DSP::CAudioStream streams[] = {DSP::CAudioStream(left, frames),
                                       DSP::CAudioStream(right, frames)};
        DSP::CAudioStreams inputs(streams, 2);
        DSP::CAudioStreams outputs(nullptr, 0);
        processor.Process({inputs, outputs, frames, Get(kBypass) > 0.5, silent});
    }

    CFilterHost internals;
    CHostParams values{internals.GetInputInfos()};
    CBlockProcessor processor{internals};
};

} // namespace Vorin::Audio::Plugin
