#include "vst/VSTPlug.h"

#include "serialization/XmlDataObject.h"
#include "vst/VSTPlugEditor.h"
#include "vst/VendorVersion.h"

#include <algorithm>
#include <string_view>

namespace VorinExt::VSTPlugin {

using namespace Vorin;
using namespace Vorin::Audio;
using namespace Vorin::Audio::Plugin;
using Containers::CCharString;
using Core::CAutoLock;

namespace {

constexpr int kBypass = 0;
constexpr char kProgramName[] = "User Program";
constexpr char kChunkRoot[] = "Preset";

/// Blocks that are larger go through the filter in pieces, so that no block needs room of its own.
constexpr VstInt32 kLargestPiece = 8192;

constexpr int kNoConfiguration = -2;
constexpr int kDefaultConfiguration = -1;

/// Where the filter has no outputs, as many as inputs carry the audio through, or none.
bool IsFor(const DSP::IIOConfiguration& configuration, int inputs, int outputs) {
    const int filterOutputs = configuration.GetOutputInfos().GetCount();
    return configuration.GetInputInfos().GetCount() == inputs &&
           (outputs == filterOutputs ||
            (filterOutputs == 0 && (outputs == inputs || outputs == 0)));
}

} // namespace

CVSTPlug::CVSTPlug(audioMasterCallback hostCallback, CAudioPluginConfig config,
                   IStaticSettings& staticSettings)
    : AudioEffectX(hostCallback, 1,
                   1 + config.filter->GetInputParamInfos().GetCount() +
                       config.filter->GetOutputParamInfos().GetCount()),
      internals(std::move(config), staticSettings),
      inputParams(internals.GetInputInfos(), *this, 0),
      outputParams(internals.GetFilter().GetOutputParamInfos(), *this, inputParams.GetCount()),
      outgoingEvents(outputParams.GetCount()) {
    internals.Connect(inputParams, outputParams, &refreshCommand);
    int inputs = 0;
    int outputs = 0;
    internals.GetIOChannels(inputs, outputs);
    Announce(inputs, outputs);
    canProcessReplacing(true);
    programsAreChunks(true);
    Configure();
    if (internals.GetGUI()) {
        setEditor(new VSTPlugEditor(*this, *internals.GetGUI()));
    }
    internals.GetPresetsManager().LoadDefaultPreset();
}

CVSTPlug::~CVSTPlug() {
    setEditor(nullptr); // it looks at the GUI, which the internals delete
    internals.Disconnect();
}

void CVSTPlug::Announce(int inputs, int outputs) {
    numInputs = inputs;
    numOutputs = outputs == 0 ? inputs : outputs;
    setNumInputs(numInputs);
    setNumOutputs(numOutputs);
    inputPointers.resize(static_cast<std::size_t>(inputs));
    inputStreamDescs.resize(inputPointers.size());
    outputPointers.resize(static_cast<std::size_t>(numOutputs));
    outputStreamDescs.resize(outputPointers.size());
    scratchBuffers.resize(outputPointers.size());
    scratchPointers.resize(scratchBuffers.size());
}

int CVSTPlug::FindConfiguration(int inputs, int outputs) const {
    const DSP::IProcessInfo& info = internals.GetFilter().GetIOConfigurations();
    for (int i = 0; i < info.GetConfigurations().GetCount(); ++i) {
        if (IsFor(info.GetConfigurations().Get(i), inputs, outputs)) {
            return i;
        }
    }
    const bool isDefault =
        IsFor(DSP::SelectConfiguration(info, info.GetDefaultConfiguration()), inputs, outputs);
    return isDefault ? kDefaultConfiguration : kNoConfiguration;
}

void CVSTPlug::Configure() {
    configuredFrames = std::clamp(blockSize, 1, kLargestPiece);
    for (std::size_t i = 0; i < scratchBuffers.size(); ++i) {
        scratchBuffers[i].resize(static_cast<std::size_t>(configuredFrames));
        scratchPointers[i] = scratchBuffers[i].data();
    }
    const int found = FindConfiguration(numInputs, numOutputs);
    const DSP::CFilterConfig config{.applyDefaults = false,
                                    .blockSize = configuredFrames,
                                    .mode = 1,
                                    .configuration = std::max(found, kDefaultConfiguration)};
    // There is no rate here that cannot be run: see setSampleRate.
    static_cast<void>(internals.Configure(config, static_cast<double>(sampleRate)));
    filterOutputs = internals.GetFilter().GetIOConfiguration().GetOutputInfos().GetCount();
    setInitialDelay(internals.GetFilter().GetLatency());
}

void CVSTPlug::suspend() {
    {
        const CAutoLock guard(processingLock);
        isProcessing = false;
    }
    ApplyChangesWhenIdle();
    for (int i = 0; i < outputParams.GetCount(); ++i) {
        outputParams.Get(i).Release();
    }
    internals.TellKept();
}

void CVSTPlug::resume() {
    {
        const CAutoLock guard(processingLock);
        isProcessing = true;
        Configure();
        isProcessing = false;
    }
    internals.TellKept();
    AudioEffectX::resume();
}

void CVSTPlug::setSampleRate(float hz) {
    if (!CFilterHost::IsSampleRate(static_cast<double>(hz))) {
        return; // it goes on at the one before, with whatever else the host sets
    }
    const CAutoLock guard(processingLock);
    AudioEffectX::setSampleRate(hz);
}

void CVSTPlug::setBlockSize(VstInt32 frames) {
    const CAutoLock guard(processingLock);
    AudioEffectX::setBlockSize(frames);
}

void CVSTPlug::ApplyChangesWhenIdle() {
    if (isProcessing) {
        return; // the next block takes them
    }
    const CAutoLock guard(processingLock);
    if (isProcessing) {
        return;
    }
    internals.ApplyPending();
    internals.GetFilter().UpdateOutputs();
    for (int i = 0; i < outputParams.GetCount(); ++i) {
        outputParams.Get(i).SetValue(internals.GetFilter().GetOutputParamValues().GetValue(i));
    }
    static_cast<void>(internals.TransferOutputs(true)); // the blocking form always gets through
}

CVSTParamAdapter* CVSTPlug::FindParam(VstInt32 index) {
    if (index < 0) {
        return nullptr;
    }
    if (index < inputParams.GetCount()) {
        return &inputParams.Get(index);
    }
    const VstInt32 output = index - inputParams.GetCount();
    return output < outputParams.GetCount() ? &outputParams.Get(output) : nullptr;
}

void CVSTPlug::setParameter(VstInt32 index, float value) {
    CVSTParamAdapter* param = FindParam(index);
    if (!param) {
        return;
    }
    param->TakeNormalised(value);
    if (index < inputParams.GetCount()) {
        ApplyChangesWhenIdle();
    }
}

float CVSTPlug::getParameter(VstInt32 index) {
    const CVSTParamAdapter* param = FindParam(index);
    return param ? param->GetNormalised() : 0.0F;
}

void CVSTPlug::setParameterAutomated(VstInt32 index, float value) {
    const VstInt32 output = index - inputParams.GetCount();
    if (output >= 0 && output < outputParams.GetCount() &&
        !internals.GetMIDIController().GetOutputSettings().Get(output).IsAutomationEnabled()) {
        setParameter(index, value);
        return;
    }
    AudioEffectX::setParameterAutomated(index, value);
}

void CVSTPlug::getParameterLabel(VstInt32 index, CHostText& text) {
    if (const CVSTParamAdapter* param = FindParam(index)) {
        text.Set(param->GetInfo().GetUnit());
    }
}

void CVSTPlug::getParameterDisplay(VstInt32 index, CHostText& text) {
    if (const CVSTParamAdapter* param = FindParam(index)) {
        CCharString display;
        param->GetInfo().GetValueToText().ValueToText(param->GetValue(), display);
        text.Set(display.Get());
    }
}

void CVSTPlug::getParameterName(VstInt32 index, CHostText& text) {
    const CVSTParamAdapter* param = FindParam(index);
    if (index >= inputParams.GetCount() && param) {
        text.Append("OUT:");
    }
    text.Append(param ? param->GetInfo().GetName() : "Unknown");
}

void CVSTPlug::getProgramName(CHostText& text) { text.Set(kProgramName); }

bool CVSTPlug::getProgramNameIndexed(VstInt32, VstInt32 index, CHostText& text) {
    if (index != 0) {
        return false;
    }
    text.Set(kProgramName);
    return true;
}

VstInt32 CVSTPlug::getChunk(void** data, bool) {
    internals.TellKept(); // what listens may belong to the state
    Serialization::CXmlDataObject document(kChunkRoot, Serialization::kXmlAttributes);
    CCharString text;
    if (!internals.Serialize(document) || !document.SaveString(text)) {
        text.Clear(); // a state that cannot be written is a chunk of one zero byte
    }
    const CAutoLock guard(chunksLock);
    CCharString& buffer = chunkBuffers[std::this_thread::get_id()];
    buffer = std::move(text);
    *data = const_cast<char*>(buffer.Get());
    return buffer.GetLength() + 1;
}

VstInt32 CVSTPlug::setChunk(void* data, VstInt32 byteSize, bool) {
    if (!data || byteSize <= 0) {
        return 0;
    }
    // The zero at the end travels with the text.
    std::string_view text(static_cast<const char*>(data), static_cast<std::size_t>(byteSize));
    text = text.substr(0, text.find_last_not_of('\0') + 1);
    Serialization::CXmlDataObject document(kChunkRoot, Serialization::kXmlAttributes);
    return document.Parse(text.data(), static_cast<int>(text.size())) &&
           internals.DeSerialize(document);
}

bool CVSTPlug::DescribePin(VstInt32 arrangement, VstPinProperties& properties) {
    properties = {};
    properties.flags = kVstPinIsActive;
    if (arrangement == kNoArrangement) {
        return false;
    }
    properties.flags = kVstPinUseSpeaker;
    properties.arrangementType = arrangement;
    return true;
}

bool CVSTPlug::getInputProperties(VstInt32, VstPinProperties* properties) {
    return DescribePin(inputArrangement, *properties);
}

bool CVSTPlug::getOutputProperties(VstInt32, VstPinProperties* properties) {
    return DescribePin(outputArrangement, *properties);
}

bool CVSTPlug::setSpeakerArrangement(VstSpeakerArrangement* input, VstSpeakerArrangement* output) {
    const CAutoLock guard(processingLock);
    if (FindConfiguration(input->numChannels, output->numChannels) == kNoConfiguration) {
        return false;
    }
    Announce(input->numChannels, output->numChannels);
    inputArrangement = input->type;
    outputArrangement = output->type;
    Configure();
    return true;
}

bool CVSTPlug::setBypass(bool on) {
    setParameter(kBypass, on ? 1.0F : 0.0F);
    return true;
}

VstInt32 CVSTPlug::getGetTailSize() {
    const CAutoLock guard(processingLock); // it goes by the rate
    return internals.GetFilter().GetTailSamples();
}

bool CVSTPlug::getEffectName(CHostText& text) {
    text.Set(internals.GetProductInfo().GetEffectName());
    return true;
}

bool CVSTPlug::getVendorString(CHostText& text) {
    text.Set(internals.GetProductInfo().GetVendor());
    return true;
}

bool CVSTPlug::getProductString(CHostText& text) {
    text.Set(internals.GetProductInfo().GetName());
    return true;
}

VstInt32 CVSTPlug::getVendorVersion() {
    return ToVendorVersion(internals.GetProductInfo().GetVersion());
}

VstInt32 CVSTPlug::canDo(const char* text) {
    constexpr std::string_view kAbilities[] = {
        "sizeWindow",       "conformsToWindowRules", "sendVstEvents",      "sendVstMidiEvent",
        "receiveVstEvents", "receiveVstMidiEvent",   "receiveVstTimeInfo", "bypass"};
    constexpr std::string_view kViewAsConfig = "hasCockosViewAsConfig";
    constexpr VstInt32 kHasViewAsConfig = static_cast<VstInt32>(0xbeef0000U);
    if (text == kViewAsConfig) {
        return getEditor() ? kHasViewAsConfig : 0;
    }
    return std::find(std::begin(kAbilities), std::end(kAbilities), text) != std::end(kAbilities);
}

VstPlugCategory CVSTPlug::getPlugCategory() {
    switch (internals.GetProductInfo().GetCategory()) {
    case 0:
        return kPlugCategAnalysis;
    case 1:
    case 3:
        return kPlugCategMastering;
    case 2:
    case 4:
    case 5:
        return kPlugCategEffect;
    default:
        return kPlugCategUnknown;
    }
}

} // namespace VorinExt::VSTPlugin
