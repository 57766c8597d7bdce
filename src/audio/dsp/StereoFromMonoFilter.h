#pragma once

#include "audio/dsp/ForwardingFilter.h"
#include "audio/dsp/Mux.h"
#include "audio/dsp/OutputInfos.h"

#include <algorithm>

namespace Vorin::Audio::DSP {

/// Two mono filters as one stereo filter. Both follow one set of input values; each has its own
/// outputs, the left one's first, named with " (L)" and " (R)".
///
/// F is the mono filter. The two lie here by value: no indirection in the sample loop.
template <class F>
class TStereoFromMonoFilter : public CForwardingFilter {
public:
    TStereoFromMonoFilter() = default;
    TStereoFromMonoFilter(const TStereoFromMonoFilter& other)
        : CForwardingFilter(other), left(other.left), right(other.right) {}
    TStereoFromMonoFilter& operator=(const TStereoFromMonoFilter&) = delete;

    IFilter* Clone() const override { return new TStereoFromMonoFilter(*this); }

    void Init(const CFilterConfig& config, double sampleRate) override {
        configurationIndex = config.configuration;
        left.Init(config, sampleRate);
        right.Init(config, sampleRate);
    }
    void Uninit() override {
        left.Uninit();
        right.Uninit();
    }

    const IProcessInfo& GetIOConfigurations() const override { return processInfo; }
    const IIOConfiguration& GetIOConfiguration() const override {
        return SelectConfiguration(processInfo, configurationIndex);
    }
    int GetTailSamples() const override {
        return std::max(left.GetTailSamples(), right.GetTailSamples());
    }
    int GetLatency() const override { return std::max(left.GetLatency(), right.GetLatency()); }

    void SetInputParams(const IConstFilterPropertiesVariations& values) override {
        left.SetInputParams(values);
        right.SetInputParams(values);
    }

    void Process(const CProcessRecord& record) override {
        ProcessChannel(left, record, 0);
        ProcessChannel(right, record, 1);
    }

    bool ProcessSilence(const CProcessRecord& record) override {
        const bool leftSounds = ProcessSilentChannel(left, record, 0);
        const bool rightSounds = ProcessSilentChannel(right, record, 1);
        return leftSounds || rightSounds;
    }

    void Reset() override {
        left.Reset();
        right.Reset();
    }
    IOutputDataSync* GetOutputDataSync() override { return &outputSync; }
    void UpdateOutputs() override {
        left.UpdateOutputs();
        right.UpdateOutputs();
    }
    void PublishOutputs() override {
        left.PublishOutputs();
        right.PublishOutputs();
    }

    const IConstParamInfos& GetOutputParamInfos() const override { return outputInfos.params; }
    const IConstParamsValues& GetOutputParamValues() const override { return outputParamValues; }
    const IConstParamInfos& GetPrivateOutputParamInfos() const override {
        return outputInfos.privateParams;
    }
    const IConstParamsValues& GetPrivateOutputParamValues() const override {
        return privateOutputParamValues;
    }
    const IConstStringInfos& GetOutputStringInfos() const override { return outputInfos.strings; }
    const IConstStrings& GetOutputStrings() const override { return outputStrings; }
    IChanges& GetOutputStringChanges() override { return stringChanges; }
    const IConstCurveInfos& GetOutputCurveInfos() const override { return outputInfos.curves; }
    const IConstCurves& GetOutputCurves() const override { return outputCurves; }
    IChanges& GetOutputCurveChanges() override { return curveChanges; }
    const IConstSurfaceInfos& GetOutputSurfaceInfos() const override {
        return outputInfos.surfaces;
    }
    const IConstSurfaces& GetOutputSurfaces() const override { return outputSurfaces; }
    IChanges& GetOutputSurfaceChanges() override { return surfaceChanges; }
    const IConstPropertyInfos& GetOutputPropertyInfos() const override {
        return outputInfos.properties;
    }
    const IConstPropertyValues& GetOutputProperties() const override { return outputProperties; }
    IChanges& GetOutputPropertyChanges() override { return propertyChanges; }

protected:
    const IFilter& Target() const override { return left; }
    IFilter& Target() override { return left; }

private:
    static void ProcessChannel(F& filter, const CProcessRecord& record, int channel) {
        CAudioStreamToStreams inputs(StreamAt(record.inputs, channel), Core::kDontOwn);
        CAudioStreamToStreams outputs(StreamAt(record.outputs, channel), Core::kDontOwn);
        filter.Process({&inputs, &outputs, record.frames, record.ramp, record.midiEvents});
    }

    static bool ProcessSilentChannel(F& filter, const CProcessRecord& record, int channel) {
        CAudioStreamToStreams outputs(StreamAt(record.outputs, channel), Core::kDontOwn);
        return filter.ProcessSilence(
            {record.inputs, &outputs, record.frames, record.ramp, record.midiEvents});
    }

    F left;
    F right;
    int inputCount = 2 * left.GetIOConfigurations().GetInputInfos().GetCount();
    int outputCount = 2 * left.GetIOConfigurations().GetOutputInfos().GetCount();
    CProcessInfo processInfo{inputCount, outputCount};
    int configurationIndex = -1;
    COutputDataSyncMux outputSync{left, right};

    TOutputInfos<TMonoToStereoInfo> outputInfos{left};
    CConstParamsValuesMux outputParamValues{left.GetOutputParamValues(),
                                            right.GetOutputParamValues()};
    CConstParamsValuesMux privateOutputParamValues{left.GetPrivateOutputParamValues(),
                                                   right.GetPrivateOutputParamValues()};
    TConstValuesMux<const char*> outputStrings{left.GetOutputStrings(), right.GetOutputStrings()};
    TVectorMux<Core::IDirty> stringChanges{left.GetOutputStringChanges(),
                                           right.GetOutputStringChanges()};
    TConstVectorMux<Math::IFunction> outputCurves{left.GetOutputCurves(), right.GetOutputCurves()};
    TVectorMux<Core::IDirty> curveChanges{left.GetOutputCurveChanges(),
                                          right.GetOutputCurveChanges()};
    TConstVectorMux<Math::IBinaryFunction> outputSurfaces{left.GetOutputSurfaces(),
                                                          right.GetOutputSurfaces()};
    TVectorMux<Core::IDirty> surfaceChanges{left.GetOutputSurfaceChanges(),
                                            right.GetOutputSurfaceChanges()};
    TConstVectorMux<DataModel::Objects::IDynamicPropertyValue> outputProperties{
        left.GetOutputProperties(), right.GetOutputProperties()};
    TVectorMux<Core::IDirty> propertyChanges{left.GetOutputPropertyChanges(),
                                             right.GetOutputPropertyChanges()};
};

} // namespace Vorin::Audio::DSP
