#include "audio/plugin/AudioPluginInternals.h"

#include "audio/plugin/InputParamsSerializer.h"
#include "datamodel/EnumToText.h"
#include "serialization/MemDataObject.h"

namespace Vorin::Audio::Plugin {

using namespace DSP;
using namespace DataModel::Objects;
using namespace Serialization;

namespace {

constexpr int kVersion = 3;
constexpr CMIDICCSettingsKeys kInputKeys{"MIDIInputDefault", "MIDIInputSettings", "setting"};
constexpr CMIDICCSettingsKeys kOutputKeys{"MIDIOutputDefault", "MIDIOutputSettings", "setting"};
constexpr char kInputParams[] = "inputParams";
constexpr char kModel[] = "model";
constexpr char kGUI[] = "GUI";

CParamInfo MakeChangedInfo() {
    return {kParamBoolean,
            "Preset Modified",
            "",
            "",
            new CEnumToText("Off;On"),
            nullptr,
            0.0,
            1.0,
            0.0};
}

/// The global settings of a process that has been told what the parameters are.
IStaticSettings& Prepare(IStaticSettings& settings, const IConstParamInfos& inputs,
                         const IConstParamInfos& outputs) {
    settings.Init(inputs, outputs);
    return settings;
}

/// Whether a section that could not be read is damaged, rather than missing.
bool IsDamaged(const IReadDataStream& stream, const CMIDICCSettingsKeys& keys) {
    return stream.Exists(keys.useDefaults) && stream.Exists(keys.settings);
}

} // namespace

CAudioPluginInternals::CAudioPluginInternals(CAudioPluginConfig config,
                                             IStaticSettings& staticSettings)
    : CFilterHost({.filter = std::move(config.filter)}),
      settings(Prepare(staticSettings, GetInputInfos(), GetFilter().GetOutputParamInfos())),
      productInfo(config.productInfo), storeState(config.storeState),
      midiController(GetInputInfos(), settings.GetSettings().GetInputCCSettings(),
                     GetFilter().GetOutputParamInfos(),
                     settings.GetSettings().GetOutputCCSettings()),
      changedSincePresetLoaded(MakeChangedInfo()),
      presetsManager(*this, GetFilter().GetLegacyPresets(), settings.GetPaths()),
      gui(std::move(config.gui)) {
    GetOutputDataSync().SetRefreshRate(settings.GetSettings().GetOutputRefreshRate());
    if (gui) {
        gui->SetPresetsManager(presetsManager);
    }
}

CAudioPluginInternals::~CAudioPluginInternals() {
    gui.reset(); // it may still look at everything else
    Disconnect();
}

void CAudioPluginInternals::Connect(IHostParams& inputs, IHostParams& outputs) {
    Disconnect();
    inputParams = &inputs;
    outputParams = &outputs;
    for (int i = 0; i < inputs.GetCount(); ++i) {
        inputs.Get(i).GetValueChangedEvents().Connect(inputChanged);
    }
    CFilterHost::Connect(inputs);
}

void CAudioPluginInternals::Disconnect() {
    if (inputParams) {
        for (int i = 0; i < inputParams->GetCount(); ++i) {
            inputParams->Get(i).GetValueChangedEvents().Disconnect(inputChanged);
        }
    }
    inputParams = nullptr;
    outputParams = nullptr;
    CFilterHost::Disconnect();
}

bool CAudioPluginInternals::Configure(const CFilterConfig& config, double newSampleRate) {
    if (!CFilterHost::Configure(config, newSampleRate)) {
        return false;
    }
    midiController.ResetOutputCC();
    return true;
}

const IConstFilterProductInfo& CAudioPluginInternals::GetProductInfo() const {
    return productInfo ? *productInfo : GetFilter().GetProductInfo();
}

bool CAudioPluginInternals::ApplyMIDI(const MIDI::IConstMIDIEvent& event, CMIDICCValues& message) {
    return inputParams && midiController.ApplyMIDI(event, message, *this);
}

void CAudioPluginInternals::SetFromMIDI(int index, double value) {
    IHostParam& param = inputParams->Get(index);
    const bool wasCaptured = param.IsCaptured();
    param.Capture();
    param.SetValue(value);
    if (!wasCaptured) {
        param.Release();
    }
}

bool CAudioPluginInternals::MakeOutputCC(int index, MIDI::IMIDIEvent& event) {
    return midiController.MakeOutputCC(index, GetFilter().GetOutputParamValues().GetValue(index),
                                       event);
}

bool CAudioPluginInternals::Serialize(IWriteDataStream& stream) const {
    if (!storeState) {
        return true;
    }
    const Core::CAutoLock guard(stateLock);
    bool done = stream.WriteInt("version", kVersion);
    done &= presetsManager.WriteName(stream);
    done &= midiController.WriteInputSettings(stream, kInputKeys);
    done &= midiController.WriteOutputSettings(stream, kOutputKeys);
    if (inputParams) {
        done &= stream.WriteObject(kInputParams, CInputParamsSerializer(*inputParams));
    }
    done &= stream.WriteObject(kModel, model);
    if (gui) {
        done &= stream.WriteObject(kGUI, *gui);
    }
    return done;
}

bool CAudioPluginInternals::RestoreState(const IReadDataStream& document) {
    return presetsManager.ReadState(document);
}

bool CAudioPluginInternals::DeSerialize(const IReadDataStream& stream) {
    if (!storeState) {
        return true;
    }
    const Core::CAutoLock guard(stateLock);
    const double changedBefore = changedSincePresetLoaded.GetValue();
    midiController.ResetOutputCC();
    model.SetEnabled(false);
    if (gui) {
        gui->BeginLoad();
    }
    const bool done = ReadSections(stream);
    model.SetEnabled(true);
    if (gui) {
        gui->EndLoad();
    }
    if (done) {
        changedSincePresetLoaded.SetValue(changedBeforeRefusal.value_or(0.0));
        changedBeforeRefusal.reset();
    } else {
        changedBeforeRefusal = changedBefore;
    }
    return done;
}

bool CAudioPluginInternals::ReadSections(const IReadDataStream& stream) {
    presetsManager.ReadName(stream);
    if (!midiController.ReadInputSettings(stream, kInputKeys) && IsDamaged(stream, kInputKeys)) {
        return false;
    }
    if (!midiController.ReadOutputSettings(stream, kOutputKeys) && IsDamaged(stream, kOutputKeys)) {
        return false;
    }
    if (!ReadInputs(stream)) {
        return false;
    }
    // No filter that can be run here has input strings, curves, surfaces or custom properties.
    if (!stream.ReadObject(kModel, model) && stream.Exists(kModel)) {
        return false;
    }
    return !gui || stream.ReadObject(kGUI, *gui) || !stream.Exists(kGUI);
}

bool CAudioPluginInternals::ReadInputs(const IReadDataStream& stream) {
    if (!inputParams) {
        return true;
    }
    CInputParamsDeSerializer reader(*inputParams);
    if (stream.ReadObject(kInputParams, reader)) {
        StoreInputs(reader.GetValues());
        return true;
    }
    if (stream.Exists(kInputParams)) {
        return false;
    }
    if (!stream.IsTolerant()) {
        StoreInputs(GetDefaults());
    }
    return true;
}

void CAudioPluginInternals::StoreInputs(const std::vector<double>& values) {
    std::vector<bool> isChanged(values.size());
    BeginChanges();
    for (std::size_t i = 0; i < values.size(); ++i) {
        isChanged[i] = inputParams->Get(static_cast<int>(i)).Store(values[i]);
    }
    EndChanges();
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (isChanged[i]) {
            inputParams->Get(static_cast<int>(i)).NotifyChanged();
        }
    }
}

