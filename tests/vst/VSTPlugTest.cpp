// What the plug-in says of itself, its parameters, and how it is set up and taken down.

#include "vst/VSTTestKit.h"

#include <cmath>

namespace VorinExt::VSTPlugin::Testing {
namespace {

class VSTPlugTest : public CPlugTest {
protected:
    void SetUp() override {
        filter.inputs = {
            MakeParam("Drive", "dB", 0.0, 10.0, 5.0),
            MakeParam("A name of thirty characters xx", "a unit of thirty characters xx")};
        filter.outputs = {MakeParam("Level", "%", 0.0, 4.0, 1.0),
                          MakeParam("An output of thirty characters", "")};
    }
};

TEST_F(VSTPlugTest, TheRecordCountsBypassInputsAndOutputs) {
    filter.latency = 77;
    Make();
    EXPECT_EQ(Record().numParams, 5);
    EXPECT_EQ(Record().numPrograms, 1);
    EXPECT_EQ(Record().flags, effFlagsCanReplacing | effFlagsProgramChunks);
    EXPECT_EQ(Record().initialDelay, 77);
    EXPECT_EQ(plug->getSampleRate(), 44100.0F);
    EXPECT_EQ(plug->getBlockSize(), 1024);
    EXPECT_EQ(plug->getProgram(), 0);
}

TEST_F(VSTPlugTest, ItAnnouncesTheMostChannelsOfAllConfigurations) {
    filter.channels.AddConfiguration(DSP::CIOConfiguration(1, 6));
    filter.channels.AddConfiguration(DSP::CIOConfiguration(4, 1));
    Make();
    EXPECT_EQ(Record().numInputs, 4);
    EXPECT_EQ(Record().numOutputs, 6);
}

TEST_F(VSTPlugTest, AFilterWithoutOutputsIsAnnouncedWithAsManyAsInputs) {
    filter.channels = DSP::CProcessInfo(3, 0);
    Make();
    EXPECT_EQ(Record().numInputs, 3);
    EXPECT_EQ(Record().numOutputs, 3);
}

TEST_F(VSTPlugTest, WithoutADisplayThereIsNoEditor) {
    Make(false);
    EXPECT_EQ(plug->getEditor(), nullptr);
    EXPECT_EQ(Record().flags & effFlagsHasEditor, 0);
    EXPECT_EQ(plug->canDo("hasCockosViewAsConfig"), 0);
}

TEST_F(VSTPlugTest, WithADisplayThereIsAnEditorAndTheDisplayKnowsThePresets) {
    Make(true);
    ASSERT_NE(plug->getEditor(), nullptr);
    EXPECT_NE(Record().flags & effFlagsHasEditor, 0);
    EXPECT_EQ(plug->canDo("hasCockosViewAsConfig"), static_cast<VstInt32>(0xbeef0000U));
    ASSERT_NE(gui.presets, nullptr);
    EXPECT_STREQ(gui.presets->GetCurrentPresetName().Get(), "Default Settings");
}

TEST_F(VSTPlugTest, CanDoKnowsExactlyEightWords) {
    Make();
    for (const char* word :
         {"sizeWindow", "conformsToWindowRules", "sendVstEvents", "sendVstMidiEvent",
          "receiveVstEvents", "receiveVstMidiEvent", "receiveVstTimeInfo", "bypass"}) {
        EXPECT_EQ(plug->canDo(word), 1) << word;
    }
    for (const char* word : {"", "Bypass", "bypas", "bypass2", "offline", "midiProgramNames"}) {
        EXPECT_EQ(plug->canDo(word), 0) << word;
    }
}

TEST_F(VSTPlugTest, ItsEndTakesDownTheDisplayThenTheFilter) {
    Make(true);
    GetEnds().clear();
    plug.reset();
    EXPECT_EQ(GetEnds(), "~gui;~filter;");
    gui.sizeChanged.Notify(); // the editor has let go of it
    EXPECT_EQ(host.Take(), "");
}

TEST_F(VSTPlugTest, TheFilterIsSetUpForTheSdksRateAndBlockSize) {
    std::unique_ptr<DSP::IFilter> made = MakeFilter(filter);
    const CVSTPlug other(&CFakeHost::Callback, {.filter = std::move(made), .gui = nullptr},
                         settings);
    EXPECT_NE(filter.calls.find("init 44100 1024 1 -1;"), std::string::npos) << filter.calls;
}

TEST_F(VSTPlugTest, ItsNamesAreTheProductsOrElseTheFilters) {
    Make();
    const auto name = [&](CHostText& text) { plug->getEffectName(text); };
    const auto vendor = [&](CHostText& text) { plug->getVendorString(text); };
    const auto product = [&](CHostText& text) { plug->getProductString(text); };
    EXPECT_EQ(TextOf(name, 32), "Effect");
    EXPECT_EQ(TextOf(vendor, 64), "Maker");
    EXPECT_EQ(TextOf(product, 64), "Filter");
    EXPECT_EQ(plug->getVendorVersion(), 1500);
    const DSP::CFilterProductInfo own("Shop", "A long name", "3.0", "", "", 0, "");
    Make(false, &own);
    EXPECT_EQ(TextOf(name, 32), "A long name"); // there is no effect name
    EXPECT_EQ(TextOf(vendor, 64), "Shop");
    EXPECT_EQ(TextOf(product, 64), "A long name");
    EXPECT_EQ(plug->getVendorVersion(), 3000);
}

TEST_F(VSTPlugTest, NamesThatAreTooLongAreCutWithoutAMark) {
    const std::string longName(100, 'n');
    const DSP::CFilterProductInfo own(longName.c_str(), longName.c_str(), "1.0", "", "", 0,
                                      longName.c_str());
    Make(false, &own);
    EXPECT_EQ(TextOf([&](CHostText& text) { plug->getEffectName(text); }, 32),
              std::string(31, 'n'));
    EXPECT_EQ(TextOf([&](CHostText& text) { plug->getVendorString(text); }, 64),
              std::string(63, 'n'));
    EXPECT_EQ(TextOf([&](CHostText& text) { plug->getProductString(text); }, 64),
              std::string(63, 'n'));
}

TEST_F(VSTPlugTest, ItsCategoryFollowsTheProducts) {
    struct CRow {
        int code;
        VstPlugCategory category;
    };
    for (const CRow& row :
         {CRow{0, kPlugCategAnalysis}, CRow{1, kPlugCategMastering}, CRow{2, kPlugCategEffect},
          CRow{3, kPlugCategMastering}, CRow{4, kPlugCategEffect}, CRow{5, kPlugCategEffect},
          CRow{6, kPlugCategUnknown}, CRow{-1, kPlugCategUnknown}}) {
        const DSP::CFilterProductInfo own("", "", "", "", "", row.code, "");
        Make(false, &own);
        EXPECT_EQ(plug->getPlugCategory(), row.category) << row.code;
    }
}

TEST_F(VSTPlugTest, TheTailIsTheFilters) {
    filter.tail = 1234;
    Make();
    EXPECT_EQ(plug->getGetTailSize(), 1234);
}

TEST_F(VSTPlugTest, ThereIsOneProgram) {
    Make();
    plug->setProgram(3);
    plug->setProgramName("Mine");
    EXPECT_EQ(plug->getProgram(), 0);
    EXPECT_EQ(TextOf([&](CHostText& text) { plug->getProgramName(text); }), "User Program");
    EXPECT_EQ(TextOf([&](CHostText& text) { plug->getProgramNameIndexed(-1, 0, text); }),
              "User Program");
}

TEST_F(VSTPlugTest, NamesOfParametersAreCutToWhatHostsTake) {
    Make();
    EXPECT_EQ(NameOf(0), "Bypass");
    EXPECT_EQ(NameOf(1), "Drive");
    EXPECT_EQ(NameOf(2), "A name of thirty charac"); // 23
    EXPECT_EQ(NameOf(3), "OUT:Level");
    EXPECT_EQ(NameOf(4), "OUT:An output of thirty"); // "OUT:" and 19
    EXPECT_EQ(NameOf(5), "Unknown");
    EXPECT_EQ(NameOf(-1), "Unknown");
}

TEST_F(VSTPlugTest, UnitsAndTextsOfParameters) {
    Make();
    EXPECT_EQ(LabelOf(0), "");
    EXPECT_EQ(LabelOf(1), "dB");
    EXPECT_EQ(LabelOf(2), "a unit of thirty charac");
    EXPECT_EQ(LabelOf(3), "%");
    EXPECT_EQ(LabelOf(5), "");
    EXPECT_EQ(DisplayOf(0), "Off");
    plug->setBypass(true);
    EXPECT_EQ(DisplayOf(0), "On");
    EXPECT_NE(DisplayOf(1), "");
    EXPECT_EQ(DisplayOf(5), "");
    EXPECT_EQ(DisplayOf(-1), "");
}

TEST_F(VSTPlugTest, ParametersAreNormalised) {
    Make();
    EXPECT_EQ(plug->getParameter(0), 0.0F);
    EXPECT_EQ(plug->getParameter(1), 0.5F);
    EXPECT_EQ(plug->getParameter(3), 0.0F); // an output has what the filter says
    EXPECT_EQ(plug->getParameter(5), 0.0F);
    EXPECT_EQ(plug->getParameter(-1), 0.0F);
    plug->setParameter(1, 0.25F);
    EXPECT_EQ(plug->getParameter(1), 0.25F);
    EXPECT_EQ(filter.inputValues[0], 2.5);
    plug->setParameter(3, 0.5F); // an output, until the filter says another
    EXPECT_EQ(plug->getParameter(3), 0.5F);
    plug->setParameter(5, 1.0F);
    plug->setParameter(-1, 1.0F);
    EXPECT_EQ(host.Take(), "");
}

TEST_F(VSTPlugTest, ABypassOfExactlyHalfIsNone) {
    Make();
    filter.gain = 3.0;
    Start();
    plug->setParameter(0, 0.5F);
    EXPECT_EQ(Run(64), (std::vector<float>{1.5F, 1.5F}));
    plug->setParameter(0, std::nextafter(0.5F, 1.0F));
    EXPECT_EQ(Run(64), (std::vector<float>{0.5F, 0.5F}));
    EXPECT_TRUE(plug->setBypass(false));
    EXPECT_EQ(Run(64), (std::vector<float>{1.5F, 1.5F}));
    EXPECT_TRUE(plug->setBypass(true));
    EXPECT_EQ(plug->getParameter(0), 1.0F);
    EXPECT_EQ(Run(64), (std::vector<float>{0.5F, 0.5F}));
}

TEST_F(VSTPlugTest, AnInputReachesTheFilterAtOnceWhileNothingRuns) {
    Make();
    plug->setParameter(1, 1.0F);
    EXPECT_EQ(filter.Take(), "params;update;");
    EXPECT_EQ(filter.inputValues[0], 10.0);
    plug->setParameter(1, 1.0F);
    EXPECT_EQ(filter.Take().find("params;"), std::string::npos); // the same again
    EXPECT_TRUE(plug->setBypass(true));
    EXPECT_EQ(filter.Take().find("params;"), std::string::npos); // no value of the filter's
    plug->setParameter(3, 1.0F);
    EXPECT_EQ(filter.Take(), ""); // an output
}

TEST_F(VSTPlugTest, AnInputWaitsForTheNextBlockWhileBlocksRun) {
    Make();
    Start();
    Run(64);
    filter.Take();
    plug->setParameter(1, 1.0F);
    EXPECT_EQ(filter.Take(), "");
    EXPECT_EQ(filter.inputValues[0], 5.0);
    Run(64);
    EXPECT_EQ(filter.inputValues[0], 10.0);
    Run(64);
    filter.Take();
    plug->setParameter(1, 0.0F);
    plug->suspend();
    EXPECT_EQ(filter.inputValues[0], 0.0);
}

TEST_F(VSTPlugTest, AnAutomatedOutputTellsTheHostAndAnotherDoesNot) {
    Make();
    plug->setParameterAutomated(3, 0.5F);
    EXPECT_EQ(host.Take(), "");
    EXPECT_EQ(plug->getParameter(3), 0.5F);
    plug->setParameterAutomated(1, 1.0F); // inputs always do
    EXPECT_EQ(host.Take(), "automate 1 1;");
    plug->setParameterAutomated(0, 1.0F);
    EXPECT_EQ(host.Take(), "automate 0 1;");
}

TEST_F(VSTPlugTest, EveryParameterCanBeAutomated) {
    Make();
    for (VstInt32 i = 0; i < 5; ++i) {
        EXPECT_TRUE(plug->canParameterBeAutomated(i));
    }
}

TEST_F(VSTPlugTest, ResumeSetsTheFilterUpForTheHost) {
    filter.channels.AddConfiguration(DSP::CIOConfiguration(1, 1));
    filter.channels.AddConfiguration(DSP::CIOConfiguration(2, 2));
    Make();
    plug->setSampleRate(96000.0F);
    plug->setBlockSize(256);
    EXPECT_EQ(filter.Take(), "");
    filter.latency = 55;
    plug->resume();
    const std::string calls = filter.Take();
    EXPECT_EQ(calls.substr(0, calls.find(';') + 1), "init 96000 256 1 1;");
    EXPECT_EQ(Record().initialDelay, 55);
}

TEST_F(VSTPlugTest, ARateThatCannotBeRunHoldsNothingElseBack) {
    filter.channels.AddConfiguration(DSP::CIOConfiguration(1, 1));
    Make();
    Start(48000.0F, 64);
    plug->setSampleRate(1e7F);
    plug->setBlockSize(4096);
    filter.Take();
    plug->resume();
    EXPECT_NE(filter.Take().find("init 48000 4096 1 -1;"), std::string::npos);
    EXPECT_EQ(plug->getSampleRate(), 48000.0F);
    plug->setSampleRate(3e38F);
    VstSpeakerArrangement mono{};
    mono.type = kSpeakerArrMono;
    mono.numChannels = 1;
    EXPECT_TRUE(plug->setSpeakerArrangement(&mono, &mono));
    EXPECT_NE(filter.Take().find("init 48000 4096 1 0;"), std::string::npos);
}

TEST_F(VSTPlugTest, TheFirstConfigurationThatFitsAnArrangementIsTaken) {
    filter.channels.AddConfiguration(DSP::CIOConfiguration(1, 2));
    filter.channels.AddConfiguration(DSP::CIOConfiguration(1, 1));
    filter.channels.AddConfiguration(DSP::CIOConfiguration(1, 1));
    Make();
    Start(48000.0F, 128);
    filter.Take();
    VstSpeakerArrangement mono{};
    mono.type = kSpeakerArrMono;
    mono.numChannels = 1;
    EXPECT_TRUE(plug->setSpeakerArrangement(&mono, &mono));
    EXPECT_NE(filter.Take().find("init 48000 128 1 1;"), std::string::npos);
    EXPECT_EQ(Record().numInputs, 1);
    EXPECT_EQ(Record().numOutputs, 1);
    plug->resume();
    EXPECT_NE(filter.Take().find("init 48000 128 1 1;"), std::string::npos);
    VstSpeakerArrangement stereo{};
    stereo.type = kSpeakerArrStereo;
    stereo.numChannels = 2;
    EXPECT_TRUE(plug->setSpeakerArrangement(&stereo, &stereo)); // the default, in no list
    EXPECT_NE(filter.Take().find("init 48000 128 1 -1;"), std::string::npos);
    EXPECT_TRUE(plug->setSpeakerArrangement(&mono, &stereo));
    EXPECT_NE(filter.Take().find("init 48000 128 1 0;"), std::string::npos);
    EXPECT_EQ(Run(64), (std::vector<float>{0.5F, 0.5F}));
}

TEST_F(VSTPlugTest, AnArrangementOfNoConfigurationIsRefusedAndChangesNothing) {
    Make();
    VstSpeakerArrangement surround{};
    surround.type = kSpeakerArr51;
    surround.numChannels = 6;
    EXPECT_FALSE(plug->setSpeakerArrangement(&surround, &surround));
    EXPECT_EQ(filter.Take(), "");
    EXPECT_EQ(Record().numInputs, 2);
    VstPinProperties pin{};
    EXPECT_FALSE(plug->getInputProperties(0, &pin));
    EXPECT_EQ(pin.flags, kVstPinIsActive);
    EXPECT_FALSE(plug->getOutputProperties(0, &pin));
    EXPECT_EQ(pin.flags, kVstPinIsActive);
}

TEST_F(VSTPlugTest, PinsSayTheArrangementThatWasSet) {
    Make();
    VstSpeakerArrangement in{};
    in.type = kSpeakerArrStereo;
    in.numChannels = 2;
    VstSpeakerArrangement out{};
    out.type = kSpeakerArrUserDefined;
    out.numChannels = 2;
    EXPECT_TRUE(plug->setSpeakerArrangement(&in, &out));
    VstPinProperties pin{};
    EXPECT_TRUE(plug->getInputProperties(0, &pin));
    EXPECT_EQ(pin.flags, kVstPinUseSpeaker);
    EXPECT_EQ(pin.arrangementType, kSpeakerArrStereo);
    EXPECT_STREQ(pin.label, "");
    EXPECT_TRUE(plug->getOutputProperties(1, &pin));
    EXPECT_EQ(pin.arrangementType, kSpeakerArrUserDefined);
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
