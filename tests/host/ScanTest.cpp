// What a host learns when it looks a plug-in over.

#include "host/Host.h"

#include <elf.h>

#include <fstream>
#include <iterator>
#include <set>

namespace TestHost {
namespace {

/// The names that a library file defines for others.
std::set<std::string> ExportsOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const auto read = [&bytes](std::size_t offset, auto& into) {
        if (offset + sizeof into <= bytes.size()) {
            std::memcpy(&into, bytes.data() + offset, sizeof into);
        }
    };
    Elf64_Ehdr header{};
    read(0, header);
    std::vector<Elf64_Shdr> sections(header.e_shnum);
    for (std::size_t i = 0; i < sections.size(); ++i) {
        read(header.e_shoff + i * sizeof(Elf64_Shdr), sections[i]);
    }
    std::set<std::string> names;
    for (const Elf64_Shdr& section : sections) {
        for (std::size_t at = 0; section.sh_type == SHT_DYNSYM && at < section.sh_size;
             at += sizeof(Elf64_Sym)) {
            Elf64_Sym symbol{};
            read(section.sh_offset + at, symbol);
            if (symbol.st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbol.st_info) != STB_LOCAL) {
                names.insert(bytes.data() + sections[section.sh_link].sh_offset + symbol.st_name);
            }
        }
    }
    return names;
}

TEST(LibraryTest, ExportsItsTwoEntryPointsAndNothingElse) {
    const std::set<std::string> expected{"VSTPluginMain", "main_macho"};
    EXPECT_EQ(ExportsOf(ONDARA_LIBRARY), expected);
}

TEST(LibraryTest, BothEntryPointsMakeThePlugIn) {
    const CHost host;
    const CLibrary library;
    for (const char* name : {"VSTPluginMain", "main_macho"}) {
        AEffect* effect = library.Create(&CHost::Callback, name);
        ASSERT_NE(effect, nullptr);
        EXPECT_EQ(effect->magic, kEffectMagic);
        effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
    }
}

TEST(LibraryTest, MakesNothingWithoutACallback) {
    const CLibrary library;
    EXPECT_EQ(library.Create(nullptr), nullptr);
    EXPECT_EQ(library.Create(nullptr, "main_macho"), nullptr);
}

TEST(LibraryTest, MakesNothingForAHostWithoutAVersion) {
    const CHost host(0);
    const CLibrary library;
    EXPECT_EQ(library.Create(&CHost::Callback), nullptr);
    EXPECT_EQ(host.GetCount(audioMasterVersion), 1);
}

class ScanTest : public CHostTest {};

TEST_F(ScanTest, TheRecordSaysWhatThePlugInIs) {
    const AEffect& effect = *plugin.Get();
    EXPECT_EQ(effect.magic, 0x56737450);
    EXPECT_EQ(effect.uniqueID, 0x6b37717a);
    EXPECT_EQ(effect.numPrograms, 1);
    EXPECT_EQ(effect.numParams, kParamsCount);
    EXPECT_EQ(effect.numInputs, 2);
    EXPECT_EQ(effect.numOutputs, 2);
    EXPECT_EQ(effect.flags, effFlagsCanReplacing | effFlagsProgramChunks);
    EXPECT_EQ(effect.initialDelay, 0);
    EXPECT_EQ(effect.resvd1, 0);
    EXPECT_EQ(effect.resvd2, 0);
}

TEST_F(ScanTest, TheNamesAreTheProductsOwn) {
    EXPECT_EQ(plugin.Text(effGetEffectName, 0, 32), "Ondara Mini");
    EXPECT_EQ(plugin.Text(effGetVendorString, 0, 64), "Halvane");
    EXPECT_EQ(plugin.Text(effGetProductString, 0, 64), "Ondara");
    EXPECT_EQ(plugin.Ask(effGetVendorVersion), 2000);
    EXPECT_EQ(plugin.Ask(effGetVstVersion), 2400);
    EXPECT_EQ(plugin.Ask(effGetPlugCategory), kPlugCategAnalysis);
}

TEST_F(ScanTest, ParametersHaveNamesUnitsAndTexts) {
    struct CRow {
        const char* name;
        const char* label;
        const char* display;
    };
    constexpr CRow rows[kParamsCount] = {
        {"Bypass", "", "Off"},          {"Stereo Mode", "", "Stereo"},
        {"View Mode", "", "Flow"},      {"Sync", "", "0"},
        {"Delay", "ms", "0.00"},        {"Trigger Value", "", "0.00"},
        {"Trigger Direction", "", "Up"}};
    for (VstInt32 i = 0; i < kParamsCount; ++i) {
        EXPECT_EQ(plugin.Text(effGetParamName, i, 24), rows[i].name);
        EXPECT_EQ(plugin.Text(effGetParamLabel, i, 24), rows[i].label);
        EXPECT_EQ(plugin.Text(effGetParamDisplay, i, 24), rows[i].display);
        EXPECT_EQ(plugin.Ask(effCanBeAutomated, i), 1);
    }
    plugin.Set(kBypass, 1.0F);
    EXPECT_EQ(plugin.Text(effGetParamDisplay, kBypass, 24), "On");
    plugin.Set(kDelay, 0.5F);
    EXPECT_EQ(plugin.Text(effGetParamDisplay, kDelay, 24), "150.00");
}

