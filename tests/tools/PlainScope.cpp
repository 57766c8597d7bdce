#include "PlainScope.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace WorkbenchTests {

namespace {

constexpr int kBins = 151;

std::string ToText(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

int BinOf(float value) {
    return static_cast<int>(std::floor((std::clamp(value, -1.0F, 1.0F) + 1.0F) * 75.0F + 0.5F));
}

/// The channels as the oscilloscope gets them.
std::vector<std::vector<float>> FormChannels(const CSound& sound, const CScopeSettings& settings) {
    std::vector<float> first = sound.GetLeft();
    std::vector<float> second = sound.GetRight();
    for (std::size_t i = 0; i < first.size(); ++i) {
        const float left = settings.bypass ? 0.0F : first[i];
        const float right = settings.bypass ? 0.0F : second[i];
        first[i] = settings.midSide ? (left + right) * 0.5F : left;
        second[i] = settings.midSide ? (right - left) * 0.5F : right;
    }
    return {first, second};
}

/// The cubic from b to c, whose slopes are held back by the differences to a and d.
float Spline(float a, float b, float c, float d, float f) {
    const float s = c - b;
    const bool risesOn = (d - c) * s > 0.0F;
    const bool roseBefore = (b - a) * s > 0.0F;
    const float e = risesOn ? (d - c) * s * 0.6666667F / (d - b) : 0.0F;
    const float g = roseBefore ? (b - a) * s * 0.6666667F / (c - a) : 0.0F;
    const float m1 = risesOn ? 2.0F * e : 0.0F;
    const float m0 = roseBefore ? -2.0F * g : -0.0F;
    const float h = s - e + m0;
    const float r = m1 - s + g - h;
    return (s - 3.0F * h - r) * f + b + (r * f + 3.0F * h) * f * f;
}

} // namespace

std::vector<std::string> CScopeSettings::GetOptions() const {
    const char* const views[] = {"flow", "loop", "trigger"};
    std::vector<std::string> options = {"--view",
                                        views[view],
                                        "--delay",
                                        ToText(delayMilliseconds),
                                        "--trigger-value",
                                        ToText(triggerValue),
                                        "--trigger-direction",
                                        triggerDown ? "down" : "up",
                                        "--stereo-mode",
                                        midSide ? "mid-side" : "stereo",
                                        "--block",
                                        std::to_string(block),
                                        "--refresh",
                                        ToText(refreshHz)};
    if (bypass) {
        options.push_back("--bypass");
    }
    if (flush) {
        options.push_back("--flush");
    }
    return options;
}

int CountPublished(int frames, int rate, const CScopeSettings& settings) {
    const int period = settings.refreshHz > 0.0
                           ? static_cast<int>(static_cast<double>(rate) / settings.refreshHz)
                           : 0;
    int published = 0;
    int sinceRefresh = 0;
    for (int done = 0; done < frames;) {
        const int step = std::min(settings.block, frames - done);
        done += step;
        sinceRefresh += step;
        if (sinceRefresh >= period) {
            published = done;
            sinceRefresh = 0;
        }
    }
    return settings.flush ? frames : published;
}

CPlainChannel::CPlainChannel(const std::vector<float>& samples, int rate,
                             const CScopeSettings& settings)
    : count(rate), head(static_cast<int>(samples.size()) % rate),
      circle(static_cast<std::size_t>(rate), 0.0F), bins(kBins, 0) {
    std::vector<float> delayed(samples.size(), 0.0F);
    const auto delay = static_cast<std::size_t>(settings.delayMilliseconds * rate * 0.001);
    for (std::size_t i = delay; i < samples.size(); ++i) {
        delayed[i] = samples[i - delay];
    }
    for (std::size_t i = 0; i < delayed.size(); ++i) {
        circle[i % circle.size()] = delayed[i];
    }
    // A sample is taken out of the histogram when a second's worth of others has followed it. At a
    // rate that is a power of two the ring of the past bins is too short by one for that, and each
    // sample takes out the one before it.
    const bool isPowerOfTwo = rate > 1 && std::has_single_bit(static_cast<unsigned>(rate));
    const std::size_t window = isPowerOfTwo ? 1 : static_cast<std::size_t>(rate) + 1;
    const std::size_t first = delayed.size() > window ? delayed.size() - window : 0;
    for (std::size_t i = first; i < delayed.size(); ++i) {
        bins[static_cast<std::size_t>(BinOf(delayed[i]))] += 1;
    }
    tallest = *std::max_element(bins.begin(), bins.end());
    PlaceView(settings);
}

void CPlainChannel::PlaceView(const CScopeSettings& settings) {
    offset = head;
    limit = head;
    if (settings.view == kLoop) {
        offset = 0;
        return;
    }
    if (settings.view != kTrigger) {
        return;
    }
    const auto level = static_cast<float>(settings.triggerValue);
    if (Newest(0) == level) {
        offset = limit = 1;
        return;
    }
    const int steps = FindTriggerSteps(level, settings.triggerDown);
    if (steps < count) {
        const int crossing = (head - 1 - steps + 2 * count) % count;
        offset = limit = crossing + 1;
    }
}

/// How many samples before the newest one stands the one before the newest crossing.
int CPlainChannel::FindTriggerSteps(float level, bool down) const {
    if (down) {
        const int inside = Newest(0) > level ? FirstSteps(0, level, false, false) : 0;
        return FirstSteps(inside, level, true, true);
    }
    const int inside = Newest(0) < level ? FirstSteps(0, level, true, false) : 0;
    return FirstSteps(inside, level, false, true);
}

/// From `start` on backward, how many steps lead to a sample above or below the level; `count` or
/// more when there is none.
int CPlainChannel::FirstSteps(int start, float level, bool above, bool orEqual) const {
    int steps = start;
    while (steps < count) {
        const float value = Newest(steps);
        if ((above ? value > level : value < level) || (orEqual && value == level)) {
            break;
        }
        ++steps;
    }
    return steps;
}

float CPlainChannel::Newest(int steps) const {
    return circle[static_cast<std::size_t>((head - 1 - steps + 2 * count) % count)];
}

/// An entry of the table that curves are read from: a zero, the circle, its last sample twice.
float CPlainChannel::Entry(int index) const {
    if (index == 0) {
        return 0.0F;
    }
    return circle[static_cast<std::size_t>(std::min(index, count) - 1)];
}

bool CPlainChannel::IsHidden(float position) const {
    if (limit == head) {
        return false;
    }
    const bool beforeHead = position < static_cast<float>(head);
    const bool fromLimit = position >= static_cast<float>(limit);
    return limit < head ? fromLimit && beforeHead : fromLimit || beforeHead;
}

double CPlainChannel::GetWaveform(double x) const {
    float position =
        (static_cast<float>(x) + 1.0F) * static_cast<float>(count - 1) + static_cast<float>(offset);
    if (position >= static_cast<float>(count)) {
        position -= static_cast<float>(count);
    }
    if (IsHidden(position)) {
        return Entry(head + 1);
    }
    const float q = position + 1.0F;
    const int k = static_cast<int>(q);
    return Spline(Entry(k - 1), Entry(k), Entry(k + 1), Entry(k + 2), q - static_cast<float>(k));
}

double CPlainChannel::GetHistogram(double x) const {
    const double share = bins[static_cast<std::size_t>(BinOf(static_cast<float>(x)))];
    return tallest > 0 ? share * (1.0 / tallest) : 0.0;
}

CPlainScope::CPlainScope(const CSound& sound, const CScopeSettings& settings) {
    const int published = CountPublished(sound.GetFrames(), sound.rate, settings);
    for (auto& samples : FormChannels(sound, settings)) {
        samples.resize(static_cast<std::size_t>(published));
        channels.emplace_back(samples, sound.rate, settings);
    }
}

double CPlainScope::Evaluate(int curve, double x) const {
    const CPlainChannel& channel = channels.at(static_cast<std::size_t>(curve / 2));
    return curve % 2 == 0 ? channel.GetWaveform(x) : channel.GetHistogram(x);
}

} // namespace WorkbenchTests
