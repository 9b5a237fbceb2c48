// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Switch.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QPainter>
#include <QStyle>

#include <chrono>

namespace platform {

namespace {

constexpr QSize trackSize{36, 20};
constexpr int knobInset = 2;
constexpr std::chrono::milliseconds slidingTime{120};

} // namespace

Switch::Switch(QWidget* parent) : QCheckBox(parent) {
    constexpr int margin = ControlMarks::ringMargin;
    setContentsMargins(margin, margin, margin, margin);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    sliding_.setDuration(slidingTime.count());
    sliding_.setEasingCurve(QEasingCurve::OutCubic);
    connect(this, &QCheckBox::toggled, this, &Switch::slide);
    connect(&sliding_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        position_ = value.toDouble();
        update();
    });
}

QSize Switch::sizeHint() const {
    return trackSize.grownBy(contentsMargins());
}

bool Switch::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void Switch::slide(bool isOn) {
    sliding_.stop();
    const double target = isOn ? 1 : 0;
    if (!isVisible() || !style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this)) {
        position_ = target;
        update();
        return;
    }
    sliding_.setStartValue(position_);
    sliding_.setEndValue(target);
    sliding_.start();
}

void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const auto colors = SystemColors::of(palette());
    const auto accent = AccentColors::of(palette());
    const QRectF track = contentsRect();
    const double radius = track.height() / 2;
    if (!isEnabled())
        painter.setOpacity(0.5);
    if (position_ < 1)
        ControlMarks::paintFill(painter, track, colors.outline, radius);
    QColor on = accent.fill;
    on.setAlphaF(static_cast<float>(position_));
    ControlMarks::paintFill(painter, track, on, radius);
    if (isEnabled() && (underMouse() || isDown()))
        ControlMarks::paintFill(painter, track, isDown() ? colors.pressed : colors.hover, radius);
    const double side = track.height() - 2 * knobInset;
    const double way = track.width() - 2 * knobInset - side;
    const QRectF knob(track.left() + knobInset + position_ * way, track.top() + knobInset, side,
                      side);
    ControlMarks::paintFill(painter, knob, position_ > 0.5 ? accent.mark : QColor(Qt::white),
                            side / 2);
    if (focusMark_.isShown())
        ControlMarks::paintFocusAround(painter, track, colors.accent, radius);
}

} // namespace platform
