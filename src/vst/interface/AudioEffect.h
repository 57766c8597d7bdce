#pragma once

#include "vst/interface/Abi.h"
#include "vst/interface/Editor.h"
#include "vst/interface/HostText.h"

#include <memory>

namespace VorinExt::VSTPlugin {

/// The arguments of a call of the dispatcher, of which each opcode uses some.
struct CEffectCall {
    VstInt32 opcode;
    VstInt32 index;
    VstIntPtr value;
    void* ptr;
    float opt;
};

/// A plug-in behind the C interface: the record that the host holds, and an operation for each
/// thing that a host can ask. Derived classes override what they answer; all others do nothing.
///
/// Threads: processing, events and, in some hosts, setParameter on the audio thread [audio]; all
/// others on the host's main thread [gui], the texts and getParameter also on others.
///
/// What reaches an operation has been looked at: pointers are not null unless it says so, counts
/// and rates are positive, values are numbers, and programs, pins and parameters are there; only
/// where it says "any index" the index is as the host gave it. What does not pass is answered with
/// 0 or dropped.
///
/// The host makes it by the entry point and ends it by `effClose`, which deletes it: it stands on
/// the heap.
class AudioEffect {
public:
    /// The host's callback may be null; every question to the host is answered with 0 then.
    AudioEffect(audioMasterCallback hostCallback, VstInt32 programsCount, VstInt32 paramsCount);
    AudioEffect(const AudioEffect&) = delete;
    AudioEffect& operator=(const AudioEffect&) = delete;
    virtual ~AudioEffect();

    /// What the entry point gives to the host. Lives as long as this object.
    AEffect* getAeffect() { return &cEffect; }

    /// Answers the opcodes up to effSetChunk; others with 0.
    virtual VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                 float opt);

    virtual void open() {}
    virtual void close() {}

    /// Processing ends, or begins. `suspend` also comes first, before any `resume`.
    virtual void suspend() {}
    virtual void resume() {}

    virtual void setSampleRate(float hz) { sampleRate = hz; }
    virtual void setBlockSize(VstInt32 frames) { blockSize = frames; }

    /// The accumulating call of old hosts: adds to the outputs. frames >= 0, as in the other two.
    virtual void process(float**, float**, VstInt32) {}
    virtual void processReplacing(float** inputs, float** outputs, VstInt32 frames) = 0;
    virtual void processDoubleReplacing(double**, double**, VstInt32) {}

    /// Values are normalised, 0 to 1. Any index.
    virtual void setParameter(VstInt32, float) {}
    virtual float getParameter(VstInt32) { return 0.0F; }

    /// Sets the parameter and tells the host, which may record it.
    virtual void setParameterAutomated(VstInt32 index, float value);

    /// Texts of a parameter, any index.
    virtual void getParameterLabel(VstInt32, CHostText&) {}
    virtual void getParameterDisplay(VstInt32, CHostText&) {}
    virtual void getParameterName(VstInt32, CHostText&) {}

    virtual VstInt32 getProgram() { return curProgram; }
    virtual void setProgram(VstInt32 program) { curProgram = program; }
    virtual void setProgramName(const char*) {}
    virtual void getProgramName(CHostText&) {}

    /// The state as bytes: sets *data and gives their count. They are the plug-in's, until the next
    /// call or `suspend`.
    virtual VstInt32 getChunk(void**, bool) { return 0; }

    /// Takes a state of byteSize >= 0 bytes. 0 when it was refused.
    virtual VstInt32 setChunk(void*, VstInt32, bool) { return 0; }

    /// -1 to 1; out of use since 2.4.
    virtual float getVu() { return 0.0F; }

    void setUniqueID(VstInt32 id) { cEffect.uniqueID = id; }
    void setNumInputs(VstInt32 count) { cEffect.numInputs = count; }
    void setNumOutputs(VstInt32 count) { cEffect.numOutputs = count; }
    void setInitialDelay(VstInt32 frames) { cEffect.initialDelay = frames; }
    void canProcessReplacing(bool can = true) { SetFlag(effFlagsCanReplacing, can); }
    void canDoubleReplacing(bool can = true) { SetFlag(effFlagsCanDoubleReplacing, can); }
    void programsAreChunks(bool are = true) { SetFlag(effFlagsProgramChunks, are); }

    /// Takes the editor over; the previous one is deleted. Null: there is none.
    void setEditor(AEffEditor* newEditor);
    AEffEditor* getEditor() const { return editor.get(); }

