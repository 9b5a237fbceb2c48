// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Foundation/SystemClock.h"

#include <QTimer>

#include <algorithm>
#include <ctime>
#include <limits>
#include <utility>

namespace platform {

namespace {

/// The longest wait that QTimer can count, about 24 days.
constexpr std::chrono::milliseconds longestDelay{std::numeric_limits<int>::max()};

class SystemTimer final : public ClockTimer {
public:
    SystemTimer(std::chrono::milliseconds delay, std::move_only_function<void()> expired)
        : expired_(std::move(expired)) {
        timer_.setSingleShot(true);
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            // Taken out first: the call may destroy this timer.
            auto call = std::exchange(expired_, nullptr);
            call();
        });
        timer_.start(std::clamp(delay, std::chrono::milliseconds::zero(), longestDelay));
    }

private:
    std::move_only_function<void()> expired_;
    QTimer timer_;
};

} // namespace

Date SystemClock::now() const {
    return dateSince1970(std::chrono::system_clock::now().time_since_epoch());
}

std::chrono::nanoseconds SystemClock::uptime() const {
    return std::chrono::steady_clock::now().time_since_epoch();
}

std::chrono::nanoseconds SystemClock::bootTime() const {
    timespec time{};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

std::unique_ptr<ClockTimer> SystemClock::startTimer(std::chrono::milliseconds delay,
                                                    std::move_only_function<void()> expired) {
    return std::make_unique<SystemTimer>(delay, std::move(expired));
}

} // namespace platform
