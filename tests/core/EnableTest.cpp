#include "core/Enable.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CWatcher {
public:
    explicit CWatcher(IEnable& source) : enable(source) {
        enable.GetEnableEvents().Connect(command);
    }
    void OnChanged() { log += enable.IsEnabled() ? '1' : '0'; }

    std::string log;

private:
    IEnable& enable;
    TCommand<CWatcher> command{this, &CWatcher::OnChanged};
};

TEST(EnableTest, NotifiesAfterTheStoreAndOnlyOnAChange) {
    CEnable enable(true);
    CWatcher watcher(enable);
    enable.SetEnabled(true);
    EXPECT_EQ(watcher.log, "");
    enable.SetEnabled(false);
    enable.SetEnabled(false);
    enable.SetEnabled(true);
    EXPECT_EQ(watcher.log, "01");
}

TEST(EnableTest, StartsAsGiven) {
    EXPECT_TRUE(CEnable(true).IsEnabled());
    EXPECT_FALSE(CEnable(false).IsEnabled());
}

} // namespace
