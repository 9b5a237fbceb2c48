// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Decimal.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <string_view>

namespace test {

inline const quorvel::Symbol ada{"ADA", "USDT"};
inline const quorvel::Symbol btc{"BTC", "USDT"};
inline const quorvel::Symbol eth{"ETH", "USDT"};
inline const quorvel::Symbol sol{"SOL", "USDT"};

/// The value of a text that is a number. Throws where it is none.
inline quorvel::Decimal decimal(std::string_view text) {
    return quorvel::Decimal::fromAPIString(text).value();
}

} // namespace test
