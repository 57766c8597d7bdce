#pragma once

#include "math/FunctionPart.h"

namespace Vorin::Math {

/// Two functions of interface F and a binary function that makes one value of their two:
/// combineFunction(func1, func2). A new one has no functions and combines with the sum.
///
/// Parts are owned or borrowed each. One that is null counts as the neutral one: 0 for a constant,
/// x for a function, and the sum of both arguments for a binary function. A copy owns clones of all
/// parts. One thread at a time while parts are being set.
///
/// Written as objects "func1", "func2" and "combineFunction", each with its type.
template <class F>
class TNFunctionsCombination : public virtual F {
public:
    const F* GetFunc1() const { return func1.Get(); }
    F* GetFunc1() { return func1.Get(); }
    const F* GetFunc2() const { return func2.Get(); }
    F* GetFunc2() { return func2.Get(); }
    const IBinaryFunction* GetCombineFunction() const { return combineFunction.Get(); }
    IBinaryFunction* GetCombineFunction() { return combineFunction.Get(); }

    /// The previous part is deleted when owned; a borrowed one outlives its stay here.
    void SetFunc1(F* function, Core::EOwnership ownership) { func1.Set(function, ownership); }
    void SetFunc2(F* function, Core::EOwnership ownership) { func2.Set(function, ownership); }
    void SetCombineFunction(IBinaryFunction* function, Core::EOwnership ownership) {
        combineFunction.Set(function, ownership);
    }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return func1.Write(stream, "func1") && func2.Write(stream, "func2") &&
               combineFunction.Write(stream, "combineFunction");
    }

    /// Always true: a part that cannot be read is the neutral one.
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        func1.Read(stream, "func1");
        func2.Read(stream, "func2");
        combineFunction.Read(stream, "combineFunction");
        return true;
    }

protected:
    /// In this order: func1, func2, combineFunction.
    template <class... Arguments>
    double Combine(Arguments... arguments) const {
        const double a = func1.Evaluate(arguments...);
        const double b = func2.Evaluate(arguments...);
        return combineFunction.Evaluate(a, b);
    }

private:
    TFunctionPart<F> func1;
    TFunctionPart<F> func2;
    TFunctionPart<IBinaryFunction> combineFunction{GetNeutralFunction<IBinaryFunction>(),
                                                   Core::kDontOwn};
};

/// combineFunction(func1(), func2()).
class CConstantsCombination : public TNFunctionsCombination<IConstant> {
public:
    static constexpr const char* kIdentifier = "{5145420A-1DCF-449e-8AC4-0006CF96D0F2}";

    const char* GetType() const override { return kIdentifier; }
    double Evaluate() const override { return Combine(); }
    IConstant* Clone() const override { return new CConstantsCombination(*this); }
};

/// combineFunction(func1(x), func2(x)).
class CFunctionsCombination : public TNFunctionsCombination<IFunction> {
public:
    static constexpr const char* kIdentifier = "{FA439331-DF20-4e00-8922-1FEEE83F9B39}";

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double x) const override { return Combine(x); }
    IFunction* Clone() const override { return new CFunctionsCombination(*this); }
};

/// combineFunction(func1(x, y), func2(x, y)).
class CBinaryFunctionsCombination : public TNFunctionsCombination<IBinaryFunction> {
public:
    static constexpr const char* kIdentifier = "{A8FBFEF4-0FFE-41a6-83AC-D8B94B84AABF}";

    const char* GetType() const override { return kIdentifier; }
    double Evaluate(double x, double y) const override { return Combine(x, y); }
    IBinaryFunction* Clone() const override { return new CBinaryFunctionsCombination(*this); }
};

} // namespace Vorin::Math
