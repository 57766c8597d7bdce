#include "vst/interface/AudioEffect.h"

#include <cmath>
#include <limits>

namespace VorinExt::VSTPlugin {

namespace {

AudioEffect* ObjectOf(const AEffect* effect) {
    return effect ? static_cast<AudioEffect*>(effect->object) : nullptr;
}

VstIntPtr CallDispatcher(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                         void* ptr, float opt) {
    AudioEffect* object = ObjectOf(effect);
    if (!object) {
        return 0;
    }
    // What is thrown must not reach the host, which is not made of our exceptions.
    try {
        const VstIntPtr result = object->dispatcher(opcode, index, value, ptr, opt);
        if (opcode != effClose) {
            return result;
        }
    } catch (...) {
        if (opcode != effClose) {
            return 0;
        }
    }
    delete object;
    return 1;
}

template <class F, void (AudioEffect::*Function)(F**, F**, VstInt32)>
void CallProcess(AEffect* effect, F** inputs, F** outputs, VstInt32 frames) {
    AudioEffect* object = ObjectOf(effect);
    if (object && frames >= 0) {
        (object->*Function)(inputs, outputs, frames);
    }
}

void CallSetParameter(AEffect* effect, VstInt32 index, float value) {
    AudioEffect* object = ObjectOf(effect);
    if (object && std::isfinite(value)) {
        object->setParameter(index, value);
    }
}

float CallGetParameter(AEffect* effect, VstInt32 index) {
    AudioEffect* object = ObjectOf(effect);
    return object ? object->getParameter(index) : 0.0F;
}

bool IsByteCount(VstIntPtr value) {
    return value >= 0 && value <= std::numeric_limits<VstInt32>::max();
}

unsigned char ToByte(float value) {
    return value >= 0.0F && value < 256.0F ? static_cast<unsigned char>(value)
                                           : static_cast<unsigned char>(0);
}

VstKeyCode KeyOf(const CEffectCall& call) {
    return {call.index, static_cast<unsigned char>(call.value & 0xff), ToByte(call.opt)};
}

} // namespace

AudioEffect::AudioEffect(audioMasterCallback hostCallback, VstInt32 programsCount,
                         VstInt32 paramsCount)
    : audioMaster(hostCallback), numPrograms(programsCount), numParams(paramsCount) {
    cEffect.magic = kEffectMagic;
    cEffect.dispatcher = &CallDispatcher;
    cEffect.process = &CallProcess<float, &AudioEffect::process>;
    cEffect.setParameter = &CallSetParameter;
    cEffect.getParameter = &CallGetParameter;
    cEffect.numPrograms = numPrograms;
    cEffect.numParams = numParams;
    cEffect.numInputs = 1;
    cEffect.numOutputs = 2;
    cEffect.flags = effFlagsCanReplacing;
    cEffect.ioRatio = 1.0F;
    cEffect.object = this;
    cEffect.uniqueID = FourCharacters('N', 'o', 'E', 'f');
    cEffect.version = 1;
    cEffect.processReplacing = &CallProcess<float, &AudioEffect::processReplacing>;
    cEffect.processDoubleReplacing = &CallProcess<double, &AudioEffect::processDoubleReplacing>;
}

AudioEffect::~AudioEffect() { cEffect.object = nullptr; }

VstIntPtr AudioEffect::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                  float opt) {
    const CEffectCall call{opcode, index, value, ptr, opt};
    switch (opcode) {
    case effOpen:
        open();
        return 0;
    case effClose:
        close();
        return 0;
    case effSetSampleRate:
        if (std::isfinite(opt) && opt > 0.0F) {
            setSampleRate(opt);
        }
        return 0;
    case effSetBlockSize:
        if (value > 0 && IsByteCount(value)) {
            setBlockSize(static_cast<VstInt32>(value));
        }
        return 0;
    case effMainsChanged:
        value ? resume() : suspend();
        return 0;
    case effGetVu:
        return static_cast<VstIntPtr>(getVu() * 32767.0F);
    case effIdentify:
        return kEffectIdentify;
    case effGetChunk:
    case effSetChunk:
        return DispatchChunk(call);
    case effSetProgram:
    case effGetProgram:
    case effSetProgramName:
    case effGetProgramName:
        return DispatchPrograms(call);
    case effGetParamLabel:
    case effGetParamDisplay:
    case effGetParamName:
        return DispatchParameterText(call);
    default:
        return DispatchEditor(call);
    }
}

