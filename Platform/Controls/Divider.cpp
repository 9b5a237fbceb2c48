// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Divider.h"

#include "Platform/Appearance/SystemColors.h"

#include <QPainter>

namespace platform {

Divider::Divider(QWidget* parent) : QWidget(parent) {
    setFixedHeight(1);
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRectF(0, 0, width(), 1 / devicePixelRatioF()),
                     SystemColors::of(palette()).separator);
}

} // namespace platform
