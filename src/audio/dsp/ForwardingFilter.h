#pragma once

#include "audio/dsp/Filter.h"

namespace Vorin::Audio::DSP {

/// A filter around another one: it does what the inner filter does, and a derived class changes
/// what differs. Clone, Init and Process are left to the derived class, so that none is forgotten.
class CForwardingFilter : public IFilter {
public:
    const IConstFilterProductInfo& GetProductInfo() const override {
        return Target().GetProductInfo();
    }
    void Uninit() override { Target().Uninit(); }

    const IConstParamInfos& GetInputParamInfos() const override {
        return Target().GetInputParamInfos();
    }
    const IConstStringInfos& GetInputStringInfos() const override {
        return Target().GetInputStringInfos();
    }
    const IConstCurveInfos& GetInputCurveInfos() const override {
        return Target().GetInputCurveInfos();
    }
    const IConstSurfaceInfos& GetInputSurfaceInfos() const override {
        return Target().GetInputSurfaceInfos();
    }
    const IConstPropertyInfos& GetInputPropertyInfos() const override {
        return Target().GetInputPropertyInfos();
    }

    const IProcessInfo& GetIOConfigurations() const override {
        return Target().GetIOConfigurations();
    }
    const IIOConfiguration& GetIOConfiguration() const override {
        return Target().GetIOConfiguration();
    }
    int GetTailSamples() const override { return Target().GetTailSamples(); }
    int GetLatency() const override { return Target().GetLatency(); }

    void Reset() override { Target().Reset(); }
    IOutputDataSync* GetOutputDataSync() override { return Target().GetOutputDataSync(); }
    void UpdateOutputs() override { Target().UpdateOutputs(); }
    void PublishOutputs() override { Target().PublishOutputs(); }

    const IConstParamsValues& GetOutputParamValues() const override {
        return Target().GetOutputParamValues();
    }
    const IConstParamsValues& GetPrivateOutputParamValues() const override {
        return Target().GetPrivateOutputParamValues();
    }
    const IConstStrings& GetOutputStrings() const override { return Target().GetOutputStrings(); }
    IChanges& GetOutputStringChanges() override { return Target().GetOutputStringChanges(); }
    const IConstCurves& GetOutputCurves() const override { return Target().GetOutputCurves(); }
    IChanges& GetOutputCurveChanges() override { return Target().GetOutputCurveChanges(); }
    const IConstSurfaces& GetOutputSurfaces() const override {
        return Target().GetOutputSurfaces();
    }
    IChanges& GetOutputSurfaceChanges() override { return Target().GetOutputSurfaceChanges(); }
    const IConstPropertyValues& GetOutputProperties() const override {
        return Target().GetOutputProperties();
    }
    IChanges& GetOutputPropertyChanges() override { return Target().GetOutputPropertyChanges(); }

    const ILegacyPresets& GetLegacyPresets() const override { return Target().GetLegacyPresets(); }

protected:
    virtual const IFilter& Target() const = 0;
    virtual IFilter& Target() = 0;
};

} // namespace Vorin::Audio::DSP
