#include "vst/interface/RecordingEffect.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <vector>

namespace VorinExt::VSTPlugin::Testing {
namespace {

/// A host that writes down what it is asked and gives the answer that the test set.
struct CFakeHost {
    CCallLog log;
    AEffect* effect = nullptr;
    VstIntPtr answer = 0;
    std::string text;
};
CFakeHost* fakeHost = nullptr;

VstIntPtr CallFakeHost(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                       float opt) {
    fakeHost->effect = effect;
    if (opcode == audioMasterGetVendorString || opcode == audioMasterGetProductString) {
        std::strcpy(static_cast<char*>(ptr), fakeHost->text.c_str());
        fakeHost->log.Add("text", opcode);
    } else {
        fakeHost->log.Add("host", opcode, index, value, ptr, opt);
    }
    return fakeHost->answer;
}

/// Overrides what has to be overridden.
class CPlainEffect : public AudioEffectX {
public:
    using AudioEffectX::AudioEffectX;
    void processReplacing(float**, float**, VstInt32) override {}
};

class CMidiEffect : public CPlainEffect {
public:
    using CPlainEffect::CPlainEffect;
    VstInt32 canDo(const char* text) override {
        return std::strcmp(text, "receiveVstMidiEvent") == 0 ? 1 : 0;
    }
};

class AudioEffectTest : public testing::Test {
protected:
    AudioEffectTest() { fakeHost = &host; }
    ~AudioEffectTest() override { fakeHost = nullptr; }

