#include "system/TimerSerializer.h"

#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace Vorin::System {
namespace {

using Testing::CFakeTimerProvider;
using Testing::CFunctionCommand;

class TimerSerializerTest : public ::testing::Test {
protected:
    void Tick(int times) {
        for (int i = 0; i < times; ++i) {
            provider.Tick();
        }
    }

    CFakeTimerProvider provider;
    CTimerSerializer timers{&provider};
    std::string log;
    CFunctionCommand a{[this] { log += 'a'; }};
    CFunctionCommand b{[this] { log += 'b'; }};
    CFunctionCommand c{[this] { log += 'c'; }};
};

TEST_F(TimerSerializerTest, PeriodsAreRoundedUpToTensAndShareTheirGreatestCommonDivisor) {
    EXPECT_EQ(timers.GetBasePeriod(), -1);
    timers.AddTimer(25, &a);
    EXPECT_EQ(timers.GetBasePeriod(), 30);
    EXPECT_EQ(provider.TakeLog(), "- +30 ");
    timers.AddTimer(40, &b);
    EXPECT_EQ(timers.GetBasePeriod(), 10);
    EXPECT_EQ(provider.TakeLog(), "- +10 ");
    Tick(12);
    EXPECT_EQ(log, "ababaab"); // a at 30, 60, 90, 120; b at 40, 80, 120
    timers.RemoveTimer(&b, false);
    EXPECT_EQ(timers.GetBasePeriod(), 30);
    EXPECT_EQ(provider.TakeLog(), "- +30 ");
}

TEST_F(TimerSerializerTest, APeriodOfZeroOrLessRoundsToTen) {
    timers.AddTimer(0, &a);
    EXPECT_EQ(timers.GetBasePeriod(), 10);
    timers.RemoveTimer(&a, false);
    timers.AddTimer(std::numeric_limits<int>::min(), &a);
    EXPECT_EQ(timers.GetBasePeriod(), 10);
    timers.RemoveTimer(&a, false);
    timers.AddTimer(9, &a);
    EXPECT_EQ(timers.GetBasePeriod(), 10);
    timers.RemoveTimer(&a, false);
    timers.AddTimer(11, &a);
    EXPECT_EQ(timers.GetBasePeriod(), 20);
}

TEST_F(TimerSerializerTest, TheLongestPeriodDoesNotOverflow) {
    timers.AddTimer(std::numeric_limits<int>::max(), &a);
    EXPECT_EQ(timers.GetBasePeriod(), 2147483640);
    Tick(1);
    EXPECT_EQ(log, "a");
    timers.AddTimer(2147483630, &b); // common divisor 10
    EXPECT_EQ(timers.GetBasePeriod(), 10);
    Tick(3);
    EXPECT_EQ(log, "a");
}

TEST_F(TimerSerializerTest, RemovingTheOnlyTimerLeavesNoTimerAndTheNextOneSetsTheBase) {
    timers.AddTimer(20, &a);
    timers.RemoveTimer(&a, false);
    EXPECT_EQ(timers.GetBasePeriod(), -1);
    EXPECT_TRUE(provider.timers.empty());
    timers.AddTimer(70, &b);
    EXPECT_EQ(timers.GetBasePeriod(), 70);
    ASSERT_EQ(provider.timers.size(), 1u);
    EXPECT_EQ(provider.timers[0].period, 70);
}

TEST_F(TimerSerializerTest, AddingACommandTwiceMakesTwoTimers) {
    timers.AddTimer(10, &a);
    timers.AddTimer(20, &a);
    Tick(2);
    EXPECT_EQ(log, "aaa"); // 10; 20 and 20
    timers.RemoveTimer(&a, false);
    EXPECT_EQ(timers.GetBasePeriod(), 20) << "the first of the two is removed";
    Tick(1);
    EXPECT_EQ(log, "aaaa");
}

TEST_F(TimerSerializerTest, NullIsIgnored) {
    timers.AddTimer(10, nullptr);
    timers.RemoveTimer(nullptr, true);
    EXPECT_EQ(timers.GetBasePeriod(), -1);
    EXPECT_EQ(provider.TakeLog(), "");
}

TEST_F(TimerSerializerTest, RemoveDestroysTheCommandRegisteredOrNot) {
    int deaths = 0;
    auto* known = new CFunctionCommand([] {}, &deaths);
    timers.AddTimer(10, known);
    timers.RemoveTimer(known, true);
    EXPECT_EQ(deaths, 1);
    timers.RemoveTimer(new CFunctionCommand([] {}, &deaths), true);
    EXPECT_EQ(deaths, 2);
}

TEST_F(TimerSerializerTest, AnUnchangedBaseDoesNotRestart) {
    timers.AddTimer(10, &a);
    provider.TakeLog();
    timers.AddTimer(30, &b);
    timers.RemoveTimer(&b, false);
    EXPECT_EQ(provider.TakeLog(), "");
}

TEST_F(TimerSerializerTest, WhileOffNothingIsRegistered) {
    int events = 0;
    CFunctionCommand onEnable([&] { ++events; });
    timers.GetEnableEvents().Connect(onEnable);
    timers.AddTimer(10, &a);
    EXPECT_EQ(events, 2) << "a new base switches off and on";
    timers.SetEnabled(false);
    EXPECT_FALSE(timers.IsEnabled());
    EXPECT_TRUE(provider.timers.empty());
    timers.AddTimer(15, &b);
    EXPECT_TRUE(provider.timers.empty());
    EXPECT_EQ(timers.GetBasePeriod(), 10);
    EXPECT_EQ(events, 3);
    timers.SetEnabled(true);
    ASSERT_EQ(provider.timers.size(), 1u);
    EXPECT_EQ(provider.timers[0].period, 10);
    EXPECT_EQ(events, 4);
    timers.SetEnabled(true);
    EXPECT_EQ(events, 4);
}

TEST_F(TimerSerializerTest, SwitchingOnWithoutTimersRegistersNothing) {
    timers.SetEnabled(false);
    timers.SetEnabled(true);
    EXPECT_EQ(provider.TakeLog(), "- - ");
}

TEST_F(TimerSerializerTest, ResetStartsEveryPeriodAnew) {
    timers.AddTimer(30, &a);
    timers.AddTimer(20, &b); // ticks of 10
    Tick(1);
    timers.ResetElapsed();
    Tick(1);
    EXPECT_EQ(log, "");
    Tick(2);
    EXPECT_EQ(log, "ba");
}

TEST_F(TimerSerializerTest, ACommandMayRemoveItself) {
    a.function = [this] {
        log += 'a';
        timers.RemoveTimer(&a, false);
    };
    timers.AddTimer(10, &a);
    timers.AddTimer(10, &b);
    Tick(2);
    EXPECT_EQ(log, "abb");
}

TEST_F(TimerSerializerTest, ACommandMayRemoveTheOneThatComesNext) {
    a.function = [this] {
        log += 'a';
        timers.RemoveTimer(&b, false);
    };
    timers.AddTimer(10, &a);
    timers.AddTimer(10, &b);
    timers.AddTimer(10, &c);
    Tick(1);
    EXPECT_EQ(log, "ac");
}

TEST_F(TimerSerializerTest, ACommandMayRemoveAndDestroyItselfAsTheLastOne) {
    int deaths = 0;
    auto* own = new CFunctionCommand([] {}, &deaths);
    own->function = [this, own] {
        log += 'x';
        timers.RemoveTimer(own, true);
    };
    timers.AddTimer(10, own);
    Tick(1);
    EXPECT_EQ(log, "x");
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(timers.GetBasePeriod(), -1);
}

TEST_F(TimerSerializerTest, ATimerAddedDuringATickCountsFromTheNextOne) {
    a.function = [this] {
        log += 'a';
        timers.RemoveTimer(&a, false);
        timers.AddTimer(10, &c);
    };
    timers.AddTimer(10, &a);
    timers.AddTimer(10, &b);
    Tick(1);
    EXPECT_EQ(log, "ab");
    Tick(1);
    EXPECT_EQ(log, "abbc");
}

TEST_F(TimerSerializerTest, CommandsThatAlwaysAddThemselvesAnewDoNotKeepATickFromEnding) {
    const auto renew = [this](CFunctionCommand& command, char name) {
        command.function = [this, &command, name] {
            log += name;
            timers.RemoveTimer(&command, false);
            timers.AddTimer(10, &command);
        };
        timers.AddTimer(10, &command);
    };
    renew(a, 'a');
    renew(b, 'b');
    Tick(2);
    EXPECT_EQ(log, "abab");
}

TEST_F(TimerSerializerTest, ABaseThatChangesDuringATickDoesNotChangeWhatHasPassed) {
    a.function = [this] {
        log += 'a';
        timers.AddTimer(20, &c); // base 30 becomes 10
    };
    timers.AddTimer(30, &a);
    timers.AddTimer(30, &b);
    Tick(1);
    EXPECT_EQ(log, "ab");
    EXPECT_EQ(timers.GetBasePeriod(), 10);
}

TEST(TimerSerializerLifeTest, ItsDeathTakesItsTimerBack) {
    CFakeTimerProvider provider;
    CFunctionCommand command([] {});
    {
        CTimerSerializer timers(&provider);
        timers.AddTimer(10, &command);
        EXPECT_EQ(provider.timers.size(), 1u);
    }
    EXPECT_TRUE(provider.timers.empty());
}

} // namespace
} // namespace Vorin::System
