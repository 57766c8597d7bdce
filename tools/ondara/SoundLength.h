#pragma once

#include <cstdint>
#include <string>

namespace Workbench {

/// The sound of a file in bytes: what its header announces, and what stands behind the header.
struct CSoundLength {
    std::uint64_t announced = 0;
    std::uint64_t present = 0;
};

/// Measures a WAV (RF64 and Wave64 among them), AIFF, CAF or AU file, of which libsndfile reads as
/// much as there is without a word. False for every other file, and where the writer of the header
/// could not know the length because it wrote to a pipe.
bool MeasureSound(const std::string& path, CSoundLength& length);

} // namespace Workbench
