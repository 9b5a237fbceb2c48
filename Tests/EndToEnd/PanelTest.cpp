// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/EndToEnd/NotificationDaemon.h"
#include "Tests/EndToEnd/PanelDesktop.h"
#include "Tests/Support/WaitUntil.h"

#include <QJsonObject>

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace {

constexpr char twoPairs[] =
    R"([{"symbol":{"base":"BTC","quote":"USDT"},"isPinnedToStatusBar":true},)"
    R"({"symbol":{"base":"ETH","quote":"USDT"},"isPinnedToStatusBar":false}])";

class Panel : public test::PanelDesktop {
protected:
    static constexpr QPoint item{screen.width() - 40, panelHeight / 2};

    Panel() : PanelDesktop(test::PanelKind::mate()) {}

    /// Starts the panel and then the program, and waits for the item.
    void start(const QByteArray& watchlist) {
        startPanel();
        ASSERT_TRUE(test::waitUntil([this] { return showsPanel(); }, 20s));
        const QRect end(screen.width() - 60, 0, 60, panelHeight);
        const QImage empty = desktop_.picture(end);
        startProgram(watchlist);
        ASSERT_TRUE(test::waitUntil([&] { return desktop_.picture(end) != empty; }, 20s));
    }

    bool isSubscribed(const char* stream) const {
        const auto sent = simulator_.details(QStringLiteral("text"));
        return std::ranges::any_of(sent, [stream](const QJsonObject& detail) {
            const QString text = detail[u"text"].toString();
            return text.contains(u"SUBSCRIBE") && text.contains(QLatin1String(stream));
        });
    }

    bool stores(const std::vector<std::string>& pairs) const {
        const bool isStored = test::waitUntil([&] { return storedPairs() == pairs; });
        EXPECT_EQ(storedPairs(), pairs);
        return isStored;
    }
};

TEST_F(Panel, ShowsThePriceOfAPairThatIsAdded) {
    push("BTCUSDT", "65432.10", "1.234");
    push("ADAUSDT", "0.4321", "-2.5");
    start(twoPairs);
    openPopover(item);
    desktop_.type("ada");
    ASSERT_TRUE(showsPart(QStringLiteral("push button|Add ADA|")));
    desktop_.press({QStringLiteral("Return")});
    EXPECT_TRUE(test::waitUntil([this] { return isSubscribed("adausdt@ticker"); }));
    EXPECT_TRUE(showsPart(QStringLiteral("list item|ADAUSDT, 0.4321, -2.50%|")));
    push("ADAUSDT", "0.5", "3");
    EXPECT_TRUE(showsPart(QStringLiteral("list item|ADAUSDT, 0.5, +3.00%|")));
    const QStringList parts = accessibleParts();
    for (const char* const part :
         {"text|Search coins, e.g. BTC|", "list|Watchlist|",
          "list item|BTCUSDT, 65,432.10, +1.23%|Pinned to menu bar", "push button|Remove BTC|",
          "push button|Remove ADA|", "push button|Settings…|", "push button|Quit|"}) {
        const auto isPart = [part](const QString& found) {
            return found.startsWith(QString::fromUtf8(part));
        };
        EXPECT_TRUE(std::ranges::any_of(parts, isPart)) << part << "\n"
                                                        << parts.join(u'\n').toStdString();
    }
}

TEST_F(Panel, IsWalkedByKeysAlone) {
    start(twoPairs);
    openPopover(item);
    desktop_.type("xrp");
    desktop_.press({QStringLiteral("Return")});
    ASSERT_TRUE(stores({"BTC*", "ETH", "XRP"}));
    desktop_.press({QStringLiteral("Down"), QStringLiteral("End"), QStringLiteral("alt+Up")});
    ASSERT_TRUE(stores({"BTC*", "XRP", "ETH"}));
    desktop_.press({QStringLiteral("Menu"), QStringLiteral("Down"), QStringLiteral("Down"),
                    QStringLiteral("Down"), QStringLiteral("Return")});
    ASSERT_TRUE(stores({"BTC*", "XRP*", "ETH"}));
    desktop_.press({QStringLiteral("Home"), QStringLiteral("Delete")});
    ASSERT_TRUE(stores({"XRP*", "ETH"}));
    ASSERT_TRUE(showsWatchlist());
    desktop_.press({QStringLiteral("Escape")});
    EXPECT_TRUE(test::waitUntil([] { return !showsWatchlist(); }));
    EXPECT_TRUE(quorvel_.isRunning());
}

TEST_F(Panel, TellsOfAnAlertThatWasMadeFromARowsMenu) {
    push("ETHUSDT", "3000", "1");
    start(twoPairs);
    test::NotificationDaemon daemon(desktop_.connectToBus());
    openPopover(item);
    clickOn(QStringLiteral("list item|ETHUSDT, 3,000.00"), 3);
    // The last entry but one.
    desktop_.press({QStringLiteral("Up"), QStringLiteral("Up"), QStringLiteral("Return")});
    ASSERT_TRUE(showsPart(QStringLiteral("push button|Add|")));
    desktop_.type("3100");
    clickOn(QStringLiteral("push button|Add|"));
    ASSERT_TRUE(showsPart(QStringLiteral("check box|ETH Rises above 3,100.00|")));
    push("ETHUSDT", "3100.5", "1.5");
    EXPECT_TRUE(test::waitUntil([&] { return daemon.displayedCount() == 1; }));
    EXPECT_THAT(daemon.takeShown(), ElementsAre("ETH Rises above 3,100.00 | Now 3,100.50  +1.50%"));
    EXPECT_TRUE(showsPart(QStringLiteral("label|Triggered")));
}

TEST_F(Panel, StartsAnewInTheLanguageThatIsChosen) {
    start(twoPairs);
    openPopover(item);
    clickOn(QStringLiteral("push button|Settings…|"));
    ASSERT_TRUE(showsPart(QStringLiteral("label|Display|")));
    // From the first control back to the last but one.
    desktop_.press({QStringLiteral("shift+Tab"), QStringLiteral("shift+Tab"),
                    QStringLiteral("Down"), QStringLiteral("Down"), QStringLiteral("Tab")});
    ASSERT_TRUE(showsPart(QStringLiteral("push button|Restart Now|")));
    desktop_.press({QStringLiteral("space")});
    EXPECT_EQ(quorvel_.waitForEnd(), 0);
    openPopover(item);
    ASSERT_TRUE(showsPart(QStringLiteral("text|搜索币种，例如 BTC|")));
    clickOn(QStringLiteral("push button|退出|"));
    EXPECT_TRUE(test::waitUntil([] { return accessibleParts().isEmpty(); }));
}

} // namespace
