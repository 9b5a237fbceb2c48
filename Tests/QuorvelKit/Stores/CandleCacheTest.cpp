// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/Stores/CandleCache.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;

namespace {

using Series = std::vector<Candle>;

const Symbol btc{"BTC", "USDT"};
const Symbol eth{"ETH", "USDT"};
const platform::Date noon{platform::TimeInterval(43'200)};

Series series(std::int64_t close) {
    return {{noon - 1h, Decimal(close)}, {noon, Decimal(close + 1)}};
}

class Candles : public testing::Test {
protected:
    /// What the cache gives; absent for null.
    std::optional<Series> candles(const Symbol& symbol, ChartPeriod period,
                                  platform::Date now = noon) const {
        const Series* const found = cache_.candles(symbol, period, now);
        return found ? std::optional(*found) : std::nullopt;
    }

    CandleCache cache_;
    QSignalSpy spy_{&cache_, &CandleCache::entriesChanged};
};

} // namespace

TEST_F(Candles, AreFreshForFiveMinutesAndOldOnesStayInTheirPlace) {
    cache_.store(series(1), btc, ChartPeriod::day, noon);
    for (const auto age : {-3600s, 0s, 299s, 300s})
        EXPECT_EQ(candles(btc, ChartPeriod::day, noon + age), series(1)) << age.count();
    EXPECT_EQ(candles(btc, ChartPeriod::day, noon + 300'001ms), std::nullopt);
    EXPECT_EQ(cache_.entries().size(), 1U);
    cache_.store({}, btc, ChartPeriod::day, noon + 301s);
    EXPECT_EQ(candles(btc, ChartPeriod::day, noon + 601s), Series()) << "empty, but there";
}

TEST_F(Candles, BelongToOnePairAndPeriod) {
    cache_.store(series(1), btc, ChartPeriod::day, noon);
    EXPECT_EQ(candles(btc, ChartPeriod::week), std::nullopt);
    EXPECT_EQ(candles(eth, ChartPeriod::day), std::nullopt);
    cache_.store(series(2), btc, ChartPeriod::week, noon);
    cache_.store(series(3), eth, ChartPeriod::day, noon);
    EXPECT_EQ(candles(btc, ChartPeriod::day), series(1));
    EXPECT_EQ(candles(btc, ChartPeriod::week), series(2));
    cache_.invalidate(cache_.entries().find({btc, ChartPeriod::day})->first.symbol);
    EXPECT_EQ(candles(btc, ChartPeriod::day), std::nullopt);
    EXPECT_EQ(candles(btc, ChartPeriod::week), std::nullopt);
    EXPECT_EQ(candles(eth, ChartPeriod::day), series(3));
}

TEST_F(Candles, TellWhosePairChangedAtEveryStoreAndInvalidate) {
    cache_.store(series(1), btc, ChartPeriod::day, noon);
    cache_.store(series(1), btc, ChartPeriod::day, noon);
    cache_.invalidate(eth);
    ASSERT_EQ(spy_.count(), 3);
    EXPECT_EQ(spy_[1][0].value<Symbol>(), btc);
    EXPECT_EQ(spy_[2][0].value<Symbol>(), eth);
}
