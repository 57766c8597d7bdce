#include "system/ConditionFlag.h"

#include "system/Clock.h"

#include <cerrno>
#include <ctime>
#include <limits>

namespace Vorin::System {

namespace {

class CHeldMutex {
public:
    explicit CHeldMutex(pthread_mutex_t& held) : mutex(held) { pthread_mutex_lock(&mutex); }
    ~CHeldMutex() { pthread_mutex_unlock(&mutex); }
    CHeldMutex(const CHeldMutex&) = delete;
    CHeldMutex& operator=(const CHeldMutex&) = delete;

private:
    pthread_mutex_t& mutex;
};

timespec DeadlineAfter(std::int64_t nanoseconds) {
    constexpr std::int64_t second = 1'000'000'000;
    const std::int64_t now = GetMonotonicClock().GetNanoseconds();
    const std::int64_t room = std::numeric_limits<std::int64_t>::max() - now;
    const std::int64_t deadline = now + (nanoseconds < room ? nanoseconds : room);
    timespec result = {};
    result.tv_sec = static_cast<std::time_t>(deadline / second);
    result.tv_nsec = static_cast<long>(deadline % second);
    return result;
}

} // namespace

CConditionFlag::CConditionFlag(bool initial) : raised(initial) {
    pthread_mutex_init(&mutex, nullptr);
    pthread_condattr_t attributes;
    pthread_condattr_init(&attributes);
    pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
    pthread_cond_init(&condition, &attributes);
    pthread_condattr_destroy(&attributes);
}

CConditionFlag::~CConditionFlag() {
    pthread_cond_destroy(&condition);
    pthread_mutex_destroy(&mutex);
}

// Woken under the mutex: a waiter that goes on has had the mutex after us, so it may destroy both.
void CConditionFlag::Raise() {
    const CHeldMutex held(mutex);
    raised = true;
    pthread_cond_broadcast(&condition);
}

void CConditionFlag::Clear() {
    const CHeldMutex held(mutex);
    raised = false;
}

bool CConditionFlag::IsRaised() const {
    const CHeldMutex held(mutex);
    return raised;
}

bool CConditionFlag::Wait(std::int64_t nanoseconds, bool consume) {
    const CHeldMutex held(mutex);
    const bool waited = raised || WaitForFlag(nanoseconds);
    if (consume) {
        raised = false;
    }
    return waited;
}

bool CConditionFlag::WaitForFlag(std::int64_t nanoseconds) {
    int error = 0;
    if (nanoseconds < 0) {
        while (!raised && error == 0) {
            error = pthread_cond_wait(&condition, &mutex);
        }
    } else {
        const timespec deadline = DeadlineAfter(nanoseconds);
        while (!raised && error == 0) {
            error = pthread_cond_timedwait(&condition, &mutex, &deadline);
        }
    }
    return error == 0 || error == ETIMEDOUT;
}

} // namespace Vorin::System
