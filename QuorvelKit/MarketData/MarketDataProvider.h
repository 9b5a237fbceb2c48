// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/AsyncStream.h"
#include "Platform/Async/Task.h"
#include "QuorvelKit/MarketModel/Candle.h"
#include "QuorvelKit/MarketModel/ChartPeriod.h"
#include "QuorvelKit/MarketModel/Quote.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <vector>

namespace quorvel {

/// Where prices come from. The application holds one for its whole run and uses it on the main
/// thread.
///
/// Take the stream before naming the first pairs. Name the whole set of pairs whenever it changes;
/// an empty set drops the connection and keeps the stream. Reconnecting is the provider's own
/// business.
class MarketDataProvider {
public:
    MarketDataProvider() = default;
    MarketDataProvider(const MarketDataProvider&) = delete;
    MarketDataProvider& operator=(const MarketDataProvider&) = delete;
    virtual ~MarketDataProvider() = default;

    /// The latest quotes of the pairs, as far as the exchange has them. May fail.
    virtual platform::Task<std::vector<Quote>> snapshot(std::vector<Symbol> symbols) = 0;

    /// Every pair that can be watched. May fail.
    virtual platform::Task<std::vector<Symbol>> availableSymbols() = 0;

    /// The candles that cover the period, oldest first. May fail.
    virtual platform::Task<std::vector<Candle>> candles(Symbol symbol, ChartPeriod period) = 0;

    /// A new stream of live quotes; the one before ends.
    virtual platform::Task<platform::AsyncStream<Quote>> quotes() = 0;

    /// Makes `symbols` the set of pairs that the stream carries.
    virtual platform::Task<> updateSubscriptions(SymbolSet symbols) = 0;

    /// Forgets the pairs, closes the connection in order and ends the stream.
    virtual platform::Task<> stop() = 0;
};

} // namespace quorvel
