#pragma once

#include "Outcome.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct sf_private_tag;

namespace Workbench {

/// A sound file being read as a stereo stream: WAV, FLAC, OGG and whatever else libsndfile reads. A
/// mono file feeds both channels; of more than two channels the first two are read.
class CSoundFile {
public:
    COutcome Open(const std::string& path);

    double GetSampleRate() const { return sampleRate; }
    /// As the file announces them.
    std::int64_t GetFrames() const { return frames; }

    /// Goes on from a frame. Once, before the first Read.
    COutcome Seek(std::int64_t frame);

    /// Reads up to `count` frames into both arrays; `got` is below `count` at the end alone. A file
    /// that ends before it announced is an error.
    COutcome Read(float* left, float* right, int count, int& got);

private:
    struct CClose {
        void operator()(sf_private_tag* file) const;
    };

    COutcome CheckWhole() const;
    COutcome SkipTo(std::int64_t frame);

    std::string path;
    std::unique_ptr<sf_private_tag, CClose> file;
    double sampleRate = 0.0;
    std::int64_t frames = 0;
    std::int64_t position = 0;
    int channels = 0;
    /// In the last page of an Ogg stream libsndfile lands a few hundred frames off; there, as in
    /// all that is decoded from what came before, the way to a frame leads through those before it.
    bool seeksExactly = true;
    std::vector<float> interleaved;
};

/// Writes a stereo sound as a 24-bit WAV file, as a whole or not at all.
COutcome WriteWav(const std::string& path, const std::vector<float>& left,
                  const std::vector<float>& right, int sampleRate);

} // namespace Workbench
