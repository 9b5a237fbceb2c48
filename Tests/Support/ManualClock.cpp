// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/ManualClock.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

namespace test {

using namespace std::chrono_literals;

class ManualClock::Timer final : public platform::ClockTimer {
public:
    Timer(ManualClock& clock, Key key, std::move_only_function<void()> expired)
        : clock_(clock), key_(key), expired_(std::move(expired)) {
        clock_.timers_.emplace(key_, this);
    }
    ~Timer() override { clock_.timers_.erase(key_); }

    void expire() {
        clock_.timers_.erase(key_);
        auto call = std::exchange(expired_, nullptr);
        call();
    }

private:
    ManualClock& clock_;
    Key key_;
    std::move_only_function<void()> expired_;
};

std::unique_ptr<platform::ClockTimer>
ManualClock::startTimer(std::chrono::milliseconds delay, std::move_only_function<void()> expired) {
    const auto due = uptime_ + std::max<std::chrono::nanoseconds>(delay, 0ns);
    return std::make_unique<Timer>(*this, Key(due, ++startedTimers_), std::move(expired));
}

void ManualClock::advance(std::chrono::nanoseconds span) {
    drainEvents();
    const auto end = uptime_ + span;
    const auto moveTo = [this](std::chrono::nanoseconds uptime) {
        now_ += uptime - uptime_;
        uptime_ = uptime;
    };
    while (!timers_.empty() && timers_.begin()->first.first <= end) {
        moveTo(std::max(uptime_, timers_.begin()->first.first));
        timers_.begin()->second->expire();
        drainEvents();
    }
    moveTo(end);
}

std::optional<std::chrono::nanoseconds> ManualClock::untilNextTimer() const {
    if (timers_.empty())
        return std::nullopt;
    return timers_.begin()->first.first - uptime_;
}

void drainEvents() {
    for (int round = 0; round < 50; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

} // namespace test
