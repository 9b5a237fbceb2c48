// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/LiveSession.h"
#include "Tests/Support/WaitUntil.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QFile>

#include <csignal>

using namespace std::chrono_literals;

namespace {

struct Shown {
    const char* mode;
    const char* content;
    const char* before; ///< the label for the prices at the start
    const char* after;  ///< the label when BTC has moved
};

class EachModeAndContent : public test::LiveSession, public testing::WithParamInterface<Shown> {};

TEST_P(EachModeAndContent, ShowsAPushedPriceWithinASecondAndAHalf) {
    quorvel_.setPreference(QStringLiteral("display.mode"), QString::fromLatin1(GetParam().mode));
    quorvel_.setPreference(QStringLiteral("display.content"),
                           QString::fromLatin1(GetParam().content));
    quorvel_.setPreference(QStringLiteral("display.rotationInterval"), QStringLiteral("60"));
    start();
    ASSERT_TRUE(showsLabel(GetParam().before, 10s));
    ASSERT_TRUE(test::waitUntil([this] { return connectionCount() == 1; }));
    push("BTCUSDT", "999.99999", "-0.001");
    EXPECT_TRUE(showsLabel(GetParam().after));
    EXPECT_EQ(toolTip(), GetParam().after);
}

// One of each; every pair of them is the presenter's business.
INSTANTIATE_TEST_SUITE_P(
    LivePrices, EachModeAndContent,
    testing::Values(Shown{"rotating", "priceOnly", "BTC 65,432.10 ▲", "BTC 1000.0000 ▼"},
                    Shown{"sideBySide", "both", "BTC 65,432.10 +1.23% ▲  ETH 0.00001234 -0.50% ▼",
                          "BTC 1000.0000 0.00% ▼  ETH 0.00001234 -0.50% ▼"},
                    Shown{"fixed", "changeOnly", "BTC +1.23% ▲", "BTC 0.00% ▼"}),
    [](const auto& info) { return info.param.mode; });

class LivePrices : public test::LiveSession {
protected:
    static constexpr int quitEntry = 4; ///< behind Open, Settings… and the separator

    QDBusMessage menu(const QString& member, const QVariantList& arguments) {
        return panel_.call(quorvel_.itemService(), QStringLiteral("/MenuBar"),
                           QStringLiteral("com.canonical.dbusmenu"), member, arguments);
    }

    static inline const QString candlePath = QStringLiteral("/api/v3/klines");

    static bool isOfCandles(const QJsonObject& request) {
        return request[u"target"].toString().startsWith(candlePath);
    }

    /// Chooses an entry of the menu by its place, counted from 1.
    void choose(int id) {
        menu(QStringLiteral("Event"),
             {id, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(QString())), 0u});
    }
};

TEST_F(LivePrices, LeaveOnlyTheIconWithoutAnyPair) {
    quorvel_.writeWatchlist(R"([{"symbol":{"base":"btc","quote":"USDT"}},7])");
    quorvel_.setPreference(QStringLiteral("display.showsIcon"), QStringLiteral("false"));
    start();
    EXPECT_EQ(label(), std::nullopt);
    EXPECT_EQ(toolTip(), "Quorvel");
    EXPECT_EQ(connectionCount(), 0);
}

TEST_F(LivePrices, ComeBackWithinThreeSecondsWhenTheExchangeDoes) {
    quorvel_.setPreference(QStringLiteral("display.mode"), QStringLiteral("fixed"));
    start();
    ASSERT_TRUE(showsPrices());
    ASSERT_TRUE(test::waitUntil([this] { return connectionCount() == 1; }));
    simulator_.kill();
    test::waitUntil([] { return false; }, 2500ms);
    simulator_.restartOnSamePort();
    const QDeadlineTimer deadline(3s);
    ASSERT_TRUE(test::waitUntil([this] { return connectionCount() == 1; }, 3s));
    push("BTCUSDT", "70000", "8");
    EXPECT_TRUE(
        showsLabel("BTC 70,000.00 +8.00% ▲", std::chrono::milliseconds(deadline.remainingTime())));
    EXPECT_EQ(simulator_.details(QStringLiteral("streamOpened")).size(), 1);
}

TEST_F(LivePrices, SurviveTheSessionBus) {
    start();
    ASSERT_TRUE(showsPrices());
    bus_.stop();
    test::waitUntil([this] { return !quorvel_.isRunning(); }, 1s);
    ASSERT_TRUE(quorvel_.isRunning());
    quorvel_.sendSignal(SIGTERM);
    EXPECT_EQ(quorvel_.waitForEnd(), 0);
    EXPECT_EQ(closeCode(), 1001);
}

struct Language {
    const char* chosen;
    const char* session; ///< languages of the session, best first
    const char* quit;    ///< the text of the menu's last entry
};

