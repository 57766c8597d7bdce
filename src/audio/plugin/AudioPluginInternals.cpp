#include "audio/plugin/AudioPluginInternals.h"

#include "audio/plugin/InputObjectsSerializer.h"
#include "audio/plugin/InputParamsSerializer.h"
#include "datamodel/EnumToText.h"
#include "serialization/MemDataObject.h"

namespace Vorin::Audio::Plugin {

using namespace DSP;
using namespace DataModel::Objects;
using namespace Serialization;

namespace {

constexpr int kVersion = 3;
constexpr int kFirstVersionWithObjects = 3;
constexpr char kVersionKey[] = "version";
constexpr CMIDICCSettingsKeys kInputKeys{"MIDIInputDefault", "MIDIInputSettings", "setting"};
constexpr CMIDICCSettingsKeys kOutputKeys{"MIDIOutputDefault", "MIDIOutputSettings", "setting"};
constexpr char kInputParams[] = "inputParams";
constexpr char kInputStrings[] = "inputStrings";
constexpr char kInputCurves[] = "inputCurves";
constexpr char kInputSurfaces[] = "inputSurfaces";
constexpr char kInputProperties[] = "inputCustomProperties";
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

/// A group that a filter has nothing of is not written.
template <class S, class Group>
bool WriteGroup(IWriteDataStream& stream, const char* key, const Group& group) {
    return group.GetCount() == 0 || stream.WriteObject(key, S(group));
}

/// Reads a group of inputs into `items`. One that is missing keeps the current values, or goes to
/// the defaults where `isExpected`; false for one that is there and is not fit.
template <class D, class Group, class Items>
bool ReadGroup(const IReadDataStream& stream, const char* key, const Group& group, bool isExpected,
               Items& items) {
    D reader(group);
    if (stream.ReadObject(key, reader)) {
        items = std::move(reader.GetItems());
        return true;
    }
    if (stream.Exists(key)) {
        return false;
    }
    for (int i = 0; isExpected && i < group.GetCount(); ++i) {
        items.push_back(group.Get(i).MakeDefault());
    }
    return true;
}

using CCurvesSerializer = TInputObjectsSerializer<Math::IFunction, IConstCurveInfo>;
using CCurvesDeSerializer = TInputObjectsDeSerializer<Math::IFunction, IConstCurveInfo>;
using CSurfacesSerializer = TInputObjectsSerializer<Math::IBinaryFunction, IConstSurfaceInfo>;
using CSurfacesDeSerializer = TInputObjectsDeSerializer<Math::IBinaryFunction, IConstSurfaceInfo>;
using CPropertiesSerializer =
    TInputObjectsSerializer<IDynamicPropertyValue, IConstCustomPropertyInfo>;
using CPropertiesDeSerializer =
    TInputObjectsDeSerializer<IDynamicPropertyValue, IConstCustomPropertyInfo>;

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
    GetInputObjects().ForEach(
        [this](auto& input) { input.GetValueChangedEvents().Connect(inputChanged); });
    if (gui) {
        gui->SetPresetsManager(presetsManager);
    }
}

CAudioPluginInternals::~CAudioPluginInternals() {
    gui.reset(); // it may still look at everything else
    GetInputObjects().ForEach(
        [this](auto& input) { input.GetValueChangedEvents().Disconnect(inputChanged); });
    Disconnect();
}

void CAudioPluginInternals::Connect(IHostParams& inputs, IHostParams& outputs,
                                    Core::ICommand* refresh) {
    Disconnect();
    inputParams = &inputs;
    outputParams = &outputs;
    refreshCommand = refresh;
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
    refreshCommand = nullptr;
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
    bool done = stream.WriteInt(kVersionKey, kVersion);
    done &= presetsManager.WriteName(stream);
    done &= midiController.WriteInputSettings(stream, kInputKeys);
    done &= midiController.WriteOutputSettings(stream, kOutputKeys);
    if (inputParams) {
        done &= stream.WriteObject(kInputParams, CInputParamsSerializer(*inputParams));
    }
    done &= WriteInputObjects(stream);
    done &= stream.WriteObject(kModel, model);
    if (gui) {
        done &= stream.WriteObject(kGUI, *gui);
    }
    return done;
}

bool CAudioPluginInternals::WriteInputObjects(IWriteDataStream& stream) const {
    const CInputObjects& objects = GetInputObjects();
    bool done = WriteGroup<CInputStringsSerializer>(stream, kInputStrings, objects.GetStrings());
    done &= WriteGroup<CCurvesSerializer>(stream, kInputCurves, objects.GetCurves());
    done &= WriteGroup<CSurfacesSerializer>(stream, kInputSurfaces, objects.GetSurfaces());
    done &= WriteGroup<CPropertiesSerializer>(stream, kInputProperties, objects.GetProperties());
    return done;
}

bool CAudioPluginInternals::DeSerialize(const IReadDataStream& stream) {
    if (!storeState) {
        return true;
    }
    const bool done = Restore(stream);
    if (done) {
        Refresh(); // not under the lock of the state: it waits for that of the processing
    }
    return done;
}

void CAudioPluginInternals::Refresh() {
    if (refreshCommand) {
        refreshCommand->Execute();
    }
}

bool CAudioPluginInternals::Restore(const IReadDataStream& stream) {
    const Core::CAutoLock guard(stateLock);
    // All that a document can be refused for comes before anything is changed for good.
    std::vector<double> values;
    CSharedInputs objects;
    if (!ReadInputParams(stream, values) || !ReadInputObjects(stream, objects)) {
        return false;
    }
    model.SetEnabled(false);
    if (gui) {
        gui->BeginLoad();
    }
    const bool done = ReadMIDIAndGUI(stream);
    if (done) {
        midiController.ResetOutputCC();
        presetsManager.ReadName(stream);
        StoreInputs(values, std::move(objects));
        static_cast<void>(stream.ReadObject(kModel, model)); // it has no state to be damaged
        changedSincePresetLoaded.SetValue(0.0);
    }
    model.SetEnabled(true);
    if (gui) {
        gui->EndLoad();
    }
    return done;
}

bool CAudioPluginInternals::ReadMIDIAndGUI(const IReadDataStream& stream) {
    CMemDataObject before; // of the MIDI settings, which are read in place
    if (gui || stream.Exists(kInputKeys.settings) || stream.Exists(kOutputKeys.settings)) {
        midiController.WriteInputSettings(before, kInputKeys);
        midiController.WriteOutputSettings(before, kOutputKeys);
    }
    if ((midiController.ReadInputSettings(stream, kInputKeys) || !IsDamaged(stream, kInputKeys)) &&
        (midiController.ReadOutputSettings(stream, kOutputKeys) ||
         !IsDamaged(stream, kOutputKeys)) &&
        (!gui || stream.ReadObject(kGUI, *gui) || !stream.Exists(kGUI))) {
        return true;
    }
    midiController.ReadInputSettings(before, kInputKeys);
    midiController.ReadOutputSettings(before, kOutputKeys);
    return false;
}

bool CAudioPluginInternals::ReadInputParams(const IReadDataStream& stream,
                                            std::vector<double>& values) const {
    if (!inputParams) {
        return true;
    }
    CInputParamsDeSerializer reader(*inputParams);
    if (stream.ReadObject(kInputParams, reader)) {
        values = reader.GetValues();
        return true;
    }
    if (stream.Exists(kInputParams)) {
        return false;
    }
    if (!stream.IsTolerant()) {
        values = GetDefaults();
    }
    return true;
}

bool CAudioPluginInternals::ReadInputObjects(const IReadDataStream& stream,
                                             CSharedInputs& objects) const {
    int version = 0;
    const bool isExpected = stream.ReadInt(kVersionKey, version) &&
                            version >= kFirstVersionWithObjects && !stream.IsTolerant();
    const CInputObjects& inputs = GetInputObjects();
    return ReadGroup<CInputStringsDeSerializer>(stream, kInputStrings, inputs.GetStrings(),
                                                isExpected, objects.strings.items) &&
           ReadGroup<CCurvesDeSerializer>(stream, kInputCurves, inputs.GetCurves(), isExpected,
                                          objects.curves.items) &&
           ReadGroup<CSurfacesDeSerializer>(stream, kInputSurfaces, inputs.GetSurfaces(),
                                            isExpected, objects.surfaces.items) &&
           ReadGroup<CPropertiesDeSerializer>(stream, kInputProperties, inputs.GetProperties(),
                                              isExpected, objects.properties.items);
}

void CAudioPluginInternals::StoreInputs(const std::vector<double>& values, CSharedInputs objects) {
    std::vector<bool> isChanged(values.size());
    BeginChanges();
    for (std::size_t i = 0; i < values.size(); ++i) {
        isChanged[i] = inputParams->Get(static_cast<int>(i)).Store(values[i]);
    }
    GetInputObjects().Store(objects);
    EndChanges();
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (isChanged[i]) {
            inputParams->Get(static_cast<int>(i)).NotifyChanged();
        }
    }
    GetInputObjects().NotifyChanged(objects);
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
    CMemDataObject empty;
    empty.WriteInt(kVersionKey, kVersion);
    static_cast<void>(Restore(empty)); // nothing in it to be refused
    midiController.GetInputDefaultFlag().SetValue(true);
    midiController.GetOutputDefaultFlag().SetValue(true);
    Refresh();
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
    {
        const Core::CAutoLock guard(stateLock);
        StoreInputs(all, {});
        changedSincePresetLoaded.SetValue(0.0);
    }
    Refresh();
}

void CAudioPluginInternals::OnInputChanged() { changedSincePresetLoaded.SetValue(1.0); }

void CAudioPluginInternals::TellKept() {
    midiController.NotifyIfKept();
    settings.GetSettings().NotifyIfKept();
    changedSincePresetLoaded.TellKept();
    GetInputObjects().TellKept();
    for (int i = 0; inputParams && i < inputParams->GetCount(); ++i) {
        inputParams->Get(i).TellKept();
    }
    for (int i = 0; outputParams && i < outputParams->GetCount(); ++i) {
        outputParams->Get(i).TellKept();
    }
}

} // namespace Vorin::Audio::Plugin
