// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/URLSessionWebSocketConnection.h"

#include "Platform/Foundation/SystemClock.h"
#include "QuorvelKit/MarketData/WebSocketError.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/SimulatorProcess.h"

#include <gtest/gtest.h>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;
using platform::URLError;
using Code = URLError::Code;

namespace {

class Connection : public testing::Test {
protected:
    QUrl url() const {
        return QUrl(simulator_.streamURL().toString() + QStringLiteral("?streams=btcusdt@ticker"));
    }

    void connect() { runTask(connection_.connect(url())); }

    /// Connects and waits until both sides have seen the end of the handshake.
    void open() {
        connect();
        ASSERT_TRUE(waitUntil([&] { return simulator_.connectionCount() == 1; }));
        simulator_.control("frame", R"({"text":"hello"})");
        ASSERT_EQ(receive(), QByteArray("hello"));
    }

    QByteArray receive() { return runTask(connection_.receive()); }

    /// What a call fails with.
    std::optional<Code> errorCode(auto task) {
        const auto error = errorOf<URLError>(std::move(task));
        return error ? std::optional(error->code()) : std::nullopt;
    }

    void expectNotConnected() {
        const WebSocketError expected(WebSocketError::Code::notConnected);
        EXPECT_EQ(errorOf<WebSocketError>(connection_.receive()), expected);
        EXPECT_EQ(errorOf<WebSocketError>(connection_.send("x")), expected);
    }

    /// Has the simulator leave handshakes unanswered, and starts one.
    void hang(URLSessionWebSocketConnection& connection) {
        simulator_.control("handshake", R"({"mode":"hang"})");
        runTask(connection.connect(url()));
    }

    bool isHanging() const {
        return waitUntil(
            [this] { return simulator_.details(QStringLiteral("handshakeHung")).size() == 1; });
    }

    /// The texts that the simulator has received.
    std::vector<std::string> receivedTexts() const {
        std::vector<std::string> texts;
        for (const QJsonObject& detail : simulator_.details(QStringLiteral("text")))
            texts.push_back(detail[u"text"].toString().toStdString());
        return texts;
    }

    SimulatorProcess simulator_;
    platform::SystemClock clock_;
    platform::URLSession session_{clock_};
    URLSessionWebSocketConnection connection_{session_};
};

TEST_F(Connection, FailsWithoutAnOpenTask) {
    expectNotConnected();
    runTask(connection_.close());
    connect();
    runTask(connection_.close());
    runTask(connection_.close());
    expectNotConnected();
}

TEST_F(Connection, GivesOneFrameAtATimeAsBytesAndKeepsWhatNobodyAskedFor) {
    open();
    simulator_.control("frame", R"({"text":"Ä 全角 \"x\""})");
    simulator_.control("frame", R"({"binary":"AP+A"})");
    drainEvents();
    EXPECT_EQ(receive(), QByteArray("Ä 全角 \"x\""));
    EXPECT_EQ(receive(), QByteArray("\x00\xff\x80", 3));
}

TEST_F(Connection, SendsWhatWasHandedInDuringTheHandshakeInOrderAndSpaced) {
    ManualClock clock;
    platform::URLSession session(clock);
    URLSessionWebSocketConnection connection(session, 200ms);
    runTask(connection.connect(url()));
    Running<void> first(connection.send(R"({"method":"LIST_SUBSCRIPTIONS","id":1})"));
    Running<void> second(connection.send(R"({"method":"é","id":2})"));
    Running<void> third(connection.send(R"({"method":"é","id":3})"));
    first.result();
    clock.advance(199ms);
    EXPECT_TRUE(second.isRunning());
    clock.advance(1ms);
    second.result();
    EXPECT_TRUE(third.isRunning());
    clock.advance(200ms);
    third.result();
    ASSERT_TRUE(waitUntil([&] { return receivedTexts().size() == 3; }));
    EXPECT_EQ(receivedTexts().back(), R"({"method":"é","id":3})");
}

TEST_F(Connection, ClosesAsOneThatGoesAwayAndFailsAPendingReceive) {
    open();
    Running<QByteArray> receiving(connection_.receive());
    drainEvents();
    runTask(connection_.close());
    EXPECT_THROW(receiving.result(), URLError);
    runTask(session_.finishClosing(2s));
    EXPECT_EQ(simulator_.closeCode(), 1001);
}

