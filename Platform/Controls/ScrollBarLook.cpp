// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/ScrollBarLook.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"
#include "Platform/Controls/Motion.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionSlider>

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

void flash(Motion& motion) {
    motion.jumpTo(1);
    motion.moveTo(0, fading, restBeforeFading);
}

} // namespace

QRect ScrollBarLook::part(const QStyleOptionSlider& option, QStyle::SubControl part) {
    const QRect whole = option.rect;
    const int range = option.maximum - option.minimum;
    const int length = range <= 0
                           ? whole.height()
                           : std::clamp(static_cast<int>(qint64(whole.height()) * option.pageStep /
                                                         (qint64(range) + option.pageStep)),
                                        std::min(shortestHandle, whole.height()), whole.height());
    const int top = whole.top() + QStyle::sliderPositionFromValue(
                                      option.minimum, option.maximum, option.sliderPosition,
                                      whole.height() - length, option.upsideDown);
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return whole;
    case QStyle::SC_ScrollBarSlider:
        return {whole.left(), top, whole.width(), length};
    case QStyle::SC_ScrollBarSubPage:
        return {whole.left(), whole.top(), whole.width(), top - whole.top()};
    case QStyle::SC_ScrollBarAddPage:
        return whole.adjusted(0, top + length - whole.top(), 0, 0);
    default:
        return {};
    }
}

void ScrollBarLook::paint(QPainter& painter, const QStyleOptionSlider& option, double opacity) {
    if (option.maximum <= option.minimum || opacity <= 0)
        return;
    const auto colors = SystemColors::of(option.palette);
    const bool isHeld = option.state & QStyle::State_Sunken;
    const int breadthNow =
        isHeld || option.state & QStyle::State_MouseOver ? thicknessUnderPointer : thickness;
    QRect handle = part(option, QStyle::SC_ScrollBarSlider);
    handle.adjust((handle.width() - breadthNow) / 2, 0, 0, 0);
    handle.setWidth(breadthNow);
    painter.setOpacity(opacity * (colors.edge ? 1 : isHeld ? 0.6 : 0.4));
    ControlMarks::paintFill(painter, handle, colors.label, breadthNow / 2.0);
}

void ScrollBarLook::polish(QScrollBar& bar) {
    // What lies below shows through.
    bar.setAttribute(Qt::WA_OpaquePaintEvent, false);
    if (Motion::of(&bar))
        return;
    auto* const motion = new Motion(bar);
    QObject::connect(&bar, &QScrollBar::valueChanged, motion, [motion] { flash(*motion); });
}

void ScrollBarLook::follow(const QScrollBar& bar, const QEvent& event) {
    Motion* const motion = Motion::of(&bar);
    if (motion && event.type() == QEvent::HoverEnter)
        motion->jumpTo(1);
    else if (motion && event.type() == QEvent::HoverLeave)
        flash(*motion);
}

} // namespace platform
