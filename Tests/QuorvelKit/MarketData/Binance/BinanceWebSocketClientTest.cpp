// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/BinanceWebSocketClient.h"

#include "Platform/Async/TaskScope.h"
#include "QuorvelKit/MarketData/Binance/BinanceProvider.h"
#include "Tests/QuorvelKit/MarketData/ScriptedConnection.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/MarketSamples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;
using platform::Task;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Unlike the one in use, so that a client with numbers of its own is found out.
constexpr BackoffPolicy policy{.baseDelay = 0.5, .maxDelay = 5.0, .jitterFraction = 0.5};

class StreamingClient : public testing::Test {
protected:
    /// The quotes that one stream has brought, and whether it is over.
    struct Taken {
        std::vector<std::string> quotes;
        bool hasEnded = false;
    };

    StreamingClient() {
        auto connection = std::make_unique<ScriptedConnection>();
        connection_ = connection.get();
        client_ = std::make_unique<BinanceWebSocketClient>(
            std::move(connection), policy, clock_, [this] { return jitter_; },
            BinanceProvider::defaultStreamURL());
    }

    void run(Task<> task) {
        scope_.start(std::move(task));
        drainEvents();
    }

    void update(SymbolSet symbols) { run(client_->updateSubscriptions(std::move(symbols))); }

    static Task<> collect(platform::AsyncStream<Quote> stream, Taken& taken) {
        while (const auto quote = co_await stream.next())
            taken.quotes.push_back(quote->symbol.base + " " + quote->lastPrice.plainText());
        taken.hasEnded = true;
    }

    void take(Taken& taken) { run(collect(client_->quotes(), taken)); }

    void deliver(const QByteArray& frame) {
        connection_->deliver(frame);
        drainEvents();
    }

    void deliver(const char* pairID, const char* price) {
        deliver(QByteArray(R"({"stream":"x","data":{"e":"24hrTicker","E":1700000000123,"s":")") +
                pairID + R"(","c":")" + price + R"(","P":"1.5"}})");
    }

    void lose() {
        connection_->lose();
        drainEvents();
    }

    void letConnect() {
        connection_->letConnect();
        drainEvents();
    }

    std::vector<std::string> takeCalls() { return std::exchange(connection_->calls, {}); }

    ManualClock clock_;
    double jitter_ = 0;
    ScriptedConnection* connection_ = nullptr;
    std::unique_ptr<BinanceWebSocketClient> client_;
    Taken taken_;
    Taken later_;
    platform::TaskScope scope_;
};

} // namespace

TEST_F(StreamingClient, OpensTheURLOfTheWantedPairsThenNumbersItsCommandsAndSubscribesFirst) {
    update({eth, btc});
    EXPECT_THAT(takeCalls(), ElementsAre("connect streams=btcusdt@ticker/ethusdt@ticker"));
    update({btc, eth});
    EXPECT_THAT(takeCalls(), IsEmpty()) << "the set was wanted already";
    update({btc, eth, ada});
    EXPECT_THAT(takeCalls(),
                ElementsAre(R"(send {"method":"SUBSCRIBE","params":["adausdt@ticker"],"id":1})"));
    connection_->failsSends = true;
    update({btc, ada, sol});
    EXPECT_THAT(takeCalls(),
                ElementsAre(R"(send {"method":"SUBSCRIBE","params":["solusdt@ticker"],"id":2})",
                            R"(send {"method":"UNSUBSCRIBE","params":["ethusdt@ticker"],"id":3})"));
    update({sol, ada});
    EXPECT_THAT(takeCalls(),
                ElementsAre(R"(send {"method":"UNSUBSCRIBE","params":["btcusdt@ticker"],"id":4})"));
}

TEST_F(StreamingClient, DeliversQuotesAndNothingElse) {
    update({btc});
    deliver("BTCUSDT", "1.10"); // nobody listens: dropped
    take(taken_);
    deliver(R"({"result":null,"id":1})");
    deliver("rubbish");
    deliver("ETHBTC", "1");
    deliver("BTCUSDT", "2.50");
    EXPECT_THAT(taken_.quotes, ElementsAre("BTC 2.5"));

    take(later_);
    EXPECT_TRUE(taken_.hasEnded) << "a new stream ends the one before";
    deliver("BTCUSDT", "3");
    EXPECT_THAT(later_.quotes, ElementsAre("BTC 3"));
    EXPECT_FALSE(later_.hasEnded);
}

