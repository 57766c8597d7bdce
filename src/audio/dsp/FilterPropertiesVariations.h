#pragma once

#include "audio/dsp/FilterProperties.h"

#include <array>
#include <optional>

namespace Vorin::Audio::DSP {

/// Input values as they run: order 0 is the value, each order above it the next forward difference
/// per frame. Most have order 0 alone.
class IConstFilterPropertiesVariations {
public:
    /// The highest order is GetCount() - 1.
    virtual int GetCount() const = 0;
    virtual const IConstFilterProperties& GetVariation(int order) const = 0;
    virtual bool HasOrder(int order) const { return order >= 0 && order < GetCount(); }
    virtual ~IConstFilterPropertiesVariations() = default;
};

/// One set of values, of order 0. The values are borrowed.
class CFilterPropertiesVariations : public IConstFilterPropertiesVariations {
public:
    explicit CFilterPropertiesVariations(const IConstFilterProperties& values) : order0(values) {}

    int GetCount() const override { return 1; }
    const IConstFilterProperties& GetVariation(int) const override { return order0; }

private:
    const IConstFilterProperties& order0;
};

/// Variations with the parameters of each order narrowed to a range. The source is borrowed. Made
/// per block on the stack: orders above kMaxOrder are left out, rather than allocated for. [audio]
class CFilterPropertiesVariationsAdapter : public IConstFilterPropertiesVariations {
public:
    static constexpr int kMaxOrder = 3;

    CFilterPropertiesVariationsAdapter(const IConstFilterPropertiesVariations& source,
                                       int firstParam, int paramsCount);

    int GetCount() const override { return count; }
    const IConstFilterProperties& GetVariation(int order) const override {
        return *orders[static_cast<std::size_t>(order)];
    }

private:
    std::array<std::optional<CFilterPropertiesAdapter>, kMaxOrder + 1> orders;
    int count;
};

/// The input values across one block. A filter applies those at the start before the block's first
/// frame, and those at the end after its last.
class IConstInputRamp {
public:
    virtual const IConstFilterPropertiesVariations& GetAtStart() const = 0;
    virtual const IConstFilterPropertiesVariations& GetAtEnd() const = 0;
    virtual ~IConstInputRamp() = default;
};

/// A ramp with the parameters narrowed to a range. The ramp is borrowed. [audio]
class CInputRampAdapter : public IConstInputRamp {
public:
    CInputRampAdapter(const IConstInputRamp& source, int firstParam, int paramsCount)
        : atStart(source.GetAtStart(), firstParam, paramsCount),
          atEnd(source.GetAtEnd(), firstParam, paramsCount) {}

    const IConstFilterPropertiesVariations& GetAtStart() const override { return atStart; }
    const IConstFilterPropertiesVariations& GetAtEnd() const override { return atEnd; }

private:
    CFilterPropertiesVariationsAdapter atStart;
    CFilterPropertiesVariationsAdapter atEnd;
};

} // namespace Vorin::Audio::DSP
