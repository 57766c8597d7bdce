#pragma once

#include "audio/dsp/AudioStream.h"

#include <array>

namespace Vorin::Audio::DSP {

/// Turns a pair of channels from Left-Right into Mid-Side and back, or stops anywhere between.
/// [audio]
///
/// The mode `a` is -1 for Left-Right and 0 for Mid-Side. It may move while a block runs: order 0 is
/// then its value at the block's first frame, and after each frame, from the highest order down,
/// each order is added to the one below it.
class CMidSideMatrix {
public:
    static constexpr int kMaxOrder = 3;

    /// Sets one order and clears all above it, so orders are given from 0 upward. Those above
    /// kMaxOrder are ignored.
    void SetOrder(int index, double value);
    double GetOrder(int index) const { return c[static_cast<std::size_t>(index)]; }

    /// Writes Mid to `first` and Side to `second`. A result may stand where its source stands.
    /// Nothing happens when one of the four has no data.
    void Apply(const IAudioStream& left, const IAudioStream& right, IAudioStream& first,
               IAudioStream& second, int frames) const;

    /// The way back, in the same place.
    void ApplyInverse(IAudioStream& first, IAudioStream& second, int frames) const;

private:
    std::array<double, kMaxOrder + 1> c{-1.0};
    int order = 0;
};

} // namespace Vorin::Audio::DSP
