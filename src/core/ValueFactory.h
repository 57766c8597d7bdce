#pragma once

#include "core/EventProvider.h"
#include "core/StoredValue.h"
#include "core/Value.h"

#include <type_traits>

namespace Vorin::Core {

/// What `CreateValue` of a `T` gives: `char*` for a text, `I*` for `const I&`.
template <class T>
struct TCreatedValue;

template <>
struct TCreatedValue<const char*> {
    using Type = char*;
};

template <class I>
struct TCreatedValue<const I&> {
    using Type = I*;
};

/// A value whose readers get a private copy each, since the stored one may change or die.
template <class T>
class TIConstValueFactory : public virtual IValueChangedEventProvider {
public:
    /// A new copy that the caller owns, or null: a text is freed with `delete[]`, an object with
    /// `delete`.
    virtual typename TCreatedValue<T>::Type CreateValue() const = 0;
};

template <class T>
class TIValueFactory : public virtual TIConstValueFactory<T> {
public:
    virtual void SetValue(T value) = 0;
};

/// A text or an object of which readers create copies; notifies after it was changed.
///
/// `SetValue` of a text compares (two nulls are equal) and keeps a private copy; `SetValue` of an
/// object always stores a clone and always notifies. Starts as null unless given a value. One
/// thread, or the lock of its user.
template <class T, class P = CEventProvider>
class TValueFactory : public virtual TIValueFactory<T> {
public:
    using Created = typename TCreatedValue<T>::Type;
    using Given = std::conditional_t<std::is_pointer_v<T>, T, Created>;

    TValueFactory() : stored(nullptr, kDontOwn) {}
    explicit TValueFactory(T initial) : stored(initial) {}

    /// Takes the value as it is: with `kOwn` it is deleted when replaced (a text as an array),
    /// with `kDontOwn` it must outlive its stay here.
    TValueFactory(Given initial, EOwnership ownership) : stored(initial, ownership) {}

    TValueFactory(const TValueFactory&) = delete;
    TValueFactory& operator=(const TValueFactory&) = delete;

    IEventProvider& GetValueChangedEvents() override { return valueChanged; }

    Created CreateValue() const override { return stored.Create(); }

    void SetValue(T value) override {
        if (stored.Set(value)) {
            valueChanged.Notify();
        }
    }

private:
    TStoredValue<T> stored;
    P valueChanged;
};

} // namespace Vorin::Core
