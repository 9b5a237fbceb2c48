// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"

#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace test {

/// A clock that moves only when told to. For one thread; must outlive its timers.
class ManualClock final : public platform::Clock {
public:
    platform::Date now() const override { return now_; }
    std::chrono::nanoseconds uptime() const override { return uptime_; }
    std::chrono::nanoseconds bootTime() const override { return uptime_ + suspended_; }
    std::unique_ptr<platform::ClockTimer>
    startTimer(std::chrono::milliseconds delay, std::move_only_function<void()> expired) override;

    /// Lets pending events run, then moves both readings by `span`, stopping at each timer that
    /// falls due on the way, oldest first, and letting the events that it causes run.
    void advance(std::chrono::nanoseconds span);

    /// Sets the wall clock alone, as a user does.
    void setNow(platform::Date now) { now_ = now; }

    /// Lets `span` pass as while the machine sleeps: no timer falls due, and uptime stands still.
    void suspend(std::chrono::nanoseconds span) {
        now_ += span;
        suspended_ += span;
    }

    /// How many timers are running.
    std::size_t timerCount() const { return timers_.size(); }

    /// How long until the next timer falls due; absent when none runs.
    std::optional<std::chrono::nanoseconds> untilNextTimer() const;

private:
    class Timer;
    using Key = std::pair<std::chrono::nanoseconds, std::uint64_t>;

    std::map<Key, Timer*> timers_;
    std::uint64_t startedTimers_ = 0;
    platform::Date now_{platform::TimeInterval(700'000'000.0)};
    std::chrono::nanoseconds uptime_{std::chrono::hours(1)};
    std::chrono::nanoseconds suspended_{0};
};

/// Runs the event loop of this thread until nothing is left to do in it.
void drainEvents();

} // namespace test
