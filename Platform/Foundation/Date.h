// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>

namespace platform {

/// The clock that dates count on: seconds since 2001-01-01 00:00:00 UTC, leap seconds not counted.
///
/// Only an epoch; the current time comes from a `Clock`.
struct ReferenceDateClock {
    using rep = double;
    using period = std::ratio<1>;
    using duration = std::chrono::duration<double>;
    using time_point = std::chrono::time_point<ReferenceDateClock>;
    static constexpr bool is_steady = false;
};

/// A wall-clock instant. The count is the one that files store, so an instant survives a round trip
/// through a file bit for bit.
using Date = ReferenceDateClock::time_point;

/// A span of time in seconds.
using TimeInterval = std::chrono::duration<double>;

/// From 1970-01-01 to 2001-01-01, both 00:00:00 UTC: 31 years of which 8 are leap years.
inline constexpr TimeInterval referenceDateSince1970{978307200.0};

/// The instant that lies `interval` after 1970-01-01 00:00:00 UTC.
constexpr Date dateSince1970(TimeInterval interval) {
    return Date(interval - referenceDateSince1970);
}

/// The inverse of `dateSince1970`.
constexpr TimeInterval timeIntervalSince1970(Date date) {
    return date.time_since_epoch() + referenceDateSince1970;
}

} // namespace platform
