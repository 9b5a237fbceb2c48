// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"
#include "QuorvelKit/MarketModel/Quote.h"

#include <QObject>
#include <QProperty>

#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvel {

/// The latest quote of each pair, in memory only. Owned by the application model; main thread.
class QuoteStore : public QObject {
    Q_OBJECT

public:
    using Quotes = std::unordered_map<Symbol, Quote>;

    /// @param clock tells when a quote was accepted; must outlive the store
    explicit QuoteStore(const platform::Clock& clock) : clock_(clock) {}

    const Quotes& quotes() const { return quotes_; }

    /// True while the data is considered out of date. Any accepted quote clears it.
    bool isStale() const { return isStale_; }

    /// When the last quote was accepted, by this machine's clock; absent before the first.
    std::optional<platform::Date> lastUpdateAt() const { return lastUpdateAt_; }

    /// The pair's quote; null without one. Valid until the next change.
    const Quote* quote(const Symbol& symbol) const;

    /// Accepts a quote unless a later one of its pair is stored; one of the same instant replaces.
    void apply(const Quote& quote);

    /// As `apply`, and gives the quote that was replaced; absent for the first quote of a pair, and
    /// where the stored value is the same as before.
    std::optional<Quote> applyReturningPrevious(const Quote& quote);

    /// Applies each in order.
    void applySnapshot(const std::vector<Quote>& quotes);

    /// Forgets the pair's quote.
    void remove(const Symbol& symbol);

    void markStale(bool stale) { isStale_ = stale; }

Q_SIGNALS:
    /// The pair's quote was accepted or removed.
    void quotesChanged(const quorvel::Symbol& symbol);
    void isStaleChanged();
    void lastUpdateAtChanged();

private:
    const platform::Clock& clock_;
    Quotes quotes_;
    Q_OBJECT_BINDABLE_PROPERTY(QuoteStore, bool, isStale_, &QuoteStore::isStaleChanged)
    Q_OBJECT_BINDABLE_PROPERTY(QuoteStore, std::optional<platform::Date>, lastUpdateAt_,
                               &QuoteStore::lastUpdateAtChanged)
};

} // namespace quorvel
