#pragma once

#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/ValueHolder.h"

#include <type_traits>

namespace Vorin::DataModel::Objects {

/// Whether model objects of type `T` have the factory form.
template <class T>
concept CCreatedValue = !std::is_same_v<T, double>;

/// What a proxy shows: a model object, or the factory form of one, of which each reader gets a
/// copy. Not owned. Making one does nothing with the object.
template <class T, class I>
class TConstProxyTarget {
public:
    TConstProxyTarget(TIConstCaptureObject<T, I>& target) : object(&target) {}
    TConstProxyTarget(TIConstCaptureObjectFactory<T, I>& target) requires CCreatedValue<T>
        : factory(&target) {}

    /// Calls `function` with the object, in whichever form.
    template <class Function>
    decltype(auto) Visit(Function function) const {
        if constexpr (CCreatedValue<T>) {
            if (factory) {
                return function(*factory);
            }
        }
        return function(*object);
    }

    const I& GetInfo() const {
        return Visit([](const auto& target) -> const I& { return target.GetInfo(); });
    }
    Core::IEventProvider& GetValueChangedEvents() const {
        return Visit(
            [](auto& target) -> Core::IEventProvider& { return target.GetValueChangedEvents(); });
    }
    Core::IConstCapture& GetGesture() const {
        return Visit([](auto& target) -> Core::IConstCapture& { return target; });
    }

    /// Takes a copy of the value.
    void ReadInto(TValueHolder<T>& holder) const {
        Visit([&holder](const auto& target) { holder.Read(target); });
    }

private:
    TIConstCaptureObject<T, I>* object = nullptr;
    TIConstCaptureObjectFactory<T, I>* factory = nullptr;
};

/// What a proxy shows and writes.
template <class T, class I>
class TProxyTarget : public TConstProxyTarget<T, I> {
public:
    TProxyTarget(TICaptureObject<T, I>& target)
        : TConstProxyTarget<T, I>(target), object(&target) {}
    TProxyTarget(TICaptureObjectFactory<T, I>& target) requires CCreatedValue<T>
        : TConstProxyTarget<T, I>(target), factory(&target) {}

    /// Calls `function` with the object, which has SetValue, Capture and Release in either form.
    template <class Function>
    decltype(auto) Visit(Function function) const {
        if constexpr (CCreatedValue<T>) {
            if (factory) {
                return function(*factory);
            }
        }
        return function(*object);
    }

private:
    TICaptureObject<T, I>* object = nullptr;
    TICaptureObjectFactory<T, I>* factory = nullptr;
};

} // namespace Vorin::DataModel::Objects
