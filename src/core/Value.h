#pragma once

#include "core/EventProvider.h"
#include "core/StoredValue.h"

#include <type_traits>

namespace Vorin::Core {

/// Something that tells when its value changed.
class IValueChangedEventProvider {
public:
    virtual IEventProvider& GetValueChangedEvents() = 0;
    virtual ~IValueChangedEventProvider() = default;
};

/// A value to read, with its change event.
template <class T>
class TIConstValue : public virtual IValueChangedEventProvider {
public:
    virtual T GetValue() const = 0;
};

/// A value to read and write, with its change event.
template <class T>
class TIValue : public virtual TIConstValue<T> {
public:
    virtual void SetValue(T value) = 0;
};

/// A stored value that notifies after it was changed.
///
/// `T` is `bool`, a number, an enum, `const char*` or `const I&` for an object type `I` with
/// `Clone`; `P` is the event provider. What counts as a change:
/// - `double`: `v < value || v > value`, deliberately not `!=`. NaN is neither, so setting NaN
///   is ignored and the value stays a number.
/// - other plain types: different.
/// - `const char*`: one is null and the other is not, or the texts differ. The value keeps a
///   private copy; `GetValue` is valid until the next change.
/// - `const I&`: every `SetValue`. The value keeps a clone; `GetValue` is valid until the next
///   `SetValue`.
///
/// The thread rules are those of `P` for the event; the store itself is never locked.
template <class T, class P = CEventProvider>
class TValue : public virtual TIValue<T> {
public:
    explicit TValue(T initial = {}) : stored(initial) {}

    TValue(const TValue&) = delete;
    TValue& operator=(const TValue&) = delete;

    IEventProvider& GetValueChangedEvents() override { return valueChanged; }

    T GetValue() const override { return stored.Get(); }

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
