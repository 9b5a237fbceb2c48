// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/StripPosition.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace platform {

namespace {

constexpr std::array<QStringView, 4> edgeNames{u"top", u"bottom", u"left", u"right"};

/// How far something can move within the area; less than 0 where it does not fit.
QSize travel(QSize size, const QRect& area) {
    return area.size() - size;
}

double fractionOf(int distance, int travel) {
    return travel <= 0 ? 0 : std::clamp(static_cast<double>(distance) / travel, 0.0, 1.0);
}

} // namespace

std::optional<StripPosition> StripPosition::fromString(const QString& text) {
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 2)
        return std::nullopt;
    const auto* const edge = std::ranges::find(edgeNames, QStringView(parts[0]).trimmed());
    bool isNumber = false;
    const double fraction = parts[1].trimmed().toDouble(&isNumber);
    const bool isInRange = fraction >= 0 && fraction <= 1; // "nan" is not
    if (edge == edgeNames.end() || !isNumber || !isInRange)
        return std::nullopt;
    return StripPosition{static_cast<Edge>(edge - edgeNames.begin()), fraction};
}

QString StripPosition::toString() const {
    QString number = QString::number(fraction, 'f', 3);
    while (number.endsWith(QLatin1Char('0')) && !number.endsWith(QStringLiteral(".0")))
        number.chop(1);
    return edgeNames[static_cast<std::size_t>(edge)].toString() + QLatin1Char(',') + number;
}

QPoint StripPosition::corner(QSize size, const QRect& area) const {
    const QSize room = travel(size, area).expandedTo({0, 0});
    const int along = static_cast<int>(std::lround(
        fraction * (edge == Edge::top || edge == Edge::bottom ? room.width() : room.height())));
    switch (edge) {
    case Edge::top:
        return area.topLeft() + QPoint(along, 0);
    case Edge::bottom:
        return area.topLeft() + QPoint(along, room.height());
    case Edge::left:
        return area.topLeft() + QPoint(0, along);
    case Edge::right:
        break;
    }
    return area.topLeft() + QPoint(room.width(), along);
}

StripPosition StripPosition::nearest(const QRect& frame, const QRect& area) {
    const QSize room = travel(frame.size(), area);
    const QPoint offset = frame.topLeft() - area.topLeft();
    // In the order of the edges.
    const std::array distances{offset.y(), room.height() - offset.y(), offset.x(),
                               room.width() - offset.x()};
    const auto edge = static_cast<Edge>(std::ranges::min_element(distances) - distances.begin());
    const bool isAlongX = edge == Edge::top || edge == Edge::bottom;
    return {edge, isAlongX ? fractionOf(offset.x(), room.width())
                           : fractionOf(offset.y(), room.height())};
}

} // namespace platform
