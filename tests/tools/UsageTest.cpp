// How the command line is used, and misused.

#include "ProgramTest.h"
#include <unistd.h>

namespace WorkbenchTests {
namespace {

class Usage : public CProgramTest {
protected:
    void ExpectWrong(const Words& words, const std::string& named) const {
        ExpectRefused(words, 2, named);
    }

    /// A command line that is right but for the options.
    void ExpectWrongOptions(const Words& options, const std::string& named) const {
        ExpectWrong(Words{"scope", input, "-o", Path("out.json")} + options, named);
    }

    const std::string input = MakeFile("in.wav", MakeSound(8000, 2, 400), kWav16);
};

TEST_F(Usage, WithoutACommandIsWrong) { ExpectWrong({}, "COMMAND"); }

TEST_F(Usage, OfAnUnknownCommandIsWrong) {
    for (const char* word : {"scop", "Scope", "--scope", "-x", "", "help"}) {
        ExpectWrong({word}, word);
        ExpectWrong({word, input, "-o", Path("out.json")}, word);
    }
}

TEST_F(Usage, HelpGoesToTheStandardOutput) {
    for (const Words& words :
         {Words{"--help"}, Words{"-h"}, Words{"scope", "--help"}, Words{"scope", "-h"},
          Words{"demo", "--help"}, Words{"demo", "-h"}, Words{"preset", "--help"},
          Words{"preset", "-h"}, Words{"preset", "show", "--help"},
          Words{"preset", "check", input, "-h"},
          Words{"scope", input, "--view", "loop", "--help"}}) {
        SCOPED_TRACE(::testing::PrintToString(words));
        const auto before = folder.List();
        const std::string out = Run(words);
        EXPECT_EQ(out.substr(0, 14), "usage: ondara ");
        EXPECT_EQ(out.back(), '\n');
        EXPECT_TRUE(folder.List() == before);
    }
}

TEST_F(Usage, HelpNamesTheCommandsAndTheirOptions) {
    const std::string help = Run({"--help"});
    for (const char* word : {"scope", "demo", "preset", "--help"}) {
        EXPECT_NE(help.find(word), std::string::npos) << word;
    }
    const std::string scopeHelp = Run({"scope", "--help"});
    for (const char* option :
         {"--view flow|loop|trigger", "--sync 0|1", "--delay MS", "--trigger-value V",
          "--trigger-direction up|down", "--stereo-mode stereo|mid-side", "--bypass",
          "--block FRAMES", "--refresh HZ", "--start S", "--seconds S", "--points N", "--size WxH",
          "--flush", "--format", "-o"}) {
        EXPECT_NE(scopeHelp.find(option), std::string::npos) << option;
    }
    EXPECT_NE(Run({"demo", "--help"}).find("-o"), std::string::npos);
    const std::string presetHelp = Run({"preset", "--help"});
    for (const char* usage : {"ondara preset show FILE\n", "ondara preset check FILE...\n"}) {
        EXPECT_NE(presetHelp.find(usage), std::string::npos) << usage;
    }
}

TEST_F(Usage, WithoutAnInputIsWrong) {
    ExpectWrong({"scope"}, "IN");
    ExpectWrong({"scope", "-o", Path("out.json")}, "IN");
    ExpectWrong({"scope", "", "-o", Path("out.json")}, "IN");
}

TEST_F(Usage, WithoutAnOutputIsWrong) {
    ExpectWrong({"scope", input}, "-o");
    ExpectWrong({"scope", input, "--format", "json"}, "-o");
    ExpectWrong({"scope", input, "-o", ""}, "-o");
}

TEST_F(Usage, OfTwoInputsIsWrong) {
    const std::string second = MakeFile("second.wav", MakeSound(8000, 1, 400), kWav16);
    ExpectWrong({"scope", input, second, "-o", Path("out.json")}, second);
    ExpectWrong({"scope", input, "-o", Path("out.json"), input}, input);
}

TEST_F(Usage, OfMisspeltOptionsIsWrong) {
    for (const char* option : {"--veiw", "--View", "-view", "--", "--view=flow", "---view", "-p",
                               "--points=9", "--flush=1", "--no-flush", "-oout.json"}) {
        ExpectWrongOptions({option}, option);
        ExpectWrongOptions({option, "1"}, option);
    }
}

TEST_F(Usage, OfOptionsWithoutTheirValueIsWrong) {
    for (const char* option :
         {"--view", "--sync", "--delay", "--trigger-value", "--trigger-direction", "--stereo-mode",
          "--block", "--refresh", "--start", "--seconds", "--points", "--size", "-o", "--output",
          "--format"}) {
        ExpectWrongOptions({option}, option);
    }
}

TEST_F(Usage, OfValuesOutOfRangeIsWrong) {
    const std::pair<const char*, Words> cases[] = {
        {"--view", {"flows", "Flow", "", "0", "3", "--sync"}},
        {"--sync", {"2", "-1", "on", "0.5", "", "00"}},
        {"--delay", {"-0.001", "300.001", "1e9", "nan", "inf", "-inf", "x", "10ms", "", "1,5"}},
        {"--trigger-value", {"-1.001", "1.001", "nan", "inf", "up", ""}},
        {"--trigger-direction", {"left", "Up", "0", ""}},
        {"--stereo-mode", {"mono", "ms", "Stereo", "1", ""}},
        {"--block", {"0", "-1", "1.5", "1048577", "1e99", "nan", "512x", ""}},
        {"--refresh", {"-1", "-0.001", "1000001", "nan", "inf", "x", ""}},
        {"--start", {"-1", "-0.001", "1e8", "nan", "inf", "0:30", ""}},
        {"--seconds", {"-1", "-0.001", "1e8", "nan", "inf", "1s", ""}},
        {"--points", {"1", "0", "-5", "1000001", "2.5", "many", "nan", ""}},
        {"--size", {"",          "x",           "800",       "800x",      "x400",
                    "800x400x",  "800x400 ",    "800*400",   "800X400",   "159x120",
                    "160x119",   "0x0",         "-800x400",  "8193x200",  "200x8193",
                    "8192x8192", "99999x99999", "800x400x2", "800.5x400", "4294968096x400"}},
        {"--format", {"jpg", "JSON", "", ".png"}},
    };
    for (const auto& [option, values] : cases) {
        for (const std::string& value : values) {
            ExpectWrongOptions({option, value}, option);
        }
    }
}

TEST_F(Usage, OfValuesAtTheEndsOfTheirRangesIsRight) {
    const std::pair<const char*, Words> cases[] = {
        {"--sync", {"0", "1"}},
        {"--delay", {"0", "300", "0.01", "1e2"}},
        {"--trigger-value", {"-1", "1", "-0", ".5"}},
        {"--block", {"1", "1048576", "5e2"}},
        {"--refresh", {"0", "1000000", "0.5"}},
        {"--start", {"0", "0.04"}},
        {"--seconds", {"10000000", "0.01"}},
        {"--points", {"2", "100000"}},
    };
    for (const auto& [option, values] : cases) {
        for (const std::string& value : values) {
            SCOPED_TRACE(std::string(option) + " " + value);
            EXPECT_EQ(ReadScope(input, {option, value}).curves.size(), 4U);
        }
    }
}

TEST_F(Usage, IsJudgedBeforeAnythingIsRead) {
    // A wrong option is at fault even if the input is, too.
    ExpectWrong({"scope", Path("missing.wav"), "-o", Path("out.json"), "--points", "1"},
                "--points");
}

TEST_F(Usage, IsToldInOneLineWhateverTheWords) {
    ExpectWrongOptions({"--two\nlines"}, "lines");
    ExpectWrongOptions({"--view", "two\nlines"}, "--view");
    ExpectWrongOptions({"--100%s%n"}, "--100%s%n");
    ExpectWrong({"two\nlines"}, "lines");
}

TEST_F(Usage, OfDemoIsChecked) {
    ExpectWrong({"demo"}, "-o");
    ExpectWrong({"demo", "-o"}, "-o");
    ExpectWrong({"demo", "-o", ""}, "-o");
    ExpectWrong({"demo", Path("out.wav")}, Path("out.wav"));
    ExpectWrong({"demo", "--out", Path("out.wav")}, "--out");
}

TEST_F(Usage, OfPresetIsChecked) {
    ExpectWrong({"preset"}, "show or check");
    for (const char* word : {"Show", "list", "", "show.preset"}) {
        ExpectWrong({"preset", word, input}, "show or check");
    }
    ExpectWrong({"preset", input}, input);
    ExpectWrong({"preset", "show"}, "one file");
    ExpectWrong({"preset", "show", input, input}, "one file");
    ExpectWrong({"preset", "check"}, "files");
    ExpectWrong({"preset", "show", input, "--all"}, "--all");
    ExpectWrong({"preset", "check", "-v", input}, "-v");
    ExpectWrong({"preset", "--"}, "--");
}

TEST_F(Usage, ShowsProgressOnATerminalAlone) {
    if (access("/dev/pts/ptmx", F_OK) != 0) {
        GTEST_SKIP() << "this machine gives out no terminals";
    }
    const Words words = {"scope", input, "-o", "-", "--format", "json", "--block", "4"};
    const CRun piped = RunOndara(words);
    ExpectSuccess(piped);
    const CRun shown = RunOndara(words, {.onTerminal = true});
    EXPECT_EQ(shown.status, 0);
    EXPECT_EQ(shown.out, piped.out);
    EXPECT_NE(shown.err.find("\r 50%"), std::string::npos) << shown.err;
    EXPECT_NE(shown.err.find("\r100%"), std::string::npos) << shown.err;
    EXPECT_TRUE(shown.err.ends_with("\r    \r")) << "the line is not wiped";
    EXPECT_EQ(shown.err.find('\n'), std::string::npos);
}

} // namespace
} // namespace WorkbenchTests
