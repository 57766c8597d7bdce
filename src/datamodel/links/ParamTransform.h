#pragma once

#include "core/EventProvider.h"
#include "core/Ownership.h"
#include "core/Reverse.h"
#include "datamodel/ParamInfo.h"
#include "datamodel/ParamValueCurve.h"
#include "math/Function.h"

namespace Vorin::DataModel::Objects {

/// The way of a value from one parameter to another.
struct CParamTransform {
    const Math::IFunction& function;
    bool reversed;   ///< mirrored within the range of the target
    bool normalized; ///< the function works on positions, from 0 to 1, instead of values
};

/// What the function of a transform is given for a value of the source: the value, or its position.
double MapSourceValue(double value, const IConstParamInfo& source, bool normalized);

/// What becomes of a mapped value in the target. A function that gives NaN gives NaN, or with
/// normalized positions the target's maximum, as a parameter makes of a NaN.
double TransformMapped(double mapped, const CParamTransform& transform,
                       const IConstParamInfo& target);

/// Both in one.
double TransformValue(double value, const CParamTransform& transform, const IConstParamInfo& source,
                      const IConstParamInfo& target);

/// The function that links have as long as they were given none. Not owned by them.
Math::IFunction& GetIdentityFunction();

/// Makes a link between parameters of the link class `B`, with a function on the way.
///
/// A change of the way while the link runs passes the source's value anew.
template <class B>
class TParamLink : public B, public virtual Core::IReverse {
public:
    const Math::IFunction& GetFunction() const { return *function.Get(); }

    /// Takes the function over with `kOwn`; with `kDontOwn` it outlives its stay here. Null is the
    /// identity.
    void SetFunction(Math::IFunction* newFunction, Core::EOwnership ownership) {
        if (newFunction) {
            function.Set(newFunction, ownership);
        } else {
            function.Set(&GetIdentityFunction(), Core::kDontOwn);
        }
        this->PassNow();
    }

    /// The curve's forward function as the function.
    void SetResponseCurve(EParamValueCurve curve) {
        SetFunction(CreateParamValueCurveFunctions(curve).forward.release(), Core::kOwn);
    }

    bool IsReversed() const override { return reversed; }
    Core::IEventProvider& GetReverseEvents() override { return reverseEvents; }
    void SetReversed(bool reverse) override {
        if (reverse != reversed) {
            reversed = reverse;
            this->PassNow();
            reverseEvents.Notify();
        }
    }

    bool IsNormalized() const { return normalized; }
    void SetNormalized(bool normalize) {
        if (normalize != normalized) {
            normalized = normalize;
            OnMappingChanged();
            this->PassNow();
        }
    }

    /// Whether moves of the source are added to the target instead of setting it. Changing the mode
    /// moves nothing.
    bool IsDifferential() const { return differential; }
    void SetDifferential(bool differences) { differential = differences; }

protected:
    /// What a source's value is mapped to has changed. A class that keeps mapped values takes them
    /// anew, for there was no move from the old ones.
    virtual void OnMappingChanged() {}

    /// The next value of `written`, the target, for a source that went from `last` to `mapped`.
    /// Deliberately not tested for NaN: a parameter clamps whatever a function gives to its range.
    template <class T>
    double GetNextValue(double last, double mapped, const T& written) const {
        const CParamTransform transform{*function.Get(), reversed, normalized};
        const double next = TransformMapped(mapped, transform, written.GetInfo());
        // The difference first: a source that did not move adds exactly nothing.
        return differential ? written.GetValue() +
                                  (next - TransformMapped(last, transform, written.GetInfo()))
                            : next;
    }

private:
    Core::TOwnership<Math::IFunction> function{&GetIdentityFunction(), Core::kDontOwn};
    bool reversed = false;
    Core::CEventProvider reverseEvents;
    bool normalized = false;
    bool differential = false;
};

} // namespace Vorin::DataModel::Objects
