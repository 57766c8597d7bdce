#include "DemoSound.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace Workbench {

namespace {

constexpr double kBeatSeconds = 0.5;
constexpr int kBeats = 8;
constexpr float kPeak = 0.9F;

/// White noise from -1 to 1, the same each time.
class CNoise {
public:
    double Next() {
        state = state * 1664525U + 1013904223U;
        return static_cast<double>(state >> 8) / static_cast<double>(1U << 23) - 1.0;
    }

private:
    std::uint32_t state = 20260101U;
};

int Frames(double seconds) { return static_cast<int>(seconds * CDemoSound::kSampleRate); }

/// Adds a sound made sample by sample, as far as it fits.
template <class Make>
void AddAt(CDemoSound& sound, double seconds, double length, double left, double right, Make make) {
    const auto start = static_cast<std::size_t>(Frames(seconds));
    const auto end = std::min(start + static_cast<std::size_t>(Frames(length)), sound.left.size());
    for (std::size_t i = start; i < end; ++i) {
        const double time = static_cast<double>(i - start) / CDemoSound::kSampleRate;
        const double value = make(time);
        sound.left[i] += static_cast<float>(value * left);
        sound.right[i] += static_cast<float>(value * right);
    }
}

/// A string, plucked: a loop of noise that a mean of neighbours makes softer with each round.
void AddBass(CDemoSound& sound, CNoise& noise, double seconds, double hz) {
    std::vector<double> loop(static_cast<std::size_t>(CDemoSound::kSampleRate / hz));
    for (double& value : loop) {
        value = noise.Next();
    }
    // A soft finger: the pluck itself is made darker before the string begins to swing.
    for (int pass = 0; pass < 48; ++pass) {
        for (std::size_t i = 0; i < loop.size(); ++i) {
            loop[i] = 0.5 * (loop[i] + loop[(i + 1) % loop.size()]);
        }
    }
    const double peak = std::fabs(*std::max_element(
        loop.begin(), loop.end(), [](double a, double b) { return std::fabs(a) < std::fabs(b); }));
    std::size_t place = 0;
    AddAt(sound, seconds, kBeatSeconds, 0.62, 0.52, [&](double time) {
        const double value = loop[place] / peak;
        const std::size_t next = (place + 1) % loop.size();
        loop[place] = 0.4915 * (loop[place] + loop[next]);
        place = next;
        return value * std::min(1.0, time * 200.0);
    });
}

void AddKick(CDemoSound& sound, double seconds) {
    AddAt(sound, seconds, 0.3, 0.6, 0.6, [](double time) {
        const double phase = 50.0 * time + 2.5 * (1.0 - std::exp(-time * 40.0));
        return std::sin(2.0 * std::numbers::pi * phase) * std::exp(-time * 14.0);
    });
}

void AddSnare(CDemoSound& sound, CNoise& noise, double seconds) {
    AddAt(sound, seconds, 0.25, 0.4, 0.5, [&noise](double time) {
        const double body =
            std::sin(2.0 * std::numbers::pi * 185.0 * time) * std::exp(-time * 25.0);
        return 0.5 * body + 0.7 * noise.Next() * std::exp(-time * 22.0);
    });
}

void AddHat(CDemoSound& sound, CNoise& noise, double seconds, bool onLeft) {
    double last = 0.0;
    AddAt(sound, seconds, 0.08, onLeft ? 0.3 : 0.06, onLeft ? 0.06 : 0.3, [&](double time) {
        const double now = noise.Next();
        const double bright = now - last;
        last = now;
        return bright * std::exp(-time * 60.0);
    });
}

void Normalise(CDemoSound& sound) {
    float peak = 0.0F;
    for (const auto* channel : {&sound.left, &sound.right}) {
        for (const float value : *channel) {
            peak = std::max(peak, std::fabs(value));
        }
    }
    for (auto* channel : {&sound.left, &sound.right}) {
        for (float& value : *channel) {
            value *= kPeak / peak;
        }
    }
}

} // namespace

CDemoSound::CDemoSound() {
    const auto frames = static_cast<std::size_t>(Frames(kBeats * kBeatSeconds));
    left.resize(frames);
    right.resize(frames);
    CNoise noise;
    constexpr double notes[kBeats] = {55.0, 82.41, 55.0, 73.42, 65.41, 98.0, 49.0, 73.42};
    for (int beat = 0; beat < kBeats; ++beat) {
        const double now = beat * kBeatSeconds;
        AddBass(*this, noise, now, notes[beat]);
        if (beat % 2 == 0) {
            AddKick(*this, now);
        } else {
            AddSnare(*this, noise, now);
        }
        AddHat(*this, noise, now, beat % 2 == 0);
        AddHat(*this, noise, now + kBeatSeconds / 2, beat % 2 != 0);
    }
    Normalise(*this);
}

} // namespace Workbench
