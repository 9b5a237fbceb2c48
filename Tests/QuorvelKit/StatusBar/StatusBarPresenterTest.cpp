#include "QuorvelKit/StatusBar/StatusBarPresenter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace quorvel;

namespace {

const Symbol ada{"ADA", "USDT"};
const Symbol btc{"BTC", "USDT"};
const Symbol eth{"ETH", "USDT"};
const Symbol sol{"SOL", "USDT"};
const std::vector<Symbol> watchlist{ada, btc, eth};

std::pair<const Symbol, Quote> quote(const Symbol& symbol, const char* price, const char* change) {
    return {symbol,
            {symbol,
             Decimal::fromAPIString(price).value(),
             Decimal::fromAPIString(change).value(),
             {}}};
}

const StatusBarPresenter::Quotes quotes{quote(btc, "65432.1", "1.234"), quote(eth, "2", "0"),
                                        quote(sol, "0.5", "-0.001")};

DisplaySettings settings(StatusBarDisplayMode mode,
                         StatusBarContent content = StatusBarContent::both) {
    DisplaySettings result;
    result.mode = mode;
    result.content = content;
    return result;
}

std::string shown(const std::vector<Symbol>& symbols, const std::vector<Symbol>& pinned,
                  const DisplaySettings& display, int index = 0) {
    const auto text = StatusBarPresenter::text(symbols, pinned, {}, display, index);
    return text ? text->toStdString() : "nothing";
}

TEST(StatusBarPresenter, SaysNothingForAnEmptyWatchlist) {
    const auto display = settings(StatusBarDisplayMode::sideBySide);
    EXPECT_TRUE(StatusBarPresenter::segments({}, {btc}, quotes, display, 0).empty());
    EXPECT_EQ(StatusBarPresenter::text({}, {btc}, quotes, display, 0), std::nullopt);
    EXPECT_EQ(StatusBarPresenter::rotationItemCount({}, {btc}), 0);
}

TEST(StatusBarPresenter, ShowsPinnedPairsInTheWatchlistsOrder) {
    const auto sideBySide = settings(StatusBarDisplayMode::sideBySide);
    EXPECT_EQ(shown(watchlist, {eth, btc}, sideBySide), "BTC  ETH");
    EXPECT_EQ(shown(watchlist, {}, sideBySide), "ADA  BTC  ETH");
    // A pin of a pair that is not watched is as good as none.
    EXPECT_EQ(shown(watchlist, {sol}, sideBySide), "ADA  BTC  ETH");
    EXPECT_EQ(StatusBarPresenter::rotationItemCount(watchlist, {eth, btc}), 2);
    EXPECT_EQ(StatusBarPresenter::rotationItemCount(watchlist, {sol}), 3);
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
    EXPECT_EQ(shown(watchlist, {}, rotating, std::numeric_limits<int>::min()),
              "BTC"); // -2^31 mod 3
    EXPECT_EQ(shown(watchlist, {}, rotating, std::numeric_limits<int>::max()),
              "BTC"); // 2^31 - 1 mod 3
}

TEST(StatusBarPresenter, LimitsPairsSideBySide) {
    auto display = settings(StatusBarDisplayMode::sideBySide);
    const std::vector<Symbol> five{ada, btc, eth, sol, {"XRP", "USDT"}};
    EXPECT_EQ(shown(five, {}, display), "ADA  BTC  ETH");
    EXPECT_EQ(shown({ada, btc}, {}, display), "ADA  BTC");
    display.setSideBySideLimit(1);
    EXPECT_EQ(shown(five, {}, display), "ADA");
}

struct ContentCase {
    Symbol symbol;
    StatusBarContent content;
    const char* text;
    PriceDirection direction;
};

class StatusBarContents : public testing::TestWithParam<ContentCase> {};

TEST_P(StatusBarContents, FollowTheBase) {
    const auto& [symbol, content, text, direction] = GetParam();
    const auto display = settings(StatusBarDisplayMode::rotating, content);
    const auto segments = StatusBarPresenter::segments({symbol}, {}, quotes, display, 0);
    EXPECT_EQ(segments, (std::vector<StatusBarSegment>{{QString::fromUtf8(text), direction}}))
        << text;
}

INSTANTIATE_TEST_SUITE_P(
    StatusBarPresenter, StatusBarContents,
    testing::Values(
        ContentCase{btc, StatusBarContent::priceOnly, "BTC 65,432.10", PriceDirection::up},
        ContentCase{btc, StatusBarContent::changeOnly, "BTC +1.23%", PriceDirection::up},
        ContentCase{btc, StatusBarContent::both, "BTC 65,432.10 +1.23%", PriceDirection::up},
        ContentCase{eth, StatusBarContent::changeOnly, "ETH 0.00%", PriceDirection::flat},
        // The direction is that of the change itself, not of what rounding leaves of it.
        ContentCase{sol, StatusBarContent::both, "SOL 0.5 0.00%", PriceDirection::down},
        ContentCase{ada, StatusBarContent::both, "ADA", PriceDirection::flat},
        ContentCase{{"\u00c4\uff11", "USDT"},
                    StatusBarContent::both,
                    "\u00c4\uff11",
                    PriceDirection::flat}));

TEST(StatusBarPresenter, JoinsTextsWithTwoBlanks) {
    const StatusBarPresenter::Quotes both{quote(btc, "1", "1"), quote(eth, "2", "1")};
    EXPECT_EQ(StatusBarPresenter::text(
                  {btc, eth}, {}, both,
                  settings(StatusBarDisplayMode::sideBySide, StatusBarContent::priceOnly), 0),
              QStringLiteral("BTC 1.0000  ETH 2.0000"));
}

TEST(PriceDirection, HasArrowsForMovesOnly) {
    EXPECT_EQ(statusBarSymbol(PriceDirection::up), QString(QChar(0x25B2)));
    EXPECT_EQ(statusBarSymbol(PriceDirection::down), QString(QChar(0x25BC)));
    EXPECT_EQ(statusBarSymbol(PriceDirection::flat), std::nullopt);
}

} // namespace
