// Runs the audio path inside a function that clang's real-time sanitizer watches: whatever it calls
// that may allocate, wait or enter the system ends the program. The argument "control" makes it do
// so.

#include "audio/plugin/BlockProcessor.h"
#include "audio/plugin/HostParam.h"
#include "filters/OndaraFilter.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

using namespace Vorin;
using namespace Vorin::Audio;

void ProcessWatched(Plugin::CBlockProcessor& processor,
                    const Plugin::CBlockProcessor::CBlock& block, bool misbehave) noexcept
    [[clang::nonblocking]] {
    processor.Process(block);
    if (misbehave) {
        delete new int[block.frames > 0 ? 64 : 32];
    }
}

} // namespace

int main(int count, char** words) {
    const bool misbehave = count > 1 && std::strcmp(words[1], "control") == 0;
    constexpr int kMaxFrames = 1024;
    Plugin::CFilterHost internals({PluginsFilters::CreateOndaraFilter(), 50.0});
    Plugin::CHostParams values(internals.GetInputInfos());
    internals.Connect(values);
    if (!internals.Configure({.applyDefaults = true, .blockSize = kMaxFrames}, 48000.0)) {
        return 1;
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
    std::puts("no violation");
    return 0;
}
