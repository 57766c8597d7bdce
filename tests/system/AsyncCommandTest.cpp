#include "system/AsyncCommand.h"

#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::System {
namespace {

class CTarget {
public:
    void Call() { ++calls; }
    int calls = 0;
};

TEST(AsyncCommandTest, LeavesItsCallToTheInvokerAndKeepsTheCommand) {
    CTarget target;
    Testing::CFakeInvoker invoker;
    TAsyncCommand<CTarget> command(&invoker, &target, &CTarget::Call);
    command.Execute();
    command.Execute();
    EXPECT_EQ(target.calls, 0);
    ASSERT_EQ(invoker.queue.size(), 2u);
    EXPECT_EQ(invoker.queue[0].second, Core::kDontOwn);
    invoker.RunOne();
    invoker.RunOne();
    EXPECT_EQ(target.calls, 2);
}

} // namespace
} // namespace Vorin::System
