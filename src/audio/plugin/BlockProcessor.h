#pragma once

#include "audio/plugin/FilterHost.h"

namespace Vorin::Audio::Plugin {

/// Hears that the filter has computed its outputs, before they are published. [audio]
class IOutputsListener {
public:
    virtual void OnOutputsUpdated() = 0;
    virtual ~IOutputsListener() = default;
};

/// Runs blocks through a filter in the order that each of them needs: what every host adapter
/// does, whatever its host. The audio thread uses it.
class CBlockProcessor {
public:
    /// Both are borrowed; the host is configured, the listener may be null.
    explicit CBlockProcessor(CFilterHost& filterHost, IOutputsListener* outputsListener = nullptr)
        : host(filterHost), listener(outputsListener) {}

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
    CFilterHost& host;
    IOutputsListener* listener;
    bool outputTransferPending = false;
};

} // namespace Vorin::Audio::Plugin
