#include "vst/interface/Abi.h"

#include <cstddef>
#include <type_traits>

namespace VorinExt::VSTPlugin {
// The other header makes a macro of this name.
constexpr VstInt32 ownVersion = kVstVersion;
} // namespace VorinExt::VSTPlugin

// A second statement of the same interface, by people who found it out by themselves. What it does
// not know it leaves out; so do the comparisons.
#include <pluginterfaces/fst/fst.h>

#include <gtest/gtest.h>

namespace VorinExt::VSTPlugin {
namespace {

#define EXPECT_SAME(name) EXPECT_EQ(static_cast<long>(name), static_cast<long>(::name)) << #name
#define EXPECT_SAME_PLACE(type, ours, theirs)                                                      \
    EXPECT_EQ(offsetof(type, ours), offsetof(::type, theirs)) << #type "::" #ours;                 \
    EXPECT_EQ(sizeof(type::ours), sizeof(::type::theirs)) << #type "::" #ours

TEST(AbiTest, OpcodesOfEffectsAreThoseOfTheSecondSource) {
    EXPECT_SAME(effOpen);
    EXPECT_SAME(effClose);
    EXPECT_SAME(effSetProgram);
    EXPECT_SAME(effGetProgram);
    EXPECT_SAME(effSetProgramName);
    EXPECT_SAME(effGetProgramName);
    EXPECT_SAME(effGetParamLabel);
    EXPECT_SAME(effGetParamDisplay);
    EXPECT_SAME(effGetParamName);
    EXPECT_SAME(effSetSampleRate);
    EXPECT_SAME(effSetBlockSize);
    EXPECT_SAME(effMainsChanged);
    EXPECT_SAME(effEditGetRect);
    EXPECT_SAME(effEditOpen);
    EXPECT_SAME(effEditClose);
    EXPECT_SAME(effEditIdle);
    EXPECT_SAME(effIdentify);
    EXPECT_SAME(effGetChunk);
    EXPECT_SAME(effSetChunk);
    EXPECT_SAME(effProcessEvents);
    EXPECT_SAME(effCanBeAutomated);
    EXPECT_SAME(effString2Parameter);
    EXPECT_SAME(effGetProgramNameIndexed);
    EXPECT_SAME(effGetInputProperties);
    EXPECT_SAME(effGetOutputProperties);
    EXPECT_SAME(effGetPlugCategory);
    EXPECT_SAME(effSetSpeakerArrangement);
    EXPECT_SAME(effGetEffectName);
    EXPECT_SAME(effGetVendorString);
    EXPECT_SAME(effGetProductString);
    EXPECT_SAME(effGetVendorVersion);
    EXPECT_SAME(effVendorSpecific);
    EXPECT_SAME(effCanDo);
    EXPECT_SAME(effGetVstVersion);
    EXPECT_SAME(effGetCurrentMidiProgram);
    EXPECT_SAME(effGetSpeakerArrangement);
    EXPECT_SAME(effShellGetNextPlugin);
    EXPECT_SAME(effStartProcess);
    EXPECT_SAME(effStopProcess);
    EXPECT_SAME(effSetTotalSampleToProcess);
    EXPECT_SAME(effSetProcessPrecision);
}

TEST(AbiTest, OpcodesOfHostsAreThoseOfTheSecondSource) {
    EXPECT_SAME(audioMasterAutomate);
    EXPECT_SAME(audioMasterVersion);
    EXPECT_SAME(audioMasterCurrentId);
    EXPECT_SAME(audioMasterWantMidi);
    EXPECT_SAME(audioMasterGetTime);
    EXPECT_SAME(audioMasterProcessEvents);
    EXPECT_SAME(audioMasterTempoAt);
    EXPECT_SAME(audioMasterSizeWindow);
    EXPECT_SAME(audioMasterGetSampleRate);
    EXPECT_SAME(audioMasterGetBlockSize);
    EXPECT_SAME(audioMasterGetCurrentProcessLevel);
    EXPECT_SAME(audioMasterGetVendorString);
    EXPECT_SAME(audioMasterGetProductString);
    EXPECT_SAME(audioMasterGetVendorVersion);
    EXPECT_SAME(audioMasterCanDo);
    EXPECT_SAME(audioMasterBeginEdit);
    EXPECT_SAME(audioMasterEndEdit);
}

TEST(AbiTest, FlagsCategoriesAndConstantsAreThoseOfTheSecondSource) {
    EXPECT_SAME(effFlagsHasEditor);
    EXPECT_SAME(effFlagsCanReplacing);
    EXPECT_SAME(effFlagsProgramChunks);
    EXPECT_SAME(effFlagsIsSynth);
    EXPECT_SAME(effFlagsNoSoundInStop);
    EXPECT_SAME(effFlagsCanDoubleReplacing);
    EXPECT_SAME(kPlugCategUnknown);
    EXPECT_SAME(kPlugCategEffect);
    EXPECT_SAME(kPlugCategSynth);
    EXPECT_SAME(kPlugCategAnalysis);
    EXPECT_SAME(kPlugCategMastering);
    EXPECT_SAME(kPlugCategSpacializer);
    EXPECT_SAME(kPlugCategRoomFx);
    EXPECT_SAME(kPlugSurroundFx);
    EXPECT_SAME(kPlugCategRestoration);
    EXPECT_SAME(kPlugCategOfflineProcess);
    EXPECT_SAME(kPlugCategShell);
    EXPECT_SAME(kPlugCategGenerator);
    EXPECT_SAME(kPlugCategMaxCount);
    EXPECT_SAME(kSpeakerArrUserDefined);
    EXPECT_SAME(kSpeakerArrEmpty);
    EXPECT_SAME(kSpeakerArrMono);
    EXPECT_SAME(kSpeakerArrStereo);
    EXPECT_SAME(kSpeakerArr102);
    EXPECT_SAME(kSpeakerM);
    EXPECT_SAME(kSpeakerL);
    EXPECT_SAME(kSpeakerR);
    EXPECT_SAME(kVstTransportChanged);
    EXPECT_SAME(kVstTransportPlaying);
    EXPECT_SAME(kVstTransportCycleActive);
    EXPECT_SAME(kVstTransportRecording);
    EXPECT_SAME(kVstNanosValid);
    EXPECT_SAME(kVstPpqPosValid);
    EXPECT_SAME(kVstTempoValid);
    EXPECT_SAME(kVstBarsValid);
    EXPECT_SAME(kVstCyclePosValid);
    EXPECT_SAME(kVstTimeSigValid);
    EXPECT_SAME(kVstSmpteValid);
    EXPECT_SAME(kVstClockValid);
    EXPECT_SAME(kVstMidiType);
    EXPECT_SAME(kVstSysExType);
    EXPECT_SAME(kVstProcessLevelUnknown);
    EXPECT_SAME(kVstProcessLevelRealtime);
    EXPECT_SAME(kVstProcessLevelOffline);
    EXPECT_SAME(kVstProcessPrecision32);
    EXPECT_SAME(kVstProcessPrecision64);
    EXPECT_SAME(kVstMaxParamStrLen);
    EXPECT_SAME(kVstMaxLabelLen);
    EXPECT_SAME(kVstMaxShortLabelLen);
    EXPECT_SAME(kEffectMagic);
    EXPECT_EQ(ownVersion, kVstVersion);
    // What we write never exceeds what the second source found out to be safe.
    EXPECT_LE(static_cast<int>(kVstMaxProgNameLen), static_cast<int>(::kVstMaxProgNameLen));
    EXPECT_LE(static_cast<int>(kVstMaxVendorStrLen), static_cast<int>(::kVstMaxVendorStrLen));
    EXPECT_LE(static_cast<int>(kVstMaxProductStrLen), static_cast<int>(::kVstMaxProductStrLen));
}

TEST(AbiTest, TheRecordOfAnEffectHasTheLayoutOfTheSecondSource) {
    EXPECT_SAME_PLACE(AEffect, magic, magic);
    EXPECT_SAME_PLACE(AEffect, dispatcher, dispatcher);
    EXPECT_SAME_PLACE(AEffect, process, process);
    EXPECT_SAME_PLACE(AEffect, setParameter, setParameter);
    EXPECT_SAME_PLACE(AEffect, getParameter, getParameter);
    EXPECT_SAME_PLACE(AEffect, numPrograms, numPrograms);
    EXPECT_SAME_PLACE(AEffect, numParams, numParams);
    EXPECT_SAME_PLACE(AEffect, numInputs, numInputs);
    EXPECT_SAME_PLACE(AEffect, numOutputs, numOutputs);
    // There the flags take the padding behind them too.
    EXPECT_EQ(offsetof(AEffect, flags), offsetof(::AEffect, flags));
    EXPECT_SAME_PLACE(AEffect, resvd1, resvd1);
    EXPECT_SAME_PLACE(AEffect, resvd2, resvd2);
    EXPECT_SAME_PLACE(AEffect, initialDelay, initialDelay);
    EXPECT_SAME_PLACE(AEffect, ioRatio, float1);
    EXPECT_SAME_PLACE(AEffect, object, object);
    EXPECT_SAME_PLACE(AEffect, user, user);
    EXPECT_SAME_PLACE(AEffect, uniqueID, uniqueID);
    EXPECT_SAME_PLACE(AEffect, version, version);
    EXPECT_SAME_PLACE(AEffect, processReplacing, processReplacing);
    EXPECT_SAME_PLACE(AEffect, processDoubleReplacing, processDoubleReplacing);
    EXPECT_GE(sizeof(AEffect), sizeof(::AEffect));
}

TEST(AbiTest, EventsHaveTheLayoutOfTheSecondSource) {
    EXPECT_SAME_PLACE(VstEvent, type, type);
    EXPECT_SAME_PLACE(VstEvent, byteSize, byteSize);
    EXPECT_SAME_PLACE(VstEvent, deltaFrames, deltaFrames);
    EXPECT_SAME_PLACE(VstEvent, flags, flags);
    EXPECT_SAME_PLACE(VstEvents, numEvents, numEvents);
    EXPECT_EQ(offsetof(VstEvents, events), offsetof(::VstEvents, events));
    EXPECT_SAME_PLACE(VstMidiEvent, deltaFrames, deltaFrames);
    EXPECT_SAME_PLACE(VstMidiEvent, midiData, midiData);
    EXPECT_EQ(sizeof(VstMidiEvent), sizeof(::VstMidiEvent));
    EXPECT_EQ(offsetof(VstMidiSysexEvent, dumpBytes), offsetof(::VstMidiSysexEvent, dumpBytes));
    EXPECT_SAME_PLACE(VstMidiSysexEvent, sysexDump, sysexDump);
    EXPECT_EQ(sizeof(VstMidiSysexEvent), sizeof(::VstMidiSysexEvent));
}

TEST(AbiTest, TimePinsAndSpeakersHaveTheLayoutOfTheSecondSource) {
    EXPECT_SAME_PLACE(VstTimeInfo, samplePos, samplePos);
    EXPECT_SAME_PLACE(VstTimeInfo, sampleRate, sampleRate);
    EXPECT_SAME_PLACE(VstTimeInfo, nanoSeconds, nanoSeconds);
    EXPECT_SAME_PLACE(VstTimeInfo, ppqPos, ppqPos);
    EXPECT_SAME_PLACE(VstTimeInfo, tempo, tempo);
    EXPECT_SAME_PLACE(VstTimeInfo, barStartPos, barStartPos);
    EXPECT_SAME_PLACE(VstTimeInfo, cycleStartPos, cycleStartPos);
    EXPECT_SAME_PLACE(VstTimeInfo, cycleEndPos, cycleEndPos);
    EXPECT_SAME_PLACE(VstTimeInfo, timeSigNumerator, timeSigNumerator);
    EXPECT_SAME_PLACE(VstTimeInfo, timeSigDenominator, timeSigDenominator);
    EXPECT_SAME_PLACE(VstTimeInfo, samplesToNextClock, samplesToNextClock);
    EXPECT_SAME_PLACE(VstTimeInfo, flags, flags);
    EXPECT_SAME_PLACE(VstPinProperties, label, label);
    EXPECT_SAME_PLACE(VstPinProperties, flags, flags);
    EXPECT_SAME_PLACE(VstPinProperties, arrangementType, arrangementType);
    EXPECT_SAME_PLACE(VstPinProperties, shortLabel, shortLabel);
    EXPECT_SAME_PLACE(VstSpeakerProperties, azimuth, azimuth);
    EXPECT_SAME_PLACE(VstSpeakerProperties, name, name);
    EXPECT_SAME_PLACE(VstSpeakerProperties, type, type);
    EXPECT_EQ(sizeof(VstSpeakerProperties), sizeof(::VstSpeakerProperties));
    EXPECT_SAME_PLACE(VstSpeakerArrangement, type, type);
    EXPECT_SAME_PLACE(VstSpeakerArrangement, numChannels, numChannels);
    EXPECT_EQ(offsetof(VstSpeakerArrangement, speakers),
              offsetof(::VstSpeakerArrangement, speakers));
    EXPECT_SAME_PLACE(ERect, top, top);
    EXPECT_SAME_PLACE(ERect, left, left);
    EXPECT_SAME_PLACE(ERect, bottom, bottom);
    EXPECT_SAME_PLACE(ERect, right, right);
    EXPECT_EQ(sizeof(ERect), sizeof(::ERect));
}

TEST(AbiTest, TheFunctionsOfTheRecordTakeWhatTheSecondSourceSays) {
    EXPECT_EQ(sizeof(VstInt32), sizeof(::VstInt32));
    EXPECT_EQ(sizeof(VstIntPtr), sizeof(::VstIntPtr));
    EXPECT_TRUE((std::is_invocable_r_v<::VstIntPtr, AEffectDispatcherProc, AEffect*, int, int,
                                       ::VstIntPtr, void*, float>));
    EXPECT_TRUE((std::is_invocable_v<AEffectProcessProc, AEffect*, float**, float**, int>));
    EXPECT_TRUE((std::is_invocable_v<AEffectProcessDoubleProc, AEffect*, double**, double**, int>));
}

TEST(AbiTest, FourCharactersStandInReadingOrder) {
    EXPECT_EQ(FourCharacters('V', 's', 't', 'P'), 0x56737450);
    EXPECT_EQ(FourCharacters('k', '7', 'q', 'z'), 0x6b37717a);
    EXPECT_EQ(FourCharacters('\xff', '\0', '\0', '\1'), -0x00ffffff);
}

} // namespace
} // namespace VorinExt::VSTPlugin
