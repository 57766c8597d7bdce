#pragma once

#include "math/FunctionPart.h"
#include "math/ProxyVisit.h"

namespace Vorin::Math {

/// A place in a tree whose function, of interface F, can be replaced at run time; owned or
/// borrowed. A null target, which a new proxy has, counts as the neutral function.
///
/// A copy owns a clone of the target, also of a borrowed one, so that setting the one does not
/// reach the other. One thread sets, and nobody else evaluates meanwhile.
///
/// A proxy gives 0, and a clone or a written form has a null target there: where a target leads
/// back to itself through proxies, where more than 64 of them are nested, and where one evaluation
/// has come to 10,000 of them.
///
/// Written as an object "value" with its type.
template <class F>
class TNFunctionProxy : public virtual F {
public:
    TNFunctionProxy() = default;
    TNFunctionProxy(const F* newTarget, Core::EOwnership ownership)
        : target(newTarget, ownership) {}
    TNFunctionProxy(const TNFunctionProxy& other) { target.Set(other.CloneTarget(), Core::kOwn); }
    TNFunctionProxy& operator=(const TNFunctionProxy& other) {
        if (this != &other) {
            target.Set(other.CloneTarget(), Core::kOwn);
        }
        return *this;
    }

    const F* GetTarget() const { return target.Get(); }

    /// The previous target is deleted when owned; a borrowed one outlives its stay here.
    void SetTarget(const F* newTarget, Core::EOwnership ownership) {
        target.Set(newTarget, ownership);
    }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        const CProxyVisit visit(target.Get());
        return stream.WriteObject(
            "value", Serialization::CTypeSerializer(visit.IsAllowed() ? target.Get() : nullptr));
    }

    /// Always true: a target that cannot be read is the neutral one.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        Serialization::TRuntimeDeSerializer<F> reader;
        if (stream.ReadObject("value", reader)) {
            target.Set(reader.Release(), Core::kOwn);
        } else if (!stream.IsTolerant()) {
            target.Set(GetNeutralFunction<F>(), Core::kDontOwn);
        }
        return true;
    }

protected:
    template <class... Arguments>
    double Forward(Arguments... arguments) const {
        const F* function = target.Get();
        if (!function) {
            return GetNeutralFunction<F>()->Evaluate(arguments...);
        }
        const CProxyVisit visit(function);
        return visit.IsAllowed() ? function->Evaluate(arguments...) : 0.0;
    }

private:
    const F* CloneTarget() const {
        const CProxyVisit visit(target.Get());
        return target.Get() && visit.IsAllowed() ? target.Get()->Clone() : nullptr;
    }

    Core::TOwnership<const F> target;
};

/// A replaceable function.
class CFunctionProxy : public TNFunctionProxy<IFunction> {
public:
    static constexpr const char* kIdentifier = "{709DCE8B-8C2B-44c4-AF00-EF02D7F53121}";

    using TNFunctionProxy::TNFunctionProxy;

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double x) const override { return Forward(x); }
    IFunction* Clone() const override { return new CFunctionProxy(*this); }
};

/// A replaceable binary function.
class CBinaryFunctionProxy : public TNFunctionProxy<IBinaryFunction> {
public:
    static constexpr const char* kIdentifier = "{3F409A8F-20F5-4531-80DA-99441215C125}";

    using TNFunctionProxy::TNFunctionProxy;

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double x, double y) const override { return Forward(x, y); }
    IBinaryFunction* Clone() const override { return new CBinaryFunctionProxy(*this); }
};

} // namespace Vorin::Math
