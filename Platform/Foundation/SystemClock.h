// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"

namespace platform {

/// The machine's own clock. Has no state, so one may serve every thread.
class SystemClock final : public Clock {
public:
    Date now() const override;
    std::chrono::nanoseconds uptime() const override;
    std::chrono::nanoseconds bootTime() const override;
    std::unique_ptr<ClockTimer> startTimer(std::chrono::milliseconds delay,
                                           std::move_only_function<void()> expired) override;
};

} // namespace platform
