// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>

#include <chrono>

namespace simulator {

/// What the exchange allows a client and how it times its own part. The defaults are the exchange's
/// published figures; tests shorten them.
struct Limits {
    /// How often a connection is pinged.
    std::chrono::milliseconds pingInterval = std::chrono::seconds(20);
    /// How long after a ping its pong is waited for.
    std::chrono::milliseconds pongDeadline = std::chrono::minutes(1);
    /// How long a stream connection lives at most.
    std::chrono::milliseconds lifetime = std::chrono::hours(24);
    /// The span in which connection attempts are counted.
    std::chrono::milliseconds attemptWindow = std::chrono::minutes(5);
    /// How often what changed is sent.
    std::chrono::milliseconds tickerInterval = std::chrono::seconds(1);
    /// Stream handshakes taken within `attemptWindow`.
    int connectionAttempts = 300;
    /// Pings, pongs and commands taken from one connection within a second.
    int messagesPerSecond = 5;
    int streamsPerConnection = 1024;
    /// What REST requests may weigh within a minute.
    int weightPerMinute = 6000;

    /// One key for each figure, named for it; times are in milliseconds and end in "Ms".
    QJsonObject toJSON() const;

    /// Sets the figures that `values` names. Throws std::invalid_argument for an unknown key or
    /// anything but a whole number above 0.
    void set(const QJsonObject& values);
};

} // namespace simulator
