// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Indicator.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QAbstractButton>
#include <QPainter>

namespace platform {

namespace {

constexpr int side = 16;
constexpr int spacing = 8;
constexpr int boxRadius = 4;
constexpr double outlineWidth = 1.25;
constexpr int height = 28;

void paintEmpty(QPainter& painter, const QRectF& area, double radius, const SystemColors& colors) {
    const double inset = outlineWidth / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colors.outline, outlineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
}

void paintChosen(QPainter& painter, const QRectF& area, double radius, Indicator::Shape shape,
                 const AccentColors& accent) {
    ControlMarks::paintFill(painter, area, accent.fill, radius);
    if (shape == Indicator::Shape::circle) {
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

} // namespace

QSize Indicator::sizeHint(const QAbstractButton& button) {
    const int text = button.fontMetrics().horizontalAdvance(button.text());
    return {ControlMarks::ringMargin + side + spacing + text + ControlMarks::ringMargin, height};
}

void Indicator::paint(QPainter& painter, const QAbstractButton& button, Shape shape,
                      bool showsFocus) {
    const auto colors = SystemColors::of(button.palette());
    const QRectF area(ControlMarks::ringMargin, (button.height() - side) / 2.0, side, side);
    const double radius = shape == Shape::circle ? side / 2.0 : boxRadius;
    if (button.isChecked())
        paintChosen(painter, area, radius, shape, AccentColors::of(button.palette()));
    else
        paintEmpty(painter, area, radius, colors);
    if (button.underMouse() || button.isDown())
        ControlMarks::paintFill(painter, area, button.isDown() ? colors.pressed : colors.hover,
                                radius);
    painter.setPen(colors.label);
    painter.drawText(button.rect().adjusted(ControlMarks::ringMargin + side + spacing, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, button.text());
    if (showsFocus)
        ControlMarks::paintFocusAround(painter, area, colors.accent, radius);
}

} // namespace platform
