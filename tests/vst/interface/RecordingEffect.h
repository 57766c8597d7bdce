#pragma once

#include "vst/interface/AudioEffect.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <utility>

namespace VorinExt::VSTPlugin::Testing {

/// Writes down each call with its arguments: "name(1 2);".
class CCallLog {
public:
    template <class... Args>
    void Add(const char* name, Args... args) {
        std::ostringstream line;
        line << name << '(';
        [[maybe_unused]] const char* gap = "";
        ((line << gap << args, gap = " "), ...);
        line << ");";
        text += line.str();
    }

    std::string Take() { return std::exchange(text, std::string()); }

private:
    std::string text;
};

inline void* Address(std::uintptr_t number) { return reinterpret_cast<void*>(number); }

/// An editor that writes its calls into the log of its effect.
class CRecordingEditor : public AEffEditor {
public:
    explicit CRecordingEditor(CCallLog& callLog) : log(callLog) {}
    ~CRecordingEditor() override { log.Add("~editor"); }

    bool getRect(ERect** rect) override {
        *rect = &size;
        log.Add("getRect");
        return true;
    }
    bool open(void* ptr) override {
        log.Add("open", ptr);
        return true;
    }
    void close() override { log.Add("close"); }
    void idle() override { log.Add("idle"); }
    bool onKeyDown(VstKeyCode& key) override { return LogKey("onKeyDown", key); }
    bool onKeyUp(VstKeyCode& key) override { return LogKey("onKeyUp", key); }
    bool setKnobMode(VstInt32 mode) override {
        log.Add("setKnobMode", mode);
        return true;
    }
    void draw(ERect* rect) override { log.Add("draw", rect->right); }
    VstInt32 mouse(VstInt32 x, VstInt32 y) override {
        log.Add("mouse", x, y);
        return 5;
    }
    VstInt32 key(VstInt32 code) override {
        log.Add("key", code);
        return 6;
    }
    void top() override { log.Add("top"); }
    void sleep() override { log.Add("sleep"); }

    ERect size{0, 0, 300, 400};

private:
    bool LogKey(const char* name, const VstKeyCode& key) {
        log.Add(name, key.character, int{key.virt}, int{key.modifier});
        return true;
    }

    CCallLog& log;
};

/// An effect with two programs, three parameters, two inputs and one output that overrides every
/// operation, writes down the call and answers with a number or text of its own.
class CRecordingEffect : public AudioEffectX {
public:
    CRecordingEffect(audioMasterCallback host, CCallLog& callLog)
        : AudioEffectX(host, 2, 3), log(callLog) {
        setNumInputs(2);
        setNumOutputs(1);
    }
    ~CRecordingEffect() override { log.Add("~effect"); }

    void open() override { log.Add("open"); }
    void close() override { log.Add("close"); }
    void suspend() override { log.Add("suspend"); }
    void resume() override { log.Add("resume"); }
    void setSampleRate(float hz) override { log.Add("setSampleRate", hz); }
    void setBlockSize(VstInt32 frames) override { log.Add("setBlockSize", frames); }
    void process(float** in, float** out, VstInt32 frames) override {
        log.Add("process", in[0][0], out[0][0], frames);
    }
    void processReplacing(float** in, float** out, VstInt32 frames) override {
        log.Add("processReplacing", in[0][0], out[0][0], frames);
    }
    void processDoubleReplacing(double** in, double** out, VstInt32 frames) override {
        log.Add("processDoubleReplacing", in[0][0], out[0][0], frames);
    }
    void setParameter(VstInt32 index, float value) override {
        log.Add("setParameter", index, value);
    }
    float getParameter(VstInt32 index) override {
        log.Add("getParameter", index);
        return 0.75F;
    }
    void getParameterLabel(VstInt32 index, CHostText& text) override {
        SetText("getParameterLabel", text, index);
    }
    void getParameterDisplay(VstInt32 index, CHostText& text) override {
        SetText("getParameterDisplay", text, index);
    }
    void getParameterName(VstInt32 index, CHostText& text) override {
        SetText("getParameterName", text, index);
    }
    VstInt32 getProgram() override {
        log.Add("getProgram");
        return 1;
    }
    void setProgram(VstInt32 program) override { log.Add("setProgram", program); }
    void setProgramName(const char* name) override { log.Add("setProgramName", name); }
    void getProgramName(CHostText& text) override { SetText("getProgramName", text); }
    VstInt32 getChunk(void** data, bool isPreset) override {
        *data = this;
        return Answer(23, "getChunk", isPreset);
    }
    VstInt32 setChunk(void* data, VstInt32 size, bool isPreset) override {
        return Answer(24, "setChunk", data, size, isPreset);
    }
    float getVu() override { return 0.5F; }

