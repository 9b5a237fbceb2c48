// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

class QPainter;
class QStyleOptionButton;

namespace platform {

/// How check boxes, radio buttons and switches look: a small field before a text that shows what is
/// chosen, or a knob in its track.
struct IndicatorLook {
    enum class Shape { box, circle, track };

    static QSize size(const QStyleOptionButton& option, Shape shape);

    /// @param position of a track's knob: 0 off, 1 on
    static void paint(QPainter& painter, const QStyleOptionButton& option, Shape shape,
                      bool showsFocus, double position);
};

} // namespace platform
