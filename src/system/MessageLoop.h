#pragma once

#include "system/Clock.h"
#include "system/CriticalSection.h"
#include "system/Event.h"
#include "system/Message.h"
#include "system/Thread.h"
#include "system/ThreadInvoker.h"
#include "system/TimerProvider.h"
#include "system/TimerSerializer.h"
#include "system/WaitableEvent.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <unordered_map>

namespace Vorin::System {

/// A thread that runs commands and timers, one at a time.
///
/// Invocations and timers: [any], the loop's own commands included. `Start`, `Stop` and the
/// destructor belong to one thread at a time, the owner's; `Stop` also to the loop's own commands.
///
/// - Messages run in the order they were posted; synchronous calls overtake what is queued.
/// - After each message one timer that is due runs, and after each such timer one message: neither
///   starves the other.
/// - A timer's period counts from its last execution. Ticks that were missed are not made up for.
///   A period below 1 ms counts as 1 ms.
/// - A message posted while the loop is stopping is destroyed and not executed: false. One posted
///   before the start waits for it, and one that a stop left over waits for the next start; the
///   destructor destroys what is left, and who waits for it gets false.
///
/// Locks: a timer's command runs under the lock of its record, so `RemoveTimer` on another thread
/// returns when a running execution has ended: the caller must not hold a lock that this command
/// may want, and two loops must not remove timers from each other. The messages' lock and the
/// timers' lock are innermost: no command runs and no clock is read under them.
class CMessageLoop : public virtual IThreadInvoker, public virtual ITimerProvider {
public:
    /// The clock is not owned, and must outlive the loop.
    explicit CMessageLoop(IClock& loopClock = GetMonotonicClock());
    CMessageLoop(const CMessageLoop&) = delete;
    CMessageLoop& operator=(const CMessageLoop&) = delete;

    /// Stops the loop. Not on the loop's own thread. A derived class that overrides something, or
    /// whose commands call it, stops the loop in its own destructor.
    ~CMessageLoop() override;

    /// Returns when the thread runs. False when there is no thread to be had, and on the loop's own
    /// thread while it is stopping.
    bool Start();

    /// Returns when the thread has ended; on the loop's own thread at once, and the thread ends
    /// after the command.
    void Stop();

    bool IsRunning() const { return running; }

    /// Whether the caller runs on the loop's thread. [any]
    bool IsCurrent() const;

    /// The messages that wait; the one that is being executed is not among them. [any]
    int GetQueuedCount() const;

    /// On the loop's own thread runs the command at once. Elsewhere waits without limit: the owner
    /// keeps the loop running while others call this.
    bool InvokeSync(Core::ICommand* command, Core::EOwnership ownership) override;

    /// Goes through the queue on the loop's own thread too.
    bool InvokeAsync(Core::ICommand* command, Core::EOwnership ownership) override;

    void AddTimer(int periodMilliseconds, Core::ICommand* command) override;

    /// When it returns the command is not running and will not run, unless the caller is that
    /// command.
    void RemoveTimer(Core::ICommand* command, bool destroy) override;

    /// Many timers on one timer of this loop. For the loop's thread alone, or while it is stopped.
    CTimerSerializer& GetTimerSerializer() { return timerSerializer; }

private:
    /// Held by the table, by the list of due timers and by an execution in progress: whoever lets
    /// go last frees it, so a command may remove its own timer.
    struct CTimerRecord {
        explicit CTimerRecord(Core::ICommand* timerCommand) : command(timerCommand) {}

        Core::ICommand* const command;
        std::int64_t startTime = 0;   // nanoseconds; under timersLock
        std::int64_t periodTicks = 0; // nanoseconds; under timersLock
        bool due = false;             // is in dueTimers; under timersLock
        CCriticalSection lock;        // held during the execution
        std::atomic<bool> removed{false};
    };
    using CRecordPtr = std::shared_ptr<CTimerRecord>;

    bool Post(std::unique_ptr<CMessage> message, bool overtake);
    void DropMessages();

    // On the loop's thread.
    void Run();
    void Enter();
    void Leave();
    bool RunPasses();
    bool RunMessage();
    bool RunDueTimer();
    std::unique_ptr<CMessage> TakeMessage();
    CRecordPtr TakeDueTimer();
    void RestartStopwatch(CTimerRecord& record, std::int64_t now);
    void CollectDueTimers();
    std::int64_t ListDueTimers(std::int64_t now);
    void RemoveFromDue(const CRecordPtr& record);

    IClock& clock;

    mutable CCriticalSection messagesLock;
    std::deque<std::unique_ptr<CMessage>> messages; // under messagesLock
    std::atomic<bool> keepRunning{false};           // written under messagesLock
    std::atomic<bool> running{false};               // written under messagesLock

    CCriticalSection timersLock;
    std::unordered_map<Core::ICommand*, CRecordPtr> timers; // under timersLock
    std::deque<CRecordPtr> dueTimers;                       // under timersLock

    CWaitableEvent wakeUp;
    CEvent started{false};
    std::atomic<pthread_t> loopThread{0};
    std::int64_t waitNanoseconds = -1; // the loop's thread; -1: no limit

    Core::TCommand<CWaitableEvent> wakeUpCommand{&wakeUp, &CWaitableEvent::Signal};
    Core::TCommand<CMessageLoop> runCommand{this, &CMessageLoop::Run};
    CCommandThread thread{&runCommand, Core::kDontOwn, false};
    CTimerSerializer timerSerializer{this}; // last: it takes its timer back when it dies
};

/// A message loop whose thread starts at construction. It is not running when there was no thread
/// to be had.
class CMessageLoopThread : public CMessageLoop {
public:
    explicit CMessageLoopThread(IClock& loopClock = GetMonotonicClock());
    ~CMessageLoopThread() override;
};

} // namespace Vorin::System
