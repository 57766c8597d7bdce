#pragma once

#include <cassert>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "graphics/LineClip.h"

/// The pixel routines behind TDIBSurface: lines and smooth points in pixel memory of any format.
///
/// They know a pixel memory and a clip, and not where the clip comes from. Lines arrive cut to the
/// clip already. Their inner loops do not test where they write: a line that is steep walks down
/// the rows, any other one along the columns (`major` is the axis of the walk, `minor` the other
/// one), each an instantiation of its own.

namespace Vorin::Graphics {

/// Where and with what colour to draw. The clip is never empty and lies inside the pixel memory.
template <class Iterator>
struct TPixelTarget {
    using Unit = typename Iterator::Unit;

    Unit* pixels;
    std::ptrdiff_t stride; // units from a row to the next
    std::uint64_t pen;     // the colour as lanes
    int left;              // the last columns and rows inside the clip
    int right;
    int top;
    int bottom;

    template <class T>
    TClipEdges<T> GetEdges() const {
        return {static_cast<T>(left), static_cast<T>(right), static_cast<T>(top),
                static_cast<T>(bottom)};
    }
    Unit* At(int x, int y) const { return pixels + y * stride + x * Iterator::kUnitsPerPixel; }
};

/// dst + (((src - dst) * weight) >> 8) for every channel, with a weight of 0 to 255. In the form
/// (dst * (256 - weight) + src * weight) >> 8 no channel is ever negative or reaches 16 bits.
template <class Iterator>
std::uint64_t BlendLanes(std::uint64_t dst, std::uint64_t src, int weight) {
    const auto w = static_cast<std::uint64_t>(weight);
    return ((dst * (256 - w) + src * w) >> 8) & Iterator::kLanes;
}

template <class Iterator>
void BlendPixel(typename Iterator::Unit* pixel, std::uint64_t src, int weight) {
    Iterator::Store(pixel, BlendLanes<Iterator>(Iterator::Load(pixel), src, weight));
}

/// The steps of a walk in units.
template <class Iterator, bool Steep>
struct TWalkSteps {
    explicit TWalkSteps(std::ptrdiff_t stride)
        : major(Steep ? stride : Iterator::kUnitsPerPixel),
          minor(Steep ? Iterator::kUnitsPerPixel : stride) {}

    const std::ptrdiff_t major;
    const std::ptrdiff_t minor;
};

/// Bresenham's line from (x1, y1) to (x2, y2), x the major axis and x1 <= x2, both ends included.
template <class Iterator, bool Steep>
void WalkLine(const TPixelTarget<Iterator>& target, int x1, int y1, int x2, int y2) {
    const TWalkSteps<Iterator, Steep> steps(target.stride);
    const std::uint64_t pen = target.pen;
    const int dx = x2 - x1;
    const int dy = std::abs(y2 - y1);
    const std::ptrdiff_t minorStep = y2 < y1 ? -steps.minor : steps.minor;
    auto* pixel = target.pixels + x1 * steps.major + y1 * steps.minor;
    if (dy == 0) {
        for (int i = 0; i <= dx; ++i, pixel += steps.major) {
            Iterator::Store(pixel, pen);
        }
        return;
    }
    int error = dx / 2;
    for (int i = 0; i <= dx; ++i, pixel += steps.major) {
        Iterator::Store(pixel, pen);
        error -= dy;
        if (error < 0) {
            pixel += minorStep;
            error += dx;
        }
    }
}

/// A line inside the clip.
template <class Iterator>
void DrawClippedLine(const TPixelTarget<Iterator>& target, int x1, int y1, int x2, int y2) {
    if (std::abs(y2 - y1) > std::abs(x2 - x1)) {
        if (y1 <= y2) {
            WalkLine<Iterator, true>(target, y1, x1, y2, x2);
        } else {
            WalkLine<Iterator, true>(target, y2, x2, y1, x1);
        }
    } else {
        if (x1 <= x2) {
            WalkLine<Iterator, false>(target, x1, y1, x2, y2);
        } else {
            WalkLine<Iterator, false>(target, x2, y2, x1, y1);
        }
    }
}

/// Xiaolin Wu's line along its major axis x. `Guarded` skips pixels that leave the clip on the
/// minor axis, as end points within half a pixel of the clip's border can do; without it the caller
/// has made sure that none does.
///
/// Weights are given in whole 255ths. A weight of 0 leaves the pixel as it is, its alpha too.
template <class Iterator, bool Steep, bool Guarded>
class TSmoothWalk {
public:
    explicit TSmoothWalk(const TPixelTarget<Iterator>& target)
        : pixels(target.pixels), pen(target.pen), steps(target.stride),
          low(Steep ? target.left : target.top), high(Steep ? target.right : target.bottom) {}

    /// x1 <= x2, both within the clip.
    void Draw(float x1, float y1, float x2, float y2) const {
        const double dx = static_cast<double>(x2) - x1;
        const double g = dx == 0.0 ? 0.0 : (static_cast<double>(y2) - y1) / dx;

        const float start = x1 + 0.5f;
        const int first = static_cast<int>(start);
        const double yFirst = y1 + (first - static_cast<double>(x1)) * g;
        DrawEnd(first, yFirst, 1.0 - (static_cast<double>(start) - first));

        const float end = x2 + 0.5f;
        const int last = static_cast<int>(end);
        const double yLast = y2 + (last - static_cast<double>(x2)) * g;
        DrawEnd(last, yLast, static_cast<double>(end) - last);

        if (std::fabs(g) < kFlatSlope) {
            DrawFlat(first + 1, last, y1);
        } else {
            DrawSlope(first + 1, last, yFirst + g, g);
        }
    }

private:
    using Unit = typename Iterator::Unit;

