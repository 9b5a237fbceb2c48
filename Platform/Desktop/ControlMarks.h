#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace platform {

/// The marks that every control of ours shares.
struct ControlMarks {
    static constexpr int cornerRadius = 6;
    static constexpr int focusWidth = 2;

    /// What lies below the pointer, or is held down.
    static void paintFill(QPainter& painter, const QRectF& area, const QColor& color,
                          double radius = cornerRadius);

    /// What has the keyboard: a ring along the inside of `area`.
    static void paintFocus(QPainter& painter, const QRectF& area, const QColor& accent,
                           double radius = cornerRadius);
};

} // namespace platform
