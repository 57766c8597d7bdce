// What it costs to read a curve for drawing: CCurveViewer::GetValue over the positions of a wide
// graph, beside the bare calls of Evaluate for the same x.
//
// The program ends with one line per ratio: `ratio NAME VALUE (limit LIMIT)`.

#include "bench/Ratio.h"
#include "datamodel/controls/CurveViewer.h"
#include "datamodel/objects/CaptureCurve.h"
#include "math/LUTFunction.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <vector>

namespace {

using namespace Vorin;
using DataModel::Controls::CCurveViewer;
using DataModel::Objects::CCaptureCurve;
using DataModel::Objects::CCurveInfo;
using DataModel::Objects::CParamInfo;

using Table = Math::TLookupTable<float, Math::TLinearInterpolator<float, float>>;

constexpr int kPositionsCount = 2000;
constexpr int kSamplesCount = 4096;

double GetPosition(int index) { return static_cast<double>(index) / (kPositionsCount - 1); }

/// A waveform as the oscilloscope publishes it: from -1 s to 0, between -1 and 1.
CCurveInfo MakeInfo() {
    const CParamInfo time(DataModel::Objects::kParamReal, "Time", "s", "", nullptr, nullptr, -1.0,
                          0.0, 0.0);
    const CParamInfo level(DataModel::Objects::kParamReal, "Level", "", "", nullptr, nullptr, -1.0,
                           1.0, 0.0);
    return {"Waveform", "", time, level};
}

std::unique_ptr<Math::TLUTFunction<Table>> MakeWaveform() {
    auto waveform = std::make_unique<Math::TLUTFunction<Table>>();
    Table& table = waveform->GetTable();
    table.SetRange(-1.0F, 0.0F);
    table.SetCount(kSamplesCount);
    for (int i = 0; i < kSamplesCount; ++i) {
        table.GetValues()[i] = std::sin(0.05F * static_cast<float>(i));
    }
    return waveform;
}

class CViewerSide {
public:
    CViewerSide() : curve(MakeInfo()), viewer(curve) { curve.SetValue(*MakeWaveform()); }

    CCurveViewer& GetViewer() { return viewer; }

    double Run() const {
        const DataModel::Controls::ICurveViewer& seen = viewer;
        double sum = 0.0;
        for (int i = 0; i < kPositionsCount; ++i) {
            sum += seen.GetValue(true, GetPosition(i));
        }
        return sum;
    }

private:
    CCaptureCurve curve;
    CCurveViewer viewer;
};

/// The bare calls, of the same function at the same x.
class CFunctionSide {
public:
    double Run() const {
        double sum = 0.0;
        for (int i = 0; i < kPositionsCount; ++i) {
            sum += function->Evaluate(GetPosition(i) - 1.0);
        }
        return sum;
    }

private:
    std::unique_ptr<Math::IFunction> function = MakeWaveform();
};

template <class Side>
void BM_Curve(benchmark::State& state) {
    const Side side;
    for (auto _ : state) {
        benchmark::DoNotOptimize(side.Run());
    }
    state.SetItemsProcessed(state.iterations() * kPositionsCount);
}
BENCHMARK(BM_Curve<CViewerSide>);
BENCHMARK(BM_Curve<CFunctionSide>);

template <void (*Configure)(CCurveViewer&)>
void BM_CurveConfigured(benchmark::State& state) {
    CViewerSide side;
    Configure(side.GetViewer());
    for (auto _ : state) {
        benchmark::DoNotOptimize(side.Run());
    }
    state.SetItemsProcessed(state.iterations() * kPositionsCount);
}

void ZoomIn(CCurveViewer& viewer) {
    viewer.GetXConfig().SetZoom(8.0);
    viewer.GetXConfig().SetZoomPosition(0.3);
}
BENCHMARK(BM_CurveConfigured<&ZoomIn>);

void UseSteps(CCurveViewer& viewer) { viewer.GetXConfig().SetPositionsCount(500); }
BENCHMARK(BM_CurveConfigured<&UseSteps>);

void UseResponse(CCurveViewer& viewer) {
    viewer.GetXConfig().SetResponseCurve(DataModel::Objects::kParamValueCurveSquare);
}
BENCHMARK(BM_CurveConfigured<&UseResponse>);

} // namespace

int main(int argc, char** argv) {
    if (!Bench::RunBenchmarks(argc, argv)) {
        return 1;
    }
    constexpr int rounds = 20; // short: a busy machine is quiet for a moment only
    constexpr int turns = 400;
    const CViewerSide viewer;
    const CFunctionSide function;
    Bench::PrintRatio("curve_viewer_get_value",
                      Bench::MeasureRatio([&] { benchmark::DoNotOptimize(viewer.Run()); }, rounds,
                                          [&] { benchmark::DoNotOptimize(function.Run()); }, rounds,
                                          turns),
                      2.5);
    return 0;
}