    CFakeHost host;
    CPlainEffect effect{&CallFakeHost, 2, 3};
    AEffect* record = effect.getAeffect();
};

TEST_F(AudioEffectTest, TheRecordIsFilledAndPointsBack) {
    EXPECT_EQ(record->magic, 0x56737450);
    EXPECT_NE(record->dispatcher, nullptr);
    EXPECT_NE(record->process, nullptr);
    EXPECT_NE(record->setParameter, nullptr);
    EXPECT_NE(record->getParameter, nullptr);
    EXPECT_NE(record->processReplacing, nullptr);
    EXPECT_NE(record->processDoubleReplacing, nullptr);
    EXPECT_EQ(record->numPrograms, 2);
    EXPECT_EQ(record->numParams, 3);
    EXPECT_EQ(record->flags, effFlagsCanReplacing);
    EXPECT_EQ(record->ioRatio, 1.0F);
    EXPECT_EQ(record->object, static_cast<AudioEffect*>(&effect));
    EXPECT_EQ(record->user, nullptr);
    EXPECT_EQ(effect.getSampleRate(), 44100.0F);
    EXPECT_EQ(effect.getBlockSize(), 1024);
}

TEST_F(AudioEffectTest, SettersWriteTheRecord) {
    effect.setUniqueID(FourCharacters('k', '7', 'q', 'z'));
    effect.setNumInputs(4);
    effect.setNumOutputs(6);
    effect.setInitialDelay(128);
    EXPECT_EQ(record->uniqueID, 0x6b37717a);
    EXPECT_EQ(record->numInputs, 4);
    EXPECT_EQ(record->numOutputs, 6);
    EXPECT_EQ(record->initialDelay, 128);
    effect.canProcessReplacing(false);
    EXPECT_EQ(record->flags, 0);
    effect.canDoubleReplacing();
    effect.programsAreChunks();
    effect.isSynth();
    effect.noTail();
    EXPECT_EQ(record->flags, 4096 | 32 | 256 | 512);
    effect.programsAreChunks(false);
    effect.isSynth(false);
    EXPECT_EQ(record->flags, 4096 | 512);
}

TEST_F(AudioEffectTest, WithoutOverridesItAnswersTheUsualDefaults) {
    struct CRow {
        VstInt32 opcode;
        VstIntPtr result;
    };
    const std::vector<CRow> table{
        {effGetProgram, 0},
        {effGetVu, 0},
        {effIdentify, 0x4e764566},
        {effGetPlugCategory, 0},
        {effGetVendorVersion, 0},
        {effGetTailSize, 0},
        {effCanBeAutomated, 1},
        {effString2Parameter, 0},
        {effGetVstVersion, 2400},
        {effKeysRequired, 1},
        {effSetBypass, 0},
        {effGetNumProgramCategories, 1},
        {effStartProcess, 0},
        {effStopProcess, 0},
        {effSetPanLaw, 0},
        {effSetProcessPrecision, 0},
        {effBeginSetProgram, 0},
        {effEndSetProgram, 0},
        {effGetIcon, 0},
        {effGetDestinationBuffer, 0},
        {effIdle, 0},
        {effGetCurrentPosition, 0},
        {effSetViewPosition, 0},
        {effHasMidiProgramsChanged, 0},
        {effCopyProgram, 0},
        {effGetNumMidiInputChannels, 0},
        {effVendorSpecific, 0},
        {effGetNumMidiOutputChannels, 0},
    };
    for (const CRow& row : table) {
        EXPECT_EQ(record->dispatcher(record, row.opcode, 0, 0, nullptr, 0.0F), row.result)
            << "opcode " << row.opcode;
    }
    EXPECT_EQ(record->dispatcher(record, effSetTotalSampleToProcess, 0, 77, nullptr, 0.0F), 77);
    effect.isSynth();
    EXPECT_EQ(record->dispatcher(record, effGetPlugCategory, 0, 0, nullptr, 0.0F), kPlugCategSynth);
    EXPECT_EQ(record->getParameter(record, 0), 0.0F);
}

TEST_F(AudioEffectTest, WithoutOverridesRecordsAndTextsAreAnsweredToo) {
    alignas(8) std::array<char, 1024> memory{};
    void* const ptr = memory.data();
    for (VstInt32 opcode = effProcessEvents; opcode <= effGetNumMidiOutputChannels; ++opcode) {
        if (opcode != effSetSpeakerArrangement && opcode != effGetSpeakerArrangement &&
            opcode != effCanBeAutomated && opcode != effGetNumProgramCategories &&
            opcode != effGetVstVersion && opcode != effKeysRequired) {
            const VstIntPtr expected = opcode == effGetCurrentMidiProgram ? -1 : 0;
            EXPECT_EQ(record->dispatcher(record, opcode, 0, 0, ptr, 0.0F), expected)
                << "opcode " << opcode;
        }
    }
    VstSpeakerArrangement arrangement{};
    VstSpeakerArrangement* in = &arrangement;
    VstSpeakerArrangement* out = &arrangement;
    EXPECT_EQ(record->dispatcher(record, effSetSpeakerArrangement, 0,
                                 reinterpret_cast<VstIntPtr>(in), out, 0.0F),
              0);
    EXPECT_EQ(record->dispatcher(record, effGetSpeakerArrangement, 0,
                                 reinterpret_cast<VstIntPtr>(&in), static_cast<void*>(&out), 0.0F),
              0);
    EXPECT_EQ(in, nullptr);
    EXPECT_EQ(out, nullptr);
}

TEST_F(AudioEffectTest, RateBlockAndProgramAreKept) {
    record->dispatcher(record, effSetSampleRate, 0, 0, nullptr, 96000.0F);
    record->dispatcher(record, effSetBlockSize, 0, 64, nullptr, 0.0F);
    EXPECT_EQ(effect.getSampleRate(), 96000.0F);
    EXPECT_EQ(effect.getBlockSize(), 64);
    record->dispatcher(record, effSetBlockSizeAndSampleRate, 0, 128, nullptr, 48000.0F);
    EXPECT_EQ(effect.getSampleRate(), 48000.0F);
    EXPECT_EQ(effect.getBlockSize(), 128);
    record->dispatcher(record, effSetProgram, 0, 1, nullptr, 0.0F);
    EXPECT_EQ(record->dispatcher(record, effGetProgram, 0, 0, nullptr, 0.0F), 1);
}

TEST_F(AudioEffectTest, AnEditorWithoutOverridesShowsNothing) {
    auto* editor = new AEffEditor(&effect);
    effect.setEditor(editor);
    EXPECT_EQ(editor->getEffect(), &effect);
    ERect size{};
    ERect* rect = &size;
    EXPECT_EQ(record->dispatcher(record, effEditGetRect, 0, 0, static_cast<void*>(&rect), 0.0F), 0);
    EXPECT_EQ(rect, nullptr);
    EXPECT_FALSE(editor->isOpen());
    EXPECT_EQ(record->dispatcher(record, effEditOpen, 0, 0, Address(0x10), 0.0F), 0);
    EXPECT_TRUE(editor->isOpen());
    EXPECT_EQ(record->dispatcher(record, effEditKeyDown, 'a', 0, nullptr, 0.0F), 0);
    EXPECT_EQ(record->dispatcher(record, effSetEditKnobMode, 0, 1, nullptr, 0.0F), 0);
    EXPECT_FALSE(editor->onWheel(1.0F));
    EXPECT_EQ(record->dispatcher(record, effEditClose, 0, 0, nullptr, 0.0F), 0);
    EXPECT_FALSE(editor->isOpen());
}

TEST_F(AudioEffectTest, MessagesReachTheHost) {
    VstEvents events{};
    host.answer = 1;
    EXPECT_TRUE(effect.beginEdit(4));
    EXPECT_TRUE(effect.endEdit(4));
    EXPECT_TRUE(effect.updateDisplay());
    EXPECT_TRUE(effect.ioChanged());
    EXPECT_TRUE(effect.sizeWindow(640, 480));
    effect.setParameterAutomated(2, 0.25F);
    effect.masterIdle();
    EXPECT_EQ(host.log.Take(), "host(43 4 0 0 0);host(44 4 0 0 0);host(42 0 0 0 0);"
                               "host(13 0 0 0 0);host(15 640 480 0 0);host(0 2 0 0 0.25);"
                               "host(3 0 0 0 0);");
    EXPECT_EQ(host.effect, record);
    EXPECT_TRUE(effect.sendVstEventsToHost(&events));
    CCallLog expected;
    expected.Add("host", 8, 0, 0, static_cast<void*>(&events), 0);
    EXPECT_EQ(host.log.Take(), expected.Take());
    host.answer = 0;
    EXPECT_FALSE(effect.sizeWindow(640, 480));
    EXPECT_FALSE(effect.sendVstEventsToHost(&events));
}

TEST_F(AudioEffectTest, QuestionsReachTheHost) {
    VstTimeInfo time{};
    host.answer = reinterpret_cast<VstIntPtr>(&time);
    EXPECT_EQ(effect.getTimeInfo(kVstTempoValid), &time);
    host.answer = 7;
    EXPECT_EQ(effect.getCurrentUniqueId(), 7);
    EXPECT_EQ(effect.getInputLatency(), 7);
    EXPECT_EQ(effect.getOutputLatency(), 7);
    EXPECT_EQ(effect.getCurrentProcessLevel(), 7);
    EXPECT_EQ(effect.getAutomationState(), 7);
    EXPECT_EQ(effect.getHostVendorVersion(), 7);
    EXPECT_EQ(effect.getHostLanguage(), 7);
    EXPECT_EQ(effect.hostVendorSpecific(1, 2, nullptr, 0.5F), 7);
    EXPECT_EQ(host.log.Take(),
              "host(7 0 1024 0 0);host(2 0 0 0 0);host(18 0 0 0 0);host(19 0 0 0 0);"
              "host(23 0 0 0 0);host(24 0 0 0 0);host(34 0 0 0 0);host(38 0 0 0 0);"
              "host(35 1 2 0 0.5);");
    const char* question = "sizeWindow";
    host.answer = 1;
    EXPECT_EQ(effect.canHostDo(question), 1);
    CCallLog expected;
    expected.Add("host", 37, 0, 0, static_cast<const void*>(question), 0);
    EXPECT_EQ(host.log.Take(), expected.Take());
    const char* folder = "folder";
    host.answer = reinterpret_cast<VstIntPtr>(folder);
    EXPECT_EQ(effect.getDirectory(), folder);
}

TEST_F(AudioEffectTest, PinsAreConnectedWhenTheHostSays0) {
    EXPECT_TRUE(effect.isInputConnected(1));
    EXPECT_TRUE(effect.isOutputConnected(0));
    EXPECT_EQ(host.log.Take(), "host(4 1 0 0 0);host(4 0 1 0 0);");
    host.answer = 1;
    EXPECT_FALSE(effect.isInputConnected(1));
    EXPECT_FALSE(effect.isOutputConnected(0));
}

TEST_F(AudioEffectTest, AHostWithoutAVersionCountsAs1) {
    EXPECT_EQ(effect.getMasterVersion(), 1);
    host.answer = 2400;
    EXPECT_EQ(effect.getMasterVersion(), 2400);
}

TEST_F(AudioEffectTest, RateAndBlockOfTheHostAreTakenOverWhenTheyAreSome) {
    host.answer = 96000;
    EXPECT_EQ(effect.updateSampleRate(), 96000.0);
    host.answer = 256;
    EXPECT_EQ(effect.updateBlockSize(), 256);
    for (const VstIntPtr none : {VstIntPtr{0}, VstIntPtr{-5}, VstIntPtr{1} << 40}) {
        host.answer = none;
        EXPECT_EQ(effect.updateSampleRate(), 96000.0);
        EXPECT_EQ(effect.updateBlockSize(), 256);
    }
}

TEST_F(AudioEffectTest, TextsOfTheHostAreCutToTheRoomThatIsThere) {
    std::array<char, 8> memory{};
    CHostText text(memory.data(), 8);
    host.answer = 1;
    host.text = "Some host of some maker";
    EXPECT_TRUE(effect.getHostVendorString(text));
    EXPECT_STREQ(memory.data(), "Some ho");
    host.text = std::string(200, 'y'); // more than it may
    EXPECT_TRUE(effect.getHostProductString(text));
    EXPECT_STREQ(memory.data(), "yyyyyyy");
    EXPECT_EQ(host.log.Take(), "text(32);text(33);");
    host.answer = 0;
    EXPECT_FALSE(effect.getHostProductString(text));
    EXPECT_STREQ(memory.data(), "");
}

TEST_F(AudioEffectTest, ResumeAsksForMidiWhenItCanBeReceived) {
    record->dispatcher(record, effMainsChanged, 0, 1, nullptr, 0.0F);
    EXPECT_EQ(host.log.Take(), "");
    CMidiEffect midi(&CallFakeHost, 1, 0);
    midi.resume();
    EXPECT_EQ(host.log.Take(), "host(6 0 1 0 0);");
    effect.isSynth();
    effect.resume();
    EXPECT_EQ(host.log.Take(), "host(6 0 1 0 0);");
}

TEST(AudioEffectWithoutHostTest, EveryQuestionIsAnsweredWith0) {
    CPlainEffect effect(nullptr, 1, 1);
    VstEvents events{};
    std::array<char, 8> memory{};
    CHostText text(memory.data(), 8);
    effect.setParameterAutomated(0, 0.5F);
    effect.masterIdle();
    EXPECT_FALSE(effect.beginEdit(0));
    EXPECT_FALSE(effect.endEdit(0));
    EXPECT_FALSE(effect.sizeWindow(1, 1));
    EXPECT_FALSE(effect.sendVstEventsToHost(&events));
    EXPECT_EQ(effect.getTimeInfo(0), nullptr);
    EXPECT_EQ(effect.getDirectory(), nullptr);
    EXPECT_EQ(effect.getMasterVersion(), 1);
    EXPECT_EQ(effect.canHostDo("sizeWindow"), 0);
    EXPECT_FALSE(effect.getHostVendorString(text));
    EXPECT_EQ(effect.updateSampleRate(), 44100.0);
    EXPECT_EQ(effect.updateBlockSize(), 1024);
    CMidiEffect midi(nullptr, 1, 0);
    midi.resume();
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
