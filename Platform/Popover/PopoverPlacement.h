// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace platform {

/// A screen, as far as windows care.
struct ScreenArea {
    QRect whole;
    QRect available; ///< what panels leave of it

    bool operator==(const ScreenArea&) const = default;
};

/// Where popovers go. Pure; points and sizes are device-independent.
struct PopoverPlacement {
    /// Between a popover and what it hangs on.
    static constexpr int gap = 4;

    /// The upper left corner of a popover that belongs to `anchor`.
    ///
    /// It hangs on the edge of the screen at which the anchor lies: on the panel there, or, where
    /// no panel keeps that edge free, beside the anchor. Along the edge it is centred on the
    /// anchor. It never leaves the available area; one that is larger keeps its upper left corner
    /// in it.
    static QPoint position(QPoint anchor, QSize popover, const ScreenArea& screen);

    /// The same for one that belongs to an item whose place is known, and which it does not cover
    /// where there is room: it hangs on the item's side that is turned away from the edge.
    static QPoint position(const QRect& item, QSize popover, const ScreenArea& screen);

    /// Whether a click there may well have been one on a panel: outside of the available area, or
    /// close to the screen's edge.
    static bool isAtEdge(QPoint point, const ScreenArea& screen);

    /// The end of the screen's panel, where status items usually are: for when nothing better is
    /// known.
    static QPoint panelCorner(const ScreenArea& screen);
};

} // namespace platform
