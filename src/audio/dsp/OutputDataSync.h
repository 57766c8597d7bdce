#pragma once

#include <cstdint>

namespace Vorin::Audio::DSP {

class IFilter;

/// Paces the refresh of a filter's outputs, counted in samples and not in time.
///
/// The audio thread uses it, or whoever holds the processing lock; SetRefreshRate alone may come
/// from any thread at any time, and costs at worst one early or late refresh.
class IOutputDataSync {
public:
    virtual bool IsRefreshNeeded() const = 0;
    /// Begins a new period; what was counted beyond the last one is dropped.
    virtual void Reset() = 0;
    /// In refreshes per second; 0 refreshes after each block. NaN and negative rates count as 0.
    virtual void SetRefreshRate(double hz) = 0;
    virtual double GetRefreshRate() const = 0;
    virtual ~IOutputDataSync() = default;
};

class COutputDataSync : public IOutputDataSync {
public:
    bool IsRefreshNeeded() const override;
    void Reset() override;
    /// The samples counted so far stay.
    void SetRefreshRate(double hz) override;
    double GetRefreshRate() const override;

    /// Makes the next test true at once.
    void SetSampleRate(double hz);
    void AddSamples(std::uint32_t samples);

private:
    void UpdatePeriod();

    std::uint32_t sampleCount = 0;
    std::uint32_t period =
        0; // in samples; read and written as an atomic, for the sake of SetRefreshRate
    double refreshRate = 0.0;
    double sampleRate = 0.0;
};

/// The syncs of two filters as one. It asks the filters for theirs at each call, since a filter may
/// have none. The filters are borrowed.
class COutputDataSyncMux : public IOutputDataSync {
public:
    COutputDataSyncMux(IFilter& one, IFilter& two) : first(one), second(two) {}

    bool IsRefreshNeeded() const override;
    void Reset() override;
    void SetRefreshRate(double hz) override;
    /// The larger of both; 0 when there is none.
    double GetRefreshRate() const override;

private:
    IFilter& first;
    IFilter& second;
};

} // namespace Vorin::Audio::DSP
