// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/FormSection.h"

#include "Platform/Appearance/SystemFonts.h"
#include "Platform/Controls/AccessibleRole.h"
#include "Platform/Controls/Label.h"

#include <QVBoxLayout>

namespace quorvel {

namespace {

constexpr int titleSize = 12;
constexpr int titleSpacing = 8;

} // namespace

FormSection::FormSection(const QString& title, QWidget* parent) : QWidget(parent) {
    platform::setAccessibleRole(*this, QAccessible::Grouping);
    setAccessibleName(title);
    using platform::Label;
    auto* const header = new Label(Label::Tone::secondary, titleSize, this);
    header->setText(title);
    header->setFont(platform::systemFont(titleSize, QFont::DemiBold));
    header->setContentsMargins(FormCard::inset, 0, FormCard::inset, 0);
    card_ = new FormCard(this); // NOLINT(cppcoreguidelines-prefer-member-initializer): read last
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(titleSpacing);
    layout->addWidget(header);
    layout->addWidget(card_);
}

} // namespace quorvel
