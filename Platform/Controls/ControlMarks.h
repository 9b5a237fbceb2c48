// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRect>
#include <QStyle>

class QPainter;

namespace platform {

class SymbolImage;
struct SystemColors;

/// The marks that every control shares.
struct ControlMarks {
    static constexpr int cornerRadius = 6;
    static constexpr int focusWidth = 2;
    /// What a ring around a control takes on each of its sides, the gap between them included.
    static constexpr int ringMargin = 3;

    /// What is seen of a control that has room for a ring around it.
    static QRect inside(const QRect& area) {
        return area.adjusted(ringMargin, ringMargin, -ringMargin, -ringMargin);
    }

    static void paintFill(QPainter& painter, const QRectF& area, const QColor& color,
                          double radius = cornerRadius);

    /// A line along the inside of `area`.
    static void paintOutline(QPainter& painter, const QRectF& area, const QColor& color,
                             double width, double radius = cornerRadius);

    /// The ground of a control: its fill, and its edge where the contrast is to be high.
    static void paintGround(QPainter& painter, const QRectF& area, const QColor& fill,
                            const SystemColors& colors, double radius = cornerRadius);

    /// What lies below the pointer, or is held down; nothing where `state` says neither.
    static void paintPointer(QPainter& painter, const QRectF& area, QStyle::State state,
                             const SystemColors& colors, double radius = cornerRadius);

    /// What has the keyboard, for a control whose fill a ring inside would be lost on: a ring
    /// around `area`. @param radius of the corners of `area`
    static void paintFocusAround(QPainter& painter, const QRectF& area, const QColor& accent,
                                 double radius = cornerRadius);

    /// The same along the inside of `area`.
    static void paintFocus(QPainter& painter, const QRectF& area, const QColor& accent,
                           double radius = cornerRadius);

    /// One line of text at the leading edge of `area`. An ampersand in it stands for an access key.
    static void paintText(QPainter& painter, const QRect& area, Qt::LayoutDirection direction,
                          const QString& text);

    /// A symbol in the middle of `area`. @param side its width and height
    static void paintSymbol(QPainter& painter, const SymbolImage& symbol, const QRectF& area,
                            double side, const QColor& color);
};

} // namespace platform
