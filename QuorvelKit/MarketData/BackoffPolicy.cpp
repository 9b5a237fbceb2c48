// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/BackoffPolicy.h"

#include <algorithm>
#include <cmath>

namespace quorvel {

double BackoffPolicy::delay(int attempt, double jitter) const {
    const double doubled = baseDelay * std::exp2(std::max(attempt - 1, 0));
    const double limited = std::min(maxDelay, doubled);
    return std::min(maxDelay, limited + jitter * (jitterFraction * limited));
}

} // namespace quorvel
