#include "ui/platform/qt_event_loop_driver.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QTime>
#include <memory>

#include "base/event_loop.h"

namespace brevane {
namespace {

// These tests run on real time, so they wait for events with generous limits and
// never judge how fast anything happened.
constexpr int kPatienceMs = 5000;

// Seconds between the loop's time of day and the system's, allowing for midnight
// passing in between.
int secondsFromSystemTime(const EventLoop& loop) {
    const QTime shown =
        QTime::fromString(QString::fromStdString(loop.timeOfDay()), QStringLiteral("HH:mm:ss"));
    if (!shown.isValid()) {
        return 86400;
    }
    const int apart = std::abs(shown.secsTo(QTime::currentTime()));
    return std::min(apart, 86400 - apart);
}

TEST(QtEventLoopDriver, TimersTickOnRealTimeNeverBeforeTheirDeadline) {
    EventLoop loop;
    QtEventLoopDriver driver(loop);
    Timer timer(loop, 20);
    std::vector<std::int64_t> at;
    timer.onTick = [&] { at.push_back(loop.now()); };
    timer.setEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return at.size() >= 3; }, kPatienceMs));
    for (std::size_t i = 0; i < at.size(); ++i) {
        EXPECT_GE(at[i], static_cast<std::int64_t>(20 * (i + 1)));
    }
    EXPECT_LE(loop.now(), driver.loopTimeNow());
}

TEST(QtEventLoopDriver, ATimerEnabledOrATaskPostedWhileTheLoopIsIdleStillWakesIt) {
    EventLoop loop;
    QtEventLoopDriver driver(loop);
    QTest::qWait(30);  // nothing is due: the driver sleeps
    bool ran = false;
    loop.post([&] { ran = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return ran; }, kPatienceMs));
    QTest::qWait(30);
    Timer timer(loop, 10);
    int ticks = 0;
    timer.onTick = [&] { ++ticks; };
    timer.setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }, kPatienceMs));
}

TEST(QtEventLoopDriver, HandlerRetimingAndStoppingItselfIsHonoured) {
    EventLoop loop;
    QtEventLoopDriver driver(loop);
    Timer timer(loop, 10000);  // far off, until the first tick brings it near
    Timer starter(loop, 5);
    starter.onTick = [&] {
        starter.setEnabled(false);
        timer.setInterval(10);
    };
    int ticks = 0;
    timer.onTick = [&] {
        if (++ticks == 2) {
            timer.setEnabled(false);
        }
    };
    timer.setEnabled(true);
    starter.setEnabled(true);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }, kPatienceMs));
    QTest::qWait(60);
    EXPECT_EQ(ticks, 2);
    EXPECT_FALSE(loop.nextDeadline().has_value());
}

TEST(QtEventLoopDriver, TimeOfDayIsTheSystemsLocalTimeAndCatchesUpWithAJumpOfTheClock) {
    EventLoop loop;
    QtEventLoopDriver driver(loop);
    EXPECT_LE(secondsFromSystemTime(loop), 2) << loop.timeOfDay();
    // As if the machine slept for an hour: the loop's clock says an hour ago.
    LocalTime earlier = systemLocalTime();
    earlier.hour = (earlier.hour + 23) % 24;  // before 1 am this is 23 hours ahead
    loop.setWallClockStart(earlier);
    Timer timer(loop, 5);
    int ticks = 0;
    timer.onTick = [&] { ++ticks; };
    timer.setEnabled(true);
    ASSERT_GE(secondsFromSystemTime(loop), 3600 - 2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks >= 2; }, kPatienceMs));
    EXPECT_LE(secondsFromSystemTime(loop), 2) << loop.timeOfDay();
}

TEST(QtEventLoopDriver, LoopOutlivingItsDriverCanStillBeScheduled) {
    EventLoop loop;
    auto driver = std::make_unique<QtEventLoopDriver>(loop);
    Timer timer(loop, 10);
    driver.reset();
    EXPECT_FALSE(static_cast<bool>(loop.onScheduleChanged));
    timer.setEnabled(true);  // must not reach the gone driver
    QCoreApplication::processEvents();
    EXPECT_TRUE(timer.enabled());
}

}  // namespace
}  // namespace brevane
