// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "QuorvelKit/MarketModel/Decimal.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <string>

namespace quorvel {

/// The latest price of a pair.
struct Quote {
    Symbol symbol;
    Decimal lastPrice;        ///< in units of the symbol's quote asset
    Decimal changePercent24h; ///< over the last 24 hours, in percent: 1.5 is +1.5 %
    platform::Date timestamp; ///< when the value was produced

    std::string id() const { return symbol.id(); }

    friend bool operator==(const Quote&, const Quote&) = default;
};

} // namespace quorvel
