#pragma once

#include "containers/Vector.h"

namespace Vorin::Audio::DSP {

/// Two lists of values as one, the first before the second. The lists are borrowed.
template <class T>
class TConstValuesMux : public Containers::IConstValueVector<T> {
public:
    TConstValuesMux(const Containers::IConstValueVector<T>& one,
                    const Containers::IConstValueVector<T>& two)
        : first(one), second(two) {}

    int GetCount() const override { return first.GetCount() + second.GetCount(); }
    T GetValue(int index) const override {
        const int count = first.GetCount();
        return index < count ? first.GetValue(index) : second.GetValue(index - count);
    }

private:
    const Containers::IConstValueVector<T>& first;
    const Containers::IConstValueVector<T>& second;
};

using CConstParamsValuesMux = TConstValuesMux<double>;

/// Two lists of objects as one, the first before the second. The lists are borrowed.
template <class T>
class TConstVectorMux : public Containers::IConstVector<T> {
public:
    TConstVectorMux(const Containers::IConstVector<T>& one, const Containers::IConstVector<T>& two)
        : first(one), second(two) {}

    int GetCount() const override { return first.GetCount() + second.GetCount(); }
    const T& Get(int index) const override {
        const int count = first.GetCount();
        return index < count ? first.Get(index) : second.Get(index - count);
    }

private:
    const Containers::IConstVector<T>& first;
    const Containers::IConstVector<T>& second;
};

/// The same over lists whose objects may be changed.
template <class T>
class TVectorMux : public Containers::IVector<T> {
public:
    TVectorMux(Containers::IVector<T>& one, Containers::IVector<T>& two)
        : first(one), second(two) {}

    int GetCount() const override { return first.GetCount() + second.GetCount(); }
    const T& Get(int index) const override { return At(index); }
    T& Get(int index) override { return At(index); }

private:
    T& At(int index) const {
        const int count = first.GetCount();
        return index < count ? first.Get(index) : second.Get(index - count);
    }

    Containers::IVector<T>& first;
    Containers::IVector<T>& second;
};

} // namespace Vorin::Audio::DSP
