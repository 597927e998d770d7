#pragma once
// Runs the program's EventLoop on real time from inside Qt's event loop.
//
// One precise single-shot QTimer is aimed at the loop's next deadline and re-aimed
// whenever a timer's schedule changes, so the loop wakes exactly when something is
// due and never polls. Loop time is the milliseconds of a monotonic clock since the
// driver started, so a change of the system clock never bunches or skips ticks;
// the time of day comes from the system's local time, taken at start and taken
// again whenever the two drift apart (a suspend, a clock change, daylight saving).
//
// Ticks never overlap: a handler that opens a modal dialog holds the loop until
// the dialog closes, then what fell due meanwhile runs once.
//
// Ownership: the driver owns the loop's onScheduleChanged while it lives and
// clears it when destroyed. The loop must outlive the driver. Event thread only.

#include <QElapsedTimer>
#include <QTimer>
#include <cstdint>

#include "base/event_loop.h"

namespace brevane {

class QtEventLoopDriver {
  public:
    explicit QtEventLoopDriver(EventLoop& loop);
    ~QtEventLoopDriver();
    QtEventLoopDriver(const QtEventLoopDriver&) = delete;
    QtEventLoopDriver& operator=(const QtEventLoopDriver&) = delete;

    // The loop time this moment stands for.
    std::int64_t loopTimeNow() const;

    // Sets the loop's time of day from the system's local time.
    void syncTimeOfDay();

  private:
    void runDue();
    void aim();

    EventLoop& loop_;
    QElapsedTimer clock_;
    std::int64_t origin_;  // loop time when the clock started
    QTimer wake_;
    bool running_ = false;
};

// The system's local time in the loop's terms.
LocalTime systemLocalTime();

}  // namespace brevane
