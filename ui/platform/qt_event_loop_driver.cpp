#include "ui/platform/qt_event_loop_driver.h"

#include <QDate>
#include <QDateTime>
#include <QTime>
#include <algorithm>
#include <climits>
#include <cstdlib>

namespace brevane {

namespace {

// A civil date and time as a count of seconds, for comparing two of them.
std::int64_t civilSeconds(const LocalTime& t) {
    const QDateTime at(QDate(t.year, t.month, t.day), QTime(t.hour, t.minute, t.second), Qt::UTC);
    return at.toSecsSinceEpoch();
}

// The loop keeps whole seconds from its start, so it may stand up to a second
// behind the system; anything more is a real jump of the system's clock.
constexpr std::int64_t kDriftToleranceSeconds = 2;

}  // namespace

LocalTime systemLocalTime() {
    const QDateTime now = QDateTime::currentDateTime();
    LocalTime t;
    t.year = now.date().year();
    t.month = now.date().month();
    t.day = now.date().day();
    t.weekday = now.date().dayOfWeek() % 7;  // Qt counts Monday 1 .. Sunday 7
    t.hour = now.time().hour();
    t.minute = now.time().minute();
    t.second = now.time().second();
    return t;
}

QtEventLoopDriver::QtEventLoopDriver(EventLoop& loop) : loop_(loop), origin_(loop.now()) {
    wake_.setSingleShot(true);
    wake_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&wake_, &QTimer::timeout, [this] { runDue(); });
    clock_.start();
    syncTimeOfDay();
    loop_.onScheduleChanged = [this] {
        // While ticks run, the schedule changes many times; one aim afterwards does.
        if (!running_) {
            aim();
        }
    };
    aim();
}

QtEventLoopDriver::~QtEventLoopDriver() {
    loop_.onScheduleChanged = nullptr;
}

std::int64_t QtEventLoopDriver::loopTimeNow() const {
    return origin_ + clock_.elapsed();
}

void QtEventLoopDriver::syncTimeOfDay() {
    loop_.setWallClockStart(systemLocalTime());
}

void QtEventLoopDriver::runDue() {
    if (running_) {
        // A modal dialog inside a tick spins Qt's loop; the outer run re-aims.
        return;
    }
    running_ = true;
    loop_.catchUpTo(loopTimeNow());
    running_ = false;
    if (std::llabs(civilSeconds(loop_.localTime()) - civilSeconds(systemLocalTime())) >=
        kDriftToleranceSeconds) {
        syncTimeOfDay();
    }
    aim();
}

void QtEventLoopDriver::aim() {
    const auto deadline = loop_.nextDeadline();
    if (!deadline) {
        wake_.stop();
        return;
    }
    const std::int64_t wait = std::clamp<std::int64_t>(*deadline - loopTimeNow(), 0, INT_MAX);
    wake_.start(static_cast<int>(wait));
}

}  // namespace brevane
