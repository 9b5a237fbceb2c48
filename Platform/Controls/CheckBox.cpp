// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/CheckBox.h"

#include "Platform/Controls/Indicator.h"

#include <QPainter>

namespace platform {

CheckBox::CheckBox(const QString& text, QWidget* parent) : QCheckBox(text, parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize CheckBox::sizeHint() const {
    return Indicator::sizeHint(*this);
}

bool CheckBox::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void CheckBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Indicator::paint(painter, *this, Indicator::Shape::box, focusMark_.isShown());
}

} // namespace platform
