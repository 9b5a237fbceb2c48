// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/ControlMarks.h"

#include "Platform/Appearance/SymbolImage.h"

#include <QPainter>

namespace platform {

void ControlMarks::paintFill(QPainter& painter, const QRectF& area, const QColor& color,
                             double radius) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(area, radius, radius);
}

void ControlMarks::paintFocus(QPainter& painter, const QRectF& area, const QColor& accent,
                              double radius) {
    constexpr double inset = focusWidth / 2.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(accent, focusWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
}

void ControlMarks::paintFocusAround(QPainter& painter, const QRectF& area, const QColor& accent,
                                    double radius) {
    paintFocus(painter, area.adjusted(-ringMargin, -ringMargin, ringMargin, ringMargin), accent,
               radius + ringMargin);
}

void ControlMarks::paintSymbol(QPainter& painter, const SymbolImage& symbol, const QRectF& area,
                               double side, const QColor& color) {
    QRectF place(0, 0, side, side);
    place.moveCenter(area.center());
    symbol.paint(painter, place, color);
}

} // namespace platform
