#pragma once

#include "core/EventProvider.h"

namespace Vorin::Core {

/// Tells whether a thing is switched on, and when that changes.
class IConstEnable {
public:
    virtual bool IsEnabled() const = 0;
    virtual IEventProvider& GetEnableEvents() = 0;
    virtual ~IConstEnable() = default;
};

class IEnable : public virtual IConstEnable {
public:
    virtual void SetEnabled(bool enable) = 0;
};

/// A switch: compares, stores, then notifies. One thread.
class CEnable : public virtual IEnable {
public:
    explicit CEnable(bool initial = true) : enabled(initial) {}

    bool IsEnabled() const override { return enabled; }
    IEventProvider& GetEnableEvents() override { return enableEvents; }

    void SetEnabled(bool enable) override {
        if (enable != enabled) {
            enabled = enable;
            enableEvents.Notify();
        }
    }

private:
    bool enabled;
    CEventProvider enableEvents;
};

} // namespace Vorin::Core
