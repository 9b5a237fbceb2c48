// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Settings/SettingsFixture.h"

#include "Platform/Controls/Reveal.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>

#include <algorithm>
#include <map>
#include <ranges>

namespace test {

using namespace quorvel;

void SettingsFixture::show(const QByteArray& watchlist) {
    make(watchlist);
    window_ = std::make_unique<SettingsWindow>(*model_, [this] { ++relaunches_; });
    window_->resize(SettingsWindow::contentWidth, 400);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    drainEvents();
}

QAbstractButton* SettingsFixture::button(const char* text) const {
    for (auto* const button : window_->findChildren<QAbstractButton*>()) {
        if (button->text() == QString::fromUtf8(text) && button->isVisible())
            return button;
    }
    return nullptr;
}

std::vector<std::string> SettingsFixture::texts() const {
    std::multimap<int, std::string> byHeight;
    for (const auto* const label : window_->findChildren<QLabel*>()) {
        if (label->isVisible())
            byHeight.emplace(label->mapTo(window_.get(), QPoint()).y(),
                             label->text().toStdString());
    }
    const auto texts = byHeight | std::views::values;
    return {texts.begin(), texts.end()};
}

void SettingsFixture::click(QWidget& widget, QRect area) {
    if (window_->isAncestorOf(&widget))
        window_->findChild<QScrollArea*>()->ensureWidgetVisible(&widget);
    const QPoint place = (area.isNull() ? widget.rect() : area).center();
    QWidget* const top = widget.window();
    QTest::mouseClick(top->windowHandle(), Qt::LeftButton, {}, widget.mapTo(top, place));
    settle();
}

void SettingsFixture::choose(const char* picker, const char* item) {
    click(get<platform::Picker>(picker));
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu) << "no menu is open";
    for (QAction* const action : menu->actions()) {
        if (action->text() == QString::fromUtf8(item)) {
            click(*menu, menu->actionGeometry(action));
            return;
        }
    }
    menu->close();
    FAIL() << "the menu has no " << item;
}

std::vector<std::string> SettingsFixture::items(const char* picker) {
    click(get<platform::Picker>(picker));
    std::vector<std::string> texts;
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return texts;
    for (const QAction* const action : menu->actions())
        texts.push_back(action->text().toStdString());
    menu->close();
    settle();
    return texts;
}

void SettingsFixture::press(Qt::Key key) {
    QWidget* const menu = QApplication::activePopupWidget();
    QTest::keyClick((menu ? menu : window_.get())->windowHandle(), key);
    settle();
}

void SettingsFixture::settle() {
    // Asked for anew each time: some delete themselves once they have closed.
    EXPECT_TRUE(waitUntil([this] {
        return std::ranges::none_of(window_->findChildren<platform::Reveal*>(),
                                    [](auto* reveal) { return reveal->isMoving(); });
    }));
    drainEvents();
}

const AlertRule& SettingsFixture::addRule(const char* base, AlertConditionKind kind,
                                          const char* threshold, bool repeats) {
    using RepeatMode = AlertRule::RepeatMode;
    model_->alerts().add({.id = QUuid::createUuid(),
                          .symbol = {base, "USDT"},
                          .condition = condition(kind, *Decimal::fromAPIString(threshold)),
                          .repeatMode = repeats ? RepeatMode::repeating(RepeatMode::defaultCooldown)
                                                : RepeatMode::once(),
                          .isEnabled = true,
                          .lastTriggeredAt = std::nullopt});
    settle();
    return model_->alerts().rules().all().back();
}

std::string SettingsFixture::stored(const char* key) const {
    return defaults_.string(QString::fromUtf8(key)).value_or(QString()).toStdString();
}

} // namespace test
