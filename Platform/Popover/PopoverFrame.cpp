// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Popover/PopoverFrame.h"

#include "Platform/Appearance/SystemColors.h"

#include <QPainter>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int shadowReach = 18;
constexpr int shadowDrop = 5; // light comes from above
constexpr double shadowOpacity = 0.26;

/// How dark the shadow is at a distance from the card's outline, negative inside: a soft step.
double shadowAt(double distance) {
    constexpr double softness = 7.5;
    return shadowOpacity * 0.5 * std::erfc(distance / softness);
}

/// The distance of a point from a card of the given half side around the origin.
double distanceToRoundedSquare(QPointF point, double half) {
    constexpr double radius = PopoverFrame::cornerRadius;
    const double dx = std::max(std::abs(point.x()) - half + radius, 0.0);
    const double dy = std::max(std::abs(point.y()) - half + radius, 0.0);
    return std::hypot(dx, dy) - radius;
}

/// The shadow of the smallest card there can be, with what it throws on each side.
QPixmap renderShadow(double scale) {
    constexpr int halfCard = PopoverFrame::cornerRadius + shadowReach;
    constexpr int side = 2 * (halfCard + shadowReach) + 1;
    const int pixels = qCeil(side * scale);
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < pixels; ++y) {
        for (int x = 0; x < pixels; ++x) {
            const QPointF point((x + 0.5) / scale - side / 2.0, (y + 0.5) / scale - side / 2.0);
            const double distance = distanceToRoundedSquare(point, halfCard + 0.5);
            const double fade = std::min(1.0, (shadowReach - distance) / 6);
            const double alpha = shadowAt(distance) * std::max(0.0, fade);
            image.setPixel(x, y, qRgba(0, 0, 0, qRound(alpha * 255)));
        }
    }
    image.setDevicePixelRatio(scale);
    return QPixmap::fromImage(image);
}

void paintHairline(QPainter& painter, const QRectF& card, double radius, const QColor& color) {
    const double width = 1 / painter.device()->devicePixelRatioF();
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    const double inset = width / 2;
    painter.drawRoundedRect(card.adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
}

} // namespace

QMargins PopoverFrame::margins(bool isComposited) {
    if (!isComposited)
        return {};
    return {shadowReach, shadowReach - shadowDrop, shadowReach, shadowReach + shadowDrop};
}

void PopoverFrame::paint(QPainter& painter, const QRect& window, const QRect& exposed,
                         const SystemColors& colors, bool isComposited) {
    const QRect card = window.marginsRemoved(margins(isComposited));
    if (!isComposited) {
        painter.fillRect(exposed, colors.background);
        paintHairline(painter, card, 0, colors.separator);
        return;
    }
    // Most repaints are of a row or a price, far from the corners.
    if (card.adjusted(cornerRadius, cornerRadius, -cornerRadius, -cornerRadius).contains(exposed)) {
        painter.fillRect(exposed, colors.background);
        return;
    }
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(exposed, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    paintShadow(painter, window);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.background);
    painter.drawRoundedRect(card, cornerRadius, cornerRadius);
    paintHairline(painter, card, cornerRadius, colors.separator);
}

void PopoverFrame::paintShadow(QPainter& painter, const QRect& window) {
    const double scale = painter.device()->devicePixelRatioF();
    if (shadow_.isNull() || !qFuzzyCompare(shadow_.devicePixelRatio(), scale))
        shadow_ = renderShadow(scale);
    constexpr int corner = 2 * shadowReach + cornerRadius;
    const QRect area = window.marginsRemoved(margins(true))
                           .adjusted(-shadowReach, -shadowReach + shadowDrop, shadowReach,
                                     shadowReach + shadowDrop);
    const int source = qRound(corner * scale);
    qDrawBorderPixmap(&painter, area, {corner, corner, corner, corner}, shadow_, shadow_.rect(),
                      {source, source, source, source});
}

} // namespace platform
