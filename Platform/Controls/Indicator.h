// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRectF>
#include <QSize>

class QAbstractButton;
class QPainter;

namespace platform {

/// The small field before a text that shows whether a check box or a radio button is chosen. The
/// text, the marks of pointer and keyboard, and the sizes are the same for both.
struct Indicator {
    enum class Shape { box, circle };

    static QSize sizeHint(const QAbstractButton& button);

    static void paint(QPainter& painter, const QAbstractButton& button, Shape shape,
                      bool showsFocus);
};

} // namespace platform
