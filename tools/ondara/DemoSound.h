#pragma once

#include <vector>

namespace Workbench {

/// A few seconds of music that this program makes itself: a plucked bass, nearly in the middle,
/// over a drum pattern whose cymbal stands to the sides. The same sound each time.
struct CDemoSound {
    static constexpr int kSampleRate = 48000;

    CDemoSound();

    std::vector<float> left;
    std::vector<float> right;
};

} // namespace Workbench
