// What of the plug-in runs on the host's audio thread.
#include "vst/VSTPlug.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace VorinExt::VSTPlugin {

using namespace Vorin::Audio;
using namespace Vorin::Audio::Plugin;

namespace {

/// Up to here a sample counts as silence.
constexpr double kSilence = 1e-10;

/// Null for a channel that the host has not given.
float* At(float** channels, int channel, int offset) {
    return channels && channels[channel] ? channels[channel] + offset : nullptr;
}

bool IsSilent(const float* samples, int frames) {
    // Not `>`: a NaN is sound.
    return !samples || std::all_of(samples, samples + frames, [](float sample) {
        return std::fabs(static_cast<double>(sample)) <= kSilence;
    });
}

/// Null reads as silence.
void CopyChannel(const float* source, float* target, int frames) {
    const std::size_t bytes = static_cast<std::size_t>(frames) * sizeof(float);
    if (!target || target == source) {
        return;
    }
    if (source) {
        std::memmove(target, source, bytes);
    } else {
        std::memset(target, 0, bytes);
    }
}

/// Each output takes its input; those beyond the last input take that one.
void CopyInputsToOutputs(float** inputs, int inputsCount, float** outputs, int outputsCount,
                         int frames) {
    for (int i = 0; inputsCount > 0 && i < outputsCount; ++i) {
        CopyChannel(At(inputs, std::min(i, inputsCount - 1), 0), At(outputs, i, 0), frames);
    }
}

void AddChannels(float** inputs, int channels, float** outputs, int outputOffset, int frames) {
    for (int channel = 0; channel < channels; ++channel) {
        const float* source = At(inputs, channel, 0);
        float* target = At(outputs, channel, outputOffset);
        for (int i = 0; source && target && i < frames; ++i) {
            target[i] += source[i];
        }
    }
}

/// Whether an output lies where a later one still has to take its input from.
bool AreCrossed(float** inputs, int inputsCount, float** outputs, int outputsCount) {
    for (int i = 0; i < outputsCount; ++i) {
        const float* output = At(outputs, i, 0);
        for (int j = i + 1; output && j < inputsCount; ++j) {
            if (output == At(inputs, j, 0)) {
                return true;
            }
        }
    }
    return false;
}

/// The same frame by frame, so that channels may lie in each other's place. Inputs beyond
/// `kMostCrossed` are not looked at.
void CopyCrossedInputsToOutputs(float** inputs, int inputsCount, float** outputs, int outputsCount,
                                int frames) {
    constexpr int kMostCrossed = 32;
    std::array<float, kMostCrossed> frame;
    const int count = std::min(inputsCount, kMostCrossed);
    for (int i = 0; i < frames; ++i) {
        for (int channel = 0; channel < count; ++channel) {
            const float* input = At(inputs, channel, i);
            frame[static_cast<std::size_t>(channel)] = input ? *input : 0.0F;
        }
        for (int channel = 0; count > 0 && channel < outputsCount; ++channel) {
            if (float* output = At(outputs, channel, i)) {
                *output = frame[static_cast<std::size_t>(std::min(channel, count - 1))];
            }
        }
    }
}

/// What comes in goes out, to the bit.
void PassThrough(float** inputs, int inputsCount, float** outputs, int outputsCount, int frames) {
    const bool areCrossed = AreCrossed(inputs, inputsCount, outputs, outputsCount);
    (areCrossed ? CopyCrossedInputsToOutputs : CopyInputsToOutputs)(inputs, inputsCount, outputs,
                                                                    outputsCount, frames);
}

} // namespace

void CVSTPlug::processReplacing(float** inputs, float** outputs, VstInt32 frames) {
    if (!processingLock.TryLock()) {
        PassThrough(inputs, numInputs, outputs, numOutputs, frames);
        return;
    }
    isProcessing.store(true, std::memory_order_relaxed);
    VstInt32 offset = 0;
    do { // once for a block of no frames, too
        const VstInt32 piece = std::min(frames - offset, configuredFrames);
        ProcessPiece(inputs, offset, outputs, offset, piece);
        offset += piece;
    } while (offset < frames);
    processingLock.Unlock();
}

