// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace platform {

/// Where along the edges of a screen something small lies. Pure.
struct StripPosition {
    enum class Edge { top, bottom, left, right };

    Edge edge = Edge::top;

    /// How far along the edge, from the left or the top: 0 to 1. At first between the title of a
    /// window that fills the screen and its buttons, which are at one end or the other.
    double fraction = 0.75;

    /// From a text such as `top,1.0`; absent for any other.
    static std::optional<StripPosition> fromString(const QString& text);

    /// The text that gives the same position, to a thousandth.
    QString toString() const;

    /// The upper left corner of something of this size.
    ///
    /// @param area the part of the screen to keep to
    QPoint corner(QSize size, const QRect& area) const;

    /// The position nearest to where something is.
    static StripPosition nearest(const QRect& frame, const QRect& area);

    bool operator==(const StripPosition&) const = default;
};

} // namespace platform
