#include "system/TimerCommandAdapter.h"

#include "system/SystemTestTools.h"
#include "system/TimerSerializer.h"

#include <gtest/gtest.h>

#include <memory>

namespace Vorin::System {
namespace {

using Testing::CFakeTimerProvider;
using Testing::CFunctionCommand;

class TimerCommandAdapterTest : public ::testing::Test {
protected:
    CFakeTimerProvider provider;
    int runs = 0;
    CFunctionCommand command{[this] { ++runs; }};
};

TEST_F(TimerCommandAdapterTest, RegistersAFiftyMillisecondTimerAtOnce) {
    const CTimerCommandAdapter adapter(&provider, &command, Core::kDontOwn);
    ASSERT_EQ(provider.timers.size(), 1u);
    EXPECT_EQ(provider.timers[0].period, 50);
    EXPECT_EQ(adapter.GetRefreshTime(), 50);
}

TEST_F(TimerCommandAdapterTest, AHundredCallsInAPeriodMakeOneExecution) {
    CTimerCommandAdapter adapter(&provider, &command, Core::kDontOwn);
    for (int i = 0; i < 100; ++i) {
        adapter.Execute();
    }
    EXPECT_EQ(runs, 0);
    provider.Tick();
    EXPECT_EQ(runs, 1);
    provider.Tick();
    EXPECT_EQ(runs, 1);
}

TEST_F(TimerCommandAdapterTest, ACallFromTheCommandIsServedInTheNextPeriod) {
    CTimerCommandAdapter adapter(&provider, &command, Core::kDontOwn);
    command.function = [&] {
        if (++runs == 1) {
            adapter.Execute();
        }
    };
    adapter.Execute();
    provider.Tick();
    EXPECT_EQ(runs, 1);
    provider.Tick();
    provider.Tick();
    EXPECT_EQ(runs, 2);
}

TEST_F(TimerCommandAdapterTest, WhileOffWhatIsPendingWaits) {
    CTimerCommandAdapter adapter(&provider, &command, Core::kDontOwn);
    adapter.SetEnabled(false);
    adapter.Execute();
    provider.Tick();
    EXPECT_EQ(runs, 0);
    adapter.SetEnabled(true);
    provider.Tick();
    EXPECT_EQ(runs, 1);
}

TEST_F(TimerCommandAdapterTest, ARefreshTimeIsANewTimer) {
    CTimerCommandAdapter adapter(&provider, &command, Core::kDontOwn);
    provider.TakeLog();
    adapter.SetRefreshTime(20);
    EXPECT_EQ(provider.TakeLog(), "- +20 ");
    EXPECT_EQ(adapter.GetRefreshTime(), 20);
    adapter.Execute();
    provider.Tick();
    EXPECT_EQ(runs, 1);
}

TEST_F(TimerCommandAdapterTest, TheCommandMaySetTheRefreshTime) {
    CTimerSerializer timers(&provider);
    CTimerCommandAdapter adapter(&timers, &command, Core::kDontOwn);
    command.function = [&] {
        ++runs;
        adapter.SetRefreshTime(30);
    };
    adapter.Execute();
    provider.Tick();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(timers.GetBasePeriod(), 30);
}

TEST_F(TimerCommandAdapterTest, ItsDeathRemovesTheTimerBeforeTheCommand) {
    int timersLeft = -1;
    class CWatching : public Core::ICommand {
    public:
        CWatching(CFakeTimerProvider& watched, int& result) : timers(watched), left(result) {}
        ~CWatching() override { left = static_cast<int>(timers.timers.size()); }
        void Execute() override {}
        CFakeTimerProvider& timers;
        int& left;
    };
    auto adapter = std::make_unique<CTimerCommandAdapter>(
        &provider, new CWatching(provider, timersLeft), Core::kOwn);
    adapter.reset();
    EXPECT_EQ(timersLeft, 0);
}

TEST_F(TimerCommandAdapterTest, WithoutACommandATickDoesNothing) {
    CTimerCommandAdapter adapter(&provider, nullptr, Core::kOwn);
    adapter.Execute();
    provider.Tick();
}

} // namespace
} // namespace Vorin::System
