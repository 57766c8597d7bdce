#pragma once

#include "audio/dsp/BaseCoreDSPFilter.h"
#include "audio/dsp/OutputDataSync.h"
#include "containers/CircularBuffer.h"
#include "containers/DynamicCollection.h"
#include "core/Dirty.h"
#include "math/CircularLUTFunction.h"
#include "math/Constant.h"
#include "math/FunctionsOperation.h"
#include "math/Histogram.h"
#include "math/Interpolators.h"
#include "math/LUTFunction.h"
#include "math/LookupTable.h"

namespace PluginsFilters {

using Waveform = Vorin::Math::TCircularLUTFunction<
    Vorin::Math::TLookupTable<float, Vorin::Math::TConstrainedSplineInterpolator<float, float>>>;
using HistogramTable =
    Vorin::Math::TLookupTable<float, Vorin::Math::TNearestInterpolator<float, float>>;
using HistogramBins = Vorin::Math::THistogram<HistogramTable>;

/// One channel of analysis: keeps the last second of the samples and publishes it as two curves,
/// the time trace "Waveform" (x in seconds, -1 to 0) and the amplitude distribution "Histogram" (x
/// in sample values, -1 to 1). One input, no output: the audio passes it by.
///
/// The state has two generations: the audio side, and the published copies that readers see.
/// PublishOutputs alone touches both.
class COscilloscope : public Vorin::Audio::DSP::CBaseCoreDSPFilter {
public:
    enum EViewMode { kFlow = 0, kLoop = 1, kTrigger = 2 };

    COscilloscope();
    COscilloscope(const COscilloscope& other);
    COscilloscope& operator=(const COscilloscope&) = delete;

    Vorin::Audio::DSP::IFilter* Clone() const override;
    const Vorin::Audio::DSP::IConstFilterProductInfo& GetProductInfo() const override;
    const Vorin::Audio::DSP::IProcessInfo& GetIOConfigurations() const override;
    /// One second.
    int GetTailSamples() const override { return audio.waveform.GetCount(); }
    Vorin::Audio::DSP::IOutputDataSync* GetOutputDataSync() override { return &audio.outputSync; }
    void PublishOutputs() override;
    const Vorin::Audio::DSP::IConstCurves& GetOutputCurves() const override { return outputCurves; }
    Vorin::Audio::DSP::IChanges& GetOutputCurveChanges() override { return curveChanges; }

    /// The audio side, for whoever may call Process. The histogram's table is of the last update.
    const Waveform& GetWaveform() const { return audio.waveform; }
    const HistogramBins& GetHistogram() const { return audio.histogram; }
    const Vorin::Core::TCircularBuffer<int>& GetBinHistory() const { return audio.binHistory; }
    const Vorin::Core::TCircularBuffer<float>& GetDelayLine() const { return audio.delayLine; }
    int GetBinWindow() const { return audio.binWindow; }

protected:
    void OnInputParams(const Vorin::Audio::DSP::IConstParamsValues& values, int order) override;
    void OnSilence(int frames) override;
    void OnUpdateOutputs() override;
    void OnInit() override;
    void OnReset() override;
    void OnProcess(Vorin::Audio::DSP::IAudioStreams& inputs,
                   Vorin::Audio::DSP::IAudioStreams& outputs, int frames,
                   const Vorin::Audio::DSP::IConstInputRamp* ramp) override;

private:
    /// The published curves as a list, in the order of their infos.
    class COutputCurves : public Vorin::Audio::DSP::IConstCurves {
    public:
        COutputCurves(const Vorin::Math::IFunction& one, const Vorin::Math::IFunction& two)
            : waveform(one), histogram(two) {}

        int GetCount() const override { return 2; }
        const Vorin::Math::IFunction& Get(int index) const override {
            return index == 0 ? waveform : histogram;
        }

    private:
        const Vorin::Math::IFunction& waveform;
        const Vorin::Math::IFunction& histogram;
    };

    /// How many samples the loop takes at a time: its scratch arrays stay in the first-level cache.
    static constexpr int kRun = 256;
    static constexpr int kBins = 151;

    void ProcessSamples(const Vorin::Audio::DSP::IAudioStream& stream, int frames);
    void ProcessRun(const float* samples, int count);
    void PlaceView();
    void UpdateGain();
    void UpdateDelay();
    void ConnectPublished();

    /// What the audio thread works on.
    struct CAudioSide {
        bool newData = false;        // samples arrived since the last update
        bool viewChanged = false;    // a view parameter changed since the last update
        bool publishPending = false; // an update has run since the last publication
        double delayMilliseconds = 0.0;
        int delaySamples = 0;
        Vorin::Audio::DSP::COutputDataSync outputSync;
        Waveform waveform{-1.0F, 0.0F};
        HistogramBins histogram{kBins, -1.0F, 1.0F};
        Vorin::Math::CConstantFunction histogramGain; // so that the tallest bin reads 1
        Vorin::Core::TCircularBuffer<int> binHistory; // the bin of each recent sample, -1 for none
        int binWindow = 0; // the histogram covers this many samples and one more
        Vorin::Core::TCircularBuffer<float> delayLine;
        EViewMode viewMode = kFlow;
        bool sync = false;
        float triggerLevel = 0.0F;
        bool triggerDown = false;
    };

    CAudioSide audio;

    // What readers see.
    Waveform publishedWaveform;
    Vorin::Math::TLUTFunction<HistogramTable> publishedHistogram;
    Vorin::Math::CConstantFunction publishedGain{1.0};
    Vorin::Math::TFunctionsOperation<&Vorin::Math::FunctionsLibrary::Product> normalizedHistogram;
    COutputCurves outputCurves{publishedWaveform, normalizedHistogram};
    Vorin::CoreUtilities::TDynamicCollection<Vorin::Core::CDirty, Vorin::Core::IDirty> curveChanges;
};

} // namespace PluginsFilters
