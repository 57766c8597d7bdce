#pragma once

#include <algorithm>

namespace Vorin::Math {

/// Interpolators give the value of a row of `count` values of type T at a position, where entry i
/// stands at position i. Positions and all arithmetic are of type P. Nothing outside the row is
/// read: a position before it, or a NaN, counts as the first entry, one behind it as the last, and
/// an empty row gives 0. [any]
///
/// The shared part of that: the entry at or before a position, and how far behind it the position
/// is.
template <class P>
struct TTablePosition {
    int index;
    P fraction;

    /// `count` is at least 1.
    static TTablePosition Clamp(P position, int count) {
        // Written so that NaN fails it.
        if (!(position > P(0))) {
            return {0, P(0)};
        }
        if (position >= static_cast<P>(count - 1)) {
            return {count - 1, P(0)};
        }
        const int index = static_cast<int>(position);
        return {index, position - static_cast<P>(index)};
    }
};

/// The nearest entry; halfway between two it is the later one.
template <class T, class P>
struct TNearestInterpolator {
    using Value = T;
    using Position = P;

    static T Interpolate(const T* values, int count, P position) {
        return count > 0 ? values[GetIndex(position, count)] : T(0);
    }

    /// The entry nearest to a position in a row of at least one.
    static int GetIndex(P position, int count) {
        return TTablePosition<P>::Clamp(position + P(0.5), count).index;
    }
};

/// A straight line between two entries.
template <class T, class P>
struct TLinearInterpolator {
    using Value = T;
    using Position = P;

    static T Interpolate(const T* values, int count, P position) {
        if (count <= 0) {
            return T(0);
        }
        const auto [index, fraction] = TTablePosition<P>::Clamp(position, count);
        if (index == count - 1) {
            return values[index];
        }
        const P value = values[index];
        return static_cast<T>(value + (P(values[index + 1]) - value) * fraction);
    }
};

/// A cubic between two entries whose slopes at both ends are limited by the neighbouring
/// differences, and zero where a neighbour turns: it never overshoots. Beyond the edges the edge
/// value repeats.
template <class T, class P>
struct TConstrainedSplineInterpolator {
    using Value = T;
    using Position = P;

    static T Interpolate(const T* values, int count, P position) {
        if (count <= 0) {
            return T(0);
        }
        const auto [index, fraction] = TTablePosition<P>::Clamp(position, count);
        const int last = count - 1;
        if (index >= 1 && index + 2 <= last) {
            return Segment(values + index, fraction);
        }
        const T neighbours[4] = {values[std::max(index - 1, 0)], values[index],
                                 values[std::min(index + 1, last)],
                                 values[std::min(index + 2, last)]};
        return Segment(neighbours + 1, fraction);
    }

    /// The value between k[0] and k[1], `f` from 0 to 1 of the way. Reads k[-1] to k[2]. The order
    /// of the operations is part of the result, which drawn traces are compared by.
    static T Segment(const T* k, P f) {
        const P a = k[-1];
        const P b = k[0];
        const P c = k[1];
        const P d = k[2];
        const P s = c - b;
        P e = 0;
        P m1 = 0;
        if ((d - c) * s > P(0)) {
            e = (d - c) * s * P(0.6666667) / (d - b);
            m1 = P(2) * e;
        }
        P g = 0;
        P m0 = -P(0);
        if ((b - a) * s > P(0)) {
            g = (b - a) * s * P(0.6666667) / (c - a);
            m0 = P(-2) * g;
        }
        const P h = s - e + m0;
        const P r = m1 - s + g - h;
        return static_cast<T>((s - P(3) * h - r) * f + b + (r * f + P(3) * h) * f * f);
    }
};

} // namespace Vorin::Math