    float getSampleRate() const { return sampleRate; }
    VstInt32 getBlockSize() const { return blockSize; }

    /// The interface version of the host; 1 when it does not say.
    VstInt32 getMasterVersion();
    VstInt32 getCurrentUniqueId();
    void masterIdle();

protected:
    /// Asks the host. 0 without one.
    VstIntPtr CallHost(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0,
                       void* ptr = nullptr, float opt = 0.0F);

    void SetFlag(VstInt32 flag, bool on);

    /// The opcodes of the editor, from all versions.
    VstIntPtr DispatchEditor(const CEffectCall& call);

    audioMasterCallback audioMaster;
    VstInt32 numPrograms;
    VstInt32 numParams;
    VstInt32 curProgram = 0;
    float sampleRate = 44100.0F; // Hz
    VstInt32 blockSize = 1024;   // frames
    AEffect cEffect{};

private:
    VstIntPtr DispatchPrograms(const CEffectCall& call);
    VstIntPtr DispatchParameterText(const CEffectCall& call);
    VstIntPtr DispatchChunk(const CEffectCall& call);

    std::unique_ptr<AEffEditor> editor;
};

/// The operations that joined the interface from version 2 on, and what can be asked of a host.
class AudioEffectX : public AudioEffect {
public:
    using AudioEffect::AudioEffect;

