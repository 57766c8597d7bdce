// What a run leaves where its result goes.

#include "ProgramTest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace WorkbenchTests {
namespace {

class OutputFile : public CProgramTest {
protected:
    Words ScopeTo(const std::string& output) const { return {"scope", input, "-o", output}; }

    void ExpectBadOutput(const std::string& output, const CSurroundings& surroundings = {}) const {
        ExpectRefused(Words{"scope", input, "-o", output, "--format", "json"}, 1, output,
                      surroundings);
        ExpectRefused({"demo", "-o", output}, 1, output, surroundings);
    }

    const std::string input = MakeFile("in.wav", MakeSound(8000, 2, 4000), kWav16);
};

TEST_F(OutputFile, IsTheOnlyThingThatARunLeaves) {
    for (const char* name : {"out.json", "out.csv", "out.png"}) {
        auto expected = folder.List();
        ExpectSuccess(RunOndara(ScopeTo(Path(name))));
        auto found = folder.List();
        EXPECT_EQ(found.erase(name), 1U);
        expected.erase(name);
        EXPECT_TRUE(found == expected);
    }
}

TEST_F(OutputFile, ReplacesAnOlderOne) {
    folder.Write("out.json", std::string(1000000, 'x'));
    ExpectSuccess(RunOndara(ScopeTo(Path("out.json"))));
    EXPECT_EQ(folder.Read("out.json"), RunScope(input, "json"));
}

TEST_F(OutputFile, HasTheRightsOfAnyNewFile) {
    folder.Write("any", "");
    ExpectSuccess(RunOndara(ScopeTo(Path("out.json"))));
    struct stat any {};
    struct stat out {};
    ASSERT_EQ(stat(Path("any").c_str(), &any), 0);
    ASSERT_EQ(stat(Path("out.json").c_str(), &out), 0);
    EXPECT_EQ(out.st_mode, any.st_mode);
}

TEST_F(OutputFile, MayHaveALongName) {
    const std::string name = std::string(250, 'n') + ".json"; // as long as names get
    ExpectSuccess(RunOndara(ScopeTo(Path(name))));
    EXPECT_EQ(folder.Read(name), RunScope(input, "json"));
}

TEST_F(OutputFile, ThatIsTheSoundFileIsRefused) {
    ExpectRefused({"scope", input, "-o", input, "--format", "json"}, 2, input);
    ASSERT_EQ(symlink(input.c_str(), Path("link.csv").c_str()), 0);
    ExpectRefused({"scope", input, "-o", Path("link.csv")}, 2, Path("link.csv"));
}

TEST_F(OutputFile, ThatIsAFolderIsRefused) {
    std::filesystem::create_directory(Path("out.json"));
    ExpectBadOutput(Path("out.json"));
    ExpectBadOutput(Path("out.json/"));
    ExpectBadOutput(Path("."));
}

TEST_F(OutputFile, InAFolderThatIsMissingIsRefused) {
    ExpectBadOutput(Path("missing/out.json"));
    ExpectBadOutput(Path("in.wav/out.json"));
    ExpectBadOutput("/dev/null/out.json");
}

TEST_F(OutputFile, InAFolderThatMayNotBeWrittenIsRefused) {
    std::filesystem::create_directory(Path("locked"));
    std::filesystem::permissions(Path("locked"), std::filesystem::perms(0555));
    ExpectBadOutput(Path("locked/out.json"), {.withoutRights = true});
}

TEST_F(OutputFile, WithTooLongANameIsRefused) {
    ExpectBadOutput(Path(std::string(300, 'n') + ".json"));
}

TEST_F(OutputFile, StaysAsItWasWhenTheInputIsAtFault) {
    WriteSound(Path("whole.flac"), MakeSound(8000, 2, 20000), kFlac16);
    const std::string flac = folder.Read("whole.flac");
    folder.Write("cut.flac", flac.substr(0, flac.size() / 2));
    folder.Write("text.wav", "text");
    for (const char* output : {"out.json", "out.csv", "out.png"}) {
        folder.Write(output, "what was there before");
        for (const char* name : {"missing.wav", "text.wav", "cut.flac"}) {
            ExpectRefused({"scope", Path(name), "-o", Path(output)}, 1, Path(name));
        }
        ExpectRefused({"scope", input, "-o", Path(output), "--points", "0"}, 2, "--points");
    }
}

TEST_F(OutputFile, StaysAsItWasWhenTheDiskIsFull) {
    const CSurroundings fullDisk{.fileSizeLimit = 1000};
    for (const char* name : {"out.json", "out.csv", "out.png"}) {
        ExpectRefused(ScopeTo(Path(name)), 1, Path(name), fullDisk);
        folder.Write(name, "what was there before");
        ExpectRefused(ScopeTo(Path(name)), 1, Path(name), fullDisk);
    }
    ExpectRefused({"demo", "-o", Path("demo.wav")}, 1, Path("demo.wav"), fullDisk);
}

TEST_F(OutputFile, MayBeADevice) {
    ExpectSuccess(RunOndara({"scope", input, "-o", "/dev/null", "--format", "json"}));
    EXPECT_EQ(Run({"scope", input, "-o", "/dev/stdout", "--format", "json"}),
              RunScope(input, "json"));
    ExpectBadOutput("/dev/full");
}

TEST_F(OutputFile, StandardOutputThatTakesNothingIsAFault) {
    for (const Words& words :
         {Words{"scope", input, "-o", "-", "--format", "png"}, Words{"demo", "-o", "-"},
          Words{"--help"}, Words{"scope", "--help"}}) {
        ExpectRefused(words, 1, "standard output", {.outputTo = "/dev/full"});
    }
}

TEST_F(OutputFile, MayBeReachedByALink) {
    folder.Write("real.json", "old");
    std::filesystem::create_symlink("real.json", Path("link.json"));
    ExpectSuccess(RunOndara(ScopeTo(Path("link.json"))));
    EXPECT_EQ(folder.Read("link.json"), RunScope(input, "json"));
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link.json")));
    EXPECT_EQ(folder.Read("real.json"), RunScope(input, "json"));
}

} // namespace
} // namespace WorkbenchTests
