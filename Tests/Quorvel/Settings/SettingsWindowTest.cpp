// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/SettingsWindow.h"

#include "Platform/Foundation/InstalledTables.h"
#include "Tests/Quorvel/Settings/SettingsFixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionComboBox>

using namespace quorvel;
using testing::Contains;

namespace {

class Settings : public test::SettingsFixture {
protected:
    void change(auto edit) {
        DisplaySettings display = settings_.display();
        edit(display);
        settings_.setDisplay(display);
        test::drainEvents();
    }

    /// Where the keyboard gets to by Tab, from the first control on, until it is there again.
    std::vector<QWidget*> tabStops() {
        std::vector<QWidget*> stops;
        get<QComboBox>("Show prices in").setFocus(Qt::TabFocusReason);
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

TEST_F(Settings, WritesWhatIsChosenAndShowsWhatOthersWrite) {
    struct Case {
        const char* comboBox;
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
        EXPECT_EQ(items(c.comboBox), c.items);
        EXPECT_EQ(chosen(c.comboBox), c.items.front());
        choose(c.comboBox, c.chosen);
        EXPECT_EQ(stored(c.key), c.stored);
        EXPECT_EQ(chosen(c.comboBox), c.chosen);
    }
    settings_.setDisplay({});
    EXPECT_EQ(chosen("Content"), "Price and change");
}

TEST_F(Settings, SpinBoxesTakeOneStepAtATimeAndStopAtTheirEnds) {
    show();
    change([](DisplaySettings& d) { d.setRotationInterval(platform::TimeInterval(58.5)); });
    auto& interval = get<QSpinBox>("Rotation interval: 58s");
    interval.setFocus(Qt::TabFocusReason);
    press(Qt::Key_Up);
    EXPECT_EQ(settings_.display().rotationInterval().count(), 59.5);
    EXPECT_EQ(interval.accessibleName(), QStringLiteral("Rotation interval: 59s"));
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(stored("display.rotationInterval"), "60");
    change([](DisplaySettings& d) { d.setRotationInterval(platform::TimeInterval(2)); });
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(stored("display.rotationInterval"), "1");
    EXPECT_THAT(texts(), Contains("Rotation interval: 1s"));
    press(Qt::Key_3);
    EXPECT_EQ(stored("display.rotationInterval"), "1") << "nothing is typed where nothing is seen";

    change([](DisplaySettings& d) { d.mode = StatusBarDisplayMode::sideBySide; });
    auto& limit = get<QSpinBox>("Show up to 3");
    const QRect minus(0, 0, limit.width() / 2, limit.height());
    for (int i = 0; i < 4; ++i)
        click(limit, minus.translated(minus.width(), 0));
    EXPECT_EQ(stored("display.sideBySideLimit"), "5");
    EXPECT_THAT(texts(), Contains("Show up to 5"));
    for (int i = 0; i < 6; ++i)
        click(limit, minus);
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
        EXPECT_EQ(find<QSpinBox>(interval.c_str()) != nullptr, expected[0] == interval);
        EXPECT_EQ(find<QSpinBox>(limit.c_str()) != nullptr, expected[0] == limit);
    }
}

TEST_F(Settings, AreReachedByTabInTheOrderInWhichTheyStandAndNamed) {
    show();
    addRule("BTC", AlertConditionKind::priceRisesAbove, "70000", false);
    addRule("ETH", AlertConditionKind::priceFallsBelow, "2000", true);
    QPoint last(0, -1);
    const auto stops = tabStops();
    EXPECT_EQ(stops.size(), 19U) << "all that can be used, each once";
    for (QWidget* const stop : stops) {
        const QPoint inForm =
            stop->mapTo(window_->findChild<QScrollArea*>()->widget(), stop->rect().center());
        constexpr int unevenness = 10; // of what stands in one row
        EXPECT_TRUE(inForm.y() > last.y() + unevenness || inForm.x() > last.x())
            << stop->accessibleName().toStdString();
        last = inForm;
        QAccessibleInterface& accessible = *QAccessible::queryAccessibleInterface(stop);
        EXPECT_NE(accessible.text(QAccessible::Name), QString()) << stop->metaObject()->className();
        EXPECT_NE(accessible.role(), QAccessible::Client);
        if (qobject_cast<QComboBox*>(stop)) {
            EXPECT_EQ(accessible.relations(QAccessible::Label).size(), 1)
                << "its name is what is chosen, so something else has to say what it is";
        }
    }
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
    for (const auto* const box : window_->findChildren<QComboBox*>()) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        const QRect room = box->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                        QStyle::SC_ComboBoxEditField, box);
        for (int i = 0; i < box->count(); ++i) {
            const QString item = box->itemText(i);
            EXPECT_FALSE(isChinese && isUntranslated(item)) << item.toStdString();
            EXPECT_LE(box->fontMetrics().horizontalAdvance(item), room.width())
                << item.toStdString();
        }
    }
    for (const auto* const button : window_->findChildren<QAbstractButton*>()) {
        EXPECT_FALSE(isChinese && isUntranslated(button->text())) << button->text().toStdString();
        EXPECT_LE(button->sizeHint().width(), button->width()) << button->text().toStdString();
    }
    const auto* const field = &threshold();
    EXPECT_FALSE(isChinese && isUntranslated(field->placeholderText()));
    EXPECT_FALSE(isChinese && isUntranslated(button(isChinese ? "添加" : "Add")->toolTip()));
}

INSTANTIATE_TEST_SUITE_P(EitherLanguage, SettingsIn, testing::Values("en", "zh-Hans"),
                         [](const auto& test) {
                             return std::string(test.param) == "en" ? "English" : "Chinese";
                         });

} // namespace
