// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/ControlMarks.h"

#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"

#include <QPainter>

namespace platform {

void ControlMarks::paintFill(QPainter& painter, const QRectF& area, const QColor& color,
                             double radius) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(area, radius, radius);
}

void ControlMarks::paintOutline(QPainter& painter, const QRectF& area, const QColor& color,
                                double width, double radius) {
    const double inset = width / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
}

void ControlMarks::paintGround(QPainter& painter, const QRectF& area, const QColor& fill,
                               const SystemColors& colors, double radius) {
    paintFill(painter, area, fill, radius);
    if (colors.edge)
        paintOutline(painter, area, *colors.edge, 1, radius);
}

void ControlMarks::paintPointer(QPainter& painter, const QRectF& area, QStyle::State state,
                                const SystemColors& colors, double radius) {
    if (!(state & QStyle::State_Enabled))
        return;
    if (state & QStyle::State_Sunken)
        paintFill(painter, area, colors.pressed, radius);
    else if (state & QStyle::State_MouseOver)
        paintFill(painter, area, colors.hover, radius);
}

void ControlMarks::paintFocusAround(QPainter& painter, const QRectF& area, const QColor& accent,
                                    double radius) {
    paintFocus(painter, area.adjusted(-ringMargin, -ringMargin, ringMargin, ringMargin), accent,
               radius + ringMargin);
}

void ControlMarks::paintFocus(QPainter& painter, const QRectF& area, const QColor& accent,
                              double radius) {
    paintOutline(painter, area, accent, focusWidth, radius);
}

void ControlMarks::paintText(QPainter& painter, const QRect& area, Qt::LayoutDirection direction,
                             const QString& text) {
    const Qt::Alignment edge = QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter.drawText(area, static_cast<int>(edge) | Qt::TextSingleLine | Qt::TextHideMnemonic,
                     text);
}

void ControlMarks::paintSymbol(QPainter& painter, const SymbolImage& symbol, const QRectF& area,
                               double side, const QColor& color) {
    QRectF place(0, 0, side, side);
    place.moveCenter(area.center());
    symbol.paint(painter, place, color);
}

} // namespace platform
