#include "system/TimerWithThreadSynchronization.h"

#include <utility>

namespace Vorin::System {

using Core::CAutoLock;
using Core::ICommand;

/// The timers by user command, and what their calls arrive at on the invoker's thread.
class CTimerWithThreadSynchronization::CTimerTable {
public:
    /// One call under way. It keeps the table alive, which is the object it is bound to.
    struct CCall {
        std::shared_ptr<CTimerTable> table;
        ICommand* userCommand;
    };

    void OnTimer(CCall call);

    CCriticalSection lock;
    std::unordered_map<ICommand*, CThreadSyncCommandAdapter*> adapters; // under the lock
};

/// What the provider runs in place of a user command: posts the call to the invoker's thread.
class CTimerWithThreadSynchronization::CThreadSyncCommandAdapter final : public ICommand {
public:
    CThreadSyncCommandAdapter(ICommand* command, std::shared_ptr<CTimerTable> table,
                              IThreadInvoker* threadInvoker)
        : userCommand(command), owner(std::move(table)), invoker(threadInvoker) {}

    void Execute() override {
        if (IsCallDue()) {
            using CCall = CTimerTable::CCall;
            using CTarget = Core::TArgCommand<CTimerTable, CCall>;
            invoker->InvokeAsync(
                new Core::TArgCommandWrapper<CTarget>(CTarget(owner.get(), &CTimerTable::OnTimer),
                                                      CCall{owner, userCommand}),
                Core::kOwn);
        }
    }

    /// The call has arrived: the next tick may post again.
    void SetReady() {
        const CAutoLock held(lock);
        ready = true;
    }

private:
    bool IsCallDue() {
        constexpr int maxSkipped = 15;
        const CAutoLock held(lock);
        if (!ready && skipped <= maxSkipped) {
            ++skipped;
            return false;
        }
        ready = false;
        skipped = 0;
        return true;
    }

    ICommand* userCommand;
    std::shared_ptr<CTimerTable> owner;
    IThreadInvoker* invoker;
    CCriticalSection lock;
    bool ready = true; // under the lock, as is skipped
    int skipped = 0;
};

// The table's lock keeps the adapter: who removes it takes it out of the table first.
void CTimerWithThreadSynchronization::CTimerTable::OnTimer(CCall call) {
    {
        const CAutoLock held(lock);
        const auto found = adapters.find(call.userCommand);
        if (found == adapters.end()) {
            return;
        }
        found->second->SetReady();
    }
    call.userCommand->Execute();
}

CTimerWithThreadSynchronization::CTimerWithThreadSynchronization(ITimerProvider* timerProvider,
                                                                 IThreadInvoker* threadInvoker)
    : provider(timerProvider), invoker(threadInvoker), table(std::make_shared<CTimerTable>()) {}

CTimerWithThreadSynchronization::~CTimerWithThreadSynchronization() {
    std::unordered_map<ICommand*, CThreadSyncCommandAdapter*> removed;
    {
        const CAutoLock held(table->lock);
        removed.swap(table->adapters);
    }
    for (const auto& [command, adapter] : removed) {
        provider->RemoveTimer(adapter, true);
    }
}

void CTimerWithThreadSynchronization::AddTimer(int periodMilliseconds, ICommand* command) {
    if (!command) {
        return;
    }
    CThreadSyncCommandAdapter* adapter = nullptr;
    {
        const CAutoLock held(table->lock);
        CThreadSyncCommandAdapter*& known = table->adapters[command];
        if (!known) {
            known = new CThreadSyncCommandAdapter(command, table, invoker);
        }
        adapter = known;
    }
    provider->AddTimer(periodMilliseconds, adapter);
}

void CTimerWithThreadSynchronization::RemoveTimer(ICommand* command, bool destroy) {
    CThreadSyncCommandAdapter* adapter = nullptr;
    {
        const CAutoLock held(table->lock);
        const auto found = table->adapters.find(command);
        if (found != table->adapters.end()) {
            adapter = found->second;
            table->adapters.erase(found);
        }
    }
    if (adapter) {
        provider->RemoveTimer(adapter, true);
    }
    if (destroy) {
        delete command;
    }
}

} // namespace Vorin::System
