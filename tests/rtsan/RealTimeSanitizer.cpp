// Runs the audio path inside functions that clang's real-time sanitizer watches: whatever they call
// that may allocate, wait or enter the system ends the program. The argument "control" makes one of
// them do so.

#include "audio/plugin/BlockProcessor.h"
#include "audio/plugin/HostParam.h"
#include "filters/OndaraFilter.h"
#include "vst/Product.h"
#include "vst/VSTPlug.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

using namespace Vorin;
using namespace Vorin::Audio;
using namespace VorinExt::VSTPlugin;

constexpr int kMaxFrames = 1024;

void ProcessWatched(Plugin::CBlockProcessor& processor,
                    const Plugin::CBlockProcessor::CBlock& block, bool misbehave) noexcept
    [[clang::nonblocking]] {
    processor.Process(block);
    if (misbehave) {
        delete new int[block.frames > 0 ? 64 : 32];
    }
}

bool RunFilter(bool misbehave) {
    Plugin::CFilterHost internals({PluginsFilters::CreateOndaraFilter(), 50.0});
    Plugin::CHostParams values(internals.GetInputInfos());
    internals.Connect(values);
    if (!internals.Configure({.applyDefaults = true, .blockSize = kMaxFrames}, 48000.0)) {
        return false;
    }
    Plugin::CBlockProcessor processor(internals);
    std::vector<float> left(kMaxFrames, 0.25F);
    std::vector<float> right(kMaxFrames, -0.5F);
    for (int block = 0; block < 5000; ++block) {
        const int frames = block * 37 % kMaxFrames + 1;
        for (int i = 1; i < values.GetCount(); ++i) {
            const auto& info = internals.GetInputInfos().Get(i);
            values.Get(i).SetValue(info.GetMin() +
                                   (info.GetMax() - info.GetMin()) * (block * (i + 2) % 7) / 6.0);
        }
        DSP::CAudioStream channels[] = {DSP::CAudioStream(left.data(), frames),
                                        DSP::CAudioStream(right.data(), frames)};
        DSP::CAudioStreams inputs(channels, 2);
        DSP::CAudioStreams outputs(nullptr, 0);
        ProcessWatched(processor,
                       {.inputs = inputs,
                        .outputs = outputs,
                        .frames = frames,
                        .bypass = block % 50 > 40,
                        .silent = block % 200 > 100},
                       misbehave);
    }
    return true;
}

VstIntPtr AnswerPlug(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
    return opcode == audioMasterVersion ? kVstVersion : 0;
}

void ProcessWatched(CVSTPlug& plug, VstEvents& events, float** channels, int frames) noexcept
    [[clang::nonblocking]] {
    plug.processEvents(&events);
    plug.processReplacing(channels, channels, frames);
}

/// The whole plug-in, with automation and with controllers that drive each parameter.
void RunPlug() {
    CVSTPlug plug(AnswerPlug, CreateProductConfig(), GetStaticSettings());
    for (int i = 0; i < plug.getAeffect()->numParams; ++i) {
        auto& setting = GetStaticSettings().GetSettings().GetInputCCSettings().Get(i);
        setting.SetNumber(i);
        setting.SetMIDIEnabled(true);
    }
    plug.setBlockSize(kMaxFrames);
    plug.resume();
    std::vector<float> left(kMaxFrames, 0.25F);
    std::vector<float> right(kMaxFrames, -0.5F);
    float* channels[] = {left.data(), right.data()};
    VstMidiEvent event{};
    event.type = kVstMidiType;
    event.byteSize = sizeof(event);
    VstEvents events{1, 0, {reinterpret_cast<VstEvent*>(&event), nullptr}};
    for (int block = 0; block < 5000; ++block) {
        const int index = block % plug.getAeffect()->numParams;
        event.midiData[0] = static_cast<char>(0xb0);
        event.midiData[1] = static_cast<char>(index);
        event.midiData[2] = static_cast<char>(block * 13 % 128);
        plug.setParameter(index, static_cast<float>(block * 7 % 11) / 10.0F);
        ProcessWatched(plug, events, channels,
                       block * 37 % (2 * kMaxFrames) > kMaxFrames ? kMaxFrames
                                                                  : block * 37 % kMaxFrames);
    }
}

} // namespace

int main(int count, char** words) {
    setenv("XDG_DATA_HOME", "/nonexistent", 1); // no presets of the machine
    const bool misbehave = count > 1 && std::strcmp(words[1], "control") == 0;
    if (!RunFilter(misbehave)) {
        return 1;
    }
    RunPlug();
    std::puts("no violation");
    return 0;
}
