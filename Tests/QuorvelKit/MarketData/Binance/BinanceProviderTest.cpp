// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceProvider.h"

#include "Platform/Foundation/SystemClock.h"
#include "Platform/JSON/DecodingError.h"
#include "Platform/Network/URLError.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "Tests/Support/MarketSamples.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/SimulatorProcess.h"

#include <gtest/gtest.h>

using namespace quorvel;
using namespace test;
using platform::Task;

namespace {

/// The provider on its network thread, against the simulator.
class Provider : public testing::Test {
protected:
    /// How the simulator answers requests for candles; the members of a "rest" control.
    void answerCandles(const QByteArray& members) const {
        simulator_.control("rest", R"({"path":"/api/v3/klines",)" + members + "}");
    }

    Task<std::vector<Candle>> candles() { return provider_->candles(btc, ChartPeriod::week); }

    static Task<> collect(BinanceProvider& provider, std::vector<Quote>& quotes, bool& ended) {
        auto stream = co_await provider.quotes();
        while (auto quote = co_await stream.next())
            quotes.push_back(*quote);
        ended = true;
    }

    void subscribe(const SymbolSet& symbols) {
        runTask(provider_->updateSubscriptions(symbols));
        ASSERT_TRUE(waitUntil([this] { return simulator_.connectionCount() == 1; }));
    }

    SimulatorProcess simulator_;
    platform::SystemClock clock_;
    std::unique_ptr<BinanceProvider> provider_ =
        BinanceProvider::live(clock_, simulator_.restURL(), simulator_.streamURL());
    std::vector<Quote> quotes_;
    bool ended_ = false;
    Running<void> consumer_{collect(*provider_, quotes_, ended_)};
};

TEST_F(Provider, CarriesQuotesFromTheWireAndClosesInOrder) {
    subscribe({btc});
    simulator_.control("push", R"({"symbol":"BTCUSDT","price":"65000.10"})");
    ASSERT_TRUE(waitUntil([&] { return quotes_.size() == 1; }));
    EXPECT_EQ(quotes_[0].symbol, btc);
    EXPECT_EQ(quotes_[0].lastPrice, decimal("65000.1"));
    runTask(provider_->stop());
    EXPECT_TRUE(waitUntil([&] { return ended_; }));
    const auto closed = simulator_.details(QStringLiteral("streamClosed"));
    ASSERT_EQ(closed.size(), 1) << "stop returned before the connection was closed";
    EXPECT_EQ(closed[0][u"code"].toInt(), 1001);
}

TEST_F(Provider, DropsAnEventFromTheFutureOnceTheTimeIsKnown) {
    runTask(candles()); // whose answer tells it
    subscribe({btc});
    simulator_.control("push", R"({"symbol":"BTCUSDT","price":"1","time":4102444800000})");
    simulator_.control("push", R"({"symbol":"BTCUSDT","price":"2"})");
    ASSERT_TRUE(waitUntil([&] { return !quotes_.empty(); }));
    EXPECT_EQ(quotes_[0].lastPrice, decimal("2"));
}

TEST_F(Provider, IsNotCutOffForItsCommands) {
    subscribe({btc});
    for (const SymbolSet& symbols : {SymbolSet{eth}, SymbolSet{ada}, SymbolSet{sol}})
        runTask(provider_->updateSubscriptions(symbols));
    EXPECT_EQ(simulator_.waitForDetails(QStringLiteral("text"), 6).size(), 6);
    EXPECT_TRUE(simulator_.details(QStringLiteral("cutOff")).isEmpty());
}

TEST_F(Provider, ComesBackAfterTheDelayInUse) {
    subscribe({btc});
    const auto lost = clock_.uptime();
    simulator_.control("drop", R"({"how":"close"})");
    const auto opened = [this] { return simulator_.details(QStringLiteral("streamOpened")); };
    ASSERT_TRUE(waitUntil([&] { return opened().size() == 2; }));
    EXPECT_GE(clock_.uptime() - lost, std::chrono::seconds(1));
}

TEST_F(Provider, PassesErrorsOnFromTheNetworkThread) {
    answerCandles(R"("body":"[[1,2")");
    EXPECT_TRUE(errorOf<platform::DecodingError>(candles()));
    answerCandles(R"("reset":true)");
    EXPECT_EQ(runTask(candles()).size(), 42u);
    simulator_.kill();
    EXPECT_TRUE(errorOf<platform::URLError>(candles()));
}

TEST_F(Provider, AsksNothingWhileTheExchangeWantsSilence) {
    answerCandles(R"("status":429,"headers":{"Retry-After":"60"})");
    EXPECT_TRUE(errorOf<HTTPTransportError>(candles()));
    answerCandles(R"("reset":true)");
    EXPECT_TRUE(errorOf<HTTPTransportError>(candles()));
    EXPECT_EQ(simulator_.details(QStringLiteral("request")).size(), 1);
}

TEST_F(Provider, StampsSnapshotsWithTheExchangesTime) {
    simulator_.control("clock", R"({"offsetMs":-600000})");
    simulator_.control(
        "rest",
        R"({"path":"/api/v3/ticker/24hr","body":)"
        R"("[{\"symbol\":\"BTCUSDT\",\"lastPrice\":\"1\",\"priceChangePercent\":\"0\"}]"})");
    runTask(candles()); // whose answer tells the time
    const auto snapshot = runTask(provider_->snapshot({btc}));
    ASSERT_EQ(snapshot.size(), 1U);
    const auto late = clock_.now() - snapshot[0].timestamp;
    EXPECT_NEAR(late.count(), 600, 2);
}

TEST_F(Provider, MayGoWhileCallsAreUnderWay) {
    simulator_.control("rest", R"({"path":"/api/v3/exchangeInfo","hang":true})");
    Running<std::vector<Symbol>> hanging(provider_->availableSymbols());
    runTask(provider_->updateSubscriptions({btc}));
    ASSERT_EQ(simulator_.waitForDetails(QStringLiteral("request")).size(), 1);
    hanging.cancel();
    consumer_.cancel();
    provider_.reset();
    EXPECT_TRUE(waitUntil([&] { return simulator_.connectionCount() == 0; }));
}

} // namespace
