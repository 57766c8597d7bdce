#pragma once

#include "audio/plugin/AudioPluginInternals.h"

#include <atomic>
#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

/// One input value that the program itself sets. One thread may set it, and hear of its changes,
/// while the audio thread reads it.
class CInputValue : public Core::TIValue<double> {
public:
    explicit CInputValue(double initial) : value(initial) {}

    Core::IEventProvider& GetValueChangedEvents() override { return valueChanged; }

    /// [any]
    double GetValue() const override { return value.load(std::memory_order_relaxed); }

    /// NaN is ignored.
    void SetValue(double newValue) override {
        const double old = GetValue();
        if (newValue < old || newValue > old) {
            value.store(newValue, std::memory_order_relaxed);
            valueChanged.Notify();
        }
    }

private:
    std::atomic<double> value;
    Core::CEventProvider valueChanged;
};

/// The input values of a plug-in without a host: one per info, at its default.
class CInputValues : public CAudioPluginInternals::IInputValues {
public:
    explicit CInputValues(const DSP::IConstParamInfos& infos) {
        for (int i = 0; i < infos.GetCount(); ++i) {
            values.push_back(std::make_unique<CInputValue>(infos.Get(i).GetDefault()));
        }
    }

    int GetCount() const override { return static_cast<int>(values.size()); }
    const Core::TIValue<double>& Get(int index) const override {
        return *values[static_cast<std::size_t>(index)];
    }
    Core::TIValue<double>& Get(int index) override {
        return *values[static_cast<std::size_t>(index)];
    }

private:
    std::vector<std::unique_ptr<CInputValue>> values;
};

} // namespace Vorin::Audio::Plugin