    /// Answers every opcode; unknown ones with 0.
    VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                         float opt) override;

    /// Asks the host for MIDI when `canDo` says that it can be received.
    void resume() override;

    /// The events of the next block. Nobody has looked into them but at the pointer.
    virtual VstInt32 processEvents(VstEvents*) { return 0; }

    virtual bool canParameterBeAutomated(VstInt32) { return true; }

    /// Sets a parameter from a text. A null text asks whether texts are understood at all.
    virtual bool string2parameter(VstInt32, const char*) { return false; }
    virtual bool getParameterProperties(VstInt32, VstParameterProperties*) { return false; }

    /// The category may be -1, for all programs; the index is that of a program.
    virtual bool getProgramNameIndexed(VstInt32, VstInt32, CHostText&) { return false; }
    virtual bool beginSetProgram() { return false; }
    virtual bool endSetProgram() { return false; }
    /// 1: go on; -1: refused; 0: unknown.
    virtual VstInt32 beginLoadBank(VstPatchChunkInfo*) { return 0; }
    virtual VstInt32 beginLoadProgram(VstPatchChunkInfo*) { return 0; }

    /// The record comes as the host left it. False: the host goes by the numbers of pins.
    virtual bool getInputProperties(VstInt32, VstPinProperties*) { return false; }
    virtual bool getOutputProperties(VstInt32, VstPinProperties*) { return false; }
    virtual bool setSpeakerArrangement(VstSpeakerArrangement*, VstSpeakerArrangement*) {
        return false;
    }
    virtual bool getSpeakerArrangement(VstSpeakerArrangement** input,
                                       VstSpeakerArrangement** output) {
        *input = nullptr;
        *output = nullptr;
        return false;
    }

    /// True: handled, so that the host does not bypass by itself.
    virtual bool setBypass(bool) { return false; }
    virtual bool setProcessPrecision(VstInt32) { return false; }
    virtual bool setPanLaw(VstInt32, float) { return false; }
    virtual VstInt32 startProcess() { return 0; }
    virtual VstInt32 stopProcess() { return 0; }
    virtual VstInt32 setTotalSampleToProcess(VstInt32 frames) { return frames; }
    virtual void setBlockSizeAndSampleRate(VstInt32 frames, float hz);
    /// Frames; 0: unknown, 1: none.
    virtual VstInt32 getGetTailSize() { return 0; }

    /// False, or an empty text: the host makes up a name of its own.
    virtual bool getEffectName(CHostText&) { return false; }
    virtual bool getVendorString(CHostText&) { return false; }
    virtual bool getProductString(CHostText&) { return false; }
    virtual VstInt32 getVendorVersion() { return 0; }
    virtual bool getErrorText(CHostText&) { return false; }
    virtual VstPlugCategory getPlugCategory();
    virtual VstInt32 getVstVersion() { return kVstVersion; }
    /// An VstCanDo.
    virtual VstInt32 canDo(const char*) { return kVstDontKnow; }
    virtual VstIntPtr vendorSpecific(VstInt32, VstIntPtr, void*, float) { return 0; }
    /// For shells: the unique id of the next plug-in, 0 after the last one.
    virtual VstInt32 getNextShellPlugin(CHostText&) { return 0; }

    virtual VstInt32 getNumMidiInputChannels() { return 0; }
    virtual VstInt32 getNumMidiOutputChannels() { return 0; }
    virtual VstInt32 getMidiProgramName(VstInt32, MidiProgramName*) { return 0; }
    virtual VstInt32 getCurrentMidiProgram(VstInt32, MidiProgramName*) { return -1; }
    virtual VstInt32 getMidiProgramCategory(VstInt32, MidiProgramCategory*) { return 0; }
    virtual bool hasMidiProgramsChanged(VstInt32) { return false; }
    virtual bool getMidiKeyName(VstInt32, MidiKeyName*) { return false; }

    virtual bool processVariableIo(VstVariableIo*) { return false; }
    virtual bool offlineNotify(VstAudioFile*, VstInt32, bool) { return false; }
    virtual bool offlinePrepare(VstOfflineTask*, VstInt32) { return false; }
    virtual bool offlineRun(VstOfflineTask*, VstInt32) { return false; }

    // Out of use since 2.4, still asked by old hosts.
    virtual VstInt32 getNumCategories() { return 1; }
    virtual bool copyProgram(VstInt32) { return false; }
    virtual void inputConnected(VstInt32, bool) {}
    virtual void outputConnected(VstInt32, bool) {}
    virtual VstInt32 reportCurrentPosition() { return 0; }
    virtual float* reportDestinationBuffer() { return nullptr; }
    virtual VstInt32 fxIdle() { return 0; }
    virtual void* getIcon() { return nullptr; }
    virtual bool setViewPosition(VstInt32, VstInt32) { return false; }
    virtual bool keysRequired() { return false; }

    void isSynth(bool is = true) { SetFlag(effFlagsIsSynth, is); }
    void noTail(bool hasNone = true) { SetFlag(effFlagsNoSoundInStop, hasNone); }

    // Questions and messages to the host. Virtual where plug-ins watch them in their tests.

    /// Brackets of a gesture of the user on a parameter.
    virtual bool beginEdit(VstInt32 index);
    virtual bool endEdit(VstInt32 index);
    virtual bool updateDisplay();

    /// The number of channels, the delay or the tail has changed.
    virtual bool ioChanged();

    /// Asks for another size of the editor's window, in pixels.
    virtual bool sizeWindow(VstInt32 width, VstInt32 height);

    /// [audio] The events belong to the caller, and are copied by the host.
    bool sendVstEventsToHost(VstEvents* events);

    /// [audio] The time of this block, of the host; null when it does not tell.
    virtual VstTimeInfo* getTimeInfo(VstInt32 wantedFlags);

    virtual bool isInputConnected(VstInt32 input);
    virtual bool isOutputConnected(VstInt32 output);
    virtual VstInt32 getInputLatency();
    virtual VstInt32 getOutputLatency();
    /// Takes over what the host says, when that is a rate or a size.
    virtual double updateSampleRate();
    virtual VstInt32 updateBlockSize();
    virtual VstInt32 getCurrentProcessLevel();
    virtual VstInt32 getAutomationState();

    virtual bool getHostVendorString(CHostText& text);
    virtual bool getHostProductString(CHostText& text);
    virtual VstInt32 getHostVendorVersion();
    virtual VstIntPtr hostVendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt);
    virtual VstInt32 canHostDo(const char* text);
    virtual VstInt32 getHostLanguage();
    /// The folder of the plug-in by the host, or null.
    virtual const char* getDirectory();

private:
    template <class R>
    VstIntPtr AskText(const CEffectCall& call, VstInt32 size,
                      R (AudioEffectX::*operation)(CHostText&));

    bool DispatchTexts(const CEffectCall& call, VstIntPtr& result);
    bool DispatchParameters(const CEffectCall& call, VstIntPtr& result);
    bool DispatchPins(const CEffectCall& call, VstIntPtr& result);
    bool DispatchProcessing(const CEffectCall& call, VstIntPtr& result);
    bool DispatchPrograms(const CEffectCall& call, VstIntPtr& result);
    bool DispatchMidi(const CEffectCall& call, VstIntPtr& result);
    bool DispatchOffline(const CEffectCall& call, VstIntPtr& result);
    bool DispatchOldOnes(const CEffectCall& call, VstIntPtr& result);

    bool GetHostText(VstInt32 opcode, CHostText& text);
};

} // namespace VorinExt::VSTPlugin
