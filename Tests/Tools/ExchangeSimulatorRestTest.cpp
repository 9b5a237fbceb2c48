// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/Cases.h"
#include "Tests/Tools/ExchangeSimulatorFixture.h"

#include <set>

using namespace test;
using namespace std::chrono_literals;

namespace {

class ExchangeSimulatorRest : public ExchangeSimulatorTest {};

TEST_F(ExchangeSimulatorRest, ExchangeInformationHasEveryKindOfEntry) {
    const QJsonArray entries = object(get("/api/v3/exchangeInfo").body)[u"symbols"].toArray();
    std::set<QString> symbols, statuses, quotes;
    for (const auto entry : entries) {
        symbols.insert(text(entry[u"symbol"]));
        statuses.insert(text(entry[u"status"]));
        quotes.insert(text(entry[u"quoteAsset"]));
        EXPECT_EQ(text(entry[u"baseAsset"]) + text(entry[u"quoteAsset"]), text(entry[u"symbol"]));
        EXPECT_TRUE(entry[u"filters"][0].isObject());
        EXPECT_TRUE(entry[u"permissionSets"][0][0].isString());
    }
    EXPECT_EQ(statuses.size(), 5u);
    EXPECT_TRUE(quotes.contains(QStringLiteral("BTC")) && quotes.contains(QStringLiteral("EUR")));
    EXPECT_TRUE(symbols.contains(QStringLiteral("４２USDT")));
    control("exchangeInfo", R"({"bytes":3000000})");
    const QByteArray padded = get("/api/v3/exchangeInfo").body;
    EXPECT_NEAR(static_cast<double>(padded.size()), 3e6, 2e5);
    EXPECT_GT(object(padded)[u"symbols"].toArray().size(), entries.size());
}

TEST_F(ExchangeSimulatorRest, CandlesRunUpToNow) {
    control("push", R"({"symbol":"ETHUSDT","price":"1234.5"})");
    const QJsonArray rows = array(get("/api/v3/klines?symbol=ETHUSDT&interval=4h&limit=42").body);
    ASSERT_EQ(rows.size(), 42);
    constexpr qint64 fourHours = 4 * 3600 * 1000;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QJsonArray row = rows[i].toArray();
        ASSERT_EQ(row.size(), 12);
        EXPECT_EQ(row[0].toInteger(), rows[0][0].toInteger() + i * fourHours);
        EXPECT_GT(text(row[4]).toDouble(), 0);
    }
    const qint64 age = QDateTime::currentMSecsSinceEpoch() - rows.last()[0].toInteger();
    EXPECT_TRUE(age >= 0 && age <= fourHours) << age;
    EXPECT_EQ(text(rows.last()[4]), u"1234.5");
}

TEST_F(ExchangeSimulatorRest, RefusesWhatTheExchangeRefuses) {
    const std::pair<const char*, int> failures[] = {
        {"ticker/24hr?symbols=[\"BTCUSDT\",\"NOPE\"]", -1121},
        {"ticker/24hr?symbols=[\"btcusdt\"]", -1121},
        {"ticker/24hr?symbols=[1]", -1102},
        {"ticker/24hr", -1102},
        {"klines?symbol=NOPE&interval=1h", -1121},
        {"klines?symbol=BTCUSDT&interval=1x", -1120},
        {"klines?symbol=BTCUSDT", -1102},
        {"klines?symbol=BTCUSDT&interval=1h&limit=x", -1100}};
    for (const auto& [target, code] : failures) {
        const RawClient::Answer answer = get(QByteArray("/api/v3/") + target);
        EXPECT_EQ(answer.status, 400) << target;
        EXPECT_EQ(object(answer.body)[u"code"].toInt(), code) << target;
    }
    EXPECT_EQ(get("/api/v3/nothing").status, 404);
}

TEST_F(ExchangeSimulatorRest, OverridesAnswersUntilTheCountIsUsedUp) {
    const QByteArray target = "/api/v3/klines?symbol=BTCUSDT&interval=1h&limit=1";
    const QByteArray usual = get(target).body;
    control("rest", R"({"path":"/api/v3/klines","status":429,"headers":{"Retry-After":"5"},
                        "body":"slow","location":"/there","count":2})");
    for (int i = 0; i < 2; ++i) {
        const RawClient::Answer answer = get(target);
        EXPECT_EQ(answer.status, 429);
        EXPECT_EQ(answer.body, "slow");
        EXPECT_TRUE(answer.head.contains("\r\nRetry-After: 5\r\nLocation: /there\r\n"));
    }
    EXPECT_EQ(get(target).status, 200);
    control("rest", R"({"path":"/api/v3/klines","truncate":true})");
    EXPECT_LT(get(target).body.size(), usual.size());
    control("rest", R"({"path":"/api/v3/klines","chunked":true,"body":"0123456789"})");
    EXPECT_EQ(get(target).body, "a\r\n0123456789\r\n0\r\n\r\n");
    control("rest", R"({"path":"/api/v3/klines","reset":true})");
    EXPECT_EQ(get(target).body.size(), usual.size());
}

TEST_F(ExchangeSimulatorRest, CountsRequestsInFlight) {
    control("rest", R"({"path":"/api/v3/klines","hang":true,"count":1})");
    RawClient hanging(simulator.port());
    hanging.send("GET /api/v3/klines HTTP/1.1\r\nHost: x\r\n\r\n");
    logged("request");
    control("rest", R"({"path":"/api/v3/exchangeInfo","delayMs":200})");
    const auto asked = std::chrono::steady_clock::now();
    EXPECT_EQ(get("/api/v3/exchangeInfo").status, 200);
    EXPECT_GE(std::chrono::steady_clock::now() - asked, 200ms);
    EXPECT_EQ(logged("request", 2).last()[u"inFlight"].toInt(), 2);
    EXPECT_EQ(logged("answer").last()[u"inFlight"].toInt(), 1);
    hanging.reset();
    EXPECT_EQ(text(logged("abandoned").last()[u"target"]), u"/api/v3/klines");
    EXPECT_EQ(control("state")[u"rest"][u"inFlight"].toInt(), 0);
    EXPECT_EQ(control("state")[u"rest"][u"mostInFlight"].toInt(), 2);
}

TEST_F(ExchangeSimulatorRest, SurvivesMalformedHTTP) {
    for (const QByteArray& bytes : cases(
             "\r\n\r\n", "GET\r\n\r\n", "GET / HTTP/2\r\n\r\n", "GET x HTTP/1.1\r\n\r\n",
             "GET / HTTP/1.1\r\nno colon\r\n\r\n", "POST / HTTP/1.1\r\nContent-Length: -1\r\n\r\n",
             "POST / HTTP/1.1\r\nContent-Length: 99999999999999999999\r\n\r\n",
             "POST / HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n",
             "POST /control/push HTTP/1.1\r\nConnection: close\r\nContent-Length: 3\r\n\r\n{[}"))
        EXPECT_EQ(RawClient(simulator.port()).exchange(bytes).status, 400) << bytes.toStdString();
    EXPECT_EQ(RawClient(simulator.port()).exchange(QByteArray(256 * 1024 + 1, 'x')).status, 400);
    EXPECT_EQ(RawClient(simulator.port()).handshake("/stream").left(12), "HTTP/1.1 101");
    EXPECT_EQ(get("/stream?streams=x").status, 400);
}

} // namespace
