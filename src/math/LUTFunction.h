#pragma once

#include "math/Function.h"
#include "math/Interpolators.h"
#include "math/LookupTable.h"
#include "serialization/LookupTableSerializers.h"

namespace Vorin::Math {

/// The class identifier of TLUTFunction<L>; null for a table that has none.
template <class L>
inline constexpr const char* kLUTFunctionIdentifier = nullptr;

template <>
inline constexpr const char*
    kLUTFunctionIdentifier<TLookupTable<double, TNearestInterpolator<double, double>>> =
        "{D568469B-FBD0-41d4-AAF7-B66CA0F5B62A}";
template <>
inline constexpr const char*
    kLUTFunctionIdentifier<TLookupTable<double, TLinearInterpolator<double, double>>> =
        "{0DC93898-2AE9-4dea-B435-A1E7D2862B8E}";
template <>
inline constexpr const char*
    kLUTFunctionIdentifier<TLookupTable<double, TConstrainedSplineInterpolator<double, double>>> =
        "{629B2D7F-DC01-4b8f-807A-404F3C396155}";
template <>
inline constexpr const char*
    kLUTFunctionIdentifier<TLookupTable<float, TNearestInterpolator<float, float>>> =
        "{231C870E-FE12-41c6-8C0D-922CA68AD4F4}";
template <>
inline constexpr const char*
    kLUTFunctionIdentifier<TLookupTable<float, TLinearInterpolator<float, float>>> =
        "{1AB22102-22F5-45b9-BDAF-54B85C61968F}";
template <>
inline constexpr const char*
    kLUTFunctionIdentifier<TLookupTable<float, TConstrainedSplineInterpolator<float, float>>> =
        "{CBE364D9-829B-4dd4-91B0-69DE39D28923}";

/// A lookup table as a function. L is a TLookupTable; its values are reached through GetTable.
template <class L>
class TLUTFunction : public virtual IFunction {
public:
    static constexpr const char* kIdentifier = kLUTFunctionIdentifier<L>;
    static_assert(kIdentifier, "this table has no class identifier");

    TLUTFunction() = default;
    explicit TLUTFunction(const L& source) : table(source) {}

    const char* GetType() const override { return kIdentifier; }

    double Evaluate(double x) const override {
        return static_cast<double>(table.Evaluate(static_cast<typename L::Position>(x)));
    }

    IFunction* Clone() const override { return new TLUTFunction(*this); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteObject("table", Serialization::TLookupTableSerializer<L>(table));
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        Serialization::TLookupTableDeSerializer<L> reader(table);
        return stream.ReadObject("table", reader) || stream.IsTolerant();
    }

    L& GetTable() { return table; }
    const L& GetTable() const { return table; }

private:
    L table;
};

} // namespace Vorin::Math
