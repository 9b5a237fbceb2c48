// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/ButtonLook.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QPainter>
#include <QStyleOptionButton>

#include <algorithm>

namespace platform {

namespace {

constexpr int padding = 14;
constexpr int smallestWidth = 64;
constexpr int height = 28;
constexpr int flatHeight = 24;
constexpr int symbolSpacing = 6;

bool isFlat(const QStyleOptionButton& option) {
    return option.features & QStyleOptionButton::Flat;
}

bool isDefault(const QStyleOptionButton& option) {
    return option.features & QStyleOptionButton::DefaultButton;
}

int textWidth(const QStyleOptionButton& option) {
    return option.fontMetrics.size(Qt::TextHideMnemonic, option.text).width();
}

QColor disabledText(const QStyleOptionButton& option) {
    return option.palette.color(QPalette::Disabled, QPalette::ButtonText);
}

QColor flatForeground(const QStyleOptionButton& option, const SystemColors& colors) {
    if (!(option.state & QStyle::State_Enabled))
        return disabledText(option);
    const bool isReached =
        option.state & QStyle::State_MouseOver || option.state & QStyle::State_HasFocus;
    return isReached || isDefault(option) ? colors.label : colors.secondaryLabel;
}

void paintFlat(QPainter& painter, const QStyleOptionButton& option, bool showsFocus) {
    const auto colors = SystemColors::of(option.palette);
    if (isDefault(option) && option.state & QStyle::State_Enabled &&
        !(option.state & QStyle::State_MouseOver))
        ControlMarks::paintFill(painter, option.rect, colors.hover);
    ControlMarks::paintPointer(painter, option.rect, option.state, colors);
    painter.setPen(flatForeground(option, colors));
    const QRect inside =
        option.rect.adjusted(ButtonLook::flatPadding, 0, -ButtonLook::flatPadding, 0);
    const auto place = [&](const QRect& area) {
        return QStyle::visualRect(option.direction, option.rect, area);
    };
    ControlMarks::paintText(painter, place(inside), option.direction, option.text);
    if (!option.icon.isNull()) {
        QRect area(QPoint(), option.iconSize);
        area.moveCenter(option.rect.center());
        if (!option.text.isEmpty())
            area.moveLeft(inside.left() + textWidth(option) + symbolSpacing);
        option.icon.paint(&painter, place(area));
    }
    if (showsFocus)
        ControlMarks::paintFocus(painter, option.rect, colors.accent);
}

void paintFilled(QPainter& painter, const QStyleOptionButton& option, bool showsFocus) {
    const auto colors = SystemColors::of(option.palette);
    const QRect area = ControlMarks::inside(option.rect);
    const bool isEnabled = option.state & QStyle::State_Enabled;
    const bool isProminent = isDefault(option) && isEnabled;
    const auto accent = AccentColors::of(option.palette);
    ControlMarks::paintGround(painter, area, isProminent ? accent.fill : colors.field, colors);
    ControlMarks::paintPointer(painter, area, option.state, colors);
    painter.setPen(isProminent ? accent.mark : isEnabled ? colors.label : disabledText(option));
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextHideMnemonic,
                     option.text);
    if (showsFocus)
        ControlMarks::paintFocusAround(painter, area, colors.accent);
}

} // namespace

QSize ButtonLook::size(const QStyleOptionButton& option) {
    const int text = textWidth(option);
    if (!isFlat(option))
        return QSize(std::max(text + 2 * padding, smallestWidth), height)
            .grownBy({ControlMarks::ringMargin, ControlMarks::ringMargin, ControlMarks::ringMargin,
                      ControlMarks::ringMargin});
    int width = text + 2 * flatPadding;
    if (!option.icon.isNull())
        width += option.iconSize.width() + (text > 0 ? symbolSpacing : 0);
    return {width, flatHeight};
}

void ButtonLook::paint(QPainter& painter, const QStyleOptionButton& option, bool showsFocus) {
    if (isFlat(option))
        paintFlat(painter, option, showsFocus);
    else
        paintFilled(painter, option, showsFocus);
}

} // namespace platform
