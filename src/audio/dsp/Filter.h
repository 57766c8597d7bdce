#pragma once

#include "audio/dsp/AudioStreams.h"
#include "audio/dsp/FilterProductInfo.h"
#include "audio/dsp/FilterPropertiesVariations.h"
#include "audio/dsp/IOConfiguration.h"
#include "audio/dsp/LegacyPresets.h"
#include "audio/dsp/OutputDataSync.h"
#include "core/Dirty.h"
#include "datamodel/CurveInfo.h"
#include "datamodel/CustomPropertyInfo.h"
#include "datamodel/ParamInfo.h"
#include "datamodel/StringInfo.h"
#include "datamodel/SurfaceInfo.h"

namespace Vorin::Audio::MIDI {
class IConstMIDIEvent;
}

namespace Vorin::Audio::DSP {

using IConstParamInfos = Containers::IConstVector<DataModel::Objects::IConstParamInfo>;
using IConstStringInfos = Containers::IConstVector<DataModel::Objects::IConstStringInfo>;
using IConstCurveInfos = Containers::IConstVector<DataModel::Objects::IConstCurveInfo>;
using IConstSurfaceInfos = Containers::IConstVector<DataModel::Objects::IConstSurfaceInfo>;
using IConstPropertyInfos = Containers::IConstVector<DataModel::Objects::IConstCustomPropertyInfo>;

/// One mark per output; the filter sets it when it publishes a new value.
using IChanges = Containers::IVector<Core::IDirty>;

/// How a filter is to run.
struct CFilterConfig {
    bool applyDefaults = false; ///< reset the input values to their defaults
    int blockSize = -1;         ///< the largest block in frames, -1 if unknown
    int mode = 1;               ///< 1 in the running plug-in, 2 at creation
    int configuration = -1;     ///< index in the list of configurations, -1 for the default
};

/// One block to process. All of it is borrowed.
struct CProcessRecord {
    IAudioStreams* inputs = nullptr;  ///< may be null; read only
    IAudioStreams* outputs = nullptr; ///< may be null
    int frames = 0;
    const IConstInputRamp* ramp = nullptr; ///< null when no input value changed
    const Containers::IConstVector<MIDI::IConstMIDIEvent>* midiEvents = nullptr; ///< may be null
};

/// A block of signal processing: what it takes and gives, how it runs, and how it publishes
/// results.
///
/// Not thread-safe: its user sees to it that one thread at a time is in Process, ProcessSilence,
/// SetInputParams, Init, Reset or UpdateOutputs. PublishOutputs bridges to the readers: the user
/// holds a lock of its own around it and around every use of the published outputs. The getters of
/// infos are constant after construction. [any]
///
/// Call order: construct; Init, any number of times; then Process and ProcessSilence interleaved in
/// any order, with Reset between blocks.
class IFilter {
public:
    /// A deep copy that the caller owns. It needs Init only where the sample rate changes.
    virtual IFilter* Clone() const = 0;
    virtual const IConstFilterProductInfo& GetProductInfo() const = 0;
    /// Sizes everything for the rate and forgets all history. Allocates. `sampleRate` in Hz, above
    /// 0.
    virtual void Init(const CFilterConfig& config, double sampleRate) = 0;
    virtual void Uninit() = 0;

    virtual const IConstParamInfos& GetInputParamInfos() const = 0;
    virtual const IConstStringInfos& GetInputStringInfos() const = 0;
    virtual const IConstCurveInfos& GetInputCurveInfos() const = 0;
    virtual const IConstSurfaceInfos& GetInputSurfaceInfos() const = 0;
    virtual const IConstPropertyInfos& GetInputPropertyInfos() const = 0;
    /// Takes the input values of order 0; nothing when there are none.
    virtual void SetInputParams(const IConstFilterPropertiesVariations& values) = 0;

    virtual const IProcessInfo& GetIOConfigurations() const = 0;
    /// The one selected at Init.
    virtual const IIOConfiguration& GetIOConfiguration() const = 0;
    /// For how many frames the filter has to go on after its input fell silent.
    virtual int GetTailSamples() const = 0;
    virtual int GetLatency() const = 0;

    virtual void Process(const CProcessRecord& record) = 0;
    /// A block whose inputs are silent, whatever the record holds of them. True when the outputs
    /// may carry anything but silence.
    virtual bool ProcessSilence(const CProcessRecord& record) = 0;
    virtual void Reset() = 0;

    /// Null when the filter leaves the pacing to its user.
    virtual IOutputDataSync* GetOutputDataSync() = 0;
    /// Computes the outputs from what was processed.
    virtual void UpdateOutputs() = 0;
    /// Copies the outputs to where readers see them, and marks what changed. [any, under the lock
    /// of the readers]
    virtual void PublishOutputs() = 0;

    virtual const IConstParamInfos& GetOutputParamInfos() const = 0;
    virtual const IConstParamsValues& GetOutputParamValues() const = 0;
    virtual const IConstParamInfos& GetPrivateOutputParamInfos() const = 0;
    virtual const IConstParamsValues& GetPrivateOutputParamValues() const = 0;
    virtual const IConstStringInfos& GetOutputStringInfos() const = 0;
    virtual const IConstStrings& GetOutputStrings() const = 0;
    virtual IChanges& GetOutputStringChanges() = 0;
    virtual const IConstCurveInfos& GetOutputCurveInfos() const = 0;
    virtual const IConstCurves& GetOutputCurves() const = 0;
    virtual IChanges& GetOutputCurveChanges() = 0;
    virtual const IConstSurfaceInfos& GetOutputSurfaceInfos() const = 0;
    virtual const IConstSurfaces& GetOutputSurfaces() const = 0;
    virtual IChanges& GetOutputSurfaceChanges() = 0;
    virtual const IConstPropertyInfos& GetOutputPropertyInfos() const = 0;
    virtual const IConstPropertyValues& GetOutputProperties() const = 0;
    virtual IChanges& GetOutputPropertyChanges() = 0;

    virtual const ILegacyPresets& GetLegacyPresets() const = 0;
    virtual ~IFilter() = default;
};

} // namespace Vorin::Audio::DSP
