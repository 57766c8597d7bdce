#pragma once

#include "system/Clock.h"

#include <memory>

namespace Vorin::System {

class CRunLoopCore;

/// A run loop without a thread of its own: whoever owns the thread pumps it, and it never blocks.
///
/// For the main thread of a host, which gives us a call now and then. `CRunLoopThreadInvoker` and
/// `CRunLoopTimerProvider` put commands into it.
///
/// The loop's thread is the one that made it or, when the host moves, the one that pumped or
/// attached last. Everything here belongs to that thread. When the loop dies, what is queued is
/// destroyed unexecuted, whoever waits for it goes on, and its invokers and timer providers take
/// nothing more. A command of its own may destroy it.
class CRunLoop {
public:
    /// The clock is not owned, and must outlive the loop.
    explicit CRunLoop(IClock& clock = GetMonotonicClock());
    CRunLoop(const CRunLoop&) = delete;
    CRunLoop& operator=(const CRunLoop&) = delete;
    ~CRunLoop();

    /// Runs what is queued, what that queues in turn, and each timer that is due, once. Then
    /// returns, as it does after 64 rounds of commands that keep queueing new ones. Called again
    /// from a command of the loop it does nothing: false.
    bool Pump();

    /// The same for a dialog that blocks inside a command: runs though a pump is in progress. A
    /// timer whose command is on the stack is passed over.
    void PumpNested();

    /// For a call of the host that does not pump but may invoke: from now on this is the loop's
    /// thread. [any, while no other thread is inside the loop]
    void AttachToCurrentThread();

private:
    friend class CRunLoopThreadInvoker;
    friend class CRunLoopTimerProvider;

    std::shared_ptr<CRunLoopCore> core;
};

} // namespace Vorin::System
