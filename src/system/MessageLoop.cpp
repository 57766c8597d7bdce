#include "system/MessageLoop.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <utility>

namespace Vorin::System {

using Core::CAutoLock;
using Core::ICommand;

CMessageLoop::CMessageLoop(IClock& loopClock) : clock(loopClock) {
    if (Core::IEventProvider* moved = clock.GetMovedEvents()) {
        moved->Connect(wakeUpCommand);
    }
}

CMessageLoop::~CMessageLoop() {
    assert(!IsCurrent() && "a loop must not be destroyed by a command of its own");
    CMessageLoop::Stop();
    if (Core::IEventProvider* moved = clock.GetMovedEvents()) {
        moved->Disconnect(wakeUpCommand);
    }
    DropMessages();
}

// One by one: the destructor of a command may post again.
void CMessageLoop::DropMessages() {
    while (true) {
        std::unique_ptr<CMessage> message;
        const CAutoLock held(messagesLock);
        if (messages.empty()) {
            return;
        }
        message = std::move(messages.front());
        messages.pop_front();
    }
}

bool CMessageLoop::Start() {
    if (running && keepRunning) {
        return true;
    }
    // A thread that a command of its own told to stop has not been joined yet.
    if (!thread.Wait(-1)) {
        return false;
    }
    keepRunning = true;
    if (!thread.Start()) {
        keepRunning = false;
        return false;
    }
    return started.Wait(-1);
}

void CMessageLoop::Stop() {
    {
        const CAutoLock held(messagesLock);
        keepRunning = false;
    }
    wakeUp.Signal();
    if (!IsCurrent()) {
        thread.Wait(-1);
    }
}

bool CMessageLoop::IsCurrent() const {
    const pthread_t id = loopThread;
    return id && pthread_equal(id, pthread_self()) != 0;
}

bool CMessageLoop::InvokeSync(ICommand* command, Core::EOwnership ownership) {
    if (!command) {
        return false;
    }
    if (IsCurrent()) {
        CMessage(command, ownership, nullptr).Execute();
        return true;
    }
    CMessageReceipt receipt;
    return Post(std::make_unique<CMessage>(command, ownership, &receipt), true) &&
           receipt.done.Wait(-1) && receipt.executed;
}

bool CMessageLoop::InvokeAsync(ICommand* command, Core::EOwnership ownership) {
    return command && Post(std::make_unique<CMessage>(command, ownership, nullptr), false);
}

// A refused message dies with the argument, after the lock. The signal is given under the lock: who
// sees the message in the queue may destroy the loop.
bool CMessageLoop::Post(std::unique_ptr<CMessage> message, bool overtake) {
    const CAutoLock held(messagesLock);
    const bool stopping = running && !keepRunning;
    if (stopping) {
        return false;
    }
    if (overtake) {
        messages.push_front(std::move(message));
    } else {
        messages.push_back(std::move(message));
    }
    wakeUp.Signal();
    return true;
}

int CMessageLoop::GetQueuedCount() const {
    const CAutoLock held(messagesLock);
    return static_cast<int>(messages.size());
}

void CMessageLoop::AddTimer(int periodMilliseconds, ICommand* command) {
    if (!command) {
        return;
    }
    const std::int64_t now = clock.GetNanoseconds();
    {
        const CAutoLock held(timersLock);
        CRecordPtr& record = timers[command];
        if (!record) {
            record = std::make_shared<CTimerRecord>(command);
        }
        RemoveFromDue(record);
        record->periodTicks = std::max(periodMilliseconds, 1) * nanosecondsPerMillisecond;
        record->startTime = now;
    }
    wakeUp.Signal();
}

void CMessageLoop::RemoveTimer(ICommand* command, bool destroy) {
    CRecordPtr record;
    {
        const CAutoLock held(timersLock);
        const auto found = timers.find(command);
        if (found != timers.end()) {
            record = found->second;
            timers.erase(found);
            RemoveFromDue(record);
        }
    }
    if (record) {
        record->removed = true;
        // On the loop's own thread no other execution than the caller's can be in progress.
        if (!IsCurrent()) {
            const CAutoLock ended(record->lock);
        }
    }
    if (destroy) {
        delete command;
    }
}

void CMessageLoop::RemoveFromDue(const CRecordPtr& record) {
    if (record->due) {
        std::erase(dueTimers, record);
        record->due = false;
    }
}

void CMessageLoop::Run() {
    Enter();
    do {
        wakeUp.WaitNanoseconds(waitNanoseconds);
    } while (RunPasses());
    Leave();
}

void CMessageLoop::Enter() {
    {
        const CAutoLock held(messagesLock);
        running = true;
    }
    loopThread = pthread_self();
    waitNanoseconds = 0; // what an earlier run left over is looked at first
    started.Set();
}

void CMessageLoop::Leave() {
    started.Reset();
    loopThread = 0;
    const CAutoLock held(messagesLock);
    running = false;
}

// Until there is nothing to do: true; or the loop shall end: false.
bool CMessageLoop::RunPasses() {
    while (keepRunning) {
        bool handledMessage = false;
        bool ranTimer = false;
        do {
            handledMessage = RunMessage() || handledMessage;
            ranTimer = RunDueTimer();
        } while (ranTimer && keepRunning);
        // After every message, not only when none is left: timers fall due during a flood too.
        CollectDueTimers();
        if (!handledMessage) {
            return keepRunning;
        }
    }
    return false;
}

bool CMessageLoop::RunMessage() {
    const std::unique_ptr<CMessage> message = TakeMessage();
    if (!message) {
        return false;
    }
    message->Execute();
    return true;
}

std::unique_ptr<CMessage> CMessageLoop::TakeMessage() {
    const CAutoLock held(messagesLock);
    if (!keepRunning || messages.empty()) {
        return nullptr;
    }
    std::unique_ptr<CMessage> message = std::move(messages.front());
    messages.pop_front();
    return message;
}

bool CMessageLoop::RunDueTimer() {
    const CRecordPtr record = TakeDueTimer();
    if (!record) {
        return false;
    }
    const std::int64_t now = clock.GetNanoseconds();
    const CAutoLock executing(record->lock);
    // When it was removed after it was taken, the command may be gone.
    if (!record->removed) {
        RestartStopwatch(*record, now);
        record->command->Execute();
    }
    return true;
}

void CMessageLoop::RestartStopwatch(CTimerRecord& record, std::int64_t now) {
    const CAutoLock held(timersLock);
    record.startTime = now;
}

CMessageLoop::CRecordPtr CMessageLoop::TakeDueTimer() {
    const CAutoLock held(timersLock);
    if (!keepRunning || dueTimers.empty()) {
        return nullptr;
    }
    CRecordPtr record = std::move(dueTimers.front());
    dueTimers.pop_front();
    record->due = false;
    return record;
}

// Timers never run in here: they are listed, and run in turn with messages.
void CMessageLoop::CollectDueTimers() {
    const std::int64_t now = clock.GetNanoseconds();
    const std::int64_t remaining = ListDueTimers(now);
    if (remaining > 0 && clock.GetMovedEvents()) {
        waitNanoseconds = -1; // the clock wakes us
    } else if (remaining > 0) {
        waitNanoseconds = std::max(remaining - (clock.GetNanoseconds() - now), std::int64_t{0});
    } else {
        waitNanoseconds = remaining;
    }
}

// The time until the next timer is due: 0 when one is, -1 when there are none.
std::int64_t CMessageLoop::ListDueTimers(std::int64_t now) {
    const CAutoLock held(timersLock);
    if (timers.empty()) {
        return -1;
    }
    std::int64_t shortest = std::numeric_limits<std::int64_t>::max();
    for (const auto& [command, record] : timers) {
        if (record->due) {
            continue;
        }
        const std::int64_t remaining = record->periodTicks - (now - record->startTime);
        if (remaining <= 0) {
            record->startTime = now;
            record->due = true;
            dueTimers.push_back(record);
        }
        shortest = std::min(shortest, remaining);
    }
    return dueTimers.empty() ? shortest : 0;
}

CMessageLoopThread::CMessageLoopThread(IClock& loopClock) : CMessageLoop(loopClock) { Start(); }

CMessageLoopThread::~CMessageLoopThread() { Stop(); }

} // namespace Vorin::System
