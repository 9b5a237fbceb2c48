// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Awaiter.h"
#include "Platform/Foundation/Clock.h"

#include <memory>

namespace platform {

/// Waits on a clock. Made by `sleepFor`.
class [[nodiscard]] Sleep : public Awaiter {
public:
    Sleep(Clock& clock, TimeInterval duration) : clock_(clock), duration_(duration) {}

    bool isReady() const { return false; }
    bool suspend(Suspension waiter);
    void take() const {}

private:
    Clock& clock_;
    TimeInterval duration_;
    std::unique_ptr<ClockTimer> timer_;
};

/// Waits until `duration` has passed on the clock, rounded up to milliseconds. Zero or less (or not
/// a number) is one turn of the event loop.
inline Sleep sleepFor(Clock& clock, TimeInterval duration) {
    return {clock, duration};
}

} // namespace platform
