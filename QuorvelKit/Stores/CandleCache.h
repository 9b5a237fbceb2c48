// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Date.h"
#include "QuorvelKit/MarketModel/Candle.h"
#include "QuorvelKit/MarketModel/ChartPeriod.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QObject>

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

namespace quorvel {

/// The last fetched candles of each pair and period, in memory only, so that what was fetched a
/// moment ago is not fetched again. Owned by the application model; main thread.
class CandleCache : public QObject {
    Q_OBJECT

public:
    /// How long a series stays fresh, whatever its period.
    static constexpr platform::TimeInterval freshness{300};

    struct Key {
        Symbol symbol;
        ChartPeriod period;

        friend bool operator==(const Key&, const Key&) = default;
    };

    struct KeyHash {
        std::size_t operator()(const Key& key) const noexcept;
    };

    struct Entry {
        std::vector<Candle> candles; ///< oldest first
        platform::Date storedAt;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    using Entries = std::unordered_map<Key, Entry, KeyHash>;

    /// Every series there is, fresh or not.
    const Entries& entries() const { return entries_; }

    /// The pair's series; null without one, and where it was stored more than `freshness` before
    /// `now`. One stored later than `now`, by a clock that has been set back since, is fresh. Valid
    /// until the next change.
    const std::vector<Candle>* candles(const Symbol& symbol, ChartPeriod period,
                                       platform::Date now) const;

    /// Sets the pair's series, even to an empty one. @param at when it was fetched
    void store(std::vector<Candle> candles, const Symbol& symbol, ChartPeriod period,
               platform::Date at);

    /// Forgets the pair's series of every period.
    void invalidate(const Symbol& symbol);

Q_SIGNALS:
    /// A series of the pair was stored, or those it had were forgotten.
    void entriesChanged(const quorvel::Symbol& symbol);

private:
    Entries entries_;
};

} // namespace quorvel
