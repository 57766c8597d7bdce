#include "vst/interface/AudioEffect.h"

#include <array>
#include <cmath>
#include <limits>

namespace VorinExt::VSTPlugin {

namespace {

VstInt32 ToInt(VstIntPtr value) { return static_cast<VstInt32>(value); }

template <class T>
T* PointerIn(VstIntPtr value) {
    return reinterpret_cast<T*>(value);
}

bool IsCount(VstIntPtr value) {
    return value >= 0 && value <= std::numeric_limits<VstInt32>::max();
}

bool IsIndex(VstInt32 index, VstInt32 count) { return index >= 0 && index < count; }

bool IsRate(float hz) { return std::isfinite(hz) && hz > 0.0F; }

constexpr VstInt32 midiChannels = 16;

} // namespace

VstIntPtr AudioEffectX::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                   float opt) {
    const CEffectCall call{opcode, index, value, ptr, opt};
    VstIntPtr result = 0;
    const bool isOurs = DispatchTexts(call, result) || DispatchParameters(call, result) ||
                        DispatchPins(call, result) || DispatchProcessing(call, result) ||
                        DispatchPrograms(call, result) || DispatchMidi(call, result) ||
                        DispatchOffline(call, result) || DispatchOldOnes(call, result);
    return isOurs ? result : AudioEffect::dispatcher(opcode, index, value, ptr, opt);
}

template <class R>
VstIntPtr AudioEffectX::AskText(const CEffectCall& call, VstInt32 size,
                                R (AudioEffectX::*operation)(CHostText&)) {
    CHostText text(call.ptr, size);
    return call.ptr ? (this->*operation)(text) : 0;
}

bool AudioEffectX::DispatchTexts(const CEffectCall& call, VstIntPtr& result) {
    switch (call.opcode) {
    case effGetEffectName:
        result = AskText(call, kVstMaxEffectNameLen, &AudioEffectX::getEffectName);
        return true;
    case effGetVendorString:
        result = AskText(call, kVstMaxVendorStrLen, &AudioEffectX::getVendorString);
        return true;
    case effGetProductString:
        result = AskText(call, kVstMaxProductStrLen, &AudioEffectX::getProductString);
        return true;
    case effGetErrorText:
        result = AskText(call, kErrorTextSize, &AudioEffectX::getErrorText);
        return true;
    case effShellGetNextPlugin:
        result = AskText(call, kVstMaxProductStrLen, &AudioEffectX::getNextShellPlugin);
        return true;
    case effGetVendorVersion:
        result = getVendorVersion();
        return true;
    case effGetVstVersion:
        result = getVstVersion();
        return true;
    case effGetPlugCategory:
        result = getPlugCategory();
        return true;
    case effCanDo:
        result = call.ptr ? canDo(static_cast<const char*>(call.ptr)) : 0;
        return true;
    case effVendorSpecific:
        result = vendorSpecific(call.index, call.value, call.ptr, call.opt);
        return true;
    default:
        return false;
    }
}

bool AudioEffectX::DispatchParameters(const CEffectCall& call, VstIntPtr& result) {
    switch (call.opcode) {
    case effCanBeAutomated:
        result = IsIndex(call.index, numParams) && canParameterBeAutomated(call.index);
        return true;
    case effString2Parameter:
        result = IsIndex(call.index, numParams) &&
                 string2parameter(call.index, static_cast<const char*>(call.ptr));
        return true;
    case effGetParameterProperties:
        result = call.ptr && IsIndex(call.index, numParams) &&
                 getParameterProperties(call.index, static_cast<VstParameterProperties*>(call.ptr));
        return true;
    default:
        return false;
    }
}

bool AudioEffectX::DispatchPins(const CEffectCall& call, VstIntPtr& result) {
    switch (call.opcode) {
    case effConnectInput:
        if (IsIndex(call.index, cEffect.numInputs)) {
            inputConnected(call.index, call.value != 0);
        }
        return true;
    case effConnectOutput:
        if (IsIndex(call.index, cEffect.numOutputs)) {
            outputConnected(call.index, call.value != 0);
        }
        return true;
    case effGetInputProperties:
        result = call.ptr && IsIndex(call.index, cEffect.numInputs) &&
                 getInputProperties(call.index, static_cast<VstPinProperties*>(call.ptr));
        return true;
    case effGetOutputProperties:
        result = call.ptr && IsIndex(call.index, cEffect.numOutputs) &&
                 getOutputProperties(call.index, static_cast<VstPinProperties*>(call.ptr));
        return true;
    case effSetSpeakerArrangement:
        result = call.value && call.ptr &&
                 setSpeakerArrangement(PointerIn<VstSpeakerArrangement>(call.value),
                                       static_cast<VstSpeakerArrangement*>(call.ptr));
        return true;
    case effGetSpeakerArrangement:
        result = call.value && call.ptr &&
                 getSpeakerArrangement(PointerIn<VstSpeakerArrangement*>(call.value),
                                       static_cast<VstSpeakerArrangement**>(call.ptr));
        return true;
    default:
        return false;
    }
}

