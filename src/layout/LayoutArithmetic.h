#pragma once

#include "core/Geometry.h"

#include <cstdint>
#include <limits>

/// How layout computes: sizes and positions are whole pixels that stop at the ends of an int,
/// fractions and flex are 32-bit floats. Plain functions, free to use from any thread.
namespace Vorin::Layout {

/// The two axes of the screen. What a row does along one, a column does along the other.
enum class EAxis { kHorizontal, kVertical };

constexpr EAxis Across(EAxis axis) {
    return axis == EAxis::kHorizontal ? EAxis::kVertical : EAxis::kHorizontal;
}

constexpr int& On(EAxis axis, Core::C2DSize& size) {
    return axis == EAxis::kHorizontal ? size.width : size.height;
}
constexpr int On(EAxis axis, const Core::C2DSize& size) {
    return axis == EAxis::kHorizontal ? size.width : size.height;
}
constexpr int& On(EAxis axis, Core::C2DPoint& point) {
    return axis == EAxis::kHorizontal ? point.x : point.y;
}
constexpr int On(EAxis axis, const Core::C2DPoint& point) {
    return axis == EAxis::kHorizontal ? point.x : point.y;
}

/// Toward zero. What lies outside the range of int stops at its end, and NaN gives 0: fractions
/// come from skins.
constexpr int TruncateToInt(double value) {
    constexpr double kEnd = 2147483648.0;
    if (value >= kEnd) {
        return std::numeric_limits<int>::max();
    }
    if (value < -kEnd) {
        return std::numeric_limits<int>::min();
    }
    return value != value ? 0 : static_cast<int>(value);
}

/// To the nearest, halves away from zero. In double precision: adding 0.5 to a float that lies just
/// below a half gives the whole number above.
constexpr int RoundToInt(float value) {
    return TruncateToInt(value >= 0.0F ? value + 0.5 : value - 0.5);
}

/// `fraction` of what `extent` leaves between two margins.
constexpr int TakeFraction(int extent, int margin, float fraction) {
    const int inner = Core::SaturateToInt(extent - 2 * std::int64_t{margin});
    return TruncateToInt(static_cast<float>(inner) * fraction);
}

/// Shares out free space by flex factors in whole pixels. The rounding error of each share is
/// carried into the next one, so that the shares add up to the whole.
class CFlexShares {
public:
    /// `pixelsPerFlex` is the free space divided by the sum of all factors.
    explicit CFlexShares(float pixelsPerFlex) : perFlex(pixelsPerFlex) {}

    int Take(float flex) {
        const float exact = perFlex * flex + error;
        const int share = RoundToInt(exact);
        error = exact - static_cast<float>(share);
        return share;
    }

private:
    float perFlex;
    float error = 0.0F;
};

} // namespace Vorin::Layout
