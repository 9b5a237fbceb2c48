// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;

namespace platform {

/// How menus and the lists of combo boxes look: rows with the marks of controls on a card.
struct MenuLook {
    /// Between the menu's edge and its rows.
    static constexpr int inset = 4;
    /// Between a row's edge and its text, where rows can have a tick.
    static constexpr int tickPlace = 26;

    static QSize itemSize(const QStyleOptionMenuItem& item);

    /// @param isTranslucent whether the menu's window is, so that its corners can be round
    static void paintPanel(QPainter& painter, const QStyleOption& option, bool isTranslucent);
    static void paintItem(QPainter& painter, const QStyleOptionMenuItem& item);
};

} // namespace platform
