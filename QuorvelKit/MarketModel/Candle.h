// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "QuorvelKit/MarketModel/Decimal.h"

namespace quorvel {

/// One point of a chart.
struct Candle {
    platform::Date openTime; ///< when the candle's interval began
    Decimal close;           ///< price at the interval's end

    friend bool operator==(const Candle&, const Candle&) = default;
};

} // namespace quorvel
