#pragma once
// The one event thread's clock and timers.
//
// Every periodic behaviour of the program is a Timer: an interval in ms and an
// enabled flag. An interval of 0 means no ticks even while enabled; enabling, or
// changing the interval of an enabled timer, restarts its period. Ticks never
// overlap: a handler runs to its end, and may enable, disable or re-time any timer,
// itself included.
//
// Tests drive the loop on virtual time with advance(): due ticks run in time order,
// simultaneous ones in the order the timers were created, so an hour of weather
// runs in milliseconds. The program drives the same loop from the interface
// toolkit with catchUpTo(), aimed at nextDeadline().
//
// Not thread-safe: the loop and its timers belong to the event thread.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brevane {

class EventLoop;

class Timer {
  public:
    // The timer starts disabled. It registers with the loop, which must outlive it.
    Timer(EventLoop& loop, int intervalMs = 0);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    int interval() const { return intervalMs_; }
    void setInterval(int ms);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    std::function<void()> onTick;

    // Loop time of the next tick, when one is due at all.
    std::optional<std::int64_t> deadline() const;

  private:
    friend class EventLoop;
    void restart();

    EventLoop& loop_;
    std::uint64_t order_;
    int intervalMs_;
    bool enabled_ = false;
    std::int64_t due_ = 0;
};

// The wall-clock time of day, as the alarm and the scheduler compare it.
struct LocalTime {
    int year = 2000;
    int month = 1;    // 1..12
    int day = 1;      // 1..31
    int weekday = 6;  // 0 Sunday .. 6 Saturday
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class EventLoop {
  public:
    EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;
    ~EventLoop();

    // Loop time in ms since the loop was made.
    std::int64_t now() const { return now_; }

    // Virtual time: runs every tick due up to now() + ms, each at its own time,
    // then stands at now() + ms.
    void advance(std::int64_t ms);
    void advanceTo(std::int64_t time);

    // Real time: runs what is due by `time`, each timer at most once however late
    // it is (a late tick is not repeated, as a busy desktop would not either),
    // then stands at `time`.
    void catchUpTo(std::int64_t time);

    // The earliest tick due, if any timer is running.
    std::optional<std::int64_t> nextDeadline() const;

    // Runs `task` at the next advance, before any timer; tasks posted by a task run
    // in the same pass.
    void post(std::function<void()> task);
    bool hasPostedTasks() const { return !posted_.empty(); }
    void runPosted();

    // Time of day. The loop's clock starts at the given wall-clock moment, which a
    // test fixes and the program takes from the system.
    void setWallClockStart(const LocalTime& at);
    LocalTime localTime() const;
    // "HH:MM:SS"
    std::string timeOfDay() const;

    // Called when a timer's schedule changes, so a real-time driver can re-aim.
    std::function<void()> onScheduleChanged;

  private:
    friend class Timer;
    void add(Timer* timer);
    void remove(Timer* timer);
    void scheduleChanged();
    Timer* nextDue(std::int64_t limit) const;

    std::vector<Timer*> timers_;
    std::vector<std::function<void()>> posted_;
    std::uint64_t nextOrder_ = 0;
    std::int64_t now_ = 0;
    std::int64_t wallStartSeconds_ = 0;  // seconds since 2000-01-01 00:00 local time
};

}  // namespace brevane
