// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace platform {

class SymbolImage;

/// The marks that every control of ours shares.
struct ControlMarks {
    static constexpr int cornerRadius = 6;
    static constexpr int focusWidth = 2;
    /// What a ring around a control takes on each of its sides, the gap between them included.
    static constexpr int ringMargin = 3;

    /// What lies below the pointer, or is held down.
    static void paintFill(QPainter& painter, const QRectF& area, const QColor& color,
                          double radius = cornerRadius);

    /// What has the keyboard: a ring along the inside of `area`.
    static void paintFocus(QPainter& painter, const QRectF& area, const QColor& accent,
                           double radius = cornerRadius);

    /// The same for a control whose fill a ring inside would be lost on: a ring around `area`.
    /// @param radius of the corners of `area`
    static void paintFocusAround(QPainter& painter, const QRectF& area, const QColor& accent,
                                 double radius = cornerRadius);

    /// A symbol in the middle of `area`. @param side its width and height
    static void paintSymbol(QPainter& painter, const SymbolImage& symbol, const QRectF& area,
                            double side, const QColor& color);
};

} // namespace platform
