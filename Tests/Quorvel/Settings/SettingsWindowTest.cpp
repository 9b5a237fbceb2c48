// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/SettingsWindow.h"

#include "Platform/Controls/RadioButton.h"
#include "Platform/Controls/Stepper.h"
#include "Platform/Controls/Switch.h"
#include "Platform/Foundation/InstalledTables.h"
#include "Tests/Quorvel/Settings/SettingsFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QWheelEvent>

using namespace quorvel;
using platform::Picker;
using platform::Stepper;
using platform::Switch;
using testing::Contains;
using testing::Not;

namespace {

constexpr const char* restartText = "Restart to apply the new language";
constexpr const char* loginSwitch = "Launch Quorvel at login";

class Settings : public test::SettingsFixture {
protected:
    void change(auto edit) {
        DisplaySettings display = settings_.display();
        edit(display);
        settings_.setDisplay(display);
        settle();
    }

    /// Where the keyboard gets to by Tab, from the first control on, until it is there again.
    std::vector<QWidget*> tabStops() {
        std::vector<QWidget*> stops;
        get<Picker>("Display").setFocus(Qt::TabFocusReason);
        do {
            QWidget* const stop = window_->focusWidget();
            const QPoint place = stop->mapTo(window_.get(), stop->rect().center());
            EXPECT_TRUE(window_->rect().contains(place)) << "what has the keyboard is in view";
            stops.push_back(stop);
            press(Qt::Key_Tab);
        } while (window_->focusWidget() != stops.front() && stops.size() < 100);
        return stops;
    }
};

TEST_F(Settings, WritesWhatIsPickedAndShowsWhatOthersWrite) {
    struct Case {
        const char* picker;
        std::vector<std::string> items;
        const char* chosen;
        const char* key;
        const char* stored;
    };
    show();
    for (const Case& c : std::initializer_list<Case>{
             {"Display",
              {"Rotate one", "Side by side", "Fixed one"},
              "Side by side",
              "display.mode",
              "sideBySide"},
             {"Content",
              {"Price and change", "Price only", "Change only"},
              "Price only",
              "display.content",
              "priceOnly"},
             {"Theme", {"Follow system", "Light", "Dark"}, "Dark", "interfaceAppearance", "dark"},
             {"Chart period", {"24 hours", "7 days"}, "7 days", "display.chartPeriod", "week"},
             {"Language",
              {"Follow system", "English", "简体中文"},
              "简体中文",
              "interfaceLanguage",
              "simplifiedChinese"},
         }) {
        EXPECT_EQ(get<Picker>(c.picker).currentText().toStdString(), c.items.front());
        EXPECT_EQ(items(c.picker), c.items);
        choose(c.picker, c.chosen);
        EXPECT_EQ(stored(c.key), c.stored);
        EXPECT_EQ(get<Picker>(c.picker).currentText().toStdString(), c.chosen);
    }
    settings_.setDisplay({});
    settings_.setAppearance(AppearanceMode::light);
    EXPECT_EQ(get<Picker>("Content").currentText(), QStringLiteral("Price and change"));
    EXPECT_EQ(get<Picker>("Theme").currentText(), QStringLiteral("Light"));
}

TEST_F(Settings, SwitchesAndRadioButtonsWriteTheirKeys) {
    show();
    click(get<Switch>("Show icon"));
    EXPECT_EQ(stored("display.showsIcon"), "false");
    get<Switch>("Show up/down arrow").setFocus(Qt::TabFocusReason);
    press(Qt::Key_Space);
    EXPECT_EQ(stored("display.showsDirectionArrow"), "false");
    EXPECT_EQ(stored("display.showsIcon"), "false") << "the rest of the record stays";
    click(*button("Green up, red down"));
    EXPECT_EQ(stored("display.colorScheme"), "greenUpRedDown");
    button("Green up, red down")->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Up);
    EXPECT_EQ(stored("display.colorScheme"), "redUpGreenDown");
    change([](DisplaySettings& display) {
        display.showsIcon = true;
        display.colorScheme = PriceColorScheme::greenUpRedDown;
    });
    EXPECT_TRUE(get<Switch>("Show icon").isChecked());
    EXPECT_TRUE(button("Green up, red down")->isChecked());
}

TEST_F(Settings, ReachTheStatusBarWithinASecond) {
    show();
    start();
    push(70000);
    choose("Content", "Price only");
    clock_.advance(std::chrono::seconds(1));
    test::drainEvents();
    EXPECT_EQ(text(), "BTC 70,000.00");
}

