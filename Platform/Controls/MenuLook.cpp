// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/MenuLook.h"

#include "Platform/Appearance/AccentColors.h"
#include "Platform/Appearance/SymbolImage.h"
#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlMarks.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

namespace platform {

namespace {

constexpr int cornerRadius = 8;
constexpr int rowHeight = 28;
constexpr int separatorHeight = 9;
constexpr int tickSize = 12;
constexpr int padding = 12;

void paintSeparator(QPainter& painter, const QStyleOption& option) {
    const QRectF row(option.rect);
    painter.fillRect(QRectF(row.left() + ControlMarks::cornerRadius, row.center().y(),
                            row.width() - 2 * ControlMarks::cornerRadius,
                            1 / painter.device()->devicePixelRatioF()),
                     SystemColors::of(option.palette).separator);
}

void paintRow(QPainter& painter, const QStyleOptionMenuItem& item) {
    const bool isEnabled = item.state & QStyle::State_Enabled;
    const auto accent = AccentColors::of(item.palette);
    // A combo box fills its rows otherwise than the card they lie on.
    painter.fillRect(item.rect, SystemColors::of(item.palette).card);
    QColor foreground =
        item.palette.color(isEnabled ? QPalette::Active : QPalette::Disabled, QPalette::Text);
    if (item.state & QStyle::State_Selected && isEnabled) {
        ControlMarks::paintFill(painter, item.rect, accent.fill);
        foreground = accent.mark;
    }
    const auto place = [&item](const QRect& area) {
        return QStyle::visualRect(item.direction, item.rect, area);
    };
    if (item.checked) {
        const QRect tick(item.rect.topLeft(), QSize(MenuLook::tickPlace, item.rect.height()));
        ControlMarks::paintSymbol(painter, SymbolImage(QStringLiteral("checkmark")), place(tick),
                                  tickSize, foreground);
    }
    const bool hasTicks = item.checkType != QStyleOptionMenuItem::NotCheckable;
    painter.setFont(item.font);
    painter.setPen(foreground);
    ControlMarks::paintText(
        painter,
        place(item.rect.adjusted(hasTicks ? MenuLook::tickPlace : padding, 0, -padding, 0)),
        item.direction, item.text);
}

} // namespace

QSize MenuLook::itemSize(const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {MenuLook::tickPlace, separatorHeight}; // without a width it is left out
    const QFontMetrics metrics(item.font);
    return {MenuLook::tickPlace + metrics.size(Qt::TextHideMnemonic, item.text).width() + padding,
            rowHeight};
}

void MenuLook::paintPanel(QPainter& painter, const QStyleOption& option, bool isTranslucent) {
    const auto colors = SystemColors::of(option.palette);
    const double radius = isTranslucent ? cornerRadius : 0;
    const double line = 1 / painter.device()->devicePixelRatioF();
    painter.setRenderHint(QPainter::Antialiasing);
    // Stronger than a hairline within a window: it may be all that sets the menu off from one.
    QColor edge = colors.label;
    edge.setAlphaF(colors.edge ? 1.0F : 0.25F);
    painter.setPen(QPen(edge, line));
    painter.setBrush(colors.card);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(line / 2, line / 2, -line / 2, -line / 2),
                            radius, radius);
}

void MenuLook::paintItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        paintSeparator(painter, item);
    else
        paintRow(painter, item);
}

} // namespace platform
