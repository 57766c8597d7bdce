#pragma once

#include "core/EventProvider.h"

#include <cstdint>

namespace Vorin::System {

constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;

/// A clock that never goes back, in nanoseconds from a start of its own. [any]
///
/// Whatever measures time takes one of these, so that a test can move it.
class IClock {
public:
    virtual std::int64_t GetNanoseconds() const = 0;

    /// Null for a clock that runs by itself. Otherwise the clock stands still and moves only by
    /// jumps, each of which these events follow: who waits for a time of it waits for them. The
    /// events may be notified on any thread.
    virtual Core::IEventProvider* GetMovedEvents() = 0;

    virtual ~IClock() = default;
};

/// The machine's monotonic clock. Setting the wall clock does not touch it. [any]
class CMonotonicClock : public virtual IClock {
public:
    std::int64_t GetNanoseconds() const override;
    Core::IEventProvider* GetMovedEvents() override { return nullptr; }
};

/// The one monotonic clock that everything uses unless it is given another. [any]
IClock& GetMonotonicClock();

} // namespace Vorin::System
