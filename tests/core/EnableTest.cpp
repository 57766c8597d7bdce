#include "core/Enable.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Core;

class CEnableWatcher {
public:
    explicit CEnableWatcher(IEnable& source) : enable(source) {
        enable.GetEnableEvents().Connect(command);
    }
    void OnChanged() { log += enable.IsEnabled() ? '1' : '0'; }

    std::string log;

private:
    IEnable& enable;
    TCommand<CEnableWatcher> command{this, &CEnableWatcher::OnChanged};
};

TEST(EnableTest, NotifiesAfterTheStoreAndOnlyOnAChange) {
    CEnable enable(true);
    CEnableWatcher watcher(enable);
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
