// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Quorvel/Settings/SettingsFixture.h"

#include "Platform/Controls/ControlStyle.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

#include <algorithm>
#include <map>
#include <ranges>

namespace test {

using namespace quorvel;

void SettingsFixture::show(const QByteArray& watchlist) {
    make(watchlist);
    QApplication::setStyle(new platform::ControlStyle);
    window_ = std::make_unique<SettingsWindow>(*model_);
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

QLineEdit& SettingsFixture::threshold() const {
    for (auto* const field : window_->findChildren<QLineEdit*>()) {
        if (!field->isReadOnly())
            return *field;
    }
    throw std::out_of_range("no field to type in");
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
    drainEvents();
}

void SettingsFixture::choose(const char* comboBox, const char* item) {
    auto& box = get<QComboBox>(comboBox);
    click(box);
    ASSERT_TRUE(box.view()->isVisible()) << "no list is open";
    const int index = box.findText(QString::fromUtf8(item));
    ASSERT_GE(index, 0) << "the list has no " << item;
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
    drainEvents();
}

std::vector<std::string> SettingsFixture::items(const char* comboBox) const {
    std::vector<std::string> texts;
    const auto& box = get<QComboBox>(comboBox);
    for (int i = 0; i < box.count(); ++i)
        texts.push_back(box.itemText(i).toStdString());
    return texts;
}

std::string SettingsFixture::chosen(const char* comboBox) const {
    return get<QComboBox>(comboBox).currentText().toStdString();
}

void SettingsFixture::press(Qt::Key key) {
    QTest::keyClick(window_->windowHandle(), key);
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
    drainEvents();
    return model_->alerts().rules().all().back();
}

std::string SettingsFixture::stored(const char* key) const {
    return defaults_.string(QString::fromUtf8(key)).value_or(QString()).toStdString();
}

} // namespace test
