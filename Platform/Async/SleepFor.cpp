// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/SleepFor.h"

#include <cmath>

namespace platform {

namespace {

std::chrono::milliseconds roundedUp(TimeInterval duration) {
    constexpr double longest = 9e15; // well inside 64 bits, 285,000 years
    const double milliseconds = std::ceil(duration.count() * 1000);
    if (!(milliseconds > 0))
        return std::chrono::milliseconds::zero();
    return std::chrono::milliseconds(static_cast<std::int64_t>(std::min(milliseconds, longest)));
}

} // namespace

bool Sleep::suspend(Suspension waiter) {
    timer_ = clock_.startTimer(roundedUp(duration_), [waiter] { waiter.resume(); });
    return true;
}

} // namespace platform
