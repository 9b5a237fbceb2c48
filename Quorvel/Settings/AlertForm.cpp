// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AlertForm.h"

#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Controls/ControlStyle.h"
#include "Platform/Controls/Label.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Choices/Choices.h"
#include "Quorvel/Settings/FormCard.h"
#include "Quorvel/Settings/FormFonts.h"
#include "QuorvelKit/MarketModel/DisplayName.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

namespace quorvel {

using platform::localized;

namespace {

constexpr int spacing = 12;
constexpr int captionSpacing = 4;

} // namespace

AlertForm::AlertForm(AppModel& model, QWidget* parent) : QWidget(parent), model_(model) {
    makeControls();
    layOut();
    listCoins();
    connect(&model.watchlist(), &WatchlistStore::itemsChanged, this, &AlertForm::listCoins);
    connect(coin_, &QComboBox::currentIndexChanged, this, &AlertForm::refresh);
    connect(condition_, &QComboBox::currentIndexChanged, this, &AlertForm::refresh);
    connect(threshold_, &QLineEdit::textChanged, this, &AlertForm::refresh);
    connect(threshold_, &QLineEdit::returnPressed, this, &AlertForm::add);
    connect(add_, &QAbstractButton::clicked, this, &AlertForm::add);
}

void AlertForm::makeControls() {
    setFont(platform::systemFont(FormFonts::label));
    coin_ = new QComboBox;
    condition_ = makeComboBox(labelledCases<AlertConditionKind>());
    threshold_ = new QLineEdit;
    repeat_ = new QCheckBox(localized("Quorvel", "Repeat"));
    add_ = new QPushButton(localized("Quorvel", "Add"));
    add_->setDefault(true); // what the form is for
}

void AlertForm::layOut() {
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(FormCard::inset, spacing, FormCard::inset, spacing);
    grid->setHorizontalSpacing(spacing);
    grid->setVerticalSpacing(0);
    addLabelled(*grid, 0, localized("Quorvel", "Coin"), coin_);
    addLabelled(*grid, 1, localized("Quorvel", "Condition"), condition_);
    grid->setRowMinimumHeight(2, spacing);
    grid->addWidget(threshold_, 3, 0);
    auto* const actions = new QHBoxLayout;
    actions->addWidget(repeat_);
    actions->addStretch();
    actions->addWidget(add_);
    grid->addLayout(actions, 3, 1);
}

void AlertForm::addLabelled(QGridLayout& grid, int column, const QString& label, QWidget* control) {
    using platform::Label;
    auto* const caption = new Label(Label::Tone::secondary, FormFonts::caption);
    caption->setText(label);
    caption->setContentsMargins(0, 0, 0, captionSpacing);
    caption->setBuddy(control);
    control->setAccessibleName(label);
    grid.addWidget(caption, 0, column);
    grid.addWidget(control, 1, column);
}

QWidget& AlertForm::firstControl() const {
    return *coin_;
}

std::optional<Symbol> AlertForm::selectedSymbol() const {
    const int index = coin_->currentIndex();
    if (index <= 0)
        return std::nullopt;
    return coins_.at(static_cast<std::size_t>(index) - 1);
}

void AlertForm::select(const std::optional<Symbol>& symbol) {
    const auto found = symbol ? std::ranges::find(coins_, *symbol) : coins_.end();
    coin_->setCurrentIndex(found == coins_.end() ? 0
                                                 : static_cast<int>(found - coins_.begin()) + 1);
}

void AlertForm::focusThreshold() {
    threshold_->setFocus(Qt::OtherFocusReason);
}

AlertConditionKind AlertForm::kind() const {
    return allCases<AlertConditionKind>().at(static_cast<std::size_t>(condition_->currentIndex()));
}

std::optional<Decimal> AlertForm::threshold() const {
    return Decimal::fromAPIString(threshold_->text().toStdString());
}

void AlertForm::listCoins() {
    const auto selected = selectedSymbol();
    {
        const QSignalBlocker untilListed(coin_);
        coins_ = model_.watchlist().symbols();
        coin_->clear();
        coin_->addItem(localized("Quorvel", "Choose…"));
        for (const Symbol& coin : coins_)
            coin_->addItem(displayName(coin, coins_));
        select(selected);
    }
    refresh();
}

void AlertForm::refresh() {
    platform::ControlStyle::setPrompt(*threshold_, isPercentage(kind())
                                                       ? localized("Quorvel", "Threshold (%)")
                                                       : localized("Quorvel", "Threshold"));
    QString missing;
    if (!selectedSymbol())
        missing = localized("Quorvel", "Choose a coin first");
    else if (!threshold())
        missing = localized("Quorvel", "Enter the threshold as a plain number, such as 70000");
    add_->setEnabled(missing.isEmpty());
    add_->setAccessibleDescription(missing);
    add_->setToolTip(missing);
}

void AlertForm::add() {
    const auto symbol = selectedSymbol();
    const auto value = threshold();
    if (!symbol || !value)
        return;
    using RepeatMode = AlertRule::RepeatMode;
    model_.alerts().add({.id = QUuid::createUuid(),
                         .symbol = *symbol,
                         .condition = condition(kind(), *value),
                         .repeatMode = repeat_->isChecked()
                                           ? RepeatMode::repeating(RepeatMode::defaultCooldown)
                                           : RepeatMode::once(),
                         .isEnabled = true,
                         .lastTriggeredAt = std::nullopt});
    requests_.start(model_.notifications().requestAuthorizationIfNeeded());
    // The button is about to be disabled, and would hand the keyboard to what lies below the form.
    focusThreshold();
    threshold_->clear();
}

} // namespace quorvel
