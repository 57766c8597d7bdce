#pragma once

#include "containers/Count.h"

namespace Vorin::Containers {

/// Objects by index, to read. The index runs from 0 to `GetCount() - 1`; anything else is a fault
/// of the caller, asserted in debug builds.
template <class T>
class IConstVector : public virtual IConstCount {
public:
    virtual const T& Get(int index) const = 0;
};

/// Objects by index, to read and to change.
template <class T>
class IVector : public virtual IConstVector<T> {
public:
    using IConstVector<T>::Get;
    virtual T& Get(int index) = 0;
};

/// Values by index, to read.
template <class T>
class IConstValueVector : public virtual IConstCount {
public:
    virtual T GetValue(int index) const = 0;
};

/// Values by index, to read and to set.
template <class T>
class IValueVector : public virtual IConstValueVector<T> {
public:
    virtual void SetValue(int index, T value) = 0;
};

} // namespace Vorin::Containers
