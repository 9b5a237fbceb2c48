// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "QuorvelKit/MarketData/URLSessionTransport.h"

#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/SimulatorProcess.h"

#include <QSslConfiguration>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <csignal>

using namespace quorvel;
using namespace test;
using namespace std::chrono_literals;
using platform::URLError;
using Code = URLError::Code;

namespace {

class Transport : public testing::Test {
protected:
    /// The simulator's address with that path.
    QUrl url(const char* path = "/x") const {
        return QUrl(simulator_.restURL().toString() + QString::fromLatin1(path));
    }

    /// The members of a "rest" control without the path.
    void setAnswer(const QByteArray& members) const {
        simulator_.control("rest", R"({"path":"/x",)" + members + "}");
    }

    std::optional<Code> errorCode(const QUrl& from) {
        const auto error = errorOf<URLError>(transport_.get(from));
        return error ? std::optional(error->code()) : std::nullopt;
    }

    SimulatorProcess simulator_;
    ManualClock clock_;
    platform::URLSession session_{clock_};
    URLSessionTransport transport_{session_};
};

TEST_F(Transport, TakesOnlyThe200sForSuccess) {
    for (const int status : {200, 204, 299}) {
        setAnswer(R"("body":"","status":)" + QByteArray::number(status));
        EXPECT_EQ(runTask(transport_.get(url())), QByteArray()) << status;
    }
    for (const int status : {300, 304, 401, 407, 418, 429, 451, 503}) {
        setAnswer(R"("body":"","status":)" + QByteArray::number(status));
        EXPECT_EQ(errorOf<HTTPTransportError>(transport_.get(url())),
                  HTTPTransportError::requestFailed(status));
    }
}

TEST_F(Transport, GivesAWholeBodyOrNone) {
    setAnswer(R"("body":"Ä全角","chunked":true)");
    EXPECT_EQ(runTask(transport_.get(url())), QByteArray("Ä全角"));
    setAnswer(R"("truncate":true,"body":")" + QByteArray(1000, 'x') + "\"");
    EXPECT_EQ(errorCode(url()), Code::connectionLost);
    setAnswer(R"("status":302,"location":"/x")");
    EXPECT_TRUE(errorCode(url())) << "goes round in circles";
}

TEST_F(Transport, RefusesABodyAbove64MiB) {
    const QUrl list = url("/api/v3/exchangeInfo");
    simulator_.control("exchangeInfo", R"({"bytes":68000000})");
    EXPECT_EQ(errorCode(list), Code::dataTooLarge);
    simulator_.control("exchangeInfo", R"({"bytes":10000000})");
    EXPECT_GT(runTask(transport_.get(list)).size(), 9'000'000);
}

TEST_F(Transport, TimesOutAfterAQuarterOfAMinuteWithoutProgress) {
    setAnswer(R"("hang":true)");
    Running<QByteArray> running(transport_.get(url()));
    ASSERT_TRUE(waitUntil([&] { return clock_.timerCount() > 0; }));
    clock_.advance(14s);
    EXPECT_TRUE(running.isRunning());
    clock_.advance(1s);
    EXPECT_THROW(running.result(), URLError);
}

/// A server of HTTP/2, which needs encryption, with a certificate that is trusted while this lives.
class HTTP2Server {
public:
    HTTP2Server() {
        ChildProcess maker;
        maker.start({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-batch",
                     "-keyout", path("key"), "-out", path("certificate"), "-subj", "/CN=x",
                     "-addext", "subjectAltName=IP:127.0.0.1"});
        EXPECT_EQ(maker.waitForEnd(30s), 0);
        auto trusting = before_;
        trusting.addCaCertificates(QString::fromStdString(path("certificate")));
        QSslConfiguration::setDefaultConfiguration(trusting);
        QTcpServer place;
        EXPECT_TRUE(place.listen(QHostAddress::LocalHost));
        port_ = place.serverPort();
        place.close();
        process_.start({"nghttpd", "-v", "-a", "127.0.0.1", "-d", path(""), std::to_string(port_),
                        path("key"), path("certificate")});
        while (!process_.readLine(10s).contains("listen")) {
        }
    }
    ~HTTP2Server() { QSslConfiguration::setDefaultConfiguration(before_); }
    Q_DISABLE_COPY_MOVE(HTTP2Server)

    QUrl url() const { return QUrl(QStringLiteral("https://127.0.0.1:%1/certificate").arg(port_)); }

    void sendSignal(int number) const { process_.sendSignal(number); }

    /// Whether so many connections come to be.
    bool isConnectedTimes(int count) const {
        const std::string sign = "[id=" + std::to_string(count) + "]";
        for (std::string line = "x"; !line.empty(); line = process_.readLine(2s)) {
            if (line.contains(sign))
                return true;
        }
        return false;
    }

private:
    std::string path(const char* name) const {
        return directory_.filePath(QString::fromLatin1(name)).toStdString();
    }

    QSslConfiguration before_ = QSslConfiguration::defaultConfiguration();
    QTemporaryDir directory_;
    ChildProcess process_;
    quint16 port_ = 0;
};

TEST_F(Transport, UsesNoConnectionAgainThatHasFallenMute) {
    const HTTP2Server server;
    runTask(transport_.get(server.url()));
    runTask(transport_.get(server.url()));
    server.sendSignal(SIGSTOP);
    Running<QByteArray> unanswered(transport_.get(server.url()));
    ASSERT_TRUE(waitUntil([&] { return clock_.timerCount() > 0; }));
    clock_.advance(15s);
    EXPECT_THROW(unanswered.result(), URLError);
    server.sendSignal(SIGCONT);
    EXPECT_FALSE(runTask(transport_.get(server.url())).isEmpty());
    EXPECT_TRUE(server.isConnectedTimes(2));
}

TEST_F(Transport, EndsTheTransferWhenItIsCancelled) {
    setAnswer(R"("hang":true)");
    Running<QByteArray> running(transport_.get(url()));
    const auto happens = [this](const char* kind) {
        return waitUntil([&] { return !simulator_.details(QString::fromLatin1(kind)).isEmpty(); });
    };
    ASSERT_TRUE(happens("request"));
    running.cancel();
    EXPECT_TRUE(happens("abandoned"));
    EXPECT_EQ(clock_.timerCount(), 0u);
}

TEST_F(Transport, PassesThePlatformsErrorsOn) {
    simulator_.kill();
    EXPECT_EQ(errorCode(url()), Code::cannotConnect);
    EXPECT_EQ(errorCode(QUrl(QStringLiteral("nothing:here"))), Code::unsupportedLocation);
}

TEST_F(Transport, CallsAnAnswerInvalidThatIsNotHTTP) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("content");
    file.close();
    EXPECT_EQ(errorOf<HTTPTransportError>(transport_.get(QUrl::fromLocalFile(file.fileName()))),
              HTTPTransportError::invalidResponse());
}

} // namespace
