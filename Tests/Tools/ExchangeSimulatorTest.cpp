// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Tools/ExchangeSimulatorFixture.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <random>
#include <set>

using namespace test;
using namespace std::chrono_literals;
using End = RawClient::End;
using Frame = RawClient::Frame;

namespace {

constexpr auto shortWhile = 150ms;

class ExchangeSimulator : public ExchangeSimulatorTest {
protected:
    static void expectCutOff(RawClient& client, int code) {
        std::optional<Frame> frame = client.nextFrame();
        while (frame && frame->opcode != 8)
            frame = client.nextFrame();
        ASSERT_TRUE(frame);
        EXPECT_EQ(frame->closeCode(), code);
        EXPECT_EQ(client.waitForEnd(), End::fin);
    }
};

TEST_F(ExchangeSimulator, PushReachesSubscribersAtOnceAndLaterSnapshots) {
    const auto bitcoin = stream();
    const auto ether = stream("/stream?streams=ethusdt@ticker/BTCUSDT@ticker");
    control("push", R"({"symbol":"BTCUSDT","price":"101.00","change":"1.5","time":1700000000123})");

    const QJsonObject event = nextEvent(*bitcoin);
    EXPECT_EQ(text(event[u"e"]), u"24hrTicker");
    EXPECT_EQ(event[u"E"].toInteger(), 1700000000123);
    EXPECT_EQ(text(event[u"c"]), u"101.00");
    EXPECT_EQ(text(event[u"P"]), u"1.5");
    EXPECT_EQ(event.keys().join(u' '), u"A B C E F L O P Q a b c e h l n o p q s v w x");
    EXPECT_EQ(ether->nextFrame(shortWhile), std::nullopt);

    const RawClient::Answer answer = get(R"(/api/v3/ticker/24hr?symbols=%5B%22BTCUSDT%22%5D)");
    const QJsonObject snapshot = array(answer.body).first().toObject();
    EXPECT_EQ(text(snapshot[u"symbol"]), u"BTCUSDT");
    EXPECT_EQ(text(snapshot[u"lastPrice"]), u"101.00");
    EXPECT_EQ(text(snapshot[u"priceChangePercent"]), u"1.5");
}

TEST_F(ExchangeSimulator, SameSeedGivesTheSameWalk) {
    const auto walk = [] {
        const SimulatorProcess process({QStringLiteral("--pairs"), QStringLiteral("BTCUSDT"),
                                        QStringLiteral("--seed"), QStringLiteral("7")});
        RawClient client(process.port());
        client.handshake(bitcoinStream);
        process.control("limits", R"({"tickerIntervalMs":5})");
        process.control("walk", R"({"running":true})");
        QStringList prices;
        for (int i = 0; i < 20; ++i)
            prices += text(nextEvent(client)[u"c"]);
        return prices;
    };
    const QStringList prices = walk();
    EXPECT_EQ(walk(), prices);
    EXPECT_GT(std::set(prices.begin(), prices.end()).size(), 15u);
}

TEST_F(ExchangeSimulator, AnswersCommands) {
    control("limits", R"({"messagesPerSecond":100})");
    const auto client = stream();
    const std::pair<const char*, const char*> commands[] = {
        {R"({"method":"SUBSCRIBE","params":["ethusdt@ticker"],"id":1})",
         R"({"result":null,"id":1})"},
        {R"({"method":"UNSUBSCRIBE","params":["btcusdt@ticker"],"id":9007199254740993})",
         R"({"result":null,"id":9007199254740993})"},
        {R"({"method":"LIST_SUBSCRIPTIONS","id":0})", R"({"result":["ethusdt@ticker"],"id":0})"},
        {R"({"method":"subscribe","params":["ethusdt@ticker"],"id":4})",
         R"({"code":2,"id":4,"msg":"Invalid request: unknown method"})"},
        {R"({"method":"SUBSCRIBE","params":[],"id":5})",
         R"({"code":2,"id":5,"msg":"Invalid request: params must be stream names"})"},
        {R"({"method":"SUBSCRIBE","params":["ethusdt@ticker"],"id":-1})",
         R"({"code":2,"msg":"Invalid request: request ID must be an unsigned integer"})"},
        {"nonsense", R"({"code":3,"msg":"Invalid JSON: expected an object"})"}};
    for (const auto& [sent, answered] : commands) {
        client->sendText(sent);
        EXPECT_EQ(next(*client).payload, answered) << sent;
        EXPECT_EQ(text(logged("text").last()[u"text"]).toUtf8(), sent);
    }
    control("push", R"({"symbol":"BTCUSDT","price":"1"})");
    control("push", R"({"symbol":"ETHUSDT","price":"2"})");
    EXPECT_EQ(text(nextEvent(*client)[u"s"]), u"ETHUSDT");
}

TEST_F(ExchangeSimulator, CutsOffTheSixthMessageInASecond) {
    for (const int opcode : {1, 9, 10}) {
        const auto client = stream();
        for (int i = 0; i < 5; ++i)
            client->sendFrame(opcode, "x");
        QThread::msleep(1050);
        for (int i = 0; i < 5; ++i)
            client->sendFrame(opcode, "x");
        EXPECT_EQ(simulator.connectionCount(), 1) << opcode;
        client->sendFrame(opcode, "x");
        expectCutOff(*client, 1008);
        EXPECT_EQ(text(logged("cutOff").last()[u"reason"]), u"too many messages");
    }
}

TEST_F(ExchangeSimulator, CutsOffWhoDoesNotReturnAPing) {
    control("limits", R"({"pingIntervalMs":100,"pongDeadlineMs":250,"messagesPerSecond":50})");
    const auto deaf = stream();
    const auto wrong = stream();
    const auto good = stream();
    for (int i = 0; i < 6; ++i) {
        const Frame ping = next(*good);
        ASSERT_EQ(ping.opcode, 9);
        ASSERT_FALSE(ping.payload.isEmpty());
        good->sendFrame(10, ping.payload);
        wrong->sendFrame(10, "wrong");
    }
    expectCutOff(*deaf, 1008);
    expectCutOff(*wrong, 1008);
    EXPECT_EQ(simulator.connectionCount(), 1);
}

TEST_F(ExchangeSimulator, EnforcesTheOtherLimits) {
    control("limits", R"({"streamsPerConnection":2,"connectionAttempts":3,"lifetimeMs":400})");
    expectCutOff(*stream("/stream?streams=a@ticker/b@ticker/c@ticker"), 1008);
    const auto subscriber = stream("/stream?streams=a@ticker/b@ticker");
    subscriber->sendText(R"({"method":"SUBSCRIBE","params":["c@ticker"],"id":1})");
    expectCutOff(*subscriber, 1008);
    expectCutOff(*stream(), 1001);
    EXPECT_TRUE(RawClient(simulator.port()).handshake(bitcoinStream).startsWith("HTTP/1.1 429 "));
    EXPECT_ANY_THROW(control("limits", R"({"pingIntervalMs":0})"));
    EXPECT_ANY_THROW(control("limits", R"({"pingInterval":5})"));
}

TEST_F(ExchangeSimulator, SendsAnyFrame) {
    const auto client = stream();
    control("frame", R"({"text":"abcdefg","fragments":3})");
    EXPECT_EQ(next(*client), (Frame{false, 1, "ab"}));
    EXPECT_EQ(next(*client), (Frame{false, 0, "cd"}));
    EXPECT_EQ(next(*client), (Frame{true, 0, "efg"}));
    control("frame", R"({"binary":"AAEC"})");
    EXPECT_EQ(next(*client), (Frame{true, 2, QByteArray("\0\1\2", 3)}));
    control("frame", R"({"raw":"jwNhYmM="})");
    EXPECT_EQ(next(*client), (Frame{true, 15, "abc"}));
    for (const qsizetype size : {125, 126, 65535, 65536}) {
        const QByteArray payload(size, 'x');
        control("frame", R"({"text":")" + payload + "\"}");
        EXPECT_EQ(next(*client), (Frame{true, 1, payload})) << size;
    }
}

