#pragma once

#include "containers/CharString.h"
#include "core/Value.h"
#include "core/ValueFactory.h"
#include "datamodel/objects/DefaultValue.h"
#include "datamodel/objects/ParamRange.h"

#include <memory>

namespace Vorin::DataModel::Objects {

/// A private copy of a number. The holders have no locks.
class CParamFloatValueHolder {
public:
    explicit CParamFloatValueHolder(double initial = 0.0) : value(initial) {}

    double Get() const { return value; }

    /// Whether SetValue by `newValue` would be a change.
    bool Differs(double newValue) const { return IsChange(newValue, value); }

    void Set(double newValue) { value = newValue; }

    /// Takes what `object` has.
    void Read(const Core::TIConstValue<double>& object) { value = object.GetValue(); }

    /// Takes over what the other one has, and says whether that was a change.
    bool TakeFrom(CParamFloatValueHolder& other) {
        const bool differs = Differs(other.value);
        if (differs) {
            value = other.value;
        }
        return differs;
    }

private:
    double value;
};

/// A private copy of a text; null counts as the empty text. What is handed in may point into it.
class CStringValueHolder {
public:
    explicit CStringValueHolder(const char* initial = "") : value(initial) {}

    const char* Get() const { return value.Get(); }

    bool Differs(const char* text) const { return !(value == (text ? text : "")); }

    void Set(const char* text) { value = text; }

    void Read(const Core::TIConstValue<const char*>& object) { value = object.GetValue(); }
    void Read(const Core::TIConstValueFactory<const char*>& factory) {
        const std::unique_ptr<char[]> created(factory.CreateValue());
        value = created.get();
    }

    bool TakeFrom(CStringValueHolder& other) {
        const bool differs = !(value == other.value);
        if (differs) {
            value = other.value;
        }
        return differs;
    }

private:
    Containers::CCharString value;
};

/// A private copy of an object with `Clone`. Objects are not compared: each one counts as new.
template <class F>
class TObjectValueHolder {
public:
    TObjectValueHolder() = default;
    explicit TObjectValueHolder(const F& initial) : value(initial.Clone()) {}

    /// The object; without one, the default of the info.
    template <class I>
    const F& Get(const I& info) const {
        return value ? *value : GetDefaultOf(info);
    }

    bool Differs(const F&) const { return true; }

    /// An object that gives no clone leaves this one.
    void Set(const F& object) {
        if (F* clone = object.Clone()) {
            value.reset(clone);
        }
    }

    void Read(const Core::TIConstValue<const F&>& object) {
        value.reset(object.GetValue().Clone());
    }
    void Read(const Core::TIConstValueFactory<const F&>& factory) {
        value.reset(factory.CreateValue());
    }

    /// Takes the object away from the other one; false when there is none to be had.
    bool TakeFrom(TObjectValueHolder& other) {
        if (!other.value) {
            return false;
        }
        value = std::move(other.value);
        return true;
    }

private:
    std::unique_ptr<F> value;
};

namespace Details {

template <class T>
struct TValueHolderOf;

template <>
struct TValueHolderOf<double> {
    using Type = CParamFloatValueHolder;
};
template <>
struct TValueHolderOf<const char*> {
    using Type = CStringValueHolder;
};
template <class F>
struct TValueHolderOf<const F&> {
    using Type = TObjectValueHolder<F>;
};

} // namespace Details

/// The holder of the value `T` of a model object.
template <class T>
using TValueHolder = typename Details::TValueHolderOf<T>::Type;

} // namespace Vorin::DataModel::Objects
