#include "system/TimerSerializer.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace Vorin::System {

namespace {

constexpr int grid = 10; // milliseconds

int RoundUpToGrid(int period) {
    constexpr int longest = std::numeric_limits<int>::max() / grid * grid;
    if (period < grid) {
        return grid;
    }
    return period > longest ? longest : (period + grid - 1) / grid * grid;
}

} // namespace

CTimerSerializer::CTimerSerializer(ITimerProvider* timerProvider) : provider(timerProvider) {}

CTimerSerializer::~CTimerSerializer() {
    if (enabled && basePeriod != -1) {
        provider->RemoveTimer(this, false);
    }
}

void CTimerSerializer::Execute() {
    const int tick = basePeriod; // what has passed, even when a command changes the base meanwhile
    cursor = items.begin();
    while (cursor != items.end()) {
        CItem& item = *cursor++;
        if (item.added) {
            item.added = false;
        } else if (item.elapsed >= item.period - tick) {
            item.elapsed = 0;
            item.command->Execute(); // the item may be gone after this
        } else {
            item.elapsed += tick;
        }
    }
}

void CTimerSerializer::AddTimer(int periodMilliseconds, Core::ICommand* command) {
    if (!command) {
        return;
    }
    const int period = RoundUpToGrid(periodMilliseconds);
    const bool seenByWalk = cursor != items.end();
    items.push_back({command, 0, period, seenByWalk});
    SetBasePeriod(basePeriod == -1 ? period : std::gcd(basePeriod, period));
}

void CTimerSerializer::RemoveTimer(Core::ICommand* command, bool destroy) {
    if (!command) {
        return;
    }
    const auto found = std::find_if(items.begin(), items.end(), [command](const CItem& item) {
        return item.command == command;
    });
    if (found != items.end()) {
        if (cursor == found) {
            ++cursor;
        }
        items.erase(found);
    }
    if (destroy) {
        delete command;
    }
    if (items.empty()) {
        provider->RemoveTimer(this, false);
        basePeriod = -1;
        return;
    }
    int divisor = 0;
    for (const CItem& item : items) {
        divisor = std::gcd(divisor, item.period);
    }
    SetBasePeriod(std::max(divisor, grid));
}

void CTimerSerializer::SetBasePeriod(int period) {
    if (period == basePeriod) {
        return;
    }
    basePeriod = period;
    if (enabled) {
        SetEnabled(false);
        SetEnabled(true);
    }
}

void CTimerSerializer::SetEnabled(bool enable) {
    if (enable == enabled) {
        return;
    }
    enabled = enable;
    if (enabled && basePeriod != -1) {
        provider->AddTimer(basePeriod, this);
    } else {
        provider->RemoveTimer(this, false);
    }
    enableEvents.Notify();
}

void CTimerSerializer::ResetElapsed() {
    for (CItem& item : items) {
        item.elapsed = 0;
    }
}

} // namespace Vorin::System
