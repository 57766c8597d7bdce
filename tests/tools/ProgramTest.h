#pragma once

#include "Curves.h"
#include "Program.h"
#include "Sounds.h"
#include "files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace WorkbenchTests {

using TestFiles::CTemporaryFolder;
using Words = std::vector<std::string>;

inline Words operator+(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

/// Tests that run the program on files of a folder of their own.
class CProgramTest : public ::testing::Test {
protected:
    std::string Path(const std::string& name) const { return folder.Path(name); }

    /// Makes a sound file, and gives its path.
    std::string MakeFile(const std::string& name, const CSound& sound, int format) const {
        WriteSound(Path(name), sound, format);
        return Path(name);
    }

    static void ExpectSuccess(const CRun& run) {
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
    }

    /// A run that gives its result on its standard output.
    static std::string Run(const Words& words, const CSurroundings& surroundings = {}) {
        const CRun run = RunOndara(words, surroundings);
        ExpectSuccess(run);
        return run.out;
    }

    static std::string RunScope(const std::string& input, const std::string& format,
                                const Words& options = {}) {
        return Run(Words{"scope", input, "-o", "-", "--format", format} + options);
    }

    static CReadDocument ReadScope(const std::string& input, const Words& options = {}) {
        return ReadJsonCurves(RunScope(input, "json", options));
    }

    /// Runs the program in vain: it says why in one line, which names what is at fault, writes
    /// nothing else, and leaves the folder as it was.
    void ExpectRefused(const Words& words, int status, const std::string& named,
                       const CSurroundings& surroundings = {}) const {
        std::string all;
        for (const std::string& word : words) {
            all += " " + word;
        }
        SCOPED_TRACE("ondara" + all);
        const auto before = folder.List();
        const CRun run = RunOndara(words, surroundings);
        EXPECT_EQ(run.status, status);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
        EXPECT_EQ(run.err.find('\n') + 1, run.err.size()) << run.err;
        EXPECT_NE(run.err.find(named), std::string::npos) << run.err << "does not name " << named;
        EXPECT_TRUE(folder.List() == before) << "the folder has changed";
    }

    CTemporaryFolder folder;
};

} // namespace WorkbenchTests
