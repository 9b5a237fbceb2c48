// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QRect>

#include <string>

namespace test {

/// Four pictures of one place, in which a status item shows a price that differs in one figure from
/// one to the next. Where they differ tells what is drawn, and how, whatever the font.
struct ItemPictures {
    QImage first;     ///< BTC 65,432.10 +1.23% and an arrow upwards
    QImage thousands; ///< BTC 75,432.10
    QImage cents;     ///< BTC 75,432.11
    QImage down;      ///< BTC 75,432.11 -1.23% and an arrow downwards

    /// The price's first figure, and its last one.
    QRect firstFigure() const { return changed(first, thousands); }
    QRect lastFigure() const { return changed(thousands, cents); }

    /// What is wrong with the text; empty where it is drawn within `place` from the price's
    /// beginning to the arrow at its end, large enough and clear enough to be read, and, with
    /// `hasColors`, the arrow is green in the one direction and red in the other.
    std::string faults(const QRect& place, bool hasColors) const;

private:
    /// Where two pictures differ clearly.
    static QRect changed(const QImage& before, const QImage& after);
};

} // namespace test
