#include "QuorvelKit/MarketData/URLSessionWebSocketConnection.h"

#include "Platform/Foundation/SystemClock.h"
#include "QuorvelKit/MarketData/WebSocketError.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/SimulatorProcess.h"

#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using platform::URLError;

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

class Connection : public testing::Test {
protected:
    void connect() { test::runTask(connection_.connect(url())); }

    QUrl url() const {
        QUrl url = simulator_.streamURL();
        url.setQuery(text("streams=btcusdt@ticker"));
        return url;
    }

    /// Connects and waits until both sides have seen the end of the handshake.
    void open() {
        connect();
        ASSERT_TRUE(test::waitUntil([&] { return openConnections() == 1; }));
        simulator_.control(text("frame"), {{text("text"), text("hello")}});
        ASSERT_EQ(test::runTask(connection_.receive()), QByteArray("hello"));
    }

    qsizetype openConnections() const {
        return simulator_.state()[u"connections"].toArray().size();
    }

    /// What a call fails with.
    template <typename T>
    std::optional<URLError::Code> errorCode(platform::Task<T> task) {
        try {
            test::runTask(std::move(task));
            return std::nullopt;
        } catch (const URLError& error) {
            return error.code();
        }
    }

    bool isNotConnected(auto task) {
        try {
            test::runTask(std::move(task));
            return false;
        } catch (const WebSocketError& error) {
            return error == WebSocketError(WebSocketError::Code::notConnected);
        }
    }

    /// The texts that the simulator has received.
    std::vector<std::string> receivedTexts() const {
        std::vector<std::string> texts;
        for (const QJsonObject& detail : simulator_.details(text("text")))
            texts.push_back(detail[u"text"].toString().toStdString());
        return texts;
    }

    test::SimulatorProcess simulator_;
    platform::SystemClock clock_;
    platform::URLSession session_{clock_};
    URLSessionWebSocketConnection connection_{session_};
};

TEST_F(Connection, FailsWithoutAnOpenTask) {
    EXPECT_TRUE(isNotConnected(connection_.receive()));
    EXPECT_TRUE(isNotConnected(connection_.send("x")));
    test::runTask(connection_.close());
    connect();
    test::runTask(connection_.close());
    test::runTask(connection_.close());
    EXPECT_TRUE(isNotConnected(connection_.receive()));
    EXPECT_TRUE(isNotConnected(connection_.send("x")));
}

TEST_F(Connection, GivesOneFrameAtATimeAsBytesAndKeepsWhatNobodyAskedFor) {
    open();
    simulator_.control(text("frame"), {{text("text"), text("Ä 全角 \"x\"")}});
    simulator_.control(text("frame"), {{text("binary"), text("AP+A")}});
    simulator_.control(text("frame"),
                       {{text("text"), text("in pieces: é")}, {text("fragments"), 4}});
    test::drainEvents();
    EXPECT_EQ(test::runTask(connection_.receive()), QByteArray("Ä 全角 \"x\""));
    EXPECT_EQ(test::runTask(connection_.receive()), QByteArray("\x00\xff\x80", 3));
    EXPECT_EQ(test::runTask(connection_.receive()), QByteArray("in pieces: é"));
}

TEST_F(Connection, SendsWhatWasHandedInDuringTheHandshakeInOrderAndWithinTheLimit) {
    connect();
    std::vector<std::unique_ptr<test::Running<void>>> sends;
    std::vector<std::string> expected;
    for (int id = 1; id <= 8; ++id) {
        const std::string frame =
            R"({"method":"LIST_SUBSCRIPTIONS","params":["é"],"id":)" + std::to_string(id) + "}";
        expected.push_back(frame);
        sends.push_back(std::make_unique<test::Running<void>>(connection_.send(frame)));
    }
    for (const auto& send : sends)
        EXPECT_NO_THROW(send->result());
    ASSERT_TRUE(test::waitUntil([&] { return receivedTexts().size() == expected.size(); }));
    EXPECT_EQ(receivedTexts(), expected);
    EXPECT_TRUE(simulator_.details(text("cutOff")).isEmpty());
}

