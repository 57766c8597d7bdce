#pragma once

#include "containers/Count.h"
#include "core/Ownership.h"
#include "math/FunctionsLibrary.h"
#include "math/LibraryFunction.h"
#include "serialization/ListSerializers.h"
#include "serialization/TypeSerializer.h"

#include <cassert>
#include <cstddef>
#include <deque>

namespace Vorin::Math {

/// A function made of a list of functions of interface F, owned or borrowed each. A slot may be
/// null.
///
/// A copy owns clones of all parts, also of the borrowed ones. One thread at a time while the list
/// is being changed.
///
/// Written as an object "functions": a list with the item word "item", each with its type. A part
/// that is there and cannot be read becomes the neutral function; a count without its items fails.
template <class F>
class TNFunctionsAggregate : public virtual F, public virtual Containers::ICount {
public:
    int GetCount() const override { return static_cast<int>(functions.size()); }

    /// New slots are null; functions of slots that go are deleted when owned. A negative count is
    /// 0.
    void SetCount(int count) override {
        functions.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    }

    /// The function of a slot, 0 <= index < GetCount(); null for a null slot.
    const F* GetFunction(int index) const { return At(functions, index).Get(); }
    F* GetFunction(int index) { return At(functions, index).Get(); }

    /// Replaces the function of a slot; the previous one is deleted when owned. A borrowed function
    /// has to outlive its stay here.
    void SetFunction(int index, F* function, Core::EOwnership ownership) {
        At(functions, index).Set(function, ownership);
    }

    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteObject("functions", CWriter(*this));
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        CReader reader(*this);
        return stream.ReadObject("functions", reader) || stream.IsTolerant();
    }

protected:
    // A deque, since growing it at the end leaves the slots in place: moving a slot to another
    // address would be a copy, which turns a borrowed function into a clone.
    using Slots = std::deque<Core::TOwnershipWithClone<F>>;

    const Slots& GetSlots() const { return functions; }

    /// What a slot holds, without the virtual call: a slot is just this class.
    static const F* PartOf(const Core::TOwnershipWithClone<F>& slot) {
        return slot.Core::template TOwnershipWithClone<F>::Get();
    }

private:
    class CWriter : public virtual Serialization::ISerialize {
    public:
        explicit CWriter(const TNFunctionsAggregate& written) : aggregate(written) {}

        bool Serialize(Serialization::IWriteDataStream& stream) const override {
            const Serialization::CItemNames names("item");
            bool done = names.WriteCount(stream, aggregate.GetCount());
            for (int index = 0; done && index < aggregate.GetCount(); ++index) {
                done = stream.WriteObject(
                    names.GetName(index).Get(),
                    Serialization::CTypeSerializer(aggregate.GetFunction(index)));
            }
            return done;
        }

    private:
        const TNFunctionsAggregate& aggregate;
    };

    class CReader : public virtual Serialization::IDeSerialize {
    public:
        explicit CReader(TNFunctionsAggregate& read) : aggregate(read) {}

        bool DeSerialize(const Serialization::IReadDataStream& stream) override {
            const Serialization::CItemNames names("item");
            int count = 0;
            if (!names.ReadCount(stream, count)) {
                return stream.IsTolerant();
            }
            if (!stream.IsTolerant() && !names.HasAll(stream, count)) {
                return false;
            }
            aggregate.SetCount(count);
            for (int index = 0; index < count; ++index) {
                Serialization::TRuntimeDeSerializer<F> reader;
                if (stream.ReadObject(names.GetName(index).Get(), reader)) {
                    aggregate.SetFunction(index, reader.Release(), Core::kOwn);
                } else if (!stream.IsTolerant()) {
                    aggregate.SetFunction(index, GetNeutralFunction<F>(), Core::kDontOwn);
                }
            }
            return true;
        }

    private:
        TNFunctionsAggregate& aggregate;
    };

    template <class S>
    static auto& At(S& slots, int index) {
        assert(index >= 0 && static_cast<std::size_t>(index) < slots.size());
        return slots[static_cast<std::size_t>(index)];
    }

    Slots functions;
};

/// The operations that fold a list of functions. The identifiers are part of the file format.
using FunctionsOperations = TLibraryEntries<
    TLibraryEntry<&FunctionsLibrary::Sum, "{B8280134-87FF-44ae-809E-1B645160B214}">,
    TLibraryEntry<&FunctionsLibrary::Difference, "{F95377FF-6828-4a2d-8CB9-2A63C47EA65D}">,
    TLibraryEntry<&FunctionsLibrary::Product, "{3D5E106B-C306-476c-8817-24E755168A5C}">,
    TLibraryEntry<&FunctionsLibrary::Division, "{41B8F3B2-540C-4c85-B874-FFA435C71129}">>;

/// The values of a list of functions at one x, folded in order with the library function Operation:
/// the difference of f, g and h is (f(x) - g(x)) - h(x). Null slots are skipped; no function at all
/// gives 0.
template <double (*Operation)(double, double)>
class TFunctionsOperation : public TNFunctionsAggregate<IFunction> {
public:
    static constexpr const char* kIdentifier = FunctionsOperations::FindIdentifier<Operation>();
    static_assert(FunctionsOperations::kContains<Operation>,
                  "this operation has no class identifier");

    const char* GetType() const override { return kIdentifier; }

    double Evaluate(double x) const override {
        double result = 0.0;
        bool isFirst = true;
        for (const Core::TOwnershipWithClone<IFunction>& slot : GetSlots()) {
            const IFunction* function = PartOf(slot);
            if (function) {
                const double value = function->Evaluate(x);
                result = isFirst ? value : Operation(result, value);
                isFirst = false;
            }
        }
        return result;
    }

    IFunction* Clone() const override { return new TFunctionsOperation(*this); }
};

} // namespace Vorin::Math
