// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

namespace quorvel {

/// How long to wait before connecting again.
struct BackoffPolicy {
    double baseDelay;      ///< before the first attempt, without jitter, in seconds
    double maxDelay;       ///< above every delay, jitter included, in seconds
    double jitterFraction; ///< largest share of a delay that is added at random

    /// Seconds before the given attempt, the first being 1: doubled from attempt to attempt.
    /// @param jitter from 0 to 1
    double delay(int attempt, double jitter) const;
};

} // namespace quorvel
