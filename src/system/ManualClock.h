#pragma once

#include "system/Clock.h"
#include "system/MTEventProvider.h"

#include <atomic>

namespace Vorin::System {

/// A clock that stands still until its owner moves it: time as tests and scripts see it. [any]
///
/// The listeners of a move run under the lock of the events, on the thread that moves the clock.
class CManualClock : public virtual IClock {
public:
    std::int64_t GetNanoseconds() const override { return now; }
    Core::IEventProvider* GetMovedEvents() override { return &movedEvents; }

    /// Moves the clock, then notifies. It does not go back: a negative step counts as none.
    void AdvanceNanoseconds(std::int64_t nanoseconds) {
        if (nanoseconds > 0) {
            now += nanoseconds;
        }
        movedEvents.Notify();
    }

    void Advance(int milliseconds) { AdvanceNanoseconds(milliseconds * nanosecondsPerMillisecond); }

private:
    std::atomic<std::int64_t> now{0};
    CMTEventProvider movedEvents;
};

} // namespace Vorin::System
