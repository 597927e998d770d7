#include "base/event_loop.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace brevane {

Timer::Timer(EventLoop& loop, int intervalMs) : loop_(loop), order_(0), intervalMs_(intervalMs) {
    loop_.add(this);
}

Timer::~Timer() {
    loop_.remove(this);
}

void Timer::restart() {
    due_ = loop_.now() + intervalMs_;
    loop_.scheduleChanged();
}

void Timer::setInterval(int ms) {
    if (ms < 0) {
        ms = 0;
    }
    if (ms == intervalMs_) {
        return;
    }
    intervalMs_ = ms;
    if (enabled_) {
        restart();
    }
}

void Timer::setEnabled(bool enabled) {
    if (enabled == enabled_) {
        return;
    }
    enabled_ = enabled;
    if (enabled_) {
        restart();
    } else {
        loop_.scheduleChanged();
    }
}

std::optional<std::int64_t> Timer::deadline() const {
    if (!enabled_ || intervalMs_ <= 0) {
        return std::nullopt;
    }
    return due_;
}

EventLoop::EventLoop() = default;

EventLoop::~EventLoop() = default;

void EventLoop::add(Timer* timer) {
    timer->order_ = nextOrder_++;
    timers_.push_back(timer);
}

void EventLoop::remove(Timer* timer) {
    std::erase(timers_, timer);
}

void EventLoop::scheduleChanged() {
    if (onScheduleChanged) {
        onScheduleChanged();
    }
}

Timer* EventLoop::nextDue(std::int64_t limit) const {
    Timer* best = nullptr;
    for (Timer* t : timers_) {
        const auto d = t->deadline();
        if (!d || *d > limit) {
            continue;
        }
        if (best == nullptr || *d < best->due_ || (*d == best->due_ && t->order_ < best->order_)) {
            best = t;
        }
    }
    return best;
}

std::optional<std::int64_t> EventLoop::nextDeadline() const {
    std::optional<std::int64_t> best;
    for (const Timer* t : timers_) {
        const auto d = t->deadline();
        if (d && (!best || *d < *best)) {
            best = d;
        }
    }
    if (!posted_.empty()) {
        best = best ? std::min(*best, now_) : now_;
    }
    return best;
}

void EventLoop::post(std::function<void()> task) {
    posted_.push_back(std::move(task));
    scheduleChanged();
}

void EventLoop::runPosted() {
    while (!posted_.empty()) {
        auto tasks = std::exchange(posted_, {});
        for (auto& task : tasks) {
            task();
        }
    }
}

void EventLoop::advance(std::int64_t ms) {
    advanceTo(now_ + std::max<std::int64_t>(ms, 0));
}

void EventLoop::advanceTo(std::int64_t time) {
    runPosted();
    while (Timer* t = nextDue(time)) {
        now_ = std::max(now_, t->due_);
        t->due_ += t->intervalMs_;
        if (t->onTick) {
            t->onTick();
        }
        runPosted();
    }
    now_ = std::max(now_, time);
}

void EventLoop::catchUpTo(std::int64_t time) {
    now_ = std::max(now_, time);
    runPosted();
    // Each timer fires at most once per call: collect what is due first.
    std::vector<Timer*> due;
    for (Timer* t : timers_) {
        const auto d = t->deadline();
        if (d && *d <= now_) {
            due.push_back(t);
        }
    }
    std::sort(due.begin(), due.end(), [](const Timer* a, const Timer* b) {
        return a->due_ != b->due_ ? a->due_ < b->due_ : a->order_ < b->order_;
    });
    for (Timer* t : due) {
        // An earlier handler may have stopped, re-timed or destroyed this one.
        if (std::find(timers_.begin(), timers_.end(), t) == timers_.end()) {
            continue;
        }
        const auto d = t->deadline();
        if (!d || *d > now_) {
            continue;
        }
        t->due_ += t->intervalMs_;
        if (t->due_ <= now_) {
            t->due_ = now_ + t->intervalMs_;
        }
        if (t->onTick) {
            t->onTick();
        }
        runPosted();
    }
}

namespace {

// Days from 2000-01-01 to the given civil date (proleptic Gregorian).
std::int64_t daysFromCivil(int y, int m, int d) {
    y -= m <= 2 ? 1 : 0;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int yoe = static_cast<int>(y - era * 400);
    const int doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468 - 10957;
}

void civilFromDays(std::int64_t z, int& y, int& m, int& d) {
    z += 719468 + 10957;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int doe = static_cast<int>(z - era * 146097);
    const int yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int mp = (5 * doy + 2) / 153;
    d = doy - (153 * mp + 2) / 5 + 1;
    m = mp + (mp < 10 ? 3 : -9);
    y = static_cast<int>(yoe + era * 400) + (m <= 2 ? 1 : 0);
}

}  // namespace

void EventLoop::setWallClockStart(const LocalTime& at) {
    const std::int64_t days = daysFromCivil(at.year, at.month, at.day);
    const std::int64_t start = days * 86400 + at.hour * 3600 + at.minute * 60 + at.second;
    // Loop time already passed counts from this moment on.
    wallStartSeconds_ = start - now_ / 1000;
}

LocalTime EventLoop::localTime() const {
    const std::int64_t s = wallStartSeconds_ + now_ / 1000;
    std::int64_t days = s / 86400;
    std::int64_t rest = s % 86400;
    if (rest < 0) {
        rest += 86400;
        --days;
    }
    LocalTime t;
    civilFromDays(days, t.year, t.month, t.day);
    // 2000-01-01 was a Saturday.
    t.weekday = static_cast<int>(((days % 7) + 7 + 6) % 7);
    t.hour = static_cast<int>(rest / 3600);
    t.minute = static_cast<int>(rest / 60 % 60);
    t.second = static_cast<int>(rest % 60);
    return t;
}

std::string EventLoop::timeOfDay() const {
    const LocalTime t = localTime();
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", t.hour, t.minute, t.second);
    return text;
}

}  // namespace brevane