TEST_F(Settings, SteppersTakeOneStepAtATimeAndStopAtTheirEnds) {
    show();
    change([](DisplaySettings& d) { d.setRotationInterval(platform::TimeInterval(58.5)); });
    auto& interval = get<Stepper>("Rotation interval: 58s");
    click(interval, interval.half(1));
    EXPECT_EQ(settings_.display().rotationInterval().count(), 59.5);
    EXPECT_TRUE(find<Stepper>("Rotation interval: 59s"));
    click(interval, interval.half(1));
    click(interval, interval.half(1));
    EXPECT_EQ(stored("display.rotationInterval"), "60");
    change([](DisplaySettings& d) { d.setRotationInterval(platform::TimeInterval(2)); });
    interval.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(stored("display.rotationInterval"), "1");
    EXPECT_THAT(texts(), Contains("Rotation interval: 1s"));

    change([](DisplaySettings& d) { d.mode = StatusBarDisplayMode::sideBySide; });
    auto& limit = get<Stepper>("Show up to 3");
    for (int i = 0; i < 4; ++i)
        click(limit, limit.half(1));
    EXPECT_EQ(stored("display.sideBySideLimit"), "5");
    EXPECT_TRUE(find<Stepper>("Show up to 5"));
    for (int i = 0; i < 6; ++i)
        click(limit, limit.half(-1));
    EXPECT_EQ(stored("display.sideBySideLimit"), "1");
}

TEST_F(Settings, ShowExactlyTheRowsOfTheDisplayMode) {
    const std::string interval = "Rotation interval: 5s";
    const std::string limit = "Show up to 3";
    const std::string pinHint = "Right-click a coin in the panel to pin it";
    const std::string fixedHint = "Shows the first pinned coin, or the first in your watchlist";
    const std::vector<std::pair<const char*, std::vector<std::string>>> rows = {
        {"Fixed one", {fixedHint}}, {"Side by side", {limit, pinHint}}, {"Rotate one", {interval}}};
    show();
    for (const auto& [mode, expected] : rows) {
        choose("Display", mode);
        std::vector<std::string> shown;
        for (const std::string& text : texts()) {
            if (text == interval || text == limit || text == pinHint || text == fixedHint)
                shown.push_back(text);
        }
        EXPECT_EQ(shown, expected) << mode;
        EXPECT_EQ(find<Stepper>(interval.c_str()) != nullptr, expected[0] == interval);
        EXPECT_EQ(find<Stepper>(limit.c_str()) != nullptr, expected[0] == limit);
    }
}

TEST_F(Settings, OfferTheRestartWhileTheLanguageIsAnotherThanAtLaunch) {
    show();
    EXPECT_FALSE(button("Restart Now"));
    choose("Language", "English");
    EXPECT_THAT(texts(), Contains(restartText));
    click(*button("Restart Now"));
    EXPECT_EQ(relaunches_, 1);
    choose("Language", "Follow system");
    EXPECT_THAT(texts(), Not(Contains(restartText)));
    EXPECT_FALSE(button("Restart Now"));
}

