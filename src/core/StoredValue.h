#pragma once

#include "core/Ownership.h"

#include <cassert>
#include <cstring>
#include <type_traits>

namespace Vorin::Core {

/// The field behind a value: the plain thing itself, or a private copy of a text or an object.
///
/// `Set` stores and says whether that was a change to be told. Not copyable in the owning forms.
template <class T>
class TStoredValue {
    static_assert(std::is_arithmetic_v<T> || std::is_enum_v<T>,
                  "values are plain types, texts, or references to objects with Clone");

public:
    explicit TStoredValue(T initial) : value(initial) {}

    T Get() const { return value; }

    bool Set(T v) {
        if constexpr (std::is_floating_point_v<T>) {
            // Not `!=`: NaN compares false on both sides and so is never stored.
            if (!(v < value || v > value)) {
                return false;
            }
        } else {
            if (v == value) {
                return false;
            }
        }
        value = v;
        return true;
    }

private:
    T value;
};

template <>
class TStoredValue<const char*> {
public:
    explicit TStoredValue(const char* initial) : value(NewCopy(initial)), owned(value != nullptr) {}

    /// Takes a text as it is: with `kOwn` an array that is deleted with this value, with
    /// `kDontOwn` one that outlives it.
    TStoredValue(const char* initial, EOwnership ownership)
        : value(initial), owned(ownership == kOwn) {}

    ~TStoredValue() {
        if (owned) {
            delete[] value;
        }
    }

    TStoredValue(const TStoredValue&) = delete;
    TStoredValue& operator=(const TStoredValue&) = delete;

    const char* Get() const { return value; }

    /// A new array that the caller deletes, or null.
    char* Create() const { return NewCopy(value); }

    bool Set(const char* v) {
        const bool same = (v && value) ? std::strcmp(v, value) == 0 : v == value;
        if (same) {
            return false;
        }
        const char* old = value;
        const bool deleteOld = owned;
        value = NewCopy(v); // before the old text goes: `v` may lie inside it
        owned = true;
        if (deleteOld) {
            delete[] old;
        }
        return true;
    }

private:
    static char* NewCopy(const char* text) {
        if (!text) {
            return nullptr;
        }
        const std::size_t bytes = std::strlen(text) + 1;
        char* copy = new char[bytes];
        std::memcpy(copy, text, bytes);
        return copy;
    }

    const char* value;
    bool owned;
};

template <class I>
class TStoredValue<const I&> {
public:
    explicit TStoredValue(const I& initial) : value(initial.Clone(), kOwn) {}
    /// Takes an object as it is, owned or outliving this value; may be null.
    TStoredValue(I* initial, EOwnership ownership) : value(initial, ownership) {}

    /// The object must be there: a value made from a null object has none until the first `Set`.
    const I& Get() const {
        assert(value.Get());
        return *value.Get();
    }

    /// A new object that the caller deletes, or null.
    I* Create() const {
        const I* object = value.Get();
        return object ? object->Clone() : nullptr;
    }

    /// There is no comparison of objects: every `Set` counts as a change.
    bool Set(const I& v) {
        I* clone = v.Clone();
        if (!clone) {
            return false; // an object that cannot be cloned leaves the value as it is
        }
        value.Set(clone, kOwn);
        return true;
    }

private:
    TOwnership<I> value;
};

} // namespace Vorin::Core
