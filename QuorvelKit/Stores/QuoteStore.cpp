// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/QuoteStore.h"

namespace quorvel {

const Quote* QuoteStore::quote(const Symbol& symbol) const {
    const auto found = quotes_.find(symbol);
    return found == quotes_.end() ? nullptr : &found->second;
}

void QuoteStore::apply(const Quote& quote) {
    const auto [entry, isNew] = quotes_.try_emplace(quote.symbol, quote);
    if (!isNew) {
        if (entry->second.timestamp > quote.timestamp)
            return;
        entry->second = quote;
    }
    Q_EMIT quotesChanged(quote.symbol);
    lastUpdateAt_ = clock_.now();
    isStale_ = false;
}

std::optional<Quote> QuoteStore::applyReturningPrevious(const Quote& quote) {
    const Quote* const stored = this->quote(quote.symbol);
    std::optional<Quote> previous = stored ? std::optional(*stored) : std::nullopt;
    apply(quote);
    if (previous && *previous == *this->quote(quote.symbol))
        return std::nullopt;
    return previous;
}

void QuoteStore::applySnapshot(const std::vector<Quote>& quotes) {
    for (const Quote& quote : quotes)
        apply(quote);
}

void QuoteStore::remove(const Symbol& symbol) {
    // It may be the entry's own.
    const Symbol removed = symbol; // NOLINT(performance-unnecessary-copy-initialization)
    quotes_.erase(removed);
    Q_EMIT quotesChanged(removed);
}

} // namespace quorvel
