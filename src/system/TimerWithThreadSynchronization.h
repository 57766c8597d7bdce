#pragma once

#include "core/Command.h"
#include "system/CriticalSection.h"
#include "system/ThreadInvoker.h"
#include "system/TimerProvider.h"

#include <memory>
#include <unordered_map>

namespace Vorin::System {

/// Timers that tick where one provider runs and execute their commands on the thread of an invoker.
///
/// At most one call per timer is under way, however slow the invoker's thread: ticks in between are
/// dropped. Only when it has not answered for 16 ticks does the next one post again.
///
/// `AddTimer` and `RemoveTimer` may be called from any thread. On the invoker's thread, a removed
/// command is not run any more; elsewhere, one that runs just then comes to its end after the
/// removal, so remove and destroy there where it runs. No lock is held while a command runs.
/// Neither the provider nor the invoker is owned; both must outlive this object. Calls that are
/// still with the invoker when it dies find no timer and do nothing.
///
/// Lock order: the table's lock before an adapter's lock; neither is held while the provider or
/// the invoker is called.
class CTimerWithThreadSynchronization : public virtual ITimerProvider {
public:
    CTimerWithThreadSynchronization(ITimerProvider* timerProvider, IThreadInvoker* threadInvoker);
    CTimerWithThreadSynchronization(const CTimerWithThreadSynchronization&) = delete;
    CTimerWithThreadSynchronization& operator=(const CTimerWithThreadSynchronization&) = delete;

    /// Removes every timer from the provider.
    ~CTimerWithThreadSynchronization() override;

    void AddTimer(int periodMilliseconds, Core::ICommand* command) override;
    void RemoveTimer(Core::ICommand* command, bool destroy) override;

private:
    class CThreadSyncCommandAdapter;
    class CTimerTable;

    ITimerProvider* provider;
    IThreadInvoker* invoker;
    std::shared_ptr<CTimerTable> table; // shared with the calls under way: they may outlive us
};

} // namespace Vorin::System
