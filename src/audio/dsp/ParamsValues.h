#pragma once

#include "containers/Vector.h"

#include <algorithm>
#include <vector>

namespace Vorin::Audio::DSP {

using IConstParamsValues = Containers::IConstValueVector<double>;
using IParamsValues = Containers::IValueVector<double>;

/// Parameter values in their own units, of a count fixed at construction.
class CParamsValues : public IParamsValues {
public:
    /// Copies `source` when there is one; otherwise all values are 0.
    explicit CParamsValues(int count = 0, const double* source = nullptr)
        : values(static_cast<std::size_t>(std::max(count, 0))) {
        if (source) {
            std::copy_n(source, values.size(), values.begin());
        }
    }

    int GetCount() const override { return static_cast<int>(values.size()); }
    double GetValue(int index) const override { return values[static_cast<std::size_t>(index)]; }
    void SetValue(int index, double value) override {
        values[static_cast<std::size_t>(index)] = value;
    }

protected:
    std::vector<double> values;
};

/// Parameter values whose count may change; new values are 0.
class CDynamicParamsValues : public CParamsValues {
public:
    using CParamsValues::CParamsValues;

    void SetCount(int count) { values.resize(static_cast<std::size_t>(std::max(count, 0))); }
};

} // namespace Vorin::Audio::DSP
