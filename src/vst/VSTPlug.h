#pragma once

#include "audio/dsp/AudioStreams.h"
#include "audio/midi/MIDIEvent.h"
#include "audio/plugin/AudioPluginInternals.h"
#include "audio/plugin/BlockProcessor.h"
#include "core/Command.h"
#include "system/PollingLock.h"
#include "vst/OutgoingEvents.h"
#include "vst/VSTParamAdapter.h"
#include "vst/interface/AudioEffect.h"

#include <atomic>
#include <map>
#include <thread>
#include <vector>

namespace VorinExt::VSTPlugin {

/// The plug-in as a host of the published interface sees it. This folder is the only place that
/// knows of that interface; everything else stands behind the internals.
///
/// Hosts call from more threads than two. What holds:
/// - processReplacing, process and processEvents are for the audio thread, and never wait: while
///   another thread reconfigures the plug-in, blocks pass through without being looked at.
/// - Parameters may be read and written by any thread, the audio thread included.
/// - Everything else may come from any other thread, from several at a time.
///
/// `isProcessing` is the one state: while it is false, changes apply at once; while it is true,
/// they wait for the next block.
///
/// Where the filter has no outputs, as the oscilloscope, audio passes through: the effect then
/// announces as many outputs as inputs.
class CVSTPlug : public AudioEffectX, private Vorin::Audio::Plugin::IOutputsListener {
public:
    /// The filter of the config is there, and has been through Init with its defaults.
    CVSTPlug(audioMasterCallback hostCallback, Vorin::Audio::Plugin::CAudioPluginConfig config,
             Vorin::Audio::Plugin::IStaticSettings& staticSettings);
    ~CVSTPlug() override;

    void suspend() override;
    void resume() override;
    void setSampleRate(float hz) override;
    void setBlockSize(VstInt32 frames) override;

    void processReplacing(float** inputs, float** outputs, VstInt32 frames) override;
    void process(float** inputs, float** outputs, VstInt32 frames) override;
    VstInt32 processEvents(VstEvents* events) override;

    void setParameter(VstInt32 index, float value) override;
    float getParameter(VstInt32 index) override;
    void setParameterAutomated(VstInt32 index, float value) override;
    void getParameterLabel(VstInt32 index, CHostText& text) override;
    void getParameterDisplay(VstInt32 index, CHostText& text) override;
    void getParameterName(VstInt32 index, CHostText& text) override;
    bool canParameterBeAutomated(VstInt32) override { return true; }

    void setProgram(VstInt32) override {}
    void setProgramName(const char*) override {}
    void getProgramName(CHostText& text) override;
    bool getProgramNameIndexed(VstInt32 category, VstInt32 index, CHostText& text) override;

    VstInt32 getChunk(void** data, bool isPreset) override;
    VstInt32 setChunk(void* data, VstInt32 byteSize, bool isPreset) override;

    bool getInputProperties(VstInt32 pin, VstPinProperties* properties) override;
    bool getOutputProperties(VstInt32 pin, VstPinProperties* properties) override;
    bool setSpeakerArrangement(VstSpeakerArrangement* input,
                               VstSpeakerArrangement* output) override;
    bool setBypass(bool on) override;
    VstInt32 getGetTailSize() override;

    bool getEffectName(CHostText& text) override;
    bool getVendorString(CHostText& text) override;
    bool getProductString(CHostText& text) override;
    VstInt32 getVendorVersion() override;
    VstInt32 canDo(const char* text) override;
    VstPlugCategory getPlugCategory() override;

private:
    static constexpr VstInt32 kNoArrangement = -1;

    // VSTPlugProcessing.cpp [audio]
    void ProcessPiece(float** inputs, int inputOffset, float** outputs, int outputOffset,
                      int frames);
    void OnOutputsUpdated() override;
    void SyncOutput(int index, double value);

    void ApplyChangesWhenIdle();
    void Announce(int inputs, int outputs);
    void Configure();
    int FindConfiguration(int inputs, int outputs) const;
    CVSTParamAdapter* FindParam(VstInt32 index);
    static bool DescribePin(VstInt32 arrangement, VstPinProperties& properties);

    Vorin::Core::TCommand<CVSTPlug> refreshCommand{this, &CVSTPlug::ApplyChangesWhenIdle};
    Vorin::Audio::Plugin::CAudioPluginInternals internals;
    CVSTParamsAdapter inputParams; // "Bypass", then those of the filter
    CVSTParamsAdapter outputParams;
    Vorin::Audio::Plugin::CBlockProcessor processor{internals, this};

    std::atomic<bool> isProcessing{false};
    std::atomic<int> numInputs{0}; // as announced
    std::atomic<int> numOutputs{0};
    std::atomic<VstInt32> inputArrangement{kNoArrangement}; // as the host set them last
    std::atomic<VstInt32> outputArrangement{kNoArrangement};

    // Held by whoever is at the filter: the audio thread for a block, others for a change. It
    // guards what follows, which is sized while no block runs.
    Vorin::System::CPollingLock processingLock;
    int configuredFrames = 1; // the most that the filter gets at once
    int filterOutputs = 0;    // of its active configuration; 0: audio passes through
    std::vector<Vorin::Audio::DSP::CAudioStream> inputStreamDescs; // one per announced input
    std::vector<Vorin::Audio::DSP::CAudioStream> outputStreamDescs;
    std::vector<float*> inputPointers;
    std::vector<float*> outputPointers;
    std::vector<std::vector<float>> scratchBuffers; // one per announced output
    std::vector<float*> scratchPointers;

    // The audio thread's own.
    Vorin::Audio::MIDI::CMIDIEvent midiIn;
    Vorin::Audio::MIDI::CMIDIEvent midiOut;
    COutgoingEvents outgoingEvents;

    // One per thread that asked: the host reads the bytes after the call, and another of its
    // threads may be asking meanwhile.
    Vorin::System::CCriticalSection chunksLock;
    std::map<std::thread::id, Vorin::Containers::CCharString> chunkBuffers;
};

} // namespace VorinExt::VSTPlugin
