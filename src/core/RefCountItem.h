#pragma once

#include <atomic>
#include <memory>
#include <type_traits>
#include <utility>

namespace Vorin::Core {

/// A value shared by counted references: the last `Release` destroys the item.
///
/// A new item counts 1: the reference of its maker. The value is valid while a reference is held.
template <class T>
class IRefCountItem {
public:
    virtual void AddRef() = 0;

    /// Gives one reference back; at zero the item deletes itself.
    virtual void Release() = 0;

    virtual int GetRefCount() const = 0;
    virtual T GetValue() const = 0;
    virtual T Get() const { return GetValue(); }
    virtual operator T() const { return GetValue(); }

    virtual ~IRefCountItem() = default;
};

/// The only owner of an object, as the stored form of a shared one.
template <class I>
class OwnedPtr {
public:
    explicit OwnedPtr(I* owned) : object(owned) {}

    /// Null for null.
    const I* Get() const { return object.get(); }

private:
    std::unique_ptr<I> object;
};

/// What the two items share: the stored value `S` and its view as a `T`.
///
/// `S` is `T` itself, or has `Get()` giving a pointer: to the text when `T` is `const char*`, to
/// the object, which is then not null, when `T` is a reference.
template <class T, class S>
class TStoredRefCountItem : public virtual IRefCountItem<T> {
public:
    template <class... Args>
    explicit TStoredRefCountItem(Args&&... args) : stored(std::forward<Args>(args)...) {}

    TStoredRefCountItem(const TStoredRefCountItem&) = delete;
    TStoredRefCountItem& operator=(const TStoredRefCountItem&) = delete;

    T GetValue() const override {
        if constexpr (std::is_convertible_v<const S&, T>) {
            return stored;
        } else if constexpr (std::is_pointer_v<T>) {
            return stored.Get();
        } else {
            return *stored.Get();
        }
    }

private:
    S stored;
};

/// The form for one thread.
template <class T, class S>
class RefCountItem final : public TStoredRefCountItem<T, S> {
public:
    using TStoredRefCountItem<T, S>::TStoredRefCountItem;

    void AddRef() override { ++count; }

    void Release() override {
        if (--count == 0) {
            delete this;
        }
    }

    int GetRefCount() const override { return count; }

private:
    int count = 1;
};

/// The form whose references are taken and given back on any thread: `AddRef`, `Release` [any].
template <class T, class S>
class MTRefCountItem final : public TStoredRefCountItem<T, S> {
public:
    using TStoredRefCountItem<T, S>::TStoredRefCountItem;

    void AddRef() override { count.fetch_add(1); }

    void Release() override {
        if (count.fetch_sub(1) == 1) {
            delete this;
        }
    }

    /// A snapshot: other threads may have changed it by the time it is read.
    int GetRefCount() const override { return count.load(); }

private:
    std::atomic<int> count{1}; // sequentially consistent: each change is a full barrier
};

/// Holds one reference to an item, or none.
template <class T>
class RefCountItemPtr {
public:
    RefCountItemPtr() = default;

    /// Takes over a reference that the caller holds, as that of a new item.
    explicit RefCountItemPtr(IRefCountItem<T>* referenced) : item(referenced) {}

    RefCountItemPtr(const RefCountItemPtr& other) : item(other.item) {
        if (item) {
            item->AddRef();
        }
    }
    RefCountItemPtr(RefCountItemPtr&& other) noexcept : item(std::exchange(other.item, nullptr)) {}

    RefCountItemPtr& operator=(RefCountItemPtr other) noexcept {
        std::swap(item, other.item);
        return *this;
    }

    ~RefCountItemPtr() {
        if (item) {
            item->Release();
        }
    }

    /// A further reference to an item that somebody else holds; null for null.
    static RefCountItemPtr Share(IRefCountItem<T>* held) {
        if (held) {
            held->AddRef();
        }
        return RefCountItemPtr(held);
    }

    IRefCountItem<T>* Get() const { return item; }
    IRefCountItem<T>* operator->() const { return item; }
    IRefCountItem<T>& operator*() const { return *item; }
    explicit operator bool() const { return item != nullptr; }

private:
    IRefCountItem<T>* item = nullptr;
};

} // namespace Vorin::Core
