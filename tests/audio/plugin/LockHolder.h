#pragma once

#include "core/Lock.h"

#include <atomic>
#include <thread>

namespace Vorin::Audio::Plugin {

/// A reader on another thread that holds a lock for as long as this object exists.
class CLockHolder {
public:
    explicit CLockHolder(Core::ILock& lock)
        : thread([this, &lock] {
              lock.Lock();
              Enter(kHolding);
              phase.wait(kHolding);
              lock.Unlock();
          }) {
        phase.wait(kStarting);
    }
    CLockHolder(const CLockHolder&) = delete;
    CLockHolder& operator=(const CLockHolder&) = delete;
    ~CLockHolder() {
        Enter(kLeaving);
        thread.join();
    }

private:
    enum EPhase { kStarting, kHolding, kLeaving };

    void Enter(EPhase next) {
        phase = next;
        phase.notify_all();
    }

    std::atomic<EPhase> phase{kStarting};
    std::thread thread;
};

} // namespace Vorin::Audio::Plugin
