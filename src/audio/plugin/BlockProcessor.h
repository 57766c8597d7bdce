#pragma once

#include "audio/plugin/AudioPluginInternals.h"

namespace Vorin::Audio::Plugin {

/// Runs blocks through the internals in the order that each of them needs: what every host adapter
/// does, whatever its host. The audio thread uses it.
class CBlockProcessor {
public:
    /// The internals are borrowed, and configured.
    explicit CBlockProcessor(CAudioPluginInternals& plugin) : internals(plugin) {}

    struct CBlock {
        DSP::IAudioStreams& inputs;
        DSP::IAudioStreams& outputs;
        int frames;
        bool bypass;
        /// The adapter has found the inputs silent, so that the filter may take its cheap path.
        bool silent;
    };

    /// [audio]
    void Process(const CBlock& block);

    /// Refreshes the outputs when they are due, and publishes what could not be published before
    /// because a reader was at it. [audio]
    void SyncOutputs();

private:
    CAudioPluginInternals& internals;
    bool outputTransferPending = false;
};

} // namespace Vorin::Audio::Plugin