TEST_F(ExchangeSimulator, DropsConnectionsInThreeWays) {
    const auto closed = stream();
    control("drop", R"({"how":"close","code":1012})");
    expectCutOff(*closed, 1012);
    const auto ended = stream();
    control("drop", R"({"how":"eof"})");
    EXPECT_EQ(ended->waitForEnd(), End::fin);
    EXPECT_EQ(ended->nextFrame(0ms), std::nullopt);
    const auto aborted = stream();
    control("drop", R"({"how":"abort"})");
    EXPECT_EQ(aborted->waitForEnd(), End::reset);
    EXPECT_EQ(simulator.connectionCount(), 0);
}

TEST_F(ExchangeSimulator, WaitsForTheAnswerToItsCloseFrame) {
    const auto client = stream();
    control("close", R"({"code":4321,"reason":"maintenance"})");
    const Frame frame = next(*client);
    EXPECT_EQ(frame.closeCode(), 4321);
    EXPECT_EQ(frame.payload.mid(2), "maintenance");
    EXPECT_EQ(client->waitForEnd(shortWhile), End::open);
    client->sendFrame(8, frame.payload);
    EXPECT_EQ(client->waitForEnd(), End::fin);
}

TEST_F(ExchangeSimulator, LogsHowAClientWent) {
    const auto polite = stream();
    polite->sendFrame(8, QByteArray("\x03\xe9gone", 6));
    expectCutOff(*polite, 1001);
    EXPECT_EQ(logged("streamClosed", 1).last()[u"code"].toInt(), 1001);
    EXPECT_EQ(text(logged("streamClosed", 1).last()[u"reason"]), u"gone");
    stream()->end();
    EXPECT_EQ(text(logged("streamClosed", 2).last()[u"endedBy"]), u"fin");
    EXPECT_TRUE(logged("streamClosed", 2).last()[u"code"].isNull());
    stream()->reset();
    EXPECT_EQ(text(logged("streamClosed", 3).last()[u"endedBy"]), u"reset");
}