TEST_F(Settings, SnapTheLoginSwitchBackAndSayWhyWhereItCannotBeChanged) {
    show();
    QFile inTheWay(directory_.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    auto& control = get<Switch>(loginSwitch);
    click(control);
    EXPECT_FALSE(control.isChecked());
    ASSERT_TRUE(model_->launchAtLogin().lastErrorMessage());
    const std::string message = model_->launchAtLogin().lastErrorMessage()->toStdString();
    EXPECT_THAT(texts(), Contains(message));
    ASSERT_TRUE(inTheWay.remove());
    click(control);
    EXPECT_TRUE(control.isChecked());
    EXPECT_TRUE(model_->launchAtLogin().isEnabled());
    EXPECT_THAT(texts(), Not(Contains(message)));
}

TEST_F(Settings, AreReachedByTabInTheOrderInWhichTheyStand) {
    show();
    addRule("BTC", AlertConditionKind::priceRisesAbove, "70000", false);
    addRule("ETH", AlertConditionKind::priceFallsBelow, "2000", true);
    QPoint last(0, -1);
    const auto stops = tabStops();
    EXPECT_EQ(stops.size(), 18U) << "all that can be used, each once";
    for (QWidget* const stop : stops) {
        const QPoint inForm =
            stop->mapTo(window_->findChild<QScrollArea*>()->widget(), stop->rect().center());
        constexpr int unevenness = 10; // of what stands in one row
        EXPECT_TRUE(inForm.y() > last.y() + unevenness || inForm.x() > last.x())
            << stop->accessibleName().toStdString();
        last = inForm;
    }
}

TEST_F(Settings, TellAssistiveTechnologyWhatEveryControlIs) {
    show();
    addRule("BTC", AlertConditionKind::priceRisesAbove, "70000", false);
    for (QWidget* const stop : tabStops()) {
        QAccessibleInterface& accessible = *QAccessible::queryAccessibleInterface(stop);
        const std::string name = accessible.text(QAccessible::Name).toStdString();
        EXPECT_NE(name, "") << stop->metaObject()->className();
        EXPECT_NE(accessible.role(), QAccessible::Client) << name;
    }
    auto* const stepper =
        QAccessible::queryAccessibleInterface(&get<Stepper>("Rotation interval: 5s"));
    EXPECT_EQ(stepper->text(QAccessible::Value), QStringLiteral("5"));
    stepper->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(stepper->valueInterface()->currentValue(), QVariant(6.0));
    EXPECT_EQ(stored("display.rotationInterval"), "6");
    auto* const theme = QAccessible::queryAccessibleInterface(&get<Picker>("Theme"));
    EXPECT_EQ(theme->text(QAccessible::Name), QStringLiteral("Theme"));
    EXPECT_EQ(theme->text(QAccessible::Value), QStringLiteral("Follow system"));
    auto* const icon = QAccessible::queryAccessibleInterface(&get<Switch>("Show icon"));
    icon->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(stored("display.showsIcon"), "false");
}

TEST_F(Settings, AreNotChangedByScrollingOverThem) {
    show();
    auto& picker = get<Picker>("Display");
    const QPoint place = picker.rect().center();
    QWheelEvent wheel(place, picker.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&picker, &wheel);
    EXPECT_EQ(settings_.display().mode, StatusBarDisplayMode::rotating);
}

/// Whether a text may stand in a Chinese window as it is.
bool isUntranslated(QString text) {
    for (const char* const name : {"Quorvel", "BTC", "ETH", "English"})
        text.remove(QString::fromLatin1(name));
    return std::ranges::any_of(text, [](QChar c) { return c.isLetter() && c.unicode() < 0x80; });
}

class SettingsIn : public Settings, public testing::WithParamInterface<const char*> {};

TEST_P(SettingsIn, HaveAllTextsTranslatedAndNoneCut) {
    const platform::InstalledTables tables({QString::fromLatin1(GetParam())});
    const bool isChinese = tables.language() == QStringLiteral("zh-Hans");
    show();
    addRule("BTC", AlertConditionKind::priceFallsBelow, "0.00001234", true);
    const AlertRule fired = addRule("ETH", AlertConditionKind::changeFallsBelow, "-5", false);
    model_->alerts().markTriggered({fired}, clock_.now());
    settings_.setLanguage(AppLanguage::english);
    delivering_->grants = false;
    test::Running<void>(model_->notifications().requestAuthorizationIfNeeded()).result();
    for (const auto mode : allCases<StatusBarDisplayMode>()) {
        change([mode](DisplaySettings& display) {
            display.mode = mode;
            display.setRotationInterval(platform::TimeInterval(60));
        });
        for (const auto* const label : window_->findChildren<QLabel*>()) {
            if (!label->isVisible())
                continue;
            const std::string text = label->text().toStdString();
            EXPECT_FALSE(isChinese && isUntranslated(label->text())) << text;
            const int needed = label->wordWrap() ? label->heightForWidth(label->width())
                                                 : label->sizeHint().width();
            EXPECT_LE(needed, label->wordWrap() ? label->height() : label->width()) << text;
        }
    }
    for (const auto* const picker : window_->findChildren<Picker*>()) {
        for (int i = 0; i < picker->count(); ++i) {
            const QString item = picker->itemText(i);
            EXPECT_FALSE(isChinese && isUntranslated(item)) << item.toStdString();
            EXPECT_LE(picker->fontMetrics().horizontalAdvance(item), picker->textArea().width())
                << item.toStdString();
        }
    }
    for (const auto* const button : window_->findChildren<QAbstractButton*>()) {
        EXPECT_FALSE(isChinese && isUntranslated(button->text())) << button->text().toStdString();
        EXPECT_LE(button->sizeHint().width(), button->width()) << button->text().toStdString();
    }
    const auto* const field = window_->findChild<QLineEdit*>();
    EXPECT_FALSE(isChinese && isUntranslated(field->placeholderText()));
    EXPECT_FALSE(isChinese && isUntranslated(button(isChinese ? "添加" : "Add")->toolTip()));
}

INSTANTIATE_TEST_SUITE_P(EitherLanguage, SettingsIn, testing::Values("en", "zh-Hans"),
                         [](const auto& test) {
                             return std::string(test.param) == "en" ? "English" : "Chinese";
                         });

} // namespace
