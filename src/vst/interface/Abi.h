#pragma once

#include <cstddef>
#include <cstdint>

/// The binary interface, version 2.4, between a host and a plug-in: what both sides have to agree
/// on to the byte. Numbers, layouts and names are the published ones; nothing here is ours.
///
/// The host calls `AEffect::dispatcher` and the other functions of the record that the plug-in gave
/// it; the plug-in calls the host by one callback. Both take an opcode with an index, a value, a
/// pointer and a float, of which each opcode uses some. Texts go into arrays of the caller.
namespace VorinExt::VSTPlugin {

using VstInt16 = std::int16_t;
using VstInt32 = std::int32_t;
using VstIntPtr = std::intptr_t;

constexpr VstInt32 FourCharacters(char a, char b, char c, char d) {
    return static_cast<VstInt32>(static_cast<std::uint32_t>(static_cast<unsigned char>(a)) << 24U |
                                 static_cast<std::uint32_t>(static_cast<unsigned char>(b)) << 16U |
                                 static_cast<std::uint32_t>(static_cast<unsigned char>(c)) << 8U |
                                 static_cast<std::uint32_t>(static_cast<unsigned char>(d)));
}

constexpr VstInt32 kEffectMagic = FourCharacters('V', 's', 't', 'P');
constexpr VstInt32 kEffectIdentify = FourCharacters('N', 'v', 'E', 'f');
constexpr VstInt32 kVstVersion = 2400;

/// The bytes of texts, final zero included.
enum VstTextSizes : VstInt32 {
    kVstMaxProgNameLen = 24,
    kVstMaxParamStrLen = 8, // hosts give 24 at least
    kVstMaxVendorStrLen = 64,
    kVstMaxProductStrLen = 64,
    kVstMaxEffectNameLen = 32,
    kVstMaxNameLen = 64,
    kVstMaxLabelLen = 64,
    kVstMaxShortLabelLen = 8,
    kVstMaxCategLabelLen = 24,
    kVstMaxFileNameLen = 100
};

struct AEffect;

using AEffectDispatcherProc = VstIntPtr (*)(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                            VstIntPtr value, void* ptr, float opt);
/// The host's side. `effect` may be null while the plug-in is being made.
using audioMasterCallback = AEffectDispatcherProc;

using AEffectProcessProc = void (*)(AEffect* effect, float** inputs, float** outputs,
                                    VstInt32 frames);
using AEffectProcessDoubleProc = void (*)(AEffect* effect, double** inputs, double** outputs,
                                          VstInt32 frames);
using AEffectSetParameterProc = void (*)(AEffect* effect, VstInt32 index, float value);
using AEffectGetParameterProc = float (*)(AEffect* effect, VstInt32 index);

/// A plug-in, as the host sees it.
struct AEffect {
    VstInt32 magic; // kEffectMagic
    AEffectDispatcherProc dispatcher;
    AEffectProcessProc process; // adds to its outputs; out of use since 2.4
    AEffectSetParameterProc setParameter;
    AEffectGetParameterProc getParameter;
    VstInt32 numPrograms;
    VstInt32 numParams;
    VstInt32 numInputs;
    VstInt32 numOutputs;
    VstInt32 flags; // VstEffectFlags
    VstIntPtr resvd1;
    VstIntPtr resvd2;
    VstInt32 initialDelay; // frames
    VstInt32 realQualities;
    VstInt32 offQualities;
    float ioRatio;
    void* object; // the plug-in's own
    void* user;
    VstInt32 uniqueID;
    VstInt32 version;
    AEffectProcessProc processReplacing;
    AEffectProcessDoubleProc processDoubleReplacing;
    char future[56];
};

enum VstEffectFlags : VstInt32 {
    effFlagsHasEditor = 1 << 0,
    effFlagsHasClip = 1 << 1,
    effFlagsHasVu = 1 << 2,
    effFlagsCanMono = 1 << 3,
    effFlagsCanReplacing = 1 << 4,
    effFlagsProgramChunks = 1 << 5,
    effFlagsIsSynth = 1 << 8,
    effFlagsNoSoundInStop = 1 << 9,
    effFlagsExtIsAsync = 1 << 10,
    effFlagsExtHasBuffer = 1 << 11,
    effFlagsCanDoubleReplacing = 1 << 12
};

/// What a host asks of a plug-in.
enum VstEffectOpcodes : VstInt32 {
    effOpen = 0,
    effClose = 1,
    effSetProgram = 2, // value: the program
    effGetProgram = 3,
    effSetProgramName = 4,  // ptr: the name
    effGetProgramName = 5,  // ptr: room for kVstMaxProgNameLen
    effGetParamLabel = 6,   // index, ptr: room for a parameter text
    effGetParamDisplay = 7, // index, ptr: the same
    effGetParamName = 8,    // index, ptr: the same
    effGetVu = 9,
    effSetSampleRate = 10, // opt: Hz
    effSetBlockSize = 11,  // value: frames
    effMainsChanged = 12,  // value: 0 is suspend, else resume
    effEditGetRect = 13,   // ptr: ERect**
    effEditOpen = 14,      // ptr: the parent window
    effEditClose = 15,
    effEditDraw = 16,  // ptr: ERect*
    effEditMouse = 17, // index: x, value: y
    effEditKey = 18,   // value: the key
    effEditIdle = 19,
    effEditTop = 20,
    effEditSleep = 21,
    effIdentify = 22,         // kEffectIdentify
    effGetChunk = 23,         // index: 0 is the bank, 1 the program; ptr: void**; the byte count
    effSetChunk = 24,         // index: the same; value: the byte count; ptr: the bytes
    effProcessEvents = 25,    // ptr: VstEvents*
    effCanBeAutomated = 26,   // index
    effString2Parameter = 27, // index; ptr: text, or null to ask whether texts are understood
    effGetNumProgramCategories = 28,
    effGetProgramNameIndexed = 29, // value: the category or -1; index; ptr: kVstMaxProgNameLen
    effCopyProgram = 30,           // index: to this program
    effConnectInput = 31,          // index, value: state
    effConnectOutput = 32,         // index, value: state
    effGetInputProperties = 33,    // index, ptr: VstPinProperties*
    effGetOutputProperties = 34,   // index, ptr: VstPinProperties*
    effGetPlugCategory = 35,
    effGetCurrentPosition = 36,
    effGetDestinationBuffer = 37,
    effOfflineNotify = 38,             // ptr: VstAudioFile*, value: count, index: start
    effOfflinePrepare = 39,            // ptr: VstOfflineTask*, value: count
    effOfflineRun = 40,                // ptr: VstOfflineTask*, value: count
    effProcessVarIo = 41,              // ptr: VstVariableIo*
    effSetSpeakerArrangement = 42,     // value: VstSpeakerArrangement* of inputs, ptr: of outputs
    effSetBlockSizeAndSampleRate = 43, // value: frames, opt: Hz
    effSetBypass = 44,                 // value
    effGetEffectName = 45,             // ptr: room for kVstMaxEffectNameLen
    effGetErrorText = 46,              // ptr: room for 256
    effGetVendorString = 47,           // ptr: room for kVstMaxVendorStrLen
    effGetProductString = 48,          // ptr: room for kVstMaxProductStrLen
    effGetVendorVersion = 49,
    effVendorSpecific = 50, // all four
    effCanDo = 51,          // ptr: the text
    effGetTailSize = 52,    // 0: default, 1: none, else frames
    effIdle = 53,
    effGetIcon = 54,
    effSetViewPosition = 55,        // index: x, value: y
    effGetParameterProperties = 56, // index, ptr: VstParameterProperties*
    effKeysRequired = 57,           // 0: yes, 1: no
    effGetVstVersion = 58,
    effEditKeyDown = 59,            // index: character, value: VstVirtualKey, opt: VstModifierKey
    effEditKeyUp = 60,              // the same
    effSetEditKnobMode = 61,        // value: VstKnobMode
    effGetMidiProgramName = 62,     // index: channel, ptr: MidiProgramName*
    effGetCurrentMidiProgram = 63,  // the same
    effGetMidiProgramCategory = 64, // index: channel, ptr: MidiProgramCategory*
    effHasMidiProgramsChanged = 65, // index: channel
    effGetMidiKeyName = 66,         // index: channel, ptr: MidiKeyName*
    effBeginSetProgram = 67,
    effEndSetProgram = 68,
    effGetSpeakerArrangement = 69, // value: VstSpeakerArrangement** of inputs, ptr: of outputs
    effShellGetNextPlugin = 70,    // ptr: room for kVstMaxProductStrLen; the unique id
    effStartProcess = 71,
    effStopProcess = 72,
    effSetTotalSampleToProcess = 73, // value
    effSetPanLaw = 74,               // value: VstPanLawType, opt: gain
    effBeginLoadBank = 75,           // ptr: VstPatchChunkInfo*
    effBeginLoadProgram = 76,        // the same
    effSetProcessPrecision = 77,     // value: VstProcessPrecision
    effGetNumMidiInputChannels = 78,
    effGetNumMidiOutputChannels = 79
};

/// What a plug-in asks of its host.
enum VstHostOpcodes : VstInt32 {
    audioMasterAutomate = 0, // index, opt: value
    audioMasterVersion = 1,  // 2400, say; 0 counts as no host
    audioMasterCurrentId = 2,
    audioMasterIdle = 3,
    audioMasterPinConnected = 4,  // index, value: 0 is an input; 0 is connected
    audioMasterWantMidi = 6,      // value: 1
    audioMasterGetTime = 7,       // value: VstTimeInfoFlags wanted; VstTimeInfo*
    audioMasterProcessEvents = 8, // ptr: VstEvents*
    audioMasterSetTime = 9,
    audioMasterTempoAt = 10,
    audioMasterGetNumAutomatableParameters = 11,
    audioMasterGetParameterQuantization = 12,
    audioMasterIOChanged = 13,
    audioMasterNeedIdle = 14,
    audioMasterSizeWindow = 15, // index: width, value: height
    audioMasterGetSampleRate = 16,
    audioMasterGetBlockSize = 17,
    audioMasterGetInputLatency = 18,
    audioMasterGetOutputLatency = 19,
    audioMasterGetPreviousPlug = 20,
    audioMasterGetNextPlug = 21,
    audioMasterWillReplaceOrAccumulate = 22,
    audioMasterGetCurrentProcessLevel = 23, // VstProcessLevels
    audioMasterGetAutomationState = 24,     // VstAutomationStates
    audioMasterOfflineStart = 25,
    audioMasterOfflineRead = 26,
    audioMasterOfflineWrite = 27,
    audioMasterOfflineGetCurrentPass = 28,
    audioMasterOfflineGetCurrentMetaPass = 29,
    audioMasterSetOutputSampleRate = 30,
    audioMasterGetOutputSpeakerArrangement = 31,
    audioMasterGetVendorString = 32,  // ptr: room for kVstMaxVendorStrLen
    audioMasterGetProductString = 33, // ptr: room for kVstMaxProductStrLen
    audioMasterGetVendorVersion = 34,
    audioMasterVendorSpecific = 35,
    audioMasterSetIcon = 36,
    audioMasterCanDo = 37,       // ptr: the text
    audioMasterGetLanguage = 38, // VstHostLanguage
    audioMasterOpenWindow = 39,
    audioMasterCloseWindow = 40,
    audioMasterGetDirectory = 41, // a text of the host
    audioMasterUpdateDisplay = 42,
    audioMasterBeginEdit = 43, // index
    audioMasterEndEdit = 44,   // index
    audioMasterOpenFileSelector = 45,
    audioMasterCloseFileSelector = 46,
    audioMasterEditFile = 47,
    audioMasterGetChunkFile = 48,
    audioMasterGetInputSpeakerArrangement = 49
};

/// The answers to effCanDo. A few questions of single hosts have answers of their own.
enum VstCanDo : VstInt32 { kVstCannotDo = -1, kVstDontKnow = 0, kVstCanDo = 1 };

/// The texts that effCanDo brings.
namespace PlugCanDos {
inline constexpr char canDoSendVstEvents[] = "sendVstEvents";
inline constexpr char canDoSendVstMidiEvent[] = "sendVstMidiEvent";
inline constexpr char canDoReceiveVstEvents[] = "receiveVstEvents";
inline constexpr char canDoReceiveVstMidiEvent[] = "receiveVstMidiEvent";
inline constexpr char canDoReceiveVstTimeInfo[] = "receiveVstTimeInfo";
inline constexpr char canDoOffline[] = "offline";
inline constexpr char canDoMidiProgramNames[] = "midiProgramNames";
inline constexpr char canDoBypass[] = "bypass";
} // namespace PlugCanDos

/// The texts that a host understands in audioMasterCanDo.
namespace HostCanDos {
inline constexpr char canDoSendVstEvents[] = "sendVstEvents";
inline constexpr char canDoSendVstMidiEvent[] = "sendVstMidiEvent";
inline constexpr char canDoSendVstTimeInfo[] = "sendVstTimeInfo";
inline constexpr char canDoReceiveVstEvents[] = "receiveVstEvents";
inline constexpr char canDoReceiveVstMidiEvent[] = "receiveVstMidiEvent";
inline constexpr char canDoReportConnectionChanges[] = "reportConnectionChanges";
inline constexpr char canDoAcceptIOChanges[] = "acceptIOChanges";
inline constexpr char canDoSizeWindow[] = "sizeWindow";
inline constexpr char canDoOffline[] = "offline";
inline constexpr char canDoOpenFileSelector[] = "openFileSelector";
inline constexpr char canDoCloseFileSelector[] = "closeFileSelector";
inline constexpr char canDoStartStopProcess[] = "startStopProcess";
inline constexpr char canDoShellCategory[] = "shellCategory";
inline constexpr char canDoSendVstMidiEventFlagIsRealtime[] = "sendVstMidiEventFlagIsRealtime";
} // namespace HostCanDos

/// The editor's size and, in effect, place: pixels, y down.
struct ERect {
    VstInt16 top;
    VstInt16 left;
    VstInt16 bottom;
    VstInt16 right;
};

/// The head of every event: what follows depends on `type`, and is `byteSize` long in all.
struct VstEvent {
    VstInt32 type; // VstEventTypes
    VstInt32 byteSize;
    VstInt32 deltaFrames; // from the start of the block
    VstInt32 flags;
    char data[16];
};

/// Events of a block. The array has room for `numEvents`; two is how it is declared.
struct VstEvents {
    VstInt32 numEvents;
    VstIntPtr reserved;
    VstEvent* events[2];
};

enum VstEventTypes : VstInt32 {
    kVstMidiType = 1,
    kVstAudioType = 2,
    kVstVideoType = 3,
    kVstParameterType = 4,
    kVstTriggerType = 5,
    kVstSysExType = 6
};

/// A MIDI message of up to three bytes.
struct VstMidiEvent {
    VstInt32 type; // kVstMidiType
    VstInt32 byteSize;
    VstInt32 deltaFrames;
    VstInt32 flags; // VstMidiEventFlags
    VstInt32 noteLength;
    VstInt32 noteOffset;
    char midiData[4];
    char detune; // cents, -64 to 63
    char noteOffVelocity;
    char reserved1;
    char reserved2;
};

enum VstMidiEventFlags : VstInt32 { kVstMidiEventIsRealtime = 1 << 0 };

struct VstMidiSysexEvent {
    VstInt32 type; // kVstSysExType
    VstInt32 byteSize;
    VstInt32 deltaFrames;
    VstInt32 flags;
    VstInt32 dumpBytes;
    VstIntPtr resvd1;
    char* sysexDump;
    VstIntPtr resvd2;
};

/// Where the host's transport stands.
struct VstTimeInfo {
    double samplePos;
    double sampleRate;
    double nanoSeconds;
    double ppqPos;
    double tempo; // beats per minute
    double barStartPos;
    double cycleStartPos;
    double cycleEndPos;
    VstInt32 timeSigNumerator;
    VstInt32 timeSigDenominator;
    VstInt32 smpteOffset;
    VstInt32 smpteFrameRate; // VstSmpteFrameRate
    VstInt32 samplesToNextClock;
    VstInt32 flags; // VstTimeInfoFlags
};

enum VstTimeInfoFlags : VstInt32 {
    kVstTransportChanged = 1 << 0,
    kVstTransportPlaying = 1 << 1,
    kVstTransportCycleActive = 1 << 2,
    kVstTransportRecording = 1 << 3,
    kVstAutomationWriting = 1 << 6,
    kVstAutomationReading = 1 << 7,
    kVstNanosValid = 1 << 8,
    kVstPpqPosValid = 1 << 9,
    kVstTempoValid = 1 << 10,
    kVstBarsValid = 1 << 11,
    kVstCyclePosValid = 1 << 12,
    kVstTimeSigValid = 1 << 13,
    kVstSmpteValid = 1 << 14,
    kVstClockValid = 1 << 15
};

enum VstSmpteFrameRate : VstInt32 {
    kVstSmpte24fps = 0,
    kVstSmpte25fps = 1,
    kVstSmpte2997fps = 2,
    kVstSmpte30fps = 3,
    kVstSmpte2997dfps = 4,
    kVstSmpte30dfps = 5,
    kVstSmpteFilm16mm = 6,
    kVstSmpteFilm35mm = 7,
    kVstSmpte239fps = 10,
    kVstSmpte249fps = 11,
    kVstSmpte599fps = 12,
    kVstSmpte60fps = 13
};

/// Input and output of different lengths, for offline work.
struct VstVariableIo {
    float** inputs;
    float** outputs;
    VstInt32 numSamplesInput;
    VstInt32 numSamplesOutput;
    VstInt32* numSamplesInputProcessed;
    VstInt32* numSamplesOutputProcessed;
};

/// Offline work on files: only handed on, never looked into.
struct VstAudioFile;
struct VstOfflineTask;

struct VstParameterProperties {
    float stepFloat;
    float smallStepFloat;
    float largeStepFloat;
    char label[kVstMaxLabelLen];
    VstInt32 flags; // VstParameterFlags
    VstInt32 minInteger;
    VstInt32 maxInteger;
    VstInt32 stepInteger;
    VstInt32 largeStepInteger;
    char shortLabel[kVstMaxShortLabelLen];
    VstInt16 displayIndex;
    VstInt16 category; // from 1; 0 is none
    VstInt16 numParametersInCategory;
    VstInt16 reserved;
    char categoryLabel[kVstMaxCategLabelLen];
    char future[16];
};

enum VstParameterFlags : VstInt32 {
    kVstParameterIsSwitch = 1 << 0,
    kVstParameterUsesIntegerMinMax = 1 << 1,
    kVstParameterUsesFloatStep = 1 << 2,
    kVstParameterUsesIntStep = 1 << 3,
    kVstParameterSupportsDisplayIndex = 1 << 4,
    kVstParameterSupportsDisplayCategory = 1 << 5,
    kVstParameterCanRamp = 1 << 6
};

/// An input or output of a plug-in.
struct VstPinProperties {
    char label[kVstMaxLabelLen];
    VstInt32 flags;           // VstPinPropertiesFlags
    VstInt32 arrangementType; // VstSpeakerArrangementType
    char shortLabel[kVstMaxShortLabelLen];
    char future[48];
};

enum VstPinPropertiesFlags : VstInt32 {
    kVstPinIsActive = 1 << 0,
    kVstPinIsStereo = 1 << 1,
    kVstPinUseSpeaker = 1 << 2 // `arrangementType` is set
};

enum VstPlugCategory : VstInt32 {
    kPlugCategUnknown = 0,
    kPlugCategEffect = 1,
    kPlugCategSynth = 2,
    kPlugCategAnalysis = 3,
    kPlugCategMastering = 4,
    kPlugCategSpacializer = 5,
    kPlugCategRoomFx = 6,
    kPlugSurroundFx = 7,
    kPlugCategRestoration = 8,
    kPlugCategOfflineProcess = 9,
    kPlugCategShell = 10,
    kPlugCategGenerator = 11,
    kPlugCategMaxCount = 12
};

struct MidiProgramName {
    VstInt32 thisProgramIndex;
    char name[kVstMaxNameLen];
    char midiProgram; // -1: none
    char midiBankMsb;
    char midiBankLsb;
    char reserved;
    VstInt32 parentCategoryIndex; // -1: none
    VstInt32 flags;               // kMidiIsOmni
};

enum VstMidiProgramNameFlags : VstInt32 { kMidiIsOmni = 1 };

struct MidiProgramCategory {
    VstInt32 thisCategoryIndex;
    char name[kVstMaxNameLen];
    VstInt32 parentCategoryIndex; // -1: none
    VstInt32 flags;
};

struct MidiKeyName {
    VstInt32 thisProgramIndex;
    VstInt32 thisKeyNumber; // 0 to 127
    char keyName[kVstMaxNameLen];
    VstInt32 reserved;
    VstInt32 flags;
};

/// A loudspeaker: radians and metres.
struct VstSpeakerProperties {
    float azimuth;
    float elevation;
    float radius;
    float reserved;
    char name[kVstMaxNameLen];
    VstInt32 type; // VstSpeakerType
    char future[28];
};

/// The channels of one side. The array has room for `numChannels`; eight is how it is declared.
struct VstSpeakerArrangement {
    VstInt32 type; // VstSpeakerArrangementType
    VstInt32 numChannels;
    VstSpeakerProperties speakers[8];
};

enum VstSpeakerType : VstInt32 {
    kSpeakerUndefined = 0x7fffffff,
    kSpeakerM = 0,
    kSpeakerL = 1,
    kSpeakerR = 2,
    kSpeakerC = 3,
    kSpeakerLfe = 4,
    kSpeakerLs = 5,
    kSpeakerRs = 6,
    kSpeakerLc = 7,
    kSpeakerRc = 8,
    kSpeakerS = 9,
    kSpeakerCs = kSpeakerS,
    kSpeakerSl = 10,
    kSpeakerSr = 11,
    kSpeakerTm = 12,
    kSpeakerTfl = 13,
    kSpeakerTfc = 14,
    kSpeakerTfr = 15,
    kSpeakerTrl = 16,
    kSpeakerTrc = 17,
    kSpeakerTrr = 18,
    kSpeakerLfe2 = 19,
    kSpeakerU32 = -32, // U32 to U1 are the user's
    kSpeakerU1 = -1
};

enum VstSpeakerArrangementType : VstInt32 {
    kSpeakerArrUserDefined = -2,
    kSpeakerArrEmpty = -1,
    kSpeakerArrMono = 0,
    kSpeakerArrStereo = 1,
    kSpeakerArrStereoSurround = 2,
    kSpeakerArrStereoCenter = 3,
    kSpeakerArrStereoSide = 4,
    kSpeakerArrStereoCLfe = 5,
    kSpeakerArr30Cine = 6,
    kSpeakerArr30Music = 7,
    kSpeakerArr31Cine = 8,
    kSpeakerArr31Music = 9,
    kSpeakerArr40Cine = 10,
    kSpeakerArr40Music = 11,
    kSpeakerArr41Cine = 12,
    kSpeakerArr41Music = 13,
    kSpeakerArr50 = 14,
    kSpeakerArr51 = 15,
    kSpeakerArr60Cine = 16,
    kSpeakerArr60Music = 17,
    kSpeakerArr61Cine = 18,
    kSpeakerArr61Music = 19,
    kSpeakerArr70Cine = 20,
    kSpeakerArr70Music = 21,
    kSpeakerArr71Cine = 22,
    kSpeakerArr71Music = 23,
    kSpeakerArr80Cine = 24,
    kSpeakerArr80Music = 25,
    kSpeakerArr81Cine = 26,
    kSpeakerArr81Music = 27,
    kSpeakerArr102 = 28,
    kNumSpeakerArr = 29
};

/// What is about to be loaded, so that a plug-in may refuse it.
struct VstPatchChunkInfo {
    VstInt32 version;
    VstInt32 pluginUniqueID;
    VstInt32 pluginVersion;
    VstInt32 numElements;
    char future[48];
};

/// A key: either a character or a virtual key.
struct VstKeyCode {
    VstInt32 character;
    unsigned char virt;     // VstVirtualKey
    unsigned char modifier; // VstModifierKey
};

enum VstVirtualKey : VstInt32 {
    VKEY_BACK = 1,
    VKEY_TAB = 2,
    VKEY_CLEAR = 3,
    VKEY_RETURN = 4,
    VKEY_PAUSE = 5,
    VKEY_ESCAPE = 6,
    VKEY_SPACE = 7,
    VKEY_NEXT = 8,
    VKEY_END = 9,
    VKEY_HOME = 10,
    VKEY_LEFT = 11,
    VKEY_UP = 12,
    VKEY_RIGHT = 13,
    VKEY_DOWN = 14,
    VKEY_PAGEUP = 15,
    VKEY_PAGEDOWN = 16,
    VKEY_SELECT = 17,
    VKEY_PRINT = 18,
    VKEY_ENTER = 19,
    VKEY_SNAPSHOT = 20,
    VKEY_INSERT = 21,
    VKEY_DELETE = 22,
    VKEY_HELP = 23,
    VKEY_NUMPAD0 = 24, // to VKEY_NUMPAD9
    VKEY_NUMPAD9 = 33,
    VKEY_MULTIPLY = 34,
    VKEY_ADD = 35,
    VKEY_SEPARATOR = 36,
    VKEY_SUBTRACT = 37,
    VKEY_DECIMAL = 38,
    VKEY_DIVIDE = 39,
    VKEY_F1 = 40, // to VKEY_F12
    VKEY_F12 = 51,
    VKEY_NUMLOCK = 52,
    VKEY_SCROLL = 53,
    VKEY_SHIFT = 54,
    VKEY_CONTROL = 55,
    VKEY_ALT = 56,
    VKEY_EQUALS = 57
};

enum VstModifierKey : VstInt32 {
    MODIFIER_SHIFT = 1 << 0,
    MODIFIER_ALTERNATE = 1 << 1,
    MODIFIER_COMMAND = 1 << 2,
    MODIFIER_CONTROL = 1 << 3
};

enum VstKnobMode : VstInt32 { kCircularMode = 0, kRelativCircularMode = 1, kLinearMode = 2 };

enum VstPanLawType : VstInt32 { kLinearPanLaw = 0, kEqualPowerPanLaw = 1 };

enum VstProcessPrecision : VstInt32 { kVstProcessPrecision32 = 0, kVstProcessPrecision64 = 1 };

enum VstProcessLevels : VstInt32 {
    kVstProcessLevelUnknown = 0,
    kVstProcessLevelUser = 1,
    kVstProcessLevelRealtime = 2,
    kVstProcessLevelPrefetch = 3,
    kVstProcessLevelOffline = 4
};

enum VstAutomationStates : VstInt32 {
    kVstAutomationUnsupported = 0,
    kVstAutomationOff = 1,
    kVstAutomationRead = 2,
    kVstAutomationWrite = 3,
    kVstAutomationReadWrite = 4
};

enum VstHostLanguage : VstInt32 {
    kVstLangEnglish = 1,
    kVstLangGerman = 2,
    kVstLangFrench = 3,
    kVstLangItalian = 4,
    kVstLangSpanish = 5,
    kVstLangJapanese = 6
};

// The layouts of this platform. The rest follows from the order of the fields.
static_assert(sizeof(void*) == 8, "the layouts below are those of 64 bit");
static_assert(sizeof(AEffect) == 192);
static_assert(offsetof(AEffect, dispatcher) == 8);
static_assert(offsetof(AEffect, getParameter) == 32);
static_assert(offsetof(AEffect, numPrograms) == 40);
static_assert(offsetof(AEffect, flags) == 56);
static_assert(offsetof(AEffect, resvd1) == 64);
static_assert(offsetof(AEffect, initialDelay) == 80);
static_assert(offsetof(AEffect, ioRatio) == 92);
static_assert(offsetof(AEffect, object) == 96);
static_assert(offsetof(AEffect, uniqueID) == 112);
static_assert(offsetof(AEffect, processReplacing) == 120);
static_assert(offsetof(AEffect, processDoubleReplacing) == 128);
static_assert(offsetof(AEffect, future) == 136);
static_assert(sizeof(ERect) == 8);
static_assert(sizeof(VstEvent) == 32);
static_assert(offsetof(VstEvent, data) == 16);
static_assert(sizeof(VstEvents) == 32);
static_assert(offsetof(VstEvents, events) == 16);
static_assert(sizeof(VstMidiEvent) == 32);
static_assert(offsetof(VstMidiEvent, midiData) == 24);
static_assert(offsetof(VstMidiEvent, detune) == 28);
static_assert(sizeof(VstMidiSysexEvent) == 48);
static_assert(offsetof(VstMidiSysexEvent, sysexDump) == 32);
static_assert(sizeof(VstTimeInfo) == 88);
static_assert(offsetof(VstTimeInfo, tempo) == 32);
static_assert(offsetof(VstTimeInfo, timeSigNumerator) == 64);
static_assert(offsetof(VstTimeInfo, flags) == 84);
static_assert(sizeof(VstVariableIo) == 40);
static_assert(sizeof(VstParameterProperties) == 152);
static_assert(offsetof(VstParameterProperties, flags) == 76);
static_assert(offsetof(VstParameterProperties, displayIndex) == 104);
static_assert(offsetof(VstParameterProperties, categoryLabel) == 112);
static_assert(sizeof(VstPinProperties) == 128);
static_assert(offsetof(VstPinProperties, flags) == 64);
static_assert(offsetof(VstPinProperties, shortLabel) == 72);
static_assert(sizeof(VstSpeakerProperties) == 112);
static_assert(offsetof(VstSpeakerProperties, type) == 80);
static_assert(sizeof(VstSpeakerArrangement) == 904);
static_assert(offsetof(VstSpeakerArrangement, speakers) == 8);
static_assert(sizeof(MidiProgramName) == 80);
static_assert(sizeof(MidiProgramCategory) == 76);
static_assert(sizeof(MidiKeyName) == 80);
static_assert(sizeof(VstPatchChunkInfo) == 64);
static_assert(sizeof(VstKeyCode) == 8);

} // namespace VorinExt::VSTPlugin
