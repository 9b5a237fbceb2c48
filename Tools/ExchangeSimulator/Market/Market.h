// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tools/ExchangeSimulator/Market/Pair.h"

#include <QStringList>

#include <optional>
#include <random>
#include <vector>

namespace simulator {

/// All pairs and their prices. The same seed gives the same walk.
class Market {
public:
    explicit Market(quint64 seed) : random_(seed) {}

    /// Adds the built-in pairs: well-known ones in realistic magnitudes, some that do not trade,
    /// some not quoted in USDT, and one with full-width digits.
    void addDefaults();

    /// Adds a pair, or sets the one of that symbol. A price that is not a number counts as 1, a
    /// missing change as 0.
    void add(const QString& symbol, const QByteArray& price, const QByteArray& change,
             const QString& status = QStringLiteral("TRADING"));

    /// Keeps the named pairs only, in that order, and adds those that are missing at a price of 1.
    void restrictTo(const QStringList& symbols);

    /// Sets price, change in percent, or both. What is absent follows: an absent change comes from
    /// the opening price, and with an absent price it is the opening price that moves. An unknown
    /// symbol is added.
    const Pair& push(const QString& symbol, const std::optional<QByteArray>& price,
                     const std::optional<QByteArray>& change);

    /// Lets a second pass: most trading pairs move a little.
    void step();

    /// Null for an unknown symbol. Valid until a pair is added.
    const Pair* find(const QString& symbol) const;

    const std::vector<Pair>& pairs() const { return pairs_; }

    /// Forgets that the pair has news that was not sent.
    void markSent(const Pair& pair);

private:
    Pair& at(const QString& symbol);
    void move(Pair& pair);

    std::vector<Pair> pairs_;
    std::mt19937_64 random_;
};

} // namespace simulator
