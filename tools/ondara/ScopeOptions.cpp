#include "ScopeOptions.h"

#include <functional>
#include <map>

namespace Workbench {

const char* const kScopeHelp =
    R"(usage: ondara scope IN [options] -o OUT

Runs a sound file through the oscilloscope and gives its curves as they stand after the last frame.
A mono file feeds both channels; of more than two channels the first two are read.

OUT ends in .png (a picture), .csv (columns curve,x,y) or .json; "-" with --format writes to the
standard output. In JSON a value that is no number is null, an infinite one 1e999 or -1e999.

what is shown
  --view flow|loop|trigger       how the trace stands (flow)
  --sync 0|1                     a change of it restarts the display (0)
  --delay MS                     0 to 300 (0)
  --trigger-value V              -1 to 1 (0)
  --trigger-direction up|down    (up)
  --stereo-mode stereo|mid-side  (stereo)
  --bypass                       feed the oscilloscope silence

how it is run
  --start S                      begin S seconds into the file (0)
  --seconds S                    take no more than S seconds
  --block FRAMES                 frames per block, 1 to 1048576 (512)
  --refresh HZ                   refreshes per second, 0 for one per block (50)
  --flush                        refresh once more after the last frame

what is written
  -o, --output OUT
  --format png|csv|json          whatever the name of OUT says
  --points N                     points per curve in .csv and .json, 2 to 1000000 (512)
  --size WxH                     of the picture in pixels, 160x120 to 8192x8192 and no more than
                                 16 million in all (800x400)
)";

namespace {

constexpr int kMinWidth = 160;
constexpr int kMinHeight = 120;
constexpr int kMaxSide = 8192;
constexpr int kMaxPixels = 16'000'000;
constexpr double kMaxSeconds = 1e7;

COutcome TakeIndexed(CArguments& arguments, double& value,
                     const std::vector<std::string_view>& choices) {
    int index = 0;
    COutcome outcome = arguments.TakeChoice(index, choices);
    if (outcome) {
        value = index;
    }
    return outcome;
}

COutcome TakeSize(CArguments& arguments, CScopeOptions& options) {
    std::string text;
    if (COutcome outcome = arguments.TakeText(text); !outcome) {
        return outcome;
    }
    int width = 0;
    int height = 0;
    char rest = '\0';
    if (std::sscanf(text.c_str(), "%5dx%5d%c", &width, &height, &rest) != 2) {
        return COutcome::WrongUsage("--size: \"" + text + "\" is not of the form 800x400");
    }
    if (width < kMinWidth || height < kMinHeight || width > kMaxSide || height > kMaxSide ||
        width * height > kMaxPixels) {
        return COutcome::WrongUsage("--size: " + text +
                                    " is out of range, which is 160x120 to 8192x8192 and no more "
                                    "than 16 million pixels");
    }
    options.width = width;
    options.height = height;
    return {};
}

/// The format that the end of a name stands for. False when it stands for none.
bool FindFormat(const std::string& name, EFormat& format) {
    const std::pair<std::string_view, EFormat> endings[] = {
        {".png", kPng}, {".csv", kCsv}, {".json", kJson}};
    for (const auto& [ending, meant] : endings) {
        if (name.size() > ending.size() && name.ends_with(ending)) {
            format = meant;
            return true;
        }
    }
    return false;
}

using Taker = std::function<COutcome(CArguments&, CScopeOptions&)>;

const std::map<std::string_view, Taker>& GetTakers() {
    using A = CArguments;
    using O = CScopeOptions;
    const auto on = [](bool O::*flag) {
        return [flag](A&, O& o) {
            o.*flag = true;
            return COutcome();
        };
    };
    const auto choice = [](double O::*field, const std::vector<std::string_view>& words) {
        return [field, words](A& a, O& o) { return TakeIndexed(a, o.*field, words); };
    };
    const auto number = [](double O::*field, double least, double most) {
        return [=](A& a, O& o) { return a.TakeNumber(o.*field, least, most); };
    };
    const auto integer = [](int O::*field, int least, int most) {
        return [=](A& a, O& o) { return a.TakeInteger(o.*field, least, most); };
    };
    const auto output = [](A& a, O& o) { return a.TakeText(o.output); };
    static const std::map<std::string_view, Taker> takers = {
        {"--view", choice(&O::view, {"flow", "loop", "trigger"})},
        {"--sync", choice(&O::sync, {"0", "1"})},
        {"--delay", number(&O::delayMilliseconds, 0.0, 300.0)},
        {"--trigger-value", number(&O::triggerValue, -1.0, 1.0)},
        {"--trigger-direction", choice(&O::triggerDirection, {"up", "down"})},
        {"--stereo-mode", choice(&O::stereoMode, {"stereo", "mid-side"})},
        {"--bypass", on(&O::bypass)},
        {"--block", integer(&O::blockFrames, 1, 1 << 20)},
        {"--refresh", number(&O::refreshHz, 0.0, 1e6)},
        {"--start", number(&O::startSeconds, 0.0, kMaxSeconds)},
        {"--seconds", number(&O::seconds, 0.0, kMaxSeconds)},
        {"--flush", on(&O::flush)},
        {"--points", integer(&O::points, 2, 1'000'000)},
        {"--size", TakeSize},
        {"-o", output},
        {"--output", output},
        {"--help", on(&O::help)},
        {"-h", on(&O::help)},
    };
    return takers;
}

} // namespace

COutcome ParseScopeOptions(CArguments& arguments, CScopeOptions& options) {
    bool formatGiven = false;
    while (arguments.Next()) {
        const std::string& word = arguments.Get();
        if (!arguments.IsOption()) {
            if (!options.input.empty()) {
                return COutcome::WrongUsage(word + ": there is an input file already, " +
                                            options.input);
            }
            options.input = word;
            continue;
        }
        if (word == "--format") {
            int index = 0;
            if (COutcome outcome = arguments.TakeChoice(index, {"png", "csv", "json"}); !outcome) {
                return outcome;
            }
            options.format = static_cast<EFormat>(index);
            formatGiven = true;
            continue;
        }
        const auto found = GetTakers().find(word);
        if (found == GetTakers().end()) {
            return COutcome::WrongUsage(word +
                                        ": there is no such option; see ondara scope --help");
        }
        if (COutcome outcome = found->second(arguments, options); !outcome) {
            return outcome;
        }
    }
    if (options.help) {
        return {};
    }
    if (options.input.empty()) {
        return COutcome::WrongUsage("IN: name the sound file to read; see ondara scope --help");
    }
    if (options.output.empty()) {
        return COutcome::WrongUsage("-o: name the file to write; see ondara scope --help");
    }
    if (!formatGiven && !FindFormat(options.output, options.format)) {
        return COutcome::WrongUsage(options.output +
                                    ": should end in .png, .csv or .json, or come with --format");
    }
    return {};
}

} // namespace Workbench
