// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/OverlayScrollBar.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <chrono>

namespace platform {

namespace {

using namespace std::chrono_literals;

constexpr int thickness = 4;
constexpr int thicknessUnderPointer = 6;
constexpr int shortestHandle = 32;
constexpr auto restBeforeFading = 1s;
constexpr auto fading = 150ms;

} // namespace

OverlayScrollBar::OverlayScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    setAttribute(Qt::WA_Hover);
    rest_.setSingleShot(true);
    rest_.setInterval(restBeforeFading);
    connect(&rest_, &QTimer::timeout, this, [this] { show(false); });
    connect(&fade_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        opacity_ = value.toDouble();
        update();
    });
}

QRect OverlayScrollBar::handle() const {
    const int range = maximum() - minimum();
    if (range <= 0)
        return {};
    const int length = std::clamp(height() * pageStep() / (range + pageStep()),
                                  std::min(shortestHandle, height()), height());
    const int top = (height() - length) * (value() - minimum()) / range;
    const int breadthNow = underMouse() || grip_ >= 0 ? thicknessUnderPointer : thickness;
    return {(width() - breadthNow) / 2, top, breadthNow, length};
}

void OverlayScrollBar::show(bool isShown) {
    const double target = isShown ? 1 : 0;
    fade_.stop();
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (isShown || !isAnimated) {
        opacity_ = target;
        update();
        return;
    }
    fade_.setDuration(std::chrono::milliseconds(fading).count());
    fade_.setStartValue(opacity_);
    fade_.setEndValue(target);
    fade_.start();
}

void OverlayScrollBar::sliderChange(SliderChange change) {
    QScrollBar::sliderChange(change);
    if (!isVisible())
        return;
    show(true);
    rest_.start();
}

bool OverlayScrollBar::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter) {
        show(true);
        rest_.stop();
    } else if (event->type() == QEvent::HoverLeave) {
        rest_.start();
    }
    return QScrollBar::event(event);
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const int y = qRound(event->position().y());
    const QRect held = handle();
    if (y >= held.top() && y <= held.bottom())
        grip_ = y - held.top();
    else
        triggerAction(y < held.top() ? SliderPageStepSub : SliderPageStepAdd);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    const int way = height() - handle().height();
    if (grip_ < 0 || way <= 0)
        return;
    const double top = event->position().y() - grip_;
    setValue(minimum() + qRound(top * (maximum() - minimum()) / way));
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*) {
    grip_ = -1;
    update();
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    const QRect area = handle();
    if (area.isEmpty() || opacity_ <= 0)
        return;
    QPainter painter(this);
    painter.setOpacity(opacity_ * (grip_ >= 0 ? 0.6 : 0.4));
    ControlMarks::paintFill(painter, area, SystemColors::of(palette()).label, area.width() / 2.0);
}

} // namespace platform
