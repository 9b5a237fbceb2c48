// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Symbol.h"

#include <cstddef>
#include <functional>
#include <string>

namespace quorvel {

/// One entry of the watchlist.
struct WatchlistItem {
    Symbol symbol;
    bool isPinnedToStatusBar = false;

    std::string id() const { return symbol.id(); }

    /// Reads `{"symbol":{...},"isPinnedToStatusBar":true}`; both keys are required.
    /// @throws platform::DecodingError
    static WatchlistItem decode(platform::JSONValue value);

    /// Writes what `decode` reads.
    void encode(platform::JSONWriter& writer) const;

    friend bool operator==(const WatchlistItem&, const WatchlistItem&) = default;
};

} // namespace quorvel

template <>
struct std::hash<quorvel::WatchlistItem> {
    std::size_t operator()(const quorvel::WatchlistItem& item) const noexcept {
        return std::hash<quorvel::Symbol>()(item.symbol) * 2 + (item.isPinnedToStatusBar ? 1 : 0);
    }
};
