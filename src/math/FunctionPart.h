#pragma once

#include "core/Ownership.h"
#include "math/Constant.h"
#include "math/FunctionsLibrary.h"
#include "math/LibraryFunction.h"
#include "serialization/TypeSerializer.h"

#include <typeinfo>

namespace Vorin::Math {

/// Evaluates one part of a compound. The commonest library functions and constants are done in
/// place, to the same result as a virtual call; that makes a tree several times faster. No function
/// at all counts as the neutral one.
///
/// What kind of object it is, is found out once: of the object itself nothing is remembered, so a
/// constant may be set to another value at any time.
template <class F>
class TPartCall;

template <>
class TPartCall<IConstant> {
public:
    void Set(const IConstant* newPart) {
        part = newPart;
        constant = part && typeid(*part) == typeid(CConstant) ? dynamic_cast<const CConstant*>(part)
                                                              : nullptr;
    }

    double operator()() const {
        if (constant) {
            return constant->GetValue();
        }
        return part ? part->Evaluate() : 0.0;
    }

private:
    const IConstant* part = nullptr;
    const CConstant* constant = nullptr;
};

template <>
class TPartCall<IFunction> {
public:
    void Set(const IFunction* newPart) {
        part = newPart;
        isIdentity = !part || typeid(*part) == typeid(TFunction<&FunctionsLibrary::Identity>);
        constant = part && typeid(*part) == typeid(CConstantFunction)
                       ? dynamic_cast<const CConstantFunction*>(part)
                       : nullptr;
    }

    double operator()(double x) const {
        if (isIdentity) {
            return x;
        }
        return constant ? constant->GetValue() : part->Evaluate(x);
    }

private:
    const IFunction* part = nullptr;
    const CConstantFunction* constant = nullptr;
    bool isIdentity = true;
};

template <>
class TPartCall<IBinaryFunction> {
public:
    void Set(const IBinaryFunction* newPart) {
        part = newPart;
        kind = part ? kCall : kSum;
        plain = nullptr;
        if (part) {
            LibraryBinaryFunctions::ForEach([this]<Plain F>() {
                if (typeid(*part) == typeid(TBinaryFunction<F>)) {
                    plain = F;
                    kind = KindOf<F>();
                }
            });
        }
    }

    double operator()(double x, double y) const {
        switch (kind) {
        case kSum:
            return FunctionsLibrary::Sum(x, y);
        case kDifference:
            return FunctionsLibrary::Difference(x, y);
        case kProduct:
            return FunctionsLibrary::Product(x, y);
        case kDivision:
            return FunctionsLibrary::Division(x, y);
        case kMin:
            return FunctionsLibrary::Min(x, y);
        case kMax:
            return FunctionsLibrary::Max(x, y);
        case kX:
            return x;
        case kY:
            return y;
        case kPlain:
            return plain(x, y);
        case kCall:
            break;
        }
        return part->Evaluate(x, y);
    }

private:
    using Plain = double (*)(double, double);
    enum EKind { kCall, kPlain, kSum, kDifference, kProduct, kDivision, kMin, kMax, kX, kY };

    template <Plain F>
    static constexpr EKind KindOf() {
        using Library = FunctionsLibrary;
        EKind found = kPlain;
        found = kIsSameFunction<F, &Library::Sum> ? kSum : found;
        found = kIsSameFunction<F, &Library::Difference> ? kDifference : found;
        found = kIsSameFunction<F, &Library::Product> ? kProduct : found;
        found = kIsSameFunction<F, &Library::Division> ? kDivision : found;
        found = kIsSameFunction<F, &Library::Min> ? kMin : found;
        found = kIsSameFunction<F, &Library::Max> ? kMax : found;
        found = kIsSameFunction<F, &Library::X> ? kX : found;
        return kIsSameFunction<F, &Library::Y> ? kY : found;
    }

    const IBinaryFunction* part = nullptr;
    Plain plain = nullptr;
    EKind kind = kSum;
};

/// Reads a function that CTypeSerializer wrote under `name` into a holder. One that is not there or
/// cannot be read becomes the neutral function, which is borrowed; on a tolerant stream the holder
/// keeps what it holds.
template <class F>
void ReadPart(const Serialization::IReadDataStream& stream, const char* name,
              Core::TOwnershipWithClone<F>& holder) {
    Serialization::TRuntimeDeSerializer<F> reader;
    if (stream.ReadObject(name, reader)) {
        holder.Set(reader.Release(), Core::kOwn);
    } else if (!stream.IsTolerant()) {
        holder.Set(GetNeutralFunction<F>(), Core::kDontOwn);
    }
}

/// A part of a compound function of interface F: owned, borrowed or none, which counts as the
/// neutral function of F. A copy owns a clone, also of a borrowed one.
template <class F>
class TFunctionPart {
public:
    TFunctionPart() = default;
    TFunctionPart(F* part, Core::EOwnership ownership) : holder(part, ownership) { call.Set(part); }
    TFunctionPart(const TFunctionPart& other) : holder(other.holder) { call.Set(holder.Get()); }
    TFunctionPart& operator=(const TFunctionPart& other) {
        holder = other.holder;
        call.Set(holder.Get());
        return *this;
    }

    const F* Get() const { return holder.Get(); }
    F* Get() { return holder.Get(); }

    /// The previous part is deleted when owned; a borrowed one outlives its stay here.
    void Set(F* part, Core::EOwnership ownership) {
        call.Set(part);
        holder.Set(part, ownership);
    }

    template <class... Arguments>
    double Evaluate(Arguments... arguments) const {
        return call(arguments...);
    }

    bool Write(Serialization::IWriteDataStream& stream, const char* name) const {
        return stream.WriteObject(name, Serialization::CTypeSerializer(holder.Get()));
    }

    /// As `ReadPart`.
    void Read(const Serialization::IReadDataStream& stream, const char* name) {
        ReadPart(stream, name, holder);
        call.Set(holder.Get());
    }

private:
    Core::TOwnershipWithClone<F> holder;
    TPartCall<F> call;
};

} // namespace Vorin::Math