bool AudioEffectX::DispatchProcessing(const CEffectCall& call, VstIntPtr& result) {
    switch (call.opcode) {
    case effProcessEvents:
        result = call.ptr ? processEvents(static_cast<VstEvents*>(call.ptr)) : 0;
        return true;
    case effSetBlockSizeAndSampleRate:
        if (call.value > 0 && IsCount(call.value) && IsRate(call.opt)) {
            setBlockSizeAndSampleRate(ToInt(call.value), call.opt);
        }
        return true;
    case effSetBypass:
        result = setBypass(call.value != 0);
        return true;
    case effGetTailSize:
        result = getGetTailSize();
        return true;
    case effStartProcess:
        result = startProcess();
        return true;
    case effStopProcess:
        result = stopProcess();
        return true;
    case effSetTotalSampleToProcess:
        result = IsCount(call.value) ? setTotalSampleToProcess(ToInt(call.value)) : 0;
        return true;
    case effSetPanLaw:
        result = std::isfinite(call.opt) && setPanLaw(ToInt(call.value), call.opt);
        return true;
    case effSetProcessPrecision:
        result = setProcessPrecision(ToInt(call.value));
        return true;
    default:
        return false;
    }
}

bool AudioEffectX::DispatchPrograms(const CEffectCall& call, VstIntPtr& result) {
    switch (call.opcode) {
    case effGetProgramNameIndexed: {
        CHostText name(call.ptr, kVstMaxProgNameLen);
        result = call.ptr && IsIndex(call.index, numPrograms) &&
                 getProgramNameIndexed(ToInt(call.value), call.index, name);
        return true;
    }
    case effBeginSetProgram:
        result = beginSetProgram();
        return true;
    case effEndSetProgram:
        result = endSetProgram();
        return true;
    case effBeginLoadBank:
        result = call.ptr ? beginLoadBank(static_cast<VstPatchChunkInfo*>(call.ptr)) : 0;
        return true;
    case effBeginLoadProgram:
        result = call.ptr ? beginLoadProgram(static_cast<VstPatchChunkInfo*>(call.ptr)) : 0;
        return true;
    default:
        return false;
    }
}

bool AudioEffectX::DispatchMidi(const CEffectCall& call, VstIntPtr& result) {
    const bool hasRecord = call.ptr && IsIndex(call.index, midiChannels);
    switch (call.opcode) {
    case effGetMidiProgramName:
        result =
            hasRecord ? getMidiProgramName(call.index, static_cast<MidiProgramName*>(call.ptr)) : 0;
        return true;
    case effGetCurrentMidiProgram:
        result = hasRecord
                     ? getCurrentMidiProgram(call.index, static_cast<MidiProgramName*>(call.ptr))
                     : 0;
        return true;
    case effGetMidiProgramCategory:
        result = hasRecord ? getMidiProgramCategory(call.index,
                                                    static_cast<MidiProgramCategory*>(call.ptr))
                           : 0;
        return true;
    case effHasMidiProgramsChanged:
        result = IsIndex(call.index, midiChannels) && hasMidiProgramsChanged(call.index);
        return true;
    case effGetMidiKeyName:
        result = hasRecord && getMidiKeyName(call.index, static_cast<MidiKeyName*>(call.ptr));
        return true;
    case effGetNumMidiInputChannels:
        result = getNumMidiInputChannels();
        return true;
    case effGetNumMidiOutputChannels:
        result = getNumMidiOutputChannels();
        return true;
    default:
        return false;
    }
}

bool AudioEffectX::DispatchOffline(const CEffectCall& call, VstIntPtr& result) {
    const bool hasItems = call.ptr && IsCount(call.value);
    switch (call.opcode) {
    case effOfflineNotify:
        result = hasItems && offlineNotify(static_cast<VstAudioFile*>(call.ptr), ToInt(call.value),
                                           call.index != 0);
        return true;
    case effOfflinePrepare:
        result =
            hasItems && offlinePrepare(static_cast<VstOfflineTask*>(call.ptr), ToInt(call.value));
        return true;
    case effOfflineRun:
        result = hasItems && offlineRun(static_cast<VstOfflineTask*>(call.ptr), ToInt(call.value));
        return true;
    case effProcessVarIo:
        result = call.ptr && processVariableIo(static_cast<VstVariableIo*>(call.ptr));
        return true;
    default:
        return false;
    }
}

