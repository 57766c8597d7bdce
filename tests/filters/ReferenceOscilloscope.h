#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace PluginsFilters {

/// The oscilloscope's algorithm as it is told, one sample at a time and without any cleverness:
/// what COscilloscope is compared with, bit for bit, and measured against.
///
/// It shares no code with it. All fields are open: a comparison reads them.
class CReferenceOscilloscope {
public:
    /// "View Mode", "Sync", "Delay", "Trigger Value", "Trigger Direction".
    using Params = std::array<double, 5>;

    template <class T>
    struct TRing {
        /// The next power of two; an exact one stays, 0 gives 1 and 1 gives 2.
        void SetSize(int n) {
            int rounded = n == 0 ? 1 : 2;
            while (rounded < n) {
                rounded *= 2;
            }
            data.resize(static_cast<std::size_t>(rounded));
            mask = rounded - 1;
        }
        void Push(T value) {
            head = (head + 1) & mask;
            data[static_cast<std::size_t>(head)] = value;
        }
        T Behind(int n) const { return data[static_cast<std::size_t>((head - n) & mask)]; }

        std::vector<T> data;
        int mask = 0;
        int head = 0;
    };

    /// What a reader of the waveform needs, and all of it.
    struct CTrace {
        std::vector<float> table; // of count + 3 entries, and one more that the spline may read
        float min = -1.0F;
        float max = 0.0F;
        float scale = 0.0F;
        int offset = 0;
        int currentIndex = 0;
        int count = 0;
        int limit = 0;

        float Evaluate(double position) const {
            const float x = std::clamp(static_cast<float>(position), min, max);
            float p = (x - min) * scale + static_cast<float>(offset);
            if (p >= static_cast<float>(count)) {
                p -= static_cast<float>(count);
            }
            if (IsHidden(p)) {
                return At(currentIndex + 1);
            }
            const float q = p + 1.0F;
            const int k = static_cast<int>(q);
            return Spline(At(k - 1), At(k), At(k + 1), At(k + 2), q - static_cast<float>(k));
        }

        bool IsHidden(float p) const {
            if (limit > currentIndex) {
                return p >= static_cast<float>(limit) || p < static_cast<float>(currentIndex);
            }
            if (limit < currentIndex) {
                return static_cast<float>(limit) <= p && p < static_cast<float>(currentIndex);
            }
            return false;
        }

        static float Spline(float a, float b, float c, float d, float f) {
            const float s = c - b;
            float e = 0.0F;
            float m1 = 0.0F;
            if ((d - c) * s > 0.0F) {
                e = (d - c) * s * 0.6666667F / (d - b);
                m1 = 2.0F * e;
            }
            float g = 0.0F;
            float m0 = -0.0F;
            if ((b - a) * s > 0.0F) {
                g = (b - a) * s * 0.6666667F / (c - a);
                m0 = -2.0F * g;
            }
            const float h = s - e + m0;
            const float r = m1 - s + g - h;
            return (s - 3.0F * h - r) * f + b + (r * f + 3.0F * h) * f * f;
        }

        float At(int index) const { return table[static_cast<std::size_t>(index)]; }
    };

    struct CPublished {
        CTrace trace;
        std::array<float, 151> bins{};
        double gain = 1.0;

        double EvaluateHistogram(double position) const {
            const float x = std::clamp(static_cast<float>(position), -1.0F, 1.0F);
            const auto bin = static_cast<std::size_t>((x + 1.0F) * 75.0F + 0.5F);
            return static_cast<double>(bins[bin]) * gain;
        }
    };

    void Init(double rate) {
        sampleRate = rate;
        trace.count = static_cast<int>(sampleRate + 0.5);
        trace.table.resize(static_cast<std::size_t>(trace.count) + 4);
        trace.scale = static_cast<float>(trace.count - 1) / (trace.max - trace.min);
        sync.SetSampleRate(sampleRate);
        binHistory.SetSize(trace.count);
        binWindow = std::min(trace.count, static_cast<int>(binHistory.data.size()));
        delayLine.SetSize(static_cast<int>(0.3 * sampleRate + 0.5));
        UpdateDelay();
        viewChanged = true;
        silentFrames = 0;
        Reset();
    }

    void Reset() {
        std::fill(trace.table.begin(), trace.table.end(), 0.0F);
        trace.currentIndex = 0;
        trace.offset = 0;
        newData = false;
        sync.sampleCount = 0;
        bins.fill(0.0F);
        std::fill(binHistory.data.begin(), binHistory.data.end(), -1);
        for (std::size_t i = 0; i < delayLine.data.size(); ++i) {
            delayLine.Push(0.0F);
        }
    }

    void SetParams(const Params& values) {
        viewChanged = true;
        viewMode = values[0] > 1.5 ? 2 : (values[0] > 0.5 ? 1 : 0);
        const bool newSync = values[1] > 0.5;
        if (newSync != isSynced) {
            isSynced = newSync;
            Reset();
        }
        delayMilliseconds = values[2];
        UpdateDelay();
        triggerLevel = static_cast<float>(values[3]);
        triggerDown = values[4] > 0.5;
    }

    /// A block of input, with the values at its start and at its end when they changed.
    void Process(const float* samples, int stride, int frames, const Params* start = nullptr,
                 const Params* end = nullptr) {
        silentFrames = 0;
        ProcessBlock(samples, stride, frames, start, end);
    }

