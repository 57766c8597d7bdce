#pragma once

#include "audio/dsp/Filter.h"

#include <cstdint>

namespace Vorin::Audio::DSP {

/// A filter with everything but its signal code: a derived filter declares its infos in its
/// constructor and overrides the hooks that it needs.
///
/// The lists of infos are borrowed; they are static tables in practice, shared by all instances.
class CBaseCoreDSPFilter : public IFilter {
public:
    /// In this order: the hook OnInit, the defaults if asked for, then OnReset.
    void Init(const CFilterConfig& config, double sampleRate) override;
    void Uninit() override {}

    const IConstParamInfos& GetInputParamInfos() const override { return *inputParamInfos; }
    const IConstStringInfos& GetInputStringInfos() const override { return *inputStringInfos; }
    const IConstCurveInfos& GetInputCurveInfos() const override { return *inputCurveInfos; }
    const IConstSurfaceInfos& GetInputSurfaceInfos() const override { return *inputSurfaceInfos; }
    const IConstPropertyInfos& GetInputPropertyInfos() const override {
        return *inputPropertyInfos;
    }
    void SetInputParams(const IConstFilterPropertiesVariations& values) override;

    const IIOConfiguration& GetIOConfiguration() const override;
    int GetTailSamples() const override { return 0; }
    int GetLatency() const override { return 0; }

    void Process(const CProcessRecord& record) override;
    /// Goes on with OnProcess over silent inputs for the tail, then over to the cheap OnSilence.
    bool ProcessSilence(const CProcessRecord& record) override;
    void Reset() override { OnReset(); }

    IOutputDataSync* GetOutputDataSync() override { return nullptr; }
    void UpdateOutputs() override;
    void PublishOutputs() override {}

    const IConstParamInfos& GetOutputParamInfos() const override { return *outputParamInfos; }
    const IConstParamsValues& GetOutputParamValues() const override;
    const IConstParamInfos& GetPrivateOutputParamInfos() const override;
    const IConstParamsValues& GetPrivateOutputParamValues() const override;
    const IConstStringInfos& GetOutputStringInfos() const override { return *outputStringInfos; }
    const IConstStrings& GetOutputStrings() const override;
    IChanges& GetOutputStringChanges() override;
    const IConstCurveInfos& GetOutputCurveInfos() const override { return *outputCurveInfos; }
    const IConstCurves& GetOutputCurves() const override;
    IChanges& GetOutputCurveChanges() override;
    const IConstSurfaceInfos& GetOutputSurfaceInfos() const override { return *outputSurfaceInfos; }
    const IConstSurfaces& GetOutputSurfaces() const override;
    IChanges& GetOutputSurfaceChanges() override;
    const IConstPropertyInfos& GetOutputPropertyInfos() const override {
        return *outputPropertyInfos;
    }
    const IConstPropertyValues& GetOutputProperties() const override;
    IChanges& GetOutputPropertyChanges() override;

    const ILegacyPresets& GetLegacyPresets() const override;

protected:
    CBaseCoreDSPFilter();

    // For the constructor of the derived filter. The lists outlive it.
    void SetInputParamInfos(const IConstParamInfos& infos) { inputParamInfos = &infos; }
    void SetInputStringInfos(const IConstStringInfos& infos) { inputStringInfos = &infos; }
    void SetInputCurveInfos(const IConstCurveInfos& infos) { inputCurveInfos = &infos; }
    void SetInputSurfaceInfos(const IConstSurfaceInfos& infos) { inputSurfaceInfos = &infos; }
    void SetInputPropertyInfos(const IConstPropertyInfos& infos) { inputPropertyInfos = &infos; }
    void SetOutputParamInfos(const IConstParamInfos& infos) { outputParamInfos = &infos; }
    void SetOutputStringInfos(const IConstStringInfos& infos) { outputStringInfos = &infos; }
    void SetOutputCurveInfos(const IConstCurveInfos& infos) { outputCurveInfos = &infos; }
    void SetOutputSurfaceInfos(const IConstSurfaceInfos& infos) { outputSurfaceInfos = &infos; }
    void SetOutputPropertyInfos(const IConstPropertyInfos& infos) { outputPropertyInfos = &infos; }

    /// In Hz; 0 before the first Init.
    double GetSampleRate() const { return sampleRate; }

    /// The hooks. None of them allocates but OnInit.
    virtual void OnInputParams(const IConstParamsValues& values, int order);
    /// A silent block after the tail.
    virtual void OnSilence(int frames);
    virtual void OnUpdateOutputParams() {}
    virtual void OnUpdateOutputs() {}
    virtual void OnInit() {}
    virtual void OnReset() {}
    virtual void OnProcessDone(const CProcessRecord& record);
    /// True for a filter that never takes the cheap path.
    virtual bool IsActiveWhenSilent() const { return false; }
    /// The ramp may be null. It is the filter's to apply.
    virtual void OnProcess(IAudioStreams& inputs, IAudioStreams& outputs, int frames,
                           const IConstInputRamp* ramp);

private:
    void PassSilence(const CProcessRecord& record);
    void CountSilentFrames(int frames);

    const IConstParamInfos* inputParamInfos;
    const IConstStringInfos* inputStringInfos;
    const IConstCurveInfos* inputCurveInfos;
    const IConstSurfaceInfos* inputSurfaceInfos;
    const IConstPropertyInfos* inputPropertyInfos;
    const IConstParamInfos* outputParamInfos;
    const IConstStringInfos* outputStringInfos;
    const IConstCurveInfos* outputCurveInfos;
    const IConstSurfaceInfos* outputSurfaceInfos;
    const IConstPropertyInfos* outputPropertyInfos;

    double sampleRate = 0.0;
    std::int64_t silentFrames = 0;
    int configurationIndex = -1;
};

} // namespace Vorin::Audio::DSP
