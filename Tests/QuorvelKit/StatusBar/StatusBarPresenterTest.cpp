// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/StatusBar/StatusBarPresenter.h"

#include "Tests/Support/Cases.h"
#include "Tests/Support/MarketSamples.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace quorvel;
using namespace test;

namespace {

const std::vector watchlist{ada, btc, eth};

std::pair<const Symbol, Quote> quote(const Symbol& symbol, const char* price, const char* change) {
    return {symbol, {symbol, decimal(price), decimal(change), {}}};
}

const StatusBarPresenter::Quotes quotes{quote(btc, "65432.1", "1.234"), quote(eth, "2", "0"),
                                        quote(sol, "0.5", "-0.001"), quote(ada, "1", "0.004")};

DisplaySettings settings(StatusBarDisplayMode mode,
                         StatusBarContent content = StatusBarContent::both) {
    DisplaySettings result;
    result.mode = mode;
    result.content = content;
    return result;
}

/// The text without any prices.
std::string shown(const std::vector<Symbol>& symbols, const std::vector<Symbol>& pinned,
                  const DisplaySettings& display, int index = 0) {
    const auto text = StatusBarPresenter::text(symbols, pinned, {}, display, index);
    return text ? text->toStdString() : "nothing";
}

TEST(StatusBarPresenter, ShowsPinnedPairsInTheWatchlistsOrder) {
    const auto sideBySide = settings(StatusBarDisplayMode::sideBySide);
    EXPECT_EQ(shown(watchlist, {eth, btc}, sideBySide), "BTC  ETH");
    EXPECT_EQ(shown(watchlist, {}, sideBySide), "ADA  BTC  ETH");
    EXPECT_EQ(shown(watchlist, {sol}, sideBySide), "ADA  BTC  ETH")
        << "a pin of a pair that is not watched is as good as none";
    EXPECT_EQ(shown({}, {btc}, sideBySide), "nothing");
    EXPECT_EQ(StatusBarPresenter::rotationItemCount(watchlist, {eth, btc}), 2);
    EXPECT_EQ(StatusBarPresenter::rotationItemCount(watchlist, {sol}), 3);
    EXPECT_EQ(StatusBarPresenter::rotationItemCount({}, {btc}), 0);
}

TEST(StatusBarPresenter, NamesPairsAsTheyAreToldApartInTheWatchlist) {
    const Symbol inEuros{"BTC", "EUR"};
    const auto sideBySide = settings(StatusBarDisplayMode::sideBySide);
    EXPECT_EQ(shown({btc, eth, inEuros}, {}, sideBySide), "BTCUSDT  ETH  BTCEUR");
    EXPECT_EQ(shown({btc, eth, inEuros}, {btc}, sideBySide), "BTCUSDT") << "as in the panel";
    const auto segments =
        StatusBarPresenter::segments({inEuros, btc}, {btc}, quotes, sideBySide, 0);
    EXPECT_EQ(segments.at(0).text.toStdString(), "BTCUSDT 65,432.10 +1.23%");
}

TEST(StatusBarPresenter, FixesTheFirstShownPair) {
    const auto fixed = settings(StatusBarDisplayMode::fixed);
    EXPECT_EQ(shown(watchlist, {eth, btc}, fixed, 7), "BTC");
    EXPECT_EQ(shown(watchlist, {}, fixed, 7), "ADA");
}

TEST(StatusBarPresenter, RotatesRoundAndRound) {
    const auto rotating = settings(StatusBarDisplayMode::rotating);
    EXPECT_EQ(shown(watchlist, {btc, eth}, rotating, 5), "ETH");
    EXPECT_EQ(shown(watchlist, {}, rotating, -1), "ETH");
    EXPECT_EQ(shown(watchlist, {}, rotating, -3), "ADA");
    EXPECT_EQ(shown(watchlist, {}, rotating, std::numeric_limits<int>::min()), "BTC"); // -2^31 % 3
}

TEST(StatusBarPresenter, LimitsPairsSideBySide) {
    auto display = settings(StatusBarDisplayMode::sideBySide);
    EXPECT_EQ(shown({ada, btc, eth, sol}, {}, display), "ADA  BTC  ETH");
    EXPECT_EQ(shown({ada, btc}, {}, display), "ADA  BTC");
    display.setSideBySideLimit(1);
    EXPECT_EQ(shown({ada, btc, eth, sol}, {}, display), "ADA");
}

TEST(StatusBarPresenter, LetsTheContentsFollowTheBase) {
    struct Case {
        Symbol symbol;
        StatusBarContent content;
        const char* text;
        PriceDirection direction;
    };
    using enum StatusBarContent;
    for (const auto& [symbol, content, text, direction] :
         cases(Case{btc, priceOnly, "BTC 65,432.10", PriceDirection::up},
               Case{btc, changeOnly, "BTC +1.23%", PriceDirection::up},
               Case{btc, both, "BTC 65,432.10 +1.23%", PriceDirection::up},
               Case{eth, changeOnly, "ETH 0.00%", PriceDirection::flat},
               // The direction is that of the change itself, not of what rounding leaves of it.
               Case{sol, both, "SOL 0.5 0.00%", PriceDirection::down},
               Case{ada, changeOnly, "ADA 0.00%", PriceDirection::up},
               Case{{"\u00c4\uff11", "USDT"}, both, "\u00c4\uff11", PriceDirection::flat}))
        EXPECT_EQ(StatusBarPresenter::segments(
                      {symbol}, {}, quotes, settings(StatusBarDisplayMode::rotating, content), 0),
                  (std::vector<StatusBarSegment>{{QString::fromUtf8(text), direction}}))
            << text;
}

} // namespace
