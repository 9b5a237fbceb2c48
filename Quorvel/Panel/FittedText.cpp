// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Panel/FittedText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace quorvel {

namespace {

/// @param side 0 draws to the right of the origin, 1 to the left of it
double paint(QPainter& painter, QPointF origin, double width, const QString& text, double side) {
    const QFontMetricsF metrics(painter.font());
    const double advance = metrics.horizontalAdvance(text);
    const double scale = FittedText::scale(advance, width);
    painter.save();
    painter.translate(origin);
    painter.scale(scale, scale);
    const bool isTooLong = advance * scale > width;
    const QString line = isTooLong ? metrics.elidedText(text, Qt::ElideRight, width / scale) : text;
    const double drawn = metrics.horizontalAdvance(line);
    painter.drawText(QPointF(-side * drawn, 0), line);
    painter.restore();
    return drawn * scale;
}

} // namespace

bool FittedText::fits(const QFont& font, double width, const QString& text) {
    return QFontMetricsF(font).horizontalAdvance(text) * smallestScale <= width;
}

double FittedText::scale(double advance, double width) {
    return advance > width ? std::max(smallestScale, width / advance) : 1;
}

double FittedText::paintLeading(QPainter& painter, double left, double baseline, double width,
                                const QString& text) {
    return paint(painter, {left, baseline}, width, text, 0);
}

void FittedText::paintTrailing(QPainter& painter, double right, double baseline, double width,
                               const QString& text) {
    paint(painter, {right, baseline}, width, text, 1);
}

} // namespace quorvel
