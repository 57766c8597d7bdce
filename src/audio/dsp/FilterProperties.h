#pragma once

#include "audio/dsp/ParamsValues.h"
#include "containers/CharString.h"
#include "containers/Vector.h"
#include "datamodel/DynamicPropertyValue.h"
#include "math/Function.h"

#include <memory>
#include <vector>

namespace Vorin::Audio::DSP {

class IFilter;

using IConstStrings = Containers::IConstValueVector<const char*>;
using IConstCurves = Containers::IConstVector<Math::IFunction>;
using IConstSurfaces = Containers::IConstVector<Math::IBinaryFunction>;
using IConstPropertyValues = Containers::IConstVector<DataModel::Objects::IDynamicPropertyValue>;

/// The values of all five input groups of a filter at one moment, and the index of its
/// configuration.
class IConstFilterProperties {
public:
    virtual const IConstParamsValues& GetInputParams() const = 0;
    virtual const IConstStrings& GetInputStrings() const = 0;
    virtual const IConstCurves& GetInputCurves() const = 0;
    virtual const IConstSurfaces& GetInputSurfaces() const = 0;
    virtual const IConstPropertyValues& GetInputProperties() const = 0;
    /// -1 for the default configuration.
    virtual int GetIOConfiguration() const = 0;
    virtual ~IConstFilterProperties() = default;
};

class IFilterProperties : public IConstFilterProperties {
public:
    using IConstFilterProperties::GetInputParams;
    virtual IParamsValues& GetInputParams() = 0;
    virtual void SetIOConfiguration(int index) = 0;
};

/// Objects held by value as a list of an interface; a copy holds clones.
template <class T>
class TClonedVector : public Containers::IConstVector<T> {
public:
    TClonedVector() = default;
    TClonedVector(const TClonedVector& other) { *this = other; }
    TClonedVector& operator=(const TClonedVector& other) {
        if (this != &other) {
            items.clear();
            for (const auto& item : other.items) {
                Add(*item);
            }
        }
        return *this;
    }

    void Clear() { items.clear(); }
    void Add(const T& item) { items.emplace_back(item.Clone()); }
    int GetCount() const override { return static_cast<int>(items.size()); }
    const T& Get(int index) const override { return *items[static_cast<std::size_t>(index)]; }

private:
    std::vector<std::unique_ptr<T>> items;
};

/// Owned texts as a list.
class CStrings : public IConstStrings {
public:
    void Clear() { texts.clear(); }
    void Add(const char* text) { texts.emplace_back(text); }
    int GetCount() const override { return static_cast<int>(texts.size()); }
    const char* GetValue(int index) const override {
        return texts[static_cast<std::size_t>(index)].Get();
    }

private:
    std::vector<Containers::CCharString> texts;
};

/// A snapshot of input values that owns all of them. Plain data, of no thread.
class CFilterProperties : public IFilterProperties {
public:
    /// Takes the counts of a filter's input groups and the default of each element. Allocates.
    void Fill(const IFilter& filter);

    const IConstParamsValues& GetInputParams() const override { return params; }
    IParamsValues& GetInputParams() override { return params; }
    const IConstStrings& GetInputStrings() const override { return strings; }
    const IConstCurves& GetInputCurves() const override { return curves; }
    const IConstSurfaces& GetInputSurfaces() const override { return surfaces; }
    const IConstPropertyValues& GetInputProperties() const override { return properties; }
    int GetIOConfiguration() const override { return configuration; }
    void SetIOConfiguration(int index) override { configuration = index; }

private:
    CDynamicParamsValues params;
    CStrings strings;
    TClonedVector<Math::IFunction> curves;
    TClonedVector<Math::IBinaryFunction> surfaces;
    TClonedVector<DataModel::Objects::IDynamicPropertyValue> properties;
    int configuration = -1;
};

/// Presents the values of another object without copying, with the parameters narrowed to a range.
class CFilterPropertiesAdapter : public IConstFilterProperties {
public:
    /// `properties` is borrowed. All parameters are shown until SetParamRange.
    explicit CFilterPropertiesAdapter(const IConstFilterProperties& properties);

    /// Shows `count` parameters from `first` on, as far as there are any.
    void SetParamRange(int first, int count);

    const IConstParamsValues& GetInputParams() const override { return params; }
    const IConstStrings& GetInputStrings() const override { return source->GetInputStrings(); }
    const IConstCurves& GetInputCurves() const override { return source->GetInputCurves(); }
    const IConstSurfaces& GetInputSurfaces() const override { return source->GetInputSurfaces(); }
    const IConstPropertyValues& GetInputProperties() const override {
        return source->GetInputProperties();
    }
    int GetIOConfiguration() const override { return source->GetIOConfiguration(); }

private:
    class CParamRange : public IConstParamsValues {
    public:
        int GetCount() const override { return count; }
        double GetValue(int index) const override { return values->GetValue(first + index); }

        const IConstParamsValues* values = nullptr;
        int first = 0;
        int count = 0;
    };

    const IConstFilterProperties* source;
    CParamRange params;
};

} // namespace Vorin::Audio::DSP
