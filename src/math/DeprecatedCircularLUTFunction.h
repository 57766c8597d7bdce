#pragma once

#include "math/CircularLUTFunction.h"

#include <type_traits>

namespace Vorin::Math {

/// The circular table under the class identifier that old data files know it by. It reads, writes
/// and evaluates as TCircularLUTFunction does, and keeps its identifier when it is written again.
template <class L>
class TDeprecatedCircularLUTFunction : public TCircularLUTFunction<L> {
    static_assert(
        std::is_same_v<L, TLookupTable<float, TConstrainedSplineInterpolator<float, float>>>,
        "only tables of this kind were ever written so");

public:
    static constexpr const char* kIdentifier = "{C2D27847-1FD3-461e-9E92-922EAE3D07E2}";

    using TCircularLUTFunction<L>::TCircularLUTFunction;

    const char* GetType() const override { return kIdentifier; }
    IFunction* Clone() const override { return new TDeprecatedCircularLUTFunction(*this); }
};

} // namespace Vorin::Math
