#pragma once

#include "containers/DynamicVector.h"
#include "containers/Vector.h"

#include <algorithm>
#include <cassert>

namespace Vorin::CoreUtilities {

/// Items of a concrete type `T`, kept by value and handed out as their interface `I`.
///
/// `V` is the interface that the collection implements: `IVector<I>`, `IConstVector<I>`, or one
/// derived from them. `T` is default-constructible and assignable. References to items are valid
/// until the next `Add` or growing `SetCount`.
template <class T, class I, class V = Containers::IVector<I>>
class TDynamicCollection : public virtual V {
public:
    int GetCount() const override { return items.GetSize(); }

    const I& Get(int index) const override { return At(index); }

    // No `override`: V may or may not have the non-const form.
    I& Get(int index) { return At(index); } // NOLINT(modernize-use-override)

    T& At(int index) {
        assert(0 <= index && index < items.GetSize());
        return items[index];
    }
    const T& At(int index) const {
        assert(0 <= index && index < items.GetSize());
        return items[index];
    }

    /// A count below 0 counts as 0. Items that leave are reset to `T()` at once, and those that
    /// join are `T()`.
    virtual void SetCount(int count) {
        for (int index = std::max(count, 0); index < items.GetSize(); ++index) {
            items[index] = T();
        }
        items.SetSize(count);
    }

    void Add(const T& item) { items.Add(item); }

private:
    Containers::TDynamicVector<T> items;
};

} // namespace Vorin::CoreUtilities
