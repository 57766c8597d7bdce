#pragma once

#include <utility>

namespace Vorin::Core {

/// Contains a `T` as a first base class, so that it exists before a later base is built from it.
///
/// `N` makes two otherwise equal bases of one class distinct.
template <class T, int N = 0>
class THolder {
public:
    template <class... Args>
    explicit THolder(Args&&... args) : held(std::forward<Args>(args)...) {}
    virtual ~THolder() = default;

    THolder(const THolder&) = delete;
    THolder& operator=(const THolder&) = delete;

    T& GetHeld() { return held; }
    const T& GetHeld() const { return held; }

private:
    T held;
};

/// The same with a reference to a `T` that outlives the holder.
template <class T, int N = 0>
class TRefHolder {
public:
    explicit TRefHolder(T& object) : held(object) {}
    virtual ~TRefHolder() = default;

    TRefHolder(const TRefHolder&) = delete;
    TRefHolder& operator=(const TRefHolder&) = delete;

    T& GetHeld() const { return held; }

private:
    T& held;
};

} // namespace Vorin::Core
