#pragma once

#include "core/Command.h"
#include "system/Event.h"
#include "system/MessageLoop.h"
#include "system/ThreadInvoker.h"
#include "system/TimerProvider.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Vorin::System::Testing {

/// A command made of a function; counts its death in `deaths` when that is given.
class CFunctionCommand : public Core::ICommand {
public:
    explicit CFunctionCommand(std::function<void()> called, int* deathCount = nullptr)
        : function(std::move(called)), deaths(deathCount) {}
    ~CFunctionCommand() override {
        if (deaths) {
            ++*deaths;
        }
    }
    void Execute() override { function(); }

    std::function<void()> function;
    int* deaths;
};

/// Writes down what is asked of it; the test makes the timers tick.
class CFakeTimerProvider : public virtual ITimerProvider {
public:
    struct CTimer {
        int period;
        Core::ICommand* command;
    };

    void AddTimer(int period, Core::ICommand* command) override {
        log.append("+").append(std::to_string(period)).append(" ");
        for (CTimer& timer : timers) {
            if (timer.command == command) {
                timer.period = period;
                return;
            }
        }
        timers.push_back({period, command});
    }

    void RemoveTimer(Core::ICommand* command, bool destroy) override {
        log += "- ";
        std::erase_if(timers, [=](const CTimer& timer) { return timer.command == command; });
        if (destroy) {
            delete command;
        }
    }

    /// Runs the only timer.
    void Tick() { timers.at(0).command->Execute(); }

    std::string TakeLog() { return std::exchange(log, std::string()); }

    std::vector<CTimer> timers;
    std::string log;
};

/// Keeps asynchronous invocations until the test runs them; runs synchronous ones at once.
class CFakeInvoker : public virtual IThreadInvoker {
public:
    ~CFakeInvoker() override {
        while (!queue.empty()) {
            RunOne(false);
        }
    }

    bool InvokeSync(Core::ICommand* command, Core::EOwnership ownership) override {
        ++syncCalls;
        const Core::TOwnership<Core::ICommand> held(command, ownership);
        command->Execute();
        return true;
    }

    bool InvokeAsync(Core::ICommand* command, Core::EOwnership ownership) override {
        queue.emplace_back(command, ownership);
        return true;
    }

    void RunOne(bool execute = true) {
        const auto [command, ownership] = queue.front();
        queue.pop_front();
        const Core::TOwnership<Core::ICommand> held(command, ownership);
        if (execute) {
            command->Execute();
        }
    }

    int syncCalls = 0;
    std::deque<std::pair<Core::ICommand*, Core::EOwnership>> queue;
};

/// Returns when the loop has looked at its clock and run every timer that was due by it.
///
/// One message and one due timer are run in turn, and timers are looked for when none is listed:
/// so many messages, one after the other, cover what is listed now, the look, and what it lists.
inline void Settle(CMessageLoop& loop, int timers = 1) {
    CFunctionCommand nothing([] {});
    for (int i = 0; i < 2 * timers + 3; ++i) {
        loop.InvokeSync(&nothing, Core::kDontOwn);
    }
}

} // namespace Vorin::System::Testing
