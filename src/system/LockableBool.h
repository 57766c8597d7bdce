#pragma once

#include "system/CriticalSection.h"

namespace Vorin::System {

/// A flag that is its own lock: whoever holds the lock decides by the flag and acts on it without
/// another thread changing it in between. [any]
class CLockableBool : public CCriticalSection {
public:
    explicit CLockableBool(bool initial = false) : value(initial) {}

    /// Waits for who holds the lock; not const for that reason.
    bool Get() {
        const Core::CAutoLock held(*this);
        return value;
    }

    void Set(bool newValue) {
        const Core::CAutoLock held(*this);
        value = newValue;
    }

private:
    bool value; // under the lock
};

} // namespace Vorin::System
