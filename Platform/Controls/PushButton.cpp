// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/PushButton.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace platform {

namespace {

constexpr int horizontalPadding = 14;
constexpr int smallestWidth = 64;
constexpr int preferredHeight = 28;

} // namespace

PushButton::PushButton(const QString& text, Kind kind, QWidget* parent)
    : QPushButton(text, parent), kind_(kind) {
    constexpr int margin = ControlMarks::ringMargin;
    setContentsMargins(margin, margin, margin, margin);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

QSize PushButton::sizeHint() const {
    const int width = fontMetrics().horizontalAdvance(text()) + 2 * horizontalPadding;
    return QSize(std::max(width, smallestWidth), preferredHeight).grownBy(contentsMargins());
}

void PushButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

void PushButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto colors = SystemColors::of(palette());
    const QRect area = contentsRect();
    QColor foreground =
        isEnabled() ? colors.label : palette().color(QPalette::Disabled, QPalette::ButtonText);
    if (kind_ == Kind::prominent && isEnabled()) {
        const auto accent = AccentColors::of(palette());
        ControlMarks::paintFill(painter, area, accent.fill);
        foreground = accent.mark;
    } else {
        ControlMarks::paintFill(painter, area, colors.field);
    }
    if (isEnabled() && (underMouse() || isDown()))
        ControlMarks::paintFill(painter, area, isDown() ? colors.pressed : colors.hover);
    painter.setPen(foreground);
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, text());
    if (focusMark_.isShown())
        ControlMarks::paintFocusAround(painter, area, colors.accent);
}

} // namespace platform
