#pragma once

#include "audio/dsp/BypassManager.h"
#include "audio/dsp/Filter.h"
#include "audio/dsp/Mux.h"
#include "audio/plugin/HostParam.h"
#include "audio/plugin/InputObjects.h"
#include "audio/plugin/InputParamsRamp.h"
#include "audio/plugin/MTOutput.h"
#include "core/Value.h"
#include "system/MTEventProvider.h"
#include "system/PollingLock.h"
#include "system/RealtimeEventProvider.h"

#include <atomic>
#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

/// Runs a filter: owns it, and carries values between the audio thread and everyone else.
///
/// Call order:
///   1. construct with a filter that has been through Init with its defaults;
///   2. Connect the input values;
///   3. Configure, any number of times, with the processing held off;
///   4. for each block PrepareBlock, the bypass manager's Process or ProcessSilence,
///   NotifyProcessed,
///      FinishRamp, and the outputs as GetOutputDataSync asks for them. CBlockProcessor does this.
///
/// Parameters cross by plain reads of whole doubles at the head of a block: one that is read a
/// block late is harmless. Texts, curves, surfaces and custom properties cross as counted
/// references, each under a lock of its own, which the audio thread only ever tries: one that it
/// cannot have just now is due at the next block. Values that belong together are stored between
/// BeginChanges and EndChanges, and the filter gets all of them at once. Outputs cross under the
/// outputs lock, which the audio thread only ever tries, too.
class CFilterHost {
public:
    struct CConfig {
        std::unique_ptr<DSP::IFilter> filter; ///< not null
        double defaultRefreshRate = 50.0;     ///< of the outputs, in Hz
    };

    explicit CFilterHost(CConfig config);
    CFilterHost(const CFilterHost&) = delete;
    CFilterHost& operator=(const CFilterHost&) = delete;
    virtual ~CFilterHost() = default;

    /// The input parameters: "Bypass" first, then those of the filter. Constant. [any]
    const DSP::IConstParamInfos& GetInputInfos() const { return inputInfos; }
    /// [any]
    const DSP::IConstCurveInfos& GetOutputCurveInfos() const {
        return filter->GetOutputCurveInfos();
    }

    /// The inputs that are no parameters: they hold their values themselves. [any]
    CInputObjects& GetInputObjects() { return inputObjects; }
    const CInputObjects& GetInputObjects() const { return inputObjects; }

    /// Takes the objects that hold the input parameters, one per info; they are borrowed.
    /// [any, idle]
    void Connect(IHostParams& values);
    /// Lets go of them again. [any, idle]
    void Disconnect();

    /// Holds the input values back from the filter, which goes on with those it has, until all of
    /// what is being restored is stored. One thread at a time. [any]
    void BeginChanges() { changes.fetch_add(1, std::memory_order_acq_rel); }
    void EndChanges() { changes.fetch_add(1, std::memory_order_acq_rel); }

    /// The largest channel counts among the filter's configurations. [any]
    void GetIOChannels(int& inputs, int& outputs) const;

    /// Whether Configure takes the rate: a positive number below 2^22 Hz. [any]
    static bool IsSampleRate(double hz);

    /// Makes the filter ready for a rate and a block size, with the values as they are now, and
    /// runs a first publication. False, with nothing changed, for what is no sample rate.
    /// Allocates. [any, idle]
    [[nodiscard]] bool Configure(const DSP::CFilterConfig& config, double newSampleRate);

    /// The sample rate in Hz, 0 before the first Configure, with its change event.
    Core::TIConstValue<double>& GetSampleRate() { return sampleRate; }

    /// Takes over the input values. The ramp of those that changed, or null; it lives until the
    /// next call, and FinishRamp is due after the block. [audio]
    const DSP::IConstInputRamp* PrepareBlock();
    /// [audio]
    void FinishRamp() { ramp.Finish(); }
    /// Counts the frames where the filter leaves the pacing to its user. [audio]
    void NotifyProcessed(int frames);

    /// Brings the filter the input values while no block runs. [any, idle]
    void ApplyPending();

    DSP::IOutputDataSync& GetOutputDataSync();

    /// Publishes the filter's outputs to their readers and tells them. False when a reader held the
    /// lock, which only the non-blocking form heeds; what was to be published is then still due.
    /// The non-blocking form never waits. [audio, or any, idle]
    [[nodiscard]] bool TransferOutputs(bool blocking);

    /// Held by whoever reads an output's value. Keep it short: the display stands still meanwhile.
    System::CPollingLock& GetOutputsLock() { return outputsLock; }
    /// One per output curve of the filter.
    TMTOutput<Math::IFunction>& GetOutputCurve(int index) {
        return *mtOutputCurves[static_cast<std::size_t>(index)];
    }

    /// Fires when the filter gets a new value of its input parameter `index`, on the thread that
    /// brings it; where that may not wait, with a later block. See CRealtimeEventProvider.
    Core::IEventProvider& GetFilterChange(int index) {
        return filterChanges[static_cast<std::size_t>(index)];
    }

    DSP::CFilterBypassManager& GetBypassManager() { return bypassManager; }
    DSP::IFilter& GetFilter() { return *filter; }
    const DSP::IFilter& GetFilter() const { return *filter; }

private:
    template <class T>
    using Outputs = std::vector<std::unique_ptr<TMTOutput<T>>>;

    bool TakeInputValues();
    bool TakeInputParams();
    void BringInputValues(bool isChanged);
    void Publish();
    void NotifyReaders();

    const std::unique_ptr<DSP::IFilter> filter;

    // Constant after construction.
    CoreUtilities::TDynamicCollection<DataModel::Objects::CParamInfo,
                                      DataModel::Objects::IConstParamInfo>
        ownInfos; // "Bypass"
    DSP::TConstVectorMux<DataModel::Objects::IConstParamInfo> inputInfos;
    IHostParams* inputValues = nullptr;

    CInputObjects inputObjects;
    std::atomic<unsigned> changes{0}; // odd while values are being stored together

    // The audio side.
    std::vector<double> taken; // the input values as they were read for this block
    unsigned takenChanges = 0; // the count of changes that the filter has got all values of
    DSP::CFilterBypassManager bypassManager;
    CInputParamsRamp ramp;
    std::vector<System::CRealtimeEventProvider> filterChanges;
    DSP::COutputDataSync fallbackSync;
    Core::TValue<double, System::CMTEventProvider> sampleRate;

    // Guarded by outputsLock.
    System::CPollingLock outputsLock;
    Outputs<char> mtOutputStrings;
    std::vector<std::size_t> textMarks; // of the last published texts
    Outputs<Math::IFunction> mtOutputCurves;
    Outputs<Math::IBinaryFunction> mtOutputSurfaces;
    Outputs<DataModel::Objects::IDynamicPropertyValue> mtOutputProperties;
};

} // namespace Vorin::Audio::Plugin
