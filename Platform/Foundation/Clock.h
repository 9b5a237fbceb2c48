// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

/// A running timer. Destroying it stops it; what it was to call is then never called.
class ClockTimer {
public:
    ClockTimer() = default;
    ClockTimer(const ClockTimer&) = delete;
    ClockTimer& operator=(const ClockTimer&) = delete;
    virtual ~ClockTimer() = default;
};

/// Where time is read and waited for. Handed in wherever either happens, so that a test can turn
/// it.
///
/// A clock may be shared between threads; a timer belongs to the thread that started it.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// The wall-clock instant. It jumps when the user or the network sets the clock.
    virtual Date now() const = 0;

    /// Time since an arbitrary start. Never goes back; stands still while the machine sleeps.
    virtual std::chrono::nanoseconds uptime() const = 0;

    /// Time since an arbitrary start. Never goes back; goes on while the machine sleeps.
    virtual std::chrono::nanoseconds bootTime() const = 0;

    /// Calls `expired` once from the event loop of the calling thread, when `delay` has passed.
    /// A delay of zero or less is one turn of the event loop. The timer may be destroyed from
    /// inside `expired`.
    [[nodiscard]] virtual std::unique_ptr<ClockTimer>
    startTimer(std::chrono::milliseconds delay, std::move_only_function<void()> expired) = 0;
};

} // namespace platform
