#include "Commands.h"

#include "DemoSound.h"
#include "SoundFile.h"

#include <cstdio>

namespace Workbench {

namespace {

constexpr const char* kDemoHelp = R"(usage: ondara demo -o OUT.wav

Writes a few seconds of music that the program makes itself, to have something to look at.
)";

} // namespace

COutcome RunDemo(CArguments& arguments) {
    std::string output;
    while (arguments.Next()) {
        const std::string word = arguments.Get();
        if (word == "--help" || word == "-h") {
            std::fputs(kDemoHelp, stdout);
            return {};
        }
        if (word != "-o" && word != "--output") {
            return COutcome::WrongUsage(word + ": is not understood; see ondara demo --help");
        }
        if (COutcome outcome = arguments.TakeText(output); !outcome) {
            return outcome;
        }
    }
    if (output.empty()) {
        return COutcome::WrongUsage("-o: name the file to write; see ondara demo --help");
    }
    const CDemoSound sound;
    return WriteWav(output, sound.left, sound.right, CDemoSound::kSampleRate);
}

} // namespace Workbench
