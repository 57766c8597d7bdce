#pragma once

#include "containers/CharString.h"

#include <cmath>
#include <limits>
#include <type_traits>

namespace Vorin::DataModel::Objects {

/// A number as a plain type. Defined for every double:
/// - `bool`: above 0.5. NaN is false.
/// - integers and enums: the nearest, halves away from zero, and the ends of the range for what
///   lies outside it. NaN is 0.
/// - `float`: the nearest. What is finite stays finite.
template <class S>
S FromNumber(double value) {
    if constexpr (std::is_same_v<S, bool>) {
        return value > 0.5;
    } else if constexpr (std::is_enum_v<S>) {
        return static_cast<S>(FromNumber<std::underlying_type_t<S>>(value));
    } else if constexpr (std::is_integral_v<S>) {
        using Limits = std::numeric_limits<S>;
        if (std::isnan(value)) {
            return 0;
        }
        const double rounded = std::round(value);
        // One above the maximum: a power of two, so it is exact where the maximum itself is not.
        if (rounded >= std::ldexp(1.0, Limits::digits)) {
            return Limits::max();
        }
        if (rounded <= static_cast<double>(Limits::min())) {
            return Limits::min();
        }
        return static_cast<S>(rounded);
    } else {
        static_assert(std::is_floating_point_v<S>);
        using Limits = std::numeric_limits<S>;
        if (std::isfinite(value) && std::abs(value) > static_cast<double>(Limits::max())) {
            return std::copysign(Limits::max(), static_cast<S>(std::copysign(1.0, value)));
        }
        return static_cast<S>(value);
    }
}

/// A plain value as a number: a bool is 0 or 1.
template <class R>
double ToNumber(R value) {
    if constexpr (std::is_enum_v<R>) {
        return static_cast<double>(static_cast<std::underlying_type_t<R>>(value));
    } else {
        static_assert(std::is_arithmetic_v<R>);
        return static_cast<double>(value);
    }
}

inline const char* ToText(const char* text) { return text; }
inline const char* ToText(const Containers::CCharString& text) { return text.Get(); }
const char* ToText(Containers::CCharString&&) = delete; // would be gone before it is read

/// What a getter gave, as the value `T` of a model object: a number or a text.
template <class T, class R>
T ToObjectValue(R&& value) {
    if constexpr (std::is_same_v<T, const char*>) {
        return ToText(std::forward<R>(value));
    } else {
        return ToNumber(value);
    }
}

/// The value `T` of a model object as the argument `S` of a setter.
template <class S, class T>
S FromObjectValue(T value) {
    if constexpr (std::is_same_v<T, const char*>) {
        return S(value);
    } else {
        return FromNumber<S>(value);
    }
}

} // namespace Vorin::DataModel::Objects