    void ProcessSilence(int frames, const Params* start = nullptr, const Params* end = nullptr) {
        if (silentFrames < trace.count) {
            const float zero = 0.0F;
            silentFrames += frames;
            ProcessBlock(&zero, 0, frames, start, end);
            return;
        }
        if (start) {
            SetParams(*start);
        }
        sync.sampleCount += frames;
        for (int i = 0; i < frames; ++i) {
            Store(0.0F);
        }
        silentFrames += frames;
        if (end) {
            SetParams(*end);
        }
    }

    void Update() {
        if (!newData && !viewChanged) {
            return;
        }
        newData = false;
        viewChanged = false;
        publishPending = true;
        if (viewMode == 0) {
            trace.offset = trace.limit = trace.currentIndex;
        } else if (viewMode == 1) {
            trace.offset = 0;
            trace.limit = trace.currentIndex;
        } else {
            PlaceTrigger();
        }
        float largest = 0.0F;
        for (const float bin : bins) {
            largest = bin > largest ? bin : largest;
        }
        gain = largest != 0.0F ? 1.0 / static_cast<double>(largest) : 0.0;
    }

    void Publish() {
        if (publishPending) {
            publishPending = false;
            published.trace = trace;
            published.bins = bins;
            published.gain = gain;
        }
    }

    struct CSync {
        void SetSampleRate(double rate) {
            period = hz != 0.0 ? static_cast<std::int64_t>(rate / hz) : 0;
            sampleCount = period;
        }
        bool IsRefreshNeeded() const { return sampleCount >= period; }

        double hz = 0.0;
        std::int64_t period = 0;
        std::int64_t sampleCount = 0;
    };

    double sampleRate = 0.0;
    bool newData = false;
    bool viewChanged = false;
    bool publishPending = false;
    double delayMilliseconds = 0.0;
    int delaySamples = 0;
    int viewMode = 0;
    bool isSynced = false;
    float triggerLevel = 0.0F;
    bool triggerDown = false;
    std::int64_t silentFrames = 0;
    CSync sync;
    CTrace trace;
    std::array<float, 151> bins{};
    double gain = 0.0;
    TRing<int> binHistory;
    int binWindow = 0;
    TRing<float> delayLine;
    CPublished published;

private:
    void UpdateDelay() { delaySamples = static_cast<int>(delayMilliseconds * sampleRate * 0.001); }

    void ProcessBlock(const float* samples, int stride, int frames, const Params* start,
                      const Params* end) {
        if (start) {
            SetParams(*start);
        }
        for (int i = 0; i < frames; ++i) {
            ProcessSample(samples[static_cast<std::ptrdiff_t>(i) * stride]);
        }
        sync.sampleCount += frames;
        newData = frames != 0;
        if (end) {
            SetParams(*end);
        }
    }

    void ProcessSample(float x) {
        delayLine.Push(x);
        float y = delayLine.Behind(delaySamples);
        Store(y);
        if (binWindow == 0) {
            return;
        }
        if (y > 1.0F) {
            y = 1.0F;
        } else {
            y = std::max(-1.0F, y); // in this order NaN gives the bottom
        }
        const int bin = static_cast<int>((y - -1.0F) * 75.0F + 0.5F);
        bins[static_cast<std::size_t>(bin)] += 1.0F;
        const int old = binHistory.Behind(binWindow);
        if (old != -1) {
            bins[static_cast<std::size_t>(old)] -= 1.0F;
        }
        binHistory.Push(bin);
    }

    void Store(float y) {
        float* table = trace.table.data();
        table[trace.currentIndex + 1] = y;
        if (trace.currentIndex != 0 && trace.currentIndex == trace.count - 1) {
            table[trace.count + 1] = y;
            table[trace.count + 2] = y;
        }
        trace.currentIndex += 1;
        if (trace.currentIndex == trace.count) {
            trace.currentIndex -= trace.count;
        }
    }

    /// The sample i of the circle.
    float Sample(int i) const { return trace.At(i + 1); }

    template <class Predicate>
    void Walk(int& i, int& n, Predicate goesOn) const {
        while (n <= trace.count && goesOn(Sample(i))) {
            i -= 1;
            if (i < 0) {
                i += trace.count;
            }
            n += 1;
        }
    }

    void PlaceTrigger() {
        const float level = triggerLevel;
        const auto above = [level](float b) { return b > level; };
        const auto below = [level](float b) { return b < level; };
        const auto notAbove = [level](float b) { return b <= level; };
        const auto notBelow = [level](float b) { return b >= level; };
        int i = trace.currentIndex - 1;
        if (i < 0) {
            i += trace.count;
        }
        int n = 0;
        const float x = Sample(i);
        if (x == level) {
            i = 0;
        } else if (!triggerDown && x > level) {
            Walk(i, n, above);
        } else if (!triggerDown && x < level) {
            Walk(i, n, notAbove);
            Walk(i, n, above);
        } else if (triggerDown && x < level) {
            Walk(i, n, below);
        } else if (triggerDown && x > level) {
            Walk(i, n, notBelow);
            Walk(i, n, below);
        }
        if (n >= trace.count) {
            trace.offset = trace.limit = trace.currentIndex;
            return;
        }
        int place = i + 1;
        if (place > trace.count) {
            place -= trace.count;
        }
        trace.offset = trace.limit = place;
    }
};

} // namespace PluginsFilters
