#pragma once

#include "core/Command.h"
#include "core/Ownership.h"
#include "system/CriticalSection.h"

#include <pthread.h>

namespace Vorin::System {

/// A thread that runs one procedure.
///
/// `Start`, `Cancel`, `Wait` and the destructor belong to one thread at a time, the owner's;
/// `IsCurrent` and `GetHandle` to any. The order for the owner:
/// 1. `Start`, or `startNow` at construction.
/// 2. Make the procedure come to its end.
/// 3. `Wait(-1)`; after it the thread may be started again.
///
/// The destructor does not join. A thread that was not waited for runs on alone with its argument
/// and frees its resources at its end: whoever destroys without waiting must know that the
/// argument outlives the thread.
class CThread {
public:
    using Procedure = void (*)(void* argument);

    CThread(Procedure threadProcedure, void* procedureArgument, bool startNow);
    CThread(const CThread&) = delete;
    CThread& operator=(const CThread&) = delete;

    /// False when the thread could not be created, or was started and not waited for. With a null
    /// procedure the thread ends at once.
    virtual bool Start();

    /// Asks the thread to end at its next cancellation point: false when there is no thread. The
    /// stack is unwound, so locks held for a scope are given back; what the procedure was doing is
    /// left half done. Nothing of ours is ended this way: loops are stopped.
    virtual bool Cancel();

    /// Whether the caller runs on this thread. [any]
    virtual bool IsCurrent() const;

    /// Joins when the time-out is -1, and does nothing for any other value. True when no thread
    /// runs any more; false without joining, and when called on the thread itself.
    virtual bool Wait(int timeoutMilliseconds);

    /// 0 when there is no thread. [any]
    virtual pthread_t GetHandle() const;

    virtual ~CThread();

private:
    static void* Run(void* start);

    void* argument;
    Procedure procedure;
    mutable CCriticalSection lock; // held while the thread is created: its handle is known inside
    pthread_t handle = 0;          // under the lock
};

/// A thread that executes one command. Null is not executed.
///
/// The command is deleted with the object when it is owned, so wait for the thread before that.
class CCommandThread : public CThread {
public:
    CCommandThread(Core::ICommand* threadCommand, Core::EOwnership ownership, bool startNow);

private:
    static void Execute(void* thread);

    Core::TOwnership<Core::ICommand> command;
};

} // namespace Vorin::System
