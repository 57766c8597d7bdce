// What the plug-in costs a host, through the interface that the host has: a block beside the bare
// filter tree and a copy of the audio; the slowest blocks beside a usual one and an update; a state
// beside the bare writing and reading of the same document; an instance beside clearing the memory
// that it holds.
//
// Ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`, the limit being the most.

#include "audio/dsp/AudioStreams.h"
#include "bench/Ratio.h"
#include "filters/OndaraFilter.h"
#include "serialization/ItemName.h"
#include "serialization/XmlDataObject.h"
#include "vst/Product.h"
#include "vst/VSTPlug.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <malloc.h>

namespace {

using namespace VorinExt::VSTPlugin;
using namespace Vorin::Audio::DSP;
using namespace Vorin::Serialization;
using Clock = std::chrono::steady_clock;

constexpr float kRate = 48000.0F;
constexpr int kSignalFrames = 1 << 15;
constexpr double kNever = std::numeric_limits<double>::max();

VstIntPtr AnswerHost(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
    return opcode == audioMasterVersion ? kVstVersion : 0;
}

template <class Operation>
double Time(Operation operation) {
    const auto begin = Clock::now();
    operation();
    benchmark::ClobberMemory();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

std::vector<float> MakeNoise(unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> value(-1.0F, 1.0F);
    std::vector<float> signal(kSignalFrames);
    std::generate(signal.begin(), signal.end(), [&] { return value(random); });
    return signal;
}

struct CSignal {
    std::vector<float> left = MakeNoise(1);
    std::vector<float> right = MakeNoise(2);
    std::vector<float> outLeft = std::vector<float>(kSignalFrames);
    std::vector<float> outRight = std::vector<float>(kSignalFrames);
};

/// The plug-in as its host has it.
class CPlugSide {
public:
    explicit CPlugSide(VstInt32 block) {
        Ask(effSetSampleRate, 0, 0, nullptr, kRate);
        Ask(effSetBlockSize, 0, block);
        Ask(effMainsChanged, 0, 1);
    }
    CPlugSide(const CPlugSide&) = delete;
    CPlugSide& operator=(const CPlugSide&) = delete;
    ~CPlugSide() { Ask(effClose); }

    VstIntPtr Ask(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                  float opt = 0.0F) {
        return effect->dispatcher(effect, opcode, index, value, ptr, opt);
    }

    void Process(CSignal& signal, int offset, int frames) {
        float* inputs[] = {signal.left.data() + offset, signal.right.data() + offset};
        float* outputs[] = {signal.outLeft.data() + offset, signal.outRight.data() + offset};
        effect->processReplacing(effect, inputs, outputs, frames);
    }

private:
    // effClose deletes it.
    AEffect* const effect =
        (new CVSTPlug(&AnswerHost, CreateProductConfig(), GetStaticSettings()))->getAeffect();
};

/// The filter tree, which publishes as often as the plug-in does, and the copy of the audio.
class CBareSide {
public:
    explicit CBareSide(int block) : filter(PluginsFilters::CreateOndaraFilter()) {
        filter->Init({.applyDefaults = true, .blockSize = block}, static_cast<double>(kRate));
        filter->GetOutputDataSync()->SetRefreshRate(50.0);
    }

    void Process(CSignal& signal, int offset, int frames) {
        CAudioStream streams[] = {CAudioStream(signal.left.data() + offset, frames),
                                  CAudioStream(signal.right.data() + offset, frames)};
        CAudioStreams inputs(streams, 2);
        CAudioStreams outputs(nullptr, 0);
        filter->Process({.inputs = &inputs, .outputs = &outputs, .frames = frames});
        if (filter->GetOutputDataSync()->IsRefreshNeeded()) {
            filter->GetOutputDataSync()->Reset();
            Update();
        }
        const std::size_t bytes = static_cast<std::size_t>(frames) * sizeof(float);
        std::memcpy(signal.outLeft.data() + offset, signal.left.data() + offset, bytes);
        std::memcpy(signal.outRight.data() + offset, signal.right.data() + offset, bytes);
    }

    void Update() {
        filter->UpdateOutputs();
        filter->PublishOutputs();
    }

private:
    std::unique_ptr<IFilter> filter;
};

template <class Side>
void ProcessSignal(Side& side, CSignal& signal, int block) {
    for (int done = 0; done + block <= kSignalFrames; done += block) {
        side.Process(signal, done, block);
    }
    benchmark::ClobberMemory();
}

template <class Side>
void BM_Process(benchmark::State& state) {
    const int block = static_cast<int>(state.range(0));
    CSignal signal;
    Side side(block);
    for (auto _ : state) {
        ProcessSignal(side, signal, block);
    }
    state.SetItemsProcessed(state.iterations() * kSignalFrames);
}
BENCHMARK(BM_Process<CPlugSide>)->Arg(64)->Arg(512);
BENCHMARK(BM_Process<CBareSide>)->Arg(64)->Arg(512);

void PrintProcessRatio(const char* name, int block) {
    CSignal signal;
    CPlugSide plug(block);
    CBareSide bare(block);
    Bench::PrintRatio(name,
                      Bench::MeasureRatio([&] { ProcessSignal(plug, signal, block); }, 1,
                                          [&] { ProcessSignal(bare, signal, block); }, 1),
                      1.25);
}

struct CBlockTimes {
    double median = kNever;
    double slow = kNever; ///< one in a thousand takes longer
};

/// The times of 100,000 blocks of 64 frames.
CBlockTimes TimeBlocks(CPlugSide& plug, CSignal& signal) {
    constexpr std::size_t count = 100'000;
    std::vector<double> times(count);
    for (std::size_t i = 0; i < count; ++i) {
        const int offset = static_cast<int>(i % (kSignalFrames / 64)) * 64;
        times[i] = Time([&] { plug.Process(signal, offset, 64); });
    }
    const auto at = [&times](std::size_t index) {
        const auto place = times.begin() + static_cast<std::ptrdiff_t>(index);
        std::nth_element(times.begin(), place, times.end());
        return *place;
    };
    return {at(count / 2), at(count - 1 - count / 1000)};
}

void TakeBest(CBlockTimes& best, const CBlockTimes& times) {
    best.median = std::min(best.median, times.median);
    best.slow = std::min(best.slow, times.slow);
}

double TimeUpdate() {
    CSignal signal;
    CBareSide bare(64);
    ProcessSignal(bare, signal, 64);
    ProcessSignal(bare, signal, 64);
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        for (int block = 0; block < 14; ++block) { // what is new in an update at 50 Hz
            bare.Process(signal, block * 64, 64);
        }
        times.push_back(Time([&] { bare.Update(); }));
    }
    std::nth_element(times.begin(), times.begin() + 100, times.end());
    return times[100];
}

/// Saves and restores states until it ends.
class CChunkThread {
public:
    explicit CChunkThread(CPlugSide& plug)
        : thread([this, &plug] {
              while (!isOver) {
                  void* data = nullptr;
                  const VstIntPtr size = plug.Ask(effGetChunk, 0, 0, &data);
                  plug.Ask(effSetChunk, 0, size, data);
              }
          }) {}
    CChunkThread(const CChunkThread&) = delete;
    CChunkThread& operator=(const CChunkThread&) = delete;
    ~CChunkThread() {
        isOver = true;
        thread.join();
    }

private:
    std::atomic<bool> isOver{false};
    std::thread thread;
};

void PrintSlowBlocksRatios() {
    CSignal signal;
    CPlugSide plug(64);
    CBlockTimes alone;
    CBlockTimes together;
    double update = kNever;
    for (int turn = 0; turn < 5; ++turn) {
        TakeBest(alone, TimeBlocks(plug, signal));
        update = std::min(update, TimeUpdate());
        const CChunkThread other(plug);
        TakeBest(together, TimeBlocks(plug, signal));
    }
    Bench::PrintRatio("vst_slow_block", alone.slow / (alone.median + update), 2);
    Bench::PrintRatio("vst_slow_block_with_chunks", together.slow / alone.slow, 1.5);
}

/// The state of a fresh plug-in, written and read without the plug-in.
class CBareParams : public ISerializable {
public:
    bool Serialize(IWriteDataStream& stream) const override {
        bool done = stream.WriteInt("count", kCount);
        for (std::size_t i = 0; i < kCount; ++i) {
            done &= stream.WriteDouble(ItemName("p", static_cast<int>(i)).Get(), values[i]);
        }
        return done;
    }
    bool DeSerialize(const IReadDataStream& stream) override {
        int count = 0;
        bool done = stream.ReadInt("count", count);
        for (std::size_t i = 0; i < kCount; ++i) {
            done &= stream.ReadDouble(ItemName("p", static_cast<int>(i)).Get(), values[i]);
        }
        return done;
    }

private:
    static constexpr int kCount = 7;
    double values[kCount] = {};
};

class CBareNothing : public ISerializable {
public:
    bool Serialize(IWriteDataStream&) const override { return true; }
    bool DeSerialize(const IReadDataStream&) override { return true; }
};

bool WriteBare(Vorin::Containers::CCharString& text) {
    CXmlDataObject document("Preset", kXmlAttributes);
    return document.WriteInt("version", 3) &&
           document.WriteString("progName", "Default Settings") &&
           document.WriteBool("MIDIInputDefault", true) &&
           document.WriteBool("MIDIOutputDefault", true) &&
           document.WriteObject("inputParams", CBareParams()) &&
           document.WriteObject("model", CBareNothing()) && document.SaveString(text);
}

bool ReadBare(const void* data, int size) {
    CXmlDataObject document("Preset", kXmlAttributes);
    int version = 0;
    char* name = nullptr;
    bool flag = false;
    CBareParams params;
    CBareNothing nothing;
    const bool done =
        document.Parse(data, size) && document.ReadInt("version", version) &&
        document.ReadString("progName", name) && document.ReadBool("MIDIInputDefault", flag) &&
        document.ReadBool("MIDIOutputDefault", flag) &&
        document.ReadObject("inputParams", params) && document.ReadObject("model", nothing);
    delete[] name;
    return done;
}

/// Wrong results must not be fast.
void Check(bool isFit, const char* what) {
    if (!isFit) {
        std::fprintf(stderr, "vst_bench: %s\n", what);
        std::exit(1);
    }
}

void PrintChunkRatios() {
    constexpr int rounds = 100;
    CPlugSide plug(64);
    void* data = nullptr;
    const VstIntPtr size = plug.Ask(effGetChunk, 0, 0, &data);
    std::string chunk(static_cast<const char*>(data), static_cast<std::size_t>(size));
    Vorin::Containers::CCharString bare;
    Check(WriteBare(bare) && chunk.c_str() == std::string(bare.Get()), "another document");
    const auto get = [&] { Check(plug.Ask(effGetChunk, 0, 0, &data) == size, "no state"); };
    const auto write = [] {
        Vorin::Containers::CCharString text;
        Check(WriteBare(text), "a document cannot be written");
    };
    Bench::PrintRatio("vst_get_chunk", Bench::MeasureRatio(get, rounds, write, rounds), 2);
    const auto set = [&] {
        Check(plug.Ask(effSetChunk, 0, size, chunk.data()) == 1, "a state was refused");
    };
    const auto read = [&] {
        Check(ReadBare(chunk.data(), static_cast<int>(size) - 1), "a document was refused");
    };
    Bench::PrintRatio("vst_set_chunk", Bench::MeasureRatio(set, rounds, read, rounds), 2);
}

std::size_t GetBytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void PrintCreationRatio() {
    const std::size_t before = GetBytesInUse();
    auto first = std::make_unique<CPlugSide>(512);
    std::vector<char> memory(GetBytesInUse() - before);
    first.reset();
    const auto create = [] { const CPlugSide plug(512); };
    const auto clear = [&memory] {
        std::memset(memory.data(), 0, memory.size());
        benchmark::DoNotOptimize(memory.data());
    };
    Bench::PrintRatio("vst_creation", Bench::MeasureRatio(create, 10, clear, 10), 20);
}

/// The presets and settings of whoever runs this are left alone.
class CEmptyHome {
public:
    CEmptyHome() {
        std::string name = (std::filesystem::temp_directory_path() / "ondara-XXXXXX").string();
        Check(mkdtemp(name.data()), "no temporary folder can be made");
        path = name;
        setenv("XDG_DATA_HOME", name.c_str(), 1);
    }
    CEmptyHome(const CEmptyHome&) = delete;
    CEmptyHome& operator=(const CEmptyHome&) = delete;
    ~CEmptyHome() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

private:
    std::filesystem::path path;
};

} // namespace

int main(int argc, char** argv) {
    const CEmptyHome home;
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    PrintProcessRatio("vst_process_64", 64);
    PrintProcessRatio("vst_process_512", 512);
    PrintSlowBlocksRatios();
    PrintChunkRatios();
    PrintCreationRatio();
    return 0;
}
