// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Panel/PanelFixture.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPushButton>

using namespace quorvel;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class WatchlistEditing : public test::PanelFixture {
protected:
    /// What a display's driver makes of the key.
    void pressMenuKey() {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(popover_.focusWidget(), &event);
    }
};

TEST_F(WatchlistEditing, AddsAResultByKeys) {
    show({}, {"BTC", "BTCUP", "BTCDOWN"});
    type("btc");
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_THAT(bases(), ElementsAre("BTCUP"));
    type("btc");
    for (const char* const expected :
         {"result BTC", "result BTCUP", "result BTCDOWN", "row BTCUP"}) {
        press(Qt::Key_Down);
        EXPECT_EQ(focus(), expected);
    }
    press(Qt::Key_Up);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(bases(), ElementsAre("BTCUP", "BTCDOWN"));
    EXPECT_EQ(focus(), "search");
}

TEST_F(WatchlistEditing, DoesNotOfferWhatTheFileCouldNotHold) {
    show({}, {"币安BTC", "BTCx"});
    type("btc");
    EXPECT_THAT(results(), ElementsAre("(BTCx)", "(币安BTC)"));
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    EXPECT_EQ(focus(), "search");
    const auto* const button = panel_->findChild<SearchResults*>()->findChild<QAbstractButton*>();
    QTest::mouseClick(&popover_, Qt::LeftButton, {},
                      button->mapTo(&popover_, button->rect().center()));
    EXPECT_THAT(bases(), IsEmpty());
    EXPECT_EQ(button->accessibleDescription(), QStringLiteral("Can't be saved in the watchlist"));
}

TEST_F(WatchlistEditing, OffersInTheMenuWhatTheRowsPlaceAllows) {
    show({"BTC", "ETH", "SOL"});
    struct Case {
        const char* base;
        std::vector<std::string> entries;
    };
    model_->togglePinned({"ETH", "USDT"});
    for (const auto& [base, entries] :
         {Case{"BTC", {"(Move Up)", "Move Down", "-", "Pin to Menu Bar"}},
          Case{"ETH", {"Move Up", "Move Down", "-", "Unpin from Menu Bar"}},
          Case{"SOL", {"Move Up", "(Move Down)", "-", "Pin to Menu Bar"}}}) {
        auto expected = entries;
        expected.insert(expected.end(), {"-", "Add Alert…", "-", std::string("Remove ") + base});
        for (const bool isMenuKey : {true, false}) {
            rows().focusRow(row(base).index());
            isMenuKey ? pressMenuKey() : press(Qt::Key_F10, Qt::ShiftModifier);
            EXPECT_EQ(menu(), expected);
        }
    }
    model_->removeSymbol({"BTC", "USDT"});
    model_->removeSymbol({"SOL", "USDT"});
    rows().focusRow(0);
    pressMenuKey();
    EXPECT_THAT(menu(), testing::IsSupersetOf({"(Move Up)", "(Move Down)"}));
}

TEST_F(WatchlistEditing, ReordersAndRemovesByKeysAndKeepsTheKeyboardInTheList) {
    show({"BTC", "ETH", "SOL"});
    press(Qt::Key_Down);
    EXPECT_EQ(focus(), "row BTC");
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(bases(), ElementsAre("ETH", "SOL", "BTC"));
    EXPECT_EQ(focus(), "row BTC");
    press(Qt::Key_Up, Qt::AltModifier);
    EXPECT_THAT(bases(), ElementsAre("ETH", "BTC", "SOL"));
    press(Qt::Key_Delete);
    EXPECT_EQ(focus(), "row SOL");
    press(Qt::Key_Delete);
    EXPECT_EQ(focus(), "row ETH");
    press(Qt::Key_Delete);
    EXPECT_EQ(focus(), "search");
    EXPECT_THAT(bases(), IsEmpty());
}

TEST_F(WatchlistEditing, ReachesEverythingByTab) {
    show({"BTC", "ETH"}, {"SOL", "SOLV"});
    type("sol");
    for (const char* const expected :
         {"result SOL", "result SOLV", "row BTC", "remove BTC", "Settings…", "Quit", "search"}) {
        press(Qt::Key_Tab);
        EXPECT_EQ(focus(), expected);
    }
    rows().focusRow(1);
    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), "remove ETH");
    press(Qt::Key_Space);
    EXPECT_THAT(bases(), ElementsAre("BTC"));
    EXPECT_EQ(focus(), "row BTC");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), "result SOLV");
    press(Qt::Key_Escape);
    EXPECT_FALSE(popover_.isVisible());
}

TEST_F(WatchlistEditing, FollowsChangesMadeWhileItWasClosed) {
    show({"BTC", "ETH"});
    popover_.hide();
    model_->removeSymbol({"BTC", "USDT"});
    model_->addSymbol({"SOL", "USDT"});
    reopen();
    EXPECT_EQ(rows().count(), 2u);
    EXPECT_EQ(row("ETH").index(), 0u);
    EXPECT_EQ(row("SOL").pos(), QPoint(0, WatchlistRows::pitch));
}

} // namespace
