// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/LiveSession.h"
#include "Tests/EndToEnd/NotificationDaemon.h"
#include "Tests/Support/VirtualDisplay.h"
#include "Tests/Support/WaitUntil.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

#include <csignal>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

class Alerts : public test::LiveSession {
protected:
    /// A stored rule. `repeatMode` is its JSON, such as `{"once":{}}`.
    static QByteArray rule(const char* base, const char* condition,
                           const char* repeatMode = R"({"once":{}})") {
        ++ruleCount;
        return QStringLiteral(
                   R"({"id":"00000000-0000-4000-8000-%1","symbol":{"base":"%2","quote":"USDT"},)"
                   R"("condition":%3,"repeatMode":%4,"isEnabled":true})")
            .arg(ruleCount, 12, 10, QLatin1Char('0'))
            .arg(QLatin1String(base), QLatin1String(condition), QLatin1String(repeatMode))
            .toUtf8();
    }

    void start(const QByteArrayList& rules) {
        quorvel_.writeAlerts('[' + rules.join(',') + ']');
        LiveSession::start();
        awaitPrices();
    }

    void awaitPrices() {
        ASSERT_TRUE(showsPrices());
        ASSERT_TRUE(test::waitUntil([this] { return connectionCount() == 1; }));
    }

    /// What the daemon has been given, once it shows `count` notifications.
    std::vector<std::string> shown(int count) {
        test::waitUntil([&] { return daemon_.displayedCount() >= count; });
        return daemon_.takeShown();
    }

    QJsonArray storedRules() const {
        QFile file(quorvel_.alertsPath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).array();
    }

    static inline int ruleCount = 0;
    test::VirtualDisplay display_;
    test::NotificationDaemon daemon_{panelBus_};
};

/// A rule that fires last, to tell that nothing else is on its way.
constexpr char ethAboveOne[] = R"({"priceRisesAbove":{"_0":1}})";
constexpr char ethTold[] = "ETH Rises above 1.0000 | Now 2.0000  +0.10%";

TEST_F(Alerts, ReachTheDaemonInOrderAndAreNotRepeatedAfterARestart) {
    start({rule("BTC", R"({"priceRisesAbove":{"_0":66000}})"),
           rule("BTC", R"({"changeRisesAbove":{"_0":2.00}})"), rule("ETH", ethAboveOne)});
    push("BTCUSDT", "66000", "2");
    push("BTCUSDT", "66000.01", "2.005");
    EXPECT_THAT(shown(2), ElementsAre("BTC Rises above 66,000.00 | Now 66,000.01  +2.01%",
                                      "BTC Gain exceeds +2.00% | Now 66,000.01  +2.01%"));
    const QJsonArray rules = storedRules();
    EXPECT_FALSE(rules[0][u"isEnabled"].toBool(true));
    EXPECT_FALSE(rules[1][u"isEnabled"].toBool(true));
    EXPECT_TRUE(rules[1][u"lastTriggeredAt"].isDouble());
    EXPECT_TRUE(rules[2][u"isEnabled"].toBool());

    quorvel_.sendSignal(SIGTERM);
    ASSERT_EQ(quorvel_.waitForEnd(), 0);
    LiveSession::start();
    awaitPrices();
    push("BTCUSDT", "65000", "1");
    push("BTCUSDT", "67000", "3");
    push("ETHUSDT", "2", "0.1");
    EXPECT_EQ(shown(1).size(), 3u);
    EXPECT_EQ(daemon_.takeShown().back(), ethTold);
}

TEST_F(Alerts, CountOneForEachModeWhenThePriceComesBack) {
    start({rule("BTC", R"({"priceRisesAbove":{"_0":100}})"),
           rule("BTC", R"({"priceRisesAbove":{"_0":100}})", R"({"repeating":{"cooldown":900}})"),
           rule("ETH", ethAboveOne)});
    for (const char* const price : {"99", "101", "102", "100", "101"})
        push("BTCUSDT", price, "0");
    // Until the permission has been given, other quotes' notifications are dropped.
    ASSERT_TRUE(test::waitUntil([this] { return daemon_.displayedCount() == 2; }));
    push("ETHUSDT", "2", "0.1");
    const char told[] = "BTC Rises above 100.0000 | Now 101.0000  0.00%";
    EXPECT_THAT(shown(3), ElementsAre(told, told, ethTold));
}

TEST_F(Alerts, AreDeliveredAlsoWhenTheProgramIsToldToEndAtOnce) {
    start({rule("BTC", R"({"priceRisesAbove":{"_0":66000}})")});
    push("BTCUSDT", "66001", "2");
    ASSERT_TRUE(test::waitUntil([this] { return !storedRules()[0][u"isEnabled"].toBool(true); }));
    quorvel_.sendSignal(SIGTERM);
    EXPECT_EQ(quorvel_.waitForEnd(), 0);
    EXPECT_THAT(shown(1), ElementsAre("BTC Rises above 66,000.00 | Now 66,001.00  +2.00%"));
}

} // namespace
