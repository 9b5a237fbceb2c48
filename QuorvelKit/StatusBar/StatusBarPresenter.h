// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "QuorvelKit/MarketModel/Decimal.h"
#include "QuorvelKit/MarketModel/PriceDirection.h"
#include "QuorvelKit/MarketModel/Quote.h"
#include "QuorvelKit/MarketModel/Symbol.h"
#include "QuorvelKit/StatusBar/StatusBarSegment.h"
#include "QuorvelKit/Stores/DisplaySettings.h"

#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvel {

/// Decides what the status bar says: which pairs, in what order, and the words for each. Pure
/// functions, for any thread.
///
/// The pairs shown are those of the watchlist that are pinned, or the whole watchlist when none of
/// them is, always in the watchlist's order. Of `pinned` only the membership matters. A pair has
/// the name that `displayName` gives it among the watchlist's, whether or not the others are shown.
struct StatusBarPresenter {
    using Quotes = std::unordered_map<Symbol, Quote>;

    /// What stands between segments where they are joined into one text.
    static constexpr QLatin1StringView sideBySideSeparator{"  "};

    /// The segments to show, in order; none for an empty watchlist.
    /// @param symbols the watchlist
    /// @param rotationIndex counts through the shown pairs, round and round, in both directions
    static std::vector<StatusBarSegment>
    segments(const std::vector<Symbol>& symbols, const std::vector<Symbol>& pinned,
             const Quotes& quotes, const DisplaySettings& settings, int rotationIndex);

    /// The segments' texts joined; absent when there are no segments.
    static std::optional<QString> text(const std::vector<Symbol>& symbols,
                                       const std::vector<Symbol>& pinned, const Quotes& quotes,
                                       const DisplaySettings& settings, int rotationIndex);

    /// How many pairs a rotation goes through.
    static int rotationItemCount(const std::vector<Symbol>& symbols,
                                 const std::vector<Symbol>& pinned);

    /// The sign of a change, without a dead band.
    static PriceDirection direction(const Decimal& change);
};

} // namespace quorvel
