#pragma once

#include "core/Enable.h"
#include "core/EventProvider.h"
#include "system/TimerProvider.h"

#include <list>

namespace Vorin::System {

/// Many timers on one timer of another provider, for objects with refresh times of their own.
///
/// One thread: the one on which the provider runs this object. Periods are rounded up to multiples
/// of 10 ms, and the one timer runs at their greatest common divisor: the grid keeps that from
/// collapsing. Neither the provider nor the commands are owned.
///
/// A command may add, remove and reset timers, its own included. A timer that is added during a
/// tick counts from the next one. There is no look-up in `AddTimer`: a command added twice has two
/// timers, and each `RemoveTimer` takes the first of them.
///
/// A change of the common divisor restarts the one timer by switching off and on again, which the
/// enable events tell about.
class CTimerSerializer : public virtual Core::ICommand,
                         public virtual ITimerProvider,
                         public virtual Core::IEnable {
public:
    explicit CTimerSerializer(ITimerProvider* timerProvider);
    CTimerSerializer(const CTimerSerializer&) = delete;
    CTimerSerializer& operator=(const CTimerSerializer&) = delete;
    ~CTimerSerializer() override;

    /// The tick: for the provider.
    void Execute() override;

    void AddTimer(int periodMilliseconds, Core::ICommand* command) override;
    void RemoveTimer(Core::ICommand* command, bool destroy) override;

    bool IsEnabled() const override { return enabled; }
    Core::IEventProvider& GetEnableEvents() override { return enableEvents; }

    /// While off, nothing is registered with the provider; the timers stay.
    void SetEnabled(bool enable) override;

    /// Every timer starts its period anew, on the grid of the ticks.
    void ResetElapsed();

    /// The period of the one timer, in milliseconds; -1 when there are no timers.
    int GetBasePeriod() const { return basePeriod; }

private:
    struct CItem {
        Core::ICommand* command;
        int elapsed; // milliseconds
        int period;
        bool added; // since the walk in progress began: not counted by it
    };

    void SetBasePeriod(int period);

    std::list<CItem> items;
    std::list<CItem>::iterator cursor = items.end(); // what the walk in progress visits next
    int basePeriod = -1;
    ITimerProvider* provider;
    bool enabled = true;
    Core::CEventProvider enableEvents;
};

} // namespace Vorin::System
