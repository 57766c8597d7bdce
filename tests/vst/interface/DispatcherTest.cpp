#include "vst/interface/RecordingEffect.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <vector>

namespace VorinExt::VSTPlugin::Testing {
namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr VstIntPtr beyondInt = VstIntPtr{1} << 40;

class DispatcherTest : public testing::Test {
protected:
    DispatcherTest() : effect(new CRecordingEffect(nullptr, log)), record(effect->getAeffect()) {}
    ~DispatcherTest() override {
        if (effect) {
            Call(effClose);
        }
    }

    VstIntPtr Call(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                   float opt = 0.0F) {
        return record->dispatcher(record, opcode, index, value, ptr, opt);
    }

    static VstIntPtr Value(void* pointer) { return reinterpret_cast<VstIntPtr>(pointer); }

    CCallLog log;
    CRecordingEffect* effect;
    AEffect* record;
};

/// An opcode with arguments, and what comes of it.
struct CExpected {
    VstInt32 opcode;
    VstInt32 index;
    VstIntPtr value;
    void* ptr;
    float opt;
    const char* log;
    VstIntPtr result;
};

TEST_F(DispatcherTest, EachPlainOpcodeReachesItsOperation) {
    void* const here = Address(0x1230);
    const std::vector<CExpected> table{
        {effOpen, 0, 0, nullptr, 0, "open();", 0},
        {effSetProgram, 0, 1, nullptr, 0, "setProgram(1);", 0},
        {effGetProgram, 0, 0, nullptr, 0, "getProgram();", 1},
        {effGetVu, 0, 0, nullptr, 0, "", 16383},
        {effSetSampleRate, 0, 0, nullptr, 48000.0F, "setSampleRate(48000);", 0},
        {effSetBlockSize, 0, 512, nullptr, 0, "setBlockSize(512);", 0},
        {effMainsChanged, 0, 1, nullptr, 0, "resume();", 0},
        {effMainsChanged, 0, 0, nullptr, 0, "suspend();", 0},
        {effIdentify, 0, 0, nullptr, 0, "", 0x4e764566},
        {effSetChunk, 1, 99, here, 0, "setChunk(0x1230 99 1);", 24},
        {effSetChunk, 0, 0, here, 0, "setChunk(0x1230 0 0);", 24},
        {effCanBeAutomated, 2, 0, nullptr, 0, "canParameterBeAutomated(2);", 1},
        {effString2Parameter, 2, 0, nullptr, 0, "string2parameter(2 null);", 1},
        {effGetNumProgramCategories, 0, 0, nullptr, 0, "getNumCategories();", 28},
        {effCopyProgram, 1, 0, nullptr, 0, "copyProgram(1);", 1},
        {effConnectInput, 1, 1, nullptr, 0, "inputConnected(1 1);", 0},
        {effConnectOutput, 0, 0, nullptr, 0, "outputConnected(0 0);", 0},
        {effGetPlugCategory, 0, 0, nullptr, 0, "getPlugCategory();", 3},
        {effGetCurrentPosition, 0, 0, nullptr, 0, "reportCurrentPosition();", 36},
        {effGetDestinationBuffer, 0, 0, nullptr, 0, "reportDestinationBuffer();", 0x370},
        {effOfflineNotify, 1, 3, here, 0, "offlineNotify(0x1230 3 1);", 1},
        {effOfflinePrepare, 0, 3, here, 0, "offlinePrepare(0x1230 3);", 1},
        {effOfflineRun, 0, 3, here, 0, "offlineRun(0x1230 3);", 1},
        {effSetBlockSizeAndSampleRate, 0, 64, nullptr, 96000.0F,
         "setBlockSizeAndSampleRate(64 96000);", 0},
        {effSetBypass, 0, 1, nullptr, 0, "setBypass(1);", 1},
        {effSetBypass, 0, 0, nullptr, 0, "setBypass(0);", 1},
        {effGetVendorVersion, 0, 0, nullptr, 0, "getVendorVersion();", 49},
        {effVendorSpecific, 7, beyondInt, here, 0.5F, "vendorSpecific(7 1099511627776 0x1230 0.5);",
         50},
        {effGetTailSize, 0, 0, nullptr, 0, "getGetTailSize();", 52},
        {effIdle, 0, 0, nullptr, 0, "fxIdle();", 53},
        {effGetIcon, 0, 0, nullptr, 0, "getIcon();", 0x540},
        {effSetViewPosition, -5, 6, nullptr, 0, "setViewPosition(-5 6);", 1},
        {effKeysRequired, 0, 0, nullptr, 0, "keysRequired();", 0},
        {effGetVstVersion, 0, 0, nullptr, 0, "getVstVersion();", 2400},
        {effHasMidiProgramsChanged, 15, 0, nullptr, 0, "hasMidiProgramsChanged(15);", 1},
        {effBeginSetProgram, 0, 0, nullptr, 0, "beginSetProgram();", 1},
        {effEndSetProgram, 0, 0, nullptr, 0, "endSetProgram();", 1},
        {effStartProcess, 0, 0, nullptr, 0, "startProcess();", 71},
        {effStopProcess, 0, 0, nullptr, 0, "stopProcess();", 72},
        {effSetTotalSampleToProcess, 0, 1000, nullptr, 0, "setTotalSampleToProcess(1000);", 73},
        {effSetPanLaw, 0, 1, nullptr, 0.5F, "setPanLaw(1 0.5);", 1},
        {effSetProcessPrecision, 0, 1, nullptr, 0, "setProcessPrecision(1);", 1},
        {effGetNumMidiInputChannels, 0, 0, nullptr, 0, "getNumMidiInputChannels();", 78},
        {effGetNumMidiOutputChannels, 0, 0, nullptr, 0, "getNumMidiOutputChannels();", 79},
    };
    for (const CExpected& row : table) {
        EXPECT_EQ(Call(row.opcode, row.index, row.value, row.ptr, row.opt), row.result)
            << "opcode " << row.opcode;
        EXPECT_EQ(log.Take(), row.log) << "opcode " << row.opcode;
    }
}

TEST_F(DispatcherTest, EachOpcodeWithARecordBringsIt) {
    VstParameterProperties parameter{};
    parameter.minInteger = 5;
    EXPECT_EQ(Call(effGetParameterProperties, 2, 0, &parameter), 1);
    EXPECT_EQ(log.Take(), "getParameterProperties(2 5);");
    VstPinProperties pin{};
    EXPECT_EQ(Call(effGetInputProperties, 1, 0, &pin), 1);
    EXPECT_EQ(Call(effGetOutputProperties, 0, 0, &pin), 1);
    EXPECT_EQ(log.Take(), "getInputProperties(1);getOutputProperties(0);");
    VstVariableIo variable{};
    variable.numSamplesInput = 9;
    EXPECT_EQ(Call(effProcessVarIo, 0, 0, &variable), 1);
    EXPECT_EQ(log.Take(), "processVariableIo(9);");
    VstEvents events{};
    events.numEvents = 2;
    EXPECT_EQ(Call(effProcessEvents, 0, 0, &events), 25);
    EXPECT_EQ(log.Take(), "processEvents(2);");
    VstPatchChunkInfo info{};
    info.numElements = 4;
    EXPECT_EQ(Call(effBeginLoadBank, 0, 0, &info), -1);
    EXPECT_EQ(Call(effBeginLoadProgram, 0, 0, &info), 1);
    EXPECT_EQ(log.Take(), "beginLoadBank(4);beginLoadProgram(4);");
}

TEST_F(DispatcherTest, EachMidiNameBringsItsChannel) {
    MidiProgramName program{};
    program.thisProgramIndex = 6;
    EXPECT_EQ(Call(effGetMidiProgramName, 0, 0, &program), 62);
    EXPECT_EQ(Call(effGetCurrentMidiProgram, 15, 0, &program), 63);
    MidiProgramCategory category{};
    category.thisCategoryIndex = 7;
    EXPECT_EQ(Call(effGetMidiProgramCategory, 1, 0, &category), 64);
    MidiKeyName key{};
    key.thisKeyNumber = 60;
    EXPECT_EQ(Call(effGetMidiKeyName, 2, 0, &key), 1);
    EXPECT_EQ(log.Take(), "getMidiProgramName(0 6);getCurrentMidiProgram(15 6);"
                          "getMidiProgramCategory(1 7);getMidiKeyName(2 60);");
    EXPECT_EQ(Call(effGetMidiProgramName, 16, 0, &program), 0);
    EXPECT_EQ(Call(effHasMidiProgramsChanged, -1), 0);
    EXPECT_EQ(Call(effGetMidiKeyName, 16, 0, &key), 0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(DispatcherTest, ArrangementsTravelAsAValueAndAPointer) {
    VstSpeakerArrangement in{};
    VstSpeakerArrangement out{};
    in.type = kSpeakerArrStereo;
    out.type = kSpeakerArrMono;
    EXPECT_EQ(Call(effSetSpeakerArrangement, 0, Value(&in), &out), 1);
    VstSpeakerArrangement* inPointer = &in;
    VstSpeakerArrangement* outPointer = &out;
    EXPECT_EQ(Call(effGetSpeakerArrangement, 0, Value(&inPointer), &outPointer), 1);
    EXPECT_EQ(log.Take(), "setSpeakerArrangement(1 0);getSpeakerArrangement(1 0);");
    EXPECT_EQ(Call(effSetSpeakerArrangement, 0, 0, &out), 0);
    EXPECT_EQ(Call(effSetSpeakerArrangement, 0, Value(&in), nullptr), 0);
    EXPECT_EQ(Call(effGetSpeakerArrangement, 0, 0, &outPointer), 0);
    EXPECT_EQ(Call(effGetSpeakerArrangement, 0, Value(&inPointer), nullptr), 0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(DispatcherTest, TheChunkIsGivenByAddress) {
    void* data = nullptr;
    EXPECT_EQ(Call(effGetChunk, 1, 0, static_cast<void*>(&data)), 23);
    EXPECT_EQ(data, effect);
    EXPECT_EQ(Call(effGetChunk, 0, 0, static_cast<void*>(&data)), 23);
    EXPECT_EQ(log.Take(), "getChunk(1);getChunk(0);");
}

TEST_F(DispatcherTest, TextsFromTheHostArriveAsTheyAre) {
    char name[] = "Lead";
    Call(effSetProgramName, 0, 0, name);
    EXPECT_EQ(Call(effString2Parameter, 1, 0, name), 1);
    EXPECT_EQ(Call(effCanDo, 0, 0, name), -1);
    EXPECT_EQ(log.Take(), "setProgramName(Lead);string2parameter(1 Lead);canDo(Lead);");
}

struct CTextOpcode {
    VstInt32 opcode;
    std::size_t size; // the array of the host, in bytes
    const char* log;
    VstIntPtr result;
};

const std::vector<CTextOpcode> textOpcodes{
    {effGetProgramName, 24, "getProgramName();", 0},
    {effGetParamLabel, 24, "getParameterLabel(1);", 0},
    {effGetParamDisplay, 24, "getParameterDisplay(1);", 0},
    {effGetParamName, 24, "getParameterName(1);", 0},
    {effGetProgramNameIndexed, 24, "getProgramNameIndexed(-1 1);", 1},
    {effGetEffectName, 32, "getEffectName();", 1},
    {effGetErrorText, 256, "getErrorText();", 1},
    {effGetVendorString, 64, "getVendorString();", 1},
    {effGetProductString, 64, "getProductString();", 1},
    {effShellGetNextPlugin, 64, "getNextShellPlugin();", 70},
};

TEST_F(DispatcherTest, NoTextLeavesTheArrayOfTheHost) {
    for (const CTextOpcode& row : textOpcodes) {
        std::vector<char> memory(600, '#');
        EXPECT_EQ(Call(row.opcode, 1, -1, memory.data()), row.result) << "opcode " << row.opcode;
        EXPECT_EQ(log.Take(), row.log) << "opcode " << row.opcode;
        EXPECT_EQ(std::strlen(memory.data()), row.size - 1) << "opcode " << row.opcode;
        EXPECT_EQ(memory[row.size], '#') << "opcode " << row.opcode;
    }
}

TEST_F(DispatcherTest, TextsWithoutAnArrayAreNotAskedFor) {
    for (const CTextOpcode& row : textOpcodes) {
        EXPECT_EQ(Call(row.opcode, 1, -1, nullptr), 0) << "opcode " << row.opcode;
        EXPECT_EQ(log.Take(), "") << "opcode " << row.opcode;
    }
}

TEST_F(DispatcherTest, ParameterTextsAreAskedForAnyIndex) {
    std::array<char, 24> memory{};
    Call(effGetParamName, 3, 0, memory.data());
    Call(effGetParamLabel, -1, 0, memory.data());
    EXPECT_EQ(log.Take(), "getParameterName(3);getParameterLabel(-1);");
}

TEST_F(DispatcherTest, NullPointersAreAnsweredWith0) {
    for (const VstInt32 opcode : {effSetProgramName,
                                  effGetChunk,
                                  effSetChunk,
                                  effProcessEvents,
                                  effGetInputProperties,
                                  effGetOutputProperties,
                                  effOfflineNotify,
                                  effOfflinePrepare,
                                  effOfflineRun,
                                  effProcessVarIo,
                                  effSetSpeakerArrangement,
                                  effCanDo,
                                  effGetParameterProperties,
                                  effGetMidiProgramName,
                                  effGetCurrentMidiProgram,
                                  effGetMidiProgramCategory,
                                  effGetMidiKeyName,
                                  effGetSpeakerArrangement,
                                  effBeginLoadBank,
                                  effBeginLoadProgram}) {
        EXPECT_EQ(Call(opcode), 0) << "opcode " << opcode;
        EXPECT_EQ(log.Take(), "") << "opcode " << opcode;
    }
}

TEST_F(DispatcherTest, IndicesOutOfRangeAreAnsweredWith0) {
    VstPinProperties pin{};
    VstParameterProperties parameter{};
    std::array<char, 24> memory{};
    EXPECT_EQ(Call(effGetInputProperties, 2, 0, &pin), 0);
    EXPECT_EQ(Call(effGetInputProperties, -1, 0, &pin), 0);
    EXPECT_EQ(Call(effGetOutputProperties, 1, 0, &pin), 0);
    EXPECT_EQ(Call(effConnectInput, 2, 1), 0);
    EXPECT_EQ(Call(effConnectOutput, -1, 1), 0);
    EXPECT_EQ(Call(effGetParameterProperties, 3, 0, &parameter), 0);
    EXPECT_EQ(Call(effCanBeAutomated, 3), 0);
    EXPECT_EQ(Call(effString2Parameter, -1), 0);
    EXPECT_EQ(Call(effCopyProgram, 2), 0);
    EXPECT_EQ(Call(effGetProgramNameIndexed, 2, -1, memory.data()), 0);
    EXPECT_EQ(Call(effSetProgram, 0, 2), 0);
    EXPECT_EQ(Call(effSetProgram, 0, -1), 0);
    EXPECT_EQ(Call(effSetProgram, 0, beyondInt), 0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(DispatcherTest, CountsAndRatesThatAreNoneAreDropped) {
    for (const float hz : {0.0F, -1.0F, notANumber, infinity, -infinity}) {
        Call(effSetSampleRate, 0, 0, nullptr, hz);
        Call(effSetBlockSizeAndSampleRate, 0, 64, nullptr, hz);
    }
    for (const VstIntPtr frames : {VstIntPtr{0}, VstIntPtr{-1}, beyondInt}) {
        Call(effSetBlockSize, 0, frames);
        Call(effSetBlockSizeAndSampleRate, 0, frames, nullptr, 48000.0F);
    }
    EXPECT_EQ(Call(effSetChunk, 0, -1, Address(0x10)), 0);
    EXPECT_EQ(Call(effSetChunk, 0, beyondInt, Address(0x10)), 0);
    EXPECT_EQ(Call(effOfflineRun, 0, -1, Address(0x10)), 0);
    EXPECT_EQ(Call(effSetTotalSampleToProcess, 0, -1), 0);
    EXPECT_EQ(Call(effSetPanLaw, 0, 1, nullptr, notANumber), 0);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(DispatcherTest, UnknownOpcodesAreAnsweredWith0) {
    effect->setEditor(new CRecordingEditor(log));
    for (const VstInt32 opcode : {-1, 80, 1000, std::numeric_limits<VstInt32>::max(),
                                  std::numeric_limits<VstInt32>::min()}) {
        EXPECT_EQ(Call(opcode, 1, 1, Address(0x10), 1.0F), 0);
    }
    EXPECT_EQ(log.Take(), "");
}

TEST_F(DispatcherTest, WithoutAnEditorItsOpcodesAreAnsweredWith0) {
    EXPECT_EQ(record->flags & effFlagsHasEditor, 0);
    ERect* rect = nullptr;
    for (const VstInt32 opcode : {effEditGetRect, effEditOpen, effEditClose, effEditDraw,
                                  effEditMouse, effEditKey, effEditIdle, effEditTop, effEditSleep,
                                  effEditKeyDown, effEditKeyUp, effSetEditKnobMode}) {
        EXPECT_EQ(Call(opcode, 1, 1, static_cast<void*>(&rect)), 0) << "opcode " << opcode;
    }
    EXPECT_EQ(rect, nullptr);
}

TEST_F(DispatcherTest, EachOpcodeOfTheEditorReachesIt) {
    auto* editor = new CRecordingEditor(log);
    effect->setEditor(editor);
    EXPECT_EQ(record->flags & effFlagsHasEditor, effFlagsHasEditor);
    ERect* rect = nullptr;
    EXPECT_EQ(Call(effEditGetRect, 0, 0, static_cast<void*>(&rect)), 1);
    EXPECT_EQ(rect, &editor->size);
    EXPECT_EQ(Call(effEditGetRect), 0); // nowhere to put it
    EXPECT_EQ(log.Take(), "getRect();");
    const std::vector<CExpected> table{
        {effEditOpen, 0, 0, Address(0x1230), 0, "open(0x1230);", 1},
        {effEditOpen, 0, 0, nullptr, 0, "open(0);", 1},
        {effEditClose, 0, 0, nullptr, 0, "close();", 0},
        {effEditDraw, 0, 0, &editor->size, 0, "draw(400);", 0},
        {effEditDraw, 0, 0, nullptr, 0, "", 0},
        {effEditMouse, 10, 20, nullptr, 0, "mouse(10 20);", 5},
        {effEditKey, 0, 65, nullptr, 0, "key(65);", 6},
        {effEditIdle, 0, 0, nullptr, 0, "idle();", 0},
        {effEditTop, 0, 0, nullptr, 0, "top();", 0},
        {effEditSleep, 0, 0, nullptr, 0, "sleep();", 0},
        {effEditKeyDown, 'a', VKEY_BACK, nullptr, 9.0F, "onKeyDown(97 1 9);", 1},
        {effEditKeyUp, 0, VKEY_F12, nullptr, 0, "onKeyUp(0 51 0);", 1},
        {effEditKeyDown, 0, 0, nullptr, notANumber, "onKeyDown(0 0 0);", 1},
        {effEditKeyDown, 0, 0, nullptr, 1e9F, "onKeyDown(0 0 0);", 1},
        {effSetEditKnobMode, 0, 2, nullptr, 0, "setKnobMode(2);", 1},
    };
    for (const CExpected& row : table) {
        EXPECT_EQ(Call(row.opcode, row.index, row.value, row.ptr, row.opt), row.result)
            << "opcode " << row.opcode;
        EXPECT_EQ(log.Take(), row.log) << "opcode " << row.opcode;
    }
}

TEST_F(DispatcherTest, TheEffectOwnsItsEditor) {
    effect->setEditor(new CRecordingEditor(log));
    AEffEditor* second = new CRecordingEditor(log);
    effect->setEditor(second);
    EXPECT_EQ(log.Take(), "~editor();");
    effect->setEditor(second);
    EXPECT_EQ(log.Take(), "");
    EXPECT_EQ(effect->getEditor(), second);
    effect->setEditor(nullptr);
    EXPECT_EQ(log.Take(), "~editor();");
    EXPECT_EQ(record->flags & effFlagsHasEditor, 0);
    effect->setEditor(new CRecordingEditor(log));
    Call(effClose);
    effect = nullptr;
    EXPECT_EQ(log.Take(), "close();~effect();~editor();");
}

TEST_F(DispatcherTest, CloseDeletesTheEffect) {
    EXPECT_EQ(Call(effClose), 1);
    effect = nullptr;
    EXPECT_EQ(log.Take(), "close();~effect();");
}

TEST_F(DispatcherTest, ProcessingReachesTheObject) {
    float in = 1.0F;
    float out = 2.0F;
    float* ins[] = {&in};
    float* outs[] = {&out};
    record->process(record, ins, outs, 64);
    record->processReplacing(record, ins, outs, 0);
    double in64 = 3.0;
    double out64 = 4.0;
    double* ins64[] = {&in64};
    double* outs64[] = {&out64};
    record->processDoubleReplacing(record, ins64, outs64, 128);
    EXPECT_EQ(log.Take(), "process(1 2 64);processReplacing(1 2 0);"
                          "processDoubleReplacing(3 4 128);");
    record->process(record, ins, outs, -1);
    record->processReplacing(record, ins, outs, -1);
    record->processDoubleReplacing(record, ins64, outs64, -1);
    EXPECT_EQ(log.Take(), "");
}

TEST_F(DispatcherTest, ParametersReachTheObjectUnlessTheyAreNoNumbers) {
    record->setParameter(record, 2, 0.25F);
    EXPECT_EQ(record->getParameter(record, 7), 0.75F);
    EXPECT_EQ(log.Take(), "setParameter(2 0.25);getParameter(7);");
    for (const float value : {notANumber, infinity, -infinity}) {
        record->setParameter(record, 2, value);
    }
    EXPECT_EQ(log.Take(), "");
}

TEST_F(DispatcherTest, ARecordWithoutAnObjectIsAnsweredWith0) {
    AEffect lost = *record;
    lost.object = nullptr;
    for (AEffect* dead : {&lost, static_cast<AEffect*>(nullptr)}) {
        EXPECT_EQ(record->dispatcher(dead, effGetVstVersion, 0, 0, nullptr, 0.0F), 0);
        EXPECT_EQ(record->dispatcher(dead, effClose, 0, 0, nullptr, 0.0F), 0);
        record->process(dead, nullptr, nullptr, 64);
        record->processReplacing(dead, nullptr, nullptr, 64);
        record->processDoubleReplacing(dead, nullptr, nullptr, 64);
        record->setParameter(dead, 0, 0.5F);
        EXPECT_EQ(record->getParameter(dead, 0), 0.0F);
    }
    EXPECT_EQ(log.Take(), "");
}

TEST(DispatcherExceptionTest, WhatIsThrownDoesNotReachTheHost) {
    class CThrowing : public CRecordingEffect {
    public:
        using CRecordingEffect::CRecordingEffect;
        void open() override { throw std::runtime_error("open"); }
        void close() override { throw std::runtime_error("close"); }
    };
    CCallLog log;
    AEffect* record = (new CThrowing(nullptr, log))->getAeffect();
    EXPECT_EQ(record->dispatcher(record, effOpen, 0, 0, nullptr, 0.0F), 0);
    EXPECT_EQ(record->dispatcher(record, effClose, 0, 0, nullptr, 0.0F), 1);
    EXPECT_EQ(log.Take(), "~effect();");
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
