#pragma once

namespace Vorin::Containers {

/// A cursor over a collection, standing on an item or at the end.
///
/// Created by the collection, owned by the caller (`delete`). It must not outlive the collection,
/// nor a change of it. A new cursor stands on the first item.
class ICursor {
public:
    /// Back to the first item.
    virtual void Reset() = 0;

    /// To the next item; at the end it stays there.
    virtual void Next() = 0;

    virtual bool IsAtEnd() const = 0;
    virtual ~ICursor() = default;
};

/// A cursor over objects, to read. `Get` needs a cursor that is not at the end.
template <class T>
class IConstIterator : public virtual ICursor {
public:
    virtual const T& Get() const = 0;
};

/// A cursor over objects, to change them.
template <class T>
class IIterator : public virtual IConstIterator<T> {
public:
    using IConstIterator<T>::Get;
    virtual T& Get() = 0;
};

/// A cursor that goes both ways.
template <class T>
class I2WaysIterator : public virtual IIterator<T> {
public:
    /// To the last item; to the end in an empty collection.
    virtual void SetToLast() = 0;

    /// To the previous item; from the first item, to the end.
    virtual void Previous() = 0;
};

/// A cursor over values. `GetValue` needs a cursor that is not at the end.
template <class T>
class IConstValueIterator : public virtual ICursor {
public:
    virtual T GetValue() const = 0;
};

} // namespace Vorin::Containers
