#pragma once

#include <cstddef>
#include <cstdint>

namespace Vorin::Graphics {

/// value * alpha / 255, rounded down, for values and alphas of 0 to 255.
constexpr std::uint32_t ScaleByAlpha(std::uint32_t value, std::uint32_t alpha) {
    // Dividing by 255 as multiplications go; exact up to 255 * 255.
    const std::uint32_t product = value * alpha + 1;
    return (product + (product >> 8)) >> 8;
}

/// Turns pixels of bytes A, R, G, B in place into words 0xAARRGGBB with the colours premultiplied
/// by alpha. Returns what all alphas have in common: 0xFF exactly when each pixel is opaque.
inline std::uint8_t PremultiplyPixels(std::uint32_t* pixels, std::size_t count) {
    std::uint32_t common = 0xFF;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t bytes = pixels[i]; // little-endian: A lowest
        const std::uint32_t alpha = bytes & 0xFF;
        const std::uint32_t red = ScaleByAlpha((bytes >> 8) & 0xFF, alpha);
        const std::uint32_t green = ScaleByAlpha((bytes >> 16) & 0xFF, alpha);
        const std::uint32_t blue = ScaleByAlpha(bytes >> 24, alpha);
        pixels[i] = (alpha << 24) | (red << 16) | (green << 8) | blue;
        common &= alpha;
    }
    return static_cast<std::uint8_t>(common);
}

} // namespace Vorin::Graphics
