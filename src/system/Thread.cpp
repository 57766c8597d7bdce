#include "system/Thread.h"

#include <memory>

namespace Vorin::System {

using Core::CAutoLock;

namespace {

// What a new thread is given: a copy, since the object may be gone before the thread looks at it.
struct CStart {
    CThread::Procedure procedure;
    void* argument;
};

} // namespace

CThread::CThread(Procedure threadProcedure, void* procedureArgument, bool startNow)
    : argument(procedureArgument), procedure(threadProcedure) {
    if (startNow) {
        CThread::Start();
    }
}

CThread::~CThread() {
    const CAutoLock held(lock);
    if (handle) {
        pthread_detach(handle);
    }
    handle = 0;
}

bool CThread::Start() {
    const CAutoLock held(lock);
    if (handle) {
        return false;
    }
    auto start = std::make_unique<CStart>(CStart{procedure, argument});
    if (pthread_create(&handle, nullptr, &CThread::Run, start.get()) != 0) {
        handle = 0;
        return false;
    }
    static_cast<void>(start.release()); // the thread's
    return true;
}

void* CThread::Run(void* start) {
    std::unique_ptr<CStart> given(static_cast<CStart*>(start));
    const CStart own = *given;
    given.reset();
    if (own.procedure) {
        own.procedure(own.argument);
    }
    return nullptr;
}

bool CThread::Cancel() {
    const CAutoLock held(lock);
    return handle && pthread_cancel(handle) == 0;
}

bool CThread::IsCurrent() const {
    const CAutoLock held(lock);
    return handle && pthread_equal(handle, pthread_self()) != 0;
}

// The lock is not held during the join: the thread that is waited for may ask for it.
bool CThread::Wait(int timeoutMilliseconds) {
    if (timeoutMilliseconds != -1 || IsCurrent()) {
        return false;
    }
    const pthread_t joined = GetHandle();
    if (!joined) {
        return true;
    }
    if (pthread_join(joined, nullptr) != 0) {
        return false;
    }
    const CAutoLock held(lock);
    handle = 0;
    return true;
}

pthread_t CThread::GetHandle() const {
    const CAutoLock held(lock);
    return handle;
}

CCommandThread::CCommandThread(Core::ICommand* threadCommand, Core::EOwnership ownership,
                               bool startNow)
    : CThread(&CCommandThread::Execute, this, false), command(threadCommand, ownership) {
    if (startNow) {
        CThread::Start();
    }
}

void CCommandThread::Execute(void* thread) {
    if (Core::ICommand* command = static_cast<CCommandThread*>(thread)->command.Get()) {
        command->Execute();
    }
}

} // namespace Vorin::System
