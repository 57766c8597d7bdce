// What a model costs: loading and linking one of 2,000 parameters, 1,000 links and 500 formulas,
// beside a tenth of it; and the change of a parameter that a formula reads, beside the bare
// SetConstant and notification that it comes down to.
//
// The program ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`.

#include "bench/Ratio.h"

#include "SkinEngine/Formula/ParseFormula.h"
#include "SkinEngine/Model/SkinModel.h"
#include "SkinEngine/Model/SkinModelFactory.h"
#include "containers/MemMessageLog.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include <unistd.h>

namespace {

using namespace Vorin;
using namespace Vorin::AppEngine;

/// Twice as many parameters as links, four times as many as formulas.
std::string MakeModelDocument(int params) {
    std::string text = "<MODEL>\n";
    for (int i = 0; i < params; ++i) {
        text += "<PARAM id=\"p" + std::to_string(i) + "\" max=\"1000\" default=\"1\"/>\n";
    }
    for (int i = 0; i < params / 2; ++i) {
        text += "<PARAM_LINK from=\"p" + std::to_string(i) + "\" to=\"p" +
                std::to_string(params / 2 + i) + "\" formula=\"x*2\"/>\n";
    }
    for (int i = 0; i < params / 4; ++i) {
        text += "<FORMULA_PARAM id=\"f" + std::to_string(i) + "\" formula=\"p" + std::to_string(i) +
                "*2+p" + std::to_string(i + 1) + "\"/>\n";
    }
    text += "<PARAM id=\"band.frequency\" max=\"1\"/>\n"
            "<FORMULA_PARAM id=\"alone\" formula=\"band.frequency*2+1\"/>\n";
    return text + "</MODEL>\n";
}

class CModelFile {
public:
    explicit CModelFile(int params)
        : path("/tmp/ondara-model-bench-" + std::to_string(getpid()) + "-" +
               std::to_string(params)) {
        std::ofstream(path) << MakeModelDocument(params);
    }
    ~CModelFile() { unlink(path.c_str()); }
    CModelFile(const CModelFile&) = delete;
    CModelFile& operator=(const CModelFile&) = delete;

    const char* GetPath() const { return path.c_str(); }

private:
    const std::string path;
};

class CLoadedModel {
public:
    CLoadedModel(const CModelFile& file, bool preParse) {
        CoreUtilities::CMemMessageLog log;
        CSkinParser parser(&log);
        const CSkinModelServices services{.timers = timers, .clock = clock};
        CSkinModelFactory factory(log, parser, model, services);
        if (!factory.LoadModelFile(file.GetPath(), preParse)) {
            std::abort(); // the figures would be those of something else
        }
    }

    CSkinModel& GetModel() { return model; }

private:
    System::CManualClock clock;
    System::CRunLoop loop{clock};
    System::CRunLoopTimerProvider timers{loop};
    CSkinModel model;
};

constexpr int kLargeParams = 2000;
constexpr int kSmallParams = kLargeParams / 10;

void LoadModelOf(benchmark::State& state, int params, bool preParse) {
    const CModelFile file(params);
    for (auto _ : state) {
        CLoadedModel loaded(file, preParse);
        benchmark::DoNotOptimize(loaded.GetModel().IsEnabled());
    }
}
void LoadLargeModel(benchmark::State& state) { LoadModelOf(state, kLargeParams, false); }
void LoadSmallModel(benchmark::State& state) { LoadModelOf(state, kSmallParams, false); }
void LoadLargeModelInTwoPasses(benchmark::State& state) { LoadModelOf(state, kLargeParams, true); }

BENCHMARK(LoadLargeModel)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadSmallModel)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadLargeModelInTwoPasses)->Unit(benchmark::kMillisecond);

/// Listens to a formula.
class CModelListener {
public:
    explicit CModelListener(Core::IEventProvider& source) : events(source) {
        events.Connect(changed);
    }
    ~CModelListener() { events.Disconnect(changed); }
    CModelListener(const CModelListener&) = delete;
    CModelListener& operator=(const CModelListener&) = delete;

private:
    void OnChanged() { benchmark::DoNotOptimize(++count); }

    Core::IEventProvider& events;
    Core::TCommand<CModelListener> changed{this, &CModelListener::OnChanged};
    long count = 0;
};

/// A parameter of a model that a formula of the model reads.
class CSourceInModel {
public:
    explicit CSourceInModel(int params)
        : file(params), loaded(file, false), source(loaded.GetModel().GetParam("band.frequency")),
          listener(loaded.GetModel().GetConstParam("alone").GetValueChangedEvents()) {}

    void Change() {
        value = value < 0.5 ? 0.75 : 0.25;
        source.SetValue(value);
    }

private:
    const CModelFile file;
    CLoadedModel loaded;
    Objects::ICaptureParam& source;
    CModelListener listener;
    double value = 0.25;
};

/// The same formula without a model: the constant is set by its name, and listeners are told.
class CBareFormula {
public:
    void Change() {
        value = value < 0.5 ? 0.75 : 0.25;
        formula->SetConstant("band.frequency", value);
        events.Notify();
    }

private:
    std::unique_ptr<TParametrizedFunction<Math::IConstant>> formula =
        ParseParametrizedConstant("band.frequency*2+1");
    Core::CEventProvider events;
    CModelListener listener{events};
    double value = 0.25;
};

void ChangeSourceInLargeModel(benchmark::State& state) {
    CSourceInModel side(kLargeParams);
    for (auto _ : state) {
        side.Change();
    }
}
void ChangeBareFormula(benchmark::State& state) {
    CBareFormula side;
    for (auto _ : state) {
        side.Change();
    }
}
BENCHMARK(ChangeSourceInLargeModel);
BENCHMARK(ChangeBareFormula);

void MeasureRatios() {
    const CModelFile large(kLargeParams);
    const CModelFile small(kSmallParams);
    Bench::PrintRatio("model_load_ten_times_the_size",
                      Bench::MeasureRatio([&] { CLoadedModel(large, false); }, 1,
                                          [&] { CLoadedModel(small, false); }, 10, 10) /
                          10.0,
                      1.5);
    CSourceInModel inLarge(kLargeParams);
    CSourceInModel inSmall(kSmallParams);
    CBareFormula bare;
    constexpr int kChanges = 200000;
    Bench::PrintRatio(
        "model_formula_source",
        Bench::MeasureRatio([&] { inLarge.Change(); }, kChanges, [&] { bare.Change(); }, kChanges),
        2.0);
    Bench::PrintRatio("model_formula_source_by_size",
                      Bench::MeasureRatio([&] { inLarge.Change(); }, kChanges,
                                          [&] { inSmall.Change(); }, kChanges),
                      1.5);
}

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    MeasureRatios();
    return 0;
}
