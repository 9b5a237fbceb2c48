// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/IndicatorLook.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace platform {

namespace {

constexpr int side = 16;
constexpr int spacing = 8;
constexpr int height = 28;
constexpr int boxRadius = 4;
constexpr double outlineWidth = 1.25;
constexpr QSize trackSize{36, 20};
constexpr int knobInset = 2;
constexpr int margin = ControlMarks::ringMargin;

void paintChosen(QPainter& painter, const QRectF& area, double radius, IndicatorLook::Shape shape,
                 const AccentColors& accent) {
    ControlMarks::paintFill(painter, area, accent.fill, radius);
    if (shape == IndicatorLook::Shape::circle) {
        constexpr double dot = 6;
        constexpr double inset = (side - dot) / 2;
        ControlMarks::paintFill(painter, area.adjusted(inset, inset, -inset, -inset), accent.mark,
                                dot / 2);
        return;
    }
    constexpr int checkmark = 12;
    ControlMarks::paintSymbol(painter, SymbolImage(QStringLiteral("checkmark")), area, checkmark,
                              accent.mark);
}

void paintField(QPainter& painter, const QStyleOptionButton& option, IndicatorLook::Shape shape,
                bool showsFocus) {
    const auto colors = SystemColors::of(option.palette);
    const QRect whole = option.rect;
    const QRect area = QStyle::visualRect(
        option.direction, whole,
        {whole.left() + margin, whole.top() + (whole.height() - side) / 2, side, side});
    const double radius = shape == IndicatorLook::Shape::circle ? side / 2.0 : boxRadius;
    if (option.state & QStyle::State_On)
        paintChosen(painter, area, radius, shape, AccentColors::of(option.palette));
    else
        ControlMarks::paintOutline(painter, area, colors.outline, outlineWidth, radius);
    ControlMarks::paintPointer(painter, area, option.state, colors, radius);
    painter.setPen(colors.label);
    ControlMarks::paintText(painter,
                            QStyle::visualRect(option.direction, whole,
                                               whole.adjusted(margin + side + spacing, 0, 0, 0)),
                            option.direction, option.text);
    if (showsFocus)
        ControlMarks::paintFocusAround(painter, area, colors.accent, radius);
}

void paintTrack(QPainter& painter, const QStyleOptionButton& option, bool showsFocus,
                double position) {
    const auto colors = SystemColors::of(option.palette);
    const auto accent = AccentColors::of(option.palette);
    QRect track(QPoint(), trackSize);
    track.moveCenter(option.rect.center());
    const double radius = track.height() / 2.0;
    if (!(option.state & QStyle::State_Enabled))
        painter.setOpacity(0.5);
    if (position < 1)
        ControlMarks::paintFill(painter, track, colors.outline, radius);
    QColor on = accent.fill;
    on.setAlphaF(static_cast<float>(position));
    ControlMarks::paintGround(painter, track, on, colors, radius);
    ControlMarks::paintPointer(painter, track, option.state, colors, radius);
    const double knobSide = track.height() - 2 * knobInset;
    const double way = track.width() - 2 * knobInset - knobSide;
    const double shift = (option.direction == Qt::RightToLeft ? 1 - position : position) * way;
    const QRectF knob(track.left() + knobInset + shift, track.top() + knobInset, knobSide,
                      knobSide);
    ControlMarks::paintFill(painter, knob, position > 0.5 ? accent.mark : colors.knob,
                            knobSide / 2);
    if (showsFocus)
        ControlMarks::paintFocusAround(painter, track, colors.accent, radius);
}

} // namespace

QSize IndicatorLook::size(const QStyleOptionButton& option, Shape shape) {
    if (shape == Shape::track)
        return trackSize.grownBy({margin, margin, margin, margin});
    const int text = option.fontMetrics.size(Qt::TextHideMnemonic, option.text).width();
    return {margin + side + spacing + text + margin, height};
}

void IndicatorLook::paint(QPainter& painter, const QStyleOptionButton& option, Shape shape,
                          bool showsFocus, double position) {
    if (shape == Shape::track)
        paintTrack(painter, option, showsFocus, position);
    else
        paintField(painter, option, shape, showsFocus);
}

} // namespace platform
