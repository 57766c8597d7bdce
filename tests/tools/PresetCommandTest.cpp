#include "ProgramTest.h"

#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace WorkbenchTests {
namespace {

/// What the shipped preset "Drum Transients" is, as text.
constexpr char kPreset[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<Preset version=\"3\" progName=\"Drum Transients\" MIDIInputDefault=\"1\" "
    "MIDIOutputDefault=\"1\">\n"
    "    <inputParams count=\"7\" p0=\"0\" p1=\"0\" p2=\"2\" p3=\"1\" p4=\"20\" p5=\"0.2\" "
    "p6=\"0\"/>\n"
    "    <model/>\n"
    "</Preset>\n";

constexpr char kShown[] = "name: Drum Transients\n"
                          "version: 3\n"
                          "\n"
                          "parameters:\n"
                          "  Bypass               0  (Off)\n"
                          "  Stereo Mode          0  (Stereo)\n"
                          "  View Mode            2  (Trigger)\n"
                          "  Sync                 1  (1)\n"
                          "  Delay                20 ms  (20.00)\n"
                          "  Trigger Value        0.2  (0.20)\n"
                          "  Trigger Direction    0  (Up)\n"
                          "\n"
                          "MIDI input: as the global settings say\n";

/// A setting of a preset, by default what a new one of that range is.
struct CSetting {
    std::string channel = "0";
    std::string number = "0";
    std::string midiEnabled = "0";
    std::string automationEnabled = "1";
    std::string curve = "Linear";
    std::string min = "0";
    std::string max = "1";
    std::string type = "CC";

    std::string AsElement(int index) const {
        return "<setting" + std::to_string(index) + " channel=\"" + channel +
               "\" version=\"3\" number=\"" + number + "\" midiEnabled=\"" + midiEnabled +
               "\" automationEnabled=\"" + automationEnabled + "\" curve=\"" + curve + "\" min=\"" +
               min + "\" max=\"" + max + "\" type=\"" + type + "\"/>";
    }
};

/// The settings of all seven parameters, each as a new one.
std::vector<CSetting> FreshSettings() {
    std::vector<CSetting> settings(7);
    settings[2].max = "2";
    settings[4].max = "300";
    settings[5].min = "-1";
    return settings;
}

std::string PresetWithSettings(const std::vector<CSetting>& settings) {
    std::string text = "<Preset version=\"3\" progName=\"Pads\" MIDIInputDefault=\"0\" "
                       "MIDIOutputDefault=\"1\"><MIDIInputSettings settingCount=\"" +
                       std::to_string(settings.size()) + "\">";
    for (std::size_t i = 0; i < settings.size(); ++i) {
        text += settings[i].AsElement(static_cast<int>(i));
    }
    return text + "</MIDIInputSettings><inputParams count=\"0\"/></Preset>";
}

std::string NamedPreset(const std::string& name) { return "<Preset progName=\"" + name + "\"/>"; }

class Preset : public CProgramTest {
protected:
    std::string Write(const std::string& name, const std::string& bytes) const {
        folder.Write(name, bytes);
        return Path(name);
    }

    std::string Show(const std::string& bytes) const {
        return Run({"preset", "show", Write("shown.preset", bytes)});
    }

    /// Neither of the two takes the file, each says why and names it.
    void ExpectBad(const std::string& path, const std::string& reason,
                   const CSurroundings& surroundings = {}) const {
        ExpectRefused({"preset", "show", path}, 1, path, surroundings);
        ExpectRefused({"preset", "show", path}, 1, reason, surroundings);
        const CRun checked = RunOndara({"preset", "check", path}, surroundings);
        EXPECT_EQ(checked.status, 1);
        EXPECT_EQ(checked.out.find(path + ": "), 0U) << checked.out;
        EXPECT_NE(checked.out.find(reason), std::string::npos) << checked.out;
        EXPECT_EQ(std::count(checked.out.begin(), checked.out.end(), '\n'), 1) << checked.out;
        EXPECT_EQ(checked.err, "ondara: 1 of 1 would not load\n");
    }

    void ExpectBadBytes(const std::string& bytes, const std::string& reason) const {
        SCOPED_TRACE(bytes.substr(0, 200));
        ExpectBad(Write("bad.preset", bytes), reason);
    }
};

TEST_F(Preset, IsShownWithItsNameVersionAndParameters) { EXPECT_EQ(Show(kPreset), kShown); }

TEST_F(Preset, IsShownWhatItsFileIsCalled) {
    EXPECT_EQ(Run({"preset", "show", Write("no extension", kPreset)}), kShown);
}

TEST_F(Preset, AsAHostKeepsItEndsWithAZeroByte) {
    using std::string_literals::operator""s;
    EXPECT_EQ(Show(kPreset + "\0"s), kShown);
    EXPECT_EQ(Show(kPreset + "\0\0\0\0\0\0\0\0"s), kShown);
    EXPECT_EQ(Run({"preset", "check", Write("state", kPreset + "\0"s)}),
              Path("state") + ": would load\n");
    ExpectBadBytes("\0"s, "is no preset");
    ExpectBadBytes("<Preset>\0</Preset>"s, "is no preset");
}

TEST_F(Preset, ThatLacksThingsIsShownWithTheirDefaults) {
    EXPECT_EQ(Show("<Preset/>"), "name: Default\n"
                                 "version: 0\n"
                                 "\n"
                                 "parameters:\n"
                                 "  Bypass               0  (Off)\n"
                                 "  Stereo Mode          0  (Stereo)\n"
                                 "  View Mode            0  (Flow)\n"
                                 "  Sync                 0  (0)\n"
                                 "  Delay                0 ms  (0.00)\n"
                                 "  Trigger Value        0  (0.00)\n"
                                 "  Trigger Direction    0  (Up)\n"
                                 "\n"
                                 "MIDI input: as the global settings say\n");
}

TEST_F(Preset, IsShownWithValuesThatReadBackExactly) {
    const std::string shown =
        Show("<Preset><inputParams count=\"7\" p4=\"0.1\" p5=\"0.30000000000000004\"/></Preset>");
    EXPECT_NE(shown.find("  Delay                0.1 ms  (0.10)\n"), std::string::npos) << shown;
    EXPECT_NE(shown.find("  Trigger Value        0.30000000000000004  (0.30)\n"), std::string::npos)
        << shown;
}

TEST_F(Preset, IsShownWithValuesAsThePlugInWouldTakeThem) {
    const std::string shown =
        Show("<Preset><inputParams count=\"7\" p4=\"1e300\" p5=\"-7\"/></Preset>");
    EXPECT_NE(shown.find("  Delay                300 ms  (300.00)\n"), std::string::npos) << shown;
    EXPECT_NE(shown.find("  Trigger Value        -1  (-1.00)\n"), std::string::npos) << shown;
}

TEST_F(Preset, IsShownWithTheMIDISettingsThatDiffer) {
    auto settings = FreshSettings();
    settings[0].midiEnabled = "1";
    settings[2].number = "74";
    settings[4] = {"5", "127", "1", "0", "Exp3", "100", "-0.5", "NoteOnOff"};
    const std::string shown = Show(PresetWithSettings(settings));
    EXPECT_EQ(shown.substr(shown.find("MIDI input")),
              "MIDI input:\n"
              "  Bypass               on, any channel, CC 0, 0 to 1, curve \"Linear\"\n"
              "  View Mode            off, any channel, CC 74, 0 to 2, curve \"Linear\"\n"
              "  Delay                on, channel 5, NoteOnOff 127, 100 to -0.5, curve \"Exp3\", "
              "not automated\n");
}

TEST_F(Preset, IsShownWithASettingOfWhichOneFieldDiffers) {
    std::vector<CSetting> differing(8, CSetting{});
    differing[0].channel = "16";
    differing[1].number = "1";
    differing[2].midiEnabled = "1";
    differing[3].automationEnabled = "0";
    differing[4].curve = "Square Root";
    differing[5].min = "0.25";
    differing[6].max = "0.75";
    differing[7].type = "Note";
    const char* const expected[] = {"off, channel 16, CC 0, 0 to 1, curve \"Linear\"\n",
                                    "off, any channel, CC 1, 0 to 1, curve \"Linear\"\n",
                                    "on, any channel, CC 0, 0 to 1, curve \"Linear\"\n",
                                    "off, any channel, CC 0, 0 to 1, curve \"Linear\", not "
                                    "automated\n",
                                    "off, any channel, CC 0, 0 to 1, curve \"Square Root\"\n",
                                    "off, any channel, CC 0, 0.25 to 1, curve \"Linear\"\n",
                                    "off, any channel, CC 0, 0 to 0.75, curve \"Linear\"\n",
                                    "off, any channel, Note 0, 0 to 1, curve \"Linear\"\n"};
    for (std::size_t i = 0; i < differing.size(); ++i) {
        auto settings = FreshSettings();
        settings[3] = differing[i];
        const std::string shown = Show(PresetWithSettings(settings));
        EXPECT_EQ(shown.substr(shown.find("MIDI input")),
                  std::string("MIDI input:\n  Sync                 ") + expected[i]);
    }
}

TEST_F(Preset, OfWhichNoMIDISettingDiffersSaysSo) {
    const std::string shown = Show(PresetWithSettings(FreshSettings()));
    EXPECT_EQ(shown.substr(shown.find("MIDI input")),
              "MIDI input:\n  every setting is the default\n");
}

TEST_F(Preset, NamesDoNotSteerTheTerminal) {
    const auto shownName = [&](const std::string& name) {
        const std::string shown = Show(NamedPreset(name));
        return shown.substr(0, shown.find('\n'));
    };
    EXPECT_EQ(shownName("a&#10;version: 9"), "name: a?version: 9");
    EXPECT_EQ(shownName("a&#13;&#9;&#127;"), "name: a???");
    // The same from the upper half: the one character that does what escape and "[" do.
    EXPECT_EQ(shownName("a\xc2\x9b"
                        "31m"),
              "name: a?31m");
    EXPECT_EQ(shownName("a&#155;31m"), "name: a?31m");
    EXPECT_EQ(shownName("\xc2\x80\xc2\x9f"), "name: ??");
    EXPECT_EQ(shownName("100%s%n"), "name: 100%s%n");
    EXPECT_EQ(shownName("&lt;\xc3\xa4\xe2\x82\xac\xc2\xa0&gt;"),
              "name: <\xc3\xa4\xe2\x82\xac\xc2\xa0>");
    // The others are not even XML.
    ExpectBadBytes(NamedPreset("&#27;[31mred"), "is no preset");
    ExpectBadBytes(NamedPreset("\x1b]0;title\x07"), "is no preset");
}

TEST_F(Preset, FileNamesDoNotSteerTheTerminal) {
    const std::string path = Write("a\x1b[31m\n\xc2\x9b"
                                   "b",
                                   kPreset);
    EXPECT_EQ(Run({"preset", "check", path}), Path("a?[31m??b") + ": would load\n");
    const CRun bad = RunOndara({"preset", "check", Path("no\x1b\n\x7f")});
    EXPECT_EQ(bad.out.find(Path("no???") + ": "), 0U) << bad.out;
    EXPECT_EQ(std::count(bad.out.begin(), bad.out.end(), '\n'), 1);
    ExpectRefused({"preset", "show", Path("no\x1b\n\x7f\xc2\x9b")}, 1, Path("no????") + ": ");
}

TEST_F(Preset, ChecksSayOfEachFileInOrderWhetherItWouldLoad) {
    const std::string good = Write("good.preset", kPreset);
    const std::string bad = Write("bad.preset", "no XML");
    const std::string missing = Path("missing.preset");
    EXPECT_EQ(Run({"preset", "check", good}), good + ": would load\n");
    EXPECT_EQ(Run({"preset", "check", good, good}),
              good + ": would load\n" + good + ": would load\n");
    const CRun run = RunOndara({"preset", "check", bad, good, missing, good});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "ondara: 2 of 4 would not load\n");
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < run.out.size(); from = run.out.find('\n', from) + 1) {
        lines.push_back(run.out.substr(from, run.out.find('\n', from) - from));
    }
    ASSERT_EQ(lines.size(), 4U) << run.out;
    EXPECT_EQ(lines[0].find(bad + ": is no preset"), 0U) << lines[0];
    EXPECT_EQ(lines[1], good + ": would load");
    EXPECT_EQ(lines[2], missing + ": cannot be read: No such file or directory");
    EXPECT_EQ(lines[3], good + ": would load");
}

