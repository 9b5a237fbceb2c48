// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/WatchlistItem.h"

#include <vector>

namespace quorvel {

/// Where a watchlist is kept between runs.
class WatchlistPersistence {
public:
    WatchlistPersistence() = default;
    WatchlistPersistence(const WatchlistPersistence&) = delete;
    WatchlistPersistence& operator=(const WatchlistPersistence&) = delete;
    virtual ~WatchlistPersistence() = default;

    /// The stored list. An implementation may throw where it cannot be had.
    virtual std::vector<WatchlistItem> load() = 0;

    /// Replaces the stored list. @throws std::exception where that fails
    virtual void save(const std::vector<WatchlistItem>& items) = 0;

    /// Whether the last `load` gave less than is stored, because part of it could not be read.
    virtual bool lostEntries() const { return false; }
};

} // namespace quorvel
