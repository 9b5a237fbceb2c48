#include "Tests/EndToEnd/PanelDesktop.h"
#include "Tests/Support/WaitUntil.h"

#include <QJsonObject>

#include <gmock/gmock.h>

using namespace std::chrono_literals;

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

} // namespace
