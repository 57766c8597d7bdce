#pragma once

#include "audio/dsp/FilterTestKit.h"
#include "filters/Oscilloscope.h"
#include "filters/ReferenceOscilloscope.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

namespace PluginsFilters {

/// An oscilloscope and its plain form, led through the same life.
class CScopePair {
public:
    using Params = CReferenceOscilloscope::Params;

    explicit CScopePair(double rate) { Init(rate); }

    void Init(double rate) {
        filter.Init({}, rate);
        reference.Init(rate);
    }

    void SetRefreshRate(double hz) {
        filter.GetOutputDataSync()->SetRefreshRate(hz);
        reference.sync.hz = hz;
        reference.sync.period = static_cast<std::int64_t>(reference.sampleRate / hz);
    }

    void SetParams(const Params& values) {
        filter.SetInputParams(VariationsOf(values));
        reference.SetParams(values);
        params = values;
    }

    /// `samples` holds `frames * stride` samples at least, and one for a stride of 0.
    void Process(std::vector<float>& samples, int stride, int frames,
                 const Params* newParams = nullptr) {
        Vorin::Audio::DSP::CAudioStream stream(samples.data(), static_cast<int>(samples.size()),
                                               stride);
        Run(stream, frames, newParams, false);
        const Params old = params;
        reference.Process(samples.data(), stride, frames, newParams ? &old : nullptr, newParams);
        TakeParams(newParams);
    }

    void ProcessSilence(int frames, const Params* newParams = nullptr) {
        Vorin::Audio::DSP::CAudioStream stream;
        Run(stream, frames, newParams, true);
        const Params old = params;
        reference.ProcessSilence(frames, newParams ? &old : nullptr, newParams);
        TakeParams(newParams);
    }

    /// What a host does after each block. True when a refresh was due.
    bool Refresh() {
        if (!filter.GetOutputDataSync()->IsRefreshNeeded()) {
            return false;
        }
        filter.GetOutputDataSync()->Reset();
        reference.sync.sampleCount = 0;
        Update();
        return true;
    }

    void Update() {
        filter.UpdateOutputs();
        reference.Update();
    }

    void Publish() {
        filter.PublishOutputs();
        reference.Publish();
    }

    /// The state that each block leaves behind.
    ::testing::AssertionResult HasSameHistory() const {
        const Waveform& trace = scope.GetWaveform();
        if (trace.GetCount() != reference.trace.count ||
            trace.GetCurrentIndex() != reference.trace.currentIndex ||
            trace.GetOffset() != reference.trace.offset) {
            return ::testing::AssertionFailure()
                   << "circle: " << trace.GetCount() << " samples, head " << trace.GetCurrentIndex()
                   << ", offset " << trace.GetOffset() << " instead of " << reference.trace.count
                   << ", " << reference.trace.currentIndex << ", " << reference.trace.offset;
        }
        if (!HasSameTable(trace, reference.trace)) {
            return ::testing::AssertionFailure() << "tables differ";
        }
        if (scope.GetBinWindow() != reference.binWindow ||
            !HasSameRing(scope.GetBinHistory(), reference.binHistory)) {
            return ::testing::AssertionFailure() << "bin histories differ";
        }
        if (!HasSameRing(scope.GetDelayLine(), reference.delayLine)) {
            return ::testing::AssertionFailure() << "delay lines differ";
        }
        return ::testing::AssertionSuccess();
    }

    /// What an update has computed, before it is published.
    ::testing::AssertionResult HasSameUpdate() const {
        const Waveform& trace = scope.GetWaveform();
        if (trace.GetOffset() != reference.trace.offset ||
            trace.GetLimit() != reference.trace.limit) {
            return ::testing::AssertionFailure()
                   << "view " << trace.GetOffset() << " to " << trace.GetLimit() << " instead of "
                   << reference.trace.offset << " to " << reference.trace.limit;
        }
        const float* bins = scope.GetHistogram().GetTable().GetValues();
        if (std::memcmp(bins, reference.bins.data(), sizeof reference.bins) != 0) {
            return ::testing::AssertionFailure() << "bins differ";
        }
        return ::testing::AssertionSuccess();
    }