TEST_F(ScanTest, ParametersBeyondTheLastAreUnknownAndEmpty) {
    for (const VstInt32 index : {VstInt32{kParamsCount}, 1000, 0x7fffffff, -1, -0x7fffffff - 1}) {
        EXPECT_EQ(plugin.Text(effGetParamName, index, 24), "Unknown") << index;
        EXPECT_EQ(plugin.Text(effGetParamLabel, index, 24), "");
        EXPECT_EQ(plugin.Text(effGetParamDisplay, index, 24), "");
        EXPECT_EQ(plugin.GetParam(index), 0.0F);
    }
}

TEST_F(ScanTest, ThereIsOneProgramThatCannotBeNamed) {
    EXPECT_EQ(plugin.Ask(effGetProgram), 0);
    EXPECT_EQ(plugin.Text(effGetProgramName, 0, 24), "User Program");
    EXPECT_EQ(plugin.Text(effGetProgramNameIndexed, 0, 24), "User Program");
    EXPECT_EQ(plugin.Text(effGetProgramNameIndexed, 1, 24), "");
    char name[] = "Mine";
    plugin.Ask(effSetProgramName, 0, 0, name);
    plugin.Ask(effSetProgram, 0, 1);
    EXPECT_EQ(plugin.Ask(effGetProgram), 0);
    EXPECT_EQ(plugin.Text(effGetProgramName, 0, 24), "User Program");
}

TEST_F(ScanTest, WithoutAnEditorItHasNoWindowToShow) {
    EXPECT_EQ(plugin.Get()->flags & effFlagsHasEditor, 0);
    ERect* rect = nullptr;
    EXPECT_EQ(plugin.Ask(effEditGetRect, 0, 0, &rect), 0);
    EXPECT_EQ(rect, nullptr);
    EXPECT_EQ(plugin.Ask(effEditOpen, 0, 0, &rect), 0);
    plugin.Ask(effEditIdle);
    plugin.Ask(effEditClose);
    char question[] = "hasCockosViewAsConfig";
    EXPECT_EQ(plugin.Ask(effCanDo, 0, 0, question), 0);
}

TEST_F(ScanTest, CanDoAnswersYesToEightQuestions) {
    std::vector<std::string> yes{
        "sizeWindow",       "conformsToWindowRules", "sendVstEvents",      "sendVstMidiEvent",
        "receiveVstEvents", "receiveVstMidiEvent",   "receiveVstTimeInfo", "bypass"};
    for (std::string& question : yes) {
        EXPECT_EQ(plugin.Ask(effCanDo, 0, 0, question.data()), 1) << question;
    }
    std::vector<std::string> no{"",        "offline", "midiProgramNames",      "Bypass",
                                "bypass ", "bypas",   std::string(100000, 'x')};
    for (std::string& question : no) {
        EXPECT_EQ(plugin.Ask(effCanDo, 0, 0, question.data()), 0);
    }
}

TEST_F(ScanTest, ResumeAsksTheHostForMIDI) {
    plugin.Start();
    EXPECT_GT(host.GetCount(audioMasterWantMidi), 0);
}

TEST_F(ScanTest, TheTailIsASecond) {
    plugin.Start(48000.0F);
    EXPECT_EQ(plugin.Ask(effGetTailSize), 48000);
}

TEST_F(ScanTest, PinsAreActiveUntilAnArrangementIsSet) {
    for (const VstInt32 opcode : {effGetInputProperties, effGetOutputProperties}) {
        VstPinProperties pin;
        std::memset(&pin, 0x55, sizeof pin);
        EXPECT_EQ(plugin.Ask(opcode, 0, 0, &pin), 0);
        EXPECT_EQ(pin.flags, kVstPinIsActive);
        EXPECT_STREQ(pin.label, "");
    }
    VstSpeakerArrangement stereo{};
    stereo.type = kSpeakerArrStereo;
    stereo.numChannels = 2;
    EXPECT_EQ(
        plugin.Ask(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&stereo), &stereo), 1);
    for (const VstInt32 opcode : {effGetInputProperties, effGetOutputProperties}) {
        VstPinProperties pin{};
        EXPECT_EQ(plugin.Ask(opcode, 1, 0, &pin), 1);
        EXPECT_EQ(pin.flags, kVstPinUseSpeaker);
        EXPECT_EQ(pin.arrangementType, kSpeakerArrStereo);
        EXPECT_STREQ(pin.label, "");
    }
}

} // namespace
} // namespace TestHost