    static constexpr double kFlatSlope = 0.003921569;
    static constexpr double kOnRow = 0.003921568859368563;

    /// The row of a minor coordinate. Between the clip's first row and the half row above it the
    /// row is -1, not 0: a line looks the same wherever the clip begins.
    static int GetRow(double y) {
        int row = static_cast<int>(y);
        if constexpr (Guarded) {
            row -= y < row ? 1 : 0;
        }
        return row;
    }

    void Blend(Unit* column, int row, int weight) const {
        if (weight == 0) {
            return;
        }
        if constexpr (Guarded) {
            if (row < low || row > high) {
                return;
            }
        }
        BlendPixel<Iterator>(column + row * steps.minor, pen, weight);
    }

    /// The two pixels of an end, weighted by how much of the column (`gap`) the line covers.
    void DrawEnd(int x, double y, double gap) const {
        Unit* column = pixels + x * steps.major;
        const int row = GetRow(y);
        const double fraction = y - row;
        Blend(column, row, static_cast<int>(((1.0 - fraction) * gap) * 255.0));
        Blend(column, row + 1, static_cast<int>((fraction * gap) * 255.0));
    }

    /// From `first` up to, but not including, `last`: a run along one row, or shared by two rows.
    void DrawFlat(int first, int last, float y) const {
        const int nearest = static_cast<int>(static_cast<double>(y) + 0.5);
        if (std::fabs(static_cast<double>(y) - nearest) < kOnRow) {
            Unit* pixel = pixels + first * steps.major + nearest * steps.minor;
            for (int x = first; x < last; ++x, pixel += steps.major) {
                Iterator::Store(pixel, pen);
            }
            return;
        }
        const int row = static_cast<int>(y);
        const int weight = static_cast<int>(255.0 * (static_cast<double>(y) - row));
        Unit* column = pixels + first * steps.major;
        for (int x = first; x < last; ++x, column += steps.major) {
            Blend(column, row + 1, weight);
            Blend(column, row, 255 - weight);
        }
    }

    void DrawSlope(int first, int last, double y, double g) const {
        Unit* column = pixels + first * steps.major;
        for (int x = first; x < last; ++x, column += steps.major, y += g) {
            const int row = GetRow(y);
            const int weight = static_cast<int>((y - row) * 255.0);
            Blend(column, row + 1, weight);
            Blend(column, row, 255 - weight);
        }
    }

    Unit* const pixels;
    const std::uint64_t pen;
    const TWalkSteps<Iterator, Steep> steps;
    const int low;
    const int high;
};

template <class Iterator, bool Steep>
void DrawSmoothWalk(const TPixelTarget<Iterator>& target, float x1, float y1, float x2, float y2) {
    // An end's pixels begin at most half a row away from its coordinate and are two rows.
    const float low = static_cast<float>((Steep ? target.left : target.top) + 1);
    const float high = static_cast<float>((Steep ? target.right : target.bottom) - 1);
    if (x1 > x2) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    if (y1 >= low && y1 <= high && y2 >= low && y2 <= high) {
        TSmoothWalk<Iterator, Steep, false>(target).Draw(x1, y1, x2, y2);
    } else {
        TSmoothWalk<Iterator, Steep, true>(target).Draw(x1, y1, x2, y2);
    }
}

/// A smooth line inside the clip.
template <class Iterator>
void DrawClippedSmoothLine(const TPixelTarget<Iterator>& target, const TLine<float>& line) {
    assert(target.template GetEdges<float>().Contains(line.x1, line.y1));
    assert(target.template GetEdges<float>().Contains(line.x2, line.y2));
    const double dx = static_cast<double>(line.x2) - line.x1;
    const double dy = static_cast<double>(line.y2) - line.y1;
    if (std::fabs(dy) > std::fabs(dx)) {
        DrawSmoothWalk<Iterator, true>(target, line.y1, line.x1, line.y2, line.x2);
    } else {
        DrawSmoothWalk<Iterator, false>(target, line.x1, line.y1, line.x2, line.y2);
    }
}

/// A point spread over four pixels. The weight grows with the distance from the pixel: the heaviest
/// is the one diagonally away from the nearest. The look of curves depends on it. The border rows
/// and columns of the clip are never touched.
template <class Iterator>
void PlotSmoothPoint(const TPixelTarget<Iterator>& target, float x, float y) {
    // One pixel of the four can be inside only here; this also refuses what does not fit an int.
    if (!(x > static_cast<float>(target.left - 1) && x < static_cast<float>(target.right) &&
          y > static_cast<float>(target.top - 1) && y < static_cast<float>(target.bottom))) {
        return;
    }
    const int ix = static_cast<int>(x);
    const int iy = static_cast<int>(y);
    const float fx = x - static_cast<float>(ix);
    const float fy = y - static_cast<float>(iy);
    const auto plot = [&target](int px, int py, float weight) {
        if (px > target.left && px < target.right && py > target.top && py < target.bottom) {
            BlendPixel<Iterator>(target.At(px, py), target.pen, static_cast<int>(weight) & 255);
        }
    };
    plot(ix, iy, 255.0f * fx * fy);
    plot(ix + 1, iy, (1.0f - fx) * fy * 255.0f);
    plot(ix, iy + 1, 255.0f * fx * (1.0f - fy));
    plot(ix + 1, iy + 1, (1.0f - fx) * 255.0f * (1.0f - fy));
}

} // namespace Vorin::Graphics
