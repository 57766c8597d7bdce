#pragma once

#include <string>
#include <vector>

namespace WorkbenchTests {

/// What stands around a run of the program.
struct CSurroundings {
    /// How many bytes it may write into a file; -1 for no limit.
    long fileSizeLimit = -1;
    /// Takes from it the rights that a superuser has over others' files.
    bool withoutRights = false;
    /// Its standard error is a terminal.
    bool onTerminal = false;
    /// Where its standard output goes, when not to the test.
    std::string outputTo = {};
};

/// What a run of the program left behind.
struct CRun {
    int status = -1; ///< its exit status; 1000 and the signal's number when it was killed
    std::string out = {};
    std::string err = {};
};

/// Runs the program with these words on its command line. No shell is in between.
CRun RunOndara(const std::vector<std::string>& words, const CSurroundings& surroundings = {});

} // namespace WorkbenchTests
