#include "QuorvelKit/MarketData/BinanceProvider.h"

#include "Platform/Foundation/DecodingError.h"
#include "Platform/Foundation/SystemClock.h"
#include "Platform/Foundation/URLError.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/SimulatorProcess.h"

#include <gtest/gtest.h>

using namespace quorvel;
using platform::Task;

namespace {

const Symbol btc{"BTC", "USDT"};
const Symbol umlaut{"Ä", "USDT"};
const Symbol fullWidth{"１２", "USDT"};

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// The provider on its network thread, against the simulator.
class Provider : public testing::Test {
protected:
    void push(const char* symbol, const char* price) const {
        simulator_.control(text("push"), {{text("symbol"), text(symbol)},
                                          {text("price"), text(price)},
                                          {text("change"), text("1.5")}});
    }

    static Task<> collect(BinanceProvider& provider, std::vector<Quote>& quotes, bool& ended) {
        auto stream = co_await provider.quotes();
        while (auto quote = co_await stream.next())
            quotes.push_back(*quote);
        ended = true;
    }

    qsizetype connectionCount() const {
        return simulator_.state()[u"connections"].toArray().size();
    }

    bool becomesConnected() const {
        return test::waitUntil([this] { return connectionCount() == 1; });
    }

    /// The error of that type that `call` throws; absent where it throws none.
    template <typename Error>
    static std::optional<Error> errorOf(const auto& call) {
        try {
            call();
        } catch (const Error& error) {
            return error;
        }
        return std::nullopt;
    }

    test::SimulatorProcess simulator_;
    platform::SystemClock clock_;
    std::unique_ptr<BinanceProvider> provider_ =
        BinanceProvider::live(clock_, simulator_.restURL(), simulator_.streamURL());
    std::vector<Quote> quotes_;
    bool ended_ = false;
    test::Running<void> consumer_{collect(*provider_, quotes_, ended_)};
};

TEST_F(Provider, CarriesQuotesFromTheWireAndClosesInOrder) {
    test::runTask(provider_->updateSubscriptions({btc}));
    ASSERT_TRUE(becomesConnected());
    push("BTCUSDT", "65000.10");
    ASSERT_TRUE(test::waitUntil([&] { return quotes_.size() == 1; }));
    EXPECT_EQ(quotes_[0].symbol, btc);
    EXPECT_EQ(quotes_[0].lastPrice, Decimal::fromAPIString("65000.1"));
    test::runTask(provider_->stop());
    EXPECT_TRUE(test::waitUntil([&] { return ended_; }));
    const auto closed = simulator_.details(text("streamClosed"));
    ASSERT_EQ(closed.size(), 1) << "stop returned before the connection was closed";
    EXPECT_EQ(closed[0][u"code"].toInt(), 1001);
}

TEST_F(Provider, KnowsPairsWithLettersAndDigitsFromAnyScript) {
    push("ÄUSDT", "0.00001234");
    push("１２USDT", "7");
    const auto snapshot = test::runTask(provider_->snapshot({umlaut, fullWidth}));
    ASSERT_EQ(snapshot.size(), 2u);
    EXPECT_EQ(snapshot[0].symbol, umlaut);
    EXPECT_EQ(snapshot[1].symbol, fullWidth);

    test::runTask(provider_->updateSubscriptions({btc, umlaut}));
    ASSERT_TRUE(becomesConnected());
    test::runTask(provider_->updateSubscriptions({umlaut, fullWidth}));
    ASSERT_TRUE(test::waitUntil([&] { return simulator_.details(text("text")).size() == 2; }));
    push("ÄUSDT", "1");
    push("１２USDT", "2");
    push("BTCUSDT", "3");
    ASSERT_TRUE(test::waitUntil([&] { return quotes_.size() >= 2; }));
    EXPECT_EQ(quotes_[0].symbol, umlaut);
    EXPECT_EQ(quotes_[1].symbol, fullWidth);
}

TEST_F(Provider, ComesBackAfterTheExchangeWasAwayWithOneConnection) {
    test::runTask(provider_->updateSubscriptions({btc}));
    ASSERT_TRUE(becomesConnected());
    simulator_.kill();
    test::waitUntil([] { return false; }, std::chrono::milliseconds(1500));
    simulator_.restartOnSamePort();
    const auto restarted = clock_.uptime();
    ASSERT_TRUE(becomesConnected());
    push("BTCUSDT", "1");
    ASSERT_TRUE(test::waitUntil([&] { return !quotes_.empty(); }));
    EXPECT_LT(clock_.uptime() - restarted, std::chrono::seconds(3));
    EXPECT_EQ(connectionCount(), 1);
    EXPECT_EQ(simulator_.details(text("streamOpened")).size(), 1);
}

TEST_F(Provider, ReadsALargeListOfPairs) {
    simulator_.control(text("exchangeInfo"), {{text("bytes"), 10'000'000}});
    EXPECT_GT(test::runTask(provider_->availableSymbols()).size(), 500u);
}

TEST_F(Provider, PassesErrorsOnFromTheNetworkThread) {
    const auto candles = [this] {
        return test::runTask(provider_->candles(btc, ChartPeriod::week));
    };
    const auto answer = [this](const QJsonObject& answer) {
        QJsonObject override = answer;
        override[u"path"] = text("/api/v3/klines");
        simulator_.control(text("rest"), override);
    };
    answer({{text("status"), 418}});
    EXPECT_EQ(errorOf<HTTPTransportError>(candles), HTTPTransportError::requestFailed(418));
    answer({{text("body"), text("[[1,2")}});
    EXPECT_EQ(errorOf<platform::DecodingError>(candles)->kind(),
              platform::DecodingError::Kind::dataCorrupted);
    answer({{text("reset"), true}});
    EXPECT_EQ(candles().size(), 42u);
    simulator_.kill();
    EXPECT_EQ(errorOf<platform::URLError>(candles)->code(),
              platform::URLError::Code::cannotConnect);
}

TEST_F(Provider, MayGoWhileCallsAreUnderWay) {
    simulator_.control(text("rest"),
                       {{text("path"), text("/api/v3/exchangeInfo")}, {text("hang"), true}});
    test::Running<std::vector<Symbol>> hanging(provider_->availableSymbols());
    test::runTask(provider_->updateSubscriptions({btc}));
    test::waitUntil([&] { return !simulator_.details(text("request")).isEmpty(); });
    hanging.cancel();
    consumer_.cancel();
    provider_.reset();
    EXPECT_TRUE(test::waitUntil([&] { return connectionCount() == 0; }));
}

} // namespace
