// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/Binance/PacedConnection.h"

#include "QuorvelKit/MarketData/URLSessionWebSocketConnection.h"
#include "Tests/QuorvelKit/MarketData/ScriptedConnection.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/MarketSamples.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/SimulatorProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;
using platform::URLError;
using testing::ElementsAre;
using Kind = ConnectionEvent::Kind;

namespace {

class Paced : public testing::Test {
protected:
    explicit Paced(std::vector<int> ports = {}) : paced_(collaborators(), std::move(ports)) {
        auto scripted = std::make_unique<ScriptedConnection>();
        connection_ = scripted.get();
        paced_.pace(std::move(scripted));
    }

    PacedConnection::Collaborators collaborators() {
        return {.session = session_,
                .gate = gate_,
                .clock = clock_,
                .report = [this](const ConnectionEvent& event) { events_.push_back(event); },
                .lastHeard = lastHeard_};
    }

    void connect() {
        runTask(paced_.connect(QUrl(QStringLiteral("ws://127.0.0.1:1/stream?streams=a"))));
        drainEvents();
    }

    /// Lets the open connection fail.
    void fail(URLError::Code code) {
        Running<QByteArray> receiving(paced_.receive());
        drainEvents();
        connection_->lose(std::make_exception_ptr(URLError(code, QStringLiteral("why"))));
        EXPECT_THROW(receiving.result(), URLError);
    }

    QByteArray receive(const QByteArray& frame) {
        Running<QByteArray> receiving(paced_.receive());
        drainEvents();
        connection_->deliver(frame);
        return receiving.result();
    }

    /// How long it takes until the next attempt, after one that ended so.
    std::chrono::milliseconds pauseAfter(URLError::Code code) {
        fail(code);
        const int before = connection_->connections;
        connect();
        std::chrono::milliseconds passed = 0ms;
        for (; connection_->connections == before && passed < 2min; passed += 100ms)
            clock_.advance(100ms);
        return passed;
    }

