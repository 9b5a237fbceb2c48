// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/FormCard.h"

#include "Platform/Appearance/SystemColors.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace quorvel {

namespace {

constexpr int cornerRadius = 10;

} // namespace

FormCard::FormCard(QWidget* parent) : QWidget(parent), rows_(new QVBoxLayout(this)) {
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
}

void FormCard::addRow(QWidget* row) {
    rows_->addWidget(row);
}

void FormCard::insertRow(QWidget* row, QWidget* next) {
    rows_->insertWidget(rows_->indexOf(next), row);
    // Also where assistive technology goes through the children.
    row->stackUnder(next);
}

bool FormCard::event(QEvent* event) {
    // The hairlines stand between the rows that are there.
    if (event->type() == QEvent::LayoutRequest)
        update();
    return QWidget::event(event);
}

void FormCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto colors = platform::SystemColors::of(palette());
    const double line = 1 / devicePixelRatioF();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.separator, line));
    painter.setBrush(colors.card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                            cornerRadius, cornerRadius);
    painter.setRenderHint(QPainter::Antialiasing, false);
    bool isFirst = true;
    for (int i = 0; i < rows_->count(); ++i) {
        const QWidget& row = *rows_->itemAt(i)->widget();
        if (!row.isVisibleTo(this))
            continue;
        if (!isFirst)
            painter.fillRect(QRectF(inset, row.y(), width() - 2 * inset, line), colors.separator);
        isFirst = false;
    }
}

} // namespace quorvel
