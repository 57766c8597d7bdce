#pragma once

namespace Vorin::Core {

/// Says beside a raw pointer who deletes the object. Every test compares with `kOwn`.
enum EOwnership { kDontOwn = 0, kOwn = 1 };

/// A pointer with a flag that says whether this holder deletes the object.
///
/// Starts as null and `kOwn`. Not copyable: two holders would both delete.
template <class T>
class TOwnership {
public:
    TOwnership() = default;
    TOwnership(T* object, EOwnership objectOwnership)
        : pointer(object), ownership(objectOwnership) {}

    virtual ~TOwnership() {
        if (ownership == kOwn) {
            delete pointer;
        }
        pointer = nullptr;
        ownership = kOwn;
    }

    TOwnership(const TOwnership&) = delete;
    TOwnership& operator=(const TOwnership&) = delete;

    virtual const T* Get() const { return pointer; }
    virtual T* Get() { return pointer; }

    /// Deletes the held object when it is owned and is not `object`, then stores both.
    /// `Set(Get(), kDontOwn)` gives the object away without deleting it.
    void Set(T* object, EOwnership objectOwnership) {
        T* old = pointer;
        const bool deleteOld = ownership == kOwn && old != object;
        // Stored first: the destructor of the old object may look at this holder.
        pointer = object;
        ownership = objectOwnership;
        if (deleteOld) {
            delete old;
        }
    }

    EOwnership GetOwnership() const { return ownership; }

private:
    T* pointer = nullptr;
    EOwnership ownership = kOwn;
};

/// A `TOwnership` whose copy owns a clone of the object, made by `T::Clone`.
///
/// An object that is not owned is cloned too; null stays null.
template <class T>
class TOwnershipWithClone : public TOwnership<T> {
public:
    TOwnershipWithClone() = default;
    TOwnershipWithClone(T* object, EOwnership objectOwnership)
        : TOwnership<T>(object, objectOwnership) {}
    TOwnershipWithClone(const TOwnershipWithClone& other) : TOwnership<T>(CloneOf(other), kOwn) {}

    TOwnershipWithClone& operator=(const TOwnershipWithClone& other) {
        if (this != &other) {
            this->Set(CloneOf(other), kOwn);
        }
        return *this;
    }

private:
    static T* CloneOf(const TOwnershipWithClone& other) {
        const T* object = other.Get();
        return object ? object->Clone() : nullptr;
    }
};

} // namespace Vorin::Core
