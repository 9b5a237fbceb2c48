// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Model/CandleLoader.h"

#include "Platform/Async/FutureAwaiter.h"

#include <utility>

namespace quorvel {

using platform::Task;

Task<> CandleLoader::load(Symbol symbol, ChartPeriod period) {
    const CandleCache::Key key{std::move(symbol), period};
    if (isFresh(key))
        co_return;
    begin(key);
    co_await loads_[key].finished();
}

Task<> CandleLoader::loadAll(std::vector<Symbol> symbols, ChartPeriod period) {
    for (const Symbol& symbol : symbols) {
        if (!isFresh({symbol, period}))
            begin({symbol, period});
    }
    for (const Symbol& symbol : symbols) {
        const auto load = loads_.find({symbol, period});
        if (load != loads_.end())
            co_await load->second.finished();
    }
}

void CandleLoader::cancel(const Symbol& symbol) {
    std::erase_if(loads_, [&](const auto& load) { return load.first.symbol == symbol; });
}

void CandleLoader::cancelAll() {
    // Moved out first: a load that ends gives its place to the next.
    const auto cancelled = std::exchange(loads_, {});
}

bool CandleLoader::isFresh(const CandleCache::Key& key) const {
    return cache_.candles(key.symbol, key.period, clock_.now()) != nullptr;
}

void CandleLoader::begin(const CandleCache::Key& key) {
    auto& load = loads_[key];
    if (!load)
        load = platform::startTask(fetch(key));
}

Task<> CandleLoader::fetch(CandleCache::Key key) {
    {
        const auto slot = co_await slots_.acquire();
        try {
            auto candles = co_await provider_.candles(key.symbol, key.period);
            cache_.store(std::move(candles), key.symbol, key.period, clock_.now());
        } catch (const std::exception&) {
            // The chart shows what it has; the panel asks again when it opens next.
        }
    }
    loads_.erase(key);
}

} // namespace quorvel