    VstInt32 processEvents(VstEvents* events) override {
        return Answer(25, "processEvents", events->numEvents);
    }
    bool canParameterBeAutomated(VstInt32 index) override {
        return Answer(1, "canParameterBeAutomated", index) != 0;
    }
    bool string2parameter(VstInt32 index, const char* text) override {
        return Answer(1, "string2parameter", index, text ? text : "null") != 0;
    }
    bool getParameterProperties(VstInt32 index, VstParameterProperties* p) override {
        return Answer(1, "getParameterProperties", index, p->minInteger) != 0;
    }
    bool getProgramNameIndexed(VstInt32 category, VstInt32 index, CHostText& text) override {
        SetText("getProgramNameIndexed", text, category, index);
        return true;
    }
    bool beginSetProgram() override { return Answer(1, "beginSetProgram") != 0; }
    bool endSetProgram() override { return Answer(1, "endSetProgram") != 0; }
    VstInt32 beginLoadBank(VstPatchChunkInfo* info) override {
        return Answer(-1, "beginLoadBank", info->numElements);
    }
    VstInt32 beginLoadProgram(VstPatchChunkInfo* info) override {
        return Answer(1, "beginLoadProgram", info->numElements);
    }
    bool getInputProperties(VstInt32 index, VstPinProperties* p) override {
        p->flags = kVstPinIsActive;
        return Answer(1, "getInputProperties", index) != 0;
    }
    bool getOutputProperties(VstInt32 index, VstPinProperties* p) override {
        p->flags = kVstPinIsActive;
        return Answer(1, "getOutputProperties", index) != 0;
    }
    bool setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out) override {
        return Answer(1, "setSpeakerArrangement", in->type, out->type) != 0;
    }
    bool getSpeakerArrangement(VstSpeakerArrangement** in, VstSpeakerArrangement** out) override {
        return Answer(1, "getSpeakerArrangement", (*in)->type, (*out)->type) != 0;
    }
    bool setBypass(bool on) override { return Answer(1, "setBypass", on) != 0; }
    bool setProcessPrecision(VstInt32 precision) override {
        return Answer(1, "setProcessPrecision", precision) != 0;
    }
    bool setPanLaw(VstInt32 law, float gain) override {
        return Answer(1, "setPanLaw", law, gain) != 0;
    }
    VstInt32 startProcess() override { return Answer(71, "startProcess"); }
    VstInt32 stopProcess() override { return Answer(72, "stopProcess"); }
    VstInt32 setTotalSampleToProcess(VstInt32 frames) override {
        return Answer(73, "setTotalSampleToProcess", frames);
    }
    void setBlockSizeAndSampleRate(VstInt32 frames, float hz) override {
        log.Add("setBlockSizeAndSampleRate", frames, hz);
    }
    VstInt32 getGetTailSize() override { return Answer(52, "getGetTailSize"); }

