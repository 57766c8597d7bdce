#pragma once

#include "audio/dsp/FilterProperties.h"
#include "core/RefCountItem.h"

#include <vector>

namespace Vorin::Audio::Plugin {

/// Counted references to the values of one group of a filter's inputs, as the list that a filter
/// reads. `T` is `const char*`, or `const I&` for a list of objects.
///
/// Plain data, of no thread. A place without a value is not read.
template <class T>
class TSharedValues;

template <>
class TSharedValues<const char*> : public DSP::IConstStrings {
public:
    int GetCount() const override { return static_cast<int>(items.size()); }
    const char* GetValue(int index) const override {
        return items[static_cast<std::size_t>(index)]->GetValue();
    }

    std::vector<Core::RefCountItemPtr<const char*>> items;
};

template <class I>
class TSharedValues<const I&> : public Containers::IConstVector<I> {
public:
    int GetCount() const override { return static_cast<int>(items.size()); }
    const I& Get(int index) const override {
        return items[static_cast<std::size_t>(index)]->GetValue();
    }

    std::vector<Core::RefCountItemPtr<const I&>> items;
};

/// One of each group but the parameters: what a filter has, or is to have.
struct CSharedInputs {
    TSharedValues<const char*> strings;
    TSharedValues<const Math::IFunction&> curves;
    TSharedValues<const Math::IBinaryFunction&> surfaces;
    TSharedValues<const DataModel::Objects::IDynamicPropertyValue&> properties;
};

} // namespace Vorin::Audio::Plugin
