// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/PlainButton.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

namespace platform {

namespace {

constexpr int symbolSpacing = 6;

} // namespace

PlainButton::PlainButton(const QString& text, QWidget* parent) : QAbstractButton(parent) {
    setText(text);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

void PlainButton::setSymbol(SymbolImage symbol, int size) {
    symbol_ = std::move(symbol);
    symbolSize_ = size;
    updateGeometry();
    update();
}

QSize PlainButton::sizeHint() const {
    int width = 2 * horizontalPadding + symbolSize_;
    if (!text().isEmpty())
        width += fontMetrics().horizontalAdvance(text()) + (symbol_ ? symbolSpacing : 0);
    return {width, preferredHeight};
}

QColor PlainButton::foreground() const {
    const auto colors = SystemColors::of(palette());
    return isEnabled() ? underMouse() || hasFocus() ? colors.label : colors.secondaryLabel
                       : palette().color(QPalette::Disabled, QPalette::WindowText);
}

bool PlainButton::event(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QAbstractButton::event(event);
}

void PlainButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        // Where arrows lead is for the view around the button to say.
        event->ignore();
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

void PlainButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto colors = SystemColors::of(palette());
    if (isEnabled() && (underMouse() || isDown()))
        ControlMarks::paintFill(painter, rect(), isDown() ? colors.pressed : colors.hover);
    painter.setPen(foreground());
    const QRect inside = rect().adjusted(horizontalPadding, 0, -horizontalPadding, 0);
    painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
    if (symbol_) {
        const int x = text().isEmpty()
                          ? (width() - symbolSize_) / 2
                          : inside.left() + fontMetrics().horizontalAdvance(text()) + symbolSpacing;
        symbol_->paint(painter, QRectF(x, (height() - symbolSize_) / 2.0, symbolSize_, symbolSize_),
                       foreground());
    }
    if (hasFocus())
        ControlMarks::paintFocus(painter, rect(), colors.accent);
}

} // namespace platform
