#include "filters/Oscilloscope.h"

#include "filters/OscilloscopeInfos.h"
#include "filters/TriggerSearch.h"

#include <algorithm>
#include <array>

namespace PluginsFilters {

using namespace Vorin::Audio::DSP;
using namespace Vorin::Math;

namespace {

enum EParam { kViewMode, kSync, kDelay, kTriggerValue, kTriggerDirection, kParamsCount };
enum ECurve { kWaveform, kHistogram, kCurvesCount };

/// The delay line's room.
constexpr double kMaxDelaySeconds = 0.3;

/// Beyond any converter's rate; keeps what a broken host announces from becoming a size.
constexpr double kMaxSamplesPerSecond = 1 << 22;

/// Truncates into a size of at least `least`; NaN gives `least`.
int ToSize(double value, int least) {
    return value > least ? static_cast<int>(std::min(value, kMaxSamplesPerSecond)) : least;
}

} // namespace

COscilloscope::COscilloscope() {
    SetInputParamInfos(OscilloscopeInfos::GetInputParams());
    SetOutputCurveInfos(OscilloscopeInfos::GetOutputCurves());
    publishedHistogram.GetTable() = audio.histogram.GetTable();
    curveChanges.SetCount(kCurvesCount);
    ConnectPublished();
}

COscilloscope::COscilloscope(const COscilloscope& other)
    : CBaseCoreDSPFilter(other), audio(other.audio), publishedWaveform(other.publishedWaveform),
      publishedHistogram(other.publishedHistogram), publishedGain(other.publishedGain),
      curveChanges(other.curveChanges) {
    ConnectPublished();
}

void COscilloscope::ConnectPublished() {
    normalizedHistogram.SetCount(2);
    normalizedHistogram.SetFunction(0, &publishedHistogram, Vorin::Core::kDontOwn);
    normalizedHistogram.SetFunction(1, &publishedGain, Vorin::Core::kDontOwn);
}

IFilter* COscilloscope::Clone() const { return new COscilloscope(*this); }

const IConstFilterProductInfo& COscilloscope::GetProductInfo() const {
    return OscilloscopeInfos::GetProduct();
}

const IProcessInfo& COscilloscope::GetIOConfigurations() const {
    return OscilloscopeInfos::GetIOConfigurations();
}

void COscilloscope::OnInit() {
    const double rate = GetSampleRate();
    const int count = ToSize(rate + 0.5, 1);
    audio.waveform.SetCount(count);
    audio.outputSync.SetSampleRate(rate);
    audio.binHistory.SetSize(count);
    audio.binHistory.Fill(HistogramBins::kNoBin);
    audio.binWindow = std::min(count, audio.binHistory.GetCount());
    audio.delayLine.SetSize(ToSize(kMaxDelaySeconds * rate + 0.5, 0));
    UpdateDelay();
    // The next publication shows the empty circle in its new size, and sizes the published copy.
    audio.viewChanged = true;
}

void COscilloscope::OnReset() {
    audio.waveform.Reset();
    audio.newData = false;
    audio.outputSync.Reset();
    audio.histogram.Reset();
    audio.binHistory.Fill(HistogramBins::kNoBin);
    audio.delayLine.Fill(0.0F);
}

void COscilloscope::OnInputParams(const IConstParamsValues& values, int order) {
    if (order != 0 || values.GetCount() < kParamsCount) {
        return;
    }
    audio.viewChanged = true;
    const double mode = values.GetValue(kViewMode);
    audio.viewMode = mode > 1.5 ? kTrigger : (mode > 0.5 ? kLoop : kFlow);
    const bool sync = values.GetValue(kSync) > 0.5;
    if (sync != audio.sync) {
        audio.sync = sync;
        OnReset();
    }
    audio.delayMilliseconds = values.GetValue(kDelay);
    UpdateDelay();
    audio.triggerLevel = static_cast<float>(values.GetValue(kTriggerValue));
    audio.triggerDown = values.GetValue(kTriggerDirection) > 0.5;
}

void COscilloscope::UpdateDelay() {
    audio.delaySamples = ToSize(audio.delayMilliseconds * GetSampleRate() * 0.001, 0);
}

void COscilloscope::OnProcess(IAudioStreams& inputs, IAudioStreams&, int frames,
                              const IConstInputRamp* ramp) {
    if (inputs.GetCount() == 0) {
        return;
    }
    if (ramp) {
        SetInputParams(ramp->GetAtStart());
    }
    ProcessSamples(inputs.Get(0), frames);
    if (ramp) {
        SetInputParams(ramp->GetAtEnd());
    }
}

void COscilloscope::ProcessSamples(const IAudioStream& stream, int frames) {
    const float* samples = stream.GetConstData();
    const std::ptrdiff_t stride = stream.GetStride();
    if (audio.waveform.GetCount() > 0 && samples) {
        std::array<float, kRun> gathered;
        for (int done = 0; done < frames; done += kRun) {
            const int count = std::min(frames - done, kRun);
            const float* run = samples + done * stride;
            if (stride != 1) {
                for (int i = 0; i < count; ++i) {
                    gathered[static_cast<std::size_t>(i)] = run[i * stride];
                }
                run = gathered.data();
            }
            ProcessRun(run, count);
        }
    }
    audio.outputSync.AddSamples(static_cast<std::uint32_t>(std::max(frames, 0)));
    audio.newData = frames != 0;
}

void COscilloscope::ProcessRun(const float* samples, int count) {
    std::array<float, kRun> delayedRoom;
    std::array<int, kRun> bins;
    std::array<int, kRun> leavingRoom;
    const int delay = audio.delaySamples & (audio.delayLine.GetCount() - 1);
    const float* const delayed =
        audio.delayLine.PushAndGetDelayed(samples, count, delay, delayedRoom.data());
    audio.waveform.Write(delayed, count);
    audio.histogram.FindBins(delayed, count, bins.data());
    // A sample stays in the histogram until binWindow + 1 more have followed it. At a rate that is
    // a power of two the history has no room for that many, and the masked distance comes out as 1:
    // the histogram then holds the newest sample alone. This is deliberate: the masked read is what
    // the bins are compared by.
    const int window = audio.binWindow & (audio.binHistory.GetCount() - 1);
    const int* const leaving =
        audio.binHistory.PushAndGetDelayed(bins.data(), count, window + 1, leavingRoom.data());
    audio.histogram.Count(bins.data(), leaving, count);
}

void COscilloscope::OnSilence(int frames) {
    audio.outputSync.AddSamples(static_cast<std::uint32_t>(std::max(frames, 0)));
    if (audio.waveform.GetCount() > 0) {
        audio.waveform.WriteZeros(frames);
    }
}

void COscilloscope::OnUpdateOutputs() {
    if (!audio.newData && !audio.viewChanged) {
        return;
    }
    audio.newData = false;
    audio.viewChanged = false;
    audio.publishPending = true;
    PlaceView();
    UpdateGain();
}

void COscilloscope::PlaceView() {
    Waveform& waveform = audio.waveform;
    const int newest = waveform.GetCurrentIndex();
    if (audio.viewMode == kLoop) {
        waveform.SetView(0, newest);
        return;
    }
    int place = -1;
    if (audio.viewMode == kTrigger && waveform.GetCount() > 0) {
        place = FindTrigger(waveform.GetSamples(), waveform.GetCount(),
                            newest > 0 ? newest - 1 : waveform.GetCount() - 1, audio.triggerLevel,
                            audio.triggerDown);
    }
    const int shown = place < 0 ? newest : place;
    waveform.SetView(shown, shown);
}

void COscilloscope::UpdateGain() {
    audio.histogram.FoldIntoTable();
    const float* bins = audio.histogram.GetTable().GetValues();
    const float largest = std::max(0.0F, *std::max_element(bins, bins + kBins));
    audio.histogramGain.SetValue(largest != 0.0F ? 1.0 / static_cast<double>(largest) : 0.0);
}

void COscilloscope::PublishOutputs() {
    if (!audio.publishPending) {
        return;
    }
    audio.publishPending = false;
    publishedWaveform.CopyFrom(audio.waveform);
    publishedHistogram.GetTable() = audio.histogram.GetTable();
    publishedGain.SetValue(audio.histogramGain.GetValue());
    for (int i = 0; i < kCurvesCount; ++i) {
        curveChanges.At(i).SetDirty();
    }
}

} // namespace PluginsFilters
