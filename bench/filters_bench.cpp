// What a channel of the oscilloscope costs: its Process beside the plain one-sample-at-a-time form
// of the same algorithm, and an update whose trigger search goes round the circle without a find
// beside four copies of the circle's table.
//
// Ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`. Those of the blocks say how many
// times faster than the plain form it is, so the limit is the least; that of the update says how
// many times longer than the copies it takes, so the limit is the most. The two sides take turns,
// and the best turn of each counts: what else the machine does falls on both.

#include "audio/dsp/AudioStreams.h"
#include "bench/Ratio.h"
#include "filters/Oscilloscope.h"
#include "tests/filters/ReferenceOscilloscope.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace PluginsFilters;
using namespace Vorin::Audio::DSP;

constexpr double kRate = 48000.0;
constexpr int kTableSize = 48003;
constexpr int kSignalFrames = 1 << 15;
constexpr CReferenceOscilloscope::Params kParams{2.0, 0.0, 12.5, 0.25, 0.0};

std::vector<float> MakeNoise() {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> value(-1.0F, 1.0F);
    std::vector<float> signal(kSignalFrames);
    std::generate(signal.begin(), signal.end(), [&] { return value(random); });
    return signal;
}

std::vector<float> MakeSine() {
    std::vector<float> signal(kSignalFrames);
    for (std::size_t i = 0; i < signal.size(); ++i) {
        signal[i] = static_cast<float>(0.8 * std::sin(0.0576 * static_cast<double>(i)));
    }
    return signal;
}

/// Silence that goes through Process all the same, as a host's tail or a quiet channel does.
std::vector<float> MakeSilence() { return std::vector<float>(kSignalFrames); }

/// The values of a ramp that stands still, to bring parameters to the filter.
class CStillValues : public CFilterProperties {
public:
    CStillValues(const IFilter& filter, const CReferenceOscilloscope::Params& values) {
        Fill(filter);
        for (int i = 0; i < GetInputParams().GetCount(); ++i) {
            GetInputParams().SetValue(i, values[static_cast<std::size_t>(i)]);
        }
    }
};

class CScopeSide {
public:
    explicit CScopeSide(const CReferenceOscilloscope::Params& params = kParams) {
        scope.Init({}, kRate);
        scope.SetInputParams(CFilterPropertiesVariations(CStillValues(scope, params)));
    }

    void Process(float* samples, int frames) {
        CAudioStream stream(samples, frames);
        CAudioStreams inputs(&stream, 1);
        CAudioStreams outputs(nullptr, 0);
        filter.Process({.inputs = &inputs, .outputs = &outputs, .frames = frames});
    }

    /// The work of a refresh: the update, over samples that have arrived since the last one.
    void Update() { filter.UpdateOutputs(); }

private:
    COscilloscope scope;
    IFilter& filter = scope;
};

class CReferenceSide {
public:
    CReferenceSide() {
        reference.Init(kRate);
        reference.SetParams(kParams);
    }

    void Process(float* samples, int frames) { reference.Process(samples, 1, frames); }

private:
    CReferenceOscilloscope reference;
};

template <class Side>
void ProcessSignal(Side& side, std::vector<float>& signal, int block) {
    for (int done = 0; done + block <= kSignalFrames; done += block) {
        side.Process(signal.data() + done, block);
    }
    benchmark::ClobberMemory();
}

template <class Side, std::vector<float> (*MakeSignal)()>
void BM_Process(benchmark::State& state) {
    std::vector<float> signal = MakeSignal();
    Side side;
    for (auto _ : state) {
        ProcessSignal(side, signal, static_cast<int>(state.range(0)));
    }
    state.SetItemsProcessed(state.iterations() * kSignalFrames);
}
BENCHMARK(BM_Process<CScopeSide, MakeNoise>)->Arg(64)->Arg(512);
BENCHMARK(BM_Process<CReferenceSide, MakeNoise>)->Arg(64)->Arg(512);
BENCHMARK(BM_Process<CScopeSide, MakeSine>)->Arg(64)->Arg(512);
BENCHMARK(BM_Process<CReferenceSide, MakeSine>)->Arg(64)->Arg(512);
BENCHMARK(BM_Process<CScopeSide, MakeSilence>)->Arg(64)->Arg(512);
BENCHMARK(BM_Process<CReferenceSide, MakeSilence>)->Arg(64)->Arg(512);

/// A search that has to look at every sample: all lie above the level, so no crossing is found.
class CFruitlessUpdate {
public:
    CFruitlessUpdate() : side({2.0, 0.0, 0.0, -0.5, 0.0}), signal(kSignalFrames, 0.25F) {
        for (int i = 0; i < 2; ++i) {
            side.Process(signal.data(), kSignalFrames);
        }
    }

    double Time(int rounds) {
        double seconds = 0.0;
        for (int i = 0; i < rounds; ++i) {
            // An update without new samples does nothing, so each gets one; it is not timed.
            side.Process(signal.data(), 1);
            const auto begin = std::chrono::steady_clock::now();
            side.Update();
            benchmark::ClobberMemory();
            seconds +=
                std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        }
        return seconds / rounds;
    }

private:
    CScopeSide side;
    std::vector<float> signal;
};

class CFourCopies {
public:
    double Time(int rounds) {
        double seconds = 0.0;
        for (int i = 0; i < rounds; ++i) {
            const auto begin = std::chrono::steady_clock::now();
            for (int copy = 0; copy < 4; ++copy) {
                std::memcpy(target.data(), source.data(), kTableSize * sizeof(float));
                benchmark::ClobberMemory();
            }
            seconds +=
                std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        }
        return seconds / rounds;
    }

private:
    std::vector<float> source = std::vector<float>(kTableSize, 0.25F);
    std::vector<float> target = std::vector<float>(kTableSize);
};

void BM_FruitlessUpdate(benchmark::State& state) {
    CFruitlessUpdate update;
    for (auto _ : state) {
        state.SetIterationTime(update.Time(1));
    }
}
BENCHMARK(BM_FruitlessUpdate)->UseManualTime();

void BM_FourCopies(benchmark::State& state) {
    CFourCopies copies;
    for (auto _ : state) {
        state.SetIterationTime(copies.Time(1));
    }
}
BENCHMARK(BM_FourCopies)->UseManualTime();

constexpr int kTurns = 40;

void PrintProcessRatio(const char* name, std::vector<float> signal, int block) {
    CScopeSide scope;
    CReferenceSide reference;
    const std::string label = std::string("oscilloscope_") + name + "_" + std::to_string(block);
    Bench::PrintRatio(label.c_str(),
                      Bench::MeasureRatio([&] { ProcessSignal(reference, signal, block); }, 1,
                                          [&] { ProcessSignal(scope, signal, block); }, 1, kTurns),
                      2.5);
}

void PrintUpdateRatio() {
    constexpr int rounds = 20;
    CFruitlessUpdate update;
    CFourCopies copies;
    double bestUpdate = std::numeric_limits<double>::max();
    double bestCopies = bestUpdate;
    for (int turn = 0; turn < kTurns; ++turn) {
        bestUpdate = std::min(bestUpdate, update.Time(rounds));
        bestCopies = std::min(bestCopies, copies.Time(rounds));
    }
    Bench::PrintRatio("oscilloscope_fruitless_update", bestUpdate / bestCopies, 1.0);
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    for (const int block : {64, 512}) {
        PrintProcessRatio("noise", MakeNoise(), block);
        PrintProcessRatio("sine", MakeSine(), block);
        PrintProcessRatio("silence", MakeSilence(), block);
    }
    PrintUpdateRatio();
    return 0;
}
