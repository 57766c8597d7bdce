#include "Commands.h"

#include "CurveText.h"
#include "OutputFile.h"
#include "Png.h"
#include "ScopeOptions.h"
#include "ScopePicture.h"
#include "ScopeRun.h"
#include "SoundFile.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <unistd.h>

namespace Workbench {

namespace {

/// Shows on a terminal how far the work has come, and nothing elsewhere.
class CProgress {
public:
    explicit CProgress(std::int64_t whole) : total(whole), isShown(isatty(STDERR_FILENO) != 0) {}
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;
    ~CProgress() {
        if (percent >= 0) {
            std::fputs("\r    \r", stderr);
        }
    }

    void Show(std::int64_t done) {
        const int now = static_cast<int>(100 * done / std::max<std::int64_t>(total, 1));
        if (isShown && now != percent) {
            percent = now;
            std::fprintf(stderr, "\r%3d%%", percent);
        }
    }

private:
    std::int64_t total;
    bool isShown;
    int percent = -1;
};

std::int64_t ToFrames(double seconds, double sampleRate) {
    return static_cast<std::int64_t>(seconds * sampleRate + 0.5);
}

/// The part of the file that was asked for, as its first frame and its count of frames.
COutcome FindRange(const CScopeOptions& options, const CSoundFile& sound, std::int64_t& first,
                   std::int64_t& count) {
    first = ToFrames(options.startSeconds, sound.GetSampleRate());
    if (first >= sound.GetFrames()) {
        return COutcome::BadInput(options.input +
                                  ": ends before the start that was asked for: it has " +
                                  std::to_string(sound.GetFrames()) +
                                  " frames, and --start is frame " + std::to_string(first));
    }
    count = sound.GetFrames() - first;
    if (options.seconds >= 0.0) {
        count = std::min(count, ToFrames(options.seconds, sound.GetSampleRate()));
    }
    if (count == 0) {
        return COutcome::BadInput(options.input + ": --seconds takes in 0 frames");
    }
    return {};
}

COutcome CheckOutput(const CScopeOptions& options) {
    std::error_code none;
    if (std::filesystem::equivalent(options.input, options.output, none)) {
        return COutcome::WrongUsage(options.output +
                                    ": is the sound file itself; name another OUT");
    }
    return CheckWritable(options.output);
}

COutcome Feed(CSoundFile& sound, std::int64_t frames, int blockFrames, CScopeRun& run) {
    std::vector<float> left(static_cast<std::size_t>(blockFrames));
    std::vector<float> right(left.size());
    CProgress progress(frames);
    std::int64_t done = 0;
    while (done < frames) {
        const int wanted = static_cast<int>(std::min<std::int64_t>(frames - done, blockFrames));
        int got = 0;
        if (COutcome outcome = sound.Read(left.data(), right.data(), wanted, got); !outcome) {
            return outcome;
        }
        run.Process(left.data(), right.data(), got);
        done += got;
        progress.Show(done);
    }
    return {};
}

COutcome WriteCurves(const CScopeOptions& options, CScopeRun& run, double sampleRate,
                     std::int64_t frames) {
    const Vorin::Core::C2DSize size{options.width, options.height};
    const int points = options.format == kPng ? GetPicturePoints(size) : options.points;
    std::vector<CCurve> curves;
    curves.reserve(static_cast<std::size_t>(run.GetCurvesCount()));
    for (int i = 0; i < run.GetCurvesCount(); ++i) {
        curves.push_back(run.ReadCurve(i, points));
    }
    std::string bytes;
    if (options.format == kCsv) {
        bytes = WriteCsv(curves);
    } else if (options.format == kJson) {
        bytes = WriteJson(curves, sampleRate, frames);
    } else {
        Vorin::Graphics::CDIBBitmap bitmap(size, 32);
        DrawScope(curves, bitmap);
        if (COutcome outcome = EncodePng(bitmap, bytes); !outcome) {
            return outcome;
        }
    }
    return WriteOutput(options.output, bytes);
}

} // namespace

COutcome RunScope(CArguments& arguments) {
    CScopeOptions options;
    if (COutcome outcome = ParseScopeOptions(arguments, options); !outcome) {
        return outcome;
    }
    if (options.help) {
        std::fputs(kScopeHelp, stdout);
        return {};
    }
    CSoundFile sound;
    if (COutcome outcome = sound.Open(options.input); !outcome) {
        return outcome;
    }
    std::int64_t first = 0;
    std::int64_t frames = 0;
    if (COutcome outcome = FindRange(options, sound, first, frames); !outcome) {
        return outcome;
    }
    if (COutcome outcome = CheckOutput(options); !outcome) {
        return outcome;
    }
    if (COutcome outcome = sound.Seek(first); !outcome) {
        return outcome;
    }
    CScopeRun run(options);
    if (COutcome outcome = run.Begin(sound.GetSampleRate()); !outcome) {
        return outcome;
    }
    if (COutcome outcome = Feed(sound, frames, options.blockFrames, run); !outcome) {
        return outcome;
    }
    if (options.flush) {
        run.Flush();
    }
    return WriteCurves(options, run, sound.GetSampleRate(), frames);
}

} // namespace Workbench