void CVSTPlug::ProcessPiece(float** inputs, int inputOffset, float** outputs, int outputOffset,
                            int frames) {
    bool silent = true;
    for (std::size_t i = 0; i < inputPointers.size(); ++i) {
        inputPointers[i] = At(inputs, static_cast<int>(i), inputOffset);
        inputStreamDescs[i].Set(inputPointers[i], frames);
        silent = silent && IsSilent(inputPointers[i], frames);
    }
    for (std::size_t i = 0; i < outputPointers.size(); ++i) {
        outputPointers[i] = At(outputs, static_cast<int>(i), outputOffset);
    }
    for (int i = 0; i < filterOutputs; ++i) {
        outputStreamDescs[static_cast<std::size_t>(i)].Set(
            outputPointers[static_cast<std::size_t>(i)], frames);
    }
    DSP::CAudioStreams inputStreams(inputStreamDescs.data(),
                                    static_cast<int>(inputPointers.size()));
    DSP::CAudioStreams outputStreams(outputStreamDescs.data(), filterOutputs);
    processor.Process({.inputs = inputStreams,
                       .outputs = outputStreams,
                       .frames = frames,
                       .bypass = inputParams.Get(0).GetValue() > 0.5,
                       .silent = silent});
    if (filterOutputs == 0) {
        PassThrough(inputPointers.data(), inputStreams.GetCount(), outputPointers.data(),
                    static_cast<int>(outputPointers.size()), frames);
    }
}

void CVSTPlug::process(float** inputs, float** outputs, VstInt32 frames) {
    if (!processingLock.TryLock()) {
        AddChannels(inputs, std::min(numInputs.load(), numOutputs.load()), outputs, 0, frames);
        return;
    }
    isProcessing.store(true, std::memory_order_relaxed);
    for (VstInt32 offset = 0; offset < frames; offset += configuredFrames) {
        const VstInt32 piece = std::min(frames - offset, configuredFrames);
        ProcessPiece(inputs, offset, scratchPointers.data(), 0, piece);
        AddChannels(scratchPointers.data(), numOutputs, outputs, offset, piece);
    }
    processingLock.Unlock();
}

VstInt32 CVSTPlug::processEvents(VstEvents* events) {
    isProcessing.store(true, std::memory_order_relaxed); // what they change waits for the block
    CMIDICCValues last;
    bool isAccepted = false;
    // As many as there are, whatever the list is declared as.
    const VstEvent* const* list = events->events;
    for (VstInt32 i = 0; i < events->numEvents; ++i) {
        const VstEvent* event = list[i];
        if (!event || event->type != kVstMidiType) {
            continue;
        }
        const auto* midi = reinterpret_cast<const VstMidiEvent*>(event);
        midiIn.CopyFrom(midi->midiData, MIDI::CMIDIEvent::kLargestSize);
        midiIn.SetDeltaFrames(midi->deltaFrames);
        isAccepted |= internals.ApplyMIDI(midiIn, last);
    }
    if (isAccepted) {
        internals.GetMIDIController().GetLastMessage().Set(last, true);
    }
    return 1;
}

void CVSTPlug::OnOutputsUpdated() {
    outgoingEvents.Clear();
    for (int i = 0; i < outputParams.GetCount(); ++i) {
        SyncOutput(i, internals.GetFilter().GetOutputParamValues().GetValue(i));
        if (internals.MakeOutputCC(i, midiOut)) {
            outgoingEvents.Add(midiOut);
        }
    }
    if (outgoingEvents.GetCount() > 0) {
        sendVstEventsToHost(outgoingEvents.Get());
    }
}

void CVSTPlug::SyncOutput(int index, double value) {
    CVSTParamAdapter& param = outputParams.Get(index);
    if (internals.GetMIDIController().GetOutputSettings().Get(index).IsAutomationEnabled()) {
        param.Capture(); // until the host suspends
        param.SetValue(value);
    } else if (param.Store(value)) {
        param.NotifyChanged();
    }
}

} // namespace VorinExt::VSTPlugin
