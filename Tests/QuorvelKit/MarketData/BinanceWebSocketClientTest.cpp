#include "QuorvelKit/MarketData/BinanceWebSocketClient.h"

#include "Platform/Async/TaskScope.h"
#include "QuorvelKit/MarketData/SubscriptionCommand.h"
#include "Tests/QuorvelKit/MarketData/ScriptedConnection.h"
#include "Tests/Support/ManualClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using platform::Task;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Symbol btc{"BTC", "USDT"};
const Symbol eth{"ETH", "USDT"};
const Symbol sol{"SOL", "USDT"};

QByteArray ticker(const char* pairID, const char* price) {
    return QByteArray(R"({"stream":"x","data":{"e":"24hrTicker","E":1700000000123,"s":")") +
           pairID + R"(","c":")" + price + R"(","P":"1.5"}})";
}

Task<> collect(platform::AsyncStream<Quote> stream, std::vector<std::string>& prices, bool& ended) {
    while (const auto quote = co_await stream.next())
        prices.push_back(quote->symbol.base + " " + quote->lastPrice.plainText());
    ended = true;
}

constexpr BackoffPolicy productionPolicy{.baseDelay = 1.0, .maxDelay = 30.0, .jitterFraction = 0.2};

class StreamingClient : public testing::Test {
protected:
    StreamingClient() {
        auto connection = std::make_unique<test::ScriptedConnection>();
        connection_ = connection.get();
        client_ = std::make_unique<BinanceWebSocketClient>(
            std::move(connection), productionPolicy, clock_, [this] { return jitter_; },
            QUrl(SubscriptionCommand::host()));
    }

    void update(SymbolSet symbols) {
        scope_.start(client_->updateSubscriptions(std::move(symbols)));
        test::drainEvents();
    }

    void stop() {
        scope_.start(client_->stop());
        test::drainEvents();
    }

    std::vector<std::string> takeCalls() { return std::exchange(connection_->calls, {}); }

    test::ManualClock clock_;
    double jitter_ = 0;
    test::ScriptedConnection* connection_ = nullptr;
    std::unique_ptr<BinanceWebSocketClient> client_;
    platform::TaskScope scope_;
    std::vector<std::string> prices_;
    bool ended_ = false;
};

} // namespace

TEST_F(StreamingClient, OpensTheURLOfTheWantedPairsAndSendsNoCommand) {
    update({eth, btc});
    EXPECT_THAT(takeCalls(), ElementsAre("connect streams=btcusdt@ticker/ethusdt@ticker"));
    update({btc, eth});
    EXPECT_THAT(takeCalls(), IsEmpty()) << "the set was wanted already";
}

TEST_F(StreamingClient, NumbersItsCommandsAndSubscribesFirst) {
    update({btc});
    takeCalls();
    update({btc, eth});
    EXPECT_THAT(takeCalls(),
                ElementsAre(R"(send {"method":"SUBSCRIBE","params":["ethusdt@ticker"],"id":1})"));
    connection_->failsSends = true;
    update({btc, sol});
    EXPECT_THAT(takeCalls(),
                ElementsAre(R"(send {"method":"SUBSCRIBE","params":["solusdt@ticker"],"id":2})",
                            R"(send {"method":"UNSUBSCRIBE","params":["ethusdt@ticker"],"id":3})"));
    update({sol});
    EXPECT_THAT(takeCalls(),
                ElementsAre(R"(send {"method":"UNSUBSCRIBE","params":["btcusdt@ticker"],"id":4})"));
}

TEST_F(StreamingClient, DeliversQuotesAndNothingElse) {
    connection_->holdsConnects = false;
    update({btc});
    connection_->deliver(ticker("BTCUSDT", "1.10")); // nobody listens: dropped
    test::drainEvents();
    scope_.start(collect(client_->quotes(), prices_, ended_));
    connection_->deliver(R"({"result":null,"id":1})");
    connection_->deliver("rubbish");
    connection_->deliver(ticker("ETHBTC", "1"));
    connection_->deliver(ticker("BTCUSDT", "2.50"));
    test::drainEvents();
    EXPECT_THAT(prices_, ElementsAre("BTC 2.5"));

    std::vector<std::string> later;
    bool laterEnded = false;
    scope_.start(collect(client_->quotes(), later, laterEnded));
    test::drainEvents();
    EXPECT_TRUE(ended_) << "a new stream ends the one before";
    connection_->deliver(ticker("BTCUSDT", "3"));
    test::drainEvents();
    EXPECT_THAT(later, ElementsAre("BTC 3"));
    EXPECT_FALSE(laterEnded);
}