TEST_F(ExchangeSimulator, SilenceKeepsSocketsOpenAndSendsNothing) {
    control("limits", R"({"pingIntervalMs":50,"pongDeadlineMs":50})");
    control("silence", R"({"silent":true})");
    const auto client = stream();
    control("push", R"({"symbol":"BTCUSDT","price":"1"})");
    control("close", R"({"code":1000})");
    for (int i = 0; i < 8; ++i)
        client->sendFrame(9, "are you there");
    client->sendFrame(8, {});
    EXPECT_EQ(client->nextFrame(300ms), std::nullopt);
    EXPECT_EQ(client->waitForEnd(0ms), End::open);
    control("silence", R"({"silent":false})");
    EXPECT_EQ(next(*client).opcode, 9);
}

TEST_F(ExchangeSimulator, RefusesAndHangsHandshakesAsOftenAsTold) {
    control("handshake", R"({"mode":"refuse","status":451,"count":2})");
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(
            RawClient(simulator.port()).handshake(bitcoinStream).startsWith("HTTP/1.1 451 "));
    control("handshake", R"({"mode":"hang","count":1})");
    RawClient hanging(simulator.port());
    EXPECT_EQ(hanging.handshake(bitcoinStream, shortWhile), "");
    EXPECT_EQ(hanging.waitForEnd(0ms), End::open);
    stream();
    EXPECT_EQ(logged("handshakeRefused").size(), 2);
    EXPECT_EQ(control("state")[u"handshakes"].toInt(), 4);
}