    bool getEffectName(CHostText& text) override { return SetText("getEffectName", text); }
    bool getVendorString(CHostText& text) override { return SetText("getVendorString", text); }
    bool getProductString(CHostText& text) override { return SetText("getProductString", text); }
    VstInt32 getVendorVersion() override { return Answer(49, "getVendorVersion"); }
    bool getErrorText(CHostText& text) override { return SetText("getErrorText", text); }
    VstPlugCategory getPlugCategory() override {
        log.Add("getPlugCategory");
        return kPlugCategAnalysis;
    }
    VstInt32 getVstVersion() override { return Answer(2400, "getVstVersion"); }
    VstInt32 canDo(const char* text) override { return Answer(-1, "canDo", text); }
    VstIntPtr vendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt) override {
        return Answer(50, "vendorSpecific", index, value, ptr, opt);
    }
    VstInt32 getNextShellPlugin(CHostText& text) override {
        SetText("getNextShellPlugin", text);
        return 70;
    }

    VstInt32 getNumMidiInputChannels() override { return Answer(78, "getNumMidiInputChannels"); }
    VstInt32 getNumMidiOutputChannels() override { return Answer(79, "getNumMidiOutputChannels"); }
    VstInt32 getMidiProgramName(VstInt32 channel, MidiProgramName* name) override {
        return Answer(62, "getMidiProgramName", channel, name->thisProgramIndex);
    }
    VstInt32 getCurrentMidiProgram(VstInt32 channel, MidiProgramName* name) override {
        return Answer(63, "getCurrentMidiProgram", channel, name->thisProgramIndex);
    }
    VstInt32 getMidiProgramCategory(VstInt32 channel, MidiProgramCategory* category) override {
        return Answer(64, "getMidiProgramCategory", channel, category->thisCategoryIndex);
    }
    bool hasMidiProgramsChanged(VstInt32 channel) override {
        return Answer(1, "hasMidiProgramsChanged", channel) != 0;
    }
    bool getMidiKeyName(VstInt32 channel, MidiKeyName* name) override {
        return Answer(1, "getMidiKeyName", channel, name->thisKeyNumber) != 0;
    }

    bool processVariableIo(VstVariableIo* io) override {
        return Answer(1, "processVariableIo", io->numSamplesInput) != 0;
    }
    bool offlineNotify(VstAudioFile* files, VstInt32 count, bool start) override {
        return Answer(1, "offlineNotify", static_cast<void*>(files), count, start) != 0;
    }
    bool offlinePrepare(VstOfflineTask* tasks, VstInt32 count) override {
        return Answer(1, "offlinePrepare", static_cast<void*>(tasks), count) != 0;
    }
    bool offlineRun(VstOfflineTask* tasks, VstInt32 count) override {
        return Answer(1, "offlineRun", static_cast<void*>(tasks), count) != 0;
    }

    VstInt32 getNumCategories() override { return Answer(28, "getNumCategories"); }
    bool copyProgram(VstInt32 to) override { return Answer(1, "copyProgram", to) != 0; }
    void inputConnected(VstInt32 index, bool on) override { log.Add("inputConnected", index, on); }
    void outputConnected(VstInt32 index, bool on) override {
        log.Add("outputConnected", index, on);
    }
    VstInt32 reportCurrentPosition() override { return Answer(36, "reportCurrentPosition"); }
    float* reportDestinationBuffer() override {
        log.Add("reportDestinationBuffer");
        return static_cast<float*>(Address(0x370));
    }
    VstInt32 fxIdle() override { return Answer(53, "fxIdle"); }
    void* getIcon() override {
        log.Add("getIcon");
        return Address(0x540);
    }
    bool setViewPosition(VstInt32 x, VstInt32 y) override {
        return Answer(1, "setViewPosition", x, y) != 0;
    }
    bool keysRequired() override { return Answer(1, "keysRequired") != 0; }

    /// What every text operation writes: more than any host has room for.
    static std::string LongText() { return std::string(500, 'x'); }

private:
    template <class... Args>
    VstInt32 Answer(VstInt32 answer, const char* name, Args... args) {
        log.Add(name, args...);
        return answer;
    }

    template <class... Args>
    bool SetText(const char* name, CHostText& text, Args... args) {
        log.Add(name, args...);
        text.Set(LongText().c_str());
        return true;
    }

    CCallLog& log;
};

} // namespace VorinExt::VSTPlugin::Testing
