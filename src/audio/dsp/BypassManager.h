#pragma once

#include "audio/dsp/Filter.h"

#include <vector>

namespace Vorin::Audio::DSP {

/// The streams that a bypass works with: what the filter writes while it fades, and the dry input,
/// delayed by the filter's latency.
class CFilterBypassManagerBase {
protected:
    /// Room for blocks of `frames`. Allocates; later blocks do so only when they are larger.
    void InitStreams(int inputs, int outputs, int frames, int filterLatency);

    /// The inputs as they were `latency` frames ago: `inputs` themselves without a latency.
    IAudioStreams& DelayInput(IAudioStreams& inputs, int frames);

    /// Scratch channels of `frames` frames, as many as the wider side of the filter has.
    IAudioStreams& GetScratch(int frames);

    int latency = 0; // in frames

private:
    CDynamicAudioStreams scratchOutputs;
    CDynamicAudioStreams dryDelay; // per channel the last `latency` frames, then the block's
    int delayChannels = 0;
    CEmptyStreams emptyStreams{0, 0};
};

/// Switches a filter in and out without a click.
///
/// A filter with a latency fades over at least that long: bypassing fades the output to dry and
/// then the filter's input out; leaving bypass fades the input in and then the output back. A
/// filter without latency switches at once.
///
/// The audio thread uses it, or whoever holds the processing off.
class CFilterBypassManager : private CFilterBypassManagerBase {
public:
    /// Starts steady, for `filter`, which is borrowed and has been through its own Init.
    /// `blockSize` is the largest block in frames, -1 if unknown. Bypass and ramp time keep their
    /// setting. Allocates.
    void Init(IFilter& filter, int inputs, int outputs, int blockSize, double sampleRate);

    /// How long a fade takes. The step per frame never exceeds 1 / latency, so that without latency
    /// there is no fade.
    void SetRampTime(double milliseconds);

    /// [audio]
    void SetBypass(bool on);
    bool IsBypassed() const { return !active; }

    void Process(const CProcessRecord& record);
    /// What the filter's own ProcessSilence returned.
    bool ProcessSilence(const CProcessRecord& record);

private:
    enum EState { kInputFade = 0, kOutputFade = 1, kSteady = 2 };

    bool Run(const CProcessRecord& record, bool silent);
    bool RunBypassed(const CProcessRecord& record);
    bool RunOutputFade(const CProcessRecord& record, bool silent);
    bool RunInputFade(const CProcessRecord& record, bool silent);
    bool RunFilter(const CProcessRecord& record, bool silent);

    IFilter* filter = nullptr;
    double sampleRate = 0.0;
    EState state = kSteady;
    float fadePosition = 0.0F;
    float fadeStep = 0.0F; // per frame; its sign is the direction, towards bypass when negative
    bool active = true;
};

} // namespace Vorin::Audio::DSP
