// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRectF>
#include <QString>

class QFont;
class QPainter;

namespace quorvel {

/// A line of text in a column of fixed width: what is too long is drawn smaller, down to four
/// fifths, and what is longer still ends in an ellipsis.
struct FittedText {
    static constexpr double smallestScale = 0.8;

    /// Draws `text` in the painter's font and pen, its baseline beginning at (`left`, `baseline`).
    /// Gives the width that it took.
    static double paintLeading(QPainter& painter, double left, double baseline, double width,
                               const QString& text);

    /// As `paintLeading`, with the line's end at `right`.
    static void paintTrailing(QPainter& painter, double right, double baseline, double width,
                              const QString& text);

    /// Whether `text` is drawn in `width` without an ellipsis.
    static bool fits(const QFont& font, double width, const QString& text);

    /// The scale at which a text of `advance` is drawn in `width`.
    static double scale(double advance, double width);
};

} // namespace quorvel
