// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/FormRow.h"

#include "Platform/Appearance/SystemFonts.h"
#include "Quorvel/Settings/FormCard.h"
#include "Quorvel/Settings/FormFonts.h"

#include <QVBoxLayout>

namespace quorvel {

using platform::Label;

namespace {

constexpr int spacing = 12;
constexpr int hintBottom = 10;

} // namespace

FormRow::FormRow(const QString& label, QWidget* control, QWidget* parent)
    : QWidget(parent),
      label_(new Label(Label::Tone::primary, FormFonts::label, this)),
      control_(control),
      lines_(new QVBoxLayout(this)) {
    label_->setWordWrap(false);
    label_->setBuddy(control);
    control->setFont(label_->font());
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(FormCard::inset, 0, FormCard::inset, 0);
    line->setSpacing(spacing);
    line->addStrut(preferredHeight);
    line->addWidget(label_, 1);
    line->addWidget(control);
    lines_->setContentsMargins(0, 0, 0, 0);
    lines_->setSpacing(0);
    lines_->addLayout(line);
    setLabel(label);
}

void FormRow::setLabel(const QString& label) {
    label_->setText(label);
    control_->setAccessibleName(label);
}

void FormRow::makeCaption() {
    label_->setFont(platform::systemFont(FormFonts::caption));
    label_->setTone(Label::Tone::secondary);
    label_->setBuddy(nullptr);
    control_->setAccessibleName({});
    control_->setAccessibleDescription(label_->text());
}

void FormRow::addHint(QWidget* hint) {
    hint->setContentsMargins(FormCard::inset, 0, FormCard::inset, hintBottom);
    lines_->addWidget(hint);
}

} // namespace quorvel
