// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Popover/PopoverPlacement.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

/// A panel that does not reserve its place, and a menu that hangs on one, are within this distance.
constexpr int edgeReach = 64;

enum class Edge { top, bottom, left, right };

/// How deep a panel keeps each edge of the screen free.
std::array<int, 4> panelDepths(const ScreenArea& screen) {
    return {screen.available.top() - screen.whole.top(),
            screen.whole.bottom() - screen.available.bottom(),
            screen.available.left() - screen.whole.left(),
            screen.whole.right() - screen.available.right()};
}

std::array<int, 4> distances(QPoint point, const QRect& area) {
    return {point.y() - area.top(), area.bottom() - point.y(), point.x() - area.left(),
            area.right() - point.x()};
}

/// The edge that the point belongs to: that of the panel it is on, else the nearest.
Edge edgeOf(QPoint point, const ScreenArea& screen) {
    const auto depths = panelDepths(screen);
    const auto toAvailable = distances(point, screen.available);
    const auto toScreen = distances(point, screen.whole);
    std::size_t best = 0;
    for (std::size_t i = 0; i < toScreen.size(); ++i) {
        if (toAvailable[i] < 0 && depths[i] > 0)
            return static_cast<Edge>(i);
        if (toScreen[i] < toScreen[best])
            best = i;
    }
    return static_cast<Edge>(best);
}

/// Clamps, and prefers the lower bound where there is no room between the two.
int within(int value, int low, int high) {
    return std::max(low, std::min(value, high));
}

QPoint clamped(QPoint corner, QSize popover, const QRect& room) {
    return {within(corner.x(), room.left(), room.right() + 1 - popover.width()),
            within(corner.y(), room.top(), room.bottom() + 1 - popover.height())};
}

} // namespace

QPoint PopoverPlacement::position(const QRect& item, QSize popover, const ScreenArea& screen) {
    const QRect beside = item.adjusted(-gap, -gap, gap, gap);
    QPoint corner = item.topLeft() + QPoint((item.width() - popover.width()) / 2,
                                            (item.height() - popover.height()) / 2);
    switch (edgeOf(item.center(), screen)) {
    case Edge::top:
        corner.setY(beside.bottom() + 1);
        break;
    case Edge::bottom:
        corner.setY(beside.top() - popover.height());
        break;
    case Edge::left:
        corner.setX(beside.right() + 1);
        break;
    case Edge::right:
        corner.setX(beside.left() - popover.width());
        break;
    }
    return clamped(corner, popover, screen.available.adjusted(gap, gap, -gap, -gap));
}

QPoint PopoverPlacement::position(QPoint anchor, QSize popover, const ScreenArea& screen) {
    const QRect room = screen.available.adjusted(gap, gap, -gap, -gap);
    const Edge edge = edgeOf(anchor, screen);
    const bool hasPanel = panelDepths(screen)[static_cast<std::size_t>(edge)] > 0;
    QPoint corner = anchor - QPoint(popover.width() / 2, popover.height() / 2);
    switch (edge) {
    case Edge::top:
        corner.setY(hasPanel ? room.top() : anchor.y() + gap);
        break;
    case Edge::bottom:
        corner.setY((hasPanel ? room.bottom() + 1 : anchor.y() - gap) - popover.height());
        break;
    case Edge::left:
        corner.setX(hasPanel ? room.left() : anchor.x() + gap);
        break;
    case Edge::right:
        corner.setX((hasPanel ? room.right() + 1 : anchor.x() - gap) - popover.width());
        break;
    }
    return clamped(corner, popover, room);
}

bool PopoverPlacement::isAtEdge(QPoint point, const ScreenArea& screen) {
    return std::ranges::min(distances(point, screen.whole)) < edgeReach ||
           !screen.available.contains(point);
}

QPoint PopoverPlacement::panelCorner(const ScreenArea& screen) {
    const auto depths = panelDepths(screen);
    const auto deepest = std::ranges::max_element(depths) - depths.begin();
    const bool isAtBottom = static_cast<Edge>(deepest) == Edge::bottom && depths[1] > 0;
    return isAtBottom ? screen.whole.bottomRight() : screen.whole.topRight();
}

} // namespace platform
