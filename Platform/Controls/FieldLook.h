// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>
#include <QSize>
#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionSpinBox;

namespace platform {

/// How controls that hold a value look: the place to type one line in, the combo box, and the spin
/// box, which is two halves, of which one takes a step down and the other a step up; its value is
/// shown by whoever places it.
struct FieldLook {
    static constexpr int height = 28;
    /// Combo boxes are equally wide.
    static constexpr int comboWidth = 172;

    static QSize comboSize();
    static QSize spinSize();

    static QRect comboPart(const QStyleOptionComboBox& option, QStyle::SubControl part);
    static QRect spinPart(const QStyleOptionSpinBox& option, QStyle::SubControl part);

    static void paintLine(QPainter& painter, const QStyleOption& option);
    static void paintCombo(QPainter& painter, const QStyleOptionComboBox& option, bool showsFocus);
    static void paintComboText(QPainter& painter, const QStyleOptionComboBox& option);
    static void paintSpin(QPainter& painter, const QStyleOptionSpinBox& option, bool showsFocus);
};

} // namespace platform
