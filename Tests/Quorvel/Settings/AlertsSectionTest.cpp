// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AlertsSection.h"

#include "Tests/Quorvel/Settings/SettingsFixture.h"
#include "Tests/Support/FullDisk.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

using namespace quorvel;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using Kind = AlertConditionKind;

constexpr const char* emptyText =
    "No alerts yet. Add one below, or right-click a coin in the panel.";
constexpr const char* firedText = "Triggered — toggle to re-enable";

class Alerts : public test::SettingsFixture {
protected:
    QAbstractButton& add() const { return *button("Add"); }
    const AlertRuleList& rules() const { return model_->alerts().rules(); }

    void type(const char* text) {
        click(threshold());
        threshold().selectAll();
        press(Qt::Key_Delete);
        for (const char c : std::string_view(text))
            QTest::keyClick(window_->windowHandle(), c);
        test::drainEvents();
    }

    std::string whyAddIsDisabled() const {
        return QAccessible::queryAccessibleInterface(&add())
            ->text(QAccessible::Description)
            .toStdString();
    }
};

TEST_F(Alerts, AreAddedOnceTheFormIsComplete) {
    show();
    EXPECT_THAT(texts(), Contains(emptyText));
    type("70000");
    EXPECT_FALSE(add().isEnabled());
    EXPECT_THAT(whyAddIsDisabled(), HasSubstr("coin"));
    choose("Coin", "ETH");
    EXPECT_TRUE(add().isEnabled());
    EXPECT_EQ(whyAddIsDisabled(), "");
    for (const char* const incomplete : {"", "70,000", "-"}) {
        type(incomplete);
        EXPECT_FALSE(add().isEnabled()) << incomplete;
        EXPECT_THAT(whyAddIsDisabled(), HasSubstr("number"));
        press(Qt::Key_Return);
        EXPECT_EQ(threshold().text().toStdString(), incomplete) << "what was typed stays";
    }
    EXPECT_THAT(rules(), IsEmpty());

    type(" 70000");
    click(add());
    EXPECT_EQ(window_->focusWidget(), &threshold()) << "the next one can be typed";
    choose("Condition", "Loss exceeds");
    EXPECT_EQ(threshold().placeholderText().trimmed(), QStringLiteral("Threshold (%)"));
    click(*button("Repeat"));
    type("-5");
    press(Qt::Key_Return);
    ASSERT_EQ(rules().size(), 2U);
    const AlertRule& once = rules()[0];
    EXPECT_EQ(once.condition, condition(Kind::priceRisesAbove, Decimal(70000)));
    EXPECT_TRUE(once.repeatMode.isOnce());
    const AlertRule& repeating = rules()[1];
    EXPECT_EQ(repeating.symbol, (Symbol{"ETH", "USDT"}));
    EXPECT_EQ(repeating.condition, condition(Kind::changeFallsBelow, Decimal(-5)));
    EXPECT_EQ(repeating.repeatMode, AlertRule::RepeatMode::repeating(std::chrono::minutes(15)));
    EXPECT_TRUE(repeating.isEnabled);
    EXPECT_FALSE(repeating.lastTriggeredAt);
    EXPECT_NE(once.id, repeating.id);
    EXPECT_THAT(texts(), Contains("ETH Loss exceeds -5.00%"));
    EXPECT_THAT(texts(), Not(Contains(emptyText)));
    EXPECT_THAT(delivering_->calls, ElementsAre("ask")) << "the first rule asks, and no other";

    EXPECT_EQ(threshold().text(), QString());
    window_->hide();
    window_->show();
    EXPECT_EQ(chosen("Coin"), "ETH");
    EXPECT_EQ(chosen("Condition"), "Loss exceeds");
    EXPECT_TRUE(button("Repeat")->isChecked());
}

