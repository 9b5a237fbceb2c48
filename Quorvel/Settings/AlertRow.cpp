// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AlertRow.h"

#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/FormCard.h"
#include "Quorvel/Settings/FormFonts.h"
#include "Quorvel/Settings/FormRow.h"

#include <QBoxLayout>

namespace quorvel {

using platform::localized;
using platform::PlainButton;
using platform::Switch;
using platform::TextLine;

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

QString wording(const AlertRule& rule) {
    return QString::fromStdString(rule.symbol.base) + u' ' + rule.condition.description();
}

} // namespace

AlertRow::AlertRow(AlertStore& alerts, const AlertRule& rule, QWidget* parent)
    : QWidget(parent),
      id_(rule.id),
      control_(new Switch(this)),
      text_(new TextLine({}, TextLine::Strength::primary, this)),
      state_(new TextLine({}, TextLine::Strength::tertiary, this)),
      remove_(new PlainButton({}, this)) {
    text_->setFont(platform::systemFont(FormFonts::label));
    state_->setFont(platform::systemFont(FormFonts::caption));
    remove_->setSymbol(platform::SymbolImage(QStringLiteral("trash")), trashSize);
    remove_->setToolTip(localized("Quorvel", "Delete"));
    layOut();
    show(rule);
    connect(control_, &QAbstractButton::toggled, this,
            [this, &alerts](bool isOn) { alerts.setEnabled(isOn, id_); });
    connect(remove_, &QAbstractButton::clicked, this, [this, &alerts] { alerts.remove(id_); });
}

void AlertRow::layOut() {
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(lineSpacing);
    texts->addStretch();
    texts->addWidget(text_);
    texts->addWidget(state_);
    texts->addStretch();
    auto* const line = new QHBoxLayout(this);
    const int overhanging = overhang(*control_);
    line->setContentsMargins(FormCard::inset - overhanging, 0,
                             FormCard::inset - PlainButton::horizontalPadding, 0);
    line->setSpacing(0);
    line->addStrut(preferredHeight);
    line->addWidget(control_);
    line->addSpacing(spacing - overhanging);
    line->addLayout(texts, 1);
    line->addSpacing(spacing - PlainButton::horizontalPadding);
    line->addWidget(remove_);
}

void AlertRow::show(const AlertRule& rule) {
    const QString text = wording(rule);
    control_->setChecked(rule.isEnabled);
    control_->setAccessibleName(text);
    control_->setAccessibleDescription(state(rule));
    remove_->setAccessibleName(localized("Quorvel", "Delete %1").arg(text));
    text_->setText(text);
    text_->setStrength(rule.isEnabled ? TextLine::Strength::primary
                                      : TextLine::Strength::secondary);
    state_->setText(state(rule));
    state_->setVisible(!state_->text().isEmpty());
}

} // namespace quorvel
