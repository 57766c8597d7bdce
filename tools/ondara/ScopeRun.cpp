#include "ScopeRun.h"

#include "filters/OndaraFilter.h"

#include <array>
#include <cmath>

namespace Workbench {

using namespace Vorin;
using namespace Vorin::Audio;

CScopeRun::CScopeRun(const CScopeOptions& scopeOptions)
    : options(scopeOptions), internals({PluginsFilters::CreateOndaraFilter(), options.refreshHz}) {
    const double values[] = {options.bypass ? 1.0 : 0.0,
                             options.stereoMode,
                             options.view,
                             options.sync,
                             options.delayMilliseconds,
                             options.triggerValue,
                             options.triggerDirection};
    int index = 0;
    for (const double value : values) {
        inputValues.Get(index++).SetValue(value);
    }
    internals.Connect(inputValues);
}

COutcome CScopeRun::Begin(double sampleRate) {
    const DSP::CFilterConfig config{
        .applyDefaults = false, .blockSize = options.blockFrames, .mode = 1, .configuration = -1};
    if (!internals.Configure(config, sampleRate)) {
        return COutcome::BadInput(options.input + ": has a sample rate that cannot be run, " +
                                  std::to_string(std::llround(sampleRate)) + " Hz");
    }
    return {};
}

void CScopeRun::Process(float* left, float* right, int frames) {
    std::array<DSP::CAudioStream, 2> channels = {DSP::CAudioStream(left, frames),
                                                 DSP::CAudioStream(right, frames)};
    DSP::CAudioStreams inputs(channels.data(), static_cast<int>(channels.size()));
    DSP::CAudioStreams outputs(nullptr, 0);
    processor.Process({.inputs = inputs,
                       .outputs = outputs,
                       .frames = frames,
                       .bypass = options.bypass,
                       .silent = false});
}

void CScopeRun::Flush() {
    internals.GetFilter().UpdateOutputs();
    // The blocking form always gets through.
    static_cast<void>(internals.TransferOutputs(true));
}

int CScopeRun::GetCurvesCount() const { return internals.GetOutputCurveInfos().GetCount(); }

CCurve CScopeRun::ReadCurve(int index, int points) {
    const auto& info = internals.GetOutputCurveInfos().Get(index);
    const auto& xInfo = info.GetXInfo();
    CCurve curve{
        info.GetName(), xInfo.GetUnit(), info.GetYInfo().GetMin(), info.GetYInfo().GetMax(), {}};
    curve.points.reserve(static_cast<std::size_t>(points));
    Core::CAutoLock guard(internals.GetOutputsLock());
    const Math::IFunction* function = internals.GetOutputCurve(index).GetValue();
    for (int i = 0; i < points; ++i) {
        const double x = xInfo.GetMin() +
                         (xInfo.GetMax() - xInfo.GetMin()) * i / static_cast<double>(points - 1);
        curve.points.push_back({x, function ? function->Evaluate(x) : 0.0});
    }
    return curve;
}

} // namespace Workbench
