// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/AsyncSemaphore.h"
#include "Platform/Async/TaskHandle.h"
#include "Platform/Foundation/Clock.h"
#include "QuorvelKit/MarketData/MarketDataProvider.h"
#include "QuorvelKit/Stores/CandleCache.h"

#include <unordered_map>
#include <vector>

namespace quorvel {

/// Fills the cache of candles from the exchange: never a series that is fresh or already on its
/// way, and only a few at a time, whoever asks. Owned by the application model; main thread.
class CandleLoader {
public:
    /// How many requests are under way at most.
    static constexpr std::size_t concurrentLoads = 4;

    /// All of these outlive the loader.
    CandleLoader(CandleCache& cache, MarketDataProvider& provider, const platform::Clock& clock)
        : cache_(cache), provider_(provider), clock_(clock) {}

    /// Returns once the cache has a fresh series of the pair, or could not be given one.
    platform::Task<> load(Symbol symbol, ChartPeriod period);

    /// Loads the series of all these pairs, begun in their order, and returns once each of them has
    /// ended, well or not.
    platform::Task<> loadAll(std::vector<Symbol> symbols, ChartPeriod period);

    /// Ends every load of the pair's series.
    void cancel(const Symbol& symbol);

    /// Ends every load.
    void cancelAll();

private:
    bool isFresh(const CandleCache::Key& key) const;
    /// Begins a load unless it is under way already.
    void begin(const CandleCache::Key& key);
    platform::Task<> fetch(CandleCache::Key key);

    CandleCache& cache_;
    MarketDataProvider& provider_;
    const platform::Clock& clock_;
    platform::AsyncSemaphore slots_{concurrentLoads};
    // Last, so that they end first.
    std::unordered_map<CandleCache::Key, platform::TaskHandle, CandleCache::KeyHash> loads_;
};

} // namespace quorvel