class EachLanguage : public LivePrices, public testing::WithParamInterface<Language> {
protected:
    void SetUp() override { qputenv("LANGUAGE", GetParam().session); }
    void TearDown() override { qunsetenv("LANGUAGE"); }
};

TEST_P(EachLanguage, IsSpokenWithTheSameNumbers) {
    quorvel_.setPreference(QStringLiteral("interfaceLanguage"),
                           QString::fromLatin1(GetParam().chosen));
    quorvel_.setPreference(QStringLiteral("display.mode"), QStringLiteral("fixed"));
    start();
    const QVariantList reply =
        menu(QStringLiteral("GetProperty"), {quitEntry, QStringLiteral("label")}).arguments();
    EXPECT_EQ(reply.value(0).value<QDBusVariant>().variant(), QString::fromUtf8(GetParam().quit));
    EXPECT_TRUE(showsLabel("BTC 65,432.10 +1.23% ▲", 10s));
}

INSTANTIATE_TEST_SUITE_P(
    LivePrices, EachLanguage,
    testing::Values(Language{"simplifiedChinese", "en", "退出"},
                    Language{"system", "zh_CN:en", "退出"}, Language{"system", "zh_TW:en", "Quit"},
                    Language{"english", "zh_CN", "Quit"}),
    [](const auto& info) {
        return std::string(info.param.chosen) + "_" +
               QString::fromLatin1(info.param.session).replace(u':', u'_').toStdString();
    });

TEST_F(LivePrices, LoadTheCandlesOfFourPairsAtATimeWhenThePanelOpens) {
    QByteArrayList items;
    for (const char* const base :
         {"BTC", "ETH", "BNB", "SOL", "XRP", "DOGE", "ADA", "TRX", "AVAX", "DOT"})
        items.append(QByteArray(R"({"symbol":{"base":")") + base +
                     R"(","quote":"USDT"},"isPinnedToStatusBar":false})");
    quorvel_.writeWatchlist('[' + items.join(',') + ']');
    simulator_.control(QStringLiteral("rest"),
                       {{QStringLiteral("path"), candlePath}, {QStringLiteral("delayMs"), 150}});
    start();
    ASSERT_TRUE(showsPrices());
    constexpr int openEntry = 1;
    choose(openEntry);
    const auto answered = [this] {
        return std::ranges::count_if(simulator_.details(QStringLiteral("answer")), isOfCandles);
    };
    EXPECT_TRUE(test::waitUntil([&] { return answered() == 10; }));
    int most = 0;
    for (const QJsonObject& request : simulator_.details(QStringLiteral("request")))
        if (isOfCandles(request))
            most = std::max(most, request[u"inFlight"].toInt());
    EXPECT_EQ(most, 4);
}

class EachEnd : public LivePrices, public testing::WithParamInterface<int> {};

TEST_P(EachEnd, ClosesTheStreamInOrderAndGivesZero) {
    start();
    ASSERT_TRUE(test::waitUntil([this] { return connectionCount() == 1; }));
    ASSERT_TRUE(showsPrices());
    simulator_.control("walk", R"({"running":true})");
    if (GetParam() == 0)
        choose(quitEntry);
    else
        quorvel_.sendSignal(GetParam());
    EXPECT_EQ(quorvel_.waitForEnd(), 0);
    EXPECT_EQ(closeCode(), 1001);
}

INSTANTIATE_TEST_SUITE_P(LivePrices, EachEnd, testing::Values(0, SIGTERM, SIGINT),
                         [](const auto& info) {
                             return info.param == 0         ? "MenuEntry"
                                    : info.param == SIGTERM ? "SIGTERM"
                                                            : "SIGINT";
                         });

TEST_F(LivePrices, EndAlsoWhileTheExchangeDoesNotAnswer) {
    simulator_.control("rest", R"({"path":"/api/v3/exchangeInfo","hang":true})");
    start();
    simulator_.waitForDetails(QStringLiteral("request"));
    EXPECT_TRUE(showsLabel("BTC", 3s)) << "a pair without a price shows its name alone";
    quorvel_.sendSignal(SIGTERM);
    EXPECT_EQ(quorvel_.waitForEnd(), 0);
}

TEST_F(LivePrices, LeaveTheUsersFilesAlone) {
    const QByteArray damaged(
        "[{\"symbol\":{\"base\":\"BTC\",\"quote\":\"USDT\"},\"isPinnedToStatusBar\":true},{");
    quorvel_.writeWatchlist(damaged);
    start();
    quorvel_.sendSignal(SIGTERM);
    EXPECT_EQ(quorvel_.waitForEnd(), 0);
    QFile file(quorvel_.watchlistPath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), damaged);
}

} // namespace
