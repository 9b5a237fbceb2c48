// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/StatusBar/StatusBarPresenter.h"

#include "QuorvelKit/MarketModel/DisplayName.h"
#include "QuorvelKit/MarketModel/PriceFormatter.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace quorvel {

namespace {

std::vector<Symbol> shownSymbols(const std::vector<Symbol>& symbols,
                                 const std::vector<Symbol>& pinned) {
    const SymbolSet pinnedSet(pinned.begin(), pinned.end());
    std::vector<Symbol> shown;
    std::ranges::copy_if(symbols, std::back_inserter(shown),
                         [&](const Symbol& symbol) { return pinnedSet.contains(symbol); });
    return shown.empty() ? symbols : shown;
}

/// The part of the shown pairs that the mode lets through. `shown` is not empty.
std::span<const Symbol> selection(std::span<const Symbol> shown, const DisplaySettings& settings,
                                  int rotationIndex) {
    const auto count = std::ssize(shown);
    switch (settings.mode) {
    case StatusBarDisplayMode::rotating: {
        const auto remainder = rotationIndex % count;
        return shown.subspan(static_cast<std::size_t>((remainder + count) % count), 1);
    }
    case StatusBarDisplayMode::sideBySide:
        return shown.first(
            static_cast<std::size_t>(std::min<std::int64_t>(settings.sideBySideLimit(), count)));
    case StatusBarDisplayMode::fixed:
        break;
    }
    return shown.first(1);
}

QString textOf(const Quote& quote, StatusBarContent content) {
    switch (content) {
    case StatusBarContent::priceOnly:
        return PriceFormatter::price(quote.lastPrice);
    case StatusBarContent::changeOnly:
        return PriceFormatter::changePercent(quote.changePercent24h);
    case StatusBarContent::both:
        break;
    }
    return PriceFormatter::price(quote.lastPrice) + QLatin1Char(' ') +
           PriceFormatter::changePercent(quote.changePercent24h);
}

StatusBarSegment segmentOf(const Symbol& symbol, std::span<const Symbol> watchlist,
                           const StatusBarPresenter::Quotes& quotes, StatusBarContent content) {
    const QString name = displayName(symbol, watchlist);
    const auto found = quotes.find(symbol);
    if (found == quotes.end())
        return {name, PriceDirection::flat};
    const Quote& quote = found->second;
    return {name + QLatin1Char(' ') + textOf(quote, content),
            StatusBarPresenter::direction(quote.changePercent24h)};
}

} // namespace

std::vector<StatusBarSegment> StatusBarPresenter::segments(const std::vector<Symbol>& symbols,
                                                           const std::vector<Symbol>& pinned,
                                                           const Quotes& quotes,
                                                           const DisplaySettings& settings,
                                                           int rotationIndex) {
    std::vector<StatusBarSegment> segments;
    if (symbols.empty())
        return segments;
    const std::vector<Symbol> shown = shownSymbols(symbols, pinned);
    for (const Symbol& symbol : selection(shown, settings, rotationIndex))
        segments.push_back(segmentOf(symbol, symbols, quotes, settings.content));
    return segments;
}

std::optional<QString>
StatusBarPresenter::text(const std::vector<Symbol>& symbols, const std::vector<Symbol>& pinned,
                         const Quotes& quotes, const DisplaySettings& settings, int rotationIndex) {
    QStringList texts;
    for (const auto& segment : segments(symbols, pinned, quotes, settings, rotationIndex))
        texts += segment.text;
    return texts.isEmpty() ? std::nullopt : std::optional(texts.join(sideBySideSeparator));
}

int StatusBarPresenter::rotationItemCount(const std::vector<Symbol>& symbols,
                                          const std::vector<Symbol>& pinned) {
    return static_cast<int>(shownSymbols(symbols, pinned).size());
}

PriceDirection StatusBarPresenter::direction(const Decimal& change) {
    if (change.isZero())
        return PriceDirection::flat;
    return change.isNegative() ? PriceDirection::down : PriceDirection::up;
}

} // namespace quorvel