    ManualClock clock_;
    platform::URLSession session_{clock_};
    ExchangeClock exchangeClock_{clock_};
    std::vector<ConnectionEvent> events_;
    std::shared_ptr<std::atomic<std::int64_t>> lastHeard_ =
        std::make_shared<std::atomic<std::int64_t>>();
    ExchangeGate gate_{clock_, exchangeClock_};
    PacedConnection paced_;
    ScriptedConnection* connection_ = nullptr;
};

TEST_F(Paced, AttemptsAreASecondApartAndFiveAfterTwentyInVain) {
    connect();
    EXPECT_EQ(connection_->connections, 1) << "the first at once";
    for (int attempt = 2; attempt <= 20; ++attempt)
        EXPECT_EQ(pauseAfter(URLError::Code::connectionLost), 1s) << attempt;
    EXPECT_EQ(pauseAfter(URLError::Code::timedOut), 5s);
    EXPECT_EQ(pauseAfter(URLError::Code::refused), 5s);
    paced_.heard();
    EXPECT_EQ(pauseAfter(URLError::Code::connectionLost), 5s) << "it was dropped at once";
    paced_.heard();
    clock_.advance(10s);
    paced_.heard();
    EXPECT_EQ(pauseAfter(URLError::Code::connectionLost), 0s) << "it worked, and long ago";
    EXPECT_EQ(pauseAfter(URLError::Code::connectionLost), 1s);
}

TEST_F(Paced, AttemptsThatReachNobodyDoNotCount) {
    connect();
    for (int attempt = 2; attempt <= 30; ++attempt)
        EXPECT_EQ(pauseAfter(URLError::Code::cannotConnect), 1s) << attempt;
}

TEST_F(Paced, WaitsWhereTheExchangeWantsSilence) {
    connect();
    gate_.heard({.body = {}, .statusCode = 418, .headers = {{"Retry-After", "90"}}});
    EXPECT_EQ(pauseAfter(URLError::Code::connectionLost), 90s);
}

TEST_F(Paced, WhoSendsAndReceivesWaitsForTheAttempt) {
    connect();
    fail(URLError::Code::connectionLost);
    connect();
    Running<void> sending(paced_.send(R"({"method":"SUBSCRIBE","params":["a"],"id":1})"));
    Running<QByteArray> receiving(paced_.receive());
    drainEvents();
    EXPECT_TRUE(sending.isRunning());
    clock_.advance(1s);
    sending.result();
    connection_->deliver("frame");
    EXPECT_EQ(receiving.result(), "frame");
    EXPECT_EQ(lastHeard_->load(), clock_.uptime().count());

    fail(URLError::Code::connectionLost);
    connect();
    Running<QByteArray> givenUp(paced_.receive());
    drainEvents();
    runTask(paced_.close());
    EXPECT_THROW(givenUp.result(), URLError);
    const int before = connection_->connections;
    clock_.advance(10s);
    EXPECT_EQ(connection_->connections, before) << "the attempt is off";
}

TEST_F(Paced, TellsWhenItOpensAndWhyItIsLost) {
    connect();
    EXPECT_TRUE(events_.empty());
    receive("frame");
    EXPECT_EQ(events_.size(), 1U);
    receive("frame");
    fail(URLError::Code::connectionLost);
    ASSERT_EQ(events_.size(), 2U);
    EXPECT_EQ(events_[0].kind, Kind::opened);
    EXPECT_EQ(events_[1].kind, Kind::lost);
    EXPECT_EQ(events_[1].reason, QStringLiteral("why"));
}

TEST_F(Paced, ARefusedCommandLeadsToOneFreshConnectionThenToSingles) {
    const std::string command =
        R"({"method":"SUBSCRIBE","params":["goodusdt@ticker","badusdt@ticker"],"id":7})";
    connect();
    runTask(paced_.send(command));
    EXPECT_THROW(receive(R"({"code":2,"msg":"no","id":7})"), URLError);
    clock_.advance(1s);
    connect();
    runTask(paced_.send(command));
    runTask(paced_.send(R"({"method":"SUBSCRIBE","params":["x"],"id":8})"));
    receive(R"({"result":null,"id":8})");
    connection_->calls.clear();
    receive(R"({"error":{"code":2,"msg":"no"}})"); // of the oldest, where it does not say
    clock_.advance(2s);
    EXPECT_THAT(
        connection_->calls,
        ElementsAre(R"(send {"method":"SUBSCRIBE","params":["goodusdt@ticker"],"id":1000000000})",
                    R"(send {"method":"SUBSCRIBE","params":["badusdt@ticker"],"id":1000000001})"));
    receive(R"({"result":null,"id":1000000000})");
    receive(R"({"code":2,"msg":"no","id":1000000001})");
    EXPECT_EQ(events_.back().kind, Kind::untraded);
    EXPECT_THAT(events_.back().pairs, ElementsAre(Symbol{"BAD", "USDT"}));
}

class PacedByPort : public Paced {
protected:
    PacedByPort() : Paced({9443, 443}) {}

    int port() const { return QUrl(connection_->urls.back()).port(); }
};

TEST_F(PacedByPort, TriesThePortsByTurnsAndKeepsTheOneThatWorks) {
    connect();
    EXPECT_EQ(port(), 9443);
    for (const int next : {443, 9443, 443}) {
        pauseAfter(URLError::Code::timedOut);
        EXPECT_EQ(port(), next);
    }
    paced_.heard();
    pauseAfter(URLError::Code::connectionLost);
    EXPECT_EQ(port(), 443);
}

TEST(PacedStream, AsksWhyItWasRefused) {
    SimulatorProcess simulator;
    simulator.control("handshake",
                      R"({"mode":"refuse","status":429,"headers":{"Retry-After":"7"}})");
    ManualClock clock;
    platform::URLSession session(clock);
    ExchangeClock exchangeClock(clock);
    ExchangeGate gate(clock, exchangeClock);
    PacedConnection paced({.session = session, .gate = gate, .clock = clock});
    paced.pace(std::make_unique<URLSessionWebSocketConnection>(session));
    runTask(paced.connect(simulator.streamURL()));
    const auto error = errorOf<URLError>(paced.receive());
    ASSERT_TRUE(error);
    EXPECT_EQ(error->statusCode(), 429);
    ASSERT_TRUE(waitUntil([&] { return gate.silentUntil().has_value(); }));
    EXPECT_EQ(gate.silentUntil(), clock.bootTime() + 7s);
}

} // namespace
