// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/FieldLook.h"

#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"
#include "Platform/Controls/MenuLook.h"

#include <QPainter>
#include <QStyleOptionComboBox>
#include <QStyleOptionSpinBox>

namespace platform {

namespace {

constexpr int margin = ControlMarks::ringMargin;
constexpr int comboTextInset = 10;
constexpr int chevronSize = 12;
constexpr int chevronInset = 8;
constexpr int spinWidth = 64;
constexpr int spinSymbolSize = 13; // odd, so that a stroke in the middle is sharp

QSize withRing(QSize size) {
    return size.grownBy({margin, margin, margin, margin});
}

void paintSpinHalf(QPainter& painter, const QStyleOptionSpinBox& option, QStyle::SubControl half) {
    const auto colors = SystemColors::of(option.palette);
    const QRect area = FieldLook::spinPart(option, half);
    const bool isUp = half == QStyle::SC_SpinBoxUp;
    const bool canStep = option.state & QStyle::State_Enabled &&
                         option.stepEnabled & (isUp ? QAbstractSpinBox::StepUpEnabled
                                                    : QAbstractSpinBox::StepDownEnabled);
    if (canStep && option.activeSubControls == half) {
        painter.setClipRect(area);
        ControlMarks::paintPointer(painter, ControlMarks::inside(option.rect), option.state,
                                   colors);
        painter.setClipping(false);
    }
    const SymbolImage symbol(isUp ? QStringLiteral("plus") : QStringLiteral("minus"));
    ControlMarks::paintSymbol(
        painter, symbol, area, spinSymbolSize,
        canStep ? colors.label : option.palette.color(QPalette::Disabled, QPalette::ButtonText));
}

} // namespace

QSize FieldLook::comboSize() {
    return withRing({comboWidth, height});
}

QSize FieldLook::spinSize() {
    return withRing({spinWidth, height});
}

QRect FieldLook::comboPart(const QStyleOptionComboBox& option, QStyle::SubControl part) {
    const QRect area = ControlMarks::inside(option.rect);
    const int arrowWidth = chevronInset + chevronSize;
    switch (part) {
    case QStyle::SC_ComboBoxFrame:
        return option.rect;
    case QStyle::SC_ComboBoxArrow:
        return QStyle::visualRect(
            option.direction, option.rect,
            {area.right() + 1 - arrowWidth, area.top(), chevronSize, area.height()});
    case QStyle::SC_ComboBoxEditField:
        return QStyle::visualRect(option.direction, option.rect,
                                  area.adjusted(comboTextInset, 0, -arrowWidth, 0));
    case QStyle::SC_ComboBoxListBoxPopup:
        // The chosen item opens over the box, text upon text.
        return QStyle::visualRect(
            option.direction, option.rect,
            area.adjusted(comboTextInset - MenuLook::inset - MenuLook::tickPlace, 0, 0, 0)
                .translated(0, -MenuLook::inset));
    default:
        return area;
    }
}

QRect FieldLook::spinPart(const QStyleOptionSpinBox& option, QStyle::SubControl part) {
    const QRect area = ControlMarks::inside(option.rect);
    const int half = area.width() / 2;
    switch (part) {
    case QStyle::SC_SpinBoxFrame:
        return option.rect;
    case QStyle::SC_SpinBoxDown:
        return QStyle::visualRect(option.direction, option.rect, area.adjusted(0, 0, -half, 0));
    case QStyle::SC_SpinBoxUp:
        return QStyle::visualRect(option.direction, option.rect, area.adjusted(half, 0, 0, 0));
    default:
        return {};
    }
}

void FieldLook::paintLine(QPainter& painter, const QStyleOption& option) {
    const auto colors = SystemColors::of(option.palette);
    ControlMarks::paintGround(painter, option.rect, colors.field, colors);
    if (option.state & QStyle::State_HasFocus)
        ControlMarks::paintFocus(painter, option.rect, colors.accent);
}

void FieldLook::paintCombo(QPainter& painter, const QStyleOptionComboBox& option, bool showsFocus) {
    const auto colors = SystemColors::of(option.palette);
    const QRect area = ControlMarks::inside(option.rect);
    ControlMarks::paintGround(painter, area, colors.field, colors);
    const bool isOpen = option.state & QStyle::State_On;
    ControlMarks::paintPointer(painter, area,
                               isOpen ? option.state | QStyle::State_Sunken : option.state, colors);
    ControlMarks::paintSymbol(painter, SymbolImage(QStringLiteral("chevron-up-down")),
                              comboPart(option, QStyle::SC_ComboBoxArrow), chevronSize,
                              colors.secondaryLabel);
    if (showsFocus)
        ControlMarks::paintFocusAround(painter, area, colors.accent);
}

void FieldLook::paintComboText(QPainter& painter, const QStyleOptionComboBox& option) {
    const QRect area = comboPart(option, QStyle::SC_ComboBoxEditField);
    painter.setPen(SystemColors::of(option.palette).label);
    QString text = option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, area.width());
    ControlMarks::paintText(painter, area, option.direction,
                            text.replace(u'&', QStringLiteral("&&")));
}

void FieldLook::paintSpin(QPainter& painter, const QStyleOptionSpinBox& option, bool showsFocus) {
    const auto colors = SystemColors::of(option.palette);
    const QRectF area = ControlMarks::inside(option.rect);
    ControlMarks::paintGround(painter, area, colors.field, colors);
    paintSpinHalf(painter, option, QStyle::SC_SpinBoxDown);
    paintSpinHalf(painter, option, QStyle::SC_SpinBoxUp);
    constexpr int inset = 6;
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(QRectF(area.center().x(), area.top() + inset,
                            1 / painter.device()->devicePixelRatioF(), area.height() - 2 * inset),
                     colors.separator);
    if (showsFocus)
        ControlMarks::paintFocusAround(painter, area, colors.accent);
}

} // namespace platform
