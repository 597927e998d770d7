#include "base/event_loop.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace brevane {
namespace {

TEST(EventLoop, SimultaneousTicksRunInCreationOrder) {
    EventLoop loop;
    Timer second(loop, 500);
    Timer first(loop, 1000);
    std::vector<std::string> order;
    first.onTick = [&] { order.push_back("first@" + std::to_string(loop.now())); };
    second.onTick = [&] { order.push_back("second@" + std::to_string(loop.now())); };
    first.setEnabled(true);
    second.setEnabled(true);
    loop.advance(1000);
    EXPECT_EQ(order, (std::vector<std::string>{"second@500", "second@1000", "first@1000"}));
}

TEST(EventLoop, ReEnablingOrChangingTheIntervalRestartsThePeriodAndIntervalZeroNeverTicks) {
    EventLoop loop;
    Timer t(loop, 1000);
    std::vector<std::int64_t> at;
    t.onTick = [&] { at.push_back(loop.now()); };
    t.setEnabled(true);
    loop.advance(700);
    t.setEnabled(false);
    t.setEnabled(true);  // period restarts at 700
    loop.advance(1000);  // tick at 1700
    loop.advance(300);   // at 2000
    t.setInterval(250);  // restarts: next at 2250
    loop.advance(300);
    EXPECT_EQ(at, (std::vector<std::int64_t>{1700, 2250}));
    // Enabling an enabled timer does not restart it.
    t.setEnabled(true);
    loop.advance(200);
    EXPECT_EQ(at.back(), 2500);
    // Interval zero gives no ticks while enabled.
    EventLoop idle;
    Timer zero(idle, 0);
    int ticks = 0;
    zero.onTick = [&] { ++ticks; };
    zero.setEnabled(true);
    idle.advance(60'000);
    EXPECT_EQ(ticks, 0);
    EXPECT_FALSE(idle.nextDeadline());
    zero.setInterval(100);
    idle.advance(1000);
    EXPECT_EQ(ticks, 10);
}

TEST(EventLoop, AHandlerCanReTimeAndDisableItself) {
    EventLoop loop;
    Timer t(loop, 100);
    std::vector<std::int64_t> at;
    t.onTick = [&] {
        at.push_back(loop.now());
        if (at.size() == 2) {
            t.setInterval(1000);
        }
        if (at.size() == 4) {
            t.setEnabled(false);
        }
    };
    t.setEnabled(true);
    loop.advance(10'000);
    EXPECT_EQ(at, (std::vector<std::int64_t>{100, 200, 1200, 2200}));
    EXPECT_FALSE(t.enabled());
}

TEST(EventLoop, AHandlerStartingAnotherTimerSchedulesItFromItsOwnTimeAndADestroyedOneNeverTicks) {
    EventLoop loop;
    Timer starter(loop, 300);
    Timer oneShot(loop, 50);
    std::vector<std::string> order;
    starter.onTick = [&] {
        order.push_back("starter@" + std::to_string(loop.now()));
        starter.setEnabled(false);
        oneShot.setEnabled(true);
    };
    oneShot.onTick = [&] {
        order.push_back("oneShot@" + std::to_string(loop.now()));
        oneShot.setEnabled(false);
    };
    starter.setEnabled(true);
    loop.advance(1000);
    EXPECT_EQ(order, (std::vector<std::string>{"starter@300", "oneShot@350"}));
    EXPECT_EQ(loop.now(), 1000);
    // A timer destroyed by another handler never ticks again.
    EventLoop other;
    auto victim = std::make_unique<Timer>(other, 100);
    Timer killer(other, 50);
    int victimTicks = 0;
    victim->onTick = [&] { ++victimTicks; };
    killer.onTick = [&] { victim.reset(); };
    killer.setEnabled(true);
    victim->setEnabled(true);
    other.advance(1000);
    EXPECT_EQ(victimTicks, 0);
}

TEST(EventLoop, PostedTasksRunBeforeTimersAndCatchingUpRunsALateTimerOnce) {
    EventLoop loop;
    Timer t(loop, 10);
    std::vector<std::string> order;
    t.onTick = [&] {
        order.push_back("tick");
        t.setEnabled(false);
    };
    t.setEnabled(true);
    loop.post([&] {
        order.push_back("task");
        loop.post([&] { order.push_back("task from task"); });
    });
    loop.advance(10);
    EXPECT_EQ(order, (std::vector<std::string>{"task", "task from task", "tick"}));
    // Catching up runs a late timer once, not in a burst.
    EventLoop late;
    Timer slow(late, 50);
    int ticks = 0;
    slow.onTick = [&] { ++ticks; };
    slow.setEnabled(true);
    late.catchUpTo(1000);  // twenty periods late
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(*late.nextDeadline(), 1050);
}

TEST(EventLoop, TimeOfDayFollowsTheLoopClockAcrossMidnight) {
    EventLoop loop;
    loop.setWallClockStart({2026, 12, 31, 4, 23, 59, 58});
    EXPECT_EQ(loop.timeOfDay(), "23:59:58");
    loop.advance(1999);
    EXPECT_EQ(loop.timeOfDay(), "23:59:59");
    loop.advance(1);
    EXPECT_EQ(loop.timeOfDay(), "00:00:00");
    const LocalTime t = loop.localTime();
    EXPECT_EQ(t.year, 2027);
    EXPECT_EQ(t.month, 1);
    EXPECT_EQ(t.day, 1);
    EXPECT_EQ(t.weekday, 5);  // 2027-01-01 is a Friday
}

}  // namespace
}  // namespace brevane
