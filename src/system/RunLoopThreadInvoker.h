#pragma once

#include "system/RunLoop.h"
#include "system/ThreadInvoker.h"

#include <memory>

namespace Vorin::System {

/// Runs commands on the thread of a run loop. [any]
///
/// `InvokeSync` from another thread waits until the loop is pumped. On the loop's own thread both
/// forms go through the queue too: `InvokeSync` runs what is queued up to its own command.
///
/// Made and destroyed on the loop's thread. Its death cancels what has not run: the commands are
/// deleted when owned, and who waits for one gets false. When the loop is gone no thread can be
/// reached: the command does not run, is deleted when owned, and the result is false.
class CRunLoopThreadInvoker : public virtual IThreadInvoker {
public:
    explicit CRunLoopThreadInvoker(CRunLoop& loop);
    CRunLoopThreadInvoker(const CRunLoopThreadInvoker&) = delete;
    CRunLoopThreadInvoker& operator=(const CRunLoopThreadInvoker&) = delete;
    ~CRunLoopThreadInvoker() override;

    bool InvokeSync(Core::ICommand* command, Core::EOwnership ownership) override;
    bool InvokeAsync(Core::ICommand* command, Core::EOwnership ownership) override;

private:
    std::shared_ptr<CRunLoopCore> core;
};

} // namespace Vorin::System
