// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Application/ApplicationFixture.h"
#include "Tests/Support/FullDisk.h"
#include "Tests/Support/WaitUntil.h"

#include <QComboBox>
#include <QCursor>
#include <QFile>
#include <QScreen>
#include <QScrollBar>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

using Application = test::ApplicationFixture;

namespace {

TEST_F(Application, ShowsPricesInTheItemOnceASecond) {
    launch();
    EXPECT_EQ(app.label(), "BTC 70,000.00 +1.00% ▲");
    app.quote("BTC", "70001");
    EXPECT_EQ(app.label(), "BTC 70,000.00 +1.00% ▲");
    app.pass(1s);
    EXPECT_EQ(app.label(), "BTC 70,001.00 +1.00% ▲");
    app.pass(5s);
    EXPECT_EQ(app.label(), "ETH 3,500.00 -2.00% ▼") << "the other one's turn";
    app.quote("ETH", "3500", "0");
    app.pass(1s);
    EXPECT_EQ(app.label(), "ETH 3,500.00 0.00%");
}

TEST_F(Application, OpensAndClosesThePanelByClicksOnTheItem) {
    launch();
    app.openPanel();
    EXPECT_THAT(app.exchange().calls, Contains("candles BTC"));
    app.clickItem();
    EXPECT_FALSE(app.isPanelOpen());
    app.openPanel();
    app.clickElsewhere();
    EXPECT_FALSE(app.isPanelOpen());
    app.clickItem();
    EXPECT_FALSE(app.isPanelOpen()) << "the click that closed it";
    app.pass(300ms);
    app.chooseFromItemMenu(u"Open"_s);
    EXPECT_TRUE(app.isPanelOpen());
    app.panel().key(Qt::Key_Escape);
    EXPECT_FALSE(app.isPanelOpen());
}

TEST_F(Application, OpensThePanelWhereThePointerIs) {
    launch();
    const int middle = app.openPanel().window().screen()->geometry().center().x();
    app.clickItem();
    QCursor::setPos(middle + 20, 0);
    EXPECT_NEAR(app.openPanel().window().geometry().center().x(), middle + 20, 1);
}

TEST_F(Application, ComesToTheFrontForASecondStart) {
    launch();
    app.delegate().openPanel();
    EXPECT_TRUE(app.isPanelOpen());
    app.delegate().openPanel();
    EXPECT_TRUE(app.isPanelOpen());
}

TEST_F(Application, GivesTheKeyboardToTheSearchAtEachOpening) {
    launch();
    EXPECT_THAT(app.openPanel().focus(), StartsWith("Search coins"));
    app.panel().key(Qt::Key_Down);
    EXPECT_THAT(app.panel().focus(), StartsWith("BTCUSDT"));
    app.clickItem();
    EXPECT_THAT(app.openPanel().focus(), StartsWith("Search coins"));
}

TEST_F(Application, OpensTheSettingsFromPanelAndMenu) {
    launch();
    app.openPanel().press(u"Settings…"_s);
    EXPECT_TRUE(app.isSettingsOpen());
    EXPECT_FALSE(app.isPanelOpen());
    app.settings().window().close();
    EXPECT_FALSE(app.isSettingsOpen());
    app.openPanel();
    app.openSettings();
    EXPECT_FALSE(app.isPanelOpen());
    const auto& window = app.settings().window();
    EXPECT_EQ(window.width(), 420);
    EXPECT_TRUE(window.isActiveWindow());
    EXPECT_EQ(window.minimumWidth(), window.maximumWidth()) << "cannot be resized";
}

TEST_F(Application, FollowsTheThemeFromTheStart) {
    app.havePreferences("interfaceAppearance=dark");
    launch();
    app.openSettings();
    EXPECT_TRUE(isDark(app.settings()));
    app.settings().choose(u"Theme"_s, u"Light"_s);
    EXPECT_FALSE(isDark(app.settings()));
    EXPECT_EQ(app.preference("interfaceAppearance"), u"light"_s);
    EXPECT_FALSE(isDark(app.openPanel()));
    app.clickItem();
    app.settings().choose(u"Theme"_s, u"Dark"_s);
    EXPECT_TRUE(isDark(app.openPanel()));
}

TEST_F(Application, ShowsAChangeOfTheDisplayAtOnce) {
    launch();
    app.openSettings().press(u"Show up/down arrow"_s);
    EXPECT_EQ(app.label(), "BTC 70,000.00 +1.00%");
    EXPECT_EQ(app.preference("display.showsDirectionArrow"), u"false"_s);
    app.settings().choose(u"Display"_s, u"Side by side"_s);
    app.pass(1s);
    EXPECT_EQ(app.label(), "BTC 70,000.00 +1.00%  ETH 3,500.00 -2.00%");
    app.settings().choose(u"Content"_s, u"Price only"_s);
    app.pass(1s);
    EXPECT_EQ(app.label(), "BTC 70,000.00  ETH 3,500.00");
}

TEST_F(Application, ShowsTheIconWhereItIsWantedOrAllThereIs) {
    const auto isIconSeen = [this] {
        const QImage icon = app.icon();
        return icon.pixelColor(icon.rect().center()).alpha() > 0;
    };
    app.havePreferences("display.showsIcon=false");
    app.haveWatchlist({});
    app.launch({"BTC"});
    EXPECT_EQ(app.label(), "");
    EXPECT_TRUE(isIconSeen());
    app.openPanel().type(u"btc"_s);
    app.panel().press(u"Add BTC"_s);
    EXPECT_EQ(app.label(), "BTC");
    EXPECT_FALSE(isIconSeen());
    app.openSettings().press(u"Show icon"_s);
    EXPECT_TRUE(isIconSeen());
}

TEST_F(Application, AsksOnceWhetherAnUnknownPanelShowsPrices) {
    launch();
    auto panel = app.openPanel();
    panel.press(u"Yes"_s);
    EXPECT_FALSE(panel.find(u"Yes"_s));
    EXPECT_TRUE(app.isPanelOpen());
    EXPECT_EQ(app.preference("statusItem.presentation"), QStringLiteral("auto"));
}

TEST_F(Application, ShowsPricesAsChosenAtOnce) {
    launch();
    ASSERT_FALSE(app.label().empty());
    app.openPanel().press(u"No, Show Them Otherwise…"_s);
    auto settings = app.settings();
    const auto& box = dynamic_cast<QComboBox&>(settings.control(u"Show prices in"_s));
    EXPECT_EQ(box.itemData(3, Qt::ToolTipRole), u"No tray here takes windows"_s);
    const auto registrations = app.watcher().registered().size();
    settings.choose(u"Show prices in"_s, u"Icon only"_s);
    EXPECT_EQ(app.preference("statusItem.presentation"), u"icon");
    EXPECT_THAT(settings.texts(), Contains("Prices in the tooltip and the popover alone"));
    EXPECT_TRUE(test::waitUntil([&] { return app.watcher().registered().size() > registrations; }))
        << "an item without a label takes the place of the one with it";
    EXPECT_EQ(app.label(), "");
}

TEST_F(Application, SetsTheRowsOfTheSettingsApart) {
    launch();
    auto user = app.openSettings();
    EXPECT_FALSE(user.window().windowIcon().isNull());
    const QWidget& row = *user.control(u"Content"_s).parentWidget();
    const QWidget& card = *row.parentWidget();
    const QImage picture = user.picture(card);
    EXPECT_LT(picture.pixelColor(card.width() / 2, row.y()).lightness(),
              picture.pixelColor(card.width() / 2, row.y() + 2).lightness());
}

TEST_F(Application, RepeatsStepsWhileTheButtonIsDown) {
    launch();
    auto user = app.openSettings();
    QWidget& interval = user.control(u"Rotation interval: 5s"_s);
    const QPoint up(interval.width() - 12, interval.height() / 3);
    user.hold(interval, up);
    EXPECT_TRUE(test::waitUntil([&] { return user.find(u"Rotation interval: 8s"_s); }));
    user.release(interval, up);
    EXPECT_GE(app.preference("display.rotationInterval").toInt(), 8);
}

TEST_F(Application, AddsWhatIsSearchedFor) {
    app.haveWatchlist({"BTC"});
    app.launch();
    auto user = app.openPanel();
    user.type(u"sol"_s);
    EXPECT_FALSE(user.find(u"Add SOL"_s));
    app.deliverPairs({"BTC", "SOL", "SOLV"});
    EXPECT_TRUE(user.find(u"Add SOLV"_s)) << "the list came late";
    user.key(Qt::Key_Return);
    EXPECT_THAT(app.savedPairs(), ElementsAre("BTC", "SOL"));
    EXPECT_FALSE(user.find(u"Add SOLV"_s));
    EXPECT_TRUE(user.find(u"SOLUSDT"_s));
    app.pass(300ms);
    EXPECT_EQ(app.exchange().calls.back(), "snapshot BTC SOL") << "neither has a price yet";
    app.quote("SOL", "150");
    EXPECT_TRUE(user.find(u"SOLUSDT, 150.00"_s));
}

TEST_F(Application, OrdersPinsAndRemovesByTheRowsMenu) {
    launch();
    auto user = app.openPanel();
    user.chooseFromMenu(app.row("ETH"), u"Move Up"_s);
    EXPECT_THAT(app.savedPairs(), ElementsAre("ETH", "BTC"));
    app.pass(300ms);
    app.isPanelOpen() ? void() : app.clickItem();
    user.chooseFromMenu(app.row("BTC"), u"Pin to Menu Bar"_s);
    EXPECT_THAT(app.savedPairs(), ElementsAre("ETH", "BTC*"));
    app.pass(1s);
    EXPECT_THAT(app.label(), StartsWith("BTC 70,000.00"));
    app.isPanelOpen() ? void() : app.clickItem();
    user.chooseFromMenu(app.row("BTC"), u"Remove BTC"_s);
    EXPECT_THAT(app.savedPairs(), ElementsAre("ETH"));
}

TEST_F(Application, DragsRows) {
    launch();
    auto user = app.openPanel();
    QWidget& first = app.row("BTC");
    const QPoint middle = first.rect().center();
    user.drag(first, middle, middle + QPoint(0, first.height()));
    EXPECT_THAT(app.savedPairs(), ElementsAre("ETH", "BTC"));
}

TEST_F(Application, LiftsARowThatIsHeldAndRevealsItsButtonBelowThePointer) {
    launch();
    auto user = app.openPanel();
    QWidget& row = app.row("BTC");
    QWidget& remove = user.control(u"Remove BTC"_s);
    const auto ground = [&] { return user.picture(row).pixelColor(74, 5).lightness(); };
    const QImage hidden = user.picture(remove);
    const int idle = ground();
    user.pointTo(row, row.rect().center());
    const int hovered = ground();
    EXPECT_LT(hovered, idle);
    EXPECT_NE(user.picture(remove), hidden);
    const QPoint grip = row.rect().center();
    user.hold(row, grip);
    user.pointTo(row, grip + QPoint(0, 15));
    EXPECT_LT(ground(), hovered);
    user.key(Qt::Key_Escape);
    EXPECT_TRUE(app.isPanelOpen()) << "it was the drag that ended";
    user.release(row, grip);
    EXPECT_THAT(app.savedPairs(), ElementsAre("BTC", "ETH"));
    user.pointTo(app.row("ETH"), grip);
    EXPECT_EQ(ground(), idle);
    EXPECT_EQ(user.picture(remove), hidden);
    user.press(u"Remove ETH"_s);
    EXPECT_THAT(app.savedPairs(), ElementsAre("BTC"));
}

TEST_F(Application, RepaintsRowsForAllThatTheyShow) {
    launch();
    auto user = app.openPanel();
    QImage before = user.picture(app.row("BTC"));
    const auto hasChanged = [&] {
        const QImage now = user.picture(app.row("BTC"));
        return std::exchange(before, now) != now;
    };
    EXPECT_FALSE(hasChanged());
    app.quote("BTC", "70002");
    EXPECT_TRUE(hasChanged()) << "a price";
    app.exchange().candleRequests["BTC"].addResult(std::vector<quorvel::Candle>{
        {platform::Date(), quorvel::Decimal(1)}, {platform::Date(), quorvel::Decimal(2)}});
    app.exchange().candleRequests["BTC"].finish();
    app.pass(0s);
    EXPECT_TRUE(hasChanged()) << "candles";
    app.pass(20s);
    EXPECT_TRUE(hasChanged()) << "stale prices";
    app.quote("BTC", "70002");
    app.pass(5s);
    EXPECT_TRUE(hasChanged()) << "live again";
    app.openSettings();
    app.openPanel();
    hasChanged();
    const auto chart = [&] { return user.picture(app.row("BTC")).copy(85, 8, 50, 30); };
    const QImage redChart = chart();
    app.settings().activate(u"Green up, red down"_s);
    EXPECT_TRUE(hasChanged()) << "other colours";
    EXPECT_NE(chart(), redChart);
}

TEST_F(Application, TakesAPairFromThePanelIntoAnAlertThatNotifies) {
    launch();
    auto user = app.openPanel();
    user.chooseFromMenu(app.row("ETH"), u"Add Alert…"_s);
    app.pass(0s);
    auto settings = app.settings();
    settings.type(u"3600"_s);
    settings.key(Qt::Key_Return);
    EXPECT_TRUE(app.savedAlerts().contains("3600")) << app.savedAlerts().constData();
    app.openPanel();
    const auto name = [&] { return user.picture(app.row("ETH")).copy(0, 0, 64, 100); };
    const QImage withBell = name();
    app.quote("ETH", "3599");
    EXPECT_EQ(name(), withBell);
    app.quote("ETH", "3601");
    EXPECT_NE(name(), withBell);
    EXPECT_TRUE(test::waitUntil([&] { return app.notifications().notifications().size() == 1; }));
    EXPECT_TRUE(app.savedAlerts().contains("lastTriggeredAt"));
    app.quote("ETH", "3599");
    app.quote("ETH", "3601");
    app.pass(1s);
    EXPECT_EQ(app.notifications().notifications().size(), 1) << "once";
}

TEST_F(Application, ShowsThatLaunchAtLoginCannotBeSetEachTime) {
    launch();
    QFile inTheWay(app.path("autostart"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    auto user = app.openSettings();
    const auto name = u"Launch Quorvel at login"_s;
    const auto texts = user.texts().size();
    for (int attempt = 0; attempt < 2; ++attempt) {
        user.press(name);
        EXPECT_FALSE(user.isChecked(name));
        EXPECT_EQ(user.texts().size(), texts + 1);
    }
    ASSERT_TRUE(inTheWay.remove());
    user.press(name);
    EXPECT_TRUE(user.isChecked(name));
    EXPECT_TRUE(QFile::exists(app.path("autostart/quorvel.desktop")));
}

TEST_F(Application, SaysThatSettingsCannotBeSavedAndKeepsThemForTheRun) {
    const auto saysSo = [](const test::WindowUser& user) {
        return std::ranges::any_of(user.texts(), [](const std::string& text) {
            return text.starts_with("Settings can't be saved.");
        });
    };
    app.havePreferences("interfaceAppearance=light");
    launch();
    auto user = app.openSettings();
    const auto name = u"Show icon"_s;
    const QByteArray before = app.fileText("Quorvel.conf");
    ASSERT_FALSE(before.isEmpty());
    {
        const test::FullDisk full(0);
        user.press(name);
    }
    EXPECT_FALSE(user.isChecked(name));
    EXPECT_TRUE(saysSo(user));
    EXPECT_EQ(app.fileText("Quorvel.conf"), before) << "nothing lost";
    user.press(u"Show up/down arrow"_s);
    EXPECT_FALSE(saysSo(user));
    EXPECT_EQ(app.preference("display.showsIcon"), u"false"_s) << "with the next one";
}

TEST_F(Application, ShowsChangesOfTheWatchlistInTheItemAtOnce) {
    app.havePreferences("display.mode=sideBySide");
    launch();
    auto user = app.openPanel();
    user.press(u"Remove BTC"_s);
    app.pass(0s);
    EXPECT_EQ(app.label(), "ETH 3,500.00 -2.00% ▼");
}

/// The ways to quit.
TEST_F(Application, StopsInOrderWhenTheSessionEnds) {
    launch();
    app.endSession();
    EXPECT_TRUE(app.hasEnded());
    EXPECT_EQ(app.exchange().calls.back(), "stop");
    const auto calls = app.exchange().calls.size();
    app.endSession();
    EXPECT_EQ(app.exchange().calls.size(), calls) << "once";
}

TEST_F(Application, StopsInOrderByPanelAndMenu) {
    launch();
    app.openPanel().press(u"Quit"_s);
    app.pass(0s);
    EXPECT_TRUE(app.hasEnded());
    EXPECT_EQ(app.exchange().calls.back(), "stop");
    EXPECT_FALSE(app.delegate().isRelaunching());
}

TEST_F(Application, QuitsFromTheItemsMenu) {
    launch();
    app.chooseFromItemMenu(u"Quit"_s);
    EXPECT_EQ(app.exchange().calls.back(), "stop");
    EXPECT_TRUE(app.hasEnded());
}

TEST_F(Application, StartsAnewForAnotherLanguage) {
    launch();
    auto user = app.openSettings();
    EXPECT_FALSE(user.find(u"Restart Now"_s));
    for (const QString& language : {u"English"_s, u"Follow system"_s, u"English"_s}) {
        user.choose(u"Language"_s, language);
        const bool isOther = language == u"English"_s;
        EXPECT_TRUE(
            test::waitUntil([&] { return (user.find(u"Restart Now"_s) != nullptr) == isOther; }));
    }
    user.press(u"Restart Now"_s);
    app.pass(0s);
    EXPECT_TRUE(app.hasEnded());
    EXPECT_TRUE(app.delegate().isRelaunching());
    EXPECT_EQ(app.exchange().calls.back(), "stop");
}

TEST_F(Application, ScrollsByTheBar) {
    app.haveWatchlist({"A", "B", "C", "D", "E", "F", "G", "H", "I", "J",
                       "K", "L", "M", "N", "O", "P", "Q", "R", "S", "T"});
    app.launch({"A"});
    for (const bool isPanel : {true, false}) {
        auto user = isPanel ? app.openPanel() : app.openSettings();
        QScrollBar* bar = nullptr;
        for (auto* const candidate : user.window().findChildren<QScrollBar*>()) {
            if (candidate->isVisible() && candidate->orientation() == Qt::Vertical)
                bar = candidate;
        }
        ASSERT_TRUE(bar);
        ASSERT_GT(bar->maximum(), 0);
        const QImage before = user.picture(user.window());
        user.drag(*bar, QPoint(bar->width() / 2, 10), QPoint(bar->width() / 2, bar->height() / 2));
        EXPECT_GT(bar->value(), 0);
        EXPECT_NE(user.picture(user.window()), before);
    }
}

} // namespace
