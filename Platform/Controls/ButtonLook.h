// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

class QPainter;
class QStyleOptionButton;

namespace platform {

/// How push buttons look: with a fill of their own, the default one with the accent's. A flat one
/// is only its text and, behind it, its symbol, until the pointer or the keyboard reaches it; a
/// flat default one is marked as what Enter presses.
struct ButtonLook {
    /// Between a flat button's edge and what stands in it.
    static constexpr int flatPadding = 5;

    static QSize size(const QStyleOptionButton& option);
    static void paint(QPainter& painter, const QStyleOptionButton& option, bool showsFocus);
};

} // namespace platform