TEST_F(Preset, AnswersOfOneFileDoNotDependOnTheOneBefore) {
    const std::string named = Write("named.preset", kPreset);
    const std::string partial = Write("partial.preset", "<Preset><inputParams p0=\"1\"/></Preset>");
    const std::string alone = Run({"preset", "show", partial});
    EXPECT_EQ(Run({"preset", "check", named, partial}),
              named + ": would load\n" + partial + ": would load\n");
    EXPECT_EQ(Run({"preset", "show", partial}), alone);
}

TEST_F(Preset, ThatIsShippedWouldLoad) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SHIPPED_PRESETS)) {
        const std::string path = entry.path().string();
        EXPECT_EQ(Run({"preset", "check", path}), path + ": would load\n");
        const std::string shown = Run({"preset", "show", path});
        EXPECT_EQ(shown.substr(0, shown.find('\n')), "name: " + entry.path().stem().string());
        ++count;
    }
    EXPECT_EQ(count, 5);
    EXPECT_EQ(Run({"preset", "show", SHIPPED_PRESETS "/Drum Transients.preset"}), kShown);
}

TEST_F(Preset, IsNoFolderNorOtherThingThatIsNoFile) {
    std::filesystem::create_directory(Path("folder.preset"));
    ExpectBad(Path("folder.preset"), "is no regular file");
    ExpectBad(Path("missing.preset"), "No such file or directory");
    ExpectBad(Path("missing/a.preset"), "No such file or directory");
    ExpectBad("/dev/zero", "is no regular file");
    std::filesystem::create_directory(Path("pipes"));
    ASSERT_EQ(mkfifo(Path("pipes/pipe").c_str(), 0644), 0);
    const CRun run = RunOndara({"preset", "check", Path("pipes/pipe")}); // nobody writes to it
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find(Path("pipes/pipe") + ": is no regular file"), std::string::npos);
    std::filesystem::remove(Path("pipes/pipe"));
}

