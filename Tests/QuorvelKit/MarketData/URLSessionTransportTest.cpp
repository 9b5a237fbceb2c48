#include "QuorvelKit/MarketData/URLSessionTransport.h"

#include "Platform/Foundation/SystemClock.h"
#include "QuorvelKit/MarketData/HTTPTransportError.h"
#include "Tests/Support/ManualClock.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/SimulatorProcess.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

using namespace quorvel;
using namespace std::chrono_literals;
using platform::URLError;

namespace {

class Transport : public testing::Test {
protected:
    static void SetUpTestSuite() { simulator = std::make_unique<test::SimulatorProcess>(); }
    static void TearDownTestSuite() { simulator.reset(); }
    void SetUp() override { simulator->control(QStringLiteral("reset")); }

    /// Makes the simulator answer the path "/x" so.
    static void answer(QJsonObject answer) {
        answer[u"path"] = QStringLiteral("/x");
        simulator->control(QStringLiteral("rest"), answer);
    }

    static QUrl url(const QString& path = QStringLiteral("/x")) {
        QUrl url = simulator->restURL();
        url.setPath(path);
        return url;
    }

    /// Absent where the transfer succeeds.
    std::optional<URLError::Code> errorCode(const QUrl& from) {
        try {
            test::runTask(transport_.get(from));
            return std::nullopt;
        } catch (const URLError& error) {
            EXPECT_FALSE(error.localizedDescription().isEmpty());
            return error.code();
        }
    }

    static inline std::unique_ptr<test::SimulatorProcess> simulator;
    test::ManualClock clock_;
    platform::URLSession session_{clock_};
    URLSessionTransport transport_{session_};
};

class TransportStatus : public Transport, public testing::WithParamInterface<int> {};

TEST_P(TransportStatus, TakesOnlyThe200sForSuccess) {
    const int status = GetParam();
    const bool hasBody = status != 204 && status != 304;
    answer({{QStringLiteral("status"), status},
            {QStringLiteral("body"), hasBody ? QStringLiteral("body") : QString()}});
    if (status >= 200 && status <= 299) {
        EXPECT_EQ(test::runTask(transport_.get(url())), QByteArray(hasBody ? "body" : ""));
        return;
    }
    try {
        test::runTask(transport_.get(url()));
        ADD_FAILURE() << "succeeded";
    } catch (const HTTPTransportError& error) {
        EXPECT_EQ(error, HTTPTransportError::requestFailed(status));
    }
}

INSTANTIATE_TEST_SUITE_P(Each, TransportStatus,
                         testing::Values(200, 201, 204, 299, 300, 304, 400, 401, 403, 404, 407, 418,
                                         429, 451, 500, 503, 599));

TEST_F(Transport, FollowsARedirectToAnEquallySafePlace) {
    answer({{QStringLiteral("status"), 302},
            {QStringLiteral("location"),
             QStringLiteral("/api/v3/klines?symbol=BTCUSDT&interval=1h&limit=1")}});
    EXPECT_TRUE(test::runTask(transport_.get(url())).startsWith("[["));
}

TEST_F(Transport, GivesUpARedirectThatGoesInCircles) {
    answer({{QStringLiteral("status"), 302}, {QStringLiteral("location"), QStringLiteral("/x")}});
    EXPECT_TRUE(errorCode(url()));
}

TEST_F(Transport, ReadsAChunkedBodyAndRefusesATruncatedOne) {
    answer({{QStringLiteral("body"), QStringLiteral("Ä全角")}, {QStringLiteral("chunked"), true}});
    EXPECT_EQ(test::runTask(transport_.get(url())), QByteArray("Ä全角"));
    answer({{QStringLiteral("body"), QString(5000, u'x')}, {QStringLiteral("truncate"), true}});
    EXPECT_EQ(errorCode(url()), URLError::Code::connectionLost);
}

TEST_F(Transport, RefusesABodyAbove64MiB) {
    simulator->control(QStringLiteral("exchangeInfo"), {{QStringLiteral("bytes"), 68'000'000}});
    EXPECT_EQ(errorCode(url(QStringLiteral("/api/v3/exchangeInfo"))), URLError::Code::dataTooLarge);
    simulator->control(QStringLiteral("exchangeInfo"), {{QStringLiteral("bytes"), 10'000'000}});
    EXPECT_GT(test::runTask(transport_.get(url(QStringLiteral("/api/v3/exchangeInfo")))).size(),
              9'000'000);
}

TEST_F(Transport, TimesOutAfterAMinuteWithoutProgress) {
    answer({{QStringLiteral("hang"), true}});
    test::Running<QByteArray> running(transport_.get(url()));
    ASSERT_TRUE(test::waitUntil([&] { return clock_.timerCount() == 1; }));
    simulator->waitForDetails(QStringLiteral("request"));
    clock_.advance(59s);
    EXPECT_TRUE(running.isRunning());
    clock_.advance(1s);
    try {
        running.result();
        ADD_FAILURE() << "succeeded";
    } catch (const URLError& error) {
        EXPECT_EQ(error.code(), URLError::Code::timedOut);
    }
}

TEST_F(Transport, EndsTheTransferWhenItIsCancelled) {
    answer({{QStringLiteral("hang"), true}});
    const auto before = simulator->log().size();
    test::Running<QByteArray> running(transport_.get(url()));
    test::waitUntil(
        [&] { return !simulator->details(QStringLiteral("request"), before).isEmpty(); });
    running.cancel();
    EXPECT_TRUE(test::waitUntil(
        [&] { return !simulator->details(QStringLiteral("abandoned"), before).isEmpty(); }));
    EXPECT_EQ(clock_.timerCount(), 0u);
}

TEST_F(Transport, PassesThePlatformsErrorsOn) {
    QUrl nobody = url();
    {
        const test::SimulatorProcess gone;
        nobody.setPort(gone.port());
    }
    EXPECT_EQ(errorCode(nobody), URLError::Code::cannotConnect);
    EXPECT_EQ(errorCode(QUrl(QStringLiteral("nothing:here"))), URLError::Code::unsupportedLocation);
}

TEST_F(Transport, CallsAnAnswerInvalidThatIsNotHTTP) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("content");
    file.close();
    try {
        test::runTask(transport_.get(QUrl::fromLocalFile(file.fileName())));
        ADD_FAILURE() << "succeeded";
    } catch (const HTTPTransportError& error) {
        EXPECT_EQ(error, HTTPTransportError::invalidResponse());
    }
}

} // namespace
