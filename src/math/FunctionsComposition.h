#pragma once

#include "math/FunctionPart.h"
#include "math/FunctionsOperation.h"

namespace Vorin::Math {

/// A list of functions applied in order: the first gets x, each other one the value of the one
/// before it. Null slots are skipped; no function at all gives x.
class CFunctionsComposition : public TNFunctionsAggregate<IFunction> {
public:
    static constexpr const char* kIdentifier = "{C6B18AB7-10C4-46c3-975E-91255060ECA9}";

    const char* GetType() const override { return kIdentifier; }

    double Evaluate(double x) const override {
        for (const Core::TOwnershipWithClone<IFunction>& slot : GetSlots()) {
            const IFunction* function = PartOf(slot);
            x = function ? function->Evaluate(x) : x;
        }
        return x;
    }

    IFunction* Clone() const override { return new CFunctionsComposition(*this); }
};

/// A function of what a binary function gives: function(binaryFunction(x, y)).
///
/// Parts are owned or borrowed each. A null `function` counts as the identity, a null
/// `binaryFunction` as the sum of both arguments. A copy owns clones of both. One thread at a time
/// while parts are being set. Written as objects "function" and "binaryFunction", with their types.
class CBinaryFunctionComposition : public virtual IBinaryFunction {
public:
    static constexpr const char* kIdentifier = "{D9BEEC6F-C530-46c7-A19C-FF009E5E2C26}";

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double x, double y) const override {
        return function.Evaluate(binaryFunction.Evaluate(x, y));
    }
    IBinaryFunction* Clone() const override { return new CBinaryFunctionComposition(*this); }

    const IFunction* GetFunction() const { return function.Get(); }
    IFunction* GetFunction() { return function.Get(); }
    const IBinaryFunction* GetBinaryFunction() const { return binaryFunction.Get(); }
    IBinaryFunction* GetBinaryFunction() { return binaryFunction.Get(); }

    /// The previous part is deleted when owned; a borrowed one outlives its stay here.
    void SetFunction(IFunction* newFunction, Core::EOwnership ownership) {
        function.Set(newFunction, ownership);
    }
    void SetBinaryFunction(IBinaryFunction* newFunction, Core::EOwnership ownership) {
        binaryFunction.Set(newFunction, ownership);
    }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return function.Write(stream, "function") && binaryFunction.Write(stream, "binaryFunction");
    }

    /// Always true: a part that cannot be read is the neutral one.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        function.Read(stream, "function");
        binaryFunction.Read(stream, "binaryFunction");
        return true;
    }

private:
    TFunctionPart<IFunction> function;
    TFunctionPart<IBinaryFunction> binaryFunction;
};

/// A function of a constant: function(constFunction()).
///
/// As CBinaryFunctionComposition, with the objects "function" and "constFunction"; a null
/// `constFunction` counts as 0.
class CConstantComposition : public virtual IConstant {
public:
    static constexpr const char* kIdentifier = "{83F37E7C-0ABF-4083-9F35-DD6310CC0951}";

    const char* GetType() const override { return kIdentifier; }
    double Evaluate() const override { return function.Evaluate(constFunction.Evaluate()); }
    IConstant* Clone() const override { return new CConstantComposition(*this); }

    const IFunction* GetFunction() const { return function.Get(); }
    IFunction* GetFunction() { return function.Get(); }
    const IConstant* GetConstFunction() const { return constFunction.Get(); }
    IConstant* GetConstFunction() { return constFunction.Get(); }

    /// The previous part is deleted when owned; a borrowed one outlives its stay here.
    void SetFunction(IFunction* newFunction, Core::EOwnership ownership) {
        function.Set(newFunction, ownership);
    }
    void SetConstFunction(IConstant* newConstant, Core::EOwnership ownership) {
        constFunction.Set(newConstant, ownership);
    }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return function.Write(stream, "function") && constFunction.Write(stream, "constFunction");
    }

    /// Always true: a part that cannot be read is the neutral one.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        function.Read(stream, "function");
        constFunction.Read(stream, "constFunction");
        return true;
    }

private:
    TFunctionPart<IFunction> function;
    TFunctionPart<IConstant> constFunction;
};

} // namespace Vorin::Math
