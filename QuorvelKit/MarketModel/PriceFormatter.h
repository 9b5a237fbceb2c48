// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Decimal.h"

#include <QString>

namespace quorvel {

/// Turns prices and percentages into the short texts shown everywhere, the same in every language
/// and locale: "." in front of decimals, "," between groups.
struct PriceFormatter {
    /// A price by its magnitude: two decimals and groups of three from 1000 up, four decimals from
    /// 1 up, at most six significant digits below 1, and "0.00" for zero. Rounds half to even.
    static QString price(const Decimal& value);

    /// A change with its sign and two decimals, such as "+2.35%". Rounds halves away from zero;
    /// what rounds to zero has no sign.
    static QString changePercent(const Decimal& value);
};

} // namespace quorvel
