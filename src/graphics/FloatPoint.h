#pragma once

namespace Vorin::Graphics {

/// A position between the pixels, in pixels, y growing downwards. Pixel (i, j) lies at (i, j).
struct C2DFloatPoint {
    float x = 0.0f;
    float y = 0.0f;

    friend constexpr bool operator==(const C2DFloatPoint&, const C2DFloatPoint&) = default;
};

} // namespace Vorin::Graphics
