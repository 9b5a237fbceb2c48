// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AlertRow.h"

#include "Platform/Appearance/SymbolIcon.h"
#include "Platform/Controls/ControlStyle.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/FormCard.h"
#include "Quorvel/Settings/FormFonts.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QPushButton>

namespace quorvel {

using platform::ControlStyle;
using platform::Label;
using platform::localized;

namespace {

constexpr int spacing = 12;
constexpr int lineSpacing = 1;
constexpr int trashSize = 16;

/// What is to be said of the rule besides its condition; empty for nothing.
QString state(const AlertRule& rule) {
    if (!rule.repeatMode.isOnce())
        return localized("Quorvel", "Repeats");
    if (rule.lastTriggeredAt)
        return localized("Quorvel", "Triggered — toggle to re-enable");
    return {};
}

/// The closest widget before `widget` that the keyboard reaches.
QWidget* stopBefore(QWidget& widget) {
    QWidget* before = widget.previousInFocusChain();
    while (!(before->focusPolicy() & Qt::TabFocus) && before != &widget)
        before = before->previousInFocusChain();
    return before;
}

} // namespace

AlertRow::AlertRow(AlertStore& alerts, const AlertRule& rule, std::span<const Symbol> inSight,
                   QWidget* parent)
    : QWidget(parent),
      id_(rule.id),
      control_(new QCheckBox(this)),
      text_(new Label(Label::Tone::primary, FormFonts::label, this)),
      state_(new Label(Label::Tone::tertiary, FormFonts::caption, this)),
      remove_(new QPushButton(this)) {
    ControlStyle::makeSwitch(*control_);
    remove_->setFlat(true);
    remove_->setIcon(platform::symbolIcon(QStringLiteral("trash")));
    remove_->setIconSize({trashSize, trashSize});
    remove_->setToolTip(localized("Quorvel", "Delete"));
    layOut();
    show(rule, inSight);
    connect(control_, &QCheckBox::toggled, this,
            [this, &alerts](bool isOn) { alerts.setEnabled(isOn, id_); });
    connect(remove_, &QPushButton::clicked, this, [this, &alerts] { alerts.remove(id_); });
}

void AlertRow::layOut() {
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(lineSpacing);
    texts->addStretch();
    texts->addWidget(text_);
    texts->addWidget(state_);
    texts->addStretch();
    auto* const line = new QHBoxLayout(this);
    line->setContentsMargins(FormCard::inset, 0, FormCard::inset - ControlStyle::flatButtonPadding,
                             0);
    line->setSpacing(spacing);
    line->addStrut(preferredHeight);
    line->addWidget(control_);
    line->addLayout(texts, 1);
    line->addWidget(remove_);
}

void AlertRow::show(const AlertRule& rule, std::span<const Symbol> inSight) {
    const QString text = rule.title(inSight);
    control_->setChecked(rule.isEnabled);
    control_->setAccessibleName(text);
    control_->setAccessibleDescription(state(rule));
    remove_->setAccessibleName(localized("Quorvel", "Delete %1").arg(text));
    text_->setText(text);
    text_->setTone(rule.isEnabled ? Label::Tone::primary : Label::Tone::secondary);
    state_->setText(state(rule));
    state_->setVisible(!state_->text().isEmpty());
}

void AlertRow::putInFocusOrder(QWidget& next) {
    if (QWidget* const before = stopBefore(next); before != remove_)
        setTabOrder(before, control_);
    setTabOrder(control_, remove_);
}

} // namespace quorvel