VstIntPtr AudioEffect::DispatchPrograms(const CEffectCall& call) {
    switch (call.opcode) {
    case effSetProgram:
        if (call.value >= 0 && call.value < numPrograms) {
            setProgram(static_cast<VstInt32>(call.value));
        }
        return 0;
    case effGetProgram:
        return getProgram();
    case effSetProgramName:
        if (call.ptr) {
            setProgramName(static_cast<const char*>(call.ptr));
        }
        return 0;
    default: // effGetProgramName
        if (call.ptr) {
            CHostText text(call.ptr, kVstMaxProgNameLen);
            getProgramName(text);
        }
        return 0;
    }
}

VstIntPtr AudioEffect::DispatchParameterText(const CEffectCall& call) {
    if (!call.ptr) {
        return 0;
    }
    CHostText text(call.ptr, kParameterTextSize);
    switch (call.opcode) {
    case effGetParamLabel:
        getParameterLabel(call.index, text);
        return 0;
    case effGetParamDisplay:
        getParameterDisplay(call.index, text);
        return 0;
    default: // effGetParamName
        getParameterName(call.index, text);
        return 0;
    }
}

VstIntPtr AudioEffect::DispatchChunk(const CEffectCall& call) {
    if (!call.ptr) {
        return 0;
    }
    const bool isPreset = call.index != 0;
    if (call.opcode == effGetChunk) {
        return getChunk(static_cast<void**>(call.ptr), isPreset);
    }
    return IsByteCount(call.value) ? setChunk(call.ptr, static_cast<VstInt32>(call.value), isPreset)
                                   : 0;
}

VstIntPtr AudioEffect::DispatchEditor(const CEffectCall& call) {
    if (!editor) {
        return 0;
    }
    VstKeyCode key = KeyOf(call);
    switch (call.opcode) {
    case effEditGetRect:
        return call.ptr && editor->getRect(static_cast<ERect**>(call.ptr)) ? 1 : 0;
    case effEditOpen:
        return editor->open(call.ptr) ? 1 : 0;
    case effEditClose:
        editor->close();
        return 0;
    case effEditIdle:
        editor->idle();
        return 0;
    case effEditDraw:
        if (call.ptr) {
            editor->draw(static_cast<ERect*>(call.ptr));
        }
        return 0;
    case effEditMouse:
        return editor->mouse(call.index, static_cast<VstInt32>(call.value));
    case effEditKey:
        return editor->key(static_cast<VstInt32>(call.value));
    case effEditTop:
        editor->top();
        return 0;
    case effEditSleep:
        editor->sleep();
        return 0;
    case effEditKeyDown:
        return editor->onKeyDown(key) ? 1 : 0;
    case effEditKeyUp:
        return editor->onKeyUp(key) ? 1 : 0;
    case effSetEditKnobMode:
        return editor->setKnobMode(static_cast<VstInt32>(call.value)) ? 1 : 0;
    default:
        return 0;
    }
}

void AudioEffect::setParameterAutomated(VstInt32 index, float value) {
    setParameter(index, value);
    CallHost(audioMasterAutomate, index, 0, nullptr, value);
}

void AudioEffect::setEditor(AEffEditor* newEditor) {
    SetFlag(effFlagsHasEditor, newEditor != nullptr);
    if (newEditor != editor.get()) {
        editor.reset(newEditor);
    }
}

VstInt32 AudioEffect::getMasterVersion() {
    const auto version = static_cast<VstInt32>(CallHost(audioMasterVersion));
    return version ? version : 1;
}

VstInt32 AudioEffect::getCurrentUniqueId() {
    return static_cast<VstInt32>(CallHost(audioMasterCurrentId));
}

void AudioEffect::masterIdle() { CallHost(audioMasterIdle); }

VstIntPtr AudioEffect::CallHost(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                float opt) {
    return audioMaster ? audioMaster(&cEffect, opcode, index, value, ptr, opt) : 0;
}

void AudioEffect::SetFlag(VstInt32 flag, bool on) {
    cEffect.flags = on ? cEffect.flags | flag : cEffect.flags & ~flag;
}

} // namespace VorinExt::VSTPlugin
