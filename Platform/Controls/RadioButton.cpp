// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/RadioButton.h"

#include "Platform/Controls/Indicator.h"

#include <QPainter>

namespace platform {

RadioButton::RadioButton(const QString& text, QWidget* parent) : QRadioButton(text, parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize RadioButton::sizeHint() const {
    return Indicator::sizeHint(*this);
}

bool RadioButton::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void RadioButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Indicator::paint(painter, *this, Indicator::Shape::circle, focusMark_.isShown());
}

} // namespace platform