TEST_F(ExchangeSimulator, ResetPutsEverythingRight) {
    control("limits", R"({"pingIntervalMs":50})");
    control("handshake", R"({"mode":"refuse"})");
    control("silence", R"({"silent":true})");
    control("rest", R"({"path":"/api/v3/exchangeInfo","status":500})");
    control("reset");
    EXPECT_EQ(control("state")[u"limits"][u"pingIntervalMs"].toInt(), 20000);
    EXPECT_EQ(get("/api/v3/exchangeInfo").status, 200);
    const auto client = stream();
    control("push", R"({"symbol":"BTCUSDT","price":"1"})");
    EXPECT_EQ(next(*client).opcode, 1);
}

TEST_F(ExchangeSimulator, EndsCleanlyAndRefusesATakenPort) {
    QProcess second;
    second.start(SimulatorProcess::executablePath(),
                 {QStringLiteral("--port"), QString::number(simulator.port())});
    ASSERT_TRUE(second.waitForFinished(5000));
    EXPECT_EQ(second.exitCode(), 1);
    EXPECT_TRUE(second.readAllStandardError().contains("cannot listen"));
    const auto client = stream();
    EXPECT_EQ(simulator.stop(), 0);
}

TEST_F(ExchangeSimulator, PlaysAScenarioFromTheFirstConnection) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("scenario.json")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        R"({"from":"firstConnection","pairs":[{"symbol":"AAAUSDT","price":"10","change":"5"}],
                   "pushes":[{"atMs":200,"symbol":"AAAUSDT","price":"12"}]})");
    file.close();
    const SimulatorProcess player({QStringLiteral("--scenario"), file.fileName()});
    QThread::msleep(300);
    const QByteArray answer =
        RawClient(player.port()).get("/api/v3/ticker/24hr?symbols=[\"AAAUSDT\"]").body;
    EXPECT_EQ(text(array(answer)[0][u"lastPrice"]), u"10");
    EXPECT_EQ(text(array(answer)[0][u"priceChangePercent"]), u"5");
    RawClient client(player.port());
    client.handshake("/stream?streams=aaausdt@ticker");
    const QJsonObject event = nextEvent(client);
    EXPECT_EQ(text(event[u"c"]), u"12");
    EXPECT_EQ(text(event[u"P"]), u"26.000");
}

TEST_F(ExchangeSimulator, CutsOffBreachesOfTheFrameProtocol) {
    const std::pair<QByteArray, int> breaches[] = {
        {QByteArray("\x81\x01x", 3), 1002},
        {QByteArray("\xc1\x80\0\0\0\0", 6), 1002},
        {QByteArray("\x83\x80\0\0\0\0", 6), 1002},
        {QByteArray("\x09\x80\0\0\0\0", 6), 1002},
        {QByteArray("\x89\xfe\0\x7e", 4), 1002},
        {QByteArray("\x80\x80\0\0\0\0", 6), 1002},
        {QByteArray("\x81\x81\0\0\0\0\xff", 7), 1007},
        {QByteArray("\x81\xff\xff\xff\xff\xff\xff\xff\xff\xff", 10), 1009}};
    for (const auto& [bytes, code] : breaches) {
        const auto client = stream();
        client->send(bytes);
        expectCutOff(*client, code);
    }
}

TEST_F(ExchangeSimulator, SurvivesAnyBytes) {
    control("limits", R"({"connectionAttempts":100000,"messagesPerSecond":100000})");
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        QByteArray bytes(static_cast<qsizetype>(random() % 300), Qt::Uninitialized);
        std::ranges::generate(bytes, [&random] { return static_cast<char>(random()); });
        RawClient http(simulator.port());
        http.send(round % 2 ? bytes : "POST /control/frame HTTP/1.1\r\nX: " + bytes + "\r\n\r\n");
        // A right start gets the noise past the first checks.
        stream()->send(QByteArray(round % 3 ? "\x81\x85" : "") + bytes);
    }
    EXPECT_EQ(control("state")[u"ok"].toBool(), true);
}

} // namespace
