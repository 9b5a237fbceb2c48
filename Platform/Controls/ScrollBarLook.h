// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QStyle>

class QEvent;
class QPainter;
class QScrollBar;
class QStyleOptionSlider;

namespace platform {

/// How a vertical scroll bar looks: a thin handle and nothing else, there while the content moves
/// or the pointer is near, and fading after that.
struct ScrollBarLook {
    /// What it needs beside the content.
    static constexpr int breadth = 12;

    static QRect part(const QStyleOptionSlider& option, QStyle::SubControl part);

    /// @param opacity of the handle, 0 to 1
    static void paint(QPainter& painter, const QStyleOptionSlider& option, double opacity);

    /// Has a bar show its handle while its value changes.
    static void polish(QScrollBar& bar);

    /// To be told of what a polished bar receives: the pointer keeps its handle.
    static void follow(const QScrollBar& bar, const QEvent& event);
};

} // namespace platform
