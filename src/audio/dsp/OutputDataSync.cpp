#include "audio/dsp/OutputDataSync.h"

#include "audio/dsp/Filter.h"

#include <algorithm>
#include <atomic>
#include <limits>

namespace Vorin::Audio::DSP {

bool COutputDataSync::IsRefreshNeeded() const {
    // The library's atomic_ref takes no const object before C++26.
    const auto now =
        std::atomic_ref(const_cast<std::uint32_t&>(period)).load(std::memory_order_relaxed);
    return static_cast<std::int32_t>(sampleCount) >= static_cast<std::int32_t>(now);
}

void COutputDataSync::Reset() { sampleCount = 0; }

void COutputDataSync::SetRefreshRate(double hz) {
    refreshRate = hz > 0.0 ? hz : 0.0;
    UpdatePeriod();
}

double COutputDataSync::GetRefreshRate() const { return refreshRate; }

void COutputDataSync::SetSampleRate(double hz) {
    sampleRate = hz > 0.0 ? hz : 0.0;
    UpdatePeriod();
    sampleCount = period;
}

void COutputDataSync::AddSamples(std::uint32_t samples) {
    // Stops short of the sign of the comparison in IsRefreshNeeded: a host that never refreshes
    // must not come back to "not yet".
    constexpr std::uint32_t largest = std::numeric_limits<std::int32_t>::max();
    sampleCount = samples < largest - sampleCount ? sampleCount + samples : largest;
}

void COutputDataSync::UpdatePeriod() {
    constexpr double largest = std::numeric_limits<std::int32_t>::max();
    // In this order NaN, as two infinite rates give it, counts as the largest.
    const double samples = refreshRate == 0.0 ? 0.0 : std::min(largest, sampleRate / refreshRate);
    std::atomic_ref(period).store(static_cast<std::uint32_t>(samples), std::memory_order_relaxed);
}

bool COutputDataSyncMux::IsRefreshNeeded() const {
    const IOutputDataSync* one = first.GetOutputDataSync();
    const IOutputDataSync* two = second.GetOutputDataSync();
    const bool firstNeeds = one && one->IsRefreshNeeded();
    const bool secondNeeds = two && two->IsRefreshNeeded();
    return firstNeeds || secondNeeds;
}

void COutputDataSyncMux::Reset() {
    if (IOutputDataSync* sync = first.GetOutputDataSync()) {
        sync->Reset();
    }
    if (IOutputDataSync* sync = second.GetOutputDataSync()) {
        sync->Reset();
    }
}

void COutputDataSyncMux::SetRefreshRate(double hz) {
    if (IOutputDataSync* sync = first.GetOutputDataSync()) {
        sync->SetRefreshRate(hz);
    }
    if (IOutputDataSync* sync = second.GetOutputDataSync()) {
        sync->SetRefreshRate(hz);
    }
}

double COutputDataSyncMux::GetRefreshRate() const {
    double rate = 0.0;
    if (const IOutputDataSync* sync = first.GetOutputDataSync()) {
        rate = std::max(rate, sync->GetRefreshRate());
    }
    if (const IOutputDataSync* sync = second.GetOutputDataSync()) {
        rate = std::max(rate, sync->GetRefreshRate());
    }
    return rate;
}

} // namespace Vorin::Audio::DSP