std::vector<double> CAudioPluginInternals::GetDefaults() const {
    std::vector<double> defaults(static_cast<std::size_t>(GetInputInfos().GetCount()));
    for (std::size_t i = 0; i < defaults.size(); ++i) {
        defaults[i] = GetInputInfos().Get(static_cast<int>(i)).GetDefault();
    }
    return defaults;
}

void CAudioPluginInternals::ResetToDefaults() {
    // What an empty document stands for, but for the name, which the manager gives.
    DeSerialize(CMemDataObject());
    midiController.GetInputDefaultFlag().SetValue(true);
    midiController.GetOutputDefaultFlag().SetValue(true);
}

void CAudioPluginInternals::ApplyValues(const IConstParamsValues& values) {
    if (!inputParams) {
        return;
    }
    // The values are the filter's: the bypass, which stands before them, has its default.
    std::vector<double> all = GetDefaults();
    for (std::size_t i = 1; i < all.size() && static_cast<int>(i) <= values.GetCount(); ++i) {
        all[i] = values.GetValue(static_cast<int>(i) - 1);
    }
    const Core::CAutoLock guard(stateLock);
    StoreInputs(all);
    changedSincePresetLoaded.SetValue(0.0);
}

void CAudioPluginInternals::OnInputChanged() { changedSincePresetLoaded.SetValue(1.0); }

void CAudioPluginInternals::TellKept() {
    midiController.NotifyIfKept();
    settings.GetSettings().NotifyIfKept();
    changedSincePresetLoaded.TellKept();
    for (int i = 0; inputParams && i < inputParams->GetCount(); ++i) {
        inputParams->Get(i).TellKept();
    }
    for (int i = 0; outputParams && i < outputParams->GetCount(); ++i) {
        outputParams->Get(i).TellKept();
    }
}

} // namespace Vorin::Audio::Plugin
