// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"
#include "QuorvelKit/MarketModel/Symbol.h"

#include <QObject>
#include <QString>

#include <optional>
#include <unordered_map>

namespace quorvel {

/// What is known of the prices' way from the exchange to here, as a whole and of each pair. Written
/// by the provider and the model, read by what shows prices. Main thread.
class FeedStatus : public QObject {
    Q_OBJECT

public:
    /// A pair without a trade for so long is quiet.
    static constexpr platform::TimeInterval quietAfter{15};

    enum class Pair {
        live,     ///< its price is the exchange's
        quiet,    ///< so it is, but nobody has traded for a while
        notLive,  ///< its price may have changed unseen: see `outage`
        untraded, ///< the exchange has no price of it, or trades it no more
    };

    /// A time without live prices.
    struct Outage {
        platform::Date since; ///< by this machine's clock
        QString reason = {};  ///< for people; empty where none is known
        int status = 0;       ///< the HTTP status of a refusal; 0 without one
        /// When the exchange may be asked again; absent where nobody has said.
        std::optional<platform::Date> until = {};

        friend bool operator==(const Outage&, const Outage&) = default;
    };

    /// @param clock must outlive the status
    explicit FeedStatus(const platform::Clock& clock) : clock_(clock) {}

    /// Absent while prices are live, and before anything is known.
    const std::optional<Outage>& outage() const { return outage_; }

    Pair of(const Symbol& symbol) const;

    /// When a price of the pair last arrived; absent before the first.
    std::optional<platform::Date> pricedAt(const Symbol& symbol) const;

    /// Whether the list of pairs has come.
    bool hasList() const { return listed_.has_value(); }
    bool isListed(const Symbol& symbol) const { return !listed_ || listed_->contains(symbol); }

    void notePrice(const Symbol& symbol);
    void setOutage(const std::optional<Outage>& outage);
    void setListed(SymbolSet symbols);
    void setRefused(const Symbol& symbol);

Q_SIGNALS:
    void outageChanged();
    /// Which pairs are traded.
    void tradedChanged();
    /// What failed or was missed may come now.
    void recovered();

private:
    const platform::Clock& clock_;
    std::optional<Outage> outage_;
    std::unordered_map<Symbol, platform::Date> pricedAt_;
    std::optional<SymbolSet> listed_; ///< the pairs that are traded
    SymbolSet refused_;               ///< since their last price
};

} // namespace quorvel
