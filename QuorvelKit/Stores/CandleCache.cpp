// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/CandleCache.h"

#include <utility>

namespace quorvel {

std::size_t CandleCache::KeyHash::operator()(const Key& key) const noexcept {
    return std::hash<Symbol>()(key.symbol) + static_cast<std::size_t>(key.period);
}

const std::vector<Candle>* CandleCache::candles(const Symbol& symbol, ChartPeriod period,
                                                platform::Date now) const {
    const auto found = entries_.find({symbol, period});
    if (found == entries_.end() || now - found->second.storedAt > freshness)
        return nullptr;
    return &found->second.candles;
}

void CandleCache::store(std::vector<Candle> candles, const Symbol& symbol, ChartPeriod period,
                        platform::Date at) {
    const Key key{symbol, period};
    entries_[key] = {std::move(candles), at};
    Q_EMIT entriesChanged(key.symbol);
}

void CandleCache::invalidate(const Symbol& symbol) {
    Key key{symbol, {}}; // a copy: the symbol may be an entry's own
    for (const ChartPeriod period : allCases<ChartPeriod>()) {
        key.period = period;
        entries_.erase(key);
    }
    Q_EMIT entriesChanged(key.symbol);
}

} // namespace quorvel
