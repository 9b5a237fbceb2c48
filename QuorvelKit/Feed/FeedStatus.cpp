// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Feed/FeedStatus.h"

#include <utility>

namespace quorvel {

FeedStatus::Pair FeedStatus::of(const Symbol& symbol) const {
    if (!isListed(symbol) || refused_.contains(symbol))
        return Pair::untraded;
    if (outage_)
        return Pair::notLive;
    const auto arrival = pricedAt(symbol);
    return arrival && clock_.now() - *arrival > quietAfter ? Pair::quiet : Pair::live;
}

std::optional<platform::Date> FeedStatus::pricedAt(const Symbol& symbol) const {
    const auto found = pricedAt_.find(symbol);
    return found == pricedAt_.end() ? std::nullopt : std::optional(found->second);
}

void FeedStatus::notePrice(const Symbol& symbol) {
    pricedAt_[symbol] = clock_.now();
    if (refused_.erase(symbol) > 0)
        Q_EMIT tradedChanged();
}

void FeedStatus::setOutage(const std::optional<Outage>& outage) {
    if (std::exchange(outage_, outage) != outage)
        Q_EMIT outageChanged();
}

void FeedStatus::setListed(SymbolSet symbols) {
    if (listed_ == symbols)
        return;
    listed_ = std::move(symbols);
    Q_EMIT tradedChanged();
}

void FeedStatus::setRefused(const Symbol& symbol) {
    if (refused_.insert(symbol).second)
        Q_EMIT tradedChanged();
}

} // namespace quorvel
