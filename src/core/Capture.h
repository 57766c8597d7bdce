#pragma once

#include "core/EventProvider.h"

namespace Vorin::Core {

/// Tells whether somebody holds the object, as a user who drags it does, and when that changes.
///
/// A capture brackets a series of value changes: an undo step, an automation gesture. It is not a
/// lock and blocks nothing.
class IConstCapture {
public:
    virtual IEventProvider& GetCaptureEvents() = 0;
    virtual IEventProvider& GetReleaseEvents() = 0;
    virtual bool IsCaptured() const = 0;
    virtual ~IConstCapture() = default;
};

/// The gesture itself: `Capture` at mouse-down, `Release` at mouse-up.
class ICapture : public virtual IConstCapture {
public:
    virtual void Capture() = 0;
    virtual void Release() = 0;
};

/// Stores first, then notifies; repeats are silent. One thread.
class CCapture : public virtual ICapture {
public:
    IEventProvider& GetCaptureEvents() override { return captureEvents; }
    IEventProvider& GetReleaseEvents() override { return releaseEvents; }
    bool IsCaptured() const override { return captured; }

    void Capture() override {
        if (!captured) {
            captured = true;
            captureEvents.Notify();
        }
    }

    void Release() override {
        if (captured) {
            captured = false;
            releaseEvents.Notify();
        }
    }

private:
    CEventProvider captureEvents;
    CEventProvider releaseEvents;
    bool captured = false;
};

} // namespace Vorin::Core
