#pragma once

#include "math/FunctionPart.h"
#include "math/SweptRing.h"

namespace Vorin::Math {

/// A curve that cannot be read is the identity; a null curve stays null.
template <>
struct TSweptValueForm<Core::TOwnershipWithClone<IFunction>> {
    using Holder = Core::TOwnershipWithClone<IFunction>;

    static bool Write(Serialization::IWriteDataStream& stream, const char* name,
                      const Holder& curve) {
        return stream.WriteObject(name, Serialization::CTypeSerializer(curve.Get()));
    }
    static bool Read(const Serialization::IReadDataStream& stream, const char* name,
                     Holder& curve) {
        ReadPart(stream, name, curve);
        return true;
    }
};

/// A curve over past time, as a surface: y is the time in seconds relative to the newest curve, 0
/// or negative, and x goes into the curves. See CSweptValues.
///
/// Between two curves their values are mixed; where one of them is null the other counts alone, and
/// where none is there the default curve. Without that, the surface is 0.
///
/// One thread at a time. A copy owns clones of all curves, also of borrowed ones.
class CSweptCurvesFunction : public virtual IBinaryFunction {
public:
    static constexpr const char* kIdentifier = "{D4E5AB2C-72BD-446e-BC18-BA7745DCA94A}";

    /// As for CSweptValues: SetCapacity forgets all curves, and deletes those that are owned.
    void SetCapacity(int count) { ring.SetCapacity(count); }
    int GetCapacity() const { return ring.GetCapacity(); }
    int GetPointsCount() const { return ring.GetPointsCount(); }
    double GetPointsPerSecond() const { return ring.GetPointsPerSecond(); }

    void SetDuration(double seconds) { ring.SetDuration(seconds); }
    double GetDuration() const { return ring.GetDuration(); }

    /// The curve where there are none; null for 0. The previous one is deleted when owned; a
    /// borrowed one outlives its stay here.
    void SetDefaultValue(IFunction* curve, Core::EOwnership ownership) {
        defaultValue.Set(curve, ownership);
    }
    const IFunction* GetDefaultValue() const { return defaultValue.Get(); }

    /// Adds the newest curve, which may be null; `time` in seconds. False, with nothing changed,
    /// when it is not later than the newest or not finite: an owned curve is deleted then.
    bool AddPoint(double time, IFunction* curve, Core::EOwnership ownership = Core::kOwn) {
        Holder* place = ring.Add(time);
        if (place) {
            place->Set(curve, ownership);
        } else if (ownership == Core::kOwn) {
            delete curve;
        }
        return place;
    }

    const char* GetType() const override { return kIdentifier; }

    double Evaluate(double x, double y) const override {
        TSweptRing<Holder>::CPlace place{nullptr, nullptr, 0.0};
        const bool isFound = ring.Find(y, place);
        const IFunction* from = isFound ? place.from->Get() : nullptr;
        const IFunction* to = isFound ? place.to->Get() : nullptr;
        if (from && to && from != to) {
            const double value = from->Evaluate(x);
            return value + (to->Evaluate(x) - value) * place.fraction;
        }
        const IFunction* only = from ? from : (to ? to : defaultValue.Get());
        return only ? only->Evaluate(x) : 0.0;
    }

    IBinaryFunction* Clone() const override { return new CSweptCurvesFunction(*this); }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return ring.Serialize(stream) &&
               stream.WriteObject("defaultValue",
                                  Serialization::CTypeSerializer(defaultValue.Get()));
    }

    /// A default curve that cannot be read is the identity.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        if (!ring.DeSerialize(stream)) {
            return false;
        }
        ReadPart(stream, "defaultValue", defaultValue);
        return true;
    }

private:
    using Holder = Core::TOwnershipWithClone<IFunction>;

    TSweptRing<Holder> ring;
    Holder defaultValue;
};

} // namespace Vorin::Math
