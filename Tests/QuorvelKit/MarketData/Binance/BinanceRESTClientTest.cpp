// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceRESTClient.h"

#include "Platform/JSON/DecodingError.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/MarketSamples.h"
#include "Tests/Support/RunTask.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace test;
using testing::ElementsAre;

namespace {

const Symbol umlaut{"Ä", "USDT"};

/// Answers every request with the same body, or fails as told, and notes the URLs.
class ScriptedTransport final : public HTTPTransport {
public:
    struct State {
        ManualClock clock;
        std::chrono::seconds delay{0};
        std::vector<std::string> urls;
        QByteArray body;
        std::exception_ptr error;
    };
    explicit ScriptedTransport(State& state) : state_(state) {}
    platform::Task<QByteArray> get(QUrl url) override {
        state_.urls.push_back(url.toEncoded().toStdString());
        state_.clock.setNow(state_.clock.now() + state_.delay);
        if (state_.error)
            std::rethrow_exception(state_.error);
        co_return state_.body;
    }

private:
    State& state_;
};

class REST : public testing::Test {
protected:
    /// Each of the bodies must make the call fail.
    void expectRefusal(const auto& call, std::initializer_list<const char*> bodies) {
        for (const char* body : bodies) {
            state_.body = body;
            EXPECT_THROW(runTask(call()), platform::DecodingError) << body;
        }
    }

    ScriptedTransport::State state_;
    BinanceRESTClient client_{std::make_unique<ScriptedTransport>(state_),
                              QUrl(QStringLiteral("https://host.example")), state_.clock};
};

} // namespace

TEST_F(REST, WritesItsRequestsAsTheExchangeReadsThem) {
    state_.body = "[]";
    runTask(client_.snapshot({eth, btc, umlaut}));
    runTask(client_.candles(umlaut, ChartPeriod::week));
    runTask(client_.candles(btc, ChartPeriod::day));
    state_.body = R"({"symbols":[]})";
    runTask(client_.availableSymbols());
    EXPECT_THAT(
        state_.urls,
        ElementsAre(
            "https://host.example/api/v3/ticker/24hr?symbols=%5B%22ETHUSDT%22,%22BTCUSDT%22,"
            "%22%C3%84USDT%22%5D",
            "https://host.example/api/v3/klines?symbol=%C3%84USDT&interval=4h&limit=42",
            "https://host.example/api/v3/klines?symbol=BTCUSDT&interval=1h&limit=24",
            "https://host.example/api/v3/exchangeInfo"));
    EXPECT_TRUE(runTask(client_.snapshot({})).empty());
    EXPECT_EQ(state_.urls.size(), 4u) << "asked for no pairs";
}

TEST_F(REST, SkipsTickersThatMakeNoSenseAndStampsTheRestWithTheInstantTheyArrived) {
    state_.delay = std::chrono::seconds(3);
    const auto arrival = state_.clock.now() + state_.delay;
    state_.body = R"([{"symbol":"ETHBTC","lastPrice":"1","priceChangePercent":"1"},
            {"symbol":"ETHUSDT","lastPrice":"1,5","priceChangePercent":"1"},
            {"symbol":"ETHUSDT","lastPrice":"1","priceChangePercent":""},
            {"extra":{"a":[1]},"symbol":"btcusdt","lastPrice":"0.00001234","priceChangePercent":"-1"},
            {"symbol":"ETHUSDT","lastPrice":"2","priceChangePercent":"0"}])";
    EXPECT_THAT(
        runTask(client_.snapshot({btc})),
        ElementsAre(Quote{btc, decimal("0.00001234"), -1, arrival}, Quote{eth, 2, 0, arrival}));
}

TEST_F(REST, FailsOnASnapshotOfAnotherForm) {
    expectRefusal([this] { return client_.snapshot({btc}); },
                  {"", "{}", "[{}]", "[7]",
                   R"([{"symbol":"BTCUSDT","lastPrice":1,"priceChangePercent":"1"}])"});
}

TEST_F(REST, ListsThePairsThatTradeInUSDT) {
    state_.body = R"({"timezone":"UTC","symbols":[
        {"symbol":"BTCUSDT","status":"TRADING","quoteAsset":"USDT","filters":[{"a":1.5}]},
        {"symbol":"LUNAUSDT","status":"BREAK","quoteAsset":"USDT"},
        {"symbol":"ADAUSDT","status":"HALT","quoteAsset":"USDT"},
        {"symbol":"SOLUSDT","status":"trading","quoteAsset":"USDT"},
        {"symbol":"XUSDT","status":"TRADING","quoteAsset":"SDT"},
        {"symbol":"ETHBTC","status":"TRADING","quoteAsset":"BTC"},
        {"symbol":"USDT","status":"TRADING","quoteAsset":"USDT"},
        {"symbol":"ÄUSDT","status":"TRADING","quoteAsset":"USDT"}]})";
    EXPECT_THAT(runTask(client_.availableSymbols()), ElementsAre(btc, umlaut));
    expectRefusal([this] { return client_.availableSymbols(); },
                  {"[]", "{}", R"({"symbols":{}})", R"({"symbols":[{"symbol":"BTCUSDT"}]})"});
}

TEST_F(REST, ReadsCandlesRowByRow) {
    state_.body = R"([[1700000000000,"1","2","0.5","1.5","9"],[1700003600000,"1","2","0.5"],
        ["1700000000000","1","2","0.5","1.5"],[1700000000000,"1","2","0.5",1.5],
        [1700000000000,"1","2","0.5","x"],[1700007200500.5,"1","2","0.5","1e-8",7]])";
    const auto candles = runTask(client_.candles(btc, ChartPeriod::day));
    ASSERT_EQ(candles.size(), 2u);
    EXPECT_EQ(candles[0].openTime, platform::dateSince1970(platform::TimeInterval(1700000000)));
    EXPECT_EQ(candles[0].close, decimal("1.5"));
    EXPECT_EQ(candles[1].close, decimal("0.00000001"));
    expectRefusal([this] { return client_.candles(btc, ChartPeriod::day); },
                  {"{}", "[7]", R"([[1,"1","1","1","1",null]])", R"([[1,"1","1","1","1",[]]])",
                   R"([[1,"1","1","1",true]])"});
}

TEST_F(REST, PassesTheTransportsErrorsOnUnchangedAndTriesOnce) {
    const auto expected = HTTPTransportError::requestFailed(429);
    state_.error = std::make_exception_ptr(expected);
    EXPECT_EQ(errorOf<HTTPTransportError>(client_.snapshot({btc})), expected);
    EXPECT_EQ(errorOf<HTTPTransportError>(client_.availableSymbols()), expected);
    EXPECT_EQ(errorOf<HTTPTransportError>(client_.candles(btc, ChartPeriod::day)), expected);
    EXPECT_EQ(state_.urls.size(), 3u);
}
