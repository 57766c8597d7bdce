#include "Commands.h"
#include "Printable.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>

namespace {

using namespace Workbench;

constexpr const char* kHelp = R"(usage: ondara COMMAND ...

The workbench of the Ondara oscilloscope.

  scope   run a sound file through the oscilloscope, and write its curves or a picture
  demo    write a few seconds of sound to look at
  preset  look into presets, and say whether they would load
  formula evaluate a formula of the skin language
  skin    read a skin document, and print what it expands to
  model   load a model of the skin language, and try it

ondara COMMAND --help says more. Results go to the standard output or to a file, messages to the
standard error. The exit status is 0 on success, 1 when the input is at fault, 2 on wrong usage.
)";

struct CCommand {
    const char* name;
    COutcome (*run)(CArguments&);
};

constexpr CCommand kCommands[] = {
    {"scope", RunScope},     {"demo", RunDemo}, {"preset", RunPreset},
    {"formula", RunFormula}, {"skin", RunSkin}, {"model", RunModel},
};

COutcome Run(int count, char** words) {
    if (count < 2) {
        return COutcome::WrongUsage("COMMAND: say what to do; see ondara --help");
    }
    if (std::strcmp(words[1], "--help") == 0 || std::strcmp(words[1], "-h") == 0) {
        std::fputs(kHelp, stdout);
        return {};
    }
    for (const CCommand& command : kCommands) {
        if (std::strcmp(words[1], command.name) == 0) {
            CArguments arguments(std::vector<std::string>(words + 2, words + count));
            return command.run(arguments);
        }
    }
    return COutcome::WrongUsage(std::string(words[1]) +
                                ": there is no such command; see ondara --help");
}

/// Help goes out with the last flush, which may fail.
COutcome Flush() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return COutcome::BadInput(std::string("standard output: cannot be written: ") +
                                  std::strerror(errno));
    }
    return {};
}

} // namespace

int main(int count, char** words) {
    COutcome outcome;
    try {
        outcome = Run(count, words);
        if (outcome) {
            outcome = Flush();
        }
    } catch (const std::exception& error) {
        outcome = COutcome::BadInput(std::string("the work cannot be done: ") + error.what());
    }
    // A command whose messages say it all leaves none.
    if (!outcome && !outcome.message.empty()) {
        // One line, whatever stands in the names that it quotes.
        std::fprintf(stderr, "ondara: %s\n", Printable(outcome.message).c_str());
    }
    return outcome.exit;
}
