#pragma once

#include <cstdint>

namespace Vorin::Graphics {

/// A colour: 8 bits a channel, no alpha.
struct RGB {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend constexpr bool operator==(const RGB&, const RGB&) = default;
};

} // namespace Vorin::Graphics
