// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Awaiter.h"

#include <QObject>

#include <chrono>

namespace platform {

/// Wakes the consumer of an `AsyncStream` on its own thread and measures how long the consumer has
/// been at work since, so that a flood of items cannot keep the event loop from its other work.
class StreamBell final : public QObject {
public:
    /// How long a consumer may go on without a turn of the event loop.
    static constexpr std::chrono::milliseconds longestTurn{4};

    /// Posts a wake-up. From any thread, as long as the bell exists.
    void ring();

    void wait(Suspension consumer);
    void stopWaiting() { consumer_ = {}; }
    bool isAwaited() const { return static_cast<bool>(consumer_); }

    /// Called once an item. The clock is read at every 32nd only: reading costs as much as an item.
    bool isTurnOver();

protected:
    bool event(QEvent* event) override;

private:
    Suspension consumer_;
    std::chrono::steady_clock::time_point turnBegan_ = std::chrono::steady_clock::now();
    unsigned itemsInTurn_ = 0;
};

} // namespace platform
