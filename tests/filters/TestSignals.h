#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace PluginsFilters {

/// The inputs that the oscilloscope is compared on. Each is seeded, so that a failure repeats.
enum class ESignal {
    kNoise,
    kSine,
    kSilence,
    kNaN,
    kInfinities,
    kClipped,
    kDenormal,
    /// A few values, each of which the tests also use as a trigger level.
    kLevels
};

inline constexpr std::array kAllSignals{ESignal::kNoise,    ESignal::kSine,       ESignal::kSilence,
                                        ESignal::kNaN,      ESignal::kInfinities, ESignal::kClipped,
                                        ESignal::kDenormal, ESignal::kLevels};

inline std::string NameOf(ESignal signal) {
    constexpr std::array names{"Noise",      "Sine",    "Silence",  "NaN",
                               "Infinities", "Clipped", "Denormal", "Levels"};
    return names[static_cast<std::size_t>(signal)];
}

/// How GoogleTest shows one.
inline void PrintTo(ESignal signal, std::ostream* out) { *out << NameOf(signal); }

class CTestSignal {
public:
    explicit CTestSignal(ESignal kind) : signal(kind), random(11U + static_cast<unsigned>(kind)) {}

    float Next() {
        const float noise = std::uniform_real_distribution<float>(-1.0F, 1.0F)(random);
        const bool isRare = random() % 64 == 0;
        time += 1.0;
        switch (signal) {
        case ESignal::kNoise:
            return noise;
        case ESignal::kSine:
            return static_cast<float>(0.9 * std::sin(0.01371 * time));
        case ESignal::kSilence:
            return 0.0F;
        case ESignal::kNaN:
            return isRare ? std::copysign(std::numeric_limits<float>::quiet_NaN(), noise) : noise;
        case ESignal::kInfinities:
            return isRare ? std::copysign(std::numeric_limits<float>::infinity(), noise) : noise;
        case ESignal::kClipped:
            return std::clamp(4.0F * noise, -1.5F, 1.5F);
        case ESignal::kDenormal:
            return noise * 1e-39F;
        case ESignal::kLevels:
            return 0.25F * static_cast<float>(static_cast<int>(random() % 7) - 3);
        }
        return 0.0F;
    }

    void Fill(std::vector<float>& samples) {
        std::generate(samples.begin(), samples.end(), [this] { return Next(); });
    }

private:
    ESignal signal;
    std::mt19937 random;
    double time = 0.0;
};

} // namespace PluginsFilters