TEST_F(StreamingClient, KeepsTheStreamThroughLossesAndAnEmptySet) {
    take(taken_);
    update({btc});
    lose();
    clock_.advance(1s);
    deliver("BTCUSDT", "1");
    update({});
    EXPECT_FALSE(connection_->isOpen());
    clock_.advance(1h);
    EXPECT_EQ(connection_->connections, 2) << "connected without any wanted pair";
    update({eth});
    deliver("ETHUSDT", "2");
    EXPECT_THAT(taken_.quotes, ElementsAre("BTC 1", "ETH 2"));
    EXPECT_FALSE(taken_.hasEnded);
}

TEST_F(StreamingClient, WaitsByItsPolicyUpToTheHundredthAttemptAndStartsOverAfterALoss) {
    connection_->failingConnects = 100;
    update({btc});
    for (int attempt = 1; attempt <= 100; ++attempt) {
        ASSERT_EQ(connection_->failingConnects, 100 - attempt);
        const auto next = clock_.untilNextTimer();
        ASSERT_TRUE(next) << "gave up after " << attempt;
        EXPECT_EQ(std::chrono::duration<double>(*next).count(), policy.delay(attempt, jitter_))
            << attempt;
        jitter_ = 0.25 * (attempt % 4);
        clock_.advance(*next);
    }
    EXPECT_EQ(connection_->connections, 1);
    jitter_ = 1;
    lose();
    EXPECT_EQ(clock_.untilNextTimer(), 750ms);
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
    letConnect();
    letConnect();
    take(taken_);
    deliver("ETHUSDT", "7");
    EXPECT_THAT(taken_.quotes, ElementsAre("ETH 7"));
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
    letConnect();
    EXPECT_FALSE(connection_->isOpen());
    EXPECT_EQ(clock_.timerCount(), 0u);
}

TEST_F(StreamingClient, EndsTheStreamAndForgetsThePairsWhenStopped) {
    take(taken_);
    update({btc});
    lose();
    run(client_->stop());
    EXPECT_TRUE(taken_.hasEnded);
    clock_.advance(1h);
    EXPECT_EQ(connection_->connections, 1);
    EXPECT_FALSE(connection_->isOpen());

    take(later_);
    update({btc});
    EXPECT_EQ(connection_->connections, 2);
    EXPECT_FALSE(later_.hasEnded);
}

TEST_F(StreamingClient, CanGoAtAnyMoment) {
    update({btc});
    lose();
    client_.reset();
    clock_.advance(1h);
    EXPECT_EQ(clock_.timerCount(), 0u);
}

TEST(BackoffPolicy, DoublesUpToHalfAMinuteForTheExchange) {
    constexpr BackoffPolicy inUse = BinanceProvider::backoff;
    const std::vector<double> doubled{1, 1, 2, 4, 8, 16};
    for (int attempt = 0; attempt <= 100; ++attempt) {
        const double base = attempt <= 5 ? doubled[static_cast<std::size_t>(attempt)] : 30;
        EXPECT_DOUBLE_EQ(inUse.delay(attempt, 0), base) << attempt;
        EXPECT_DOUBLE_EQ(inUse.delay(attempt, 0.5), std::min(base * 1.1, 30.0)) << attempt;
        EXPECT_DOUBLE_EQ(inUse.delay(attempt, 1), std::min(base * 1.2, 30.0)) << attempt;
    }
    EXPECT_EQ(inUse.delay(std::numeric_limits<int>::max(), 1), 30);
}

TEST(SystemJitter, SpreadsOverItsRange) {
    std::vector<double> values(200);
    std::ranges::generate(values, BinanceWebSocketClient::systemJitter());
    const auto [smallest, largest] = std::ranges::minmax(values);
    EXPECT_TRUE(smallest >= 0 && smallest < 0.2) << smallest;
    EXPECT_TRUE(largest > 0.8 && largest <= 1) << largest;
}