TEST_F(Connection, ClosesAsOneThatGoesAway) {
    open();
    test::runTask(connection_.close());
    test::runTask(session_.finishClosing(platform::TimeInterval(2)));
    const auto closed = simulator_.waitForDetails(text("streamClosed"));
    ASSERT_EQ(closed.size(), 1);
    EXPECT_EQ(closed[0][u"code"].toInt(), 1001);
}

TEST_F(Connection, HasOneOpenTaskAfterConnectingTwice) {
    open();
    connect();
    const auto closed = simulator_.waitForDetails(text("streamClosed"));
    ASSERT_EQ(closed.size(), 1);
    EXPECT_EQ(closed[0][u"code"].toInt(), 1001);
    EXPECT_TRUE(test::waitUntil([&] {
        return simulator_.details(text("streamOpened")).size() == 2 && openConnections() == 1;
    }));
}

TEST_F(Connection, FailsAPendingReceiveWhenItIsClosed) {
    open();
    test::Running<QByteArray> receiving(connection_.receive());
    test::drainEvents();
    test::runTask(connection_.close());
    EXPECT_THROW(receiving.result(), URLError);
}

TEST_F(Connection, DropsAConnectionThatIsStillBeingOpenedWithoutAWord) {
    simulator_.control(text("handshake"), {{text("mode"), text("hang")}});
    connect();
    test::Running<void> sending(connection_.send("never sent"));
    test::Running<QByteArray> receiving(connection_.receive());
    ASSERT_TRUE(
        test::waitUntil([&] { return simulator_.details(text("handshakeHung")).size() == 1; }));
    test::runTask(connection_.close());
    EXPECT_THROW(sending.result(), URLError);
    EXPECT_THROW(receiving.result(), URLError);
    EXPECT_TRUE(receivedTexts().empty());
}

TEST_F(Connection, FailsWhenTheHandshakeIsRefused) {
    for (const int status : {403, 429, 451, 503}) {
        simulator_.control(text("handshake"),
                           {{text("mode"), text("refuse")}, {text("status"), status}});
        connect();
        test::Running<void> sending(connection_.send("x"));
        EXPECT_EQ(errorCode(connection_.receive()), URLError::Code::cannotConnect) << status;
        EXPECT_THROW(sending.result(), URLError);
    }
    simulator_.kill();
    connect();
    EXPECT_EQ(errorCode(connection_.receive()), URLError::Code::cannotConnect);
}

TEST_F(Connection, FailsAHandshakeThatIsNotOverAfterAMinute) {
    test::ManualClock clock;
    platform::URLSession session(clock);
    URLSessionWebSocketConnection connection(session);
    simulator_.control(text("handshake"), {{text("mode"), text("hang")}});
    test::runTask(connection.connect(url()));
    test::Running<QByteArray> receiving(connection.receive());
    ASSERT_TRUE(
        test::waitUntil([&] { return simulator_.details(text("handshakeHung")).size() == 1; }));
    clock.advance(59s);
    EXPECT_TRUE(receiving.isRunning());
    clock.advance(1s);
    try {
        receiving.result();
        ADD_FAILURE() << "received";
    } catch (const URLError& error) {
        EXPECT_EQ(error.code(), URLError::Code::timedOut);
    }
}

TEST_F(Connection, FailsWhenTheOtherSideGoesHoweverItGoes) {
    for (const char* how : {"close", "abort", "eof"}) {
        open();
        test::Running<QByteArray> receiving(connection_.receive());
        test::drainEvents();
        simulator_.control(text("frame"), {{text("text"), text("last words")}});
        simulator_.control(text("drop"), {{text("how"), text(how)}});
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
    simulator_.control(text("frame"), {{text("text"), QString(1024 * 1024, u'x')}});
    EXPECT_EQ(test::runTask(connection_.receive()).size(), 1024 * 1024);
    simulator_.control(text("frame"), {{text("text"), QString(1024 * 1024 + 1, u'x')}});
    EXPECT_TRUE(errorCode(connection_.receive()));
}

TEST_F(Connection, FailsOnFramesThatBreakTheProtocol) {
    open();
    simulator_.control(text("frame"), {{text("raw"), text("gwEA")}}); // a reserved kind of frame
    EXPECT_TRUE(errorCode(connection_.receive()));
}

} // namespace