TEST_F(Connection, HasOneOpenTaskAfterConnectingTwice) {
    open();
    connect();
    EXPECT_EQ(simulator_.closeCode(), 1001);
    EXPECT_TRUE(waitUntil([&] {
        return simulator_.details(QStringLiteral("streamOpened")).size() == 2 &&
               simulator_.connectionCount() == 1;
    }));
}

TEST_F(Connection, DropsAConnectionThatIsStillBeingOpenedWithoutAWord) {
    hang(connection_);
    Running<void> sending(connection_.send("never sent"));
    Running<QByteArray> receiving(connection_.receive());
    ASSERT_TRUE(isHanging());
    runTask(connection_.close());
    EXPECT_THROW(sending.result(), URLError);
    EXPECT_THROW(receiving.result(), URLError);
    EXPECT_TRUE(receivedTexts().empty());
}

TEST_F(Connection, FailsWhenTheHandshakeIsRefused) {
    simulator_.control("handshake", R"({"mode":"refuse","status":451})");
    connect();
    Running<void> sending(connection_.send("x"));
    EXPECT_EQ(errorCode(connection_.receive()), Code::refused);
    EXPECT_THROW(sending.result(), URLError);
}

TEST_F(Connection, FailsAHandshakeThatIsNotOverAfterAQuarterOfAMinute) {
    ManualClock clock;
    platform::URLSession session(clock);
    URLSessionWebSocketConnection connection(session);
    hang(connection);
    Running<QByteArray> receiving(connection.receive());
    ASSERT_TRUE(isHanging());
    clock.advance(14s);
    EXPECT_TRUE(receiving.isRunning());
    clock.advance(1s);
    EXPECT_THROW(receiving.result(), URLError);
}

TEST_F(Connection, AsksASilentOtherSideWhetherItIsThere) {
    ManualClock clock;
    platform::URLSession session(clock);
    const auto task = session.webSocketTask(url());
    int pongs = -1; // the handshake's end is a sign, too
    task->setSignOfLifeHandler([&] { ++pongs; });
    task->resume();
    ASSERT_TRUE(waitUntil([&] { return clock.untilNextTimer() == 8s; })) << "open";
    for (const int asked : {1, 2}) {
        clock.advance(7999ms);
        EXPECT_EQ(pongs, asked - 1);
        clock.advance(1ms);
        ASSERT_TRUE(waitUntil([&] { return pongs == asked; }));
    }
    simulator_.control("frame", R"({"text":"hello"})");
    ASSERT_TRUE(waitUntil([&] { return task->receive().isReady(); }));
    simulator_.control("silence", R"({"silent":true})");
    clock.advance(15999ms);
    EXPECT_EQ(simulator_.details(QStringLiteral("ping")).size(), 3);
    task->receive().take();
    EXPECT_FALSE(task->receive().isReady());
    clock.advance(1ms);
    EXPECT_THROW(task->receive().take(), URLError);
}

TEST_F(Connection, FailsWhenTheOtherSideGoesHoweverItGoes) {
    for (const char* how : {"close", "abort", "eof"}) {
        open();
        Running<QByteArray> receiving(connection_.receive());
        drainEvents();
        simulator_.control("frame", R"({"text":"last words"})");
        simulator_.control("drop", QByteArray(R"({"how":")") + how + "\"}");
        try {
            EXPECT_EQ(receiving.result(), QByteArray("last words")) << how;
            EXPECT_TRUE(errorCode(connection_.receive())) << how;
        } catch (const URLError&) {
            EXPECT_EQ(std::string_view(how), "abort") << "only a reset may overtake a frame";
        }
        EXPECT_TRUE(errorCode(connection_.receive())) << how << ": keeps failing";
        EXPECT_TRUE(errorCode(connection_.send("x"))) << how;
    }
}

TEST_F(Connection, RefusesAMessageAboveOneMiB) {
    open();
    const QByteArray largest(1024 * 1024, 'x');
    simulator_.control("frame", R"({"text":")" + largest + "\"}");
    EXPECT_EQ(receive().size(), largest.size());
    simulator_.control("frame", R"({"text":"x)" + largest + "\"}");
    EXPECT_TRUE(errorCode(connection_.receive()));
}

} // namespace