TEST_F(Preset, ThatMayNotBeReadSaysSo) {
    const std::string path = Write("secret.preset", kPreset);
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    ExpectBad(path, "Permission denied", {.withoutRights = true});
}

TEST_F(Preset, OfMoreThan16MegabytesIsRefused) {
    const std::string most(16U << 20U, ' ');
    const std::string whole = kPreset + most.substr(sizeof kPreset - 1);
    EXPECT_EQ(Show(whole), kShown);
    ExpectBad(Write("large.preset", whole + " "), "16 MB");
    ExpectBad(Write("large.preset", kPreset + most + std::string(1U << 20U, ' ')), "16 MB");
}

TEST_F(Preset, OfAnotherKindIsRefused) {
    for (const char* text : {"", " ", "no XML", "<Preset>", "<Preset", "<Preset/><Preset/>",
                             "<Root version=\"3\"/>", "<preset/>", "<!DOCTYPE Preset><Preset/>",
                             "<!DOCTYPE Preset SYSTEM \"file:///etc/passwd\"><Preset/>",
                             "<!DOCTYPE Preset [<!ENTITY a \"b\">]><Preset progName=\"&a;\"/>"}) {
        ExpectBadBytes(text, "is no preset");
    }
}

TEST_F(Preset, Nested65DeepIsRefusedAnd64DeepIsNot) {
    const auto nested = [](int depth) {
        std::string text = "<Preset>";
        for (int i = 1; i < depth; ++i) {
            text += "<a>";
        }
        for (int i = 1; i < depth; ++i) {
            text += "</a>";
        }
        return text + "</Preset>";
    };
    EXPECT_EQ(Show(nested(64)), Show("<Preset/>"));
    ExpectBadBytes(nested(65), "64 elements deep");
}

TEST_F(Preset, WithValuesThatNoneCanHaveIsRefused) {
    for (const char* params : {"count=\"7\" p4=\"nan\"", "count=\"7\" p4=\"inf\"", "p0=\"-inf\"",
                               "count=\"8\"", "count=\"-1\"", "count=\"2000000000\""}) {
        ExpectBadBytes("<Preset><inputParams " + std::string(params) + "/></Preset>",
                       "no preset can have");
    }
    auto settings = FreshSettings();
    settings[6].number = "128";
    ExpectBadBytes(PresetWithSettings(settings), "no preset can have");
}

TEST_F(Preset, IsNotChangedByBeingLookedAt) {
    const std::string path = Write("a.preset", kPreset);
    const auto before = folder.List();
    Run({"preset", "show", path});
    Run({"preset", "check", path});
    EXPECT_TRUE(folder.List() == before);
}

} // namespace
} // namespace WorkbenchTests
