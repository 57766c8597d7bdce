#include "audio/dsp/BypassManager.h"

#include "audio/dsp/StreamOperations.h"

#include <algorithm>
#include <cmath>

namespace Vorin::Audio::DSP {

void CFilterBypassManagerBase::InitStreams(int inputs, int outputs, int frames, int filterLatency) {
    latency = std::max(filterLatency, 0);
    delayChannels = std::max(inputs, 0);
    scratchOutputs.SetCount(std::max({inputs, outputs, 0}));
    for (int i = 0; i < scratchOutputs.GetCount(); ++i) {
        scratchOutputs.At(i).Reserve(frames);
    }
    dryDelay.SetCount(delayChannels);
    for (int i = 0; i < delayChannels; ++i) {
        CDynamicAudioStream& stream = dryDelay.At(i);
        stream.SetFramesCount(0);
        stream.SetFramesCount(std::max(frames, 0) + latency);
    }
}

IAudioStreams& CFilterBypassManagerBase::DelayInput(IAudioStreams& inputs, int frames) {
    if (latency < 1) {
        return inputs;
    }
    if (delayChannels == 0) {
        return emptyStreams;
    }
    for (int i = 0; i < delayChannels; ++i) {
        CDynamicAudioStream& stream = dryDelay.At(i);
        const int held = stream.GetFramesCount();
        // The newest frames stand at the end of what the last block left.
        std::copy_n(stream.GetConstData() + (held - latency), latency, stream.GetData());
        stream.SetFramesCount(frames + latency);
        CAudioStream behind(stream.GetData(), frames, 1, latency);
        StreamOperations::Copy(StreamAt(&inputs, i), &behind, frames);
    }
    return dryDelay;
}

IAudioStreams& CFilterBypassManagerBase::GetScratch(int frames) {
    for (int i = 0; i < scratchOutputs.GetCount(); ++i) {
        scratchOutputs.At(i).SetFramesCount(frames);
    }
    return scratchOutputs;
}

void CFilterBypassManager::Init(IFilter& newFilter, int inputs, int outputs, int blockSize,
                                double rate) {
    filter = &newFilter;
    sampleRate = rate;
    InitStreams(inputs, outputs, blockSize, filter->GetLatency());
    state = kSteady;
}

void CFilterBypassManager::SetRampTime(double milliseconds) {
    fadeStep = 0.0F;
    if (sampleRate > 0 && milliseconds > 0) {
        const auto step = static_cast<float>(999.999952502551 / (sampleRate * milliseconds));
        const float limit = latency > 0 ? 1.0F / static_cast<float>(latency) : 0.0F;
        fadeStep = step >= limit ? limit : step;
    } else {
        state = kSteady;
    }
    if (!active) {
        fadeStep = -fadeStep;
    }
}

void CFilterBypassManager::SetBypass(bool on) {
    if (active == !on) {
        return;
    }
    active = !on;
    fadeStep = -fadeStep;
    if (fadeStep == 0.0F || state != kSteady) {
        return;
    }
    state = on ? kOutputFade : kInputFade;
    fadePosition = on ? 1.0F : 0.0F;
    fadeStep = on ? -std::fabs(fadeStep) : std::fabs(fadeStep);
}

void CFilterBypassManager::Process(const CProcessRecord& record) { Run(record, false); }

bool CFilterBypassManager::ProcessSilence(const CProcessRecord& record) {
    return Run(record, true);
}

bool CFilterBypassManager::Run(const CProcessRecord& record, bool silent) {
    if (!record.inputs || !record.outputs) {
        return RunFilter(record, silent);
    }
    switch (state) {
    case kOutputFade:
        return RunOutputFade(record, silent);
    case kInputFade:
        return RunInputFade(record, silent);
    case kSteady:
        break;
    }
    if (active) {
        // Keeps the delay filled, so that a later fade has the true past to fade to.
        DelayInput(*record.inputs, record.frames);
        return RunFilter(record, silent);
    }
    return RunBypassed(record);
}

bool CFilterBypassManager::RunFilter(const CProcessRecord& record, bool silent) {
    if (silent) {
        return filter->ProcessSilence(record);
    }
    filter->Process(record);
    return true;
}

bool CFilterBypassManager::RunBypassed(const CProcessRecord& record) {
    IAudioStreams& dry = DelayInput(*record.inputs, record.frames);
    CProcessRecord wet = record;
    wet.outputs = &GetScratch(record.frames);
    const bool sounds = filter->ProcessSilence(wet);
    StreamOperations::CopyAll(dry, *record.outputs, record.frames);
    return sounds;
}

bool CFilterBypassManager::RunOutputFade(const CProcessRecord& record, bool silent) {
    IAudioStreams& dry = DelayInput(*record.inputs, record.frames);
    IAudioStreams& scratch = GetScratch(record.frames);
    CEmptyStreams silence(record.inputs->GetCount(), record.frames);
    CProcessRecord wet = record;
    wet.outputs = &scratch;
    if (silent) {
        wet.inputs = &silence;
    }
    const bool sounds = RunFilter(wet, silent);
    if (!StreamOperations::CrossFade(dry, scratch, *record.outputs, record.frames, fadePosition,
                                     fadeStep)) {
        state = fadeStep < 0 ? kInputFade : kSteady;
        fadePosition = fadeStep < 0 ? 1.0F : fadePosition;
    }
    return sounds;
}

bool CFilterBypassManager::RunInputFade(const CProcessRecord& record, bool silent) {
    IAudioStreams& dry = DelayInput(*record.inputs, record.frames);
    IAudioStreams& scratch = GetScratch(record.frames);
    CEmptyStreams silence(record.inputs->GetCount(), record.frames);
    IAudioStreams& source = silent ? static_cast<IAudioStreams&>(silence) : *record.inputs;
    const bool goesOn = StreamOperations::CrossFade(silence, source, scratch, record.frames,
                                                    fadePosition, fadeStep);
    CProcessRecord wet = record;
    wet.inputs = &scratch;
    wet.outputs = &scratch;
    const bool sounds = RunFilter(wet, silent);
    StreamOperations::CopyAll(dry, *record.outputs, record.frames);
    if (!goesOn) {
        state = fadeStep >= 0 ? kOutputFade : kSteady;
        fadePosition = fadeStep >= 0 ? 0.0F : fadePosition;
    }
    return sounds;
}

} // namespace Vorin::Audio::DSP
