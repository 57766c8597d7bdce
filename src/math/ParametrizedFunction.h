#pragma once

#include "containers/Iterator.h"
#include "math/Constant.h"
#include "math/FunctionProxy.h"
#include "math/FunctionTreeWalk.h"
#include "math/Placeholders.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Vorin::Math {

/// A function of interface F whose formula has open names, which stand for constants, functions and
/// binary functions: one name may stand for all three, and at many places of the tree.
///
/// One thread at a time, also while its function is being evaluated.
template <class F>
class TIParametrizedFunction {
public:
    using NameIterator = Containers::IConstValueIterator<const char*>;

    /// The tree, which lives until another one is set; null when there is none. Setting a name
    /// changes what it evaluates to. A clone of the tree is a function as any other, without open
    /// names: `Clone` of this object keeps them.
    virtual const F* GetFunction() const = 0;
    virtual ~TIParametrizedFunction() = default;

    /// New cursors over the open names of each kind, in no order; the caller deletes them. Names
    /// and cursors are valid until a tree is set.
    virtual NameIterator* CreateConstantIterator() const = 0;
    virtual NameIterator* CreateFunctionIterator() const = 0;
    virtual NameIterator* CreateBinaryFunctionIterator() const = 0;

    /// Sets the value at every place of the name. False when there is no such name, or it is null.
    virtual bool SetConstant(const char* name, double value) = 0;

    /// Puts a function, which is borrowed, at every place where the name is called with one
    /// argument; it outlives its stay there. A name that nothing was put at is the identity.
    virtual bool SetFunction(const char* name, const IFunction& function) = 0;

    /// The same for two arguments; nothing put there is the sum of both.
    virtual bool SetBinaryFunction(const char* name, const IBinaryFunction& function) = 0;

    /// Replaces the tree, which is owned from here on; the previous one is deleted. Names whose
    /// places are not in it are forgotten.
    virtual void SetFunction(F* function) = 0;

    /// A deep copy, owned by the caller, with the same names and what stands at them. Setting a
    /// name of the one does not reach the other.
    virtual TIParametrizedFunction* Clone() const = 0;
};

/// The settable constant of a tree of interface F.
template <class F>
struct TConstantPlaceholder;
template <>
struct TConstantPlaceholder<IConstant> {
    using Type = CConstant;
};
template <>
struct TConstantPlaceholder<IFunction> {
    using Type = CConstantFunction;
};
template <>
struct TConstantPlaceholder<IBinaryFunction> {
    using Type = CConstantBinaryFunction;
};

/// The tree and, for each name, its places in it.
///
/// Who builds a tree registers its places one by one, as they are made, and then sets the tree. A
/// place that was registered has to live until the tree is set; nothing touches it before unless a
/// name is set.
template <class F>
class TParametrizedFunction : public virtual TIParametrizedFunction<F> {
public:
    using Constant = typename TConstantPlaceholder<F>::Type;
    using typename TIParametrizedFunction<F>::NameIterator;

    TParametrizedFunction() = default;
    TParametrizedFunction(const TParametrizedFunction&) = delete;
    TParametrizedFunction& operator=(const TParametrizedFunction&) = delete;

    const F* GetFunction() const override { return root.get(); }

    NameIterator* CreateConstantIterator() const override { return constants.CreateIterator(); }
    NameIterator* CreateFunctionIterator() const override { return functions.CreateIterator(); }
    NameIterator* CreateBinaryFunctionIterator() const override {
        return binaryFunctions.CreateIterator();
    }

    bool SetConstant(const char* name, double value) override {
        return constants.ForEach(name, [value](Constant& place) { place.SetValue(value); });
    }
    bool SetFunction(const char* name, const IFunction& function) override {
        return functions.ForEach(name, [&function](CFunctionProxy& place) {
            place.SetTarget(&function, Core::kDontOwn);
        });
    }
    bool SetBinaryFunction(const char* name, const IBinaryFunction& function) override {
        return binaryFunctions.ForEach(name, [&function](CBinaryFunctionProxy& place) {
            place.SetTarget(&function, Core::kDontOwn);
        });
    }

    void SetFunction(F* function) override {
        if (function == root.get()) {
            return;
        }
        PlaceSet places;
        if (function) {
            WalkFunctionTree(*function, [&](const Serialization::ISerialize& object) {
                places.insert(&object);
                return !IsPlace(object);
            });
        }
        constants.Retain(places);
        functions.Retain(places);
        binaryFunctions.Retain(places);
        root.reset(function);
    }

    /// The places of a constant's name, for who sets them often: `SetConstant` looks them up each
    /// time. Valid until a tree is set.
    typename TPlaceholders<Constant>::CPlaces FindConstant(const char* name) const {
        return constants.Find(name);
    }

    /// Registers a place under a name, which is copied; it belongs to the tree. False for a null or
    /// empty name, or a null place.
    bool AddConstant(const char* name, Constant* place) { return constants.Add(name, place); }
    bool AddFunction(const char* name, CFunctionProxy* place) { return functions.Add(name, place); }
    bool AddBinaryFunction(const char* name, CBinaryFunctionProxy* place) {
        return binaryFunctions.Add(name, place);
    }

    TParametrizedFunction* Clone() const override {
        auto clone = std::make_unique<TParametrizedFunction>();
        if (root) {
            clone->root.reset(root->Clone());
            const PlaceMap places = MatchPlaces(*clone->root);
            clone->constants.AddMatching(constants, places);
            clone->functions.AddMatching(functions, places);
            clone->binaryFunctions.AddMatching(binaryFunctions, places);
        }
        return clone.release();
    }

private:
    bool IsPlace(const Serialization::ISerialize& object) const {
        return constants.Has(object) || functions.Has(object) || binaryFunctions.Has(object);
    }

    /// From each place of this tree to that of a clone of it. Both are walked alike; what is below
    /// a place is left out.
    PlaceMap MatchPlaces(const F& clonedRoot) const {
        std::unordered_map<int, const Serialization::ISerialize*> placeAt;
        int index = 0;
        WalkFunctionTree(*root, [&](const Serialization::ISerialize& object) {
            const bool isPlace = IsPlace(object);
            if (isPlace) {
                placeAt[index] = &object;
            }
            ++index;
            return !isPlace;
        });
        PlaceMap places;
        index = 0;
        WalkFunctionTree(clonedRoot, [&](const Serialization::ISerialize& object) {
            const auto found = placeAt.find(index++);
            if (found != placeAt.end()) {
                places[found->second] = &object;
            }
            return found == placeAt.end();
        });
        return places;
    }

    TPlaceholders<Constant> constants;
    TPlaceholders<CFunctionProxy> functions;
    TPlaceholders<CBinaryFunctionProxy> binaryFunctions;
    std::unique_ptr<F> root;
};

} // namespace Vorin::Math
