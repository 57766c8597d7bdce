#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

/// Cohen-Sutherland clipping of lines to a rectangle, for whole and for float coordinates.

namespace Vorin::Graphics {

/// The last coordinates inside the clip.
template <class T>
struct TClipEdges {
    T left;
    T right;
    T top;
    T bottom;

    /// False for a coordinate that is not a number.
    bool Contains(T x, T y) const { return x >= left && x <= right && y >= top && y <= bottom; }

    /// The edges that the point lies beyond, as a sum of EOutcode bits; 0 inside.
    int GetOutcode(T x, T y) const;
};

enum EOutcode { kBelowBottom = 1, kAboveTop = 2, kBeyondRight = 4, kBeyondLeft = 8 };

template <class T>
int TClipEdges<T>::GetOutcode(T x, T y) const {
    return (y > bottom ? kBelowBottom : 0) | (y < top ? kAboveTop : 0) |
           (x > right ? kBeyondRight : 0) | (x < left ? kBeyondLeft : 0);
}

template <class T>
struct TLine {
    T x1;
    T y1;
    T x2;
    T y2;
};

/// Moves the end (x, y) of the line to the edge that the lowest bit of `code` names. The product
/// comes before the division: integers truncate once. The other end does not lie beyond that edge,
/// so the divisor is not 0.
template <class T>
void MoveToEdge(const TLine<T>& line, const TClipEdges<T>& edges, int code, T& x, T& y) {
    if (code & (kBelowBottom | kAboveTop)) {
        const T edge = (code & kBelowBottom) ? edges.bottom : edges.top;
        // NOLINTNEXTLINE(clang-analyzer-core.DivideZero)
        x = line.x1 + (edge - line.y1) * (line.x2 - line.x1) / (line.y2 - line.y1);
        y = edge;
    } else {
        const T edge = (code & kBeyondRight) ? edges.right : edges.left;
        // NOLINTNEXTLINE(clang-analyzer-core.DivideZero)
        y = line.y1 + (edge - line.x1) * (line.y2 - line.y1) / (line.x2 - line.x1);
        x = edge;
    }
}

/// Cuts the line to what lies within the edges; false when nothing does. An outside end moves to
/// one edge a round, the first end before the second.
///
/// Each end needs two rounds. Rounding can ask for one more in floats, and between far float
/// coordinates it can go on forever: then the line is given up.
template <class T>
bool CutLine(TLine<T>& line, const TClipEdges<T>& edges) {
    constexpr int kMaxRounds = 8;
    int first = edges.GetOutcode(line.x1, line.y1);
    int second = edges.GetOutcode(line.x2, line.y2);
    for (int round = 0; round < kMaxRounds; ++round) {
        if ((first | second) == 0) {
            return true;
        }
        if ((first & second) != 0) {
            return false;
        }
        const TLine<T> whole = line;
        if (first != 0) {
            MoveToEdge(whole, edges, first, line.x1, line.y1);
            first = edges.GetOutcode(line.x1, line.y1);
        } else {
            MoveToEdge(whole, edges, second, line.x2, line.y2);
            second = edges.GetOutcode(line.x2, line.y2);
        }
    }
    return false;
}

/// Whole coordinates. What lies beyond kFarthest is taken as lying there, so that every product of
/// the intersection fits 64 bits.
inline bool ClipLine(TLine<std::int64_t>& line, const TClipEdges<std::int64_t>& edges) {
    constexpr std::int64_t kFarthest = (std::int64_t{1} << 31) - (std::int64_t{1} << 14);
    for (std::int64_t* value : {&line.x1, &line.y1, &line.x2, &line.y2}) {
        *value = std::clamp(*value, -kFarthest, kFarthest);
    }
    return CutLine(line, edges);
}

/// Float coordinates. A line with a coordinate that is no finite number, given or met on the way,
/// is refused.
inline bool ClipLine(TLine<float>& line, const TClipEdges<float>& edges) {
    if (!std::isfinite(line.x1) || !std::isfinite(line.y1) || !std::isfinite(line.x2) ||
        !std::isfinite(line.y2)) {
        return false;
    }
    return CutLine(line, edges) && edges.Contains(line.x1, line.y1) &&
           edges.Contains(line.x2, line.y2);
}

} // namespace Vorin::Graphics
