#pragma once

#include <cstdint>

namespace Vorin::Containers {

/// The hash of a text: for each byte, as a signed character, `h = c + h * 5`, starting at 0.
///
/// In unsigned arithmetic modulo 2^32, so that no text overflows; the empty text gives 0. It is
/// no defence against texts chosen to collide: readers of foreign files bound how many they keep.
inline std::uint32_t GetTextHash(const char* text) {
    std::uint32_t hash = 0;
    for (; *text; ++text) {
        hash = static_cast<std::uint32_t>(static_cast<signed char>(*text)) + hash * 5u;
    }
    return hash;
}

} // namespace Vorin::Containers
