#pragma once

namespace Vorin::Audio::DSP {

/// A query to the value of a custom property, or to a function: whoever answers to it depends on
/// the sample rate that it is used at.
///
/// The objects themselves are immutable while they are shared: a copy takes the new rate, and takes
/// the place of the one before. In Hz.
class ISampleRateDependent {
public:
    virtual double GetSampleRate() const = 0;
    virtual void SetSampleRate(double sampleRate) = 0;
    virtual ~ISampleRateDependent() = default;
};

} // namespace Vorin::Audio::DSP