bool AudioEffectX::DispatchOldOnes(const CEffectCall& call, VstIntPtr& result) {
    switch (call.opcode) {
    case effGetNumProgramCategories:
        result = getNumCategories();
        return true;
    case effCopyProgram:
        result = IsIndex(call.index, numPrograms) && copyProgram(call.index);
        return true;
    case effGetCurrentPosition:
        result = reportCurrentPosition();
        return true;
    case effGetDestinationBuffer:
        result = reinterpret_cast<VstIntPtr>(reportDestinationBuffer());
        return true;
    case effIdle:
        result = fxIdle();
        return true;
    case effGetIcon:
        result = reinterpret_cast<VstIntPtr>(getIcon());
        return true;
    case effSetViewPosition:
        result = setViewPosition(call.index, ToInt(call.value));
        return true;
    case effKeysRequired:
        result = keysRequired() ? 0 : 1; // deliberately the other way round
        return true;
    default:
        return false;
    }
}

void AudioEffectX::resume() {
    if ((cEffect.flags & effFlagsIsSynth) != 0 ||
        canDo(PlugCanDos::canDoReceiveVstMidiEvent) == kVstCanDo) {
        CallHost(audioMasterWantMidi, 0, 1);
    }
}

void AudioEffectX::setBlockSizeAndSampleRate(VstInt32 frames, float hz) {
    setBlockSize(frames);
    setSampleRate(hz);
}

VstPlugCategory AudioEffectX::getPlugCategory() {
    return (cEffect.flags & effFlagsIsSynth) != 0 ? kPlugCategSynth : kPlugCategUnknown;
}

bool AudioEffectX::beginEdit(VstInt32 index) { return CallHost(audioMasterBeginEdit, index) != 0; }

bool AudioEffectX::endEdit(VstInt32 index) { return CallHost(audioMasterEndEdit, index) != 0; }

bool AudioEffectX::updateDisplay() { return CallHost(audioMasterUpdateDisplay) != 0; }

bool AudioEffectX::ioChanged() { return CallHost(audioMasterIOChanged) != 0; }

bool AudioEffectX::sizeWindow(VstInt32 width, VstInt32 height) {
    return CallHost(audioMasterSizeWindow, width, height) != 0;
}

bool AudioEffectX::sendVstEventsToHost(VstEvents* events) {
    return CallHost(audioMasterProcessEvents, 0, 0, events) == 1;
}

VstTimeInfo* AudioEffectX::getTimeInfo(VstInt32 wantedFlags) {
    return PointerIn<VstTimeInfo>(CallHost(audioMasterGetTime, 0, wantedFlags));
}

bool AudioEffectX::isInputConnected(VstInt32 input) {
    return CallHost(audioMasterPinConnected, input, 0) == 0;
}

bool AudioEffectX::isOutputConnected(VstInt32 output) {
    return CallHost(audioMasterPinConnected, output, 1) == 0;
}

VstInt32 AudioEffectX::getInputLatency() { return ToInt(CallHost(audioMasterGetInputLatency)); }

VstInt32 AudioEffectX::getOutputLatency() { return ToInt(CallHost(audioMasterGetOutputLatency)); }

double AudioEffectX::updateSampleRate() {
    const VstIntPtr hz = CallHost(audioMasterGetSampleRate);
    if (hz > 0 && IsCount(hz)) {
        sampleRate = static_cast<float>(hz);
    }
    return sampleRate;
}

VstInt32 AudioEffectX::updateBlockSize() {
    const VstIntPtr frames = CallHost(audioMasterGetBlockSize);
    if (frames > 0 && IsCount(frames)) {
        blockSize = ToInt(frames);
    }
    return blockSize;
}

VstInt32 AudioEffectX::getCurrentProcessLevel() {
    return ToInt(CallHost(audioMasterGetCurrentProcessLevel));
}

VstInt32 AudioEffectX::getAutomationState() {
    return ToInt(CallHost(audioMasterGetAutomationState));
}

bool AudioEffectX::getHostVendorString(CHostText& text) {
    return GetHostText(audioMasterGetVendorString, text);
}

bool AudioEffectX::getHostProductString(CHostText& text) {
    return GetHostText(audioMasterGetProductString, text);
}

bool AudioEffectX::GetHostText(VstInt32 opcode, CHostText& text) {
    // Four times what the interface promises: hosts have been seen to write more than they may.
    std::array<char, std::size_t{4} * kVstMaxVendorStrLen> written{};
    const bool has = CallHost(opcode, 0, 0, written.data()) != 0;
    written.back() = '\0';
    text.Set(has ? written.data() : nullptr);
    return has;
}

VstInt32 AudioEffectX::getHostVendorVersion() {
    return ToInt(CallHost(audioMasterGetVendorVersion));
}

VstIntPtr AudioEffectX::hostVendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt) {
    return CallHost(audioMasterVendorSpecific, index, value, ptr, opt);
}

VstInt32 AudioEffectX::canHostDo(const char* text) {
    // The host reads only; the interface has no const.
    return ToInt(CallHost(audioMasterCanDo, 0, 0, const_cast<char*>(text)));
}

VstInt32 AudioEffectX::getHostLanguage() { return ToInt(CallHost(audioMasterGetLanguage)); }

const char* AudioEffectX::getDirectory() {
    return PointerIn<const char>(CallHost(audioMasterGetDirectory));
}

} // namespace VorinExt::VSTPlugin
