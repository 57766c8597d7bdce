#pragma once

#include "audio/plugin/AudioPluginModel.h"
#include "audio/plugin/FilterHost.h"
#include "audio/plugin/PluginGUI.h"
#include "audio/plugin/midi/MIDIController.h"
#include "audio/plugin/presets/AudioPluginConfig.h"
#include "audio/plugin/presets/PresetState.h"
#include "audio/plugin/presets/PresetsManager.h"
#include "system/CriticalSection.h"

#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

/// What the product's top level puts a plug-in together from.
struct CAudioPluginConfig {
    std::unique_ptr<DSP::IFilter> filter; ///< not null, and through Init with its defaults
    std::unique_ptr<IPluginGUI> gui;      ///< null: there is no editor
    /// Static; null leaves it to what the filter says of itself.
    const DSP::IConstFilterProductInfo* productInfo = nullptr;
    /// False: the state is neither saved nor restored, and a saved preset is an empty document.
    bool storeState = true;
};

/// The host-independent plug-in: a filter that runs, its MIDI control, its presets and its state.
///
/// The state is one document, which a host keeps in its project, a preset is a file of, and the
/// undo history takes snapshots of. It may be saved and restored by any thread while another runs
/// the audio: the values of a state reach the filter all at once, and a document that is refused
/// leaves everything as it was.
///
/// What is called by [audio] is what CFilterHost says, and ApplyMIDI and MakeOutputCC.
class CAudioPluginInternals : public CFilterHost, private IPresetState, private IMIDIValueReceiver {
public:
    /// The static settings are borrowed, and initialised here if nobody did.
    CAudioPluginInternals(CAudioPluginConfig config, IStaticSettings& staticSettings);
    ~CAudioPluginInternals() override;

    /// Takes the host's objects for the values of inputs and outputs, one per info, and the command
    /// that brings a restored state to a filter that is idle; all are borrowed, the command may be
    /// null. [any, idle]
    void Connect(IHostParams& inputs, IHostParams& outputs, Core::ICommand* refresh = nullptr);
    /// Lets go of them again. [any, idle]
    void Disconnect();

    /// See CFilterHost. Every output's controller is sent anew after it. [any, idle]
    [[nodiscard]] bool Configure(const DSP::CFilterConfig& config, double newSampleRate);

    const DSP::IConstFilterProductInfo& GetProductInfo() const;

    /// Gives the inputs what the event says; true for every controller event. [audio]
    bool ApplyMIDI(const MIDI::IConstMIDIEvent& event, CMIDICCValues& message);
    /// The controller event of an output, when its value has moved far enough. [audio]
    bool MakeOutputCC(int index, MIDI::IMIDIEvent& event);
    CMIDIController& GetMIDIController() { return midiController; }

    /// True with nothing written when the state is not kept. [any]
    bool Serialize(Serialization::IWriteDataStream& stream) const override;
    /// All or nothing: false has changed nothing. [any]
    bool DeSerialize(const Serialization::IReadDataStream& stream) override;

    CPresetsManager& GetPresetsManager() { return presetsManager; }

    /// Whether any input value changed since the last state was restored. [any, audio]
    CHostParam& GetChangedSincePresetLoaded() { return changedSincePresetLoaded; }

    /// Null when there is no editor.
    IPluginGUI* GetGUI() { return gui.get(); }

    /// Tells what could not be told at once because another thread was at it: for the host's idle
    /// time. [any, not audio]
    void TellKept();

private:
    Core::ILock& GetStateLock() const override { return stateLock; }
    void ResetToDefaults() override;
    void ApplyValues(const DSP::IConstParamsValues& values) override;

    void SetFromMIDI(int index, double value) override;

    bool Restore(const Serialization::IReadDataStream& stream);
    void Refresh();
    bool ReadMIDIAndGUI(const Serialization::IReadDataStream& stream);
    bool ReadInputParams(const Serialization::IReadDataStream& stream,
                         std::vector<double>& values) const;
    bool ReadInputObjects(const Serialization::IReadDataStream& stream,
                          CSharedInputs& objects) const;
    bool WriteInputObjects(Serialization::IWriteDataStream& stream) const;
    /// Takes the parameters, all or none, and the objects that are there.
    void StoreInputs(const std::vector<double>& values, CSharedInputs objects);
    std::vector<double> GetDefaults() const;
    void OnInputChanged();

    IStaticSettings& settings;
    const DSP::IConstFilterProductInfo* const productInfo;
    const bool storeState;

    // Constant from Connect to Disconnect.
    IHostParams* inputParams = nullptr;
    IHostParams* outputParams = nullptr;
    Core::ICommand* refreshCommand = nullptr;

    CMIDIController midiController;
    CAudioPluginModel model;
    CHostParam changedSincePresetLoaded;
    Core::TCommand<CAudioPluginInternals> inputChanged{this,
                                                       &CAudioPluginInternals::OnInputChanged};

    // One state is saved or restored at a time. The audio thread never takes it.
    mutable System::CCriticalSection stateLock;
    CPresetsManager presetsManager;
    std::unique_ptr<IPluginGUI> gui;
};

} // namespace Vorin::Audio::Plugin
