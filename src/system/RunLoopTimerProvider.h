#pragma once

#include "system/RunLoop.h"
#include "system/TimerProvider.h"

#include <memory>

namespace Vorin::System {

/// One repeating timer per command on a run loop. The loop's thread.
///
/// A timer runs at most once per pump and keeps to the grid of its period: a loop that is pumped
/// every 20 ms runs a timer of 30 ms after 40, 60, 100 and 120 ms. A period below 1 ms counts as
/// 1 ms. The provider's death removes its timers; when the loop is gone nothing runs any more.
class CRunLoopTimerProvider : public virtual ITimerProvider {
public:
    explicit CRunLoopTimerProvider(CRunLoop& loop);
    CRunLoopTimerProvider(const CRunLoopTimerProvider&) = delete;
    CRunLoopTimerProvider& operator=(const CRunLoopTimerProvider&) = delete;
    ~CRunLoopTimerProvider() override;

    void AddTimer(int periodMilliseconds, Core::ICommand* command) override;
    void RemoveTimer(Core::ICommand* command, bool destroy) override;

private:
    std::shared_ptr<CRunLoopCore> core;
};

} // namespace Vorin::System