TEST_F(Alerts, AreSwitchedArmedAnewAndDeletedInTheirRows) {
    show();
    const AlertRule once = addRule("BTC", Kind::priceRisesAbove, "70000", false);
    const AlertRule repeating = addRule("ETH", Kind::changeRisesAbove, "5", true);
    model_->alerts().markTriggered({once, repeating}, clock_.now());
    test::drainEvents();
    auto& control = get<QCheckBox>("BTC Rises above 70,000.00");
    EXPECT_FALSE(control.isChecked());
    EXPECT_THAT(texts(), Contains(firedText));
    EXPECT_THAT(texts(), Contains("Repeats"));
    click(control);
    EXPECT_TRUE(rules()[0].isEnabled);
    EXPECT_FALSE(rules()[0].lastTriggeredAt);
    EXPECT_THAT(texts(), Not(Contains(firedText)));
    click(get<QCheckBox>("ETH Gain exceeds +5.00%"));
    EXPECT_FALSE(rules()[1].isEnabled);
    click(get<QCheckBox>("ETH Gain exceeds +5.00%"));
    EXPECT_TRUE(rules()[1].lastTriggeredAt) << "the cooldown still runs";

    click(get<QPushButton>("Delete BTC Rises above 70,000.00"));
    ASSERT_EQ(rules().size(), 1U);
    EXPECT_EQ(rules()[0].id, repeating.id);
    EXPECT_FALSE(find<QCheckBox>("BTC Rises above 70,000.00"));
    get<QPushButton>("Delete ETH Gain exceeds +5.00%").setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_THAT(rules(), IsEmpty());
    EXPECT_THAT(texts(), Contains(emptyText));
    EXPECT_EQ(window_->focusWidget(), &get<QComboBox>("Coin")) << "the keyboard is not lost";
}

TEST_F(Alerts, AreOfferedForTheCoinsOfTheWatchlist) {
    show();
    EXPECT_THAT(items("Coin"), ElementsAre("Choose…", "BTC", "ETH"));
    choose("Coin", "ETH");
    type("2000");
    model_->watchlist().moveUp(1);
    model_->watchlist().add({"SOL", "USDT"});
    EXPECT_THAT(items("Coin"), ElementsAre("Choose…", "ETH", "BTC", "SOL"));
    EXPECT_EQ(chosen("Coin"), "ETH");
    addRule("ETH", Kind::priceRisesAbove, "1", false);
    model_->removeSymbol({"ETH", "USDT"});
    test::drainEvents();
    EXPECT_THAT(items("Coin"), ElementsAre("Choose…", "BTC", "SOL"));
    EXPECT_EQ(chosen("Coin"), "Choose…");
    EXPECT_FALSE(add().isEnabled());
    EXPECT_THAT(texts(), Contains(emptyText));
}

TEST_F(Alerts, TakeOverThePairThatThePanelHandsOver) {
    show();
    for (const bool isOpen : {true, false}) {
        window_->setVisible(isOpen);
        model_->setPendingAlertSymbol(Symbol{isOpen ? "ETH" : "BTC", "USDT"});
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        test::drainEvents();
        EXPECT_FALSE(model_->pendingAlertSymbol());
        EXPECT_EQ(chosen("Coin"), isOpen ? "ETH" : "BTC");
        EXPECT_EQ(window_->focusWidget(), &threshold()) << "the number is what is still missing";
        const QPoint end = add().mapTo(window_.get(), add().rect().bottomRight());
        EXPECT_TRUE(window_->rect().contains(end)) << "the form is in view";
    }
}

TEST_F(Alerts, ShowWhatIsWrongUntilItIsMended) {
    const std::string permission =
        "Notifications are off, so alerts can't be delivered. Allow Quorvel in System Settings → "
        "Notifications.";
    show();
    delivering_->grants = false;
    EXPECT_THAT(texts(), Not(Contains(permission)));
    choose("Coin", "BTC");
    type("1000");
    click(add());
    EXPECT_THAT(texts(), Contains(permission));
    {
        const test::FullDisk disk(0);
        click(get<QCheckBox>("BTC Rises above 1,000.00"));
        ASSERT_TRUE(model_->alerts().lastPersistError());
    }
    const std::string failure = model_->alerts().lastPersistError()->toStdString();
    EXPECT_THAT(texts(), Contains(failure));
    click(get<QCheckBox>("BTC Rises above 1,000.00"));
    EXPECT_THAT(texts(), Not(Contains(failure)));
}

TEST_F(Alerts, ShowWhyADeliveryFailed) {
    show();
    const AlertRule rule = addRule("BTC", Kind::priceRisesAbove, "1", true);
    for (const bool fails : {true, false}) {
        delivering_->failure = fails ? std::optional(QStringLiteral("no daemon")) : std::nullopt;
        test::Running<void>(model_->notifications().notify(rule, quote(2))).result();
        test::drainEvents();
        const std::string message = "Couldn't deliver notification: no daemon";
        EXPECT_EQ(std::ranges::count(texts(), message), fails ? 1 : 0);
    }
}

} // namespace