TEST_F(StreamingClient, KeepsTheStreamThroughLossesAndAnEmptySet) {
    scope_.start(collect(client_->quotes(), prices_, ended_));
    update({btc});
    connection_->lose();
    clock_.advance(1s);
    connection_->deliver(ticker("BTCUSDT", "1"));
    test::drainEvents();
    update({});
    EXPECT_FALSE(connection_->isOpen());
    clock_.advance(1h);
    EXPECT_EQ(connection_->connections, 2) << "connected without any wanted pair";
    update({eth});
    connection_->deliver(ticker("ETHUSDT", "2"));
    test::drainEvents();
    EXPECT_THAT(prices_, ElementsAre("BTC 1", "ETH 2"));
    EXPECT_FALSE(ended_);
}

TEST_F(StreamingClient, DoublesTheDelayWhileConnectingFailsAndStartsOverAfterALoss) {
    connection_->failingConnects = 9;
    update({btc});
    std::vector<double> delays;
    while (connection_->connections == 0) {
        const auto next = clock_.untilNextTimer();
        ASSERT_TRUE(next) << "gave up";
        delays.push_back(std::chrono::duration<double>(*next).count());
        clock_.advance(*next);
    }
    EXPECT_THAT(delays, ElementsAre(1, 2, 4, 8, 16, 30, 30, 30, 30));
    jitter_ = 1;
    connection_->lose();
    test::drainEvents();
    EXPECT_EQ(clock_.untilNextTimer(), 1200ms);
}

TEST_F(StreamingClient, ConnectsAtOnceWhenThePairsChangeWhileItWaits) {
    connection_->failingConnects = 1;
    update({btc});
    update({btc, eth});
    EXPECT_EQ(connection_->connections, 1);
    takeCalls();
    clock_.advance(1h); // the waiting attempt finds the connection there
    EXPECT_EQ(connection_->connections, 1);
    EXPECT_THAT(takeCalls(), IsEmpty());
}

TEST_F(StreamingClient, LeavesTheNewConnectionAloneWhenAReplacedLoopEnds) {
    connection_->holdsConnects = true;
    update({btc});
    update({eth}); // both calls are connecting now
    connection_->letConnect();
    test::drainEvents();
    connection_->letConnect();
    test::drainEvents();
    scope_.start(collect(client_->quotes(), prices_, ended_));
    connection_->deliver(ticker("ETHUSDT", "7"));
    test::drainEvents();
    EXPECT_THAT(prices_, ElementsAre("ETH 7"));
    EXPECT_EQ(clock_.timerCount(), 0u) << "a loop that was replaced scheduled a reconnection";
    takeCalls();
    update({eth, btc});
    EXPECT_THAT(takeCalls(), ElementsAre(testing::StartsWith("send ")))
        << "thought it had no connection";
}

TEST_F(StreamingClient, StaysClosedWhenAConnectEndsAfterEveryPairWasDropped) {
    connection_->holdsConnects = true;
    update({btc});
    update({});
    connection_->letConnect();
    test::drainEvents();
    EXPECT_FALSE(connection_->isOpen());
    EXPECT_EQ(clock_.timerCount(), 0u);
}

TEST_F(StreamingClient, EndsTheStreamAndForgetsThePairsWhenStopped) {
    scope_.start(collect(client_->quotes(), prices_, ended_));
    update({btc});
    connection_->lose();
    test::drainEvents();
    stop();
    EXPECT_TRUE(ended_);
    clock_.advance(1h);
    EXPECT_EQ(connection_->connections, 1);
    EXPECT_FALSE(connection_->isOpen());

    ended_ = false;
    scope_.start(collect(client_->quotes(), prices_, ended_));
    update({btc});
    EXPECT_EQ(connection_->connections, 2);
    EXPECT_FALSE(ended_);
}

TEST_F(StreamingClient, CanGoAtAnyMoment) {
    update({btc});
    connection_->lose();
    test::drainEvents();
    client_.reset();
    clock_.advance(1h);
    EXPECT_EQ(clock_.timerCount(), 0u);
}

TEST(BackoffPolicy, StaysWithinItsBounds) {
    EXPECT_EQ(productionPolicy.delay(0, 0), 1.0);
    EXPECT_EQ(productionPolicy.delay(-5, 0), 1.0);
    EXPECT_DOUBLE_EQ(productionPolicy.delay(3, 1), 4.8);
    EXPECT_DOUBLE_EQ(productionPolicy.delay(5, 0.5), 17.6);
    EXPECT_EQ(productionPolicy.delay(6, 0), 30.0);
    EXPECT_EQ(productionPolicy.delay(10, 1), 30.0);
    EXPECT_EQ(productionPolicy.delay(std::numeric_limits<int>::max(), 1), 30.0);
}

TEST(SystemJitter, StaysWithinItsRange) {
    const auto jitter = BinanceWebSocketClient::systemJitter();
    double smallest = 1;
    double largest = 0;
    for (int i = 0; i < 200; ++i) {
        const double value = jitter();
        ASSERT_GE(value, 0);
        ASSERT_LE(value, 1);
        smallest = std::min(smallest, value);
        largest = std::max(largest, value);
    }
    EXPECT_LT(smallest, 0.2);
    EXPECT_GT(largest, 0.8);
}
