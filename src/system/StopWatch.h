#pragma once

#include "system/Clock.h"

#include <cstdint>

namespace Vorin::System {

/// Measures the time since it was started. A new one stands at 0. One thread.
class CStopWatch {
public:
    /// The clock is not owned, and must outlive the watch.
    explicit CStopWatch(const IClock& watchClock = GetMonotonicClock()) : clock(&watchClock) {}

    /// From 0, also when it runs.
    void Start() {
        startTick = clock->GetNanoseconds();
        running = true;
    }

    /// Keeps the time that it shows.
    void Stop() {
        if (running) {
            stopTick = clock->GetNanoseconds();
            running = false;
        }
    }

    bool IsRunning() const { return running; }

    double GetMilliseconds() const {
        const std::int64_t end = running ? clock->GetNanoseconds() : stopTick;
        return static_cast<double>(end - startTick) / nanosecondsPerMillisecond;
    }

private:
    const IClock* clock;
    std::int64_t startTick = 0;
    std::int64_t stopTick = 0;
    bool running = false;
};

} // namespace Vorin::System
