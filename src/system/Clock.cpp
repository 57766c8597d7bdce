#include "system/Clock.h"

#include <ctime>

namespace Vorin::System {

std::int64_t CMonotonicClock::GetNanoseconds() const {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

IClock& GetMonotonicClock() {
    static CMonotonicClock clock;
    return clock;
}

} // namespace Vorin::System
