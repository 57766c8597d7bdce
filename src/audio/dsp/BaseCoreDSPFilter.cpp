#include "audio/dsp/BaseCoreDSPFilter.h"

#include "audio/dsp/StreamOperations.h"

#include <limits>

namespace Vorin::Audio::DSP {

namespace {

template <class T>
class TEmptyVector : public Containers::IVector<T> {
public:
    int GetCount() const override { return 0; }
    // There is no valid index, so neither can be called; the contract of IVector says so.
    const T& Get(int) const override { std::terminate(); }
    T& Get(int) override { std::terminate(); }
};

/// The empty list of everything that a filter may leave undeclared; one of each serves all filters.
template <class T>
TEmptyVector<T>& Empty() {
    static TEmptyVector<T> empty;
    return empty;
}

const CParamsValues& EmptyValues() {
    static const CParamsValues empty;
    return empty;
}

const CStrings& EmptyStrings() {
    static const CStrings empty;
    return empty;
}

} // namespace

using namespace DataModel::Objects;

CBaseCoreDSPFilter::CBaseCoreDSPFilter()
    : inputParamInfos(&Empty<IConstParamInfo>()), inputStringInfos(&Empty<IConstStringInfo>()),
      inputCurveInfos(&Empty<IConstCurveInfo>()), inputSurfaceInfos(&Empty<IConstSurfaceInfo>()),
      inputPropertyInfos(&Empty<IConstCustomPropertyInfo>()),
      outputParamInfos(&Empty<IConstParamInfo>()), outputStringInfos(&Empty<IConstStringInfo>()),
      outputCurveInfos(&Empty<IConstCurveInfo>()), outputSurfaceInfos(&Empty<IConstSurfaceInfo>()),
      outputPropertyInfos(&Empty<IConstCustomPropertyInfo>()) {
    // What the getters below hand out is created here, so that no getter does it on the audio
    // thread.
    EmptyValues();
    EmptyStrings();
    Empty<Core::IDirty>();
    Empty<Math::IFunction>();
    Empty<Math::IBinaryFunction>();
    Empty<IDynamicPropertyValue>();
}

void CBaseCoreDSPFilter::Init(const CFilterConfig& config, double rate) {
    configurationIndex = config.configuration;
    sampleRate = rate;
    OnInit();
    if (config.applyDefaults) {
        CFilterProperties defaults;
        defaults.Fill(*this);
        SetInputParams(CFilterPropertiesVariations(defaults));
    }
    silentFrames = 0;
    OnReset();
}

void CBaseCoreDSPFilter::SetInputParams(const IConstFilterPropertiesVariations& values) {
    if (values.HasOrder(0)) {
        OnInputParams(values.GetVariation(0).GetInputParams(), 0);
    }
}

const IIOConfiguration& CBaseCoreDSPFilter::GetIOConfiguration() const {
    return SelectConfiguration(GetIOConfigurations(), configurationIndex);
}

void CBaseCoreDSPFilter::Process(const CProcessRecord& record) {
    silentFrames = 0;
    if (record.inputs && record.outputs) {
        OnProcess(*record.inputs, *record.outputs, record.frames, record.ramp);
    }
    OnProcessDone(record);
}

bool CBaseCoreDSPFilter::ProcessSilence(const CProcessRecord& record) {
    if (!record.outputs) {
        return false;
    }
    if (silentFrames >= GetTailSamples() && !IsActiveWhenSilent()) {
        PassSilence(record);
        return false;
    }
    CountSilentFrames(record.frames);
    CEmptyStreams silence(GetIOConfiguration().GetInputInfos().GetCount(), record.frames);
    OnProcess(silence, *record.outputs, record.frames, record.ramp);
    CProcessRecord done = record;
    done.inputs = &silence;
    OnProcessDone(done);
    return true;
}

void CBaseCoreDSPFilter::PassSilence(const CProcessRecord& record) {
    if (record.ramp) {
        SetInputParams(record.ramp->GetAtStart());
    }
    OnSilence(record.frames);
    StreamOperations::Clear(*record.outputs, record.frames);
    CountSilentFrames(record.frames);
    if (record.ramp) {
        SetInputParams(record.ramp->GetAtEnd());
    }
}

void CBaseCoreDSPFilter::CountSilentFrames(int frames) {
    if (frames > 0 && silentFrames <= std::numeric_limits<std::int64_t>::max() - frames) {
        silentFrames += frames;
    }
}

void CBaseCoreDSPFilter::UpdateOutputs() {
    OnUpdateOutputParams();
    OnUpdateOutputs();
}

const IConstParamsValues& CBaseCoreDSPFilter::GetOutputParamValues() const { return EmptyValues(); }

const IConstParamInfos& CBaseCoreDSPFilter::GetPrivateOutputParamInfos() const {
    return Empty<IConstParamInfo>();
}

const IConstParamsValues& CBaseCoreDSPFilter::GetPrivateOutputParamValues() const {
    return EmptyValues();
}

const IConstStrings& CBaseCoreDSPFilter::GetOutputStrings() const { return EmptyStrings(); }

IChanges& CBaseCoreDSPFilter::GetOutputStringChanges() { return Empty<Core::IDirty>(); }

const IConstCurves& CBaseCoreDSPFilter::GetOutputCurves() const { return Empty<Math::IFunction>(); }

IChanges& CBaseCoreDSPFilter::GetOutputCurveChanges() { return Empty<Core::IDirty>(); }

const IConstSurfaces& CBaseCoreDSPFilter::GetOutputSurfaces() const {
    return Empty<Math::IBinaryFunction>();
}

IChanges& CBaseCoreDSPFilter::GetOutputSurfaceChanges() { return Empty<Core::IDirty>(); }

const IConstPropertyValues& CBaseCoreDSPFilter::GetOutputProperties() const {
    return Empty<IDynamicPropertyValue>();
}

IChanges& CBaseCoreDSPFilter::GetOutputPropertyChanges() { return Empty<Core::IDirty>(); }

const ILegacyPresets& CBaseCoreDSPFilter::GetLegacyPresets() const {
    static const CLegacyPresets empty;
    return empty;
}

void CBaseCoreDSPFilter::OnInputParams(const IConstParamsValues&, int) {}

void CBaseCoreDSPFilter::OnSilence(int) {}

void CBaseCoreDSPFilter::OnProcessDone(const CProcessRecord&) {}

void CBaseCoreDSPFilter::OnProcess(IAudioStreams&, IAudioStreams&, int, const IConstInputRamp*) {}

} // namespace Vorin::Audio::DSP
