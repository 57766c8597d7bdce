#pragma once

#include <sndfile.h>
#include <string>
#include <vector>

namespace WorkbenchTests {

/// A sound as its channels, each a row of samples.
struct CSound {
    int rate = 8000;
    std::vector<std::vector<float>> channels = {};

    int GetFrames() const { return static_cast<int>(channels.at(0).size()); }
    const std::vector<float>& GetLeft() const { return channels.at(0); }
    /// A mono sound is the same on both sides.
    const std::vector<float>& GetRight() const { return channels.at(channels.size() > 1 ? 1 : 0); }
};

inline constexpr int kWav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
inline constexpr int kWav24 = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
inline constexpr int kWavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
inline constexpr int kFlac16 = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;
inline constexpr int kFlac24 = SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
inline constexpr int kOgg = SF_FORMAT_OGG | SF_FORMAT_VORBIS;

/// Writes a sound file in one of libsndfile's formats.
void WriteSound(const std::string& path, const CSound& sound, int format);

/// The sound of a file as libsndfile decodes it from its first frame on.
CSound ReadSound(const std::string& path);

/// A sound to look at: in each channel a swinging tone with other speed and height under noise,
/// with a few peaks beyond full scale and a silent stretch. The same each time.
CSound MakeSound(int rate, int channels, int frames);

/// A mono sound of these samples.
CSound MakeMono(int rate, const std::vector<float>& samples);

/// The frames [first, first + count) of a sound, as far as there are any.
CSound Cut(const CSound& sound, int first, int count);

} // namespace WorkbenchTests