    /// What readers see.
    ::testing::AssertionResult HasSamePublished() const {
        const auto& curves = filter.GetOutputCurves();
        const auto* trace = dynamic_cast<const Waveform*>(&curves.Get(0));
        const CReferenceOscilloscope::CPublished& expected = reference.published;
        if (!trace || !HasSameTable(*trace, expected.trace)) {
            return ::testing::AssertionFailure() << "published tables differ";
        }
        if (trace->GetOffset() != expected.trace.offset ||
            trace->GetLimit() != expected.trace.limit ||
            trace->GetCurrentIndex() != expected.trace.currentIndex) {
            return ::testing::AssertionFailure() << "published views differ";
        }
        constexpr int points = 701;
        for (int i = 0; i < points; ++i) {
            // A little beyond both ends, and off the grid of the samples.
            const double x = -1.05 + 1.1 * i / (points - 1);
            const double y = curves.Get(0).Evaluate(x);
            const float expectedY = expected.trace.Evaluate(x);
            if (!IsSame(static_cast<float>(y), expectedY)) {
                return ::testing::AssertionFailure()
                       << "waveform at " << x << " is " << y << " instead of " << expectedY;
            }
            const double z = curves.Get(1).Evaluate(2.0 * x + 1.0);
            const double expectedZ = expected.EvaluateHistogram(2.0 * x + 1.0);
            if (std::memcmp(&z, &expectedZ, sizeof z) != 0) {
                return ::testing::AssertionFailure() << "histogram at " << 2.0 * x + 1.0 << " is "
                                                     << z << " instead of " << expectedZ;
            }
        }
        return ::testing::AssertionSuccess();
    }

    bool IsRefreshNeeded() { return filter.GetOutputDataSync()->IsRefreshNeeded(); }

    COscilloscope scope;
    Vorin::Audio::DSP::IFilter& filter = scope;
    CReferenceOscilloscope reference;
    Params params{};

private:
    static Vorin::Audio::DSP::CTestVariations VariationsOf(const Params& values) {
        return {Vorin::Audio::DSP::CTestValues(std::vector<double>(values.begin(), values.end()))};
    }

    void Run(Vorin::Audio::DSP::CAudioStream& stream, int frames, const Params* newParams,
             bool silent) {
        using namespace Vorin::Audio::DSP;
        CAudioStreams inputs(&stream, 1);
        CAudioStreams outputs(nullptr, 0);
        const CTestRamp ramp(VariationsOf(params), VariationsOf(newParams ? *newParams : params));
        const CProcessRecord record =
            MakeRecord(inputs, outputs, frames, newParams ? &ramp : nullptr);
        if (silent) {
            filter.ProcessSilence(record);
        } else {
            filter.Process(record);
        }
    }

    void TakeParams(const Params* newParams) {
        if (newParams) {
            params = *newParams;
        }
    }

    static bool HasSameTable(const Waveform& trace,
                             const CReferenceOscilloscope::CTrace& expected) {
        const int entries = expected.count + 3;
        return trace.GetTable().GetCount() == entries &&
               std::memcmp(trace.GetTable().GetValues(), expected.table.data(),
                           static_cast<std::size_t>(entries) * sizeof(float)) == 0;
    }

    template <class T>
    static bool HasSameRing(const Vorin::Core::TCircularBuffer<T>& ring,
                            const CReferenceOscilloscope::TRing<T>& expected) {
        if (ring.GetCount() != static_cast<int>(expected.data.size())) {
            return false;
        }
        for (int n = 0; n < ring.GetCount(); ++n) {
            const T value = ring.GetBehind(n);
            const T expectedValue = expected.Behind(n);
            if (std::memcmp(&value, &expectedValue, sizeof value) != 0) {
                return false;
            }
        }
        return true;
    }

    /// Bit for bit, but for what a NaN that was computed looks like: that is the compiler's choice.
    static bool IsSame(float value, float expected) {
        return std::memcmp(&value, &expected, sizeof value) == 0 ||
               (std::isnan(value) && std::isnan(expected));
    }
};

} // namespace PluginsFilters
