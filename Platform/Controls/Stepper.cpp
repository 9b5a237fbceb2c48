// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Stepper.h"

#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/AccessibleStepper.h"
#include "Platform/Controls/ControlMarks.h"

#include <QAccessible>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr QSize visibleSize{64, 28};
constexpr int symbolSize = 13;       // odd, so that a stroke in the middle is sharp
constexpr int beforeRepeating = 400; // milliseconds
constexpr int betweenSteps = 80;

} // namespace

Stepper::Stepper(double minimum, double maximum, QWidget* parent)
    : QWidget(parent), minimum_(minimum), maximum_(maximum), value_(minimum) {
    installAccessibleStepper();
    constexpr int margin = ControlMarks::ringMargin;
    setContentsMargins(margin, margin, margin, margin);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

QSize Stepper::sizeHint() const {
    return visibleSize.grownBy(contentsMargins());
}

void Stepper::setValue(double value) {
    value = std::clamp(value, minimum_, maximum_);
    if (std::exchange(value_, value) == value)
        return;
    update();
    QAccessibleValueChangeEvent change(this, value);
    QAccessible::updateAccessibility(&change);
    Q_EMIT valueChanged(value);
}

QRect Stepper::half(int direction) const {
    QRect area = contentsRect();
    area.setWidth(area.width() / 2);
    return direction < 0 ? area : area.translated(area.width(), 0);
}

int Stepper::directionAt(QPoint position) const {
    if (!contentsRect().contains(position))
        return 0;
    return half(-1).contains(position) ? -1 : 1;
}

bool Stepper::canStep(int direction) const {
    return isEnabled() && (direction < 0 ? value_ > minimum_ : value_ < maximum_);
}

void Stepper::takeStep(int direction) {
    setValue(value_ + direction * step);
}

bool Stepper::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove) {
        const int over = directionAt(static_cast<QHoverEvent*>(event)->position().toPoint());
        if (std::exchange(hovered_, over) != over)
            update();
    } else if (event->type() == QEvent::HoverLeave) {
        hovered_ = 0;
        update();
    }
    return QWidget::event(event);
}

void Stepper::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Right)
        takeStep(1);
    else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Left)
        takeStep(-1);
    else
        QWidget::keyPressEvent(event);
}

void Stepper::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressed_ = directionAt(event->position().toPoint());
    if (pressed_ == 0)
        return;
    takeStep(pressed_);
    repeat_.start(beforeRepeating, this);
    update();
}

void Stepper::mouseReleaseEvent(QMouseEvent*) {
    repeat_.stop();
    pressed_ = 0;
    update();
}

void Stepper::timerEvent(QTimerEvent* event) {
    if (event->timerId() != repeat_.timerId())
        return;
    repeat_.start(betweenSteps, this);
    if (hovered_ == pressed_)
        takeStep(pressed_);
}

void Stepper::paintHalf(QPainter& painter, int direction) const {
    const auto colors = SystemColors::of(palette());
    const QRect area = half(direction);
    if (canStep(direction) && hovered_ == direction) {
        painter.setClipRect(area);
        ControlMarks::paintFill(painter, contentsRect(),
                                pressed_ == direction ? colors.pressed : colors.hover);
        painter.setClipping(false);
    }
    const SymbolImage symbol(direction < 0 ? QStringLiteral("minus") : QStringLiteral("plus"));
    ControlMarks::paintSymbol(painter, symbol, area, symbolSize,
                              canStep(direction)
                                  ? colors.label
                                  : palette().color(QPalette::Disabled, QPalette::ButtonText));
}

void Stepper::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto colors = SystemColors::of(palette());
    const QRectF area = contentsRect();
    ControlMarks::paintFill(painter, area, colors.field);
    paintHalf(painter, -1);
    paintHalf(painter, 1);
    constexpr int inset = 6;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(QRectF(area.center().x(), area.top() + inset, 1 / devicePixelRatioF(),
                            area.height() - 2 * inset),
                     colors.separator);
    if (focusMark_.isShown())
        ControlMarks::paintFocusAround(painter, area, colors.accent);
}

} // namespace platform
