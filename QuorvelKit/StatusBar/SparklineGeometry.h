// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Decimal.h"
#include "QuorvelKit/MarketModel/PriceDirection.h"

#include <span>
#include <vector>

namespace quorvel {

/// The numbers that a sparkline is drawn from, made of its closing prices, oldest first. Pure; for
/// any thread.
struct SparklineGeometry {
    /// One height for each value in order: 0 for the lowest, 1 for the highest, in proportion
    /// between. Where all are equal, each is 0.5: a line through the middle.
    static std::vector<double> normalizedHeights(std::span<const Decimal> values);

    /// Where the last value lies against the first, whatever lies between; `flat` for fewer than
    /// two.
    static PriceDirection trend(std::span<const Decimal> values);
};

} // namespace quorvel
