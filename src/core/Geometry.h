#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

/// Positions, distances and areas in whole pixels, y growing downwards.
///
/// Plain values, free to use from any thread. Sums that leave the range of an int stop at its end
/// instead of overflowing: coordinates come from skins and hosts, and a far coordinate must stay
/// far.

namespace Vorin::Core {

/// The nearest int to a value that may lie outside the range of int.
constexpr int SaturateToInt(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

constexpr int SaturatedSum(int a, int b) { return SaturateToInt(std::int64_t{a} + b); }
constexpr int SaturatedDifference(int a, int b) { return SaturateToInt(std::int64_t{a} - b); }

/// A distance between two positions.
struct C2DVector {
    int x = 0;
    int y = 0;

    friend constexpr bool operator==(const C2DVector&, const C2DVector&) = default;

    constexpr C2DVector operator-() const {
        return {SaturatedDifference(0, x), SaturatedDifference(0, y)};
    }
    constexpr C2DVector operator+(const C2DVector& other) const {
        return {SaturatedSum(x, other.x), SaturatedSum(y, other.y)};
    }
    constexpr C2DVector operator-(const C2DVector& other) const {
        return {SaturatedDifference(x, other.x), SaturatedDifference(y, other.y)};
    }
};

/// A position: the pixel whose top left corner it names.
struct C2DPoint {
    int x = 0;
    int y = 0;

    friend constexpr bool operator==(const C2DPoint&, const C2DPoint&) = default;

    constexpr C2DPoint operator+(const C2DVector& offset) const {
        return {SaturatedSum(x, offset.x), SaturatedSum(y, offset.y)};
    }
    constexpr C2DPoint operator-(const C2DVector& offset) const {
        return {SaturatedDifference(x, offset.x), SaturatedDifference(y, offset.y)};
    }
    constexpr C2DVector operator-(const C2DPoint& from) const {
        return {SaturatedDifference(x, from.x), SaturatedDifference(y, from.y)};
    }
};

/// The extent of an area. Empty when a side is 0 or less.
struct C2DSize {
    int width = 0;
    int height = 0;

    friend constexpr bool operator==(const C2DSize&, const C2DSize&) = default;

    constexpr bool IsEmpty() const { return width <= 0 || height <= 0; }
};

/// An area of pixels: the right and bottom edges lie outside it. Empty when a side is 0 or less.
struct C2DRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    C2DRectangle() = default;
    constexpr C2DRectangle(int left, int top, int w, int h)
        : x(left), y(top), width(w), height(h) {}
    constexpr C2DRectangle(const C2DPoint& position, const C2DSize& size)
        : x(position.x), y(position.y), width(size.width), height(size.height) {}

    friend constexpr bool operator==(const C2DRectangle&, const C2DRectangle&) = default;

    constexpr C2DPoint GetPosition() const { return {x, y}; }
    constexpr C2DSize GetSize() const { return {width, height}; }
    constexpr bool IsEmpty() const { return width <= 0 || height <= 0; }

    /// The first column right of the area and the first row below it, exact for every rectangle.
    constexpr std::int64_t GetRight() const { return std::int64_t{x} + width; }
    constexpr std::int64_t GetBottom() const { return std::int64_t{y} + height; }

    /// True when `point` is one of the pixels of the area.
    constexpr bool Contains(const C2DPoint& point) const {
        return point.x >= x && point.x < GetRight() && point.y >= y && point.y < GetBottom();
    }

    /// The common area: the larger left and top, the smaller right and bottom, the sides never
    /// below 0.
    constexpr C2DRectangle Intersect(const C2DRectangle& other) const {
        const int left = std::max(x, other.x);
        const int top = std::max(y, other.y);
        const std::int64_t right = std::min(GetRight(), other.GetRight());
        const std::int64_t bottom = std::min(GetBottom(), other.GetBottom());
        return {left, top, SaturateToInt(std::max<std::int64_t>(right - left, 0)),
                SaturateToInt(std::max<std::int64_t>(bottom - top, 0))};
    }

    /// True when the two areas have a pixel in common.
    constexpr bool Intersects(const C2DRectangle& other) const {
        return !Intersect(other).IsEmpty();
    }

    /// The same area at another place.
    constexpr C2DRectangle Moved(const C2DVector& offset) const {
        return {GetPosition() + offset, GetSize()};
    }
};

} // namespace Vorin::Core
